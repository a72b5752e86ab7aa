#include "manager/StoredTexts.h"

#include <gtest/gtest.h>

#include "tests/support/CurrentFile.h"
#include "tests/support/TestDocument.h"

namespace {

using XMLConfig::Address;
using XMLConfig::ElementView;
using XMLConfig::StoredText;
using XMLConfig::storedTexts;
using Lines = std::vector<std::wstring>;

const std::string xml = currentFile(
    "<Projector ID=\"a]b\"><Gamma>2.2</Gamma><Designed><Frustum><FOVLeft>0.5</FOVLeft></Frustum></Designed>"
    "<DeviceSnippet><device UID=\"X***1\"><lens type=\"w\"/><lens>\n  zoom </lens></device></DeviceSnippet></Projector>"
    "<ProjectorApprovedSlots><Slot ID=\"3\"><Status>1</Status></Slot><Slot ID=\"4\"/></ProjectorApprovedSlots>"
    "<Own><Part ID=\"p\"><Inner ID=\"i\">x</Inner></Part><Gamma>1</Gamma><Gamma>2</Gamma></Own>"
    "<Screen/>");

ElementView sectionOf(const TestDocument& document, const std::wstring& tag) {
    return XMLConfig::sectionElements(*document, tag).at(0);
}

Lines linesOf(const std::vector<StoredText>& texts) {
    Lines lines;
    for (const StoredText& text : texts) lines.push_back(text.path + L"=" + text.text);
    return lines;
}

}  // namespace

TEST(StoredTexts, OfASectionHaveAddressesInDocumentOrder) {
    const TestDocument document(xml);
    const Address place{L"Projector", L"a]b", L"", L"", L""};
    EXPECT_EQ(linesOf(storedTexts(sectionOf(document, L"Projector"), place, addressText(place))),
              (Lines{L"Projector[a]]b]/Gamma=2.2", L"Projector[a]]b]/Designed/Frustum/FOVLeft=0.5",
                     L"Projector[a]]b]/DeviceSnippet/device@UID=X***1", L"Projector[a]]b]/DeviceSnippet/device/lens@type=w",
                     L"Projector[a]]b]/DeviceSnippet/device/lens=", L"Projector[a]]b]/DeviceSnippet/device/lens#2=zoom"}));
}

TEST(StoredTexts, WithoutAStartHavePathsInsideTheElement) {
    const TestDocument document(xml);
    EXPECT_EQ(linesOf(storedTexts(sectionOf(document, L"ProjectorApprovedSlots"),
                                  {L"ProjectorApprovedSlots", L"", L"", L"", L""}, L"")),
              (Lines{L"Slot[3]/Status=1", L"Slot[4]="}));
}

TEST(StoredTexts, KeepIDsOfSubsectionsAloneAndEveryNamesake) {
    const TestDocument document(xml);
    const std::vector<StoredText> texts = storedTexts(sectionOf(document, L"Own"), {L"Own", L"", L"", L"", L""}, L"");
    EXPECT_EQ(linesOf(texts), (Lines{L"Part[p]/Inner=x", L"Gamma=1", L"Gamma=2"}));
    EXPECT_EQ(addressText(texts[0].place), L"Own/Part[p]/Inner");
    EXPECT_EQ(texts[2].element.text(), L"2");
}

TEST(StoredTexts, OfAnEmptySectionAreItsOwnText) {
    const TestDocument document(xml);
    EXPECT_EQ(linesOf(storedTexts(sectionOf(document, L"Screen"), {L"Screen", L"", L"", L"", L""}, L"Screen")),
              Lines{L"Screen="});
}

TEST(StoredTexts, TellTheSettingAndWhatStandsInASnippet) {
    const TestDocument document(xml);
    const std::vector<StoredText> texts =
        storedTexts(sectionOf(document, L"Projector"), {L"Projector", L"a]b", L"", L"", L""}, L"");
    ASSERT_EQ(texts.size(), 6u);
    ASSERT_NE(texts[0].setting, nullptr);
    EXPECT_EQ(texts[0].setting->key, L"Gamma");
    EXPECT_EQ(texts[2].setting, nullptr);
    EXPECT_FALSE(texts[1].inSnippet);
    EXPECT_TRUE(texts[2].inSnippet);
    EXPECT_EQ(texts[2].place.key, L"DeviceSnippet");
}
