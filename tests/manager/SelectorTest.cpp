#include "manager/Selector.h"

#include <gtest/gtest.h>

#include "store/ConfigInfo.h"
#include "tests/support/CurrentFile.h"

namespace {

using Texts = std::vector<std::wstring>;

const char* const hall = R"(<ConfigInfo><Version>9.000</Version>
<Camera ID="PGR***7"><Name>Front</Name></Camera>
<Projector ID="VELDAR***0a:01"><Name>Left</Name></Projector>
<Projector ID="VELDAR***0b:01"><Name>#4</Name></Projector>
<Projector ID="VELDAR***0b:02"><Name>Right</Name></Projector>
<Projector ID="*"><Name>Right</Name></Projector>
<Projector ID="0b:02"><Name>VELDAR***0a:01</Name></Projector>
</ConfigInfo>)";

class Selector : public testing::Test {
protected:
    /// The places that an address means, as text; "?" and the candidates where it fits several.
    Texts selected(const std::wstring& text, const std::string& content = hall) const {
        const std::unique_ptr<ConfigInfo> document = ConfigInfo::fromText(content, L"hall");
        const XMLConfig::Selection selection = XMLConfig::select(*document, XMLConfig::parseAddress(text));
        Texts texts;
        for (const XMLConfig::Address& place : selection.places) texts.push_back(XMLConfig::addressText(place));
        if (!selection.candidates.empty()) texts.push_back(L"?");
        texts.insert(texts.end(), selection.candidates.begin(), selection.candidates.end());
        return texts;
    }
};

}  // namespace

TEST_F(Selector, ExactIdComesFirst) {
    EXPECT_EQ(selected(L"Projector[VELDAR***0a:01]/Gamma"), Texts{L"Projector[VELDAR***0a:01]/Gamma"});
    EXPECT_EQ(selected(L"Projector[*]/Gamma"), Texts{L"Projector[*]/Gamma"});
    EXPECT_EQ(selected(L"Projector[0b:02]/Gamma"), Texts{L"Projector[0b:02]/Gamma"});
}

TEST_F(Selector, StarIsEveryDeviceInDocumentOrder) {
    const std::string two = currentFile("<Projector ID=\"b\"/><Projector ID=\"a\"/>");
    EXPECT_EQ(selected(L"Projector[*]/A/B", two), (Texts{L"Projector[b]/A/B", L"Projector[a]/A/B"}));
    EXPECT_EQ(selected(L"Camera[*]/Name", two), Texts{});
}

TEST_F(Selector, NumberComesBeforeAName) {
    EXPECT_EQ(selected(L"Projector[#3]"), Texts{L"Projector[VELDAR***0b:02]"});
    EXPECT_EQ(selected(L"Projector[#4]"), Texts{L"Projector[*]"});
    EXPECT_EQ(selected(L"Projector[#6]"), Texts{});
    EXPECT_EQ(selected(L"Projector[#0]"), Texts{});
    EXPECT_EQ(selected(L"Projector[#]"), Texts{});
    EXPECT_EQ(selected(L"Projector[#99999999999999999999]"), Texts{});
}

TEST_F(Selector, NameMustFitExactlyAndOnce) {
    EXPECT_EQ(selected(L"Projector[Left]/Gamma"), Texts{L"Projector[VELDAR***0a:01]/Gamma"});
    EXPECT_EQ(selected(L"Projector[left]/Gamma"), Texts{});
    EXPECT_EQ(selected(L"Projector[Right]/Gamma"), (Texts{L"?", L"VELDAR***0b:02", L"*"}));
}

TEST_F(Selector, EndingStandsAfterColonOrStars) {
    EXPECT_EQ(selected(L"Projector[0a:01]"), Texts{L"Projector[VELDAR***0a:01]"});
    EXPECT_EQ(selected(L"Projector[01]"), (Texts{L"?", L"VELDAR***0a:01", L"VELDAR***0b:01"}));
    EXPECT_EQ(selected(L"Projector[1]"), Texts{});
    EXPECT_EQ(selected(L"Camera[7]"), Texts{L"Camera[PGR***7]"});
}

TEST_F(Selector, WithoutBracketsItIsTheOnlyDevice) {
    EXPECT_EQ(selected(L"Camera/Name"), Texts{L"Camera[PGR***7]/Name"});
    EXPECT_EQ(selected(L"Projector/Name").size(), 6u);
    EXPECT_EQ(selected(L"Projector/Name").front(), L"?");
}

TEST_F(Selector, DeviceWithoutAnIdIsReachedAsTheFirstOnly) {
    const std::string lone = currentFile("<Projector/>");
    EXPECT_EQ(selected(L"Projector/Name", lone), Texts{L"Projector/Name"});
    const std::string twins = currentFile("<Projector ID=\"a\"/><Projector ID=\"a\"/><Projector/>");
    EXPECT_EQ(selected(L"Projector[*]", twins), Texts{L"Projector[a]"});
    EXPECT_EQ(selected(L"Projector[#2]", twins), Texts{});
    EXPECT_EQ(selected(L"Projector[#3]", twins), Texts{});
}

TEST_F(Selector, DevicesOutOfReachAreNotCounted) {
    const std::string hidden = currentFile(
        "<Projector><Name>x</Name></Projector><Projector ID=\"a\"/><Projector ID=\"a\"><Name>x</Name></Projector>"
        "<Projector/><Projector ID=\"b\"/>");
    EXPECT_EQ(selected(L"Projector[*]", hidden), (Texts{L"Projector", L"Projector[a]", L"Projector[b]"}));
    EXPECT_EQ(selected(L"Projector[#1]", hidden), Texts{L"Projector[a]"});
    EXPECT_EQ(selected(L"Projector[#2]", hidden), Texts{L"Projector[b]"});
    EXPECT_EQ(selected(L"Projector[#3]", hidden), Texts{});
    EXPECT_EQ(selected(L"Projector[x]/Name", hidden), Texts{L"Projector/Name"});
    const std::string same = currentFile("<Camera ID=\"c\"/><Camera ID=\"c\"/>");
    EXPECT_EQ(selected(L"Camera/Name", same), Texts{L"Camera[c]/Name"});
}

TEST_F(Selector, OtherSectionsAreTakenAsTheyAre) {
    EXPECT_EQ(selected(L"System/RunType"), Texts{L"System/RunType"});
    EXPECT_EQ(selected(L"System[*]/RunType"), Texts{L"System[*]/RunType"});
}
