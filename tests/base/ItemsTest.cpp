#include "base/Items.h"

#include <string>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "store/ConfigInfo.h"
#include "tests/base/TestSection.h"

using XMLConfig::Setting;
using XMLConfig::detail::isValueOf;
using XMLConfig::detail::Item;
using XMLConfig::detail::keysAreDistinct;
using XMLConfig::detail::ReadValue;
using XMLConfig::detail::settingOf;
using XMLConfig::detail::settingsOf;
using Pond = BlackLevelBlending::PondOfMirrors;

// What a descriptor gives fits its own type and no other.
static_assert(std::is_convertible_v<ReadValue<bool>, bool>);
static_assert(std::is_convertible_v<ReadValue<int>, int>);
static_assert(std::is_convertible_v<ReadValue<double>, double>);
static_assert(std::is_convertible_v<ReadValue<std::wstring>, std::wstring>);
static_assert(std::is_convertible_v<ReadValue<XMLConfig::detail::Fragment>, std::wstring>);
static_assert(std::is_convertible_v<ReadValue<Point_2Dim<int>>, Point_2Dim<int>>);
static_assert(std::is_convertible_v<ReadValue<Pond>, Pond>);
static_assert(!std::is_convertible_v<ReadValue<bool>, int>);
static_assert(!std::is_convertible_v<ReadValue<int>, bool>);
static_assert(!std::is_convertible_v<ReadValue<int>, double>);
static_assert(!std::is_convertible_v<ReadValue<int>, unsigned>);
static_assert(!std::is_convertible_v<ReadValue<double>, int>);
static_assert(!std::is_convertible_v<ReadValue<double>, float>);
static_assert(!std::is_convertible_v<ReadValue<Point_2Dim<int>>, Point_2Dim<double>>);
static_assert(!std::is_convertible_v<ReadValue<std::wstring>, std::string>);
static_assert(!std::is_convertible_v<ReadValue<Frustum>, Viewport>);
static_assert(isValueOf<int, int> && isValueOf<double, double> && isValueOf<bool, bool>);
static_assert(isValueOf<std::wstring, std::wstring> && isValueOf<XMLConfig::detail::Fragment, std::wstring>);
static_assert(!isValueOf<double, int> && !isValueOf<int, double> && !isValueOf<int, bool> && !isValueOf<bool, int>);
static_assert(!isValueOf<std::wstring, const wchar_t*> && !isValueOf<Point_2Dim<int>, Point_2Dim<double>>);

// Defaults are not narrowed.
template <typename T, typename Value, typename = void>
struct IsDefaultOf : std::false_type {};
template <typename T, typename Value>
struct IsDefaultOf<T, Value, std::void_t<decltype(Item<T>{L"", std::declval<Value>()})>> : std::true_type {};
static_assert(IsDefaultOf<int, int>::value && IsDefaultOf<double, double>::value);
static_assert(!IsDefaultOf<int, double>::value && !IsDefaultOf<bool, int>::value && !IsDefaultOf<double, int>::value);

static_assert(keysAreDistinct(testItems::all));
static_assert(!keysAreDistinct(std::tuple(Item<int>{L"Same", 1}, Item<bool>{L"Other", true}, Item<double>{L"Same", 1.0})));
static_assert(keysAreDistinct(std::tuple<>{}));

namespace {

std::wstring stored(const ConfigInfo& document, const std::wstring& key) {
    return document.getStringItem(L"Test", key, L"(missing)", L"", L"", L"");
}

const std::wstring zeros = L"0.000000000000000e+00, 0.000000000000000e+00, 0.000000000000000e+00";

}  // namespace

TEST(Items, MissingItemsReadTheirDefaultsAndAreNotCreated) {
    ConfigInfo document;
    const TestSection section(&document);
    EXPECT_EQ(section.read(testItems::flag).value, true);
    EXPECT_EQ(section.read(testItems::count).value, 7);
    EXPECT_EQ(section.read(testItems::ratio).value, 0.5);
    EXPECT_EQ(section.read(testItems::size).value, (Point_2Dim<int>(4, 3)));
    EXPECT_EQ(section.read(testItems::spot).value, (Point_2Dim<double>(0.5, 0.25)));
    EXPECT_EQ(section.read(testItems::place).value, (Point_3Dim<double>(1.0, 2.0, 3.0)));
    EXPECT_EQ(section.read(testItems::name).value, L"nobody");
    EXPECT_EQ(section.read(testItems::snippet).value, L"");
    EXPECT_EQ(section.read(testItems::frustum).value.ResolutionX, 0);
    EXPECT_EQ(section.read(testItems::pond).value.Left, 0);
    EXPECT_FALSE(document.doesSectionExist(L"Test", L""));
    EXPECT_FALSE(document.isDirty());
}

