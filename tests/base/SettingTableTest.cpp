#include "base/SettingTable.h"

#include <string>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "base/UnitConversionTable.h"
#include "store/ConfigInfo.h"
#include "tests/base/TestSection.h"
#include "tests/support/DocumentTexts.h"

using XMLConfig::Setting;
using XMLConfig::SettingType;
using XMLConfig::detail::Descriptor;
using XMLConfig::detail::isValueOf;
using XMLConfig::detail::keysAreDistinct;
using XMLConfig::detail::means;
using XMLConfig::detail::settingsOf;
using XMLConfig::detail::SettingTable;
using XMLConfig::detail::Special;
using XMLConfig::detail::StartValues;
using XMLConfig::tests::storedText;
using Pond = BlackLevelBlending::PondOfMirrors;

// A setter's value has the descriptor's own type and no other.
static_assert(isValueOf<int, int> && isValueOf<double, double> && isValueOf<bool, bool>);
static_assert(isValueOf<std::wstring, std::wstring> && isValueOf<XMLConfig::detail::XmlElement, std::wstring>);
static_assert(!isValueOf<double, int> && !isValueOf<int, double> && !isValueOf<int, bool> && !isValueOf<bool, int>);
static_assert(!isValueOf<std::wstring, const wchar_t*> && !isValueOf<Point_2Dim<int>, Point_2Dim<double>>);

// Defaults are not narrowed.
template <typename T, typename Value, typename = void>
struct IsDefaultOf : std::false_type {};
template <typename T, typename Value>
struct IsDefaultOf<T, Value, std::void_t<decltype(StartValues<T>{std::declval<Value>()})>> : std::true_type {};
static_assert(IsDefaultOf<int, int>::value && IsDefaultOf<double, double>::value);
static_assert(!IsDefaultOf<int, double>::value && !IsDefaultOf<bool, int>::value && !IsDefaultOf<double, int>::value);

namespace {

struct SameKeys : SettingTable {
    constexpr SameKeys() : SettingTable(L"Test") {}
    Descriptor<int> one{*this, L"Same", {1}, means(L"")};
    Descriptor<bool> other{*this, L"Other", {true}, means(L"")};
    Descriptor<double> again{*this, L"Same", {1.0}, means(L"")};
};
constexpr SameKeys sameKeys;
struct NoItems : SettingTable {
    constexpr NoItems() : SettingTable(L"Test") {}
};
constexpr NoItems noItems;
static_assert(keysAreDistinct(testItems));
static_assert(!keysAreDistinct(sameKeys));
static_assert(keysAreDistinct(noItems));

const std::wstring zeros = L"0.000000000000000e+00, 0.000000000000000e+00, 0.000000000000000e+00";

}  // namespace

TEST(SettingTable, MissingItemsReadTheirDefaultsAndAreNotCreated) {
    ConfigInfo document;
    const TestSection section(&document);
    EXPECT_EQ(section.read(testItems.flag).value, true);
    EXPECT_EQ(section.read(testItems.count).value, 7);
    EXPECT_EQ(section.read(testItems.ratio).value, 0.5);
    EXPECT_EQ(section.read(testItems.size).value, (Point_2Dim<int>(4, 3)));
    EXPECT_EQ(section.read(testItems.spot).value, (Point_2Dim<double>(0.5, 0.25)));
    EXPECT_EQ(section.read(testItems.place).value, (Point_3Dim<double>(1.0, 2.0, 3.0)));
    EXPECT_EQ(section.read(testItems.name).value, L"nobody");
    EXPECT_EQ(section.read(testItems.snippet).value, L"");
    EXPECT_EQ(section.read(testItems.frustum).value.ResolutionX, 0);
    EXPECT_EQ(section.read(testItems.pond).value.Left, 0);
    EXPECT_FALSE(document.doesSectionExist(L"Test", L""));
    EXPECT_FALSE(document.isDirty());
}

