#include <mirelfrw7/antialiasing/color_info.h>

#include <algorithm>
#include <cmath>

namespace antialiasing {

namespace {
void Step(std::uint32_t& channel, double increment, double& rest) {
    rest += increment;
    double const whole = std::floor(rest);
    rest -= whole;
    double const moved = double(channel) + whole;
    channel = moved <= 0 ? 0 : moved >= 255 ? 255 : std::uint32_t(moved);
}
} // namespace

CColorInfo& CColorInfo::operator+=(CColorInfoR& step) {
    Step(r, step.r, step.restR);
    Step(g, step.g, step.restG);
    Step(b, step.b, step.restB);
    Step(a, step.a, step.restA);
    return *this;
}

} // namespace antialiasing
