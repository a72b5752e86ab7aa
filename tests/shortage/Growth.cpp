// Whether a document that is edited for days grows with its edits. Each edit, with what undoes it, is repeated until the
// tree has been copied several times; from then on the most memory that is in use at any time must stay the same.
//
// For the figures (one line an edit: the most bytes in use in the first tenth of a million repetitions, and in all):
//   XMLCONFIG_REPETITIONS=1000000 build/dev/bin/xmlconfig_shortage_tests --gtest_filter='*Growth*' --gtest_brief=1

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>

#include "tests/shortage/Allocations.h"
#include "tests/shortage/Edits.h"

namespace {

class Growth : public testing::TestWithParam<edits::Edit> {
protected:
    Growth() { edits::prepare(m_document); }

    /// The most bytes in use at any time.
    std::size_t peakOf(int repetitions) {
        std::size_t peak = 0;
        for (int i = 0; i < repetitions; ++i) {
            GetParam().run(m_document, i);
            peak = std::max(peak, allocations::liveBytes() + allocations::liveBytesOfXml());
        }
        return peak;
    }

    ConfigInfo m_document;
};

TEST_P(Growth, Ends) {
    constexpr std::size_t slack =
        48 * 1024;  // a few blocks of the XML library: the tree is copied at other times than before
    const char* const wanted = std::getenv("XMLCONFIG_REPETITIONS");
    const int repetitions = wanted == nullptr ? 48000 : std::atoi(wanted);
    const int early = wanted == nullptr ? repetitions / 3 : repetitions / 10;
    const std::size_t first = peakOf(early);
    const std::size_t later = peakOf(repetitions - early);
    EXPECT_LE(later, first + slack);
    if (wanted != nullptr)
        std::cout << GetParam().name << ": " << first << ", " << std::max(first, later) << " bytes" << std::endl;
}

INSTANTIATE_TEST_SUITE_P(Of, Growth, testing::ValuesIn(edits::all()),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
