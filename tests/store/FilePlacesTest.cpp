#include "store/FilePlaces.h"

#include "store/Address.h"
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

/// A file and the document that was loaded from it.
struct Loaded {
    explicit Loaded(const std::string& text) : path(folder.write(L"input.skorrax", text)), document(path) {}

    /// "line:column" of what the address names; "" where it has no place.
    std::string placeOf(const std::wstring& address) const { return placeOf(findElement(document, parseAddress(address))); }
    std::string placeOf(const ElementView& element) const {
        const FilePlaces places(document, path);
        const auto place = places.find(element);
        const auto one = XMLConfig::placesOf({element}, document, path).at(0);
        EXPECT_EQ(one.has_value(), place.has_value());
        if (one && place) {
            EXPECT_EQ(one->line, place->line);
            EXPECT_EQ(one->column, place->column);
        }
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

TEST(FilePlaces, OfManyElementsAreCountedInEncodingsWithoutAMark) {
    const auto text = [](const std::string& encoding) {
        return "<?xml version=\"1.0\" encoding=\"" + encoding + "\"?><C>\n\n <S ID=\"1\"><A/></S>\n<S/></C>";
    };
    std::string little;
    std::string big;
    for (const char character : text("UTF-16LE")) little += {character, '\0'};
    for (const char character : text("UTF-16BE")) big += {'\0', character};
    for (const std::string& bytes : {text("UTF-8"), little, big}) {
        const Loaded loaded(bytes);
        std::vector<ElementView> sections;
        for (const ElementView& section : rootElement(loaded.document).children()) sections.push_back(section);
        const auto places = placesOf(sections, loaded.document, loaded.path);
        ASSERT_EQ(places.size(), 2u);
        EXPECT_EQ(std::pair(places[0]->line, places[0]->column), std::pair(3ULL, 2ULL));
        EXPECT_EQ(std::pair(places[1]->line, places[1]->column), std::pair(4ULL, 1ULL));
    }
}

TEST(FilePlaces, OfManyElementsInOneLineHaveTheirColumns) {
    const Loaded loaded("<C><S/>\xC3\xA4<S/>\xF0\x9F\x98\x80<S/>\n<S/><S/></C>");
    std::vector<ElementView> sections;
    for (const ElementView& section : rootElement(loaded.document).children()) sections.push_back(section);
    std::vector<std::pair<unsigned long long, unsigned long long>> told;
    for (const auto& place : placesOf(sections, loaded.document, loaded.path)) told.emplace_back(place->line, place->column);
    EXPECT_EQ(told, (decltype(told){{1, 4}, {1, 9}, {1, 15}, {2, 1}, {2, 5}}));
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

std::string textOf(const std::optional<FilePlace>& place) {
    return place ? std::to_string(place->line) + ":" + std::to_string(place->column) + " " : "- ";
}

/// The places of all elements, in document order.
std::string placesOf(const FilePlaces& places, const ElementView& element) {
    std::string text = textOf(places.find(element));
    for (const ElementView& child : element.children()) text += placesOf(places, child);
    return text;
}

void addAll(std::vector<ElementView>& elements, const ElementView& element) {
    elements.push_back(element);
    for (const ElementView& child : element.children()) addAll(elements, child);
}

/// The same, asked for at once, in another order, and some of them twice.
std::string placesAtOnce(const ConfigInfo& document, const std::wstring& path, unsigned seed) {
    std::vector<ElementView> elements;
    addAll(elements, rootElement(document));
    std::vector<std::size_t> order;
    for (std::size_t i = 0; i < elements.size(); ++i) order.insert(order.end(), 1 + i % 3 / 2, i);
    std::shuffle(order.begin(), order.end(), std::mt19937(seed));
    std::vector<ElementView> asked;
    for (const std::size_t index : order) asked.push_back(elements[index]);
    const auto places = XMLConfig::placesOf(asked, document, path);
    std::vector<std::string> texts(elements.size());
    for (std::size_t i = 0; i < order.size(); ++i) {
        const std::string text = textOf(places.at(i));
        EXPECT_TRUE(texts[order[i]].empty() || texts[order[i]] == text);
        texts[order[i]] = text;
    }
    std::string all;
    for (const std::string& text : texts) all += text;
    return all;
}

}  // namespace

// A copy is read as a file that may be malformed, the file itself as one that is known to be sound.
TEST(FilePlaces, AreTheSameOfTheFileAndOfACopy) {
    for (unsigned seed = 0; seed < 300; ++seed) {
        const std::string text = DeceptiveText(seed).make();
        const Loaded loaded(text);
        const std::wstring copy = loaded.folder.write(L"copy.skorrax", text);
        const std::string strict = placesOf(FilePlaces(loaded.document, copy), rootElement(loaded.document));
        EXPECT_EQ(placesOf(FilePlaces(loaded.document, loaded.path), rootElement(loaded.document)), strict) << text;
        EXPECT_EQ(placesAtOnce(loaded.document, loaded.path, seed), strict) << text;
        EXPECT_EQ(placesAtOnce(loaded.document, copy, seed), strict) << text;
        EXPECT_EQ(strict.find('-'), std::string::npos) << text;
    }
}

TEST(FilePlaces, AskedForAtOnceLeaveOutWhatIsInNoTree) {
    const Loaded loaded(sample);
    const Loaded other(sample);
    const ElementView root = rootElement(loaded.document);
    const std::vector<ElementView> asked = {root.firstChild(), ElementView(), rootElement(other.document), root};
    const auto places = XMLConfig::placesOf(asked, loaded.document, loaded.path);
    ASSERT_EQ(places.size(), 4u);
    EXPECT_EQ(textOf(places[0]) + textOf(places[1]) + textOf(places[2]) + textOf(places[3]), "5:3 - - 4:1 ");
    EXPECT_TRUE(XMLConfig::placesOf({}, loaded.document, loaded.path).empty());
}

TEST(FilePlaces, AskedForAtOnceAreThoseOfTheFileAsItIsNow) {
    const Loaded loaded("<C>\n<S ID=\"1\"/>\n</C>");
    const auto place = [&] {
        return textOf(XMLConfig::placesOf({rootElement(loaded.document).firstChild()}, loaded.document, loaded.path).at(0));
    };
    EXPECT_EQ(place(), "2:1 ");
    for (const char* const text :
         {"<C>\n\n<T/>\n <S ID=\"1\"/></C>", "<C>\n<T/>\n\n <S ID='1'/></C>", "<C>\n\n\n <S ID='1'/></C>"}) {
        loaded.folder.write(L"input.skorrax", text);
        EXPECT_EQ(place(), "4:2 ");
    }
    loaded.folder.write(L"input.skorrax", "<C>\n\n<T/>\n <S ID=\"1\"/></D>");
    EXPECT_STARTS_WITH(messageOf(place), L"Error FilePlaces: " + loaded.path + L": line 4, column 15");
}

TEST(FilePlaces, AreThoseOfTheFileAsItIsNow) {
    const Loaded loaded("<C>\n<S ID=\"1\"/>\n</C>");
    loaded.folder.write(L"input.skorrax", "<C>\n\n<T/>\n <S ID=\"1\"/></C>");
    EXPECT_EQ(loaded.placeOf(L"S[1]"), "4:2");
    loaded.folder.write(L"input.skorrax", "<C>\n\n<T/>\n <S ID=\"1\"/></D>");
    EXPECT_STARTS_WITH(messageOf([&] { const FilePlaces places(loaded.document, loaded.path); }), L"Error FilePlaces: ");
}

TEST(FilePlaces, AreThoseOfWhatWasSaved) {
    Loaded loaded("<C><S ID=\"1\"/><S ID=\"2\"/></C>");
    set(loaded.document, L"S", L"A", L"1", L"2");
    loaded.document.save(loaded.path);
    EXPECT_NE(loaded.placeOf(L"S[2]/A"), "");
}

TEST(FilePlaces, LeaveTheDocumentAsItIs) {
    Loaded loaded(sample);
    const Untouched before(loaded.document);
    EXPECT_EQ(loaded.placeOf(L"S[2]"), "12:3");
    EXPECT_TRUE(before.unchanged());
}

}  // namespace storetests
