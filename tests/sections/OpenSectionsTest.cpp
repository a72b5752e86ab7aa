#include <gtest/gtest.h>

#include <limits>

#include "sections/MediaServerConfig.h"
#include "sections/MediaServerItems.h"
#include "sections/ProjMapConfig.h"
#include "tests/support/StoredItems.h"
#include "tests/support/VirtualSlots.h"

namespace {

using Point = Point_3Dim<double>;
using Floats = std::vector<float>;

const double nan = std::numeric_limits<double>::quiet_NaN();
const std::wstring key = L"Export|Value";

template <typename Section>
class Open : public testing::Test {
protected:
    void put(const std::wstring& text) { m_texts.putClean(key, text); }
    std::optional<std::wstring> text() const { return m_texts.text(key); }
    template <typename T>
    T got(T value) const {
        section.get(key, value);
        return value;
    }

    ConfigInfo document;
    Section section{&document, L""};

private:
    XMLConfig::tests::StoredItems m_texts{document, section.getSectionName()};
};

class MediaServer : public Open<MediaServerConfig> {};
class ProjMap : public Open<ProjMapConfig> {};

/// What holds for every type of both classes: two values, and the stored text of the first.
template <typename Section, typename Value>
struct Kind {
    using SectionType = Section;
    using ValueType = Value;
};
template <typename Value>
struct Samples;
template <>
struct Samples<bool> {
    static bool first() { return true; }
    static bool second() { return false; }
    static std::wstring text() { return L"true"; }
};
template <>
struct Samples<int> {
    static int first() { return 3; }
    static int second() { return -4; }
    static std::wstring text() { return L"3"; }
};
template <>
struct Samples<float> {
    static float first() { return 0.1F; }
    static float second() { return 2.0F; }
    static std::wstring text() { return L"1.000000014901161e-01"; }
};
template <>
struct Samples<Point> {
    static Point first() { return {1.0, 2.0, -0.5}; }
    static Point second() { return {1.0, 2.0, 0.5}; }
    static std::wstring text() { return L"1.000000000000000e+00, 2.000000000000000e+00, -5.000000000000000e-01"; }
};
template <>
struct Samples<Floats> {
    static Floats first() { return {1.5F, 2.0F}; }
    static Floats second() { return {1.5F}; }
    static std::wstring text() { return L"1.5, 2, "; }
};
template <>
struct Samples<std::wstring> {
    static std::wstring first() { return L"hall.xml"; }
    static std::wstring second() { return L"Hall.xml"; }
    static std::wstring text() { return L"hall.xml"; }
};

template <typename K>
class OpenItem : public Open<typename K::SectionType> {
protected:
    using Value = typename K::ValueType;
    const Value first = Samples<Value>::first();
    const Value second = Samples<Value>::second();
};
using Kinds = testing::Types<Kind<MediaServerConfig, bool>, Kind<MediaServerConfig, std::wstring>, Kind<ProjMapConfig, bool>,
                             Kind<ProjMapConfig, int>, Kind<ProjMapConfig, float>, Kind<ProjMapConfig, Point>,
                             Kind<ProjMapConfig, Floats>>;
TYPED_TEST_SUITE(OpenItem, Kinds, );  // the comma: a variadic macro needs an argument there

TYPED_TEST(OpenItem, MissingLeavesTheCallersValueAndCreatesNothing) {
    EXPECT_EQ(this->got(this->first), this->first);
    EXPECT_EQ(this->got(this->second), this->second);
    EXPECT_FALSE(this->document.isDirty());
    EXPECT_EQ(this->text(), std::nullopt);
}

TYPED_TEST(OpenItem, SetStoresTheTextForm) {
    this->section.set(key, this->first);
    EXPECT_EQ(this->text(), Samples<typename TestFixture::Value>::text());
    EXPECT_TRUE(this->document.isDirty());
    EXPECT_EQ(this->got(this->second), this->first);
}

TYPED_TEST(OpenItem, SettingTheSameAgainIsNoChange) {
    this->section.set(key, this->first);
    this->document.setDirty(false);
    this->section.set(key, this->first);
    EXPECT_FALSE(this->document.isDirty());
}

TYPED_TEST(OpenItem, ChangeOfAMissingItemComparesWithTheDefault) {
    EXPECT_FALSE(this->section.change(key, this->first, this->first));
    EXPECT_EQ(this->text(), std::nullopt);
    EXPECT_FALSE(this->document.isDirty());

    EXPECT_TRUE(this->section.change(key, this->first, this->second));
    EXPECT_EQ(this->text(), Samples<typename TestFixture::Value>::text());
    EXPECT_TRUE(this->document.isDirty());
}

TYPED_TEST(OpenItem, ChangeToTheStoredValueIsNone) {
    this->section.set(key, this->first);
    this->document.setDirty(false);
    EXPECT_FALSE(this->section.change(key, this->first, this->second));
    EXPECT_FALSE(this->document.isDirty());
    EXPECT_TRUE(this->section.change(key, this->second, this->second)) << "the default does not count for an existing item";
    EXPECT_TRUE(this->document.isDirty());
    EXPECT_EQ(this->got(this->first), this->second);
}

TEST_F(MediaServer, SectionIsMediaServer) {
    EXPECT_EQ(section.getSectionName(), L"MediaServer");
    section.initialize();
    EXPECT_FALSE(document.isDirty());
    EXPECT_FALSE(document.doesSectionExist(L"MediaServer", L""));
}

TEST_F(ProjMap, SectionIsProjMap) {
    EXPECT_EQ(section.getSectionName(), L"ProjMap");
    section.initialize();
    EXPECT_FALSE(document.isDirty());
    EXPECT_FALSE(document.doesSectionExist(L"ProjMap", L""));
}

#if TESTS_KNOW_VIRTUAL_SLOTS
TEST_F(MediaServer, VirtualMembersKeepTheirPlaces) {
    EXPECT_EQ(misplacedSlots(2, {NAMED_SLOT(MediaServerConfig, initialize)}), "");
    EXPECT_EQ(slotCount<MediaServerConfig>(), 3);
}
TEST_F(ProjMap, VirtualMembersKeepTheirPlaces) {
    EXPECT_EQ(misplacedSlots(2, {NAMED_SLOT(ProjMapConfig, initialize)}), "");
    EXPECT_EQ(slotCount<ProjMapConfig>(), 3);
}
#endif

TEST_F(MediaServer, OutputFileIsDescribed) {
    const auto settings = XMLConfig::detail::settingsOf(XMLConfig::detail::mediaServerItems);
    ASSERT_EQ(settings.size(), 1U);
    EXPECT_EQ(settings[0].section, L"MediaServer");
    EXPECT_EQ(settings[0].key, L"outputFile");
    EXPECT_EQ(settings[0].type, XMLConfig::SettingType::Text);
    EXPECT_EQ(settings[0].defaultText, L"");
    EXPECT_EQ(settings[0].initialText, std::nullopt);
}

TEST_F(MediaServer, PlainTextIsTextAndNotATruthValue) {
    section.set(key, L"D:\\out");
    EXPECT_EQ(text(), L"D:\\out");
    EXPECT_FALSE(section.change(key, L"D:\\out", L""));
    EXPECT_TRUE(section.change(key, L"D:\\OUT", L""));
    EXPECT_EQ(text(), L"D:\\OUT");
}

TEST_F(MediaServer, EmptyTextIsAValue) {
    put(L"");
    EXPECT_EQ(got(std::wstring(L"before")), L"");
    EXPECT_FALSE(section.change(key, L"", L"other"));
}

TEST_F(MediaServer, UnreadableTruthValueGivesTheDefault) {
    put(L"maybe");
    EXPECT_TRUE(got(true));
    EXPECT_FALSE(got(false));
}

TEST_F(ProjMap, FloatIsComparedAsAFloat) {
    put(L"0.1");
    EXPECT_FALSE(section.change(key, 0.1F, 0.0F));
    EXPECT_EQ(text(), L"0.1");
}

TEST_F(ProjMap, NotANumberIsAlwaysAChange) {
    const float nanF = std::numeric_limits<float>::quiet_NaN();
    put(L"nan");
    EXPECT_TRUE(section.change(key, 1.0F, 0.0F));
    EXPECT_TRUE(section.change(key, nanF, 0.0F));
    EXPECT_TRUE(section.change(key, nanF, 0.0F));

    put(L"1.5, nan, ");
    EXPECT_TRUE(section.change(key, Floats{1.5F, nanF}, Floats{}));
}

TEST_F(ProjMap, PointWithNotANumberIsAlwaysAChange) {
    const Point points[] = {{nan, 0.0, 0.0}, {0.0, nan, 0.0}, {0.0, 0.0, nan}};
    for (const Point& point : points) {
        section.set(key, point);
        EXPECT_TRUE(section.change(key, point, Point()));
        EXPECT_TRUE(section.change(key, Point(), point));
        EXPECT_EQ(text(), L"0.000000000000000e+00, 0.000000000000000e+00, 0.000000000000000e+00");
        EXPECT_TRUE(section.change(key, point, Point()));
    }
}

TEST_F(ProjMap, StoredPointWithNotANumberIsRewritten) {
    put(L"nan 0 0");
    EXPECT_TRUE(section.change(key, Point(nan, 0.0, 0.0), Point()));
    EXPECT_EQ(text(), L"nan, 0.000000000000000e+00, 0.000000000000000e+00");
}

TEST_F(ProjMap, PointOfAnotherCountGivesTheCallersPoint) {
    put(L"1, 2");
    EXPECT_EQ(got(Point(7.0, 8.0, 9.0)), Point(7.0, 8.0, 9.0));
}

TEST_F(ProjMap, ListIsReadAtAnyMixOfDelimiters) {
    for (const wchar_t* stored : {L"1.5, 2, ", L"1.5,,2", L" 1.5\n\t2", L",1.5 2,,"}) {
        put(stored);
        EXPECT_EQ(got(Floats{9.0F, 9.0F, 9.0F}), (Floats{1.5F, 2.0F})) << testing::PrintToString(std::wstring(stored));
        EXPECT_FALSE(section.change(key, Floats{1.5F, 2.0F}, Floats{}));
        EXPECT_EQ(text(), stored);
    }
}

TEST_F(ProjMap, ListTokensAreReadAsFarAsTheyAreNumbers) {
    put(L"2.5m, left, 1e2");
    EXPECT_EQ(got(Floats{}), (Floats{2.5F, 0.0F, 100.0F}));
}

TEST_F(ProjMap, EmptyItemIsAnEmptyList) {
    put(L"");
    EXPECT_EQ(got(Floats{9.0F}), Floats{});
    EXPECT_FALSE(section.change(key, Floats{}, Floats{1.0F}));
    EXPECT_TRUE(section.change(key, Floats{1.0F}, Floats{1.0F}));
}

TEST_F(ProjMap, EmptyListIsStoredAsEmptyText) {
    section.set(key, Floats{});
    EXPECT_EQ(text(), L"");
}

TEST_F(ProjMap, ListKeepsSixDigitsInTheShorterForm) {
    section.set(key, Floats{1234567.0F, 0.00001F, 123456.0F, -0.1F, 0.0001F, 1.0F / 3.0F});
    EXPECT_EQ(text(), L"1.23457e+06, 1e-05, 123456, -0.1, 0.0001, 0.333333, ");
}

TEST_F(ProjMap, LongListIsNotCut) {
    section.set(key, Floats(100, 0.125F));
    EXPECT_EQ(text()->size(), 700U);
    EXPECT_EQ(got(Floats{}).size(), 100U);
}

TEST_F(ProjMap, ListOfAnotherLengthIsAChange) {
    put(L"1, 2, ");
    EXPECT_TRUE(section.change(key, Floats{1.0F}, Floats{}));
    EXPECT_EQ(text(), L"1, ");
}

TEST_F(ProjMap, ChangeOfAMissingListComparesWithTheDefault) {
    EXPECT_FALSE(section.change(key, Floats{1.0F}, Floats{1.0F}));
    EXPECT_TRUE(section.change(key, Floats{}, Floats{1.0F}));
    EXPECT_EQ(text(), L"");
}

TEST_F(ProjMap, EqualIntegerLeavesTheDirtyFlagAsItWas) {
    section.set(key, 3);
    for (bool dirty : {false, true}) {
        document.setDirty(dirty);
        EXPECT_FALSE(section.change(key, 3, 3));
        EXPECT_EQ(document.isDirty(), dirty);
    }
}

}  // namespace
