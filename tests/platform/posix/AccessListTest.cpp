#include "platform/posix/AccessList.h"

#include <gtest/gtest.h>

namespace {

using XMLConfig::detail::AccessEntry;
using XMLConfig::detail::AccessList;
using XMLConfig::detail::accessListOf;
using XMLConfig::detail::bytesOf;
using XMLConfig::detail::handedOver;
using XMLConfig::detail::modeOf;
using XMLConfig::detail::parsedAccessList;

constexpr unsigned ann = 1001;
constexpr unsigned bob = 1002;
constexpr unsigned crew = 2001;
constexpr unsigned club = 2002;

/// A list as people write it: "owner:6 user1001:4 group:4 mask:4 others:0".
std::string textOf(const AccessList& list) {
    std::string text;
    for (const AccessEntry& entry : list) {
        const bool isNamed = entry.kind == AccessEntry::user || entry.kind == AccessEntry::group;
        const char* const kind = entry.kind == AccessEntry::owner      ? "owner"
                                 : entry.kind == AccessEntry::user     ? "user"
                                 : entry.kind == AccessEntry::ownGroup ? "own"
                                 : entry.kind == AccessEntry::group    ? "group"
                                 : entry.kind == AccessEntry::mask     ? "mask"
                                 : entry.kind == AccessEntry::others   ? "others"
                                                                       : "?";
        text += (text.empty() ? "" : " ") + std::string(kind);
        text += (isNamed ? std::to_string(entry.id) : "") + ":" + std::to_string(entry.rights);
    }
    return text;
}

std::string bytes(std::initializer_list<int> values) {
    std::string text;
    for (const int value : values) text.push_back(static_cast<char>(value));
    return text;
}

/// Of a file of ann and the crew: bob reads and writes, the club reads, the mask takes writing from both.
const AccessList annsFile{{AccessEntry::owner, 6},       {AccessEntry::user, 6, bob}, {AccessEntry::ownGroup, 6},
                          {AccessEntry::group, 4, club}, {AccessEntry::mask, 4},      {AccessEntry::others, 0}};

}  // namespace

TEST(AccessList, IsReadByteByByte) {
    const auto list = parsedAccessList(bytes({2,    0, 0, 0,                             // the version
                                              1,    0, 6, 0, 0xFF, 0xFF, 0xFF, 0xFF,     // the owner
                                              2,    0, 4, 0, 0xE9, 0x03, 0,    0,        // user 1001
                                              0x20, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF}));  // others
    ASSERT_TRUE(list);
    EXPECT_EQ(textOf(*list), "owner:6 user1001:4 others:0");
    EXPECT_EQ(list->front().id, AccessEntry::nobody);
}

TEST(AccessList, IsWrittenAsItWasRead) {
    const auto read = parsedAccessList(bytesOf(annsFile));
    ASSERT_TRUE(read);
    EXPECT_EQ(textOf(*read), "owner:6 user1002:6 own:6 group2002:4 mask:4 others:0");
    EXPECT_EQ(bytesOf(*read), bytesOf(annsFile));
    EXPECT_EQ(bytesOf(annsFile).size(), 4 + 6 * 8u);
}

TEST(AccessList, OfAnotherFormIsNone) {
    const std::string good = bytesOf(annsFile);
    for (const std::size_t size : {0, 1, 3, 5, 11, 13, 51}) EXPECT_FALSE(parsedAccessList(good.substr(0, size))) << size;
    EXPECT_FALSE(parsedAccessList(good + "x"));
    for (const int version : {0, 1, 3, 0x82}) EXPECT_FALSE(parsedAccessList(bytes({version, 0, 0, 0}) + good.substr(4)));
    for (const std::size_t at : {1, 2, 3}) {
        std::string other = good;
        other[at] = 1;  // a version above all that are known
        EXPECT_FALSE(parsedAccessList(other)) << at;
    }
}

TEST(AccessList, WithoutEntriesIsEmptyAndGivesNoRights) {
    const auto list = parsedAccessList(bytes({2, 0, 0, 0}));
    ASSERT_TRUE(list);
    EXPECT_TRUE(list->empty());
    EXPECT_EQ(modeOf(*list), 0u);
}

TEST(AccessList, OfAModeSaysTheSame) {
    for (const mode_t mode : {0u, 0600u, 0640u, 0664u, 0755u, 0777u}) {
        EXPECT_EQ(modeOf(accessListOf(mode)), mode);
        EXPECT_EQ(accessListOf(mode).size(), 3u);
    }
    EXPECT_EQ(textOf(accessListOf(0640)), "owner:6 own:4 others:0");
}

TEST(AccessList, MaskStandsForTheGroupInTheMode) { EXPECT_EQ(modeOf(annsFile), 0640u); }

TEST(AccessListHandedOver, ToNobodyElseSaysTheSameWithoutWhatTheMaskTook) {
    EXPECT_EQ(textOf(handedOver(annsFile, {ann, crew}, {ann, crew})),
              "owner:6 user1002:4 own:4 group2002:4 mask:4 others:0");
}

TEST(AccessListHandedOver, LeavesTheOldOwnerHisRights) {
    EXPECT_EQ(textOf(handedOver(accessListOf(0640), {ann, crew}, {bob, crew})), "owner:6 user1001:6 own:4 mask:6 others:0");
}

TEST(AccessListHandedOver, NamesTheOldOwnerOnce) {
    AccessList list = annsFile;
    list.push_back({AccessEntry::user, 0, ann});
    EXPECT_EQ(textOf(handedOver(list, {ann, crew}, {bob, crew})),
              "owner:6 user1001:6 user1002:4 own:4 group2002:4 mask:6 others:0");
}

TEST(AccessListHandedOver, LeavesTheOldGroupItsRightsAndGivesTheNewOneNone) {
    EXPECT_EQ(textOf(handedOver(accessListOf(0660), {ann, crew}, {ann, club})), "owner:6 own:0 group2001:6 mask:6 others:0");
}

TEST(AccessListHandedOver, NewGroupMayWhatEverybodyMay) {
    EXPECT_EQ(textOf(handedOver(accessListOf(0664), {ann, crew}, {ann, club})), "owner:6 own:4 group2001:6 mask:6 others:4");
}

TEST(AccessListHandedOver, NewGroupMayNotWhatAGroupThatItsMembersAreInMayNot) {
    EXPECT_EQ(textOf(handedOver(accessListOf(0604), {ann, crew}, {ann, club})), "owner:6 own:0 group2001:0 mask:0 others:4");
}

TEST(AccessListHandedOver, RightsOfAGroupThatIsNamedTwiceAddUp) {
    AccessList list = annsFile;
    list.push_back({AccessEntry::group, 2, crew});
    list[4].rights = 7;  // the mask takes nothing
    EXPECT_EQ(textOf(handedOver(list, {ann, crew}, {ann, 2003})),
              "owner:6 user1002:6 own:0 group2001:6 group2002:4 mask:6 others:0");
}
