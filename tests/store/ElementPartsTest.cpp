#include "store/ElementParts.h"

#include "store/Document.h"
#include "store/DocumentWriter.h"
#include "tests/store/StoreSupport.h"
#include "tests/store/TreeSupport.h"
#include "tests/support/RandomChoice.h"

// An element that is stored by its parts is held against the same element stored as XML text, which is parsed.

namespace storetests {

namespace {

using XMLConfig::detail::ElementParts;

ElementParts deviceParts(const std::wstring& value) {
    ElementParts parts;
    parts.begin(L"device").attribute(L"UID", value).attribute(L"name", L"");
    return parts.text(L"\t").element(L"id", value).element(L"mac", L"").end();
}

class RandomParts : RandomChoice {
public:
    explicit RandomParts(unsigned seed) : RandomChoice(seed) {}

    ElementParts element() {
        ElementParts parts;
        add(parts, 0);
        return parts;
    }

private:
    std::wstring name() { return std::wstring(1 + below(2), static_cast<wchar_t>(L'a' + below(4))); }

    /// Mostly what a parser leaves as it is.
    std::wstring value() {
        static const std::wstring usual = L"x1 <>&\"'\u20ac\U0001f600]";
        static const std::wstring rare = L"\t\n\r\v\x01\x7f\x85\u2028\ufffe\U0010ffff";
        std::wstring text;
        for (std::size_t count = below(6); count > 0; --count)
            text += below(30) == 0 ? rare[below(rare.size())] : usual[below(usual.size())];
        return text;
    }

    void add(ElementParts& parts, int level) {
        parts.begin(name());
        for (const wchar_t* attribute : {L"z", L"a", L"UID"})
            if (below(3) == 0) parts.attribute(attribute, value());
        for (std::size_t count = below(4); count > 0; --count) {
            if (below(2) == 0) parts.text(value());
            if (level < 3) add(parts, level + 1);
        }
        parts.end();
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

TEST(ElementParts, TellTheirText) {
    EXPECT_EQ(deviceParts(L"a<\"&").xml(),
              L"<device UID=\"a&lt;&quot;&amp;\" name=\"\">\t<id>a&lt;&quot;&amp;</id><mac></mac></device>");
}

TEST(ElementParts, AreStoredAsTheirText) {
    RandomParts random(7);
    int refused = 0;
    int plain = 0;
    for (int i = 0; i < 20000 && !testing::Test::HasFailure(); ++i) {
        const ElementParts first = random.element();
        const ElementParts second = random.element();
        SCOPED_TRACE(i);
        const Document byParts = ConfigInfo::fromText("<ConfigInfo><S/></ConfigInfo>", L"");
        const Document byText = ConfigInfo::fromText("<ConfigInfo><S/></ConfigInfo>", L"");
        for (const ElementParts* parts : {&first, &second}) {
            const std::string expected =
                outcome(*byText, [&] { byText->setStringItemAsDOMElement(L"S", L"A|B", parts->xml(), L""); });
            EXPECT_EQ(outcome(*byParts, [&] { setElementItem(*byParts, L"S", L"A|B", *parts, L""); }), expected);
            refused += expected.compare(0, 5, "Error") == 0 ? 1 : 0;
            plain += parts->isPlain() ? 1 : 0;
        }
    }
    EXPECT_GT(refused, 1000);
    EXPECT_GT(plain, 10000);
}

TEST(ElementParts, AreStoredAlikeWithoutLinks) {
    const auto stored = [] {
        ConfigInfo document;
        setElementItem(document, L"S", L"A", deviceParts(L"00:0a"), L"1");
        return savedText(document);
    };
    const std::string byLinks = stored();
    const PublicFunctionsOnly without;
    EXPECT_EQ(stored(), byLinks);
}

TEST(ElementParts, AreRefusedAsTheirText) {
    ConfigInfo document;
    EXPECT_CONTAINS(messageOf([&] { setElementItem(document, L"S", L"A", deviceParts(L"a\x01"), L"1"); }),
                    L"section \"S\" [1], key \"A\": the value holds the character U+0001 (number 15)");
    EXPECT_EQ(document.getSectionCount(L"S"), 0);
}

TEST(ElementParts, MayNotLieTooDeep) {
    ElementParts deep;
    for (int i = 0; i < 998; ++i) deep.begin(L"a");
    for (int i = 0; i < 998; ++i) deep.end();
    ConfigInfo document;
    EXPECT_CONTAINS(messageOf([&] { setElementItem(document, L"S", L"A", deep, L""); }), L"1000 levels deep at most");
    EXPECT_EQ(document.getSectionCount(L"S"), 0);
}

}  // namespace storetests
