#include <cerrno>
#include <filesystem>
#include <utility>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "manager/UpgradeFile.h"
#include "store/CorvaneException.h"
#include "tests/manager/TestManager.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/Thrown.h"
#include "tests/support/posix/SystemCalls.h"

namespace {

using XMLConfig::upgradeFile;

class UpgradeBackup : public testing::Test {
protected:
    std::wstring failure() {
        return messageOf([this] { upgradeFile({m_path}); });
    }
    TemporaryFolder m_folder;
    std::string m_old = fileText("", "8.0");
    std::wstring m_path = m_folder.write(L"a.skorrax", m_old);
    std::wstring m_backup = m_path + L".v8.000.bak";
};

}  // namespace

TEST_F(UpgradeBackup, GoesWhereTheSaveFailsAndTheFileIsAsItWas) {
    const SystemCallWatch watch(failing("rename", EIO));
    EXPECT_EQ(failure(), L"Error save(): An error occurred trying to save DOM tree to file. Msg is:Can not write file " +
                             m_path + L": Input/output error");
    EXPECT_EQ(m_folder.read(L"a.skorrax"), m_old);
    EXPECT_EQ(m_folder.entries(), 1u);
}

TEST_F(UpgradeBackup, StaysWhereTheFileIsNotAsItWas) {
    bool isBroken = false;
    const SystemCallWatch watch([&](const SystemCall& call) {
        if (call.name == "rename") return EPERM;  // so that the text goes straight into the file
        if (call.name == "ftruncate") isBroken = true;
        return isBroken && (call.name == "write" || call.name == "fsync") ? EIO : 0;
    });
    EXPECT_NE(failure(), L"");
    EXPECT_NE(m_folder.read(L"a.skorrax"), m_old);
    EXPECT_EQ(m_folder.read(L"a.skorrax.v8.000.bak"), m_old);
    EXPECT_EQ(m_folder.entries(), 2u);
}

TEST_F(UpgradeBackup, ThatCannotBeMadeIsToldAndTheFileNotTouched) {
    struct stat before {};
    ASSERT_EQ(::stat(m_folder.at(L"a.skorrax").c_str(), &before), 0);
    const SystemCallWatch watch(failing("fsync", ENOSPC));
    EXPECT_EQ(failure(),
              L"Error upgradeFile: " + m_path + L": Can not write file " + m_backup + L": No space left on device");
    struct stat after {};
    ASSERT_EQ(::stat(m_folder.at(L"a.skorrax").c_str(), &after), 0);
    EXPECT_EQ(before.st_ino, after.st_ino);
    EXPECT_EQ(m_folder.read(L"a.skorrax"), m_old);
    EXPECT_EQ(m_folder.entries(), 1u);
}

TEST_F(UpgradeBackup, HasTheRightsOfTheFile) {
    ASSERT_EQ(::chmod(m_folder.at(L"a.skorrax").c_str(), 0620), 0);
    upgradeFile({m_path});
    for (const std::wstring& name : {m_path, m_backup}) {
        struct stat status {};
        ASSERT_EQ(::stat(pathOf(name).c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 07777, 0620u);
    }
}

TEST_F(UpgradeBackup, AndAnotherTargetAreNotMoreReadableThanTheFile) {
    const std::wstring latest = m_folder.write(L"b.skorrax", fileText());
    for (const std::wstring& path : {m_path, latest}) {
        for (const mode_t mode : {0600, 0640}) {
            ASSERT_EQ(::chmod(pathOf(path).c_str(), mode), 0);
            const std::wstring target = path + std::to_wstring(mode);
            upgradeFile({path, target});
            struct stat status {};
            ASSERT_EQ(::stat(pathOf(target).c_str(), &status), 0);
            EXPECT_EQ(status.st_mode & 07777, mode);
        }
    }
}

TEST_F(UpgradeBackup, LeavesALinkToNothingUnderItsName) {
    std::filesystem::create_symlink("nowhere", pathOf(m_backup));
    EXPECT_EQ(upgradeFile({m_path, {}, false}).backup, m_backup + L".2");
    EXPECT_EQ(upgradeFile({m_path}).backup, m_backup + L".2");
    EXPECT_EQ(m_folder.read(L"a.skorrax.v8.000.bak.2"), m_old);
    EXPECT_TRUE(std::filesystem::is_symlink(pathOf(m_backup)));
    EXPECT_FALSE(m_folder.has(L"nowhere"));
}

TEST_F(UpgradeBackup, TakesTheNextNameWhereSomebodyHasJustTakenTheFirst) {
    bool isTaken = false;
    const SystemCallWatch watch([&](const SystemCall& call) {
        if (call.name == "linkat" && !std::exchange(isTaken, true)) m_folder.write(L"a.skorrax.v8.000.bak", "another's");
        return 0;
    });
    EXPECT_EQ(upgradeFile({m_path}).backup, m_backup + L".2");
    EXPECT_EQ(m_folder.read(L"a.skorrax.v8.000.bak"), "another's");
    EXPECT_EQ(m_folder.read(L"a.skorrax.v8.000.bak.2"), m_old);
}

TEST_F(UpgradeBackup, IsNotMadeForACopyWhoseTargetIsNamedWhereItCannotBeWritten) {
    const std::wstring latest = m_folder.write(L"b.skorrax", fileText());
    const std::wstring target = m_folder.file(L"none/c.skorrax");
    EXPECT_EQ(messageOf([&] {
                  upgradeFile({latest, target});
              }),
              L"Error upgradeFile: " + latest + L": Can not write file " + target + L": No such file or directory");
    EXPECT_EQ(m_folder.entries(), 2u);
}
