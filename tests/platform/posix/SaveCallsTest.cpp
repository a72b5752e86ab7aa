#include <algorithm>
#include <cerrno>
#include <csignal>
#include <functional>
#include <map>
#include <tuple>
#include <utility>
#include <vector>

#include <fcntl.h>

#include "platform/CreateFile.h"
#include "tests/platform/posix/ReplaceFileSupport.h"
#include "tests/support/posix/SystemCalls.h"

namespace replacetests {

namespace {

struct stat statusOf(int descriptor) {
    struct stat status {};
    EXPECT_EQ(::fstat(descriptor, &status), 0);
    return status;
}

/// A disk that has no files without names.
int withoutNameless(const SystemCall& call) {
    return call.name == "open" && (call.flags & O_TMPFILE) == O_TMPFILE ? EOPNOTSUPP : 0;
}

/// The calls by which a file reaches the disk and its place, in order; writes that follow each other count as one.
class Steps {
public:
    explicit Steps(SystemCallWatch::Answer answer = [](const SystemCall&) { return 0; })
        : m_watch([this, answer](const SystemCall& call) {
              note(call);
              return answer(call);
          }) {}
    std::vector<std::string> taken() const { return m_taken; }

private:
    void note(const SystemCall& call) {
        static const std::vector<std::string> noted{"write", "fsync", "rename", "renameat2", "link", "linkat", "unlink"};
        if (std::find(noted.begin(), noted.end(), call.name) == noted.end()) return;
        const bool isFlush = call.name == "fsync";
        const std::string step = !isFlush                                     ? call.name
                                 : S_ISDIR(statusOf(call.descriptor).st_mode) ? "fsync folder"
                                                                              : "fsync file";
        if (step != "write" || m_taken.empty() || m_taken.back() != step) m_taken.push_back(step);
    }
    std::vector<std::string> m_taken;
    SystemCallWatch m_watch;
};

using Taken = std::vector<std::string>;

/// Every descriptor of this process with its status.
std::map<int, struct stat> openFiles() {
    std::map<int, struct stat> files;
    for (const auto& entry : fs::directory_iterator("/proc/self/fd")) {
        const int descriptor = std::stoi(entry.path().filename());
        struct stat status {};
        if (::fstat(descriptor, &status) == 0) files.emplace(descriptor, status);
    }
    return files;
}

}  // namespace

class SaveCalls : public ReplaceFile {
protected:
    std::wstring m_path = m_folder.write(L"a", "old");
};

TEST_F(SaveCalls, FlushTheFileBeforeItTakesThePlaceAndTheFolderAfter) {
    const Steps steps;
    replaceFile(m_path, std::string(200000, 'n'));
    EXPECT_EQ(steps.taken(), (Taken{"write", "fsync file", "linkat", "rename", "fsync folder"}));
}

TEST_F(SaveCalls, FlushAFileThatHasANameFromTheStart) {
    const Steps steps(withoutNameless);
    replaceFile(m_path, "new");
    EXPECT_EQ(steps.taken(), (Taken{"write", "fsync file", "rename", "fsync folder"}));
    EXPECT_EQ(m_folder.read(L"a"), "new");
    EXPECT_EQ(m_folder.entries(), 1u);
}

TEST_F(SaveCalls, FlushANewFileBeforeItsNameLeadsToIt) {
    const Steps steps;
    replaceFile(m_folder.file(L"b"), "new");
    EXPECT_EQ(steps.taken(), (Taken{"write", "fsync file", "linkat", "fsync folder"}));
}

TEST_F(SaveCalls, FlushANewFileWhereNoneIsWithoutAName) {
    const Steps steps(withoutNameless);
    replaceFile(m_folder.file(L"b"), "new");
    EXPECT_EQ(steps.taken(), (Taken{"write", "fsync file", "renameat2", "fsync folder"}));
}

TEST_F(SaveCalls, NameANewFileInTwoStepsWhereOneIsNotToBeHad) {
    const Steps steps([](const SystemCall& call) { return call.name == "renameat2" ? EINVAL : withoutNameless(call); });
    replaceFile(m_folder.file(L"b"), "new");
    EXPECT_EQ(steps.taken(), (Taken{"write", "fsync file", "renameat2", "link", "unlink", "fsync folder"}));
    EXPECT_EQ(m_folder.read(L"b"), "new");
    EXPECT_EQ(m_folder.entries(), 2u);
}

TEST_F(SaveCalls, FlushACopyAndItsFolder) {
    const Steps steps;
    copyToNewFile(m_path, m_folder.file(L"b"));
    EXPECT_EQ(steps.taken(), (Taken{"write", "fsync file", "linkat", "fsync folder"}));
}

TEST_F(SaveCalls, FlushAStraightWrite) {
    const Steps steps([](const SystemCall& call) { return call.name == "rename" ? EPERM : 0; });
    replaceFile(m_path, "new");
    EXPECT_EQ(steps.taken(), (Taken{"write", "fsync file", "linkat", "rename", "unlink", "write", "fsync file"}));
    EXPECT_EQ(m_folder.read(L"a"), "new");
    EXPECT_EQ(m_folder.entries(), 1u);
}

TEST_F(SaveCalls, WriteAgainWhereANamelessFileGetsNoName) {
    const ino_t before = inodeOf(m_folder.at(L"a"));
    const Steps steps(failing("linkat", ENOENT));
    replaceFile(m_path, "new");
    EXPECT_EQ(steps.taken(), (Taken{"write", "fsync file", "linkat", "write", "fsync file", "rename", "fsync folder"}));
    EXPECT_EQ(m_folder.read(L"a"), "new");
    EXPECT_NE(inodeOf(m_folder.at(L"a")), before);
    EXPECT_EQ(m_folder.entries(), 1u);
}

TEST_F(SaveCalls, ReplaceWhatSomebodyElseHasJustMade) {
    bool isMade = false;
    const SystemCallWatch watch([&](const SystemCall& call) {
        if (call.name == "linkat" && !std::exchange(isMade, true)) m_folder.write(L"b", "another's");
        return 0;
    });
    replaceFile(m_folder.file(L"b"), "new");
    EXPECT_EQ(m_folder.read(L"b"), "new");
    EXPECT_EQ(m_folder.entries(), 2u);
}

TEST_F(SaveCalls, NeverCopyOverWhatSomebodyElseHasJustMade) {
    const SystemCallWatch watch([&](const SystemCall& call) {
        if (call.name == "linkat" || call.name == "renameat2") m_folder.write(L"b", "another's");
        return withoutNameless(call);
    });
    EXPECT_THROW(copyToNewFile(m_path, m_folder.file(L"b")), FileError);
    EXPECT_EQ(m_folder.read(L"b"), "another's");
    EXPECT_EQ(m_folder.entries(), 2u);
}

TEST_F(SaveCalls, KeepTheNewFileToTheOwnerWhileItIsWritten) {
    ASSERT_EQ(::chmod(m_folder.at(L"a").c_str(), 0666), 0);
    for (const bool isNameless : {true, false}) {
        const SystemCallWatch watch([&](const SystemCall& call) { return isNameless ? 0 : withoutNameless(call); });
        const std::map<int, struct stat> before = openFiles();
        int seen = 0;
        replaceFile(m_path, [&](const ByteSink& sink) {
            sink("new");
            for (const auto& [descriptor, status] : openFiles()) {
                if (before.count(descriptor) != 0 || status.st_ino == inodeOf(m_folder.at(L"a"))) continue;
                if (!S_ISREG(status.st_mode)) continue;
                EXPECT_EQ(status.st_mode & 07777, 0600u);
                EXPECT_EQ(status.st_nlink, isNameless ? 0u : 1u);
                ++seen;
            }
        });
        EXPECT_EQ(seen, 1);
        EXPECT_EQ(modeOf(m_folder.at(L"a")), 0666u);
    }
}

TEST_F(SaveCalls, KeepTheRightsThatSomebodyGivesMeanwhile) {
    ASSERT_EQ(::chmod(m_folder.at(L"a").c_str(), 0666), 0);
    const ino_t before = inodeOf(m_folder.at(L"a"));
    bool isGiven = false;
    const SystemCallWatch watch([&](const SystemCall& call) {
        if (call.name == "fsync" && !std::exchange(isGiven, true)) {
            EXPECT_EQ(::chmod(m_folder.at(L"a").c_str(), 0600), 0);
        }
        return 0;
    });
    replaceFile(m_path, "new");
    EXPECT_EQ(m_folder.read(L"a"), "new");
    EXPECT_EQ(modeOf(m_folder.at(L"a")), 0600u);
    EXPECT_NE(inodeOf(m_folder.at(L"a")), before);
    EXPECT_EQ(m_folder.entries(), 1u);
}

TEST_F(SaveCalls, WriteStraightWhereTheRightsGoOnChanging) {
    const ino_t before = inodeOf(m_folder.at(L"a"));
    mode_t mode = 0600;
    const SystemCallWatch watch([&](const SystemCall& call) {
        if (call.name == "fsync") {
            EXPECT_EQ(::chmod(m_folder.at(L"a").c_str(), ++mode), 0);
        }
        return 0;
    });
    replaceFile(m_path, "new");
    EXPECT_EQ(m_folder.read(L"a"), "new");
    EXPECT_EQ(inodeOf(m_folder.at(L"a")), before);
    EXPECT_EQ(m_folder.entries(), 1u);
}

TEST_F(SaveCalls, KeepACopyAndAFileOfItsRightsToTheMakerWhileItIsWritten) {
    ASSERT_EQ(::chmod(m_folder.at(L"a").c_str(), 0666), 0);
    const std::wstring target = m_folder.file(L"b");
    const auto copy = [&] { copyToNewFile(m_path, target); };
    const auto create = [&] {
        EXPECT_TRUE(createFile(
            target, [](const ByteSink& sink) { sink("new"); }, m_path));
    };
    for (const std::function<void()>& make : {std::function<void()>(copy), std::function<void()>(create)}) {
        for (const bool isNameless : {true, false}) {
            fs::remove(m_folder.at(L"b"));
            int writes = 0;
            const SystemCallWatch watch([&](const SystemCall& call) {
                if (call.name == "write") {
                    EXPECT_EQ(statusOf(call.descriptor).st_mode & 07777, 0600u);
                    ++writes;
                }
                return isNameless ? 0 : withoutNameless(call);
            });
            make();
            EXPECT_EQ(writes, 1);
            EXPECT_EQ(modeOf(m_folder.at(L"b")), 0666u);
        }
    }
}

TEST_F(SaveCalls, LeaveNoDescriptorToAChild) {
    for (const bool isNameless : {true, false}) {
        const std::map<int, struct stat> before = openFiles();
        int seen = 0;
        const SystemCallWatch watch([&](const SystemCall& call) {
            for (const auto& [descriptor, status] : openFiles()) {
                if (before.count(descriptor) != 0 || (!S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode))) continue;
                struct stat own {};
                if (::stat("/proc/self/fd", &own) == 0 && status.st_dev == own.st_dev) continue;
                EXPECT_EQ(::fcntl(descriptor, F_GETFD) & FD_CLOEXEC, FD_CLOEXEC) << call.name;
                ++seen;
            }
            return isNameless ? 0 : withoutNameless(call);
        });
        m_folder.write(L".saving-0123456789abcdef0003", "what a killed save left");
        replaceFile(m_path, "new");
        fs::remove(m_folder.at(L"b"));
        copyToNewFile(m_path, m_folder.file(L"b"));
        EXPECT_GT(seen, 10);
        EXPECT_EQ(openFiles().size(), before.size());
    }
}

