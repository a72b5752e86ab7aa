#include <csignal>

#include <fcntl.h>
#include <sys/mount.h>
#include <sys/wait.h>

#include "tests/platform/posix/ReplaceFileSupport.h"
#include "tests/support/posix/SystemCalls.h"

namespace replacetests {

namespace {

bool isNameless(const SystemCall& call) { return call.name == "open" && (call.flags & O_TMPFILE) == O_TMPFILE; }

/// Calls in a child that is killed where `isAt` says so. False when it came to its end.
template <typename Act, typename IsAt>
bool killedWhere(Act act, IsAt isAt, bool hasNameless = true) {
    const pid_t child = ::fork();
    if (child == 0) {
        const SystemCallWatch watch([&](const SystemCall& call) {
            if (isAt(call)) ::kill(::getpid(), SIGKILL);
            return !hasNameless && isNameless(call) ? EOPNOTSUPP : 0;
        });
        act();
        ::_exit(0);
    }
    int status = 0;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    return WIFSIGNALED(status);
}

auto before(const std::string& name) {
    return [name](const SystemCall& call) { return call.name == name; };
}

}  // namespace

class KilledSave : public ReplaceFile {
protected:
    bool isKilledBefore(const std::string& name, bool hasNameless = true) {
        return killedWhere([this] { replaceFile(m_path, "new"); }, before(name), hasNameless);
    }
    std::wstring m_path = m_folder.write(L"a", "old");
};

TEST_F(KilledSave, LeavesNothingWhereTheFileHasNoNameYet) {
    for (const char* name : {"write", "fsync", "linkat"}) {
        EXPECT_TRUE(isKilledBefore(name));
        EXPECT_EQ(m_folder.read(L"a"), "old");
        EXPECT_EQ(m_folder.entries(), 1u) << name;
    }
}

TEST_F(KilledSave, LeavesAFileThatTheNextSaveInTheFolderRemoves) {
    m_folder.write(L"b", "other");
    EXPECT_TRUE(isKilledBefore("rename"));
    EXPECT_TRUE(isKilledBefore("rename"));
    EXPECT_EQ(m_folder.read(L"a"), "old");
    EXPECT_EQ(m_folder.entries(), 3u);  // the second has removed that of the first
    replaceFile(m_folder.file(L"b"), "new");
    EXPECT_EQ(m_folder.entries(), 2u);
}

TEST_F(KilledSave, LeavesAFileThatTheNextCopyRemoves) {
    EXPECT_TRUE(isKilledBefore("rename"));
    copyToNewFile(m_path, m_folder.file(L"b"));
    EXPECT_EQ(m_folder.entries(), 2u);
}

TEST_F(KilledSave, LeavesAFileThatIsRemovedWhereEachHasAName) {
    for (const char* name : {"write", "fsync", "rename"}) {
        EXPECT_TRUE(isKilledBefore(name, false));
        EXPECT_EQ(m_folder.entries(), 2u) << name;
    }
    replaceFile(m_path, "new");
    EXPECT_EQ(m_folder.entries(), 1u);
}

TEST_F(KilledSave, LeavesNoPartOfACopy) {
    for (const char* name : {"write", "fsync", "linkat"}) {
        EXPECT_TRUE(killedWhere([this] { copyToNewFile(m_path, m_folder.file(L"b")); }, before(name)));
        EXPECT_EQ(m_folder.entries(), 1u) << name;
    }
}

TEST_F(KilledSave, AtAnyCallLeavesOneTextOrTheOtherAndTheNextSaveCleansUp) {
    for (const bool hasNameless : {true, false}) {
        for (int number = 1;; ++number) {
            int seen = 0;
            const bool isKilled = killedWhere([this] { replaceFile(m_path, "new"); },
                                              [&](const SystemCall&) { return ++seen == number; }, hasNameless);
            EXPECT_TRUE(m_folder.read(L"a") == "old" || m_folder.read(L"a") == "new");
            replaceFile(m_path, "old");
            EXPECT_EQ(m_folder.entries(), 1u) << number;
            if (!isKilled) break;
            ASSERT_LT(number, 100);
        }
    }
}

TEST_F(KilledSave, IsNotTakenFromALivingWriter) {
    for (const bool hasNameless : {true, false}) {
        bool isInside = false;
        const SystemCallWatch watch([&](const SystemCall& call) {
            if (call.name == "rename" && !isInside) {
                isInside = true;
                EXPECT_EQ(m_folder.entries(), 2u);
                replaceFile(m_path, "this thread's");
                EXPECT_FALSE(
                    killedWhere([this] { replaceFile(m_path, "another's"); }, [](const SystemCall&) { return false; }));
                EXPECT_EQ(m_folder.entries(), 2u);
            }
            return !hasNameless && isNameless(call) ? EOPNOTSUPP : 0;
        });
        replaceFile(m_path, "new");
        EXPECT_TRUE(isInside);
        EXPECT_EQ(m_folder.read(L"a"), "new");
        EXPECT_EQ(m_folder.entries(), 1u);
    }
}

// A writer that claims its new file a moment too late must find it gone, not lose it after that.
TEST_F(KilledSave, LeavesAFileThatIsRemovedBeforeItsLockIsGivenBack) {
    const std::wstring left = m_folder.write(L".saving-0123456789abcdef0003", "left");
    struct stat abandoned {};
    ASSERT_EQ(::stat(m_folder.at(L".saving-0123456789abcdef0003").c_str(), &abandoned), 0);
    int closes = 0;
    const SystemCallWatch watch([&](const SystemCall& call) {
        struct stat status {};
        if (call.name != "close" || ::fstat(call.descriptor, &status) != 0) return 0;
        if (status.st_dev != abandoned.st_dev || status.st_ino != abandoned.st_ino) return 0;
        if (closes++ == 0) {  // later ones are of files that got its number
            EXPECT_EQ(status.st_nlink, 0u);
        }
        return 0;
    });
    replaceFile(m_path, "new");
    EXPECT_GE(closes, 1);
    EXPECT_FALSE(fileExists(left));
}

TEST_F(KilledSave, DoesNotKeepOthersFromLoading) {
    bool isAsked = false;
    const SystemCallWatch watch([&](const SystemCall& call) {
        if (call.name == "fsync" && isAsked) {  // of the folder: the new file is in its place
            EXPECT_TRUE(canOpenForUpdate(m_path));
        }
        isAsked = isAsked || call.name == "rename";
        return 0;
    });
    replaceFile(m_path, "new");
    EXPECT_TRUE(isAsked);
}

TEST_F(KilledSave, IsKnownByItsNameAlone) {
    for (const wchar_t* name : {L".saving-", L".saving-0123456789abcdef012", L".saving-0123456789abcdef01234",
                                L".saving-0123456789abcdef012x", L"x.saving-0123456789abcdef0123"}) {
        m_folder.write(name, "somebody's");
    }
    fs::create_symlink("a", m_folder.at(L".saving-0123456789abcdef0000"));
    fs::create_directory(m_folder.at(L".saving-0123456789abcdef0001"));
    ASSERT_EQ(::mkfifo(m_folder.at(L".saving-0123456789abcdef0002").c_str(), 0600), 0);
    m_folder.write(L".saving-0123456789abcdef0003", "left");
    replaceFile(m_path, "new");
    EXPECT_EQ(m_folder.entries(), 9u);
    EXPECT_FALSE(m_folder.has(L".saving-0123456789abcdef0003"));
}

TEST_F(KilledSave, LeavesWhatNobodyRemovesWhereLocksAreUnknown) {
    m_folder.write(L".saving-0123456789abcdef0003", "left");
    const SystemCallWatch watch([](const SystemCall& call) { return call.name == "fcntl" ? ENOLCK : 0; });
    replaceFile(m_path, "new");
    EXPECT_EQ(m_folder.read(L"a"), "new");
    EXPECT_EQ(m_folder.entries(), 2u);
}

TEST_F(KilledSave, TriesAgainWhereItsFileIsTakenForAnAbandonedOne) {
    for (const bool isRemoved : {false, true}) {
        int claims = 0;
        const SystemCallWatch watch([&](const SystemCall& call) {
            if (call.name != "fcntl" || ++claims > 2) return isNameless(call) ? EOPNOTSUPP : 0;
            if (!isRemoved) return EAGAIN;
            for (const auto& entry : fs::directory_iterator(m_folder.path())) {
                if (entry.path() != m_folder.at(L"a")) fs::remove(entry.path());
            }
            return 0;
        });
        replaceFile(m_path, "new");
        EXPECT_EQ(m_folder.read(L"a"), "new");
        EXPECT_EQ(m_folder.entries(), 1u);
        EXPECT_GT(claims, 2);
    }
}

}  // namespace replacetests
