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
    int count = m_refCount.load(std::memory_order_relaxed);
    // Acquire and release order: the thread that deletes sees every write made under the other references.
    while (count > 0 && !m_refCount.compare_exchange_weak(count, count - 1, std::memory_order_acq_rel,
                                                          std::memory_order_relaxed)) {
    }
    int const now = count > 0 ? count - 1 : 0;
    if (now == 0) DeleteBase(this);
    return now;
}

void DeleteBase(CBase* object) {
    if (object && object->IsDynamic()) delete object;
}

} // namespace mirel7
