#include <gtest/gtest.h>

#include "platform/Text.h"
#include "store/TextLine.h"

namespace {

using XMLConfig::namedEncoding;
using XMLConfig::textLine;

/// Each character in that many bytes, the lowest first or last.
std::string inUnits(const std::u32string& text, std::size_t width, bool lowestFirst) {
    std::string bytes;
    for (const char32_t character : text)
        for (std::size_t i = 0; i < width; ++i) {
            const std::size_t place = lowestFirst ? i : width - 1 - i;
            bytes += static_cast<char>(place < 4 ? (character >> (8 * place)) & 0xFFU : 0U);
        }
    return bytes;
}

std::u32string document(const std::u32string& encoding) {
    return U"<?xml version=\"1.0\" encoding=\"" + encoding + U"\"?>\n<a>\r\n  <\u00C4\u65E5>\n</a>";
}

TEST(TextLine, IsReadInTheEncodingThatTheFileHas) {
    const std::wstring expected = L"  <\u00C4\u65E5>";
    for (const bool lowestFirst : {true, false}) {
        EXPECT_EQ(textLine(inUnits(U"\uFEFF" + document(U"UTF-16"), 2, lowestFirst), 3), expected);
        EXPECT_EQ(textLine(inUnits(document(U"UTF-16"), 2, lowestFirst), 3), expected);
        EXPECT_EQ(textLine(inUnits(U"\uFEFF" + document(U"UTF-32"), 4, lowestFirst), 3), expected);
    }
    const std::string utf8 = XMLConfig::detail::toUtf8(L"<a>\n\n  <\u00C4\u65E5>\n</a>");
    EXPECT_EQ(textLine(utf8, 3), expected);
    EXPECT_EQ(textLine("<?xml version='1.0' encoding='utf-8'?>" + utf8, 3), expected);
}

TEST(TextLine, IsReadInTheEncodingThatTheDeclarationNames) {
    EXPECT_EQ(textLine("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n<\xC4>", 2), L"<\u00C4>");
    EXPECT_EQ(textLine("<?xml version='1.0' encoding='windows-1252' ?>\n<\x80>", 2), L"<\u20AC>");
}

TEST(NamedEncoding, IsThatOfTheDeclarationInWhateverBytes) {
    for (const bool lowestFirst : {true, false}) {
        EXPECT_EQ(namedEncoding(inUnits(U"\uFEFF" + document(U"UTF-8"), 2, lowestFirst)), L"UTF-8");
        EXPECT_EQ(namedEncoding(inUnits(document(U"utf-8"), 2, lowestFirst)), L"utf-8");
        EXPECT_EQ(namedEncoding(inUnits(U"\uFEFF" + document(U"UTF-8"), 4, lowestFirst)), L"UTF-8");
    }
    EXPECT_EQ(namedEncoding("<?xml version='1.0' encoding='UTF-16'?><a/>"), L"UTF-16");
    EXPECT_EQ(namedEncoding("<?xml version=\"1.0\"\r\n" + std::string(500, ' ') + "encoding = \"ISO-8859-1\" ?><\xC4/>"),
              L"ISO-8859-1");
}

TEST(NamedEncoding, IsEmptyWhereTheDeclarationNamesNone) {
    for (const char* bytes : {"", "<a encoding=\"UTF-8\"/>", "<?xml version=\"1.0\"?><a encoding=\"UTF-8\"/>",
                              "<?xml encoding?><a b=\"c\"/>", "\xFF\xFE"})
        EXPECT_EQ(namedEncoding(bytes), L"") << bytes;
}

TEST(TextLine, IsReadFromManyLinesBeforeIt) {
    std::u32string text = document(U"UTF-16");
    for (int i = 0; i < 2000; ++i) text += U"\n<x/>";
    EXPECT_EQ(textLine(inUnits(text + U"\n<last/>", 2, true), 2005), L"<last/>");
}

TEST(TextLine, EndsAtEitherEndOfALine) {
    const std::string text = "one\rtwo\r\nthree\n\nfive";
    EXPECT_EQ(textLine(text, 1), L"one");
    EXPECT_EQ(textLine(text, 2), L"two");
    EXPECT_EQ(textLine(text, 3), L"three");
    EXPECT_EQ(textLine(text, 4), L"");
    EXPECT_EQ(textLine(text, 5), L"five");
    EXPECT_EQ(textLine(text, 6), L"");
    EXPECT_EQ(textLine(text, 0), L"");
    EXPECT_EQ(textLine("", 1), L"");
}

TEST(TextLine, HasNoByteOrderMark) { EXPECT_EQ(textLine("\xEF\xBB\xBF<a>", 1), L"<a>"); }

TEST(TextLine, ShowsWrongBytesOrEndsBeforeThem) {
    EXPECT_EQ(textLine("<a>\n<b\xFF>", 2), L"<b\uFFFD>");
    EXPECT_EQ(textLine("<?xml version=\"1.0\" encoding=\"US-ASCII\"?>\n<b\xFF>", 2), L"<b");
    EXPECT_EQ(textLine(inUnits(document(U"UTF-16"), 2, true) + "x", 4), L"</a>");
}

}  // namespace
