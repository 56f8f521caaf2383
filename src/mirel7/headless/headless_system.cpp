#include <mirel7/headless/headless_system.h>

namespace mirel7::headless {

CHeadlessSystem::CHeadlessSystem() = default;

CHeadlessSystem::~CHeadlessSystem() = default;

void CHeadlessSystem::Advance(int ms) {
    std::int64_t const target = m_now + (ms > 0 ? ms : 0);
    // Step from deadline to deadline, so each tick sees the clock at its own time.
    for (auto next = GetTimers().NextDeadline(); next && *next <= target; next = GetTimers().NextDeadline()) {
        m_now = std::max(m_now, *next);
        GetTimers().RunDue(m_now);
    }
    m_now = target;
}

} // namespace mirel7::headless
