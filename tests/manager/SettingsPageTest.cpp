#include "tests/support/SettingsPage.h"

#include <gtest/gtest.h>

#include "manager/Catalogue.h"
#include "platform/Text.h"
#include "tests/support/GoldenFile.h"

namespace {

constexpr const char* pagePath = "docs/settings.md";  // tests run from the root of the sources

}  // namespace

// XMLCONFIG_UPDATE_GOLDEN=1 writes the page anew after a change of the descriptors.
TEST(SettingsPage, InTheDocumentsIsTheOneMadeFromTheDescriptors) {
    const std::string made = XMLConfig::detail::toUtf8(XMLConfig::detail::settingsPage());
    EXPECT_TRUE(matchesGolden(pagePath, made));
}

TEST(SettingsPage, HasOneRowForEachSetting) {
    const std::wstring page = XMLConfig::detail::settingsPage();
    std::size_t rows = 0;
    for (std::size_t at = page.find(L"\n| `"); at != std::wstring::npos; at = page.find(L"\n| `", at + 1)) ++rows;
    EXPECT_EQ(rows, XMLConfig::catalogue().size());
    EXPECT_NE(page.find(L"\n| `Screen_Width` | double | `-1.000000000000000e+00` | `1.000000000000000e+00` |"),
              std::wstring::npos);
    EXPECT_NE(page.find(L"`Channel_Extents\\|HFOV\\|Left`"), std::wstring::npos);
}
