// What the rules of the check read is what the accessors read.

#include "manager/check/CheckedDocument.h"

#include <gtest/gtest.h>

#include "manager/SettingSearch.h"
#include "manager/SpecialForms.h"
#include "tests/support/AccessorReadings.h"
#include "tests/support/OddTexts.h"

namespace {

using namespace XMLConfig::tests;
using XMLConfig::Setting;
using XMLConfig::SettingType;
using XMLConfig::detail::CheckedDocument;

/// Rules on lists, tables and records look at their texts and parts, rules on the size of the screen at the number 3 itself,
/// and none at the offset, which an accessor works out of other settings.
bool isReadOtherwise(const Setting& setting) {
    return XMLConfig::detail::specialFormAsRead(L"", setting.type) || setting.type == SettingType::Element ||
           setting.type == SettingType::Frustum || setting.type == SettingType::PondOfMirrors ||
           setting.key == L"SizeDefinition" || setting.key == L"InitialProjectorData|Offset";
}

std::vector<AccessorReading> checkedReadings() {
    std::vector<AccessorReading> readings;
    for (const AccessorReading& reading : accessorReadings())
        if (!isReadOtherwise(settingOf(reading))) readings.push_back(reading);
    return readings;
}

std::wstring keyOf(const XMLConfig::Address& place) {
    if (place.subSection.empty()) return place.key;
    return place.subSection + L"[" + place.subSectionID + L"]|" + place.key;
}

std::wstring readByRules(const ConfigInfo& document, const XMLConfig::Address& place) {
    const CheckedDocument read(document);
    if (place.section == L"Projector") return read.text(*read.projector(place.sectionID), keyOf(place));
    if (place.section == L"Camera") return read.text(*read.camera(place.sectionID), keyOf(place));
    return read.text(place.section, keyOf(place));
}

/// What the rules read comes first, since some accessors mend what they read.
void expectRead(const AccessorReading& reading, ConfigInfo& document) {
    const std::wstring text = readByRules(document, reading.place);
    EXPECT_EQ(text, reading.read(document));
}

std::string nameOf(const AccessorReading& reading, const std::wstring& text) {
    return testing::PrintToString(addressText(reading.place) + L" = " + text);
}

TEST(CheckedDocument, ReadsMissingItemsAsAccessorsDo) {
    for (const AccessorReading& reading : checkedReadings()) {
        SCOPED_TRACE(nameOf(reading, L""));
        expectRead(reading, *documentAround(reading));
    }
}

TEST(CheckedDocument, ReadsEveryTextAsAccessorsDo) {
    for (const AccessorReading& reading : checkedReadings()) {
        for (const std::wstring& text : oddTextsFor(reading)) {
            SCOPED_TRACE(nameOf(reading, text));
            const auto document = documentAround(reading);
            store(*document, reading.place, text);
            expectRead(reading, *document);
        }
    }
}

TEST(CheckedDocument, InheritsAsAccessorsDo) {
    for (const AccessorReading& reading : checkedReadings()) {
        if (settingOf(reading).inheritsFrom.empty()) continue;
        for (const std::wstring& text : oddTextsFor(reading)) {
            SCOPED_TRACE(nameOf(reading, text));
            const auto inheriting = documentAround(reading);
            store(*inheriting, placeAbove(reading), text);
            expectRead(reading, *inheriting);
            const auto own = documentAround(reading);
            store(*own, placeAbove(reading), L"7, 8");
            store(*own, reading.place, text);
            expectRead(reading, *own);
        }
    }
}

TEST(CheckedDocument, ReadsTheTextAroundAndInElementsAsAccessorsDo) {
    for (const AccessorReading& reading : checkedReadings()) {
        SCOPED_TRACE(nameOf(reading, L"2<Inside>5"));
        const auto document = documentAround(reading);
        store(*document, reading.place, L"2");
        XMLConfig::Address inside = reading.place;
        inside.key += L"|Inside";
        store(*document, inside, L"5");
        expectRead(reading, *document);
    }
}

}  // namespace
