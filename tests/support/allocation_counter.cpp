#include "support/allocation_counter.h"

#include <cstdlib>
#include <new>

namespace {
thread_local bool t_counting = false;
thread_local std::size_t t_allocations = 0;
thread_local std::size_t t_bytes = 0;

void* Allocate(std::size_t size) {
    if (t_counting) {
        ++t_allocations;
        t_bytes += size;
    }
    if (void* p = std::malloc(size ? size : 1)) return p;
    throw std::bad_alloc();
}
} // namespace

void* operator new(std::size_t size) {
    return Allocate(size);
}
void* operator new[](std::size_t size) {
    return Allocate(size);
}
void operator delete(void* p) noexcept {
    std::free(p);
}
void operator delete[](void* p) noexcept {
    std::free(p);
}
void operator delete(void* p, std::size_t) noexcept {
    std::free(p);
}
void operator delete[](void* p, std::size_t) noexcept {
    std::free(p);
}

namespace mirel_test {

CCountAllocations::CCountAllocations()
    : m_startCount(t_allocations), m_startBytes(t_bytes), m_wasCounting(t_counting) {
    t_counting = true;
}

CCountAllocations::~CCountAllocations() {
    t_counting = m_wasCounting;
}

std::size_t CCountAllocations::Allocations() const {
    return t_allocations - m_startCount;
}

std::size_t CCountAllocations::Bytes() const {
    return t_bytes - m_startBytes;
}

} // namespace mirel_test
