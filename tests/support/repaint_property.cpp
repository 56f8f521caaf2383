#include "support/repaint_property.h"

#include "support/control_fixture.h"
#include "support/pixel_image.h"

#include <string>

namespace mirel_test {

namespace {
// Runs the scenario on a fresh window and answers its pixels: painting after every action, or only once
// at the end, when the window has never painted and so paints everything.
CPixelImage Run(SRepaintScenario const& scenario, unsigned seed, bool paintEachStep) {
    CControlFixture f(scenario.clientSize, false);
    scenario.build(*f.control);
    if (paintEachStep) f.Paint();
    std::mt19937 random(seed);
    for (int step = 0; step < scenario.steps; ++step) {
        scenario.act(*f.control, *f.window, random);
        if (paintEachStep) f.Paint();
    }
    f.Paint();
    return CPixelImage::Of(*f.window->GetPainter());
}
} // namespace

int Uniform(std::mt19937& random, int low, int high) {
    return std::uniform_int_distribution<int>(low, high)(random);
}

mirel7::_color RandomColor(std::mt19937& random) {
    auto const byte = [&] { return static_cast<std::uint8_t>(Uniform(random, 0, 255)); };
    return mirel7::_color(byte(), byte(), byte());
}

testing::AssertionResult IncrementalPaintEqualsFullPaint(SRepaintScenario const& scenario, unsigned seed) {
    return ImagesMatch(Run(scenario, seed, true), Run(scenario, seed, false), 0, 0,
                       "seed" + std::to_string(seed));
}

} // namespace mirel_test