TEST_F(SaveCalls, TellWhatTheDiskSaysWhenTheNewFileIsClosed) {
    const ino_t old = inodeOf(m_folder.at(L"a"));
    const SystemCallWatch watch([&](const SystemCall& call) {
        if (call.name != "close") return 0;
        const struct stat status = statusOf(call.descriptor);
        return S_ISREG(status.st_mode) && status.st_ino != old ? EDQUOT : 0;
    });
    EXPECT_EQ(replaceError(m_path), refusal(m_path, L"Disk quota exceeded"));
    EXPECT_EQ(m_folder.read(L"a"), "old");
    EXPECT_EQ(m_folder.entries(), 1u);
}

TEST_F(SaveCalls, LeaveTheCallersOwnPendingSignalPending) {
    sigset_t pipe;
    sigset_t maskBefore;
    ::sigemptyset(&pipe);
    ::sigaddset(&pipe, SIGPIPE);
    ASSERT_EQ(::pthread_sigmask(SIG_BLOCK, &pipe, &maskBefore), 0);
    ::raise(SIGPIPE);
    replaceFile(m_path, "new");
    sigset_t pending;
    ASSERT_EQ(::sigpending(&pending), 0);
    EXPECT_EQ(::sigismember(&pending, SIGPIPE), 1);
    const timespec atOnce{};
    EXPECT_EQ(::sigtimedwait(&pipe, nullptr, &atOnce), SIGPIPE);
    ::pthread_sigmask(SIG_SETMASK, &maskBefore, nullptr);
}