TEST(SettingTable, WrittenValuesAreStoredInTheirForms) {
    ConfigInfo document;
    TestSection section(&document);
    section.write(testItems.flag, false);
    section.write(testItems.count, -12);
    section.write(testItems.ratio, 1.5);
    section.write(testItems.size, Point_2Dim<int>(640, 480));
    section.write(testItems.spot, Point_2Dim<double>(0.1, -2.0));
    section.write(testItems.place, Point_3Dim<double>(1.0, 0.0, 0.5));
    section.write(testItems.name, std::wstring(L"Ada"));
    section.write(testItems.snippet, std::wstring(L"<device UID=\"a\"/>"));
    EXPECT_EQ(storedText(document, L"Test", L"Flag"), L"false");
    EXPECT_EQ(storedText(document, L"Test", L"Count"), L"-12");
    EXPECT_EQ(storedText(document, L"Test", L"Ratio"), L"1.500000000000000e+00");
    EXPECT_EQ(storedText(document, L"Test", L"Size"), L"640, 480");
    EXPECT_EQ(storedText(document, L"Test", L"Spot"), L"1.000000000000000e-01, -2.000000000000000e+00");
    EXPECT_EQ(storedText(document, L"Test", L"Place"),
              L"1.000000000000000e+00, 0.000000000000000e+00, 5.000000000000000e-01");
    EXPECT_EQ(storedText(document, L"Test", L"Names|First"), L"Ada");
    EXPECT_EQ(document.getStringItemAsDOMElement(L"Test", L"Snippet", L"", L""), L"<device UID=\"a\"/>");
}

TEST(SettingTable, WrittenValuesReadBack) {
    ConfigInfo document;
    TestSection section(&document);
    section.write(testItems.flag, false);
    section.write(testItems.count, -12);
    section.write(testItems.ratio, 0.1);
    section.write(testItems.size, Point_2Dim<int>(640, 480));
    section.write(testItems.name, std::wstring(L"Ada"));
    section.write(testItems.frustum, Frustum({1, 2, 3}, {0, 0, 0}, -0.5, 0.5, 0.25, -0.25, 1920, 1200));
    section.write(testItems.pond, Pond{1, 0, 1, 0});
    EXPECT_EQ(section.read(testItems.flag).value, false);
    EXPECT_EQ(section.read(testItems.count).value, -12);
    EXPECT_EQ(section.read(testItems.ratio).value, 0.1);
    EXPECT_EQ(section.read(testItems.size).value, (Point_2Dim<int>(640, 480)));
    EXPECT_EQ(section.read(testItems.name).value, L"Ada");
    EXPECT_EQ(section.read(testItems.frustum).value.ResolutionY, 1200);
    EXPECT_EQ(section.read(testItems.frustum).value.Offset, (Point_3Dim<double>(1, 2, 3)));
    EXPECT_EQ(section.read(testItems.pond).value.Top, 1);
    EXPECT_EQ(section.read(testItems.pond).value.Left, 1);
    EXPECT_EQ(section.read(testItems.pond).value.Bottom, 0);
}

TEST(SettingTable, NewSectionHoldsTheInitialValues) {
    ConfigInfo document;
    TestSection(&document).initialize();
    EXPECT_EQ(storedText(document, L"Test", L"Flag"), L"false");
    EXPECT_EQ(storedText(document, L"Test", L"Count"), L"3");
    EXPECT_EQ(storedText(document, L"Test", L"Ratio"), std::nullopt);
    EXPECT_EQ(storedText(document, L"Test", L"Size"), L"1, 2");
    EXPECT_EQ(storedText(document, L"Test", L"Spot"), L"1.500000000000000e+00, 2.500000000000000e+00");
    EXPECT_EQ(storedText(document, L"Test", L"Place"),
              L"0.000000000000000e+00, 0.000000000000000e+00, -1.000000000000000e+00");
    EXPECT_EQ(storedText(document, L"Test", L"Names|First"), L"somebody");
    EXPECT_EQ(storedText(document, L"Test", L"Snippet"), L"");
    EXPECT_EQ(storedText(document, L"Test", L"Frustum|Offset"), zeros);
    EXPECT_EQ(storedText(document, L"Test", L"Frustum|ResolutionX"), L"0");
    EXPECT_EQ(storedText(document, L"Test", L"Pond|Right"), L"0");
}

