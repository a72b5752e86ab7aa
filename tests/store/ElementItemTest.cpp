#include "store/ElementItem.h"

#include <utility>
#include <vector>

#include "store/Document.h"
#include "store/DocumentWriter.h"
#include "store/NewElement.h"
#include "tests/store/StoreSupport.h"
#include "tests/store/TreeSupport.h"
#include "tests/support/RandomChoice.h"

// An element that is stored as it is told is held against the same element stored as XML text, which is parsed.

namespace storetests {

namespace {

using XMLConfig::detail::isPlain;
using XMLConfig::detail::setElementItem;
using XMLConfig::detail::StoredElement;
using XMLConfig::detail::xmlOf;

StoredElement device(const std::wstring& value) {
    return {L"device", {{L"UID", value}, {L"name", L""}}, L"\t", {{L"id", {}, value, {}}, {L"mac", {}, {}, {}}}};
}

class RandomElements : RandomChoice {
public:
    explicit RandomElements(unsigned seed) : RandomChoice(seed) {}

    StoredElement element(int level = 0) {
        StoredElement made{name(), {}, {}, {}};
        for (const wchar_t* attribute : {L"z", L"a", L"UID"})
            if (below(3) == 0) made.attributes.emplace_back(attribute, value());
        if (below(2) == 0) made.text = value();
        for (std::size_t count = level < 3 ? below(4) : 0; count > 0; --count) made.children.push_back(element(level + 1));
        return made;
    }

private:
    std::wstring name() { return std::wstring(1 + below(2), static_cast<wchar_t>(L'a' + below(4))); }

    /// Mostly what a parser leaves as it is. Whole characters: one of them takes two places where wide text has 16 bits.
    std::wstring value() {
        static const std::vector<std::wstring> usual{L"x",  L"1", L" ",      L"<",          L">", L"&",
                                                     L"\"", L"'", L"\u20ac", L"\U0001f600", L"]"};
        static const std::vector<std::wstring> rare{L"\t",   L"\n",   L"\r",     L"\v",     L"\x01",
                                                    L"\x7f", L"\x85", L"\u2028", L"\ufffe", L"\U0010ffff"};
        std::wstring text;
        for (std::size_t count = below(6); count > 0; --count) text += anyOf(below(30) == 0 ? rare : usual);
        return text;
    }
};

/// The document, and what storing something in it was refused with.
template <typename Store>
std::string outcome(ConfigInfo& document, Store&& store) {
    std::string text;
    try {
        store();
    } catch (const CorvaneException& refused) {
        text = refused.what();
    }
    text += document.isDirty() ? " dirty " : " clean ";
    XMLConfig::detail::writeDocument(XMLConfig::detail::Document::of(document).tree(),
                                     [&text](std::string_view piece) { text += piece; });
    return text;
}

}  // namespace

TEST(ElementItem, IsToldAsXmlText) {
    EXPECT_EQ(xmlOf(device(L"a<\"&")),
              L"<device UID=\"a&lt;&quot;&amp;\" name=\"\">\t<id>a&lt;&quot;&amp;</id><mac></mac></device>");
}

TEST(ElementItem, IsStoredAsItsText) {
    RandomElements random(7);
    int refused = 0;
    int plain = 0;
    for (int i = 0; i < 20000 && !testing::Test::HasFailure(); ++i) {
        const StoredElement first = random.element();
        const StoredElement second = random.element();
        SCOPED_TRACE(i);
        const Document asTold = ConfigInfo::fromText("<ConfigInfo><S/></ConfigInfo>", L"");
        const Document byText = ConfigInfo::fromText("<ConfigInfo><S/></ConfigInfo>", L"");
        for (const StoredElement* element : {&first, &second}) {
            const std::string expected =
                outcome(*byText, [&] { byText->setStringItemAsDOMElement(L"S", L"A|B", xmlOf(*element), L""); });
            EXPECT_EQ(outcome(*asTold, [&] { setElementItem(*asTold, L"S", L"A|B", *element, L""); }), expected);
            refused += expected.compare(0, 5, "Error") == 0 ? 1 : 0;
            plain += isPlain(*element) ? 1 : 0;
        }
    }
    EXPECT_GT(refused, 1000);
    EXPECT_GT(plain, 10000);
}

TEST(ElementItem, IsStoredAlikeWithoutLinks) {
    const auto stored = [] {
        ConfigInfo document;
        setElementItem(document, L"S", L"A", device(L"00:0a"), L"1");
        return savedText(document);
    };
    const std::string byLinks = stored();
    const PublicFunctionsOnly without;
    EXPECT_EQ(stored(), byLinks);
}

TEST(ElementItem, EqualsItsTextWithoutLinks) {
    const PublicFunctionsOnly without;
    ConfigInfo document;
    setElementItem(document, L"S", L"A", device(L"00:0a"), L"1");
    document.setDirty(false);
    document.setStringItemAsDOMElement(L"S", L"A", xmlOf(device(L"00:0a")), L"1");
    EXPECT_FALSE(document.isDirty());
}

TEST(ElementItem, IsRefusedAsItsText) {
    ConfigInfo document;
    EXPECT_CONTAINS(messageOf([&] { setElementItem(document, L"S", L"A", device(L"a\x01"), L"1"); }),
                    L"section \"S\" [1], key \"A\": the value holds the character U+0001 (number 15)");
    EXPECT_EQ(document.getSectionCount(L"S"), 0);
}

TEST(ElementItem, MayNotLieTooDeep) {
    StoredElement deep{L"a", {}, {}, {}};
    for (int i = 1; i < 998; ++i) deep = {L"a", {}, {}, {std::move(deep)}};
    ConfigInfo document;
    EXPECT_CONTAINS(messageOf([&] { setElementItem(document, L"S", L"A", deep, L""); }), L"1000 levels deep at most");
    EXPECT_EQ(document.getSectionCount(L"S"), 0);
}

}  // namespace storetests
