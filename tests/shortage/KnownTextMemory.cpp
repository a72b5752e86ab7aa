// How often a document asks for memory to keep the texts that were read of its sections.

#include <gtest/gtest.h>

#include <string>

#include "store/ConfigInfo.h"
#include "tests/shortage/Allocations.h"

TEST(KnownTextMemory, IsTakenOnceForTheTextsOfASectionLikeTheLast) {
    constexpr std::size_t sections = 500;
    constexpr std::size_t items = 12;
    const std::wstring text = L"longer than what a string holds in itself";
    ConfigInfo document;
    for (std::size_t i = 1; i <= sections; ++i)
        for (std::size_t k = 0; k < items; ++k)
            document.setStringItem(L"S", std::wstring(1, wchar_t(L'a' + k)), text, std::to_wstring(i), {}, {});
    allocations::restart();
    for (std::size_t i = 1; i <= sections; ++i)
        for (std::size_t k = 0; k < items; ++k)
            EXPECT_EQ(document.getStringItem(L"S", std::wstring(1, wchar_t(L'a' + k)), {}, std::to_wstring(i), {}, {}),
                      text);
    // One for each text that is returned, one for a section's list of what was read, and one for its texts.
    EXPECT_LE(allocations::count(), sections * (items + 2) + 16);
}
