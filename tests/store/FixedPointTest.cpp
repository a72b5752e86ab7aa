#include <ostream>

#include "store/ElementView.h"
#include "tests/store/StoreSupport.h"

namespace storetests {

namespace {

struct OddFile {
    const char* subject;
    std::string text;
    std::vector<std::string> kept;  ///< what the saved text holds, byte for byte
};
void PrintTo(const OddFile& file, std::ostream* out) { *out << file.subject; }

std::string root(const std::string& body) { return "<ConfigInfo>" + body + "</ConfigInfo>"; }

const OddFile oddFiles[] = {
    {"EmptyRoot", "<ConfigInfo/>", {"<ConfigInfo/>"}},
    {"EmptyRootOfTwoTags", "<ConfigInfo>\n\n</ConfigInfo>", {"<ConfigInfo/>"}},
    {"AnotherRoot", "<Anything at=\"1\"><S><A>1</A></S></Anything>", {"<Anything at=\"1\">", "</Anything>"}},
    {"OneLine", root("<Version>9.000</Version><S ID=\"1\"><A><B>x</B></A></S>"), {"      <B>x</B>\n"}},
    {"Tabs", root("\n\t<S>\n\t\t<A>1</A>\n\t</S>\n"), {"  <S>\n    <A>1</A>\n  </S>\n"}},
    {"CrLf", root("\r\n  <S>\r\n    <A>1</A>\r\n  </S>\r\n") + "\r\n", {"  <S>\n    <A>1</A>\n  </S>\n"}},
    {"BlankLines", root("\n\n\n  <S>\n\n    <A>1</A>\n \n\t\n  </S>\n\n"), {"  <S>\n    <A>1</A>\n  </S>\n"}},
    {"NoFinalNewline", "<?xml version=\"1.0\"?><ConfigInfo><S/></ConfigInfo>", {"</ConfigInfo>\n"}},
    {"Standalone", "<?xml version='1.0' encoding='utf-8' standalone='yes'?>\n<ConfigInfo><S/></ConfigInfo>", {"<S/>"}},
    {"ByteOrderMark", "\xef\xbb\xbf" + root("<S><A>1</A></S>"), {"<A>1</A>"}},
    {"Comments",
     root("<!-- a --><S><!-- b --><A>1<!-- c --></A><!--d--></S><!-- e\n   f -->"),
     {"<!-- a -->", "<!-- b -->", "<A>1<!-- c --></A>", "<!--d-->", "<!-- e\n   f -->"}},
    {"CommentsOutsideTheRoot",
     "<!-- before --><?p before?>\n\n<!--b2-->" + root("<S/>") + "<!-- after -->\n<?p after?>",
     {"<!-- before -->", "<?p before?>", "<!--b2-->", "<!-- after -->", "<?p after?>"}},
    {"CommentAlone", root("<S><A><!--only--></A></S>"), {"<!--only-->"}},
    {"CommentOfDashes", root("<!-- - - --><S/>"), {"<!-- - - -->"}},
    {"EmptyComment", root("<!----><S/>"), {"<!---->"}},
    {"CommentOfSeveralLines", root("\n  <!--\n    one\n\n    two\n  -->\n  <S/>\n"), {"<!--\n    one\n\n    two\n  -->"}},
    {"Instructions",
     root("<?pi one two?><S><?x?><A><?y spaced  data ?></A></S>"),
     {"<?pi one two?>", "<?x?>", "<?y spaced  data ?>"}},
    {"CData",
     root("<S><A><![CDATA[<a> & ]] > b]]></A><B>t<![CDATA[ x ]]>u</B><C><![CDATA[]]></C></S>"),
     {"<![CDATA[<a> & ]] > b]]>", "<B>t<![CDATA[ x ]]>u</B>"}},
    {"CDataOfSpace", root("<S><A><![CDATA[  ]]></A></S>"), {"<A><![CDATA[  ]]></A>"}},
    {"CDataBesideElements", root("<S><A><![CDATA[ ]]><B/></A></S>"), {"<![CDATA[ ]]>", "<B/>"}},
    {"NeighbouringCData", root("<S><A><![CDATA[]]]]><![CDATA[>]]></A></S>"), {"<![CDATA[]]]]><![CDATA[>]]>"}},
    {"Mixed",
     root("<S><A>text <b>bold</b> and <i>more</i>\n  lines <!-- c --> end </A></S>"),
     {"<A>text <b>bold</b> and <i>more</i>\n  lines <!-- c --> end </A>"}},
    {"MixedDeep", root("<S><A>t<B> <C> <D/> </C>\n</B></A></S>"), {"<A>t<B>", "<D/>"}},
    {"TextInTheRoot", root("stray<S><A>1</A></S> text"), {"stray", "<A>1</A>", " text"}},
    {"WhiteSpaceValues", root("<S><A> </A><B>\n</B><C>\t \n</C></S>"), {"<A> </A>"}},
    {"ValuesWithEdges", root("<S><A>  a  </A><B>\n  b\n</B></S>"), {"<A>  a  </A>", "<B>\n  b\n</B>"}},
    {"ValueOfSeveralLines", root("<S><A>one\n\n   two\n</A></S>"), {"<A>one\n\n   two\n</A>"}},
    {"References",
     root("<S a=\"&lt;&amp;&quot;&#9;&#10;&#13;\"><A>&lt;&gt;&amp;&quot;&apos;&#13;&#x41;]]&gt;</A></S>"),
     {"&lt;", "&amp;"}},
    {"SingleQuotes", root("<S a='\"' b=\"'\" c='&apos;'/>"), {" a=", " b=", " c="}},
    {"UnknownAttributes",
     root("<S  ID = '1'\n  visible=\"no\"><A unit=\"mm\" x=\"\">1</A></S>"),
     {"visible=\"no\"", "unit=\"mm\"", "x=\"\"", "ID=\"1\""}},
    {"UnknownElements",
     root("<X><Y z=\"1\"/><Y>2</Y></X><Later.Thing-1 _a=\"\"/>"),
     {"<Y z=\"1\"/>", "<Y>2</Y>", "<Later.Thing-1 _a=\"\"/>"}},
    {"Namespaces",
     "<ConfigInfo xmlns=\"urn:a\" xmlns:p=\"urn:b\"><p:S p:k=\"1\"><A xmlns=\"\">1</A></p:S></ConfigInfo>",
     {"xmlns=\"urn:a\"", "xmlns:p=\"urn:b\"", "<p:S p:k=\"1\">", "<A xmlns=\"\">1</A>"}},
    {"XmlSpace",
     root("<S xml:space=\"preserve\" xml:lang=\"de\"><A>1</A></S>"),
     {"xml:space=\"preserve\"", "xml:lang=\"de\""}},
    {"EmptyElements", root("<S><A></A><B/><C ></C ></S>"), {"    <A/>\n    <B/>\n    <C/>\n"}},
    {"Foreign",
     root("<S><\xc3\xbc>\xe6\x97\xa5\xf0\x9f\x8e\xa5</\xc3\xbc></S>"),
     {"<\xc3\xbc>\xe6\x97\xa5\xf0\x9f\x8e\xa5</\xc3\xbc>"}},
    {"Latin1",
     "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>" + root("<S><A>\xfc</A><!--\xe4--></S>"),
     {"<A>\xc3\xbc</A>", "<!--\xc3\xa4-->"}},
    {"Duplicates",
     root("<S/><S/><S ID=\"\"/><S ID=\"\"/><S><A/><A/></S>"),
     {"  <S/>\n  <S/>\n  <S ID=\"\"/>\n  <S ID=\"\"/>\n"}},
};

std::string savedOf(const std::string& text) { return savedText(*load(text)); }

class FixedPoint : public testing::TestWithParam<OddFile> {};

}  // namespace

TEST_P(FixedPoint, IsReachedByTheFirstSave) {
    const std::string once = savedOf(GetParam().text);
    std::string again = once;
    for (int round = 0; round < 10; ++round) again = savedOf(again);
    EXPECT_EQ(again, once);
}

TEST_P(FixedPoint, KeepsWhatTheLayoutDoesNotName) {
    const std::string saved = savedOf(GetParam().text);
    for (const auto& part : GetParam().kept) EXPECT_CONTAINS(saved, part);
    EXPECT_EQ(saved.compare(0, xmlHead.size(), xmlHead), 0) << saved;
    EXPECT_EQ(saved.back(), '\n');
    EXPECT_EQ(saved.find('\r'), std::string::npos);
    EXPECT_EQ(occurrences(saved, "<!--"), occurrences(GetParam().text, "<!--"));
}

TEST_P(FixedPoint, IsReachedAfterAChangeToo) {
    const Document document = load(GetParam().text);
    set(*document, L"Added", L"A|B", L"v", L"1", L"Slot", L"2");
    set(*document, L"S", L"A", L"v");
    set(*document, L"S", L"New", L"");
    const std::string once = savedText(*document);
    EXPECT_EQ(savedOf(once), once);
    EXPECT_EQ(get(*load(once), L"Added", L"A|B", L"1", L"Slot", L"2"), L"v");
    EXPECT_EQ(get(*load(once), L"S", L"A"), L"v");
}

INSTANTIATE_TEST_SUITE_P(Files, FixedPoint, testing::ValuesIn(oddFiles),
                         [](const auto& row) { return std::string(row.param.subject); });

TEST(SavedAttributes, KeepTheirValues) {
    const std::string text = root("<S a=\"&lt;&amp;&quot;'&#9;&#10;&#13; &gt;\" b=' two  blanks '/>");
    const Document document = load(savedOf(text));
    const auto attributes = XMLConfig::rootElement(*document).firstChild().attributes();
    EXPECT_EQ(attributes.at(0).second, L"<&\"'\t\n\r >");
    EXPECT_EQ(attributes.at(1).second, L" two  blanks ");
}

TEST(SavedText, OfXml11StaysXml11) {
    const std::string text = "<?xml version=\"1.1\"?>" + root("<S k=\"&#1;\"><A>&#1;&#x85;&#x2028;&#x7f;&#x9f;</A></S>");
    const std::string once = savedOf(text);
    EXPECT_EQ(once.find("<?xml version=\"1.1\" encoding=\"UTF-8\" standalone=\"no\" ?>\n"), 0u);
    EXPECT_EQ(savedOf(once), once);
    EXPECT_EQ(get(*load(once), L"S", L"A"), L"\x1\u0085\u2028\x7f\x9f");
}

TEST(SavedValues, KeepReturnsAsReferences) {
    const Document document = load(root("<S><A>a&#13;&#10;b&#13;</A></S>"));
    EXPECT_EQ(get(*load(savedText(*document)), L"S", L"A"), L"a\r\nb\r");
}

TEST(SavedText, HasNoBlankLineAfterRemovals) {
    std::string body;
    for (int i = 1; i <= 9; ++i)
        body += "\n  <P ID=\"" + std::to_string(i) + "\">\n    <T ID=\"a\">\n    </T>\n    <A>1</A>\n\n  </P>\n";
    const Document document = load(root(body));
    for (const wchar_t* id : {L"1", L"5", L"9", L"4"}) EXPECT_TRUE(document->removeSection(L"P", id));
    for (int i = 0; i < 3; ++i) EXPECT_TRUE(document->removeSubSection(L"P", L"T", L"", L""));
    EXPECT_TRUE(document->removeItem(L"P", L"A", L"3"));
    EXPECT_TRUE(document->moveSection(-1, L"P", L"8"));
    const std::string saved = savedText(*document);
    EXPECT_FALSE(hasBlankLine(saved)) << saved;
    EXPECT_EQ(savedOf(saved), saved);
    for (const wchar_t* id : {L"2", L"3", L"6", L"7", L"8"}) EXPECT_TRUE(document->removeSection(L"P", id));
    EXPECT_EQ(savedText(*document), xmlHead + "<ConfigInfo/>\n");
}

TEST(SavedText, DoesNotDependOnHowTheDocumentWasMade) {
    ConfigInfo made;
    set(made, L"S", L"A|B", L"1", L"7");
    set(made, L"S", L"A|C", L"", L"7");
    set(made, L"S", L"D", L"x", L"7", L"T", L"t");
    const std::string saved = savedText(made);
    EXPECT_EQ(savedOf(saved), saved);
    const Document grown = load(savedOf("<ConfigInfo/>"));
    set(*grown, L"S", L"A|B", L"1", L"7");
    set(*grown, L"S", L"A|C", L"", L"7");
    set(*grown, L"S", L"D", L"x", L"7", L"T", L"t");
    EXPECT_CONTAINS(saved, savedText(*grown).substr(savedText(*grown).find("  <S")));
}

TEST(SavedText, StaysTheSameWhenAValueGoesAndComesBack) {
    const Document document = load(root("<!--c--><S><A>1</A><B/></S>"));
    const std::string before = savedText(*document);
    set(*document, L"S", L"A", L"2");
    set(*document, L"S", L"A", L"1");
    set(*document, L"S", L"B", L"x");
    set(*document, L"S", L"B", L"");
    EXPECT_EQ(savedText(*document), before);
}

TEST(SavedText, DoesNotChangeWhileTheDocumentIsUsed) {
    const Document document = load(root("<S>\n <A> <B>1</B> </A>\n</S>"));
    const std::string before = savedText(*document);
    (void)get(*document, L"S", L"A");
    (void)fragment(*document, L"S", L"A");
    EXPECT_EQ(savedText(*document), before);
}

}  // namespace storetests
