#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "manager/Catalogue.h"
#include "manager/CheckRules.h"
#include "manager/SettingSearch.h"
#include "platform/Utf8.h"
#include "store/Address.h"

namespace {

using testing::ElementsAre;
using XMLConfig::CheckRule;
using XMLConfig::Setting;

std::vector<std::string> rulesAt(const wchar_t* address) {
    const auto setting = XMLConfig::findSetting(XMLConfig::parseAddress(address));
    std::vector<std::string> ids;
    if (!setting) return {"no such setting"};
    for (const CheckRule* const rule : XMLConfig::rulesOf(*setting)) ids.push_back(XMLConfig::utf8FromWide(rule->id));
    return ids;
}

/// The addresses of all settings that the rule looks at in particular.
std::set<std::wstring> settingsOf(const CheckRule& rule) {
    std::set<std::wstring> addresses;
    for (const Setting& setting : XMLConfig::catalogue()) {
        const auto rules = XMLConfig::rulesOf(setting);
        if (std::find(rules.begin(), rules.end(), &rule) != rules.end())
            addresses.insert(setting.section + L"/" + XMLConfig::addressKey(setting));
    }
    return addresses;
}

std::vector<std::wstring> namesIn(const CheckRule& rule) {
    const std::wstring list = rule.looksAt;
    std::vector<std::wstring> names;
    for (std::size_t begin = 0; begin < list.size();) {
        const std::size_t end = std::min(list.find(L", ", begin), list.size());
        names.push_back(list.substr(begin, end - begin));
        begin = end + 2;
    }
    return names;
}

}  // namespace

TEST(SettingRules, AreThoseThatNameTheSetting) {
    EXPECT_THAT(rulesAt(L"Geometry/Fit_Solver"), ElementsAre("XC110"));
    EXPECT_THAT(rulesAt(L"Projector/Name"), ElementsAre("XC206"));
    EXPECT_THAT(rulesAt(L"Projector/Blend_Bottom"), ElementsAre("XC311", "XC312", "XC313", "XC314"));
    EXPECT_THAT(rulesAt(L"Projector/Associated_Camera_Id_2"), ElementsAre("XC208", "XC210", "XC212"));
    EXPECT_THAT(rulesAt(L"Screen/PCD"), ElementsAre("XC902"));
    EXPECT_THAT(rulesAt(L"Screen/Screen_MaxPhi"), ElementsAre("XC305", "XC501", "XC502", "XC901"));
}

TEST(SettingRules, ThatNameAGroupLookAtWhatStandsInIt) {
    EXPECT_THAT(rulesAt(L"Projector/Pond_Of_Mirrors/Left"), ElementsAre("XC114", "XC319"));
    EXPECT_THAT(rulesAt(L"Projector/Channel_Extents/VFOV/Top"), testing::IsSupersetOf({"XC301", "XC303", "XC305"}));
}

TEST(SettingRules, AboutAllSettingsOfAKindLookAtEachOfThem) {
    EXPECT_THAT(rulesAt(L"Screen/Shape"), testing::Contains("XC109"));
    EXPECT_THAT(rulesAt(L"Projector/Box_Spacing"), ElementsAre("XC114", "XC408", "XC409", "XC411", "XC901"));
    EXPECT_THAT(rulesAt(L"Projector/MotoBlend_Init_Command"), ElementsAre("XC409"));
}

TEST(SettingRules, WhateverARuleNamesIsASetting) {
    std::size_t named = 0;
    for (const CheckRule& rule : XMLConfig::checkRules()) {
        const std::set<std::wstring> settings = settingsOf(rule);
        for (const std::wstring& name : namesIn(rule)) {
            if (name.find(L'/') == std::wstring::npos && name[0] != L'_') continue;
            const std::wstring end = name[0] == L'_' ? name : name.substr(name.rfind(L'/'));
            const auto isIt = [&](const std::wstring& address) { return (address + L"/").find(end) != std::wstring::npos; };
            EXPECT_TRUE(std::any_of(settings.begin(), settings.end(), isIt))
                << XMLConfig::utf8FromWide(rule.id) << " " << XMLConfig::utf8FromWide(name);
            ++named;
        }
    }
    EXPECT_GT(named, 150U);
}
