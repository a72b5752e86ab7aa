#include "tests/store/BadFileSupport.h"
#include "tests/store/StoreSupport.h"

namespace fs = std::filesystem;

namespace storetests {

namespace {

std::string nested(int levels) {
    std::string text = "<ConfigInfo>";
    for (int i = 1; i < levels; ++i) text += "<a>";
    for (int i = 1; i < levels; ++i) text += "</a>";
    return text + "</ConfigInfo>";
}

}  // namespace

TEST(BadFile, Missing) {
    const TemporaryFolder folder;
    const auto path = folder.file(L"none.skorrax");
    EXPECT_EQ(loadMessage(path), L"Error parseDataFile: Can not open file: " + path);
    EXPECT_EQ(folder.entries(), 0u);
    EXPECT_EQ(loadMessage(L""), L"Error parseDataFile: Can not open file: ");
}

TEST(BadFile, ReadOnly) {
    const TemporaryFolder folder;
    const auto path = folder.write(L"a.skorrax", "<ConfigInfo/>");
    fs::permissions(pathOf(path), fs::perms(0444));
    EXPECT_EQ(loadMessage(path), L"Error parseDataFile: Can not open file: " + path);
}

TEST(BadFile, AFolder) {
    const TemporaryFolder folder;
    const auto path = wideOf(folder.path());
    EXPECT_EQ(loadMessage(path), L"Error parseDataFile: Can not open file: " + path);
    EXPECT_EQ(loadMessage(path + L"/"), L"Error parseDataFile: Can not open file: " + path + L"/");
}

TEST(BadFile, CutBeforeItsFirstCharacterEnds) {
    using namespace std::string_literals;
    const TemporaryFolder folder;
    for (const std::string& text : {"\xff\xfe\0\0<"s, "\0\0\xfe\xff\0"s}) {
        expectMalformed(text, "UTF-32");
        EXPECT_NE(loadMessage(folder.write(L"bad.skorrax", text))
                      .find(L"line 1, column 1: What the text begins with is in no encoding that is known"),
                  std::wstring::npos);
    }
}

TEST(BadFile, Empty) { expectMalformed("", "an empty file"); }

TEST(BadFile, Malformed) {
    for (const char* text : {"<",
                             "x",
                             "<ConfigInfo>",
                             "</ConfigInfo>",
                             "<ConfigInfo></configinfo>",
                             "<ConfigInfo/><ConfigInfo/>",
                             "<ConfigInfo/>text",
                             "<ConfigInfo a=1/>",
                             "<ConfigInfo a=\"1\" a=\"2\"/>",
                             "<ConfigInfo a=\"<\"/>",
                             "<ConfigInfo>&nbsp;</ConfigInfo>",
                             "<ConfigInfo>&</ConfigInfo>",
                             "<ConfigInfo>&#0;</ConfigInfo>",
                             "<ConfigInfo>&#xFFFE;</ConfigInfo>",
                             "<ConfigInfo><!-- -- --></ConfigInfo>",
                             "<ConfigInfo>]]></ConfigInfo>",
                             "<ConfigInfo><![CDATA[</ConfigInfo>",
                             "<ConfigInfo><1/></ConfigInfo>",
                             "<?xml version=\"1.0\"?>",
                             " <?xml version=\"1.0\"?><ConfigInfo/>",
                             "   \n  ",
                             "<!-- only -->",
                             "<?xml version=\"1.0\" encoding=\"no-such\"?><ConfigInfo/>",
                             "<?xml version=\"1.2\"?><ConfigInfo/>",
                             "<?xml version=\"2.0\"?><ConfigInfo/>",
                             "<ConfigInfo><A></ConfigInfo></A>",
                             "<ConfigInfo><p:A/></ConfigInfo>",
                             "<ConfigInfo><A p:x=\"1\"/></ConfigInfo>",
                             "<ConfigInfo><:A/></ConfigInfo>",
                             "<ConfigInfo xmlns:p=\"u\"><p:A:B/></ConfigInfo>"})
        expectMalformed(text, text);
}

TEST(BadFile, MalformedTellsThePlace) {
    const TemporaryFolder folder;
    const auto path = folder.write(L"bad.skorrax", "<ConfigInfo>\n  <A>\n    <B>1</C>\n  </A>\n</ConfigInfo>\n");
    EXPECT_STARTS_WITH(loadMessage(path),
                       L"Error parseDataFile: Error during parsing: " + path + L" XML message is: line 3, column ");
}

TEST(BadFile, TruncatedAnywhere) {
    const std::string whole =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<ConfigInfo><!--c--><S "
        "ID=\"1\"><A>\xc3\xbc&amp;</A><B/></S></ConfigInfo>";
    EXPECT_EQ(get(*load(whole), L"S", L"A"), L"\u00fc&");
    for (std::size_t size = 0; size < whole.size(); ++size)
        expectMalformed(whole.substr(0, size), "cut at " + std::to_string(size));
}

TEST(BadFile, Binary) {
    using namespace std::string_literals;
    expectMalformed(std::string(1000, '\0'), "zeros");
    expectMalformed(
        "\x7f"s
        "ELF\x02\x01\x01\0\0\0\0"s,
        "a program");
    expectMalformed("<ConfigInfo><A>\0</A></ConfigInfo>"s, "a zero in a value");
    expectMalformed("<ConfigInfo><A>\x01</A></ConfigInfo>", "a control character");
    expectMalformed("<ConfigInfo><A>\xff\xfe</A></ConfigInfo>", "no UTF-8");
    expectMalformed("<ConfigInfo><A>\xc3</A></ConfigInfo>", "a cut sequence");
    expectMalformed("<ConfigInfo><A>\xed\xa0\x80</A></ConfigInfo>", "a surrogate in UTF-8");
    expectMalformed("<ConfigInfo><A>\xef\xbf\xbf</A></ConfigInfo>", "U+FFFF");
    expectMalformed("\xff\xfe<\0C\0"s, "cut UTF-16");
    std::string noise;
    unsigned state = 1;
    for (int i = 0; i < 5000; ++i) noise += static_cast<char>((state = state * 1664525u + 1013904223u) >> 24);
    expectMalformed(noise, "noise");
}

TEST(BadFile, WrongBytesAreToldAtTheirPlace) {
    std::string lines = "<ConfigInfo>\n";
    for (int i = 0; i < 9000; ++i) lines += "<a>text</a>\n";
    const std::pair<std::string, std::wstring> rows[] = {
        {"<ConfigInfo>\xff</ConfigInfo>", L"line 1, column 13: "},
        {"\xef\xbb\xbf<ConfigInfo>\xff</ConfigInfo>", L"line 1, column 13: "},
        {lines + "\n<a>\xff</a></ConfigInfo>", L"line 9003, column 4: "},
        {"<?xml version=\"1.0\" encoding=\"utf-8\"?>\r\n<A>\r\n\xc3\xbc\xe2\x82\xac\xc0\x80</A>", L"line 3, column 3: "},
        {"<A>\r\r\xf0\x9f\x98\x80\xed\xa0\x80</A>", L"line 3, column 3: "},
        {"<A>\xe2\x82</A>", L"line 1, column 4: "},
    };
    for (const auto& [text, place] : rows) {
        const TemporaryFolder folder;
        const std::wstring path = folder.write(L"bad.skorrax", text);
        const std::wstring start = L"Error parseDataFile: Error during parsing: " + path + L" XML message is: " + place;
        EXPECT_EQ(loadMessage(path).substr(0, start.size()), start);
        const std::wstring fromText = messageOf([&, &bytes = text] { (void)ConfigInfo::fromText(bytes, path); });
        EXPECT_EQ(fromText, loadMessage(path));
        EXPECT_NE(fromText, start);
    }
}

TEST(BadFile, EveryFormOfWrongBytesIsToldAtItsPlace) {
    const std::string mark = "\xef\xbb\xbf";
    const std::string good = "\xc2\x80\xdf\xbf\xe0\xa0\x80\xed\x9f\xbf\xef\xbf\xbd\xf0\x90\x80\x80\xf4\x8f\xbf\xbf";
    for (const char* wrong :
         {"\x80", "\xbf", "\xc1\xbf", "\xe0\x9f\xbf", "\xed\xa0\x80", "\xf0\x8f\xbf\xbf", "\xf4\x90\x80\x80", "\xff",
          "\xf5\x80\x80\x80", "\xe2\x82<", "\xc3\xc3\xbc", "\xef<", "\xef\xbf<", "\xef\xbf\xef\xbf\xbd", "\xf0\x9f\x98<"}) {
        const std::pair<std::string, std::wstring> rows[] = {{"<b>\n\n<a>\xc3\xbc", L"line 3, column 5: "},
                                                             {mark + "<b>\r\n\r<a>" + good, L"line 3, column 13: "},
                                                             {"<b>\xc2\x85\n<a/>\r\n", L"line 3, column 1: "}};
        for (const auto& [start, place] : rows) {
            const std::string text = start + wrong + "</a></b>\xff";
            const std::wstring message = messageOf([&] { (void)ConfigInfo::fromText(text, L"name"); });
            EXPECT_NE(message.find(L"XML message is: " + place), std::wstring::npos) << XMLConfig::detail::toUtf8(message);
        }
    }
}

TEST(BadFile, WrongBytesAreRefusedWhereverTheReadersBuffersEnd) {
    for (const std::string wrong :
         {"\xff", "\xc3", "\xe2\x82", "\xf0\x9f\x98", "\xed\xa0\x80", "\xc0\x80", "\xf4\x90\x80\x80", "\xf7\xbf\xbf\xbf"}) {
        for (const std::size_t size : {0U, 16377U, 49145U}) {
            for (std::size_t offset = 0; offset < 8; ++offset)
                expectMalformed("<a>" + std::string(size + offset, 'y') + wrong + "</a>", "wrong bytes");
        }
    }
}

// The XML library leaves such a character out where more than 32 others stand before it.
TEST(BadFile, CharactersBeyondUnicodeAreRefusedAtTheirPlace) {
    for (const char* declaration :
         {"", "<?xml version=\"1.0\" encoding=\"UTF-8\"?>", "<?xml version='1.0' encoding='utf8'?>"}) {
        for (const char* wrong : {"\xf5\x80\x80\x80", "\xf6\xbf\xbf\xbf", "\xf7\x80\x80\xbf"}) {
            for (const std::size_t size : {0U, 31U, 32U, 33U, 100U, 50000U, 200000U}) {
                const std::string text = std::string(declaration) + "<a>\n" + std::string(size, 'x') + wrong + "</a>";
                const std::wstring message = messageOf([&] { (void)ConfigInfo::fromText(text, L"name"); });
                EXPECT_EQ(message, L"Error parseDataFile: Error during parsing: name XML message is: line 2, column " +
                                       std::to_wstring(size + 1) + L": invalid multi-byte sequence");
            }
        }
    }
}

TEST(BadFile, BytesThatUtf8HasNotAreReadInOtherEncodings) {
    const std::string text = "<ConfigInfo><S><A>" + std::string(100, 'x') + "\xf5\x80\x80\x80</A></S></ConfigInfo>";
    const auto document = load("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>" + text);
    EXPECT_EQ(get(*document, L"S", L"A", L""), std::wstring(100, L'x') + L"\u00f5\x80\x80\x80");
}

TEST(BadFile, EnormousIsLoaded) {
    const TemporaryFolder folder;
    std::string text = "<ConfigInfo><Version>9.000</Version>\n";
    const std::string value(100000, 'v');
    for (int i = 0; i < 600; ++i) text += "<S ID=\"" + std::to_string(i) + "\"><A>" + value + "</A></S>\n";
    text += "</ConfigInfo>";
    const ConfigInfo document(folder.write(L"big.skorrax", text));
    EXPECT_EQ(document.getSectionCount(L"S"), 600);
    EXPECT_EQ(get(document, L"S", L"A", L"599"), std::wstring(value.begin(), value.end()));
}

TEST(BadFile, EnormousGarbageIsRefused) {
    const TemporaryFolder folder;
    for (const std::string& text : {std::string(60000000, 'x'), "<ConfigInfo>" + std::string(60000000, 'x')}) {
        const auto path = folder.write(L"big.skorrax", text);
        EXPECT_STARTS_WITH(loadMessage(path),
                           L"Error parseDataFile: Error during parsing: " + path + L" XML message is: line 1, column ");
    }
}

TEST(BadFile, NestedDeeperThanAThousandLevels) {
    EXPECT_EQ(load(nested(1000))->getSectionCount(L"a"), 1);
    EXPECT_EQ(savedText(*load(savedText(*load(nested(1000))))), savedText(*load(nested(1000))));
    expectMalformed(nested(1001), "1,001 levels");
    expectMalformed(nested(200000), "200,000 levels");
    std::string open = "<ConfigInfo>";
    for (int i = 0; i < 1000000; ++i) open += "<a>";
    expectMalformed(open, "a million open elements");
}

TEST(BadFile, AnotherRootIsNothingSpecial) {
    const Document document = load("<Anything><Version>8.000</Version><S ID=\"1\"><A>1</A></S></Anything>");
    EXPECT_EQ(document->getVersion(), 8.0);
    EXPECT_EQ(get(*document, L"S", L"A", L"1"), L"1");
    set(*document, L"S", L"A", L"2", L"2");
    EXPECT_EQ(savedText(*document), xmlHead +
                                        "<Anything>\n  <Version>8.000</Version>\n  <S ID=\"1\">\n    <A>1</A>\n  </S>\n"
                                        "  <S ID=\"2\">\n    <A>2</A>\n  </S>\n</Anything>\n");
}

TEST(BadFile, SectionsWithoutAndWithEmptyAndRepeatedIds) {
    const Document document = load(
        "<ConfigInfo><S><A>1</A></S><S ID=\"\"><A>2</A></S><S ID=\"x\"><A>3</A></S><S ID=\"x\"><A>4</A></S></ConfigInfo>");
    EXPECT_EQ(document->getSectionCount(L"S"), 4);
    EXPECT_EQ(document->getSectionIDs(L"S"), (std::vector<std::wstring>{L"", L"x", L"x"}));
    EXPECT_EQ(get(*document, L"S", L"A", L""), L"1");
    EXPECT_EQ(get(*document, L"S", L"A", L"x"), L"3");
    EXPECT_TRUE(document->removeSection(L"S", L"x"));
    EXPECT_EQ(get(*document, L"S", L"A", L"x"), L"4");
}

#ifndef _WIN32

TEST(BadFile, Unreadable) {
    const TemporaryFolder folder;
    fs::permissions(folder.path(), fs::perms(0755));
    const auto path = folder.write(L"a.skorrax", "<ConfigInfo/>");
    fs::permissions(pathOf(path), fs::perms(0222));
    const OrdinaryUser user;
    ASSERT_TRUE(user.active());
    EXPECT_EQ(loadMessage(path), L"Error parseDataFile: Can not open file: " + path);
}

TEST(BadFile, OfAnotherUserIsReadOnly) {
    if (geteuid() != 0) GTEST_SKIP() << "only the superuser can make another user's file";
    const TemporaryFolder folder;
    fs::permissions(folder.path(), fs::perms(0755));
    const auto path = folder.write(L"a.skorrax", "<ConfigInfo/>");
    fs::permissions(pathOf(path), fs::perms(0644));
    const OrdinaryUser user;
    EXPECT_EQ(loadMessage(path), L"Error parseDataFile: Can not open file: " + path);
}

#endif

}  // namespace storetests
