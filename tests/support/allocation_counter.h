#pragma once

#include <cstddef>

namespace mirel_test {

// Counts the allocations made through operator new on this thread while it lives, and their bytes. Linking
// the allocation counter replaces the global operator new and delete of the program; the tests and the
// benchmarks both use it.
class CCountAllocations {
public:
    CCountAllocations();
    ~CCountAllocations();
    CCountAllocations(CCountAllocations const&) = delete;
    CCountAllocations& operator=(CCountAllocations const&) = delete;

    std::size_t Allocations() const;
    std::size_t Bytes() const;

private:
    std::size_t m_startCount;
    std::size_t m_startBytes;
    bool m_wasCounting;
};

} // namespace mirel_test
