#include "store/FilePlaces.h"

#include "store/Address.h"
#include "tests/store/StoreSupport.h"

namespace storetests {

using XMLConfig::ElementView;
using XMLConfig::FilePlace;
using XMLConfig::FilePlaces;
using XMLConfig::findElement;
using XMLConfig::parseAddress;
using XMLConfig::rootElement;

namespace {

/// A file and the document that was loaded from it.
struct Loaded {
    explicit Loaded(const std::string& text) : path(folder.write(L"input.skorrax", text)), document(path) {}

    /// "line:column" of what the address names; "" where it has no place.
    std::string placeOf(const std::wstring& address) const { return placeOf(findElement(document, parseAddress(address))); }
    std::string placeOf(const ElementView& element) const {
        const FilePlaces places(document, path);
        const auto place = places.find(element);
        return place ? std::to_string(place->line) + ":" + std::to_string(place->column) : "";
    }

    TemporaryFolder folder;
    std::wstring path;
    ConfigInfo document;
};

const char* const sample =
    "<?xml version=\"1.0\"?>\n"
    "<!-- a\n comment -->\n"
    "<ConfigInfo>\n"
    "  <Version>9.000</Version>\n"
    "  <S ID=\"1\"><A>1</A><A>2</A>\n"
    "    <B\n"
    "      x=\"1\"\n"
    "      y=\"2\"><C/>text<!-- c --><C>&amp;&#10;</C\n"
    "    ></B>\n"
    "  </S>\r\n"
    "  <S ID=\"2\"/><S/><S ID=\"1\"><A/></S>\n"
    "  <![CDATA[ <S> ]]><?p <A> ?><S><A>3</A></S>\n"
    "</ConfigInfo>\n";

}  // namespace

TEST(FilePlaces, TellWhereAStartTagBegins) {
    const Loaded loaded(sample);
    EXPECT_EQ(loaded.placeOf(rootElement(loaded.document)), "4:1");
    EXPECT_EQ(loaded.placeOf(L"Version"), "5:3");
    EXPECT_EQ(loaded.placeOf(L"S[1]"), "6:3");
    EXPECT_EQ(loaded.placeOf(L"S[1]/A"), "6:13");
    EXPECT_EQ(loaded.placeOf(L"S[1]/B"), "7:5");
    EXPECT_EQ(loaded.placeOf(L"S[1]/B/C"), "9:13");
    EXPECT_EQ(loaded.placeOf(L"S[2]"), "12:3");
}

TEST(FilePlaces, TellEqualElementsApartByTheirOrder) {
    const Loaded loaded(sample);
    const auto sections = XMLConfig::sectionElements(loaded.document, L"S");
    ASSERT_EQ(sections.size(), 5u);
    EXPECT_EQ(loaded.placeOf(sections[2]), "12:14");
    EXPECT_EQ(loaded.placeOf(sections[3]), "12:18");
    EXPECT_EQ(loaded.placeOf(sections[3].firstChild()), "12:28");
    EXPECT_EQ(loaded.placeOf(sections[4]), "13:30");
    EXPECT_EQ(loaded.placeOf(sections[0].firstChild().next()), "6:21");
    const ElementView group = findElement(loaded.document, parseAddress(L"S[1]/B"));
    EXPECT_EQ(loaded.placeOf(group.firstChild().next()), "9:31");
}

TEST(FilePlaces, AreNoneOfWhatWasMadeOrRenamedSince) {
    Loaded loaded(sample);
    set(loaded.document, L"S", L"New", L"1", L"1");
    set(loaded.document, L"T", L"A", L"1");
    EXPECT_TRUE(loaded.document.renameSection(L"S", L"2", L"3"));
    EXPECT_EQ(loaded.placeOf(L"S[1]/New"), "");
    EXPECT_EQ(loaded.placeOf(L"T"), "");
    EXPECT_EQ(loaded.placeOf(L"T/A"), "");
    EXPECT_EQ(loaded.placeOf(L"S[3]"), "");
    EXPECT_EQ(loaded.placeOf(ElementView()), "");
}

TEST(FilePlaces, StayRightForTheRestOfAChangedDocument) {
    Loaded loaded(sample);
    set(loaded.document, L"S", L"A", L"changed", L"1");
    EXPECT_TRUE(loaded.document.removeItem(L"S", L"B", L"1"));
    EXPECT_TRUE(loaded.document.moveSection(1, L"S", L"1"));
    EXPECT_TRUE(loaded.document.removeSection(L"Version", L""));
    EXPECT_EQ(loaded.placeOf(L"S[1]"), "6:3");
    EXPECT_EQ(loaded.placeOf(L"S[1]/A"), "6:13");
    EXPECT_EQ(loaded.placeOf(L"S[2]"), "12:3");
}

TEST(FilePlaces, AreCountedInCharactersOfEveryEncoding) {
    std::string utf16 = "\xFF\xFE";
    for (const char character : std::string("<C>\n\n <S ID=\"1\"/><S/></C>")) utf16 += {character, '\0'};
    EXPECT_EQ(Loaded(utf16).placeOf(L"S[1]"), "3:2");
    EXPECT_EQ(Loaded("<C>\xC3\xA4\xE6\x97\xA5<S/></C>").placeOf(L"S"), "1:6");
}

TEST(FilePlaces, OfManyElementsAreAllFound) {
    std::string text = "<ConfigInfo>\n";
    for (int i = 0; i < 3000; ++i) text += "<P ID=\"" + std::to_string(i) + "\">\n<A>\n1</A><A/></P>\n";
    const Loaded loaded(text + "</ConfigInfo>");
    const FilePlaces places(loaded.document, loaded.path);
    unsigned long long line = 2;
    for (const ElementView& section : rootElement(loaded.document).children()) {
        ASSERT_EQ(places.find(section)->line, line);
        ASSERT_EQ(places.find(section.firstChild())->line, line + 1);
        ASSERT_EQ(places.find(section.firstChild().next())->line, line + 2);
        line += 3;
    }
    EXPECT_EQ(line, 9002u);
}

TEST(FilePlaces, AreRefusedForAFileThatWouldNotLoad) {
    const Loaded loaded(sample);
    const auto refused = [&](const std::string& text) {
        const std::wstring path = loaded.folder.write(L"other.skorrax", text);
        return messageOf([&] { const FilePlaces places(loaded.document, path); });
    };
    const std::wstring start = L"Error FilePlaces: " + loaded.folder.file(L"other.skorrax") + L": ";
    EXPECT_EQ(refused("<a>\n<b>\n</a>").substr(0, start.size() + 16), start + L"line 3, column 3");
    EXPECT_EQ(refused("<!DOCTYPE a><a/>").substr(0, start.size() + 4), start + L"line");
    EXPECT_STARTS_WITH(refused(""), start);
    std::string deep;
    for (int i = 0; i <= 1000; ++i) deep += "<a>";
    EXPECT_CONTAINS(refused(deep), L"nested too deeply");
    EXPECT_STARTS_WITH(messageOf([&] { const FilePlaces places(loaded.document, loaded.folder.file(L"missing")); }),
                       L"Error FilePlaces: ");
}

TEST(FilePlaces, LeaveTheDocumentAsItIs) {
    Loaded loaded(sample);
    const Untouched before(loaded.document);
    EXPECT_EQ(loaded.placeOf(L"S[2]"), "12:3");
    EXPECT_TRUE(before.unchanged());
}

}  // namespace storetests
