#include <mirel7/base.h>

namespace mirel7 {
namespace {
// Set by operator new, taken by the constructor that follows it on the same thread.
thread_local bool t_allocatedByNew = false;

bool TakeAllocatedByNew() {
    return std::exchange(t_allocatedByNew, false);
}
} // namespace

CBase::CBase() : m_dynamic(TakeAllocatedByNew()) {}

CBase::CBase(CBase const&) : m_dynamic(TakeAllocatedByNew()) {}

CBase::~CBase() = default;

void* CBase::operator new(std::size_t size) {
    void* p = ::operator new(size);
    t_allocatedByNew = true;
    return p;
}

void CBase::operator delete(void* p) noexcept {
    ::operator delete(p);
}

int CBase::Release() {
    if (m_refCount > 0) --m_refCount;
    int const count = m_refCount;
    if (count == 0) DeleteBase(this);
    return count;
}

void DeleteBase(CBase* object) {
    if (object && object->IsDynamic()) delete object;
}

} // namespace mirel7
