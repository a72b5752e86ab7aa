#include "manager/SettingSearch.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "manager/Catalogue.h"

namespace {

using XMLConfig::findSetting;
using XMLConfig::isOfType;
using XMLConfig::parseAddress;

/// The type of the setting at an address; "none" where there is no setting.
std::wstring typeAt(const std::wstring& address) {
    const auto setting = findSetting(parseAddress(address));
    return setting ? nameOf(setting->type) : L"none";
}

TEST(SettingSearch, FindsSettingsWhateverTheSectionsID) {
    EXPECT_EQ(typeAt(L"Geometry/Box_Spacing"), L"double");
    EXPECT_EQ(typeAt(L"Projector/Box_Size"), L"2-D integer point");
    EXPECT_EQ(typeAt(L"Projector[7]/Box_Size"), L"2-D integer point");
    EXPECT_EQ(typeAt(L"Projector[7]/DeviceSnippet"), L"XML element");
    EXPECT_EQ(typeAt(L"Projector[7]/Channel_Extents/Heading/Yaw"), L"double");
}

TEST(SettingSearch, FindsNothingElse) {
    for (const wchar_t* address : {L"Geometry", L"Geometry/box_spacing", L"Geometry/Box_Spacing/More",
                                   L"Nowhere/Box_Spacing", L"Projector/Channel_Extents/Heading", L"ProjMap/enabled"})
        EXPECT_EQ(typeAt(address), L"none") << testing::PrintToString(std::wstring(address));
}

TEST(SettingSearch, PatternsStandForNumbersAndIdentifiers) {
    EXPECT_EQ(typeAt(L"System/ACT_Address_0"), L"text");
    EXPECT_EQ(typeAt(L"System/ACT_Address_17"), L"text");
    EXPECT_EQ(typeAt(L"System/ACT_Address_"), L"none");
    for (const wchar_t* const number : {L"1x", L"07", L"00", L"-0", L"99999999999"})
        EXPECT_EQ(typeAt(std::wstring(L"System/ACT_Address_") + number), L"none") << testing::PrintToString(number);
    EXPECT_NE(typeAt(L"Color/CameraOverlapPoint_left_right"), L"none");
    EXPECT_EQ(typeAt(L"Color/CameraOverlapPoint_left"), L"none");
    EXPECT_EQ(typeAt(L"ProjectorApprovedSlots/Slot[3]/Name"), L"text");
    EXPECT_EQ(typeAt(L"ProjectorApprovedSlots/Slot[-3]/Name"), L"text");
    EXPECT_EQ(typeAt(L"ProjectorApprovedSlots/Slot[three]/Name"), L"none");
    EXPECT_EQ(typeAt(L"ProjectorApprovedSlots/Slot/Name"), L"none");
}

TEST(SettingSearch, PartsOfRecordsAreSettings) {
    EXPECT_EQ(typeAt(L"Projector/Designed/Frustum"), L"frustum");
    EXPECT_EQ(typeAt(L"Projector/Designed/Frustum/Offset"), L"3-D point");
    EXPECT_EQ(typeAt(L"Projector/Designed/Frustum/FOVTop"), L"double");
    EXPECT_EQ(typeAt(L"Projector/Designed/Frustum/ResolutionX"), L"int");
    EXPECT_EQ(typeAt(L"Projector/Designed/Frustum/Width"), L"none");
    EXPECT_EQ(typeAt(L"Projector/Pond_Of_Mirrors/Left"), L"int");
}

TEST(SettingSearch, KnowsGroups) {
    const auto isGroup = [](const wchar_t* address) { return XMLConfig::isGroupOfSettings(parseAddress(address)); };
    EXPECT_TRUE(isGroup(L"Projector/Channel_Extents"));
    EXPECT_TRUE(isGroup(L"Projector/Channel_Extents/Heading"));
    EXPECT_TRUE(isGroup(L"Projector/Designed/Frustum"));
    EXPECT_TRUE(isGroup(L"ProjectorApprovedSlots/Slot[3]"));
    EXPECT_FALSE(isGroup(L"ProjectorApprovedSlots/Slot"));
    EXPECT_FALSE(isGroup(L"Projector/Channel"));
    EXPECT_FALSE(isGroup(L"Projector/Channel_Extents/Heading/Yaw"));
    EXPECT_FALSE(isGroup(L"Screen/Channel_Extents"));
}

TEST(SettingSearch, NamesEverySectionOnce) {
    const std::vector<std::wstring> names = XMLConfig::sectionNames();
    for (const XMLConfig::Setting& setting : XMLConfig::catalogue())
        EXPECT_EQ(std::count(names.begin(), names.end(), setting.section), 1) << testing::PrintToString(setting.section);
    EXPECT_EQ(std::count(names.begin(), names.end(), L"ProjMap"), 1);
    EXPECT_EQ(std::count(names.begin(), names.end(), L"MediaServer"), 1);
}

TEST(SettingSearch, SettingsOfASectionKeepTheCataloguesOrder) {
    const auto settings = XMLConfig::settingsOfSection(L"SiteAnalytics");
    ASSERT_EQ(settings.size(), 4U);
    EXPECT_EQ(settings[0].key, L"SuccessfulRunNumber");
    EXPECT_EQ(settings[3].key, L"VisitTimestamp");
    EXPECT_TRUE(XMLConfig::settingsOfSection(L"Nowhere").empty());
}

TEST(SettingSearch, KeysAreSpelledAsInAddresses) {
    XMLConfig::Setting setting;
    setting.key = L"Checkerboard_Calibration|Grid_Size|Rows";
    EXPECT_EQ(XMLConfig::addressKey(setting), L"Checkerboard_Calibration/Grid_Size/Rows");
}

struct TypeRow {
    XMLConfig::SettingType type;
    std::vector<std::wstring> good;
    std::vector<std::wstring> bad;
};
const TypeRow typeRows[] = {
    {XMLConfig::SettingType::Bool,
     {L"true", L"FALSE", L"t", L"F", L"1", L"0", L"yes", L"No", L"y", L"n"},
     {L"", L" true", L"maybe", L"2", L"truee"}},
    {XMLConfig::SettingType::Int,
     {L"0", L"-7", L"+7", L" 12 ", L"2147483647", L"-2147483648", L"007"},
     {L"", L"12abc", L"1.5", L"1e3", L"0x10", L"2147483648", L"- 1", L"nan"}},
    {XMLConfig::SettingType::Double,
     {L"0", L"-1.5", L"+.5", L"5.", L"1.000000000000000e-01", L"1E+3", L" 2 ", L"nan", L"-INF", L"infinity", L"1e999"},
     {L"", L".", L"1,5", L"1.5m", L"e5", L"1e", L"1e+", L"0x10", L"--1", L"nanometer"}},
    {XMLConfig::SettingType::IntPoint2, {L"3, 4", L"3 4", L"\n3\t4,"}, {L"3", L"3, 4, 5", L"3, 4.5", L"3; 4", L""}},
    {XMLConfig::SettingType::Point2, {L"1.5, nan", L"1 2"}, {L"1.5", L"1, 2, 3", L"1, x"}},
    {XMLConfig::SettingType::Point3, {L"1, 2, 3e0"}, {L"1, 2", L"1, 2, 3, 4", L"1, 2, z"}},
    {XMLConfig::SettingType::Text, {L"", L"anything"}, {}},
    {XMLConfig::SettingType::Element, {L"", L"<a/>"}, {}},
};

TEST(SettingTypes, TellValuesFromOtherTexts) {
    for (const TypeRow& row : typeRows) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(nameOf(row.type))));
        for (const std::wstring& text : row.good) EXPECT_TRUE(isOfType(text, row.type)) << testing::PrintToString(text);
        for (const std::wstring& text : row.bad) EXPECT_FALSE(isOfType(text, row.type)) << testing::PrintToString(text);
    }
}

TEST(SettingTypes, DefaultsAndInitialValuesAreOfTheirOwnType) {
    for (const XMLConfig::Setting& setting : XMLConfig::catalogue()) {
        if (setting.defaultText == L"all zeros") continue;
        SCOPED_TRACE(testing::PrintToString(setting.key));
        EXPECT_TRUE(isOfType(setting.defaultText, setting.type));
        EXPECT_TRUE(isOfType(setting.initialText.value_or(setting.defaultText), setting.type));
    }
}

}  // namespace
