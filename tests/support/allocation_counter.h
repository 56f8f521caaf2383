#pragma once

#include <cstddef>

namespace mirel_test {

// Counts the allocations made through operator new on this thread while it lives. Linking this file
// replaces the global operator new and delete of the test program.
class CCountAllocations {
public:
    CCountAllocations();
    ~CCountAllocations();
    CCountAllocations(CCountAllocations const&) = delete;
    CCountAllocations& operator=(CCountAllocations const&) = delete;

    std::size_t Allocations() const;

private:
    std::size_t m_start;
    bool m_wasCounting;
};

} // namespace mirel_test