TEST_F(SaveCalls, RefuseALinkThatCannotBeRead) {
    fs::create_symlink("a", m_folder.at(L"link"));
    const std::wstring link = m_folder.file(L"link");
    for (const auto& [error, reason] : {std::pair(EIO, L"Input/output error"), std::pair(EACCES, L"Permission denied")}) {
        const SystemCallWatch watch(failing("readlink", error));
        EXPECT_EQ(replaceError(link), refusal(link, reason));
    }
    EXPECT_TRUE(fs::is_symlink(m_folder.at(L"link")));
    EXPECT_EQ(m_folder.read(L"a"), "old");
    EXPECT_EQ(m_folder.entries(), 2u);
}

TEST_F(SaveCalls, NeverPutAFileInALinksPlace) {
    fs::create_symlink("a", m_folder.at(L"link"));
    fs::create_symlink("none", m_folder.at(L"dangling"));
    for (const int error : {ENOENT, EINVAL}) {
        const SystemCallWatch watch(failing("readlink", error));
        replaceFile(m_folder.file(L"link"), "new");
        EXPECT_EQ(m_folder.read(L"a"), "new");
        EXPECT_NE(replaceError(m_folder.file(L"dangling")), L"no error");
    }
    EXPECT_TRUE(fs::is_symlink(m_folder.at(L"link")));
    EXPECT_TRUE(fs::is_symlink(m_folder.at(L"dangling")));
    EXPECT_EQ(m_folder.entries(), 3u);
}

