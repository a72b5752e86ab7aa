#include <gtest/gtest.h>

#include "manager/CheckRules.h"
#include "platform/Text.h"
#include "tests/support/GoldenFile.h"
#include "tests/support/RulesPage.h"

namespace {

constexpr const char* pagePath = "docs/rules.md";  // tests run from the root of the sources

// XMLCONFIG_UPDATE_GOLDEN=1 writes the page anew after a change of the rules.
TEST(RulesPage, InTheDocumentsIsTheOneMadeFromTheTable) {
    const std::string made = XMLConfig::detail::toUtf8(XMLConfig::detail::rulesPage());
    EXPECT_TRUE(matchesGolden(pagePath, made));
}

TEST(RulesPage, HasOneRowForEachRule) {
    const std::wstring page = XMLConfig::detail::rulesPage();
    for (const XMLConfig::CheckRule& rule : XMLConfig::checkRules()) {
        const std::size_t at = page.find(L"\n| " + std::wstring(rule.id) + L" | " + rule.name + L" | ");
        ASSERT_NE(at, std::wstring::npos);
        EXPECT_EQ(page.find(L"\n| " + std::wstring(rule.id), at + 1), std::wstring::npos);
    }
}

}  // namespace