TEST(SettingTable, SettingsListTheWholeTableInItsOrder) {
    const std::vector<Setting> settings = settingsOf(testItems);
    struct Row {
        const wchar_t* key;
        SettingType type;
        const wchar_t* defaultText;
        const wchar_t* initialText;
    };
    const Row rows[] = {
        {L"Flag", SettingType::Bool, L"true", L"false"},
        {L"Count", SettingType::Int, L"7", L"3"},
        {L"Ratio", SettingType::Double, L"5.000000000000000e-01", L"(none)"},
        {L"Size", SettingType::IntPoint2, L"4, 3", L"1, 2"},
        {L"Spot", SettingType::Point2, L"5.000000000000000e-01, 2.500000000000000e-01",
         L"1.500000000000000e+00, 2.500000000000000e+00"},
        {L"Place", SettingType::Point3, L"1.000000000000000e+00, 2.000000000000000e+00, 3.000000000000000e+00",
         L"0.000000000000000e+00, 0.000000000000000e+00, -1.000000000000000e+00"},
        {L"Names|First", SettingType::Text, L"nobody", L"somebody"},
        {L"Snippet", SettingType::Element, L"", L""},
        {L"Frustum", SettingType::Frustum, L"all zeros", L"all zeros"},
        {L"Pond", SettingType::PondOfMirrors, L"all zeros", L"all zeros"},
    };
    ASSERT_EQ(settings.size(), std::size(rows));
    for (std::size_t i = 0; i < settings.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(settings[i].section, L"Test");
        EXPECT_EQ(settings[i].key, rows[i].key);
        EXPECT_EQ(settings[i].type, rows[i].type);
        EXPECT_EQ(settings[i].defaultText, rows[i].defaultText);
        EXPECT_EQ(settings[i].initialText.value_or(L"(none)"), rows[i].initialText);
        EXPECT_EQ(settings[i].unit, XMLConfig::Unit::None);
        EXPECT_EQ(settings[i].inheritsFrom, L"");
        EXPECT_EQ(settings[i].meaning, L"what it is");
        EXPECT_FALSE(settings[i].readOnly);
    }
}

namespace {

// clang-format off
struct KnownItems : SettingTable {
    constexpr KnownItems() : SettingTable(L"Known") {}

    Descriptor<double> gap{*this, L"Gap", {0.5},
        means(L"between").in(XMLConfig::Unit::Pixels).inheritedFrom(L"Geometry").onlyRead().byRuns()
            .of(XMLConfig::SettingClass::Place).within(0, 2).inOurJudgement()
            .countsWhile(L"System", L"Mode", {L"wide", L"wider"})};
    Descriptor<Special<SettingType::AxisTable>> table{*this, L"Table", {L""}, means(L"pairs")};
    Descriptor<std::wstring> word{*this, L"Word", {L"one"},
        means(L"a word").oneOf({L"one", L"two"}).elseCountsAs(L"one").countsUnless(L"", L"Gap", {L"0"})};
    Descriptor<int> number{*this, L"Number", {3}, means(L"a number").oneOf({{3, L"three"}, {5, L"five"}}).above(1)};
};
// clang-format on
constexpr KnownItems knownItems;

}  // namespace

