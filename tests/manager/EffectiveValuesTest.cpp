// What is told of a value is what the accessors read: of every setting, with ordinary texts and with odd ones.

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "manager/Catalogue.h"
#include "manager/Origin.h"
#include "manager/SettingSearch.h"
#include "platform/Words.h"
#include "tests/support/AccessorReadings.h"

namespace {

using XMLConfig::Address;
using XMLConfig::effectiveValue;
using XMLConfig::Origin;
using XMLConfig::Setting;
using XMLConfig::SettingType;
using XMLConfig::tests::AccessorReading;
using XMLConfig::tests::accessorReadings;
using Texts = std::vector<std::wstring>;

const Texts oddTexts = {
    L"", L" ", L"\n\t",
    // truth values
    L"true", L"TRUE", L"t", L"T", L"1", L"yes", L"YES", L"y", L"false", L"False", L"f", L"0", L"no", L"No", L"n", L" true",
    L"true ", L"on", L"off", L"perhaps", L"2",
    // numbers
    L"-5", L"+7", L" 12 ", L"12abc", L"abc", L"1.5", L"1,5", L"-1.5", L".5", L"1e3", L"1e400", L"-1e400", L"1e-400", L"0x10",
    L"nan", L"-NaN", L"inf", L"-INF", L"infinity", L"2147483648", L"-2147483649", L"99999999999999999999", L"300", L"-1",
    L"3", L"4", L"8", L"256", L"- 1", L"\u0664",
    // lists
    L"3, 4", L"3 4", L"3,4,5", L"1.5\t2.5\n3.5", L"1 2 3 4", L"1;2", L"1, 2, 3,", L",1,,2", L"1, nan, inf", L"a, b", L"a,,b",
    L"40,40,40,40", L"40, x,, 7 ,9", L"55,", L"1,2,3,4,5", L"1 10 20 2 30 40", L"1 10 20 1 30 40 2 5", L"2 1 1 1 2 2",
    L"1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1", L"1 2 3 4 5 6 7 8 9 10 11 12", L"-180 -180\n0 1.5\n180 180", L"0.5, 0.25, 1.0, 2, 3",
    L"x, y, z, 2.9, q",
    // records
    L"true, ser ial , 10.0.0.5, 5000, 2", L"TRUE,a,b,1,2,3,4", L"true, a, b, 1", L"yes, , , x, y", L", , , , , ,",
    // words
    L"Projector Pose", L"projector pose", L"Projector Centric ", L"act-PROMPT", L"led", L"ACT", L"Own", L"\u65e5\u672c",
    L"  two  words "};

std::string nameOf(const AccessorReading& reading) { return testing::PrintToString(addressText(reading.place)); }

void store(ConfigInfo& document, const Address& place, const std::wstring& text) {
    document.setStringItem(place.section, place.key, text, place.sectionID, place.subSection, place.subSectionID);
}

/// A document with a section around the place.
std::unique_ptr<ConfigInfo> documentAround(const Address& place) {
    auto document = std::make_unique<ConfigInfo>();
    store(*document, {place.section, place.sectionID, place.subSection, place.subSectionID, L"Neighbour"}, L"here");
    return document;
}

/// What is told comes first, since some accessors mend what they read.
void expectTold(const AccessorReading& reading, ConfigInfo& document) {
    const auto told = effectiveValue(document, reading.place);
    ASSERT_TRUE(told);
    EXPECT_EQ(told->text, reading.read(document));
}

/// The odd texts, and the setting's own words and numbers as people misspell them.
Texts textsFor(const Setting& setting) {
    Texts texts = oddTexts;
    for (const std::wstring& word : setting.words)
        for (const std::wstring& text : {word, XMLConfig::detail::lowerAscii(word), L" " + word, word + L"\n", word + L"x"})
            texts.push_back(text);
    for (const XMLConfig::NamedNumber& named : setting.numbers) texts.push_back(std::to_wstring(named.number));
    return texts;
}

const Setting& settingOf(const AccessorReading& reading) { return *XMLConfig::knownSetting(reading.place); }

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
        const auto document = documentAround(reading.place);
        expectTold(reading, *document);
        EXPECT_EQ(effectiveValue(*document, reading.place)->origin, Origin::Default);
    }
}

TEST(EffectiveValues, OfEveryText) {
    for (const AccessorReading& reading : accessorReadings()) {
        for (const std::wstring& text : textsFor(settingOf(reading))) {
            SCOPED_TRACE(nameOf(reading) + " = " + testing::PrintToString(text));
            const auto document = documentAround(reading.place);
            store(*document, reading.place, text);
            expectTold(reading, *document);
        }
    }
}

void expectToldWith(const wchar_t* section, const wchar_t* key, const std::wstring& text, const std::wstring& beside) {
    for (const AccessorReading& reading : accessorReadings()) {
        if (reading.place.section != section || reading.catalogueKey != key) continue;
        const auto document = documentAround(reading.place);
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

/// The place from which a setting inherits.
Address above(const AccessorReading& reading) { return {settingOf(reading).inheritsFrom, L"", L"", L"", reading.place.key}; }

TEST(EffectiveValues, OfInheritedTexts) {
    for (const AccessorReading& reading : accessorReadings()) {
        if (settingOf(reading).inheritsFrom.empty()) continue;
        for (const std::wstring& text : textsFor(settingOf(reading))) {
            SCOPED_TRACE(nameOf(reading) + " inherits " + testing::PrintToString(text));
            const auto document = documentAround(reading.place);
            store(*document, above(reading), text);
            expectTold(reading, *document);
        }
    }
}

TEST(EffectiveValues, OfTextsOverInheritedOnes) {
    for (const AccessorReading& reading : accessorReadings()) {
        if (settingOf(reading).inheritsFrom.empty()) continue;
        for (const std::wstring& text : textsFor(settingOf(reading))) {
            SCOPED_TRACE(nameOf(reading) + " = " + testing::PrintToString(text));
            const auto document = documentAround(reading.place);
            store(*document, above(reading), L"7, 8");
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
        const auto document = documentAround(reading.place);
        store(*document, reading.place, L"2");
        Address inside = reading.place;
        inside.key += L"|Inside";
        store(*document, inside, L"5");
        expectTold(reading, *document);
    }
}

}  // namespace
