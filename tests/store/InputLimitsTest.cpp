#include <ctime>

#include "platform/Text.h"
#include "tests/store/BadFileSupport.h"

namespace storetests {

namespace {

std::string attributes(int count, const std::string& prefix = "a") {
    std::string text;
    for (int i = 0; i < count; ++i) text += " " + prefix + std::to_string(i) + "=\"v" + std::to_string(i) + "\"";
    return text;
}

std::string namespaces(int count, const std::string& name) { return attributes(count, "xmlns:" + name); }

std::wstring placeAndReason(const std::string& text) {
    const TemporaryFolder folder;
    const std::wstring message = loadMessage(folder.write(L"a.skorrax", text));
    const std::size_t place = message.find(L"line ");
    return place == std::wstring::npos ? message : message.substr(place);
}

std::string fileOf(int count, std::string (*element)(int)) {
    std::string text = "<ConfigInfo>";
    for (int i = 0; i < count; ++i) text += element(i);
    return text + "</ConfigInfo>";
}

/// Of the processor, so that other programs do not count.
double secondsToLoad(const std::string& text) {
    const TemporaryFolder folder;
    const auto path = folder.write(L"a.skorrax", text);
    const std::clock_t start = std::clock();
    const ConfigInfo document(path);
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

void expectOrdinaryTime(std::string (*element)(int), std::string (*ordinary)(int)) {
    const std::string text = fileOf(200000, element);
    const std::string sameSize = fileOf(static_cast<int>(text.size() / ordinary(0).size()), ordinary);
    EXPECT_LT(secondsToLoad(text), 20 * secondsToLoad(sameSize)) << text.substr(0, 100);
}

std::string section(int /*number*/) { return "<Projector/>"; }

}  // namespace

TEST(InputLimits, AThousandAttributesOfAnElement) {
    const std::string start = "<ConfigInfo>\n <S";
    const Document document = load(start + attributes(1000) + "/></ConfigInfo>");
    const std::string saved = savedText(*document);
    EXPECT_CONTAINS(saved, " a0=\"v0\"");
    EXPECT_CONTAINS(saved, " a999=\"v999\"");
    EXPECT_EQ(savedText(*load(saved)), saved);
    const std::string text = start + attributes(1001) + "/></ConfigInfo>";
    const std::wstring column = std::to_wstring(text.find("/>") + 3 - text.find('\n') - 1);
    EXPECT_EQ(placeAndReason(text), L"line 2, column " + column + L": An element has more than 1000 attributes");
    expectMalformed("<ConfigInfo" + attributes(1001) + "/>", "at the root");
}

TEST(InputLimits, AMillionNamesOfElements) {
    const TemporaryFolder folder;
    (void)ConfigInfo(folder.write(L"a.skorrax", "<ConfigInfo><a2/><a3/><c/></ConfigInfo>"));  // names that the parser keeps
    std::string text = "<ConfigInfo>";
    for (int i = 1; i < 1000000; ++i) text += "<a" + std::to_string(i) + "/>";
    text += "<a1/>\n<b/></ConfigInfo>";
    EXPECT_EQ(placeAndReason(text), L"line 2, column 5: The elements have more than 1000000 different names");
}

// A quote that is missing is seen in the next tag, which may be far away.
TEST(MalformedAttribute, IsToldWhereItGoesWrong) {
    EXPECT_STARTS_WITH(placeAndReason("<ConfigInfo>\n<S ID=\"1>\n<A/>\n<B ID=\"2\"/>\n</S></ConfigInfo>"),
                       L"line 3, column 2: '<'");
}

TEST(InputLimits, AThousandAttributesOfAFragment) {
    ConfigInfo document;
    const auto store = [&](int count) {
        const std::string text = "<a" + attributes(count) + "/>";
        document.setStringItemAsDOMElement(L"S", L"A", std::wstring(text.begin(), text.end()), L"");
    };
    store(1000);
    EXPECT_EQ(savedText(*reloaded(document)), savedText(document));
    EXPECT_CONTAINS(messageOf([&] { store(1001); }), L"An element has more than 1000 attributes");
}

TEST(InputLimits, AThousandNamespacesAroundAnElement) {
    const auto nested = [](int outer, int inner) {
        return "<ConfigInfo" + namespaces(outer, "p") + "><S/><S>\n<A" + namespaces(inner, "q") + "/></S></ConfigInfo>";
    };
    EXPECT_EQ(load(nested(400, 600))->getSectionCount(L"S"), 2);
    EXPECT_STARTS_WITH(placeAndReason(nested(400, 601)), L"line 2, column ");
    EXPECT_CONTAINS(placeAndReason(nested(400, 601)), L": More than 1000 namespaces are declared");
    expectMalformed(nested(1001, 0), "at the root");
    std::string many = "<ConfigInfo>";
    for (int i = 0; i < 3000; ++i) many += "<d xmlns=\"urn:d\" xmlns:p" + std::to_string(i) + "=\"urn:p\"><e/></d>";
    EXPECT_EQ(load(many + "</ConfigInfo>")->getSectionCount(L"d"), 3000);
}

TEST(InputLimits, CountTheNamespacesAroundAFragment) {
    const auto stored = [](const std::wstring& section, const std::wstring& key, int count) {
        const Document document = load("<ConfigInfo" + namespaces(100, "r") + "><S ID=\"1\"" + namespaces(100, "s") + "><A" +
                                       namespaces(100, "a") + "/></S></ConfigInfo>");
        const std::string text = "<f><g" + namespaces(count, "f") + "/></f>";
        document->setStringItemAsDOMElement(section, key, std::wstring(text.begin(), text.end()), L"1");
        EXPECT_EQ(savedText(*reloaded(*document)), savedText(*document));
    };
    stored(L"S", L"A", 700);
    stored(L"S", L"A|B", 700);
    stored(L"S", L"B", 800);
    stored(L"T", L"B", 900);
    const std::wstring rest = L"\": at most 1000 namespaces may be declared in an element and those around it";
    EXPECT_EQ(messageOf([&] { stored(L"S", L"A", 701); }), L"Error setItem: section \"S\" [1], key \"A" + rest);
    EXPECT_EQ(messageOf([&] { stored(L"S", L"A|B", 701); }), L"Error setItem: section \"S\" [1], key \"A|B" + rest);
    EXPECT_EQ(messageOf([&] { stored(L"S", L"B", 801); }), L"Error setItem: section \"S\" [1], key \"B" + rest);
    EXPECT_EQ(messageOf([&] { stored(L"T", L"B", 901); }), L"Error setItem: section \"T\" [1], key \"B" + rest);
}

TEST(InputLimits, OfOneTagAreFoundBeforeItsEnd) {
    std::string text = "<ConfigInfo><S" + namespaces(20000, "p");
    for (int i = 0; i < 20000; ++i) text += " p" + std::to_string(i) + ":a=\"1\"";
    expectMalformed(text + "/></ConfigInfo>", "namespaces and attributes of them");
}

TEST(InputLimits, DistinctNamesTakeAnOrdinaryTime) {
    expectOrdinaryTime([](int i) { return "<t" + std::to_string(i) + "/>"; }, section);
    expectOrdinaryTime([](int i) { return "<t a" + std::to_string(i) + "=\"1\"/>"; }, section);
    expectOrdinaryTime([](int i) { return "<t xmlns=\"u" + std::to_string(i) + "\"/>"; }, section);
}

}  // namespace storetests
