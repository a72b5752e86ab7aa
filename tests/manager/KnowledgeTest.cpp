// What the catalogue says of its settings agrees with itself.

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "manager/Catalogue.h"
#include "platform/Numbers.h"
#include "tests/support/AsciiText.h"

using XMLConfig::catalogue;
using XMLConfig::Range;
using XMLConfig::Setting;
using XMLConfig::SettingClass;
using XMLConfig::SettingType;
using XMLConfig::Unit;

namespace {

using Keys = std::vector<std::wstring>;

std::string nameOfSetting(const Setting& setting) { return asciiOf(setting.section + L"/" + setting.key); }

const Setting* find(const std::wstring& section, const std::wstring& key) {
    for (const Setting& setting : catalogue())
        if (setting.section == section && setting.key == key) return &setting;
    return nullptr;
}

/// What stands in a setting without anything stored, and what a new document holds.
std::vector<std::wstring> startTexts(const Setting& setting) {
    std::vector<std::wstring> texts = {setting.defaultText};
    if (setting.initialText) texts.push_back(*setting.initialText);
    return texts;
}

bool isWord(const Setting& setting, const std::wstring& text) {
    return std::find(setting.words.begin(), setting.words.end(), text) != setting.words.end();
}

bool isNumber(const Setting& setting, const std::wstring& text) {
    const int number = XMLConfig::detail::leadingInteger(text);
    return std::any_of(setting.numbers.begin(), setting.numbers.end(),
                       [number](const XMLConfig::NamedNumber& named) { return named.number == number; });
}

Keys keysWhere(bool (*isWanted)(const Setting&)) {
    Keys keys;
    for (const Setting& setting : catalogue())
        if (isWanted(setting)) keys.push_back(setting.section + L"/" + setting.key);
    return keys;
}

}  // namespace

TEST(Knowledge, StartsAreAmongTheWordsAndNumbers) {
    for (const Setting& setting : catalogue()) {
        SCOPED_TRACE(nameOfSetting(setting));
        for (const std::wstring& text : startTexts(setting)) {
            if (!setting.words.empty()) {
                EXPECT_TRUE(isWord(setting, text));
            }
            if (!setting.numbers.empty()) {
                EXPECT_TRUE(isNumber(setting, text));
            }
        }
    }
}

TEST(Knowledge, WhatOthersCountAsIsOneOfThem) {
    for (const Setting& setting : catalogue()) {
        if (!setting.othersCountAs) continue;
        SCOPED_TRACE(nameOfSetting(setting));
        EXPECT_TRUE(isWord(setting, *setting.othersCountAs) || isNumber(setting, *setting.othersCountAs));
    }
}

TEST(Knowledge, WordsStandForTextsAndNumbersForIntegers) {
    for (const Setting& setting : catalogue()) {
        SCOPED_TRACE(nameOfSetting(setting));
        if (!setting.words.empty()) {
            EXPECT_EQ(setting.type, SettingType::Text);
        }
        if (!setting.numbers.empty()) {
            EXPECT_EQ(setting.type, SettingType::Int);
        }
        EXPECT_LE(!setting.words.empty() + !setting.numbers.empty() + setting.range.has_value(), 1);
    }
}

// A projector without an order of its own has none: its 0 needs no range.
TEST(Knowledge, StartsLieWithinTheRange) {
    for (const Setting& setting : catalogue()) {
        if (!setting.range) continue;
        SCOPED_TRACE(nameOfSetting(setting));
        for (const std::wstring& text : startTexts(setting))
            EXPECT_TRUE(contains(*setting.range, XMLConfig::detail::leadingDouble(text)));
    }
}

TEST(Knowledge, OtherSectionsHoldWhatIsInherited) {
    for (const Setting& setting : catalogue()) {
        if (setting.inheritsFrom.empty()) continue;
        SCOPED_TRACE(nameOfSetting(setting));
        const Setting* const parent = find(setting.inheritsFrom, setting.key);
        ASSERT_NE(parent, nullptr);
        EXPECT_EQ(parent->type, setting.type);
        EXPECT_EQ(parent->unit, setting.unit);
        EXPECT_EQ(parent->defaultText, setting.defaultText);
        EXPECT_EQ(valuesText(*parent), valuesText(setting));
    }
}

TEST(Knowledge, ConditionsNameSettingsAndTheirTexts) {
    for (const Setting& setting : catalogue()) {
        if (!setting.countsWhile) continue;
        SCOPED_TRACE(nameOfSetting(setting));
        const XMLConfig::EffectCondition& condition = *setting.countsWhile;
        const Setting* const other = find(condition.section.empty() ? setting.section : condition.section, condition.key);
        ASSERT_NE(other, nullptr);
        ASSERT_FALSE(condition.texts.empty());
        for (const std::wstring& text : condition.texts) {
            EXPECT_TRUE(isOfType(text, other->type));
            if (!other->words.empty()) {
                EXPECT_TRUE(isWord(*other, text));
            }
        }
    }
}

TEST(Knowledge, OnlyDevicesHaveClasses) {
    for (const Setting& setting : catalogue())
        if (setting.settingClass != SettingClass::Rest) {
            EXPECT_TRUE(setting.section == L"Projector" || setting.section == L"Camera") << nameOfSetting(setting);
        }
}

TEST(Knowledge, IdentityIsWhatACopyMustNotTake) {
    EXPECT_EQ(keysWhere([](const Setting& setting) { return setting.settingClass == SettingClass::Identity; }),
              (Keys{L"Projector/Name", L"Projector/DeviceSnippet", L"Projector/DeviceSnippetOriginal",
                    L"Projector/OldSectionID", L"Camera/Name", L"Camera/DeviceSnippet", L"Camera/DeviceSnippetOriginal",
                    L"Camera/IntrinsicFileID", L"Camera/OldSectionID"}));
}

