#include "platform/Text.h"

#include <random>

#include <gtest/gtest.h>

#include "platform/Words.h"

namespace {

using namespace XMLConfig::detail;

struct FormsRow {
    const wchar_t* wide;
    const char* utf8;
    const char16_t* utf16;
};

const FormsRow formsRows[] = {
    {L"", "", u""},
    {L"Brightness", "Brightness", u"Brightness"},
    {L"\u00fc\u00df", "\xC3\xBC\xC3\x9F", u"\u00fc\u00df"},
    {L"\u07ff\u0800", "\xDF\xBF\xE0\xA0\x80", u"\u07ff\u0800"},
    {L"\u65e5\u672c", "\xE6\x97\xA5\xE6\x9C\xAC", u"\u65e5\u672c"},
    {L"\ud7ff\ue000\ufffd", "\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBD", u"\ud7ff\ue000\ufffd"},
    {L"\U00010000", "\xF0\x90\x80\x80", u"\U00010000"},
    {L"a\U0001F4FDb",
     "a\xF0\x9F\x93\xBD"
     "b",
     u"a\U0001F4FDb"},
    {L"\U0010FFFF", "\xF4\x8F\xBF\xBF", u"\U0010FFFF"},
};

class TextForms : public testing::TestWithParam<FormsRow> {};

TEST_P(TextForms, ConvertBothWays) {
    const FormsRow& row = GetParam();
    EXPECT_EQ(toUtf8(row.wide), row.utf8);
    EXPECT_EQ(fromUtf8(row.utf8), row.wide);
    EXPECT_EQ(fromUtf8Strictly(row.utf8), std::wstring(row.wide));
    EXPECT_TRUE(toUtf16(row.wide) == row.utf16);
    EXPECT_EQ(fromUtf16(row.utf16), row.wide);
    EXPECT_TRUE(equal(row.utf16, row.wide));
    std::u16string utf16 = u"<";
    appendUtf16(utf16, row.wide);
    EXPECT_TRUE(utf16 == u"<" + std::u16string(row.utf16));
    std::string utf8 = "<";
    appendUtf8(utf8, row.utf16);
    EXPECT_EQ(utf8, "<" + std::string(row.utf8));
    EXPECT_FALSE(firstCharacterXmlCannotHold(row.wide));
}

INSTANTIATE_TEST_SUITE_P(Text, TextForms, testing::ValuesIn(formsRows));

TEST(Text, KeepsNullCharacters) {
    const std::wstring text(L"a\0b", 3);
    EXPECT_EQ(toUtf8(text), std::string("a\0b", 3));
    EXPECT_EQ(fromUtf8(std::string("a\0b", 3)), text);
    EXPECT_EQ(toUtf16(text).size(), 3u);
}

struct BytesRow {
    const char* bytes;
    const wchar_t* text;  // one U+FFFD for each part that cannot belong to a character
};

const BytesRow illFormedBytes[] = {
    {"\x80", L"\ufffd"},
    {"a\xBF\x80z", L"a\ufffd\ufffdz"},
    {"\xC0\xAF", L"\ufffd\ufffd"},
    {"\xC1\xBF", L"\ufffd\ufffd"},
    {"\xC3", L"\ufffd"},
    {"\xC3(", L"\ufffd("},
    {"\xE2\x82", L"\ufffd"},
    {"\xE2\x82x", L"\ufffdx"},
    {"\xE0\x9F\xBF", L"\ufffd\ufffd\ufffd"},
    {"\xED\xA0\x80", L"\ufffd\ufffd\ufffd"},
    {"\xF0\x8F\xBF\xBF", L"\ufffd\ufffd\ufffd\ufffd"},
    {"\xF0\x9F\x93", L"\ufffd"},
    {"\xF0\x9F\x93\xC3\xBC", L"\ufffd\u00fc"},
    {"\xF4\x90\x80\x80", L"\ufffd\ufffd\ufffd\ufffd"},
    {"\xF5\x80", L"\ufffd\ufffd"},
    {"\xFF\xFE", L"\ufffd\ufffd"},
    {"\x61\xF1\x80\x80\xE1\x80\xC2\x62\x80\x63\x80\xBF\x64",
     L"a\ufffd\ufffd\ufffd"
     L"b\ufffd"
     L"c\ufffd\ufffd"
     L"d"},
};

class IllFormedBytes : public testing::TestWithParam<BytesRow> {};

TEST_P(IllFormedBytes, AreReplacedPartByPart) {
    EXPECT_EQ(fromUtf8(GetParam().bytes), GetParam().text);
    EXPECT_FALSE(fromUtf8Strictly(GetParam().bytes));
}

INSTANTIATE_TEST_SUITE_P(Text, IllFormedBytes, testing::ValuesIn(illFormedBytes));

TEST(Text, ReplacesLoneSurrogatesOfTheXmlLibrary) {
    const char16_t high = 0xD83D;
    const char16_t low = 0xDCFD;
    const std::u16string text = {u'a', high, u'b', low, high};
    EXPECT_EQ(fromUtf16(text), L"a\ufffdb\ufffd\ufffd");
    std::string utf8;
    appendUtf8(utf8, text);
    EXPECT_EQ(utf8,
              "a\xEF\xBF\xBD"
              "b\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(Text, ReplacesLoneSurrogatesOfWideText) {
    const std::wstring text = {L'a', static_cast<wchar_t>(0xDCFD), static_cast<wchar_t>(0xD83D), L'b'};
    EXPECT_EQ(toUtf8(text),
              "a\xEF\xBF\xBD\xEF\xBF\xBD"
              "b");
    EXPECT_TRUE(toUtf16(text) == u"a\ufffd\ufffdb");
    EXPECT_TRUE(equal(u"a\ufffd\ufffdb", text));
}

TEST(Text, JoinsNoSurrogatesWhereWideTextHasThirtyTwoBits) {
    if constexpr (sizeof(wchar_t) == 2) GTEST_SKIP() << "here a pair of surrogates is a character";
    const std::wstring pair = {static_cast<wchar_t>(0xD83D), static_cast<wchar_t>(0xDCFD)};
    EXPECT_TRUE(toUtf16(pair) == u"\ufffd\ufffd");
    const std::wstring beyond = {static_cast<wchar_t>(0x110000), static_cast<wchar_t>(-1)};
    EXPECT_TRUE(toUtf16(beyond) == u"\ufffd\ufffd");
    EXPECT_EQ(toUtf8(beyond), "\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(Text, ConvertsLongTextWithPairsAtEveryPlace) {
    std::mt19937 random(3);
    for (int i = 0; i < 300; ++i) {
        std::wstring text;
        std::u16string utf16;
        for (std::size_t size = random() % 1200; size > 0; --size) {
            const bool isAstral = random() % 3 == 0;
            text += isAstral ? L"\U0001F4FD" : L"\u65e5";
            utf16 += isAstral ? u"\U0001F4FD" : u"\u65e5";
        }
        ASSERT_TRUE(toUtf16(text) == utf16);
        ASSERT_EQ(fromUtf16(utf16), text);
        ASSERT_EQ(fromUtf8(toUtf8(text)), text);
        ASSERT_TRUE(equal(utf16, text));
    }
}

TEST(Text, TellsUnequalTextsApart) {
    EXPECT_FALSE(equal(u"", L"a"));
    EXPECT_FALSE(equal(u"a", L""));
    EXPECT_FALSE(equal(u"ab", L"a"));
    EXPECT_FALSE(equal(u"a", L"ab"));
    EXPECT_FALSE(equal(u"ab", L"ac"));
    EXPECT_FALSE(equal(u"\U0001F4FD", L"\U0001F4FE"));
    EXPECT_FALSE(equal(u"\U0001F4FD", L"\U0001F4FDx"));
    EXPECT_FALSE(equal(u"\U0001F4FDx", L"\U0001F4FD"));
    EXPECT_FALSE(equal(u"x\ud7ff", L"x\ue000"));
}

struct FaultRow {
    char32_t character;
    bool isHeld;
};

const FaultRow faultRows[] = {
    {0x0, false},   {0x1, false},   {0x8, false},    {0x9, true},     {0xA, true},     {0xB, false},
    {0xC, false},   {0xD, true},    {0xE, false},    {0x1F, false},   {0x20, true},    {0x7F, true},
    {0x85, true},   {0xD7FF, true}, {0xD800, false}, {0xDBFF, false}, {0xDC00, false}, {0xDFFF, false},
    {0xE000, true}, {0xFFFD, true}, {0xFFFE, false}, {0xFFFF, false},
};

class XmlCharacter : public testing::TestWithParam<FaultRow> {};

TEST_P(XmlCharacter, IsFoundWhereXmlCannotHoldIt) {
    const std::wstring text = L"\U0001F4FD\u00fc" + std::wstring(1, static_cast<wchar_t>(GetParam().character)) + L"z";
    const auto fault = firstCharacterXmlCannotHold(text);
    ASSERT_EQ(fault.has_value(), !GetParam().isHeld);
    if (!fault) return;
    EXPECT_EQ(fault->position, 3u);
    EXPECT_EQ(fault->character, GetParam().character);
}

INSTANTIATE_TEST_SUITE_P(Text, XmlCharacter, testing::ValuesIn(faultRows));

TEST(XmlCharacter, IsFoundAtTheFirstFaultAndAtTheEnd) {
    EXPECT_EQ(firstCharacterXmlCannotHold(L"ab\x01\x02")->position, 3u);
    EXPECT_EQ(firstCharacterXmlCannotHold(std::wstring(1, static_cast<wchar_t>(0xD83D)))->character, 0xD83Du);
    EXPECT_FALSE(firstCharacterXmlCannotHold(L"\U0001FFFE\U0010FFFF"));
}

TEST(XmlCharacter, BeyondTheLastIsFoundWhereWideTextCanHoldIt) {
    if constexpr (sizeof(wchar_t) == 2) GTEST_SKIP() << "wide text has 16 bits here";
    const auto fault = firstCharacterXmlCannotHold(std::wstring(1, static_cast<wchar_t>(0x110000)));
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->character, 0x110000u);
}

TEST(Letters, LoseTheirCaseInAsciiOnly) {
    EXPECT_EQ(lowerAscii(L"AbZz@[`{09\u00dc"), L"abzz@[`{09\u00dc");
    EXPECT_TRUE(equalIgnoringCase(L"FAKE", L"fake"));
    EXPECT_TRUE(equalIgnoringCase(L"", L""));
    EXPECT_FALSE(equalIgnoringCase(L"fake", L"fakes"));
    EXPECT_FALSE(equalIgnoringCase(L"@", L"`"));
    EXPECT_FALSE(equalIgnoringCase(L"\u00dc", L"\u00fc"));
}

TEST(Words, AreComparedCutJoinedAndCounted) {
    EXPECT_EQ(upperAscii(L"aBz{`\u00fc"), L"ABZ{`\u00fc");
    EXPECT_TRUE(endsWith(L"a***b", L"***b") && endsWith(L"b", L"b") && endsWith(L"b", L""));
    EXPECT_FALSE(endsWith(L"b", L"ab") || endsWith(L"", L"a"));
    EXPECT_EQ(withoutOuterBlanks(L" \t\r\na b\n "), L"a b");
    EXPECT_EQ(withoutOuterBlanks(L" \n"), L"");
    EXPECT_EQ(joined({}), L"");
    EXPECT_EQ(joined({L"", L"a", L""}), L", a, ");
    EXPECT_EQ(joined({L"a", L"b"}, L" or "), L"a or b");
    EXPECT_EQ(counted(0, L"note"), L"0 notes");
    EXPECT_EQ(counted(1, L"note"), L"1 note");
}

TEST(Letters, AreEscapedForXml) {
    EXPECT_EQ(escapedForXml(L"a<b>&\"c'\u65e5"), L"a&lt;b&gt;&amp;&quot;c'\u65e5");
    EXPECT_EQ(escapedForXml(L""), L"");
}

}  // namespace
