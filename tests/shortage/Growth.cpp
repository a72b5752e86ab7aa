// Whether a document that is edited for days grows with its edits. Each edit, with what undoes it, is repeated until the
// tree has been copied several times; from then on the most memory that is in use at any time must stay the same. The
// program xmlconfig_growth beside the benchmarks does it a million times.

#include <gtest/gtest.h>

#include "tests/shortage/Edits.h"

namespace {

class Growth : public testing::TestWithParam<edits::Edit> {};

TEST_P(Growth, Ends) {
    constexpr int repetitions = 48000;
    ConfigInfo document;
    edits::prepare(document);
    const std::size_t first = edits::mostBytes(GetParam(), document, repetitions / 3);
    EXPECT_LE(edits::mostBytes(GetParam(), document, repetitions - repetitions / 3), first + edits::slack);
}

INSTANTIATE_TEST_SUITE_P(Of, Growth, testing::ValuesIn(edits::all()),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
