#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "base/SettingTable.h"
#include "sections/SystemConfig.h"
#include "store/ConfigInfo.h"
#include "tests/support/SettingRows.h"
#include "tests/support/StoredItems.h"

namespace {

using XMLConfig::tests::itemsOf;
using XMLConfig::tests::leavesOf;
using Pairs = std::vector<std::pair<int, int>>;
using Strings = std::vector<std::wstring>;

class ActUnitsTest : public testing::Test {
protected:
    Pairs readText(const std::wstring& text) {
        items.put(L"ACT_Relay_Associations_0", text);
        return associations(0);
    }
    Pairs associations(int unit) {
        Pairs pairs;
        for (const ACTRelayAssociation& association : system.getACTRelayAssociations(unit))
            pairs.emplace_back(association.first, association.second);
        return pairs;
    }
    void addUnits(int count) {
        system.setACTCount(count);
        for (int unit = 0; unit < count; ++unit) {
            system.setACTAddress(unit, L"10.0.0.1");
            system.setACTRelayAssociations(unit, {{unit, 4}});
        }
    }

    ConfigInfo document;
    XMLConfig::tests::StoredItems items{document, L"System"};
    SystemConfig system{&document, nullptr, L""};
};

}  // namespace

TEST_F(ActUnitsTest, MissingItemsReadEmptyAndCreateNothing) {
    const Strings before = leavesOf(document);
    EXPECT_EQ(system.getACTCount(), 0);
    EXPECT_EQ(system.getACTAddress(0), L"");
    EXPECT_EQ(system.getACTAddress(-1), L"");
    EXPECT_TRUE(associations(0).empty());
    EXPECT_TRUE(associations(2147483647).empty());
    EXPECT_EQ(leavesOf(document), before);
    EXPECT_FALSE(document.isDirty());
}

TEST_F(ActUnitsTest, RaisingTheCountCreatesNoUnits) {
    system.setACTCount(3);
    EXPECT_EQ(itemsOf(document, L"System"), (Strings{L"ACT_Count = 3"}));
}

TEST_F(ActUnitsTest, LoweringTheCountRemovesTheUnitsBeyond) {
    addUnits(3);
    items.put(L"ACT_Address_10", L"beyond the count");
    items.put(L"ACT_Address_01", L"no number of a unit");
    system.setACTCount(1);
    EXPECT_EQ(itemsOf(document, L"System"),
              (Strings{L"ACT_Count = 1", L"ACT_Address_0 = 10.0.0.1", L"ACT_Relay_Associations_0 =     0, 4\n",
                       L"ACT_Address_10 = beyond the count", L"ACT_Address_01 = no number of a unit"}));
}

TEST_F(ActUnitsTest, UnitsWithGapsAreRemovedToo) {
    items.put(L"ACT_Count", L"9");
    items.put(L"ACT_Relay_Associations_3", L"1, 2");
    items.put(L"ACT_Address_8", L"a");
    items.put(L"ACT_Address_9", L"b");
    system.setACTCount(2);
    EXPECT_EQ(itemsOf(document, L"System"), (Strings{L"ACT_Count = 2", L"ACT_Address_9 = b"}));
}

TEST_F(ActUnitsTest, NegativeCountIsStoredAsZero) {
    addUnits(2);
    system.setACTCount(-5);
    EXPECT_EQ(itemsOf(document, L"System"), (Strings{L"ACT_Count = 0"}));
}

TEST_F(ActUnitsTest, SameCountIsNoChange) {
    addUnits(2);
    document.setDirty(false);
    system.setACTCount(2);
    EXPECT_FALSE(document.isDirty());
}

TEST_F(ActUnitsTest, CountOfADamagedFileIsLoweredAtOnce) {
    items.put(L"ACT_Count", L"2147483647");
    items.put(L"ACT_Address_2147483646", L"last");
    items.put(L"ACT_Address_0", L"first");
    system.setACTCount(1);
    EXPECT_EQ(itemsOf(document, L"System"), (Strings{L"ACT_Count = 1", L"ACT_Address_0 = first"}));
}

TEST_F(ActUnitsTest, RelayAssociationsAreOneLineEach) {
    system.setACTRelayAssociations(0, {{1, 4}, {2, 5}});
    system.setACTRelayAssociations(7, {{-2147483647 - 1, 2147483647}});
    system.setACTRelayAssociations(8, {});
    EXPECT_EQ(itemsOf(document, L"System"),
              (Strings{L"ACT_Relay_Associations_0 =     1, 4\n    2, 5\n",
                       L"ACT_Relay_Associations_7 =     -2147483648, 2147483647\n", L"ACT_Relay_Associations_8 = "}));
    EXPECT_EQ(associations(0), (Pairs{{1, 4}, {2, 5}}));
    EXPECT_EQ(associations(7), (Pairs{{-2147483647 - 1, 2147483647}}));
    EXPECT_TRUE(associations(8).empty());
}

TEST_F(ActUnitsTest, LongRelayListIsNeverCut) {
    std::vector<ACTRelayAssociation> list;
    for (int i = 0; i < 100; ++i) list.push_back({i, 1000 + i});
    system.setACTRelayAssociations(0, list);
    const Pairs read = associations(0);
    ASSERT_EQ(read.size(), 100U);
    EXPECT_EQ(read[99], std::make_pair(99, 1099));
}

TEST_F(ActUnitsTest, RelayTextIsSplitAtAnyRunOfSeparators) {
    EXPECT_EQ(readText(L"1,2\n\n3\t4"), (Pairs{{1, 2}, {3, 4}}));
    EXPECT_EQ(readText(L",, 1 2 ,\n"), (Pairs{{1, 2}}));
    EXPECT_TRUE(readText(L" ,\n\t").empty());
}

TEST_F(ActUnitsTest, TrailingRelayNumberWithoutPartnerIsIgnored) {
    EXPECT_EQ(readText(L"1, 2, 3"), (Pairs{{1, 2}}));
    EXPECT_TRUE(readText(L"1").empty());
}

TEST_F(ActUnitsTest, RelayPiecesThatAreNoNumbersReadZero) {
    EXPECT_EQ(readText(L"a, 2x; 0x3 99999999999"), (Pairs{{0, 2}, {0, 2147483647}}));
}

TEST(NumberedKey, PutsTheNumberIntoThePattern) {
    using XMLConfig::detail::numberedKey;
    EXPECT_EQ(numberedKey(L"ACT_Address_%d", 0), L"ACT_Address_0");
    EXPECT_EQ(numberedKey(L"ACT_Address_%d", -7), L"ACT_Address_-7");
    EXPECT_EQ(numberedKey(L"A%dB", 2147483647), L"A2147483647B");
}

TEST(NumberedKey, IsReadBackOnlyInItsOwnForm) {
    using XMLConfig::detail::numberOfKey;
    EXPECT_EQ(numberOfKey(L"A_%d", L"A_12"), 12);
    for (const wchar_t* key : {L"A_", L"A_012", L"A_12x", L"A_+1", L"B_12", L"A", L"", L"A_99999999999"})
        EXPECT_EQ(numberOfKey(L"A_%d", key), std::nullopt);
}
