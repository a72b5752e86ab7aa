// Of every setting with words, named numbers, a range or an angle: set stores what fits, and only that.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/Utf8.h"
#include "tests/support/CurrentFile.h"
#include "tests/support/ToolFiles.h"
#include "tests/support/ToolRun.h"
#include "tests/support/ValueSamples.h"

namespace {

using testing::HasSubstr;
using XMLConfig::tests::ValueSamples;
using XMLConfig::tests::valueSamples;

class SetKnownValues : public ToolFiles {
protected:
    std::string file = fileOf(currentFile("<Screen/><Projector ID='a'/><Camera ID='a'/>"));

    static std::string change(const ValueSamples& samples, const std::wstring& text) {
        return XMLConfig::utf8FromWide(addressText(samples.place) + L"=" + text);
    }
    /// What --from takes: all changes that `pick` picks.
    template <typename Pick>
    std::string linesOf(const Pick& pick) const {
        std::string lines;
        for (const ValueSamples& samples : valueSamples())
            for (const std::wstring& text : pick(samples)) lines += change(samples, text) + "\n";
        return lines;
    }
};

}  // namespace

// The first of them comes last: of all settings together these make no error.
TEST_F(SetKnownValues, WhatFitsIsStoredWithoutAWord) {
    const std::string lines = linesOf(
        [](const ValueSamples& samples) { return std::vector<std::wstring>(samples.good.rbegin(), samples.good.rend()); });
    const ToolRun set = runToolReading(lines, {"set", "--dry-run", file, "--from", "-"});
    EXPECT_EQ(set.errors, "");
    EXPECT_EQ(set.status, 0);
}

TEST_F(SetKnownValues, WhatIsUnusualIsStoredWithAWarning) {
    std::size_t count = 0;
    const std::string lines = linesOf([&](const ValueSamples& samples) {
        count += samples.isWarned ? samples.bad.size() : 0;
        return samples.isWarned ? samples.bad : std::vector<std::wstring>();
    });
    const ToolRun set = runToolReading(lines, {"set", "--dry-run", "--quiet", file, "--from", "-"});
    std::size_t warnings = 0;
    for (std::size_t at = set.errors.find(", which is usual (XC114)\n"); at != std::string::npos;
         at = set.errors.find(", which is usual (XC114)\n", at + 1))
        ++warnings;
    EXPECT_EQ(warnings, count);
}

TEST_F(SetKnownValues, WhatSpoilsIsRefusedWithItsRule) {
    for (const ValueSamples& samples : valueSamples()) {
        if (samples.isWarned) continue;
        const ToolRun set = runTool({"set", "--dry-run", file, change(samples, samples.bad[0])});
        EXPECT_EQ(set.status, 1) << change(samples, samples.bad[0]);
        EXPECT_EQ(set.output, "");
        EXPECT_THAT(set.errors, HasSubstr("(" + XMLConfig::utf8FromWide(samples.rule) + ")"));
    }
}
