#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace mirel_test {

struct SAssertion {
    std::string condition;
    std::string source;
    int line = 0;
    std::string function;
};

// Every assertion of the library fails the running test, unless a CExpectAssertions lives: then it is
// recorded there for the test to check. Captures nest; the innermost one records.
class CExpectAssertions {
public:
    CExpectAssertions();
    ~CExpectAssertions();
    CExpectAssertions(CExpectAssertions const&) = delete;
    CExpectAssertions& operator=(CExpectAssertions const&) = delete;

    std::vector<SAssertion> Taken() const;
    std::size_t Count() const;
    // How many recorded conditions contain `text`.
    std::size_t CountContaining(std::string_view text) const;

private:
    friend void RecordAssertion(SAssertion);
    CExpectAssertions* m_outer;
    std::vector<SAssertion> m_taken;
};

// Installs the failing handler; the test main calls it once.
void InstallAssertHandler();

} // namespace mirel_test
