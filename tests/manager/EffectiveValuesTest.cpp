// What is told of a value is what the accessors read: of every setting, with ordinary texts and with odd ones.

#include <gtest/gtest.h>

#include <set>

#include "manager/Catalogue.h"
#include "manager/Origin.h"
#include "manager/SettingSearch.h"
#include "tests/support/AccessorReadings.h"
#include "tests/support/OddTexts.h"

namespace {

using XMLConfig::Address;
using XMLConfig::effectiveValue;
using XMLConfig::Origin;
using XMLConfig::Setting;
using XMLConfig::SettingType;
using namespace XMLConfig::tests;

std::string nameOf(const AccessorReading& reading) { return testing::PrintToString(addressText(reading.place)); }

/// What is told comes first, since some accessors mend what they read.
void expectTold(const AccessorReading& reading, ConfigInfo& document) {
    const auto told = effectiveValue(document, reading.place);
    ASSERT_TRUE(told);
    EXPECT_EQ(told->text, reading.read(document));
}

TEST(EffectiveValues, EverySettingHasARow) {
    std::multiset<std::wstring> rows;
    for (const AccessorReading& reading : accessorReadings()) {
        ASSERT_NE(XMLConfig::knownSetting(reading.place), nullptr) << nameOf(reading);
        if (!reading.catalogueKey.empty()) rows.insert(reading.place.section + L"/" + reading.catalogueKey);
    }
    std::multiset<std::wstring> settings;
    for (const Setting& setting : XMLConfig::catalogue()) settings.insert(setting.section + L"/" + setting.key);
    EXPECT_EQ(rows, settings);
}

TEST(EffectiveValues, OfMissingSections) {
    for (const AccessorReading& reading : accessorReadings()) {
        SCOPED_TRACE(nameOf(reading));
        ConfigInfo document;
        expectTold(reading, document);
    }
}

TEST(EffectiveValues, OfMissingItems) {
    for (const AccessorReading& reading : accessorReadings()) {
        SCOPED_TRACE(nameOf(reading));
        const auto document = documentAround(reading);
        expectTold(reading, *document);
        EXPECT_EQ(effectiveValue(*document, reading.place)->origin, Origin::Default);
    }
}

TEST(EffectiveValues, OfEveryText) {
    for (const AccessorReading& reading : accessorReadings()) {
        for (const std::wstring& text : oddTextsFor(reading)) {
            SCOPED_TRACE(nameOf(reading) + " = " + testing::PrintToString(text));
            const auto document = documentAround(reading);
            store(*document, reading.place, text);
            expectTold(reading, *document);
        }
    }
}

void expectToldWith(const wchar_t* section, const wchar_t* key, const std::wstring& text, const std::wstring& beside) {
    for (const AccessorReading& reading : accessorReadings()) {
        if (reading.place.section != section || reading.catalogueKey != key) continue;
        const auto document = documentAround(reading);
        Address other = reading.place;
        other.key = beside.substr(0, beside.find(L'='));
        store(*document, other, beside.substr(beside.find(L'=') + 1));
        expectTold(reading, *document);
        if (text.empty()) return;
        store(*document, reading.place, text);
        return expectTold(reading, *document);
    }
    ADD_FAILURE() << "no such row";
}

TEST(EffectiveValues, OfWhatDependsOnOtherSettings) {
    for (const std::wstring text : {L"", L"0", L"1", L"2", L"3", L"4", L"x"})
        for (const wchar_t* const beside : {L"Auto_Dimensions=true", L"Auto_Dimensions=YES", L"Auto_Dimensions=false",
                                            L"Auto_Dimensions=perhaps", L"Auto_Dimensions= true"})
            expectToldWith(L"Screen", L"SizeDefinition", text, beside);
    for (const std::wstring text : {L"", L"5", L"5, 6", L"5, 6, 7"})
        for (const wchar_t* const beside : {L"Resolution_X=1920", L"Resolution_X=1921", L"Resolution_Y=x",
                                            L"Resolution_Y=1e3", L"Resolution_X=2147483648"})
            expectToldWith(L"Projector", L"InitialProjectorData|Offset", text, beside);
}

TEST(EffectiveValues, OfInheritedTexts) {
    for (const AccessorReading& reading : accessorReadings()) {
        if (settingOf(reading).inheritsFrom.empty()) continue;
        for (const std::wstring& text : oddTextsFor(reading)) {
            SCOPED_TRACE(nameOf(reading) + " inherits " + testing::PrintToString(text));
            const auto document = documentAround(reading);
            store(*document, placeAbove(reading), text);
            expectTold(reading, *document);
        }
    }
}

TEST(EffectiveValues, OfTextsOverInheritedOnes) {
    for (const AccessorReading& reading : accessorReadings()) {
        if (settingOf(reading).inheritsFrom.empty()) continue;
        for (const std::wstring& text : oddTextsFor(reading)) {
            SCOPED_TRACE(nameOf(reading) + " = " + testing::PrintToString(text));
            const auto document = documentAround(reading);
            store(*document, placeAbove(reading), L"7, 8");
            store(*document, reading.place, text);
            expectTold(reading, *document);
        }
    }
}

// Accessors read all text inside an item.
TEST(EffectiveValues, OfItemsThatHoldElements) {
    for (const AccessorReading& reading : accessorReadings()) {
        const SettingType type = settingOf(reading).type;
        const bool isOfElements =
            type == SettingType::Element || type == SettingType::Frustum || type == SettingType::PondOfMirrors;
        if (isOfElements) continue;
        SCOPED_TRACE(nameOf(reading));
        const auto document = documentAround(reading);
        store(*document, reading.place, L"2");
        Address inside = reading.place;
        inside.key += L"|Inside";
        store(*document, inside, L"5");
        expectTold(reading, *document);
    }
}

}  // namespace