/// Fails the calls of one name once the text goes straight into the old file.
class StraightFault {
public:
    StraightFault(const std::string& name, int error)
        : m_watch([this, name, error](const SystemCall& call) {
              if (call.name == "rename") return EPERM;
              if (call.name == "fallocate") m_isStraight = true;
              if (call.name == "write" && m_isStraight) ++m_writes;
              return m_isStraight && call.name == name ? error : 0;
          }) {}
    int count(const std::string& name) const { return m_watch.count(name); }
    /// Into the old file.
    int writes() const { return m_writes; }

private:
    bool m_isStraight = false;
    int m_writes = 0;
    SystemCallWatch m_watch;
};

TEST_F(SaveCalls, GiveBackTheRoomOfAStraightWriteWhereNothingCanBeWritten) {
    const std::string old(5000, 'o');
    m_folder.write(L"a", old);
    struct stat before {};
    ASSERT_EQ(::stat(m_folder.at(L"a").c_str(), &before), 0);
    for (const char* name : {"write", "fallocate"}) {
        const StraightFault fault(name, ENOSPC);
        EXPECT_EQ(replaceError(m_path, std::string(900000, 'n')), refusal(m_path, L"No space left on device"));
        EXPECT_EQ(fault.count("fallocate"), 1);
        EXPECT_EQ(fault.writes() > 0, name == std::string("write"));  // where there is no room the text is not touched
        EXPECT_EQ(m_folder.read(L"a"), old);
        struct stat after {};
        ASSERT_EQ(::stat(m_folder.at(L"a").c_str(), &after), 0);
        EXPECT_EQ(after.st_blocks, before.st_blocks);
    }
}

TEST_F(SaveCalls, PutTheOldContentBackWhereAStraightWriteFailsAtTheEnd) {
    for (const std::size_t size : {50u, 5000u}) {
        const std::string old(size, 'o');
        m_folder.write(L"a", old);
        for (const char* name : {"fsync", "ftruncate"}) {
            bool hasFailed = false;
            const SystemCallWatch watch([&](const SystemCall& call) {
                if (call.name == "rename") return EPERM;
                if (call.name != name || !S_ISREG(statusOf(call.descriptor).st_mode)) return 0;
                return statusOf(call.descriptor).st_nlink == 1 && !std::exchange(hasFailed, true) ? EIO : 0;
            });
            EXPECT_EQ(replaceError(m_path, std::string(400, 'n')), refusal(m_path, L"Input/output error")) << name;
            EXPECT_EQ(m_folder.read(L"a"), old);
        }
    }
}

TEST_F(SaveCalls, LeaveAWholeTextWhereNoFileCanBeCut) {
    const SystemCallWatch watch([](const SystemCall& call) {
        if (call.name == "rename") return EPERM;
        return call.name == "ftruncate" ? EIO : 0;
    });
    for (const auto& [old, text, left] :
         {std::tuple("long old text", "new", "long old text"), {"old", "long new text", "long new text"}}) {
        m_folder.write(L"a", old);
        EXPECT_EQ(replaceError(m_path, text), refusal(m_path, L"Input/output error"));
        EXPECT_EQ(m_folder.read(L"a"), left);
    }
}

}  // namespace replacetests
