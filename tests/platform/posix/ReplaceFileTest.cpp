#include <atomic>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>

#include "tests/platform/posix/ReplaceFileSupport.h"

namespace replacetests {

TEST_F(ReplaceFile, PutsAnotherFileInTheTargetsPlace) {
    const std::wstring path = m_folder.write(L"a", "old");
    const int old = ::open(m_folder.at(L"a").c_str(), O_RDONLY);
    replaceFile(path, "new");
    char buffer[4] = {};
    EXPECT_EQ(::read(old, buffer, 4), 3);
    EXPECT_STREQ(buffer, "old");
    ::close(old);
    EXPECT_EQ(m_folder.read(L"a"), "new");
    EXPECT_EQ(m_folder.entries(), 1u);
}

TEST_F(ReplaceFile, NeverShowsAHalfWrittenFile) {
    const std::string contents[] = {std::string(200000, 'a'), std::string(150000, 'b')};
    const std::wstring path = m_folder.write(L"a", contents[0]);
    std::atomic<bool> isDone{false};
    std::atomic<int> torn{0};
    std::thread reader([&] {
        while (!isDone) {
            const std::string seen = readWholeFile(path);
            if (seen != contents[0] && seen != contents[1]) ++torn;
        }
    });
    for (int i = 1; i <= 20; ++i) replaceFile(path, contents[i % 2]);
    isDone = true;
    reader.join();
    EXPECT_EQ(torn, 0);
}

TEST_F(ReplaceFile, GivesANewFileTheModeOfTheMask) {
    ::umask(027);
    replaceFile(m_folder.file(L"a"), "new");
    ::umask(0);
    replaceFile(m_folder.file(L"b"), "new");
    ::umask(022);
    EXPECT_EQ(modeOf(m_folder.at(L"a")), 0640u);
    EXPECT_EQ(modeOf(m_folder.at(L"b")), 0666u);
}

TEST_F(ReplaceFile, KeepsTheTargetsMode) {
    const std::wstring path = m_folder.write(L"a", "old");
    for (const mode_t mode : {0600u, 0666u, 0775u, 0620u, 02664u}) {
        ASSERT_EQ(::chmod(m_folder.at(L"a").c_str(), mode), 0);
        replaceFile(path, "new");
        EXPECT_EQ(modeOf(m_folder.at(L"a")), mode);
    }
}

TEST_F(ReplaceFile, KeepsModesThatAWriteWouldCut) {
    const std::wstring path = m_folder.write(L"a", "old");
    giveToNobody(m_folder.path());
    giveToNobody(m_folder.at(L"a"));
    const Unprivileged user;
    ASSERT_TRUE(user.isDone());
    ASSERT_EQ(::chmod(m_folder.at(L"a").c_str(), 02775), 0);
    replaceFile(path, "new");
    EXPECT_EQ(modeOf(m_folder.at(L"a")), 02775u);
}

TEST_F(ReplaceFile, KeepsTheTargetsOwner) {
    if (::geteuid() != 0) GTEST_SKIP() << "only the superuser may give files away";
    const std::wstring path = m_folder.write(L"a", "old");
    giveToNobody(m_folder.at(L"a"));
    replaceFile(path, "new");
    struct stat status {};
    ASSERT_EQ(::stat(m_folder.at(L"a").c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, Unprivileged::nobody);
    EXPECT_EQ(status.st_gid, Unprivileged::nobody);
}

TEST_F(ReplaceFile, RefusesATargetWithoutAnyWritePermissionToTheSuperuserToo) {
    const std::wstring path = m_folder.write(L"a", "old");
    ASSERT_EQ(::chmod(m_folder.at(L"a").c_str(), 0444), 0);
    EXPECT_EQ(replaceError(path), refusal(path, L"Permission denied"));
    EXPECT_EQ(m_folder.read(L"a"), "old");
    EXPECT_EQ(modeOf(m_folder.at(L"a")), 0444u);
}

TEST_F(ReplaceFile, RefusesATargetThatThisUserMayNotWrite) {
    if (::geteuid() != 0) GTEST_SKIP() << "only the superuser can own another's file";
    const std::wstring path = m_folder.write(L"a", "old");
    giveToNobody(m_folder.path());  // who may replace entries, but not write this one
    const Unprivileged user;
    ASSERT_TRUE(user.isDone());
    EXPECT_FALSE(canOpenForUpdate(path));
    EXPECT_EQ(replaceError(path), refusal(path, L"Permission denied"));
    EXPECT_EQ(m_folder.read(L"a"), "old");
    EXPECT_EQ(m_folder.entries(), 1u);
}

TEST_F(ReplaceFile, FollowsASymbolicLink) {
    ASSERT_TRUE(makeFolder(m_folder.file(L"real")));
    m_folder.write(L"real/a", "old");
    fs::create_symlink("real/a", m_folder.at(L"link"));
    fs::create_symlink(m_folder.at(L"link"), m_folder.at(L"link2"));
    replaceFile(m_folder.file(L"link2"), "new");
    EXPECT_TRUE(fs::is_symlink(m_folder.at(L"link")));
    EXPECT_TRUE(fs::is_symlink(m_folder.at(L"link2")));
    EXPECT_FALSE(fs::is_symlink(m_folder.at(L"real/a")));
    EXPECT_EQ(m_folder.read(L"real/a"), "new");
    EXPECT_EQ(m_folder.entries(), 3u);
}

TEST_F(ReplaceFile, MakesTheTargetOfADanglingLink) {
    ASSERT_TRUE(makeFolder(m_folder.file(L"real")));
    fs::create_symlink("real/a", m_folder.at(L"link"));
    replaceFile(m_folder.file(L"link"), "new");
    EXPECT_TRUE(fs::is_symlink(m_folder.at(L"link")));
    EXPECT_EQ(m_folder.read(L"real/a"), "new");
}

TEST_F(ReplaceFile, RefusesALinkIntoAMissingFolder) {
    fs::create_symlink("none/a", m_folder.at(L"link"));
    EXPECT_NE(replaceError(m_folder.file(L"link")), L"no error");
    EXPECT_TRUE(fs::is_symlink(m_folder.at(L"link")));
    EXPECT_EQ(m_folder.entries(), 1u);
}

TEST_F(ReplaceFile, RefusesLinksThatGoRound) {
    fs::create_symlink("b", m_folder.at(L"a"));
    fs::create_symlink("a", m_folder.at(L"b"));
    EXPECT_EQ(replaceError(m_folder.file(L"a")), refusal(m_folder.file(L"a"), L"Too many levels of symbolic links"));
    EXPECT_FALSE(canOpenForUpdate(m_folder.file(L"a")));
    EXPECT_EQ(m_folder.entries(), 2u);
}

TEST_F(ReplaceFile, LeavesAFolderThatAdmitsNoFileAsItIs) {
    giveToNobody(m_folder.path());
    ASSERT_EQ(::chmod(m_folder.path().c_str(), 0555), 0);
    const Unprivileged user;
    ASSERT_TRUE(user.isDone());
    const std::wstring path = m_folder.file(L"new");
    EXPECT_EQ(replaceError(path), refusal(path, L"Permission denied"));
    EXPECT_EQ(m_folder.entries(), 0u);
}

TEST_F(ReplaceFile, LeavesTheOldFileWhenTheNewOneMeetsALimit) {
    const std::wstring path = m_folder.write(L"a", "old");
    const SizeLimit limit(4096);
    EXPECT_EQ(replaceError(path, std::string(100000, 'n')), refusal(path, L"File too large"));
    EXPECT_EQ(m_folder.read(L"a"), "old");
    EXPECT_EQ(m_folder.entries(), 1u);
}

TEST_F(ReplaceFile, ReachesAPathWithoutAFolder) {
    const fs::path before = fs::current_path();
    fs::current_path(m_folder.path());
    replaceFile(L"bare", "one");
    replaceFile(L"bare", "two");
    fs::current_path(before);
    EXPECT_EQ(m_folder.read(L"bare"), "two");
    EXPECT_EQ(m_folder.entries(), 1u);
}

TEST_F(ReplaceFile, RefusesANameThatIsTooLong) {
    const std::wstring path = m_folder.file(std::wstring(300, L'x'));
    EXPECT_EQ(replaceError(path), refusal(path, L"File name too long"));
    const std::wstring longest = m_folder.file(std::wstring(255, L'x'));
    replaceFile(longest, "new");
    EXPECT_EQ(m_folder.entries(), 1u);
}

TEST_F(ReplaceFile, CopiesNoMorePermissionsThanTheSourceHas) {
    const std::wstring from = m_folder.write(L"from", "secret");
    ASSERT_EQ(::chmod(m_folder.at(L"from").c_str(), 0600), 0);
    copyToNewFile(from, m_folder.file(L"to"));
    EXPECT_EQ(modeOf(m_folder.at(L"to")), 0600u);
}

TEST_F(ReplaceFile, CanOpenForUpdateIsDeniedByAnotherWriter) {
    const std::wstring path = m_folder.write(L"a", "old");
    const int file = ::open(m_folder.at(L"a").c_str(), O_RDWR);
    ASSERT_EQ(::flock(file, LOCK_EX), 0);
    EXPECT_FALSE(canOpenForUpdate(path));
    ::close(file);
    EXPECT_TRUE(canOpenForUpdate(path));
}

TEST_F(ReplaceFile, CanOpenForUpdateTakesRegularFilesOnly) {
    ASSERT_EQ(::mkfifo(m_folder.at(L"pipe").c_str(), 0600), 0);
    EXPECT_FALSE(canOpenForUpdate(m_folder.file(L"pipe")));
    EXPECT_FALSE(canOpenForUpdate(L"/dev/null"));
}

}  // namespace replacetests
