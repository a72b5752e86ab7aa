#include <algorithm>

#include <gtest/gtest.h>

#include "manager/Upgrade.h"
#include "store/ChangeObserver.h"
#include "tests/manager/TestManager.h"
#include "tests/support/CurrentFile.h"
#include "tests/support/TestDocument.h"

using XMLConfig::UpgradeChange;
using XMLConfig::UpgradeReceipt;

namespace {

UpgradeReceipt receiptOf(const std::string& sections, const std::string& version) {
    const TestDocument document(fileText(sections, version));
    UpgradeReceipt receipt;
    XMLConfig::upgradeDocument(*document, &receipt);
    return receipt;
}

// The only change of that kind that the step did to that item.
UpgradeChange theChange(const XMLConfig::UpgradeStepReport& step, UpgradeChange::Kind kind, const std::wstring& section,
                        const std::wstring& key) {
    const auto isIt = [&](const UpgradeChange& change) {
        return change.kind == kind && change.section == section && change.key == key;
    };
    EXPECT_EQ(std::count_if(step.changes.begin(), step.changes.end(), isIt), 1);
    const auto found = std::find_if(step.changes.begin(), step.changes.end(), isIt);
    return found == step.changes.end() ? UpgradeChange{} : *found;
}

class CountingObserver : public XMLConfig::detail::ChangeObserver {
public:
    void changed(XMLConfig::detail::Change&&) override { ++count; }
    int count = 0;
};

}  // namespace

TEST(UpgradeReceipt, SaysFromAndTo) {
    const UpgradeReceipt receipt = receiptOf("", "7.5");
    EXPECT_EQ(receipt.fromVersion, 7.5);
    EXPECT_EQ(receipt.toVersion, XMLConfig::detail::latestFileVersion);
    ASSERT_EQ(receipt.steps.size(), 2u);
    EXPECT_EQ(receipt.steps[0].version, 8.0);
    EXPECT_EQ(receipt.steps[0].summary, L"fit solver and overlap unit");
    EXPECT_EQ(receipt.steps[1].version, 9.0);
}

TEST(UpgradeReceipt, IsEmptyWhereNothingWasUpgraded) {
    for (const char* version : {latestVersion.c_str(), "99.5"}) {
        const UpgradeReceipt receipt = receiptOf("", version);
        EXPECT_EQ(receipt.toVersion, 0.0);
        EXPECT_TRUE(receipt.steps.empty());
    }
}

TEST(UpgradeReceipt, CanBeUsedAgain) {
    UpgradeReceipt receipt = receiptOf("", "1.0");
    const TestDocument document(fileText("", "8.0"));
    XMLConfig::upgradeDocument(*document, &receipt);
    EXPECT_EQ(receipt.fromVersion, 8.0);
    EXPECT_EQ(receipt.steps.size(), 1u);
}

TEST(UpgradeReceipt, TellsAddedItems) {
    const UpgradeReceipt receipt = receiptOf("", "7.0");
    const auto change = theChange(receipt.steps[0], UpgradeChange::Kind::Added, L"Geometry", L"Fit_Solver");
    EXPECT_EQ(change.oldValue, L"");
    EXPECT_EQ(change.newValue, L"1");
    EXPECT_EQ(change.sectionID, L"");
}

TEST(UpgradeReceipt, TellsChangedItems) {
    const UpgradeReceipt receipt = receiptOf("<Geometry><Fit_Solver>5</Fit_Solver></Geometry>", "7.0");
    const auto change = theChange(receipt.steps[0], UpgradeChange::Kind::Changed, L"Geometry", L"Fit_Solver");
    EXPECT_EQ(change.oldValue, L"5");
    EXPECT_EQ(change.newValue, L"1");
}

TEST(UpgradeReceipt, SaysNothingOfItemsThatHeldTheValueAlready) {
    const UpgradeReceipt receipt = receiptOf(
        "<Geometry><Fit_Solver>1</Fit_Solver></Geometry>"
        "<TargetLocator><Overlap_Display_Unit>Percent</Overlap_Display_Unit></TargetLocator>",
        "7.0");
    EXPECT_TRUE(receipt.steps[0].changes.empty());
}

TEST(UpgradeReceipt, TellsRemovedItems) {
    const UpgradeReceipt receipt = receiptOf("<Geometry><IsStacked>true</IsStacked></Geometry>", "8.0");
    const auto change = theChange(receipt.steps[0], UpgradeChange::Kind::Removed, L"Geometry", L"IsStacked");
    EXPECT_EQ(change.oldValue, L"true");
    EXPECT_EQ(change.newValue, L"");
}

TEST(UpgradeReceipt, TellsMovedItemsOnce) {
    const UpgradeReceipt receipt = receiptOf("<Screen><Unit>Feet</Unit><AngleUnit>Radians</AngleUnit></Screen>", "8.0");
    const auto change = theChange(receipt.steps[0], UpgradeChange::Kind::Moved, L"Screen", L"Unit");
    EXPECT_EQ(change.oldValue, L"Feet");
    EXPECT_EQ(change.newValue, L"Feet");
    EXPECT_EQ(change.newSection, L"System");
    EXPECT_EQ(change.newKey, L"Length_Unit");
    EXPECT_EQ(theChange(receipt.steps[0], UpgradeChange::Kind::Moved, L"Screen", L"AngleUnit").newKey, L"AngleUnit");
    for (const UpgradeChange& other : receipt.steps[0].changes)
        EXPECT_FALSE(other.section == L"System" && !other.key.empty());
}

