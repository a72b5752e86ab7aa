#include <csignal>
#include <stdexcept>
#include <thread>

#include <fcntl.h>
#include <sys/mount.h>

#include "tests/platform/posix/ReplaceFileSupport.h"

namespace replacetests {

using StraightWrite = ReplaceFile;

TEST_F(StraightWrite, WritesStraightWhereTheFolderAdmitsNoSecondFile) {
    const std::wstring path = m_folder.write(L"a", std::string(5000, 'o'));
    admitNoSecondFile();
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

TEST_F(StraightWrite, KeepsModesThatItCutsItself) {
    const std::wstring path = m_folder.write(L"a", "old");
    admitNoSecondFile();
    const Unprivileged user;
    ASSERT_TRUE(user.isDone());
    ASSERT_EQ(::chmod(m_folder.at(L"a").c_str(), 06775), 0);
    replaceFile(path, "new");
    EXPECT_EQ(m_folder.read(L"a"), "new");
    EXPECT_EQ(modeOf(m_folder.at(L"a")), 06775u);
}

TEST_F(StraightWrite, WritesStraightWhereTheFolderLetsNobodyTakeTheTargetsPlace) {
    if (::geteuid() != 0) GTEST_SKIP() << "only the superuser can own another's file";
    const std::wstring path = m_folder.write(L"a", "old");
    ASSERT_EQ(::chmod(m_folder.path().c_str(), 01777), 0);
    ASSERT_EQ(::chmod(m_folder.at(L"a").c_str(), 0666), 0);
    const Unprivileged user;
    ASSERT_TRUE(user.isDone());
    int asked = 0;
    replaceFile(path, [&asked](const ByteSink& sink) {
        ++asked;
        sink("first ");
        sink("last");
    });
    EXPECT_EQ(m_folder.read(L"a"), "first last");
    EXPECT_EQ(m_folder.entries(), 1u);
    EXPECT_EQ(asked, 1);  // a new file could not have been given to the owner
}

TEST_F(StraightWrite, WritesStraightIntoAFileThatIsAMountPoint) {
    const std::wstring path = m_folder.write(L"a", "old");
    m_folder.write(L"source", "old");
    if (::mount(m_folder.at(L"source").c_str(), m_folder.at(L"a").c_str(), nullptr, MS_BIND, nullptr) != 0) {
        GTEST_SKIP() << "this user may not mount";
    }
    int asked = 0;
    const std::wstring error = replaceError(path, [&asked](const ByteSink& sink) {
        ++asked;
        sink("new");
    });
    EXPECT_EQ(asked, 2);  // for a new file, which may not take the place, and for the old one
    EXPECT_EQ(::umount(m_folder.at(L"a").c_str()), 0);
    EXPECT_EQ(error, L"no error");
    EXPECT_EQ(m_folder.read(L"source"), "new");
    EXPECT_EQ(m_folder.entries(), 2u);
}

TEST_F(StraightWrite, TakesAllPiecesOfASourceOrNone) {
    const std::wstring path = m_folder.write(L"a", std::string(300000, 'o'));
    admitNoSecondFile();
    const Unprivileged user;
    ASSERT_TRUE(user.isDone());
    int asked = 0;
    replaceFile(path, [&asked](const ByteSink& sink) {
        ++asked;
        sink(std::string(100000, 'a'));
        sink("b");
    });
    EXPECT_EQ(m_folder.read(L"a"), std::string(100000, 'a') + "b");
    EXPECT_THROW(replaceFile(path, failingSource()), std::out_of_range);
    EXPECT_EQ(m_folder.read(L"a"), std::string(100000, 'a') + "b");
    EXPECT_EQ(asked, 1);
}

TEST_F(StraightWrite, WritesStraightWhereNoRoomCanBeTakenInAdvance) {
    if (::mount("ramfs", m_folder.path().c_str(), "ramfs", 0, "mode=0777") != 0) {
        GTEST_SKIP() << "this user may not mount";
    }
    const std::wstring path = m_folder.write(L"a", std::string(20000, 'o'));
    admitNoSecondFile();
    {
        const Unprivileged user;
        EXPECT_TRUE(user.isDone());
        for (const std::string& bytes : {std::string(30000, 'n'), std::string("short")}) {
            EXPECT_EQ(replaceError(path, bytes), L"no error");
            EXPECT_EQ(m_folder.read(L"a"), bytes);
        }
    }
    EXPECT_EQ(::umount2(m_folder.path().c_str(), MNT_DETACH), 0);
}

TEST_F(StraightWrite, WritesStraightToADevice) {
    replaceFile(L"/dev/null", "new");
    struct stat status {};
    ASSERT_EQ(::stat("/dev/null", &status), 0);
    EXPECT_TRUE(S_ISCHR(status.st_mode));
    EXPECT_EQ(replaceError(L"/dev/full"), refusal(L"/dev/full", L"No space left on device"));
}

TEST_F(StraightWrite, WritesStraightToAPipe) {
    ASSERT_EQ(::mkfifo(m_folder.at(L"pipe").c_str(), 0600), 0);
    std::string seen;
    std::thread reader([&] { seen = readWholeFile(m_folder.file(L"pipe")); });
    replaceFile(m_folder.file(L"pipe"), std::string(100000, 'x'));
    reader.join();
    EXPECT_EQ(seen, std::string(100000, 'x'));
    EXPECT_TRUE(fs::is_fifo(m_folder.at(L"pipe")));
}

TEST_F(StraightWrite, WritesNothingToAPipeWhereTheSourceFails) {
    ASSERT_EQ(::mkfifo(m_folder.at(L"pipe").c_str(), 0600), 0);
    std::string seen;
    std::thread reader([&] { seen = readWholeFile(m_folder.file(L"pipe")); });
    EXPECT_THROW(replaceFile(m_folder.file(L"pipe"), failingSource()), std::out_of_range);
    reader.join();
    EXPECT_EQ(seen, "");
}

TEST_F(StraightWrite, SurvivesAPipeWhoseReaderLeaves) {
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

TEST_F(StraightWrite, ReachesAFileThroughItsDescriptorsName) {
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

TEST_F(StraightWrite, LeavesTheOldFileWhenAStraightWriteMeetsALimit) {
    const std::wstring path = m_folder.write(L"a", std::string(3000, 'o'));
    admitNoSecondFile();
    const Unprivileged user;
    ASSERT_TRUE(user.isDone());
    const SizeLimit limit(4096);
    EXPECT_EQ(replaceError(path, std::string(100000, 'n')), refusal(path, L"File too large"));
    EXPECT_EQ(m_folder.read(L"a"), std::string(3000, 'o'));
}

}  // namespace replacetests