TEST(Items, WrittenValuesAreStoredInTheirForms) {
    ConfigInfo document;
    TestSection section(&document);
    section.write(testItems::flag, false);
    section.write(testItems::count, -12);
    section.write(testItems::ratio, 1.5);
    section.write(testItems::size, Point_2Dim<int>(640, 480));
    section.write(testItems::spot, Point_2Dim<double>(0.1, -2.0));
    section.write(testItems::place, Point_3Dim<double>(1.0, 0.0, 0.5));
    section.write(testItems::name, std::wstring(L"Ada"));
    section.write(testItems::snippet, std::wstring(L"<device UID=\"a\"/>"));
    EXPECT_EQ(stored(document, L"Flag"), L"false");
    EXPECT_EQ(stored(document, L"Count"), L"-12");
    EXPECT_EQ(stored(document, L"Ratio"), L"1.500000000000000e+00");
    EXPECT_EQ(stored(document, L"Size"), L"640, 480");
    EXPECT_EQ(stored(document, L"Spot"), L"1.000000000000000e-01, -2.000000000000000e+00");
    EXPECT_EQ(stored(document, L"Place"), L"1.000000000000000e+00, 0.000000000000000e+00, 5.000000000000000e-01");
    EXPECT_EQ(stored(document, L"Names|First"), L"Ada");
    EXPECT_EQ(document.getStringItemAsDOMElement(L"Test", L"Snippet", L"", L""), L"<device UID=\"a\"/>");
}

TEST(Items, WrittenValuesReadBack) {
    ConfigInfo document;
    TestSection section(&document);
    section.write(testItems::flag, false);
    section.write(testItems::count, -12);
    section.write(testItems::ratio, 0.1);
    section.write(testItems::size, Point_2Dim<int>(640, 480));
    section.write(testItems::name, std::wstring(L"Ada"));
    section.write(testItems::frustum, Frustum({1, 2, 3}, {0, 0, 0}, -0.5, 0.5, 0.25, -0.25, 1920, 1200));
    section.write(testItems::pond, Pond{1, 0, 1, 0});
    EXPECT_EQ(section.read(testItems::flag).value, false);
    EXPECT_EQ(section.read(testItems::count).value, -12);
    EXPECT_EQ(section.read(testItems::ratio).value, 0.1);
    EXPECT_EQ(section.read(testItems::size).value, (Point_2Dim<int>(640, 480)));
    EXPECT_EQ(section.read(testItems::name).value, L"Ada");
    EXPECT_EQ(section.read(testItems::frustum).value.ResolutionY, 1200);
    EXPECT_EQ(section.read(testItems::frustum).value.Offset, (Point_3Dim<double>(1, 2, 3)));
    EXPECT_EQ(section.read(testItems::pond).value.Top, 1);
    EXPECT_EQ(section.read(testItems::pond).value.Left, 1);
    EXPECT_EQ(section.read(testItems::pond).value.Bottom, 0);
}

TEST(Items, NewSectionHoldsTheInitialValues) {
    ConfigInfo document;
    TestSection(&document).initialize();
    EXPECT_EQ(stored(document, L"Flag"), L"false");
    EXPECT_EQ(stored(document, L"Count"), L"3");
    EXPECT_EQ(stored(document, L"Ratio"), L"(missing)");
    EXPECT_EQ(stored(document, L"Size"), L"1, 2");
    EXPECT_EQ(stored(document, L"Spot"), L"1.500000000000000e+00, 2.500000000000000e+00");
    EXPECT_EQ(stored(document, L"Place"), L"0.000000000000000e+00, 0.000000000000000e+00, -1.000000000000000e+00");
    EXPECT_EQ(stored(document, L"Names|First"), L"somebody");
    EXPECT_EQ(stored(document, L"Snippet"), L"");
    EXPECT_EQ(stored(document, L"Frustum|Offset"), zeros);
    EXPECT_EQ(stored(document, L"Frustum|ResolutionX"), L"0");
    EXPECT_EQ(stored(document, L"Pond|Right"), L"0");
}

