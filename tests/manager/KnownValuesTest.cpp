// Of every setting with words, named numbers, a range or an angle: check finds what does not fit, and nothing in what does.

#include <gtest/gtest.h>

#include "manager/Check.h"
#include "manager/CheckRules.h"
#include "store/ConfigInfo.h"
#include "tests/support/ValueSamples.h"

namespace {

using XMLConfig::Finding;
using XMLConfig::Severity;
using XMLConfig::tests::ValueSamples;
using XMLConfig::tests::valueSamples;

std::vector<Finding> findingsOf(const ConfigInfo& document) {
    XMLConfig::CheckOptions options;
    options.onlyRules = {L"XC103", L"XC109", L"XC110", L"XC113", L"XC114", L"XC305"};
    return XMLConfig::check(document, options);
}

std::unique_ptr<ConfigInfo> documentWith(const ValueSamples& samples, const std::wstring& text) {
    auto document = std::make_unique<ConfigInfo>();
    document->setStringItem(samples.place.section, samples.place.key, text, samples.place.sectionID, {}, {});
    return document;
}

std::string nameOf(const ValueSamples& samples, const std::wstring& text) {
    return testing::PrintToString(addressText(samples.place) + L" = " + text);
}

/// Numbers that stand for nothing are worth a warning too.
Severity severityOf(const ValueSamples& samples) {
    return samples.isWarned || samples.rule == L"XC110" ? Severity::Warning : Severity::Error;
}

TEST(KnownValues, ThatFitAreInOrder) {
    for (const ValueSamples& samples : valueSamples())
        for (const std::wstring& text : samples.good)
            EXPECT_TRUE(findingsOf(*documentWith(samples, text)).empty()) << nameOf(samples, text);
}

TEST(KnownValues, ThatDoNotFitAreFoundOnce) {
    for (const ValueSamples& samples : valueSamples()) {
        for (const std::wstring& text : samples.bad) {
            SCOPED_TRACE(nameOf(samples, text));
            const auto document = documentWith(samples, text);
            const std::vector<Finding> found = findingsOf(*document);
            ASSERT_EQ(found.size(), 1U);
            EXPECT_EQ(found[0].rule, samples.rule);
            EXPECT_EQ(found[0].severity, severityOf(samples));
            EXPECT_EQ(found[0].address, addressText(samples.place));
        }
    }
}

TEST(KnownValues, AreToldToPeople) {
    for (const ValueSamples& samples : valueSamples()) {
        SCOPED_TRACE(nameOf(samples, L""));
        EXPECT_FALSE(valuesText(samples.setting).empty());
        std::size_t naming = 0;
        for (const XMLConfig::CheckRule* rule : XMLConfig::rulesOf(samples.setting))
            naming += rule->id == samples.rule ? 1 : 0;
        EXPECT_EQ(naming, 1U);
    }
}

}  // namespace
