#include <mirelfrw7/core/base.h>

#include <new>
#include <utility>

namespace mirelfrw7 {
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

} // namespace mirelfrw7
