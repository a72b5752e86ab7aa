#include <gtest/gtest.h>

#include "sections/ProjectorConfig.h"
#include "store/ConfigInfo.h"
#include "store/CorvaneException.h"
#include "tests/support/SettingRows.h"
#include "tests/support/TemporaryFolder.h"

using XMLConfig::tests::leavesOf;

namespace {

/// Identifiers that are no plain words.
const std::wstring oddIDs[] = {
    L"a b",  L" ",           L"say \"hi\"",           L"it's", L"a|b", L"<&>", L"Gr\u00fcn", L"日本",
    L"a\tb", L"VELDAR***00", std::wstring(200, L'i'),
};

}  // namespace

TEST(ProjectorInput, SnippetKeepsEscapedMarkup) {
    ConfigInfo document;
    ProjectorConfig projector(&document, L"1");
    const std::wstring snippet = L"<device><mac>&lt;b&gt; &amp; \"00:0a\"</mac></device>";
    projector.setDeviceSnippet(snippet);
    const std::wstring given = projector.getDeviceSnippet();
    EXPECT_NE(given.find(L"<mac>&lt;b&gt; &amp; \"00:0a\"</mac>"), std::wstring::npos) << testing::PrintToString(given);
    EXPECT_EQ(document.getStringItem(L"Projector", L"DeviceSnippet|device|mac", {}, L"1", {}, {}), L"<b> & \"00:0a\"");
    document.setDirty(false);
    projector.setDeviceSnippet(given);
    EXPECT_FALSE(document.isDirty()) << "what was given goes back as it was";
}

TEST(ProjectorInput, SnippetWithRawMarkupIsRefused) {
    ConfigInfo document;
    ProjectorConfig projector(&document, L"1");
    projector.setDeviceSnippet(L"<device>1</device>");
    document.setDirty(false);
    const auto before = leavesOf(document);
    for (const wchar_t* bad :
         {L"<device><mac><b></mac></device>", L"<device>a & b</device>", L"plain", L"<a/><b/>", L"<a"}) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(bad)));
        EXPECT_THROW(projector.setDeviceSnippet(bad), CorvaneException);
        EXPECT_EQ(leavesOf(document), before);
        EXPECT_FALSE(document.isDirty());
    }
}

TEST(ProjectorInput, EmptySnippetLeavesAStoredOneAlone) {
    ConfigInfo document;
    ProjectorConfig projector(&document, L"1");
    projector.setDeviceSnippet(L"<device>1</device>");
    projector.setDeviceSnippet(L"");
    EXPECT_EQ(document.getStringItem(L"Projector", L"DeviceSnippet|device", {}, L"1", {}, {}), L"1");
}

TEST(ProjectorInput, LongTextsAreKeptWhole) {
    ConfigInfo document;
    ProjectorConfig projector(&document, L"1");
    const std::wstring text(200, L'n');
    projector.setName(text);
    projector.setMotoBlendInitCommand(text);
    EXPECT_EQ(projector.getName(), text);
    EXPECT_EQ(projector.getMotoBlendInitCommand(), text);
}

TEST(ProjectorInput, TextsKeepMarkupAndBlanks) {
    ConfigInfo document;
    ProjectorConfig projector(&document, L"1");
    for (const wchar_t* text : {L"<b>&amp;\"'", L"  two  blanks  ", L"a|b", L"Gr\u00fcn 日本 \U0001F4FD"}) {
        projector.setName(text);
        EXPECT_EQ(projector.getName(), text);
    }
}

TEST(ProjectorInput, CharactersThatXmlCannotHoldAreRefused) {
    ConfigInfo document;
    ProjectorConfig projector(&document, L"1");
    projector.setName(L"kept");
    document.setDirty(false);
    EXPECT_THROW(projector.setName(std::wstring(L"a\x01") + L"b"), CorvaneException);
    EXPECT_EQ(projector.getName(), L"kept");
    EXPECT_FALSE(document.isDirty());
}

TEST(ProjectorInput, OddIdentifiersAddressTheirOwnSections) {
    ConfigInfo document;
    for (const std::wstring& id : oddIDs) ProjectorConfig(&document, id).initialize();
    EXPECT_EQ(document.getSectionIDs(L"Projector"), std::vector<std::wstring>(std::begin(oddIDs), std::end(oddIDs)));
    for (const std::wstring& id : oddIDs) EXPECT_EQ(ProjectorConfig(&document, id).getName(), L"Channel_" + id);
}

TEST(ProjectorInput, OddIdentifiersSurviveAFile) {
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"projectors.skorrax");
    {
        ConfigInfo document;
        for (const std::wstring& id : oddIDs) ProjectorConfig(&document, id).setGamma(1.5);
        ASSERT_TRUE(document.save(path));
    }
    ConfigInfo document(path);
    EXPECT_EQ(document.getSectionIDs(L"Projector"), std::vector<std::wstring>(std::begin(oddIDs), std::end(oddIDs)));
    for (const std::wstring& id : oddIDs) EXPECT_EQ(ProjectorConfig(&document, id).getGamma(), 1.5);
}