TEST(UpgradeReceipt, TellsWarpMemoryAsMoved) {
    const UpgradeReceipt receipt = receiptOf(
        "<Geometry><Warp_Memory_Location>3</Warp_Memory_Location><Warp_Memory_Name>Show</Warp_Memory_Name></Geometry>",
        "4.0");
    const auto number = theChange(receipt.steps[0], UpgradeChange::Kind::Moved, L"Geometry", L"Warp_Memory_Location");
    EXPECT_EQ(number.newKey, L"Memory_Location");
    EXPECT_EQ(number.newValue, L"3");
    EXPECT_EQ(theChange(receipt.steps[0], UpgradeChange::Kind::Moved, L"Geometry", L"Warp_Memory_Name").newValue, L"Show");
}

TEST(UpgradeReceipt, DefaultInThePlaceOfAMissingItemIsAdded) {
    const UpgradeReceipt receipt = receiptOf("", "8.0");
    EXPECT_EQ(theChange(receipt.steps[0], UpgradeChange::Kind::Added, L"System", L"Length_Unit").newValue, L"Meters");
}

TEST(UpgradeReceipt, TellsRenamedAndRemovedSections) {
    const UpgradeReceipt receipt = receiptOf(
        "<Camera ID=\"1\"><CameraType>0</CameraType><Connection><MAC_Address>m</MAC_Address></Connection></Camera>"
        "<Camera ID=\"2\"><CameraType>5</CameraType></Camera>",
        "8.0");
    const auto renamed = theChange(receipt.steps[0], UpgradeChange::Kind::Renamed, L"Camera", L"");
    EXPECT_EQ(renamed.sectionID, L"1");
    EXPECT_EQ(renamed.oldValue, L"1");
    EXPECT_EQ(renamed.newValue, L"PGR***m");
    const auto removed = theChange(receipt.steps[0], UpgradeChange::Kind::Removed, L"Camera", L"");
    EXPECT_EQ(removed.sectionID, L"2");
}

TEST(UpgradeReceipt, TellsAddedSections) {
    const UpgradeReceipt receipt = receiptOf("", "7.0");
    EXPECT_EQ(theChange(receipt.steps[0], UpgradeChange::Kind::Added, L"Geometry", L"").newValue, L"");
}

TEST(UpgradeReceipt, EveryElementOfARemovedItemIsTold) {
    const UpgradeReceipt receipt = receiptOf(
        "<Camera ID=\"1\"><CameraType>0</CameraType><Connection><MAC_Address>m</MAC_Address><IP_Address>i</IP_Address>"
        "</Connection></Camera>",
        "8.0");
    EXPECT_EQ(theChange(receipt.steps[0], UpgradeChange::Kind::Removed, L"Camera", L"Connection").oldValue,
              L"<MAC_Address>m</MAC_Address><IP_Address>i</IP_Address>");
}

TEST(UpgradeReceipt, SnippetsAreTold) {
    const UpgradeReceipt receipt = receiptOf("<Projector ID=\"1\"/>", "2.0");
    const auto change = theChange(receipt.steps[0], UpgradeChange::Kind::Added, L"Projector", L"DeviceSnippet");
    EXPECT_EQ(change.newValue.rfind(L"<device UID=\"VELDAR***\"", 0), 0u);
}

TEST(UpgradeReceipt, ObserverIsTakenAwayAgainAndTheOneBeforeStays) {
    const TestDocument document(fileText("", "7.0"));
    CountingObserver before;
    XMLConfig::detail::setChangeObserver(*document, &before);
    UpgradeReceipt receipt;
    XMLConfig::upgradeDocument(*document, &receipt);
    EXPECT_EQ(XMLConfig::detail::setChangeObserver(*document, nullptr), &before);
    EXPECT_EQ(before.count, 1);  // the version stamp; what the steps did went to the receipt
}

TEST(UpgradeReceipt, WithoutObserverTheDocumentKeepsItsOwn) {
    const TestDocument document(fileText("", "7.0"));
    CountingObserver own;
    XMLConfig::detail::setChangeObserver(*document, &own);
    EXPECT_EQ(XMLConfig::upgradeDocument(*document), XMLConfig::Upgraded);
    EXPECT_EQ(XMLConfig::detail::setChangeObserver(*document, nullptr), &own);
    EXPECT_GT(own.count, 1);
}

TEST(UpgradeReceipt, ResultIsTheSameWithAndWithoutObserver) {
    const std::string text = fileText("<Projector ID=\"1\"/><Camera ID=\"1\"><CameraType>0</CameraType></Camera>", "1.0");
    const TestDocument watched(text);
    const TestDocument alone(text);
    UpgradeReceipt receipt;
    XMLConfig::upgradeDocument(*watched, &receipt);
    XMLConfig::upgradeDocument(*alone);
    EXPECT_EQ(watched.text(), alone.text());
}
