#include "tests/store/BadFileSupport.h"

using namespace std::string_literals;

namespace storetests {

namespace {

std::wstring refusal(const std::string& text) {
    const TemporaryFolder folder;
    const auto path = folder.write(L"bad.skorrax", text);
    const std::wstring message = loadMessage(path);
    EXPECT_EQ(folder.read(L"bad.skorrax"), text);
    const std::wstring start = L"Error parseDataFile: Error during parsing: " + path + L" XML message is: ";
    EXPECT_STARTS_WITH(message, start);
    return message.substr(std::min(start.size(), message.size()));
}

/// In UTF-16 with its mark, the low byte first or last.
std::string utf16(const std::string& ascii, bool isLowFirst) {
    std::string bytes = isLowFirst ? "\xff\xfe" : "\xfe\xff";
    for (const char c : ascii) bytes += isLowFirst ? std::string{c, '\0'} : std::string{'\0', c};
    return bytes;
}

}  // namespace

TEST(FileEnd, ANullCharacterBehindTheRootIsRefused) {
    for (const std::string& rest : {"\0"s, "\0\0\0\0"s, "\0<S/>"s, "\0 text"s, "\n\0\n"s, "<!--c-->\0"s})
        expectMalformed("<ConfigInfo><S><A>1</A></S></ConfigInfo>" + rest, "a null character");
    EXPECT_EQ(refusal("<ConfigInfo>\n</ConfigInfo>\n\n<!--c-->\0<S/>"s),
              L"line 4, column 9: The character U+0000 is not allowed");
    expectMalformed("<ConfigInfo/>"s + '\0', "after an empty root");
    expectMalformed(utf16("<ConfigInfo/>\0"s, true), "in UTF-16");
    expectMalformed("<ConfigInfo/>" + std::string(200000, '\0'), "as a file system leaves them after a crash");
}

TEST(FileEnd, AnIncompleteLastCharacterIsRefused) {
    for (const bool isLowFirst : {true, false}) {
        const std::string whole = utf16("<ConfigInfo><S><A>1</A></S></ConfigInfo>\n", isLowFirst);
        EXPECT_EQ(get(*load(whole), L"S", L"A"), L"1");
        expectMalformed(whole + '\n', "an odd byte");
        expectMalformed(whole + '\0', "an odd byte");
        EXPECT_EQ(refusal(whole + '\n'), L"line 2, column 1: The last character is incomplete");
    }
    for (const char* rest : {"\xc3", "\xe2", "\xe2\x82", "\xf0\x9f", "\xf0\x9f\x98"}) {
        expectMalformed("<ConfigInfo/>"s + rest, "a cut sequence");
        expectMalformed("<ConfigInfo/>\n"s + rest, "a cut sequence");
    }
    const std::string ucs4 = "\0\0\xfe\xff"s + "\0\0\0<\0\0\0a\0\0\0/\0\0\0>"s;
    EXPECT_EQ(load(ucs4)->getSectionCount(L"S"), 0);
    for (const char* rest : {" ", "  ", "   "}) expectMalformed(ucs4 + rest, "a part of four bytes");
}

// The last piece that is read from the file is full or empty, or ends within the reader's buffer of characters.
TEST(FileEnd, IsFoundWhereverTheReadersBuffersEnd) {
    for (const std::size_t size : {16384U, 49152U, 65536U, 98304U}) {
        for (int offset = -3; offset <= 3; ++offset) {
            const std::string start = "<ConfigInfo><S><A>";
            const std::string end = "</A></S></ConfigInfo>";
            const std::size_t inside = size + static_cast<std::size_t>(offset + 3) - 3 - start.size() - end.size();
            const std::string whole = start + std::string(inside, 'x') + end;
            EXPECT_EQ(get(*load(whole), L"S", L"A").size(), inside);
            expectMalformed(whole + '\xc3', "a cut sequence at " + std::to_string(whole.size()));
            expectMalformed(whole + '\0', "a null character at " + std::to_string(whole.size()));
        }
    }
}

TEST(FileEnd, OfAFragmentIsFound) {
    ConfigInfo document;
    for (const std::wstring& text : {L"<a/>\0"s, L"<a/>\0<b/>"s}) {
        const auto message = messageOf([&] { document.setStringItemAsDOMElement(L"S", L"A", text, L""); });
        EXPECT_STARTS_WITH(message, L"Error setItem: ");
    }
    EXPECT_FALSE(document.doesSectionExist(L"S", L""));
}

TEST(BadFile, AnInstructionOfABadNameHasAPlace) {
    const std::string name = "\xf0\x90\x80\x80";  // U+10000, which XML 1.1 admits
    EXPECT_EQ(refusal("<ConfigInfo>\n <?" + name + " x?></ConfigInfo>"),
              L"line 2, column 10: The name of a processing instruction holds a character that is not allowed there");
    for (const std::string& text : {"<ConfigInfo><?a" + name + "?></ConfigInfo>", "<?" + name + " x?><ConfigInfo/>",
                                    "<ConfigInfo/><?" + name + " x?>"})
        expectMalformed(text, text);
    EXPECT_CONTAINS(savedText(*load("<?xml version=\"1.1\"?><ConfigInfo><?" + name + " x?></ConfigInfo>")),
                    "<?" + name + " x?>");
    EXPECT_CONTAINS(savedText(*load("<ConfigInfo><?p " + name + "?></ConfigInfo>")), "<?p " + name + "?>");
}

TEST(BadFile, AnAttributeWhosePrefixHasNoNamespaceHasAPlace) {
    const std::string head = "<?xml version=\"1.1\"?>\n";
    const std::wstring reason =
        L"attempt is made to create or change an object in a way which is incorrect with respect to namespaces";
    EXPECT_EQ(refusal(head + "<a xmlns:p=\"\" p:b=\"\"/>"), L"line 2, column 23: " + reason);
    EXPECT_EQ(refusal(head + "<a>\n<b xmlns:p=\"\" p:b=\"\"/></a>"), L"line 3, column 23: " + reason);
}

}  // namespace storetests