TEST(Knowledge, ChannelsAreTheGroupsOfTheirNames) {
    for (const Setting& setting : catalogue()) {
        const std::wstring group = setting.key.substr(0, setting.key.find(L'|'));
        const bool isChannel = setting.section == L"Projector" && group != setting.key;
        EXPECT_EQ(setting.settingClass == SettingClass::Channel, isChannel) << nameOfSetting(setting);
    }
}

TEST(Knowledge, RunsWriteCountsAndTimes) {
    EXPECT_EQ(keysWhere([](const Setting& setting) { return setting.writtenByRuns; }),
              (Keys{L"System/Reference_Mappings_Timestamp", L"ProjectorApprovedSlots/CurrentSlotID",
                    L"ProjectorApprovedSlots/TimeOfLastRun", L"ProjectorApprovedSlots/LastRunDiagFolder",
                    L"SiteAnalytics/SuccessfulRunNumber", L"SiteAnalytics/FailedRunNumber",
                    L"SiteAnalytics/LastRunTimestamp", L"SiteAnalytics/VisitTimestamp",
                    L"Camera/Camera_Reference_Image_RESID", L"Camera/Camera_Reference_Image_Timestamp"}));
}

// Elsewhere the application decides; these are counts and sizes in pixels, of which nothing else makes sense.
TEST(Knowledge, FewRangesAreNoAdvice) {
    EXPECT_EQ(
        keysWhere([](const Setting& setting) { return setting.range && !setting.range->ownJudgement; }),
        (Keys{L"Geometry/Projector_Count", L"Geometry/Projector_Layout_Width", L"Geometry/Projector_Layout_Height",
              L"Geometry/ImageResolution_X", L"Geometry/ImageResolution_Y", L"System/ACT_Count", L"Projector/Resolution_X",
              L"Projector/Resolution_Y", L"Projector/ImageResolution_X", L"Projector/ImageResolution_Y"}));
}

TEST(Knowledge, WordsAreListed) {
    const std::map<std::wstring, std::wstring> rows = {
        {L"Screen/Shape", L"Flat, Sphere, Cylinder, Ruled, Toroid, VRML, Test"},
        {L"Screen/AxisForward", L"X, Y, Z, -X, -Y, -Z"},
        {L"Screen/AxisUpward", L"X, Y, Z, -X, -Y, -Z"},
        {L"Screen/File_Length_Unit", L"Millimeters, Centimeters, Inches, Feet, Meters, Custom"},
        {L"System/RunType", L"ClassicRun, CinemaRun, Palvex3DRun; any other counts as ClassicRun"},
        {L"System/Length_Unit", L"Millimeters, Centimeters, Inches, Feet, Meters"},
        {L"System/AngleUnit", L"Degrees, Radians"},
        {L"System/Marker_Location_Method",
         L"manual, led, led-manual, act, act-prompt, marked-surface-automatic, marked-surface-automatic-prompt, "
         L"structured-light, checkerboard; any other counts as manual"},
        {L"System/Cinema|Frame", L"Flat, Scope; any other counts as Flat"},
        {L"TargetLocator/Data_Type",
         L"Planar-basic, Planar-advanced, Spherical, Collimated, Projector Centric, Custom Planar, 3D; Projector Pose "
         L"is the older name of Projector Centric"},
        {L"Projector/Lamp_Mode", L"\"\", Single1, Single2, Dual; any other counts as \"\""}};
    std::map<std::wstring, std::wstring> found;
    for (const Setting& setting : catalogue())
        if (!setting.words.empty()) found[setting.section + L"/" + setting.key] = valuesText(setting);
    EXPECT_EQ(found, rows);
}

TEST(Knowledge, NumbersWithNamesAreListed) {
    const std::map<std::wstring, std::wstring> rows = {
        {L"Geometry/Fit_Solver",
         L"0 linear, 1 polynomial, 2 default, 5 spline, 7 perspective, 8 hybrid; any other counts as 2"},
        {L"Geometry/InputImageScaling_Mode", L"0 scaled to full size, 1 not scaled"},
        {L"Projector/InputImageScaling_Mode", L"0 scaled to full size, 1 not scaled"},
        {L"Screen/SizeDefinition",
         L"0 entered by hand, 1 determined automatically, 2 that of the model file, 3 as Auto_Dimensions says"}};
    std::map<std::wstring, std::wstring> found;
    for (const Setting& setting : catalogue())
        if (!setting.numbers.empty()) found[setting.section + L"/" + setting.key] = valuesText(setting);
    EXPECT_EQ(found, rows);
}

TEST(Knowledge, AnglesAreInRadians) {
    EXPECT_EQ(keysWhere([](const Setting& setting) { return setting.unit == Unit::Radians; }),
              (Keys{L"Screen/Screen_MinTheta", L"Screen/Screen_MaxTheta", L"Screen/Screen_MinPhi", L"Screen/Screen_MaxPhi",
                    L"Projector/Channel_Extents|Heading|Yaw", L"Projector/Channel_Extents|Heading|Pitch",
                    L"Projector/Channel_Extents|Heading|Roll", L"Projector/Channel_Extents|VFOV|Top",
                    L"Projector/Channel_Extents|VFOV|Bottom", L"Projector/Channel_Extents|HFOV|Left",
                    L"Projector/Channel_Extents|HFOV|Right"}));
}
