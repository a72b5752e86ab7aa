#include "store/FilePlaces.h"

#include "platform/Utf8.h"
#include "store/Address.h"
#include "store/Document.h"
#include "store/Together.h"
#include "tests/store/StoreSupport.h"
#include "tests/support/RandomChoice.h"

namespace storetests {

using XMLConfig::ElementView;
using XMLConfig::FilePlace;
using XMLConfig::FilePlaces;
using XMLConfig::findElement;
using XMLConfig::parseAddress;
using XMLConfig::rootElement;

namespace {

std::string textOf(const std::optional<FilePlace>& place) {
    return place ? std::to_string(place->line) + ":" + std::to_string(place->column) : "";
}

/// A file and the document that was loaded from it, with its places noted.
struct Loaded {
    explicit Loaded(const std::string& text)
        : path(folder.write(L"input.skorrax", text)), loaded(XMLConfig::loadWithPlaces(path)), document(*loaded) {}

    /// "line:column" of what the address names; "" where it has no place.
    std::string placeOf(const std::wstring& address) const { return placeOf(findElement(document, parseAddress(address))); }
    std::string placeOf(const ElementView& element) const { return textOf(FilePlaces(document, path).find(element)); }

    TemporaryFolder folder;
    std::wstring path;
    std::unique_ptr<ConfigInfo> loaded;
    ConfigInfo& document;
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

TEST(FilePlaces, AreCountedInEncodingsWithoutAMark) {
    const auto text = [](const std::string& encoding) {
        return "<?xml version=\"1.0\" encoding=\"" + encoding + "\"?><C>\n\n <S ID=\"1\"><A/></S>\n<T/></C>";
    };
    std::string little;
    std::string big;
    for (const char character : text("UTF-16LE")) little += {character, '\0'};
    for (const char character : text("UTF-16BE")) big += {'\0', character};
    for (const std::string& bytes : {text("UTF-8"), text("ISO-8859-1"), little, big}) {
        const Loaded loaded(bytes);
        EXPECT_EQ(loaded.placeOf(L"S[1]"), "3:2");
        EXPECT_EQ(loaded.placeOf(L"T"), "4:1");
    }
}

TEST(FilePlaces, AreCountedAfterAllEndsOfLines) {
    const Loaded loaded("<C>\r<S/>\r\r <T/>\r\n<U/>\n\r<V/></C>");
    EXPECT_EQ(loaded.placeOf(L"S"), "2:1");
    EXPECT_EQ(loaded.placeOf(L"T"), "4:2");
    EXPECT_EQ(loaded.placeOf(L"U"), "5:1");
    EXPECT_EQ(loaded.placeOf(L"V"), "7:1");
}

TEST(FilePlaces, OfManyElementsInOneLineHaveTheirColumns) {
    const Loaded loaded("<C><S/>\xC3\xA4<S/>\xF0\x9F\x98\x80<S/>\n<S/><S/></C>");
    std::string told;
    for (const ElementView& section : rootElement(loaded.document).children()) told += loaded.placeOf(section) + " ";
    EXPECT_EQ(told, "1:4 1:9 1:15 2:1 2:5 ");
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

namespace {

/// Writes well-formed texts that hold whatever may be mistaken for an element or for the end of one.
class DeceptiveText : RandomChoice {
public:
    explicit DeceptiveText(unsigned seed) : RandomChoice(seed) {}

    std::string make() {
        std::string text = one({"", "\xEF\xBB\xBF"});
        text += one({"", "<?xml version=\"1.0\"?>", "<?xml version='1.0' encoding='utf-8' ?>\r\n"});
        return text + one({"", "<!-- <a> -->\n", "\n"}) + element(0) + one({"", "\n", "<!-- <b/> -->"});
    }

private:
    std::string one(const std::vector<std::string>& texts) { return anyOf(texts); }
    std::string attributes() {
        return one({"", "", " ID=\"1\"", " ID = '2'", " ID=\"\xC3\xA4>\"", " x='a>b\"/' ID='3'", " x.ID=\"4\"\n  y=''",
                    "\r\n\tID=\"a/b\" z = '&lt;'", " ID=\"\"", " ID=\"&amp;\""});
    }
    std::string filling() {
        return one({"", " ", "\n  ", "\r\n", "text", "\xC3\xA4 ", "\xE6\x97\xA5", "\xF0\x9F\x94\xA5", "&amp;", "&#10;",
                    "a > b", "<!-- <a ID='1'> ' -->", "<!---->", "<![CDATA[</a><b> ]] >]]>", "<?p <a> ?>", "]]", "\t"});
    }
    std::string element(int depth) {
        const std::string name = one({"a", "b", "a.b", "\xC3\xA4", "a-1"});
        const std::string start = "<" + name + attributes() + one({"", " ", "\n"});
        if (depth > 0 && below(4) == 0) return start + "/>";
        std::string text = start + ">";
        const std::size_t count = depth < 4 ? below(5) : 0;
        for (std::size_t i = 0; i < count; ++i) text += filling() + element(depth + 1);
        return text + filling() + "</" + name + one({"", " ", "\r\n"}) + ">";
    }
};

/// The places of all elements, in document order.
std::string placesOf(const FilePlaces& places, const ElementView& element) {
    const auto place = places.find(element);
    std::string text = place ? textOf(place) + " " : "- ";
    for (const ElementView& child : element.children()) text += placesOf(places, child);
    return text;
}
std::string placesOf(const ConfigInfo& document, const std::wstring& path) {
    return placesOf(FilePlaces(document, path), rootElement(document));
}

}  // namespace

TEST(FilePlaces, AreTheSameWhetherNotedOrLookedForLater) {
    for (unsigned seed = 0; seed < 300; ++seed) {
        const std::string text = DeceptiveText(seed).make();
        const Loaded loaded(text);
        const std::string noted = placesOf(loaded.document, loaded.path);
        EXPECT_EQ(placesOf(loaded.document, loaded.folder.write(L"copy.skorrax", text)), noted) << text;
        EXPECT_EQ(placesOf(ConfigInfo(loaded.path), loaded.path), noted) << text;
        EXPECT_EQ(noted.find('-'), std::string::npos) << text;
    }
}

TEST(FilePlaces, AreNoneOfWhatIsInNoTree) {
    const Loaded loaded(sample);
    const Loaded other(sample);
    for (const std::wstring& path : {loaded.path, other.path}) {
        const FilePlaces places(loaded.document, path);
        const ElementView root = rootElement(loaded.document);
        EXPECT_EQ(textOf(places.find(root.firstChild())) + textOf(places.find(root)), "5:34:1");
        EXPECT_FALSE(places.find(ElementView()) || places.find(rootElement(other.document)));
    }
}

TEST(FilePlaces, AreThoseOfTheFileAsItIsNow) {
    const Loaded loaded("<C>\n<S ID=\"1\"/>\n</C>");
    EXPECT_EQ(loaded.placeOf(L"S[1]"), "2:1");
    for (const char* const text :
         {"<C>\n\n<T/>\n <S ID=\"1\"/></C>", "<C>\n<T/>\n\n <S ID='1'/></C>", "<C>\n\n\n <S ID='1'/></C>"}) {
        loaded.folder.write(L"input.skorrax", text);
        EXPECT_EQ(loaded.placeOf(L"S[1]"), "4:2");
    }
    loaded.folder.write(L"input.skorrax", "<C>\n\n<T/>\n <S ID=\"1\"/></D>");
    EXPECT_STARTS_WITH(messageOf([&] { const FilePlaces places(loaded.document, loaded.path); }),
                       L"Error FilePlaces: " + loaded.path + L": line 4, column 15");
}

TEST(FilePlaces, AreThoseOfWhatWasSaved) {
    Loaded loaded("<C><S ID=\"1\"/><S ID=\"2\"/></C>");
    set(loaded.document, L"S", L"A", L"1", L"2");
    loaded.document.save(loaded.path);
    EXPECT_NE(loaded.placeOf(L"S[2]/A"), "");
}

TEST(FilePlaces, AreThoseOfWhatWasSavedUnchanged) {
    const Loaded loaded("<C><S ID=\"1\"/><S ID=\"2\"/></C>");
    EXPECT_EQ(loaded.placeOf(L"S[2]"), "1:15");
    loaded.document.save(loaded.path);
    EXPECT_EQ(loaded.placeOf(L"S[2]"), "4:3");
}

TEST(FilePlaces, AreNotedByALoadThatIsAskedForThem) {
    Loaded loaded(sample);
    const auto noted = [](const ConfigInfo& document) {
        return XMLConfig::detail::Document::of(document).parsedPlaces() != nullptr;
    };
    EXPECT_TRUE(noted(loaded.document));
    EXPECT_FALSE(noted(ConfigInfo(loaded.path)));
    set(loaded.document, L"S", L"New", L"1", L"1");
    EXPECT_FALSE(noted(loaded.document));
}

TEST(FilePlaces, AreNotedByALoadThatFailsAsAnyOther) {
    const TemporaryFolder folder;
    const auto failures = [&](const std::wstring& path) {
        return std::pair(messageOf([&] { XMLConfig::loadWithPlaces(path); }),
                         messageOf([&] { const ConfigInfo document(path); }));
    };
    for (const char* const text : {"", "<a>\n<b>\n</a>", "<a>\n\xFF</a>", "<!DOCTYPE a><a/>"}) {
        const auto [noting, other] = failures(folder.write(L"wrong.skorrax", text));
        EXPECT_STARTS_WITH(noting, L"Error parseDataFile: ");
        EXPECT_EQ(noting, other);
    }
    const auto [noting, other] = failures(folder.file(L"missing"));
    EXPECT_STARTS_WITH(noting, L"Error parseDataFile: Can not open file: ");
    EXPECT_EQ(noting, other);
}

TEST(FilePlaces, StayRightWhereEqualElementsWereStoredAgainAndAgain) {
    const std::wstring element = L"<E>" + std::wstring(1000, L'x') + L"</E>";
    const Loaded loaded("<ConfigInfo>\n<S ID=\"1\"><A>" + XMLConfig::utf8FromWide(element) + "</A></S>\n</ConfigInfo>\n");
    const void* const root = XMLConfig::detail::Document::of(loaded.document).root();
    XMLConfig::detail::together(loaded.document, [&] {
        for (int i = 0; i < 5000; ++i) loaded.document.setStringItemAsDOMElement(L"S", L"A", element, L"1");
    });
    EXPECT_FALSE(loaded.document.isDirty());
    EXPECT_NE(XMLConfig::detail::Document::of(loaded.document).root(), root) << "the tree was not copied";
    EXPECT_EQ(loaded.placeOf(L"S[1]/A"), "2:11");
}

TEST(FilePlaces, LeaveTheDocumentAsItIs) {
    Loaded loaded(sample);
    const Untouched before(loaded.document);
    EXPECT_EQ(loaded.placeOf(L"S[2]"), "12:3");
    EXPECT_TRUE(before.unchanged());
}

}  // namespace storetests
