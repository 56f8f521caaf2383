#include <mirelfrw7/core/life_guard.h>

namespace mirelfrw7 {

namespace {
// The innermost guard alive; each links to the one made before it. Guards die in the reverse order of
// their making, so the chain is a stack.
thread_local CLifeGuard* t_innermost = nullptr;
} // namespace

CLifeGuard::CLifeGuard(CVisualElement* element) : m_element(element), m_outer(t_innermost) {
    t_innermost = this;
}

CLifeGuard::~CLifeGuard() {
    t_innermost = m_outer;
}

void CLifeGuard::Bury(CVisualElement const* element) {
    for (CLifeGuard* guard = t_innermost; guard; guard = guard->m_outer)
        if (guard->m_element == element) guard->m_element = nullptr;
}

} // namespace mirelfrw7
