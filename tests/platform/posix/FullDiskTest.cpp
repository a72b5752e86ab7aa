#include <sys/mount.h>

#include "tests/platform/posix/ReplaceFileSupport.h"

namespace replacetests {

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
    admitNoSecondFile();
    const Unprivileged user;
    ASSERT_TRUE(user.isDone());
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

}  // namespace replacetests