TEST(SettingTable, FactsReachTheSetting) {
    const Setting gap = settingsOf(knownItems).at(0);
    EXPECT_EQ(gap.section, L"Known");
    EXPECT_EQ(gap.unit, XMLConfig::Unit::Pixels);
    EXPECT_EQ(gap.inheritsFrom, L"Geometry");
    EXPECT_EQ(gap.meaning, L"between");
    EXPECT_TRUE(gap.readOnly);
    EXPECT_TRUE(gap.writtenByRuns);
    EXPECT_EQ(gap.settingClass, XMLConfig::SettingClass::Place);
    EXPECT_FALSE(gap.initialText.has_value());
    ASSERT_TRUE(gap.range.has_value());
    EXPECT_EQ(textOf(*gap.range), L"0 to 2");
    EXPECT_TRUE(gap.range->ownJudgement);
    ASSERT_TRUE(gap.countsWhile.has_value());
    EXPECT_EQ(gap.countsWhile->section, L"System");
    EXPECT_EQ(gap.countsWhile->key, L"Mode");
    EXPECT_EQ(gap.countsWhile->texts, (std::vector<std::wstring>{L"wide", L"wider"}));
    EXPECT_TRUE(gap.countsWhile->whileOneOf);
}

TEST(SettingTable, FormsWordsAndNumbersReachTheSetting) {
    const std::vector<Setting> settings = settingsOf(knownItems);
    EXPECT_EQ(settings.at(1).type, SettingType::AxisTable);
    EXPECT_FALSE(settings.at(1).range.has_value());
    EXPECT_FALSE(settings.at(1).countsWhile.has_value());
    EXPECT_FALSE(settings.at(1).othersCountAs.has_value());
    EXPECT_EQ(settings.at(2).words, (std::vector<std::wstring>{L"one", L"two"}));
    EXPECT_EQ(settings.at(2).othersCountAs, L"one");
    EXPECT_FALSE(settings.at(2).countsWhile->whileOneOf);
    ASSERT_EQ(settings.at(3).numbers.size(), 2U);
    EXPECT_EQ(settings.at(3).numbers[1].number, 5);
    EXPECT_EQ(settings.at(3).numbers[1].name, L"five");
    EXPECT_EQ(textOf(*settings.at(3).range), L"above 1");
    EXPECT_FALSE(settings.at(3).range->ownJudgement);
}

TEST(SettingTable, WordsAndNumbersAreKnownExactly) {
    static_assert(knownItems.word.facts.hasWord(L"two") && !knownItems.word.facts.hasWord(L"Two"));
    static_assert(!knownItems.word.facts.hasWord(L"") && !knownItems.gap.facts.hasWord(L""));
    static_assert(knownItems.number.facts.hasNumber(5) && !knownItems.number.facts.hasNumber(4));
}

TEST(SettingTable, TextsOfANewSectionNameItsID) {
    EXPECT_EQ(XMLConfig::detail::withSectionID(L"Camera_%s", L"7"), L"Camera_7");
    EXPECT_EQ(XMLConfig::detail::withSectionID(L"Camera_%s", L"%s"), L"Camera_%s");
    EXPECT_EQ(XMLConfig::detail::withSectionID(L"plain", L"7"), L"plain");
}

TEST(SettingTable, DegreesAreConvertedAsTheUnitTableDoes) {
    static_assert(XMLConfig::detail::fromDegrees(0.0) == 0.0);
    for (const double value : {20.0, -20.0, 30.0, 180.0, 1.0 / 3.0})
        EXPECT_EQ(XMLConfig::detail::fromDegrees(value),
                  UnitConversionTable::convertValue(UnitConversionTable::Degrees, UnitConversionTable::Radians, value));
}

TEST(SettingTable, NumberedKeysGoBothWays) {
    using XMLConfig::detail::numberedKey;
    using XMLConfig::detail::numberOfKey;
    EXPECT_EQ(numberedKey(L"Unit_%d", 12), L"Unit_12");
    EXPECT_EQ(numberOfKey(L"Unit_%d", L"Unit_12"), 12);
    EXPECT_EQ(numberOfKey(L"Unit_%d", L"Unit_0"), 0);
    for (const wchar_t* key : {L"Unit_", L"Unit_012", L"Unit_1x", L"Unit_ 1", L"Other_1", L""})
        EXPECT_FALSE(numberOfKey(L"Unit_%d", key).has_value()) << std::string(key, key + std::wcslen(key));
}
