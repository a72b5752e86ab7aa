#include "platform/FileLock.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <chrono>
#include <csignal>

#include "platform/Files.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/Unprivileged.h"

namespace {

using XMLConfig::detail::FileLock;

bool isUser(uid_t user) { return ::geteuid() == user || (::setgid(user) == 0 && ::setuid(user) == 0); }

/// Another process, of another user perhaps, that holds the lock until it is told to end.
class OtherHolder {
public:
    explicit OtherHolder(const std::wstring& path, uid_t user = ::geteuid()) {
        int ready[2];
        if (::pipe(ready) != 0) return;
        m_process = ::fork();
        if (m_process == 0) hold(path, user, ready[1]);
        ::close(ready[1]);
        char sign = 'n';
        m_isHolding = ::read(ready[0], &sign, 1) == 1 && sign == 'y';
        ::close(ready[0]);
    }
    ~OtherHolder() { kill(); }
    OtherHolder(const OtherHolder&) = delete;
    OtherHolder& operator=(const OtherHolder&) = delete;

    bool isHolding() const { return m_isHolding; }
    pid_t process() const { return m_process; }
    void kill() {
        if (m_process <= 0) return;
        ::kill(m_process, SIGKILL);
        ::waitpid(m_process, nullptr, 0);
        m_process = 0;
    }

private:
    [[noreturn]] static void hold(const std::wstring& path, uid_t user, int ready) {
        FileLock lock(path);
        const char sign = isUser(user) && lock.tryTake() ? 'y' : 'n';
        if (::write(ready, &sign, 1) == 1) ::pause();
        ::_exit(0);
    }

    pid_t m_process = 0;
    bool m_isHolding = false;
};

bool isFreeFor(uid_t user, const std::wstring& path) { return OtherHolder(path, user).isHolding(); }

/// While it lives, this process can open one more file.
class OneDescriptorLeft {
public:
    OneDescriptorLeft() {
        ::getrlimit(RLIMIT_NOFILE, &m_before);
        const int lowestFree = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
        ::close(lowestFree);
        rlimit limit = m_before;
        limit.rlim_cur = static_cast<rlim_t>(lowestFree) + 1;
        ::setrlimit(RLIMIT_NOFILE, &limit);
    }
    ~OneDescriptorLeft() { ::setrlimit(RLIMIT_NOFILE, &m_before); }
    OneDescriptorLeft(const OneDescriptorLeft&) = delete;
    OneDescriptorLeft& operator=(const OneDescriptorLeft&) = delete;

private:
    rlimit m_before{};
};

/// Who looks at a holder's open files in /proc keeps the lock a moment longer than the holder does.
constexpr std::chrono::seconds soon{10};

constexpr uid_t somebody = Unprivileged::nobody - 1;

}  // namespace

TEST(FileLockOfPosix, GoesWithAProcessThatIsKilled) {
    const TemporaryFolder folder;
    OtherHolder other(folder.file(L"hall.skorrax"));
    ASSERT_TRUE(other.isHolding());
    FileLock lock(folder.file(L"hall.skorrax"));
    EXPECT_FALSE(lock.tryTake());
    other.kill();
    EXPECT_TRUE(lock.take(soon));
    EXPECT_EQ(folder.entries(), 0u);
}

TEST(FileLockOfPosix, TellsWhoHoldsIt) {
    const TemporaryFolder folder;
    const OtherHolder other(folder.file(L"hall.skorrax"));
    const FileLock lock(folder.file(L"hall.skorrax"));
    EXPECT_EQ(lock.holder(), other.process());
    const TemporaryFolder free;
    EXPECT_EQ(FileLock(free.file(L"hall.skorrax")).holder(), 0);
}

TEST(FileLockOfPosix, IsNotLeftToProgramsThatAreStarted) {
    const TemporaryFolder folder;
    pid_t sleeper = 0;
    {
        FileLock lock(folder.file(L"hall.skorrax"));
        ASSERT_TRUE(lock.tryTake());
        sleeper = ::fork();
        if (sleeper == 0) {
            ::execl("/bin/sleep", "sleep", "60", nullptr);
            ::_exit(127);
        }
        // The child has become another program when the lock's copies are closed in it.
        const std::string program = "/proc/" + std::to_string(sleeper) + "/exe";
        const std::string own = std::filesystem::read_symlink("/proc/self/exe");
        while (std::filesystem::read_symlink(program) == own) ::usleep(1000);
    }
    EXPECT_TRUE(FileLock(folder.file(L"hall.skorrax")).take(soon));
    ::kill(sleeper, SIGKILL);
    ::waitpid(sleeper, nullptr, 0);
}

TEST(FileLockOfPosix, AllNamesAndLinksLeadToIt) {
    const TemporaryFolder folder;
    const TemporaryFolder other;
    std::filesystem::create_symlink(folder.at(L"hall.skorrax"), other.at(L"link"));
    std::filesystem::create_symlink("link", other.at(L"second"));
    std::filesystem::create_directory_symlink(folder.path(), other.at(L"shows"));
    FileLock lock(folder.file(L"hall.skorrax"));
    ASSERT_TRUE(lock.tryTake());
    EXPECT_FALSE(FileLock(other.file(L"second")).tryTake());  // the file is not there, the link leads to where it will be
    folder.write(L"hall.skorrax", "");
    EXPECT_FALSE(FileLock(other.file(L"second")).tryTake());
    EXPECT_FALSE(FileLock(other.file(L"shows") + L"/hall.skorrax").tryTake());
    EXPECT_FALSE(FileLock(other.file(L"shows") + L"\\.\\hall.skorrax").tryTake());
    EXPECT_TRUE(FileLock(other.file(L"hall.skorrax")).tryTake());
}

TEST(FileLockOfPosix, HoldsBetweenUsersInAFolderThatOneMayNotOpen) {
    if (::geteuid() != 0) GTEST_SKIP() << "needs the superuser, who becomes other users";
    const TemporaryFolder folder;
    ASSERT_EQ(::chmod(folder.path().c_str(), 0311), 0);
    const std::wstring path = folder.file(L"hall.skorrax");
    EXPECT_TRUE(isFreeFor(somebody, path));
    {
        const OtherHolder other(path, Unprivileged::nobody);
        ASSERT_TRUE(other.isHolding());
        EXPECT_FALSE(FileLock(path).tryTake());
        EXPECT_FALSE(isFreeFor(somebody, path));
        EXPECT_EQ(FileLock(path).holder(), other.process());
    }
    FileLock lock(path);
    ASSERT_TRUE(lock.take(soon));
    EXPECT_FALSE(isFreeFor(somebody, path));
}

TEST(FileLockOfPosix, HoldsAgainstThoseWhoSeeTheFolderAlone) {
    const TemporaryFolder folder;
    const int opened = ::open(folder.path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    ASSERT_EQ(::flock(opened, LOCK_EX), 0);
    FileLock lock(folder.file(L"hall.skorrax"));
    EXPECT_FALSE(lock.tryTake());
    ::close(opened);
    EXPECT_TRUE(lock.take(soon));
}

TEST(FileLockOfPosix, KeepsNothingOfAnAttemptThatRunsShort) {
    const TemporaryFolder folder;
    FileLock lock(folder.file(L"hall.skorrax"));
    {
        const OneDescriptorLeft shortage;
        EXPECT_THROW((void)lock.tryTake(), XMLConfig::detail::FileError);
    }
    EXPECT_TRUE(FileLock(folder.file(L"hall.skorrax")).take(soon));
    EXPECT_TRUE(lock.take(soon));
}
