#include <atomic>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <thread>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/Files.h"
#include "platform/Text.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/Unprivileged.h"

namespace {

using namespace XMLConfig::detail;
namespace fs = std::filesystem;

std::wstring replaceError(const std::wstring& path, std::string_view bytes = "new") {
    try {
        replaceFile(path, bytes);
    } catch (const FileError& error) {
        return error.message();
    }
    return L"no error";
}

std::wstring refusal(const std::wstring& path, const std::wstring& reason) {
    return L"Can not write file " + path + L": " + reason;
}

mode_t modeOf(const fs::path& path) {
    struct stat status {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0);
    return status.st_mode & 07777;
}

ino_t inodeOf(const fs::path& path) {
    struct stat status {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0);
    return status.st_ino;
}

class ReplaceFile : public testing::Test {
protected:
    ReplaceFile() { ::umask(022); }
    void giveToNobody(const fs::path& path) {
        if (::geteuid() != 0) return;
        ASSERT_EQ(::chown(path.c_str(), Unprivileged::nobody, Unprivileged::nobody), 0);
    }
    TemporaryFolder m_folder;
};

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

TEST_F(ReplaceFile, WritesStraightWhereTheFolderAdmitsNoSecondFile) {
    const std::wstring path = m_folder.write(L"a", std::string(5000, 'o'));
    giveToNobody(m_folder.path());
    giveToNobody(m_folder.at(L"a"));
    ASSERT_EQ(::chmod(m_folder.path().c_str(), 0555), 0);
    const ino_t inode = inodeOf(m_folder.at(L"a"));
    const Unprivileged user;
    ASSERT_TRUE(user.isDone());
    for (const std::string& bytes : {std::string("short"), std::string(), std::string(20000, 'n')}) {
        replaceFile(path, bytes);
        EXPECT_EQ(m_folder.read(L"a"), bytes);
    }
    EXPECT_EQ(inodeOf(m_folder.at(L"a")), inode);
    EXPECT_EQ(m_folder.entries(), 1u);
}

TEST_F(ReplaceFile, WritesStraightWhereTheFolderLetsNobodyTakeTheTargetsPlace) {
    if (::geteuid() != 0) GTEST_SKIP() << "only the superuser can own another's file";
    const std::wstring path = m_folder.write(L"a", "old");
    ASSERT_EQ(::chmod(m_folder.path().c_str(), 01777), 0);
    ASSERT_EQ(::chmod(m_folder.at(L"a").c_str(), 0666), 0);
    const Unprivileged user;
    ASSERT_TRUE(user.isDone());
    replaceFile(path, "new");
    EXPECT_EQ(m_folder.read(L"a"), "new");
    EXPECT_EQ(m_folder.entries(), 1u);
}

TEST_F(ReplaceFile, WritesStraightIntoAFileThatIsAMountPoint) {
    const std::wstring path = m_folder.write(L"a", "old");
    m_folder.write(L"source", "old");
    if (::mount(m_folder.at(L"source").c_str(), m_folder.at(L"a").c_str(), nullptr, MS_BIND, nullptr) != 0) {
        GTEST_SKIP() << "this user may not mount";
    }
    const std::wstring error = replaceError(path);
    EXPECT_EQ(::umount(m_folder.at(L"a").c_str()), 0);
    EXPECT_EQ(error, L"no error");
    EXPECT_EQ(m_folder.read(L"source"), "new");
    EXPECT_EQ(m_folder.entries(), 2u);
}

TEST_F(ReplaceFile, WritesStraightToADevice) {
    replaceFile(L"/dev/null", "new");
    struct stat status {};
    ASSERT_EQ(::stat("/dev/null", &status), 0);
    EXPECT_TRUE(S_ISCHR(status.st_mode));
    EXPECT_EQ(replaceError(L"/dev/full"), refusal(L"/dev/full", L"No space left on device"));
}

TEST_F(ReplaceFile, WritesStraightToAPipe) {
    ASSERT_EQ(::mkfifo(m_folder.at(L"pipe").c_str(), 0600), 0);
    std::string seen;
    std::thread reader([&] { seen = readWholeFile(m_folder.file(L"pipe")); });
    replaceFile(m_folder.file(L"pipe"), std::string(100000, 'x'));
    reader.join();
    EXPECT_EQ(seen, std::string(100000, 'x'));
    EXPECT_TRUE(fs::is_fifo(m_folder.at(L"pipe")));
}

TEST_F(ReplaceFile, SurvivesAPipeWhoseReaderLeaves) {
    ASSERT_EQ(std::signal(SIGPIPE, SIG_DFL), SIG_DFL);
    ASSERT_EQ(::mkfifo(m_folder.at(L"pipe").c_str(), 0600), 0);
    std::thread reader([&] {
        FileReader pipe(m_folder.file(L"pipe"));
        char byte = 0;
        EXPECT_EQ(pipe.read(&byte, 1), 1u);
    });
    const std::wstring path = m_folder.file(L"pipe");
    EXPECT_EQ(replaceError(path, std::string(1000000, 'x')), refusal(path, L"Broken pipe"));
    reader.join();
}

TEST_F(ReplaceFile, ReachesAFileThroughItsDescriptorsName) {
    m_folder.write(L"a", "old");
    const int file = ::open(m_folder.at(L"a").c_str(), O_RDWR);
    fs::remove(m_folder.at(L"a"));
    replaceFile(L"/proc/self/fd/" + std::to_wstring(file), "new text");
    char buffer[20] = {};
    EXPECT_EQ(::pread(file, buffer, sizeof buffer, 0), 8);
    EXPECT_STREQ(buffer, "new text");
    ::close(file);
    EXPECT_EQ(m_folder.entries(), 0u);
}

/// Files of this process end at a size, as on a disk that is full there.
class SizeLimit {
public:
    explicit SizeLimit(rlim_t bytes) {
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~SizeLimit() { ::setrlimit(RLIMIT_FSIZE, &m_before); }
    SizeLimit(const SizeLimit&) = delete;
    SizeLimit& operator=(const SizeLimit&) = delete;

private:
    rlimit m_before{};
};

TEST_F(ReplaceFile, LeavesTheOldFileWhenTheNewOneMeetsALimit) {
    const std::wstring path = m_folder.write(L"a", "old");
    const SizeLimit limit(4096);
    EXPECT_EQ(replaceError(path, std::string(100000, 'n')), refusal(path, L"File too large"));
    EXPECT_EQ(m_folder.read(L"a"), "old");
    EXPECT_EQ(m_folder.entries(), 1u);
}

TEST_F(ReplaceFile, LeavesTheOldFileWhenAStraightWriteMeetsALimit) {
    const std::wstring path = m_folder.write(L"a", std::string(3000, 'o'));
    giveToNobody(m_folder.path());
    giveToNobody(m_folder.at(L"a"));
    ASSERT_EQ(::chmod(m_folder.path().c_str(), 0555), 0);
    const Unprivileged user;
    const SizeLimit limit(4096);
    EXPECT_EQ(replaceError(path, std::string(100000, 'n')), refusal(path, L"File too large"));
    EXPECT_EQ(m_folder.read(L"a"), std::string(3000, 'o'));
}

class FullDisk : public ReplaceFile {
protected:
    void SetUp() override {
        if (::mount("tmpfs", m_folder.path().c_str(), "tmpfs", 0, "size=64k,mode=0755") != 0) {
            GTEST_SKIP() << "this user may not mount a small disk";
        }
        m_isMounted = true;
    }
    ~FullDisk() override {
        if (m_isMounted) ::umount2(m_folder.path().c_str(), MNT_DETACH);
    }

private:
    bool m_isMounted = false;
};

TEST_F(FullDisk, LeavesTheOldFileAndNoOther) {
    const std::string old(20000, 'o');
    const std::wstring path = m_folder.write(L"a", old);
    EXPECT_EQ(replaceError(path, std::string(60000, 'n')), refusal(path, L"No space left on device"));
    EXPECT_EQ(m_folder.read(L"a"), old);
    EXPECT_EQ(m_folder.entries(), 1u);
    replaceFile(path, std::string(30000, 'n'));
    EXPECT_EQ(m_folder.read(L"a"), std::string(30000, 'n'));
}

TEST_F(FullDisk, AdmitsNoNewFileThatDoesNotFit) {
    const std::wstring path = m_folder.file(L"a");
    EXPECT_EQ(replaceError(path, std::string(100000, 'n')), refusal(path, L"No space left on device"));
    EXPECT_EQ(m_folder.entries(), 0u);
}

TEST_F(FullDisk, IsNoticedBeforeAStraightWrite) {
    const std::string old(20000, 'o');
    const std::wstring path = m_folder.write(L"a", old);
    giveToNobody(m_folder.path());
    giveToNobody(m_folder.at(L"a"));
    ASSERT_EQ(::chmod(m_folder.path().c_str(), 0555), 0);
    const Unprivileged user;
    EXPECT_EQ(replaceError(path, std::string(100000, 'n')), refusal(path, L"No space left on device"));
    EXPECT_EQ(m_folder.read(L"a"), old);
    replaceFile(path, std::string(50000, 'n'));  // more than fits beside the old one
    EXPECT_EQ(m_folder.read(L"a"), std::string(50000, 'n'));
}

TEST_F(FullDisk, GetsNoPartOfACopy) {
    const TemporaryFolder elsewhere;
    const std::wstring from = elsewhere.write(L"from", std::string(100000, 'x'));
    EXPECT_THROW(copyToNewFile(from, m_folder.file(L"to")), FileError);
    EXPECT_EQ(m_folder.entries(), 0u);
}

TEST_F(FullDisk, ThatIsReadOnlyRefuses) {
    const std::wstring path = m_folder.write(L"a", "old");
    ASSERT_EQ(::mount(nullptr, m_folder.path().c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr), 0);
    EXPECT_FALSE(canOpenForUpdate(path));
    EXPECT_EQ(replaceError(path), refusal(path, L"Read-only file system"));
    EXPECT_EQ(replaceError(m_folder.file(L"b")), refusal(m_folder.file(L"b"), L"Read-only file system"));
    EXPECT_EQ(m_folder.read(L"a"), "old");
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

}  // namespace
