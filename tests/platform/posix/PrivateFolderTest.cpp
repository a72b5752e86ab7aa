#include "platform/PrivateFolder.h"

#include <cstdlib>
#include <filesystem>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "platform/Clock.h"
#include "platform/DiagnosticsFolder.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/posix/OtherUser.h"
#include "tests/support/posix/SystemCalls.h"

namespace {

using namespace XMLConfig::detail;
namespace fs = std::filesystem;

const OtherUser alice{50001, {50001}};
const OtherUser bob{50002, {50002}};

mode_t modeOfEntry(const fs::path& path) {
    struct stat status {};
    EXPECT_EQ(::lstat(path.c_str(), &status), 0);
    return status.st_mode & 07777;
}

class OwnFolder : public testing::Test {
protected:
    OwnFolder() { EXPECT_EQ(::chmod(m_above.path().c_str(), 01777), 0); }
    std::wstring marked(const std::wstring& name) const { return m_above.file(name) + L'-' + userMark(); }
    void give(const fs::path& path, const OtherUser& user) {
        ASSERT_EQ(::lchown(path.c_str(), user.user, user.groups.front()), 0);
    }

    TemporaryFolder m_above;
    std::wstring m_path = m_above.file(L"own");
};

}  // namespace

TEST_F(OwnFolder, IsClosedToOthersWhateverTheMask) {
    const mode_t maskBefore = ::umask(0);
    EXPECT_EQ(makePrivateFolder(m_path).path, m_path);
    EXPECT_EQ(modeOfEntry(m_above.at(L"own")), 0700u);
    ::umask(0777);
    EXPECT_FALSE(makePrivateFolder(m_above.file(L"unreachable")).path.empty());
    ::umask(maskBefore);
}

TEST_F(OwnFolder, IsNotLeftOpenToPrograms) {
    int closed = 0;
    const SystemCallWatch watch([&](const SystemCall& call) {
        if (call.name != "close") return 0;
        EXPECT_EQ(::fcntl(call.descriptor, F_GETFD) & FD_CLOEXEC, FD_CLOEXEC);
        ++closed;
        return 0;
    });
    makePrivateFolder(m_path);
    EXPECT_EQ(closed, 1);
}

TEST_F(OwnFolder, ThatOthersCouldReadIsClosed) {
    fs::create_directory(m_above.at(L"own"));
    ASSERT_EQ(::chmod(m_above.at(L"own").c_str(), 0755), 0);
    EXPECT_EQ(makePrivateFolder(m_path).path, m_path);
    EXPECT_EQ(modeOfEntry(m_above.at(L"own")), 0700u);
}

TEST_F(OwnFolder, ThatOthersCouldWriteIsNotTrusted) {
    for (const mode_t mode : {0770u, 0707u}) {
        const fs::path open = m_above.at(std::to_wstring(mode));
        fs::create_directory(open);
        ASSERT_EQ(::chmod(open.c_str(), mode), 0);
        const PrivateFolder made = makePrivateFolder(wideOf(open));
        EXPECT_TRUE(made.isThere);
        EXPECT_EQ(made.path, marked(std::to_wstring(mode)));
        EXPECT_EQ(modeOfEntry(open), mode);
    }
}

TEST_F(OwnFolder, IsNotBehindALink) {
    fs::create_directory(m_above.at(L"elsewhere"));
    ASSERT_EQ(::chmod(m_above.at(L"elsewhere").c_str(), 0750), 0);
    fs::create_directory_symlink("elsewhere", m_above.at(L"own"));
    fs::create_symlink("none", m_above.at(L"dangling"));
    EXPECT_EQ(makePrivateFolder(m_path).path, marked(L"own"));
    EXPECT_EQ(makePrivateFolder(m_above.file(L"dangling")).path, marked(L"dangling"));
    EXPECT_EQ(modeOfEntry(m_above.at(L"elsewhere")), 0750u);
    EXPECT_FALSE(m_above.has(L"none"));
}

