#include "manager/Catalogue.h"

#include <set>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/manager/TestManager.h"
#include "tests/support/AsciiText.h"
#include "tests/support/DocumentTexts.h"
#include "tests/support/TemporaryFolder.h"

using XMLConfig::catalogue;
using XMLConfig::Setting;
using XMLConfig::tests::OutlineNode;
using XMLConfig::tests::storedText;

namespace {

const std::set<std::wstring> fixedSections = {L"Color",         L"Geometry",      L"Screen",
                                              L"System",        L"TargetLocator", L"ProjectorApprovedSlots",
                                              L"SiteAnalytics", L"MediaServer"};

/// A new configuration as it is saved.
std::unique_ptr<ConfigInfo> newDocument() {
    const TemporaryFolder folder;
    newManager()->saveConfiguration(folder.file(L"new.skorrax"));
    return std::make_unique<ConfigInfo>(folder.file(L"new.skorrax"));
}

void collectKeys(const OutlineNode& node, const std::wstring& prefix, std::set<std::wstring>& keys) {
    for (const OutlineNode& child : node.children) {
        const std::wstring key = prefix + child.name;
        if (child.children.empty()) keys.insert(key);
        collectKeys(child, key + L"|", keys);
    }
}

}  // namespace

TEST(Catalogue, SectionsStandInTheOrderOfANewDocument) {
    std::vector<std::wstring> sections;
    for (const Setting& setting : catalogue())
        if (sections.empty() || sections.back() != setting.section) sections.push_back(setting.section);
    EXPECT_THAT(sections, testing::ElementsAre(L"Color", L"Geometry", L"Screen", L"System", L"TargetLocator",
                                               L"ProjectorApprovedSlots", L"SiteAnalytics", L"MediaServer", L"Projector",
                                               L"Camera", L"global"));
}

TEST(Catalogue, SettingsAreListedOnceWithTypeAndMeaning) {
    std::set<std::pair<std::wstring, std::wstring>> seen;
    for (const Setting& setting : catalogue()) {
        SCOPED_TRACE(asciiOf(setting.section + L"/" + setting.key));
        EXPECT_TRUE(seen.emplace(setting.section, setting.key).second);
        EXPECT_FALSE(setting.key.empty());
        EXPECT_FALSE(setting.meaning.empty());
    }
}

// A meaning goes on from its key; only what is written in capitals begins with one.
TEST(Catalogue, MeaningsBeginSmall) {
    for (const Setting& setting : catalogue()) {
        const std::wstring begin = setting.meaning.substr(0, 2);
        const auto isCapital = [](wchar_t character) { return character >= L'A' && character <= L'Z'; };
        EXPECT_TRUE(!isCapital(begin.front()) || isCapital(begin.back())) << asciiOf(setting.section + L"/" + setting.key);
    }
}

TEST(Catalogue, IsMadeOnce) { EXPECT_EQ(&catalogue(), &catalogue()); }

TEST(Catalogue, HoldsKnownSettings) {
    const auto find = [](const wchar_t* section, const wchar_t* key) {
        for (const Setting& setting : catalogue())
            if (setting.section == section && setting.key == key) return setting;
        return Setting();
    };
    EXPECT_EQ(find(L"Color", L"AdvColor_TargetSizeX").defaultText, L"124");
    EXPECT_EQ(find(L"Color", L"AdvColor_TargetSizeX").initialText, L"0");
    EXPECT_EQ(find(L"System", L"Skorra_File").defaultText, L"untitled.skorrax");
    EXPECT_EQ(find(L"Geometry", L"Box_Size").defaultText, L"21, 21");
    EXPECT_EQ(find(L"Projector", L"Resolution_X").initialText, L"1400");
}

TEST(Catalogue, InitialTextsAreWhatANewDocumentHolds) {
    const auto document = newDocument();
    for (const Setting& setting : catalogue()) {
        if (fixedSections.count(setting.section) == 0) continue;
        SCOPED_TRACE(asciiOf(setting.section + L"/" + setting.key));
        EXPECT_EQ(storedText(*document, setting.section, setting.key), setting.initialText);
    }
}

TEST(Catalogue, ANewDocumentHoldsOnlyWhatIsListed) {
    std::set<std::pair<std::wstring, std::wstring>> listed;
    for (const Setting& setting : catalogue()) listed.emplace(setting.section, setting.key);
    int checked = 0;
    for (const OutlineNode& section : XMLConfig::tests::outline(*newDocument())) {
        if (fixedSections.count(section.name) == 0) continue;
        std::set<std::wstring> keys;
        collectKeys(section, L"", keys);
        for (const std::wstring& key : keys)
            EXPECT_EQ(listed.count({section.name, key}), 1u) << asciiOf(section.name + L"/" + key);
        checked += static_cast<int>(keys.size());
    }
    EXPECT_GT(checked, 50);
}
