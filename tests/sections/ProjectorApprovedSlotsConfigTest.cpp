#include "sections/ProjectorApprovedSlotsConfig.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "sections/ApprovedSlotsItems.h"
#include "tests/support/SettingRows.h"
#include "tests/support/VirtualSlots.h"

namespace {

using XMLConfig::tests::itemsOf;
using XMLConfig::tests::leavesOf;
using Slots = ProjectorApprovedSlotsConfig;
using Items = std::vector<std::wstring>;

const std::wstring sectionName = L"ProjectorApprovedSlots";

XMLConfig::tests::SettingRows<Slots> slotRows() {
    return XMLConfig::tests::SettingRows<Slots>([](ConfigInfo* document) { return std::make_unique<Slots>(document, L""); })
        .row(&Slots::getCurrentSlotID, &Slots::setCurrentSlotID, L"CurrentSlotID", {-1, L"-1"}, {4, L"4"})
        .row(&Slots::getTimeOfLastRun, &Slots::setTimeOfLastRun, L"TimeOfLastRun", {L"", L""}, {L"12:30", L"12:30"})
        .row(&Slots::getDiagnosticsFolderOfLastRun, &Slots::setDiagnosticsFolderOfLastRun, L"LastRunDiagFolder", {L"", L""},
             {L"C:\\diag", L"C:\\diag"})
        .catalogued(L"Slot[%d]|Name", L"");
}

struct Details {
    std::wstring name = L"before";
    Slots::SlotStatus status = static_cast<Slots::SlotStatus>(77);
};

Details detailsOf(const Slots& slots, int slot, int currentSlot) {
    Details details;
    slots.getSlotDetails(details.name, details.status, slot, currentSlot);
    return details;
}

class ApprovedSlots : public testing::Test {
protected:
    ConfigInfo document;
    Slots slots{&document, L""};
};

TEST_F(ApprovedSlots, SettingsKeepToTheirRows) { slotRows().check(); }

TEST_F(ApprovedSlots, TableEqualsTheRows) { slotRows().checkTable(XMLConfig::detail::approvedSlotsItems); }

TEST_F(ApprovedSlots, StatusesHaveTheirStoredNumbers) {
    EXPECT_EQ(Slots::NotApproved, 0);
    EXPECT_EQ(Slots::Approved, 1);
    EXPECT_EQ(Slots::CurrentRun, 2);
}

#if TESTS_KNOW_VIRTUAL_SLOTS
TEST_F(ApprovedSlots, VirtualMembersKeepTheirPlaces) {
    EXPECT_EQ(misplacedSlots(2, {NAMED_SLOT(Slots, initialize)}), "");
    EXPECT_EQ(slotCount<Slots>(), 3);
}
#endif

TEST_F(ApprovedSlots, InitializeWritesNothing) {
    slots.initialize();
    EXPECT_FALSE(document.isDirty());
    EXPECT_FALSE(document.doesSectionExist(sectionName, L""));
}

TEST_F(ApprovedSlots, ApprovingCreatesTheSlotWithItsName) {
    slots.updateSlot(3, L"Lobby", Slots::Approved);
    EXPECT_EQ(document.getSubSectionIDs(sectionName, L"Slot"), (Items{L"3"}));
    EXPECT_EQ(document.getStringItem(sectionName, L"Name", L"", L"", L"Slot", L"3"), L"Lobby");
    EXPECT_EQ(slots.getSlotName(3), L"Lobby");
    EXPECT_EQ(slots.getCurrentSlotID(), -1);

    const Details details = detailsOf(slots, 3, 5);
    EXPECT_EQ(details.name, L"Lobby");
    EXPECT_EQ(details.status, Slots::Approved);
}

TEST_F(ApprovedSlots, ApprovingAgainOverwritesTheName) {
    slots.updateSlot(3, L"Lobby", Slots::Approved);
    slots.updateSlot(3, L"Hall", Slots::Approved);
    EXPECT_EQ(itemsOf(document, sectionName), (Items{L"Slot = <Name>Hall</Name>"}));
}

TEST_F(ApprovedSlots, SlotOfTheRunIsNotApprovedAnyMoreAndCurrent) {
    slots.updateSlot(3, L"Lobby", Slots::Approved);
    slots.updateSlot(3, L"", Slots::CurrentRun);
    EXPECT_EQ(document.getSubSectionCount(sectionName, L"Slot"), 0);
    EXPECT_EQ(slots.getCurrentSlotID(), 3);

    const Details details = detailsOf(slots, 3, 3);
    EXPECT_EQ(details.name, L"before");
    EXPECT_EQ(details.status, Slots::CurrentRun);
}

TEST_F(ApprovedSlots, ApprovedSlotOfTheRunGivesItsName) {
    slots.updateSlot(3, L"Lobby", Slots::Approved);
    const Details details = detailsOf(slots, 3, 3);
    EXPECT_EQ(details.name, L"Lobby");
    EXPECT_EQ(details.status, Slots::CurrentRun);
}

TEST_F(ApprovedSlots, RefusingOnlyRemovesTheSlot) {
    slots.setCurrentSlotID(9);
    slots.updateSlot(3, L"Lobby", Slots::Approved);
    slots.updateSlot(4, L"Hall", Slots::Approved);
    slots.updateSlot(3, L"Lobby", Slots::NotApproved);
    EXPECT_EQ(document.getSubSectionIDs(sectionName, L"Slot"), (Items{L"4"}));
    EXPECT_EQ(slots.getCurrentSlotID(), 9);
}

TEST_F(ApprovedSlots, RefusingAnUnknownSlotChangesNothing) {
    slots.updateSlot(3, L"Lobby", Slots::NotApproved);
    EXPECT_FALSE(document.isDirty());
}

TEST_F(ApprovedSlots, UnknownSlotGivesAnEmptyNameAndIsNotApproved) {
    slots.updateSlot(3, L"Lobby", Slots::Approved);
    for (int currentSlot : {-1, 5}) {
        const Details details = detailsOf(slots, 8, currentSlot);
        EXPECT_EQ(details.name, L"");
        EXPECT_EQ(details.status, Slots::NotApproved);
    }
}

TEST_F(ApprovedSlots, SlotOfTheLastRunCountsAsApproved) {
    slots.setCurrentSlotID(4);
    slots.setTimeOfLastRun(L"2024-05-01 12:30");
    const Details details = detailsOf(slots, 4, -1);
    EXPECT_EQ(details.name, L"before");
    EXPECT_EQ(details.status, Slots::Approved);
}

TEST_F(ApprovedSlots, SlotOfTheLastRunNeedsATime) {
    slots.setCurrentSlotID(4);
    const Details details = detailsOf(slots, 4, -1);
    EXPECT_EQ(details.name, L"");
    EXPECT_EQ(details.status, Slots::NotApproved);
}

TEST_F(ApprovedSlots, MissingCurrentSlotCountsForSlotMinusOne) {
    slots.setTimeOfLastRun(L"now");
    const Details details = detailsOf(slots, -1, -1);
    EXPECT_EQ(details.name, L"before");
    EXPECT_EQ(details.status, Slots::Approved);
}

TEST_F(ApprovedSlots, NegativeSlotsAreOrdinarySlots) {
    slots.updateSlot(-7, L"Attic", Slots::Approved);
    EXPECT_EQ(document.getSubSectionIDs(sectionName, L"Slot"), (Items{L"-7"}));
    EXPECT_EQ(detailsOf(slots, -7, 5).name, L"Attic");
}

TEST_F(ApprovedSlots, ReadingCreatesNothing) {
    EXPECT_EQ(slots.getSlotName(3), L"");
    detailsOf(slots, 3, 3);
    EXPECT_FALSE(document.isDirty());
    EXPECT_FALSE(document.doesSectionExist(sectionName, L""));
}

TEST_F(ApprovedSlots, NamingASlotApprovesIt) {
    slots.setSlotName(2, L"Foyer");
    EXPECT_EQ(detailsOf(slots, 2, 5).status, Slots::Approved);
}

TEST_F(ApprovedSlots, NameOfASlotMayBeAVariable) {
    void (Slots::*const setSlotName)(int, std::wstring&) = &Slots::setSlotName;
    std::wstring name = L"Foyer";
    (slots.*setSlotName)(2, name);
    EXPECT_EQ(slots.getSlotName(2), L"Foyer");
    EXPECT_EQ(name, L"Foyer");
}

TEST_F(ApprovedSlots, IdentifierIsReadAsFarAsItIsANumber) {
    document.setStringItem(sectionName, L"Name", L"Lobby", L"", L"Slot", L"  +3b");
    const Details details = detailsOf(slots, 3, 5);
    EXPECT_EQ(details.name, L"") << "the name is looked up under the plain number";
    EXPECT_EQ(details.status, Slots::Approved);
}

template <typename Exception>
std::string whatDetailsThrow(const Slots& slots) {
    try {
        detailsOf(slots, 3, 5);
    } catch (const Exception& fault) {
        return fault.what();
    }
    return "nothing thrown";
}

TEST_F(ApprovedSlots, IdentifierWithoutANumberIsAnError) {
    slots.updateSlot(3, L"Lobby", Slots::Approved);
    document.setStringItem(sectionName, L"Name", L"x", L"", L"Slot", L"left");
    EXPECT_EQ(whatDetailsThrow<std::invalid_argument>(slots), "invalid stoi argument");
}

TEST_F(ApprovedSlots, IdentifierBeyond32BitsIsAnError) {
    document.setStringItem(sectionName, L"Name", L"x", L"", L"Slot", L"2147483648");
    EXPECT_EQ(whatDetailsThrow<std::out_of_range>(slots), "stoi argument out of range");
}

TEST_F(ApprovedSlots, SlotOfTheLastRunIsToldWithoutLookingAtIdentifiers) {
    document.setStringItem(sectionName, L"Name", L"x", L"", L"Slot", L"left");
    slots.setCurrentSlotID(4);
    slots.setTimeOfLastRun(L"now");
    EXPECT_EQ(detailsOf(slots, 4, -1).status, Slots::Approved);
}

}  // namespace