TEST(Items, SettingsListTheWholeTableInItsOrder) {
    const std::vector<Setting> settings = settingsOf(L"Test", testItems::all);
    struct Row {
        const wchar_t* key;
        const wchar_t* type;
        const wchar_t* defaultText;
        const wchar_t* initialText;
    };
    const Row rows[] = {
        {L"Flag", L"bool", L"true", L"false"},
        {L"Count", L"int", L"7", L"3"},
        {L"Ratio", L"double", L"5.000000000000000e-01", L"(none)"},
        {L"Size", L"2-D integer point", L"4, 3", L"1, 2"},
        {L"Spot", L"2-D point", L"5.000000000000000e-01, 2.500000000000000e-01",
         L"1.500000000000000e+00, 2.500000000000000e+00"},
        {L"Place", L"3-D point", L"1.000000000000000e+00, 2.000000000000000e+00, 3.000000000000000e+00",
         L"0.000000000000000e+00, 0.000000000000000e+00, -1.000000000000000e+00"},
        {L"Names|First", L"text", L"nobody", L"somebody"},
        {L"Snippet", L"XML element", L"", L""},
        {L"Frustum", L"frustum", L"all zeros", L"all zeros"},
        {L"Pond", L"pond of mirrors", L"all zeros", L"all zeros"},
    };
    ASSERT_EQ(settings.size(), std::size(rows));
    for (std::size_t i = 0; i < settings.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(settings[i].section, L"Test");
        EXPECT_EQ(settings[i].key, rows[i].key);
        EXPECT_EQ(settings[i].type, rows[i].type);
        EXPECT_EQ(settings[i].defaultText, rows[i].defaultText);
        EXPECT_EQ(settings[i].initialText.value_or(L"(none)"), rows[i].initialText);
        EXPECT_EQ(settings[i].unit, L"");
        EXPECT_EQ(settings[i].inheritsFrom, L"");
        EXPECT_EQ(settings[i].meaning, L"");
        EXPECT_FALSE(settings[i].readOnly);
    }
}

TEST(Items, DescriptionsReachTheSetting) {
    const auto item =
        Item<double>(L"Gap", 0.5).in(L"pixels").inheritsFrom(L"Geometry").holds(L"axis table").means(L"between").onlyRead();
    const Setting setting = settingOf(L"Test", item);
    EXPECT_EQ(setting.unit, L"pixels");
    EXPECT_EQ(setting.inheritsFrom, L"Geometry");
    EXPECT_EQ(setting.type, L"axis table");
    EXPECT_EQ(setting.meaning, L"between");
    EXPECT_TRUE(setting.readOnly);
    EXPECT_FALSE(setting.initialText.has_value());
}

TEST(Items, DegreesAreConvertedAsTheUnitTableDoes) {
    static_assert(XMLConfig::detail::degrees(0.0) == 0.0);
    for (const double value : {20.0, -20.0, 30.0, 180.0, 1.0 / 3.0})
        EXPECT_EQ(XMLConfig::detail::degrees(value),
                  UnitConversionTable::convertValue(UnitConversionTable::Degrees, UnitConversionTable::Radians, value));
}

TEST(Items, NumberedKeysGoBothWays) {
    using XMLConfig::detail::numberedKey;
    using XMLConfig::detail::numberOfKey;
    EXPECT_EQ(numberedKey(L"Unit_%d", 12), L"Unit_12");
    EXPECT_EQ(numberOfKey(L"Unit_%d", L"Unit_12"), 12);
    EXPECT_EQ(numberOfKey(L"Unit_%d", L"Unit_0"), 0);
    for (const wchar_t* key : {L"Unit_", L"Unit_012", L"Unit_1x", L"Unit_ 1", L"Other_1", L""})
        EXPECT_FALSE(numberOfKey(L"Unit_%d", key).has_value()) << std::string(key, key + std::wcslen(key));
}
