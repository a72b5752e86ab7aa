#include "store/Comments.h"

#include "store/Address.h"
#include "tests/store/StoreSupport.h"

namespace storetests {
namespace {

using XMLConfig::addComment;
using XMLConfig::ElementView;
using XMLConfig::findElement;
using XMLConfig::parseAddress;
using XMLConfig::removeComment;
using XMLConfig::rootElement;

ElementView at(const Document& document, const wchar_t* address) { return findElement(*document, parseAddress(address)); }

TEST(Comments, StandAtTheEndOfEachSectionAndTravelThroughSaves) {
    const Document document = load("<ConfigInfo><S ID=\"1\"><A>1</A></S><S/><S><B>2</B></S></ConfigInfo>");
    const ElementView first = rootElement(*document).firstChild();
    EXPECT_FALSE(document->isDirty());
    addComment(*document, {rootElement(*document), first, first.next(), first.next().next()}, L" \u00e4 & <b> ");
    EXPECT_TRUE(document->isDirty());
    const std::string comment = "<!-- \u00e4 & <b> -->\n";
    const std::string saved = savedRoot("  <S ID=\"1\">\n    <A>1</A>\n    " + comment + "  </S>\n  <S>\n    " + comment +
                                        "  </S>\n  <S>\n    <B>2</B>\n    " + comment + "  </S>\n  " + comment);
    EXPECT_EQ(savedText(*document), saved);
    EXPECT_EQ(savedText(*reloaded(*document)), saved);
}

TEST(Comments, LeaveLookUpsAndChangesBehindThemAsTheyAre) {
    const Document document = load("<ConfigInfo><S ID=\"1\"><A>1</A></S></ConfigInfo>");
    EXPECT_EQ(document->getStringItem(L"S", L"A", L"", L"1", L"", L""), L"1");
    addComment(*document, {at(document, L"S[1]")}, L"c");
    document->setStringItem(L"S", L"A", L"2", L"1", L"", L"");
    document->setStringItem(L"S", L"B", L"3", L"1", L"", L"");
    EXPECT_TRUE(document->removeItem(L"S", L"A", L"1"));
    EXPECT_EQ(savedText(*document), savedRoot("  <S ID=\"1\">\n    <!--c-->\n    <B>3</B>\n  </S>\n"));
}

TEST(Comments, AreWrittenInNoneWhereOneElementHoldsNone) {
    const Document document = load("<ConfigInfo><S><A><B/></A></S></ConfigInfo>");
    const Document other = load("<ConfigInfo><S/></ConfigInfo>");
    const std::wstring fault = L"Error addComment: the element is neither the root nor a section";
    for (const ElementView& wrong :
         {at(document, L"S/A"), at(document, L"S/A/B"), ElementView(), at(other, L"S"), rootElement(*other)}) {
        EXPECT_EQ(messageOf([&] { addComment(*document, {at(document, L"S"), wrong}, L"c"); }), fault);
        EXPECT_TRUE(XMLConfig::commentsOf(*document).empty());
        EXPECT_FALSE(document->isDirty());
    }
    addComment(*document, {}, L"c");
    EXPECT_FALSE(document->isDirty());
}

TEST(Comments, RefuseTextThatCouldNotBeReadAgain) {
    const Document document = load("<ConfigInfo><S/></ConfigInfo>");
    const auto message = [&](const std::wstring& text) {
        return messageOf([&] { addComment(*document, {at(document, L"S")}, text); });
    };
    const std::wstring start = L"Error addComment: a comment: the text ";
    for (const wchar_t* text : {L"a--b", L"--"})
        EXPECT_EQ(message(text), start + L"holds \"--\", which would end it early") << text;
    for (const wchar_t* text : {L"a-", L"-"})
        EXPECT_EQ(message(text), start + L"ends with \"-\", which would end it early") << text;
    EXPECT_EQ(message(L"a\x01"), start + L"holds the character U+0001 (number 2), which XML cannot hold");
    EXPECT_EQ(message(L"a\r"), start + L"holds the character U+000D, which a comment cannot hold");
    EXPECT_EQ(message(std::wstring(1, wchar_t(0x85))), start + L"holds the character U+0085, which a comment cannot hold");
    EXPECT_FALSE(document->isDirty());
    EXPECT_EQ(savedText(*document), savedRoot("  <S/>\n"));
    for (const wchar_t* text : {L"", L"-a", L"a - b\t\nc "}) addComment(*document, {at(document, L"S")}, text);
    EXPECT_EQ(XMLConfig::commentsOf(*reloaded(*document)).size(), 3u);
}

TEST(Comments, AreListedAsTheyAreAfterEachChange) {
    const Document document = load("<!--a--><ConfigInfo><!--b--><S><A>1<!--c-->2</A></S></ConfigInfo><!--d-->");
    const auto listed = [&] {
        std::wstring texts;
        for (const auto& comment : XMLConfig::commentsOf(*document)) texts += comment.text;
        return texts;
    };
    EXPECT_EQ(listed(), L"bc");
    document->setStringItem(L"S", L"B", L"3", L"", L"", L"");
    EXPECT_EQ(listed(), L"bc");
    addComment(*document, {at(document, L"S")}, L"e");
    EXPECT_EQ(listed(), L"bce");
    document->setStringItem(L"S", L"A", L"4", L"", L"", L"");
    EXPECT_EQ(listed(), L"be");
    removeComment(*document, rootElement(*document), L"b");
    EXPECT_EQ(listed(), L"e");
}

TEST(Comments, AreTakenAwayWhereTheirTextIsThat) {
    const Document document = load("<ConfigInfo><!--c--><S><!--c--><A><!--c--></A><!--d--><!--c--></S></ConfigInfo>");
    EXPECT_EQ(removeComment(*document, at(document, L"S"), L"e"), 0u);
    EXPECT_FALSE(document->isDirty());
    EXPECT_EQ(removeComment(*document, at(document, L"S"), L"c"), 2u);
    EXPECT_TRUE(document->isDirty());
    EXPECT_EQ(savedText(*document),
              savedRoot("  <!--c-->\n  <S>\n    <A>\n      <!--c-->\n    </A>\n    <!--d-->\n  </S>\n"));
    EXPECT_EQ(removeComment(*document, rootElement(*document), L"c"), 1u);
    EXPECT_EQ(messageOf([&] { removeComment(*document, at(document, L"S/A"), L"c"); }),
              L"Error removeComment: the element is neither the root nor a section");
}

}  // namespace
}  // namespace storetests
