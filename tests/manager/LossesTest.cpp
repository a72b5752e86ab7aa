#include "manager/upgrade/Losses.h"

#include <gtest/gtest.h>

#include "tests/support/CurrentFile.h"
#include "tests/support/TestDocument.h"

using XMLConfig::DeviceWithNewID;
using XMLConfig::LostDevice;
using XMLConfig::UpgradeChange;
using XMLConfig::UpgradeReceipt;
using XMLConfig::detail::danglingReferences;
using XMLConfig::detail::devicesOf;
using XMLConfig::detail::lostOf;
using XMLConfig::detail::renamedOf;

namespace {

using Kind = UpgradeChange::Kind;

const std::vector<LostDevice> devices{{L"Projector", L"1", L"left", 3, {}}, {L"Camera", L"1", L"upper", 2, L"7"}};

UpgradeReceipt receiptOf(const std::vector<UpgradeChange>& changes) {
    UpgradeReceipt receipt;
    receipt.stepDone({9.0, L"a step", changes});
    return receipt;
}

UpgradeChange change(Kind kind, const wchar_t* section, const wchar_t* id, const wchar_t* key = L"") {
    return {kind, section, id, key, {}, {}, {}, {}};
}

UpgradeChange renaming(const wchar_t* section, const wchar_t* oldID, const wchar_t* newID) {
    return {Kind::Renamed, section, oldID, {}, oldID, newID, {}, {}};
}

TestDocument documentOf(const std::string& sections) { return TestDocument(currentFile(sections)); }

}  // namespace

TEST(DevicesOfADocument, AreItsProjectorsAndThenItsCameras) {
    const TestDocument document = documentOf(
        "<Camera ID=\"c\"><Name>upper</Name><CameraType>7</CameraType></Camera><Screen><Name>no</Name></Screen>"
        "<Projector ID=\"p\"><Resolution_X>1400</Resolution_X></Projector>");
    const auto found = devicesOf(*document);
    ASSERT_EQ(found.size(), 2u);
    EXPECT_EQ(found[0].section, L"Projector");
    EXPECT_EQ(found[0].id, L"p");
    EXPECT_EQ(found[0].name, L"");
    EXPECT_EQ(found[0].settings, 1u);
    EXPECT_EQ(found[1].section, L"Camera");
    EXPECT_EQ(found[1].name, L"upper");
    EXPECT_EQ(found[1].type, L"7");
    EXPECT_EQ(found[1].settings, 2u);
}

TEST(LostDevices, AreTheRemovedSectionsAmongThem) {
    const auto lost = lostOf(devices, receiptOf({change(Kind::Removed, L"Camera", L"1")}));
    ASSERT_EQ(lost.size(), 1u);
    EXPECT_EQ(lost[0].name, L"upper");
    EXPECT_EQ(lost[0].type, L"7");
}

TEST(LostDevices, AreNeitherItemsNorOtherSectionsNorOtherChanges) {
    EXPECT_TRUE(
        lostOf(devices, receiptOf({change(Kind::Removed, L"Camera", L"1", L"Model"), change(Kind::Removed, L"Camera", L"2"),
                                   change(Kind::Removed, L"Screen", L"1"), change(Kind::Changed, L"Camera", L"1")}))
            .empty());
}

TEST(RenamedDevices, HaveTheNameThatTheyHadBefore) {
    const auto renamed = renamedOf(devices, receiptOf({renaming(L"Camera", L"1", L"PGR***a")}));
    ASSERT_EQ(renamed.size(), 1u);
    EXPECT_EQ(renamed[0].name, L"upper");
    EXPECT_EQ(renamed[0].oldID, L"1");
    EXPECT_EQ(renamed[0].newID, L"PGR***a");
}

TEST(RenamedDevices, HaveNoNameWhereTheyWereNotThereBefore) {
    const auto renamed = renamedOf(devices, receiptOf({renaming(L"Camera", L"2", L"PGR***b")}));
    ASSERT_EQ(renamed.size(), 1u);
    EXPECT_EQ(renamed[0].name, L"");
    EXPECT_EQ(renamed[0].newID, L"PGR***b");
}

TEST(DanglingReferences, AreToldForRenamedCamerasAlone) {
    const TestDocument document = documentOf("<Color><CameraOrder>1,2,3</CameraOrder></Color><Projector ID=\"1\"/>");
    EXPECT_TRUE(danglingReferences(*document, {}).empty());
    EXPECT_TRUE(danglingReferences(*document, {{L"Projector", {}, L"1", L"a"}}).empty());
    EXPECT_TRUE(danglingReferences(*document, {{L"Camera", {}, L"4", L"d"}}).empty());
}

TEST(DanglingReferences, TellTheValueWithTheNewIDs) {
    const TestDocument document = documentOf(
        "<Color><Other/><CameraOrder>1,2,3</CameraOrder></Color>"
        "<Projector ID=\"a\"><Associated_Camera_Id_1>3</Associated_Camera_Id_1>"
        "<Associated_Camera_Id_2>2</Associated_Camera_Id_2></Projector>");
    const auto found = danglingReferences(*document, {{L"Camera", {}, L"1", L"x"}, {L"Camera", {}, L"2", L"y"}});
    ASSERT_EQ(found.size(), 2u);
    EXPECT_EQ(found[0].value, L"1,2,3");
    EXPECT_EQ(found[0].newValue, L"x,y,3");
    EXPECT_EQ(found[1].value, L"2");
    EXPECT_EQ(found[1].newValue, L"y");
}