TEST_F(OwnFolder, IsAnotherOneWhereTheNameIsAnothers) {
    if (::geteuid() != 0) GTEST_SKIP() << "only the superuser can own another's folder";
    fs::create_directory(m_above.at(L"folder"));
    m_above.write(L"file", "another's");
    for (const wchar_t* name : {L"folder", L"file"}) {
        give(m_above.at(name), alice);
        const PrivateFolder made = makePrivateFolder(m_above.file(name));
        EXPECT_TRUE(made.isThere);
        EXPECT_EQ(made.path, marked(name));
        EXPECT_EQ(modeOfEntry(pathOf(made.path)), 0700u);
    }
    EXPECT_TRUE(fs::is_empty(m_above.at(L"folder")));
}

TEST_F(OwnFolder, HasANameThatNobodyForeseesWhereAllOthersAreTaken) {
    if (::geteuid() != 0) GTEST_SKIP() << "only the superuser can own another's folder";
    for (const fs::path& path : {m_above.at(L"own"), pathOf(marked(L"own"))}) {
        fs::create_directory(path);
        give(path, bob);
    }
    const PrivateFolder first = makePrivateFolder(m_path);
    const PrivateFolder second = makePrivateFolder(m_path);
    EXPECT_TRUE(first.isThere);
    EXPECT_TRUE(second.isThere);
    EXPECT_NE(first.path, second.path);
    EXPECT_EQ(first.path.compare(0, marked(L"own").size() + 1, marked(L"own") + L'-'), 0);
    EXPECT_EQ(m_above.entries(), 4u);
}

TEST_F(OwnFolder, IsOneForEachUser) {
    if (::geteuid() != 0) GTEST_SKIP() << "only the superuser can be several users";
    const auto makesIt = [this](const std::wstring& expected) {
        return [this, expected] {
            const PrivateFolder made = makePrivateFolder(m_path);
            return made.isThere && made.path == expected;
        };
    };
    EXPECT_TRUE(holdsFor(alice, makesIt(m_path)));
    EXPECT_TRUE(holdsFor(bob, makesIt(m_path + L"-50002")));
    EXPECT_TRUE(holdsFor(alice, makesIt(m_path)));
    EXPECT_EQ(m_above.entries(), 2u);
}

// In a process of its own, whose folder has not been asked for yet.
class DiagnosticsDeathTest : public OwnFolder {
protected:
    DiagnosticsDeathTest() { testing::FLAGS_gtest_death_test_style = "threadsafe"; }
    /// Ends with 0 where the folder lies in the one of that name and belongs to the user alone.
    [[noreturn]] void tellWhetherBelow(const std::wstring& name) const {
        ::setenv("TMPDIR", m_above.path().c_str(), 1);
        setClock([] { return std::int64_t(1552262400); });
        const std::wstring path = UlvanoDiagnostics::getDataSubDirectory();
        const std::wstring expected = m_above.file(name) + L"/2019-03-11T00-00-00-" + std::to_wstring(::getpid());
        const bool isPrivate = modeOfEntry(pathOf(path)) == 0700 && modeOfEntry(pathOf(path).parent_path()) == 0700;
        ::_exit(path == expected && isPrivate ? 0 : 1);
    }
};

TEST_F(DiagnosticsDeathTest, FolderHasItsPrescribedName) {
    EXPECT_EXIT(tellWhetherBelow(L"UlvanoDiagnostics"), testing::ExitedWithCode(0), "");
}

TEST_F(DiagnosticsDeathTest, FolderIsNotBehindALink) {
    EXPECT_EXIT(
        {
            fs::create_directory(m_above.at(L"elsewhere"));
            fs::create_directory_symlink("elsewhere", m_above.at(L"UlvanoDiagnostics"));
            tellWhetherBelow(L"UlvanoDiagnostics-" + userMark());
        },
        testing::ExitedWithCode(0), "");
}
