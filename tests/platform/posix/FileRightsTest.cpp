#include <cerrno>

#include <sys/mount.h>

#include "tests/platform/posix/FileRightsSupport.h"
#include "tests/support/posix/SystemCalls.h"

namespace replacetests {

namespace {

constexpr uid_t aliceId = 50001;
constexpr uid_t bobId = 50002;
constexpr uid_t eveId = 50003;
constexpr gid_t team = 60001;
constexpr gid_t club = 60002;

const OtherUser root{0, {0}};
const OtherUser alice{aliceId, {aliceId, team, club}};
const OtherUser bob{bobId, {bobId, team}};
const OtherUser eve{eveId, {eveId}};
const OtherUser clubber{50004, {club}};
const OtherUser teamAndEve{50005, {eveId, team}};
const OtherUser clubAndEve{50006, {eveId, club}};

enum class Way { beside, straight };

struct RightsCase {
    const char* name;
    OtherUser saver;
    Way way;
    gid_t group;  ///< the owner is alice
    mode_t mode;
    AccessList list = {};
    AccessList listOfFolder = {};
    mode_t modeOfFolder = 0777;
};

std::ostream& operator<<(std::ostream& out, const RightsCase& row) { return out << row.name; }

const AccessList evesFolder{owner(7), user(eveId, 7), group(7), mask(7), others(7)};
const AccessList bobsFile{owner(6), user(bobId, 6), group(0), mask(6), others(0)};

const AccessList notForTheClub{owner(6), group(6), group(club, 0), mask(6), others(6)};

const RightsCase rightsCases[] = {
    {"OwnerAndAPlainMode", alice, Way::beside, aliceId, 0640},
    {"OwnerAndAGroupOfHis", alice, Way::beside, team, 0660},
    {"OwnerAndAGroupThatIsNotHis", alice, Way::straight, eveId, 0660},
    {"OwnerAndAGroupThatIsNotHisButReadsAnyway", alice, Way::straight, eveId, 0644},
    {"OwnerAndOthersThatMayMoreThanTheGroup", alice, Way::beside, team, 0606},
    {"OwnerInAFolderWithAList", alice, Way::beside, aliceId, 0600, {}, evesFolder},
    {"OwnerInAFolderWithAListAndAModeForTheGroup", alice, Way::beside, team, 0660, {}, evesFolder},
    {"OwnerOfAFileWithAList", alice, Way::beside, aliceId, 0660, bobsFile},
    {"OwnerOfAFileWithAListInAFolderWithAnother", alice, Way::beside, aliceId, 0660, bobsFile, evesFolder},
    {"OwnerInAFolderThatGivesItsGroup", alice, Way::beside, aliceId, 0660, {}, {}, 02777},
    {"MemberOfTheGroup", bob, Way::straight, team, 0660},
    {"MemberOfAGroupThatTheOwnerIsNotIn", bob, Way::straight, bobId, 0660},
    {"UserOfTheList", bob, Way::straight, aliceId, 0660, bobsFile},
    {"UserOfTheListInAFolderWithAnother", bob, Way::straight, aliceId, 0660, bobsFile, evesFolder},
    {"AnybodyWhereAllMayWrite", eve, Way::straight, aliceId, 0666},
    {"AnybodyInAFolderWithAList", eve, Way::straight, team, 0666, {}, evesFolder},
    {"AnybodyWhereTheGroupMayNot", eve, Way::straight, team, 0606},
    {"AnybodyWhereTheListKeepsAGroupOut", eve, Way::straight, team, 0666, notForTheClub},
    {"AnybodyWhereTheOwnerOnlyReads", eve, Way::straight, team, 0446},
    {"SuperuserAndAPlainMode", root, Way::beside, aliceId, 0600},
    {"SuperuserAndBitsThatAWriteCuts", root, Way::beside, team, 06770},
    {"SuperuserAndAFileWithAListInAFolderWithAnother", root, Way::beside, team, 0660, bobsFile, evesFolder},
};

class RightsOfAFile : public ReplaceFile, public testing::WithParamInterface<RightsCase> {
protected:
    void SetUp() override {
        if (::geteuid() != 0) GTEST_SKIP() << "only the superuser can be several users";
        const RightsCase& row = GetParam();
        m_folder.write(L"a", "old");
        ASSERT_EQ(::chown(m_at.c_str(), aliceId, row.group), 0);
        ASSERT_EQ(::chown(m_folder.path().c_str(), 0, club), 0);
        ASSERT_EQ(::chmod(m_at.c_str(), row.mode), 0);
        ASSERT_EQ(::chmod(m_folder.path().c_str(), row.modeOfFolder), 0);
        const bool hasLists = (row.list.empty() || setList(m_at, ofTheFile, row.list)) &&
                              (row.listOfFolder.empty() || setList(m_folder.path(), ofNewFiles, row.listOfFolder));
        if (!hasLists) GTEST_SKIP() << "this disk knows no access lists";
        m_before = rightsOf(m_at);
    }

