#include "sections/ScreenConfig.h"

#include <gtest/gtest.h>

#include "tests/sections/ScreenFixture.h"

namespace {

class ScreenSize : public XMLConfig::tests::ScreenFixture {};

}  // namespace

TEST(ScreenSizeDefinition, HasTextsForItsValues) {
    EXPECT_EQ(ScreenConfig::ScreenSizeDefinitionEnumToString(ScreenConfig::SizeManual), "Manually");
    EXPECT_EQ(ScreenConfig::ScreenSizeDefinitionEnumToString(ScreenConfig::SizeAutomatic), "Automatically");
    EXPECT_EQ(ScreenConfig::ScreenSizeDefinitionEnumToString(ScreenConfig::SizeFromFile), "From Image");
    for (const int other : {3, -1, 99})
        EXPECT_EQ(ScreenConfig::ScreenSizeDefinitionEnumToString(static_cast<ScreenConfig::ScreenSizeDefinitionEnum>(other)),
                  "");
}

TEST(ScreenSizeDefinition, NumbersAreThoseOfFiles) {
    EXPECT_EQ(static_cast<int>(IScreenConfig::SizeManual), 0);
    EXPECT_EQ(static_cast<int>(IScreenConfig::SizeAutomatic), 1);
    EXPECT_EQ(static_cast<int>(IScreenConfig::SizeFromFile), 2);
    EXPECT_TRUE((std::is_same_v<ScreenConfig::ScreenSizeDefinitionEnum, IScreenConfig::ScreenSizeDefinitionEnum>));
}

TEST_F(ScreenSize, MissingSizeDefinitionAsksTheOlderFlag) {
    EXPECT_EQ(screen.getSizeDefinition(), ScreenConfig::SizeManual);
    items.putClean(L"Auto_Dimensions", L"true");
    EXPECT_EQ(screen.getSizeDefinition(), ScreenConfig::SizeAutomatic);
    EXPECT_TRUE(screen.isSizeDeterminedAutomatically());
    items.putClean(L"Auto_Dimensions", L"false");
    EXPECT_EQ(screen.getSizeDefinition(), ScreenConfig::SizeManual);
    EXPECT_TRUE(screen.isSizeDeterminedManually());
    EXPECT_EQ(items.text(L"SizeDefinition"), std::nullopt);
    EXPECT_FALSE(document.isDirty());
}

TEST_F(ScreenSize, StoredThreeAsksTheOlderFlagToo) {
    items.putClean(L"SizeDefinition", L"3");
    items.putClean(L"Auto_Dimensions", L"true");
    EXPECT_EQ(screen.getSizeDefinition(), ScreenConfig::SizeAutomatic);
    EXPECT_EQ(items.text(L"SizeDefinition"), L"3");
}

TEST_F(ScreenSize, StoredSizeDefinitionOutweighsTheOlderFlag) {
    for (const wchar_t* flag : {L"true", L"false"}) {
        items.putClean(L"Auto_Dimensions", flag);
        items.putClean(L"SizeDefinition", L"2");
        EXPECT_EQ(screen.getSizeDefinition(), ScreenConfig::SizeFromFile);
        EXPECT_TRUE(screen.isSizeDeterminedFromFile());
        items.putClean(L"SizeDefinition", L"0");
        EXPECT_TRUE(screen.isSizeDeterminedManually());
        EXPECT_FALSE(screen.isSizeDeterminedAutomatically());
        EXPECT_FALSE(screen.isSizeDeterminedFromFile());
    }
}

TEST_F(ScreenSize, SizeDefinitionHasNoRange) {
    items.putClean(L"Auto_Dimensions", L"true");
    items.putClean(L"SizeDefinition", L"-7");
    EXPECT_EQ(static_cast<int>(screen.getSizeDefinition()), -7);
    EXPECT_FALSE(screen.isSizeDeterminedAutomatically());
    items.putClean(L"SizeDefinition", L"");
    EXPECT_EQ(screen.getSizeDefinition(), ScreenConfig::SizeManual);
}

TEST_F(ScreenSize, SizeTestsAskTheVirtualGetter) {
    struct FromFile : ScreenConfig {
        using ScreenConfig::ScreenConfig;
        ScreenSizeDefinitionEnum getSizeDefinition() override { return SizeFromFile; }
    };
    const FromFile derived(&document, nullptr, L"");
    EXPECT_TRUE(derived.isSizeDeterminedFromFile());
    EXPECT_FALSE(derived.isSizeDeterminedManually());
    EXPECT_FALSE(derived.isSizeDeterminedAutomatically());
}