    fs::path m_at = m_folder.at(L"a");
    std::wstring m_path = m_folder.file(L"a");
    std::map<std::string, std::string> m_before;
};

}  // namespace

TEST_P(RightsOfAFile, AreTheSameAfterASave) {
    const ino_t inode = inodeOf(m_at);
    EXPECT_TRUE(holdsFor(GetParam().saver, [&] {
        replaceFile(m_path, "new");
        return true;
    }));
    EXPECT_EQ(m_folder.read(L"a"), "new");
    EXPECT_EQ(rightsOf(m_at), m_before);
    EXPECT_EQ(inodeOf(m_at) == inode, GetParam().way == Way::straight);
    EXPECT_EQ(m_folder.entries(), 1u);
}

TEST_P(RightsOfAFile, AreNotWiderInACopy) {
    const fs::path copy = m_folder.at(L"copy");
    ASSERT_TRUE(holdsFor(GetParam().saver, [&] {
        copyToNewFile(m_path, m_folder.file(L"copy"));
        return true;
    }));
    EXPECT_EQ(m_folder.read(L"copy"), "old");
    for (const OtherUser& who : {alice, bob, eve, clubber, teamAndEve, clubAndEve}) {
        for (const int flags : {O_RDONLY, O_WRONLY}) {
            EXPECT_TRUE(!mayOpen(who, copy, flags) || mayOpen(who, m_at, flags)) << who.user << " with " << flags;
        }
    }
    for (const int flags : {O_RDONLY, O_WRONLY}) {
        if (!knowsLists(m_at)) continue;
        EXPECT_EQ(mayOpen(alice, copy, flags), mayOpen(alice, m_at, flags)) << flags;
    }
    if (GetParam().saver.user == aliceId && GetParam().way == Way::beside) {
        EXPECT_EQ(rightsOf(copy), m_before);
    }
}

INSTANTIATE_TEST_SUITE_P(Cases, RightsOfAFile, testing::ValuesIn(rightsCases),
                         [](const auto& row) { return std::string(row.param.name); });

class CopyOfAnothers : public ReplaceFile {
protected:
    void SetUp() override {
        if (::geteuid() != 0) GTEST_SKIP() << "only the superuser can be several users";
        ASSERT_EQ(::chmod(m_folder.path().c_str(), 0777), 0);
    }
    /// Rights of a copy by bob of a file of alice's; an error above 0 lets `call` fail with it.
    std::map<std::string, std::string> copied(gid_t group, mode_t mode, const char* call = "", int error = 0) {
        EXPECT_EQ(::chown(m_at.c_str(), aliceId, group), 0);
        EXPECT_EQ(::chmod(m_at.c_str(), mode), 0);
        EXPECT_TRUE(holdsFor(bob, [&] {
            const SystemCallWatch watch(failing(call, error));
            copyToNewFile(m_path, m_folder.file(L"copy"));
            return true;
        }));
        return rightsOf(m_folder.at(L"copy"));
    }
    static std::map<std::string, std::string> plain(gid_t group, mode_t mode) {
        return {
            {"owner", std::to_string(bobId)}, {"group", std::to_string(group)}, {"mode", std::to_string(S_IFREG | mode)}};
    }

    std::wstring m_path = m_folder.write(L"a", "old");
    fs::path m_at = m_folder.at(L"a");
};

TEST_F(CopyOfAnothers, FileKeepsItsGroupWhereThereAreNoLists) {
    EXPECT_EQ(copied(team, 0660, "fsetxattr", ENOTSUP), plain(team, 0660));
}

TEST_F(CopyOfAnothers, FileKeepsItsGroupBesideAList) {
    const auto rights = copied(team, 0660);
    if (rights.count(ofTheFile) == 0) GTEST_SKIP() << "this disk knows no access lists";
    EXPECT_EQ(rights.at("owner"), std::to_string(bobId));
    EXPECT_EQ(rights.at("group"), std::to_string(team));
}

TEST_F(CopyOfAnothers, FileIsTheCopiersAloneWhereItsGroupIsNotToBeHadAndThereAreNoLists) {
    EXPECT_EQ(copied(club, 0666, "fsetxattr", ENOTSUP), plain(bobId, 0600));
}

TEST_F(CopyOfAnothers, FileRunsNothingAsTheCopier) {
    EXPECT_EQ(copied(team, 06770, "fsetxattr", ENOTSUP), plain(team, 0770));
    fs::remove(m_folder.at(L"copy"));
    EXPECT_EQ(copied(team, 06770).at("mode"), std::to_string(S_IFREG | 0770));
}

class OwnRights : public ReplaceFile {
protected:
    fs::path m_at = m_folder.at(L"a");
    std::wstring m_path = m_folder.write(L"a", "old");
};

TEST_F(OwnRights, OverAListOfTheFolderStayTheFilesOwn) {
    ASSERT_EQ(::chmod(m_at.c_str(), 0660), 0);
    if (!setList(m_folder.path(), ofNewFiles, evesFolder)) GTEST_SKIP() << "this disk knows no access lists";
    const auto before = rightsOf(m_at);
    replaceFile(m_path, "new");
    copyToNewFile(m_path, m_folder.file(L"copy"));
    EXPECT_EQ(rightsOf(m_at), before);
    EXPECT_EQ(rightsOf(m_folder.at(L"copy")), before);
}

TEST_F(OwnRights, IncludeTheAttributesThatUsersGave) {
    const std::string large(3000, 'x');
    if (::setxattr(m_at.c_str(), "user.origin", "dome", 4, 0) != 0) GTEST_SKIP() << "this disk knows no attributes";
    ASSERT_EQ(::setxattr(m_at.c_str(), "user.empty", "", 0, 0), 0);
    ASSERT_EQ(::setxattr(m_at.c_str(), "user.large", large.data(), large.size(), 0), 0);
    const auto before = rightsOf(m_at);
    const ino_t inode = inodeOf(m_at);
    replaceFile(m_path, "new");
    copyToNewFile(m_path, m_folder.file(L"copy"));
    EXPECT_EQ(rightsOf(m_at), before);
    EXPECT_EQ(rightsOf(m_folder.at(L"copy")), before);
    EXPECT_NE(inodeOf(m_at), inode);
}

TEST_F(OwnRights, AreKeptByAStraightWriteWhereTheyCannotBeTold) {
    if (::setxattr(m_at.c_str(), "user.origin", "dome", 4, 0) != 0) GTEST_SKIP() << "this disk knows no attributes";
    const auto before = rightsOf(m_at);
    const ino_t inode = inodeOf(m_at);
    for (const char* call : {"flistxattr", "fgetxattr", "fsetxattr", "fchmod"}) {
        const SystemCallWatch watch(failing(call, EACCES));
        replaceFile(m_path, call);
        EXPECT_EQ(m_folder.read(L"a"), call);
        EXPECT_EQ(inodeOf(m_at), inode);
        EXPECT_EQ(rightsOf(m_at), before);
        EXPECT_EQ(m_folder.entries(), 1u);
    }
}

TEST_F(OwnRights, AreAskedForBeforeTheFileTakesThePlace) {
    ASSERT_EQ(::chmod(m_at.c_str(), 0640), 0);
    const ino_t inode = inodeOf(m_at);
    int changes = 0;
    const SystemCallWatch watch([&](const SystemCall& call) {
        if (call.name == "fchmod") ++changes;
        if (call.name == "flistxattr" && changes == 1) ::fchmod(call.descriptor, 0666);  // a disk that does as it likes
        return 0;
    });
    replaceFile(m_path, "new");
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(m_folder.read(L"a"), "new");
    EXPECT_EQ(inodeOf(m_at), inode);
    EXPECT_EQ(modeOf(m_at), 0640u);
}

TEST_F(OwnRights, AreNoneOfOthersInACopyWhereTheyCannotBeTold) {
    ASSERT_EQ(::chmod(m_at.c_str(), 0666), 0);
    setList(m_folder.path(), ofNewFiles, evesFolder);
    const SystemCallWatch watch(failing("flistxattr", EACCES));
    copyToNewFile(m_path, m_folder.file(L"copy"));
    const auto rights = rightsOf(m_folder.at(L"copy"));
    EXPECT_EQ(rights.at("mode"), std::to_string(S_IFREG | 0600));
    EXPECT_EQ(rights.count(ofTheFile), 0u);
}

TEST_F(OwnRights, OfADiskThatFailsAreNotGuessed) {
    for (const char* call : {"flistxattr", "fchmod"}) {
        const SystemCallWatch watch(failing(call, EIO));
        EXPECT_EQ(replaceError(m_path), refusal(m_path, L"Input/output error"));
    }
    EXPECT_EQ(m_folder.read(L"a"), "old");
    EXPECT_EQ(m_folder.entries(), 1u);
}

TEST_F(OwnRights, OfADiskWithoutAttributesAreItsMode) {
    const ino_t inode = inodeOf(m_at);
    const SystemCallWatch watch(failing("flistxattr", ENOTSUP));
    replaceFile(m_path, "new");
    EXPECT_EQ(m_folder.read(L"a"), "new");
    EXPECT_NE(inodeOf(m_at), inode);
}

// The other names keep the old text: nothing is lost, and the save is as safe as any.
TEST_F(OwnRights, OfAFileWithSeveralNamesGoWithTheOneThatIsSaved) {
    fs::create_hard_link(m_at, m_folder.at(L"b"));
    replaceFile(m_path, "new");
    EXPECT_EQ(m_folder.read(L"a"), "new");
    EXPECT_EQ(m_folder.read(L"b"), "old");
    EXPECT_EQ(modeOf(m_at), modeOf(m_folder.at(L"b")));
}

TEST_F(OwnRights, IncludeAListOfAnyLength) {
    if (::mount("tmpfs", m_folder.path().c_str(), "tmpfs", 0, "size=1m,mode=0755") != 0) {
        GTEST_SKIP() << "this user may not mount a disk that takes long lists";
    }
    m_folder.write(L"a", "old");
    AccessList list{owner(6)};
    for (std::uint32_t id = 1; id <= 2000; ++id) list.push_back(user(70000 + id, 4));
    for (const AccessEntry& entry : {group(0), mask(4), others(0)}) list.push_back(entry);
    const bool hasList = setList(m_at, ofTheFile, list);
    const auto before = rightsOf(m_at);
    const ino_t inode = inodeOf(m_at);
    replaceFile(m_path, "new");
    const auto after = rightsOf(m_at);
    const ino_t inodeAfter = inodeOf(m_at);
    EXPECT_EQ(::umount2(m_folder.path().c_str(), MNT_DETACH), 0);
    if (!hasList) GTEST_SKIP() << "this disk takes no long lists";
    EXPECT_GT(before.at(ofTheFile).size(), 16000u);
    EXPECT_TRUE(after == before);
    EXPECT_NE(inodeAfter, inode);
}

}  // namespace replacetests
