#include <filesystem>
#include <stdexcept>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/AssetManager.h"
#include "sections/ColorConfig.h"
#include "sections/ScreenConfig.h"
#include "store/CorvaneException.h"
#include "tests/manager/TestManager.h"
#include "tests/support/CurrentFile.h"
#include "tests/support/DocumentTexts.h"
#include "tests/support/LogCapture.h"
#include "tests/support/ManagerLine.h"
#include "tests/support/SystemPath.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/Thrown.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using XMLConfig::tests::storedText;

namespace {

std::optional<std::wstring> storedMesh(const std::wstring& path) { return storedText(ConfigInfo(path), L"Screen", L"VRML"); }

}  // namespace

TEST(ManagerSaving, SavedFileGivesTheNameAndIsClean) {
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"hall.skorrax");
    LogCapture log;
    const auto manager = newManager();
    log.clear();
    manager->saveConfiguration(path);
    EXPECT_EQ(manager->getFileName(), path);
    EXPECT_FALSE(manager->isConfigDirty());
    EXPECT_EQ(manager->getAssetManager()->getRootPath(), wideOf(folder.path()));
    EXPECT_EQ(folder.entries(), 1u);
    EXPECT_THAT(log.lines(), ElementsAre(info("saveConfiguration('" + XMLConfig::detail::toUtf8(path) + "')")));
    EXPECT_EQ(loadedManager(path)->getFileName(), path);
}

TEST(ManagerSaving, SaveBringsTheBuildStampsUpToDate) {
    const TemporaryFolder folder;
    const std::wstring path = folder.write(L"hall.skorrax", fileText());
    loadedManager(path)->saveConfiguration(path);
    const std::string text = folder.read(L"hall.skorrax");
    EXPECT_THAT(text, HasSubstr("<BuildDate>Mar 11 2019</BuildDate>"));
    EXPECT_THAT(text, HasSubstr("<BuildNumber>2.1.1.14</BuildNumber>"));
    EXPECT_THAT(text, HasSubstr("<Version>" + latestVersion + "</Version>"));
}

TEST(ManagerSaving, SavedFileIsAFixedPoint) {
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"hall.skorrax");
    const auto manager = newManager();
    manager->getCameraConfig(L"a");
    manager->getProjectorConfig(L"b");
    manager->saveConfiguration(path);
    loadedManager(path)->saveConfiguration(path);  // now with the beginning of the visit
    const std::string once = folder.read(L"hall.skorrax");
    loadedManager(path)->saveConfiguration(path);
    EXPECT_EQ(folder.read(L"hall.skorrax"), once);
}

TEST(ManagerSaving, ForeignExtensionSavesNothing) {
    const TemporaryFolder folder;
    LogCapture log;
    TestManager manager(L"C:\\a\\old.skorrax");
    log.clear();
    manager.setConfigDirty(true);
    for (const std::wstring& path : {std::wstring(L"C:\\a\\b.xml"), folder.file(L"b.xml"), folder.file(L"b.SKORRAX"),
                                     folder.file(L"b."), folder.file(L"b.skorrax.bak"), folder.file(L"b.skorrax/c")})
        manager.saveConfiguration(path);
    EXPECT_EQ(manager.getFileName(), L"C:\\a\\old.skorrax");
    EXPECT_TRUE(manager.isConfigDirty());
    EXPECT_EQ(folder.entries(), 0u);
    EXPECT_THAT(log.lines(), ElementsAre());
}

TEST(ManagerSaving, PathThatBeginsWithItsLastDotSavesNothing) {
    TestManager manager;
    manager.saveConfiguration(L".skorrax");
    EXPECT_EQ(manager.getFileName(), L"");
    EXPECT_FALSE(std::filesystem::exists(".skorrax"));
}

TEST(ManagerSaving, PathWithoutADotThrows) {
    TestManager manager(L"C:\\a\\old.skorrax");
    for (const wchar_t* path : {L"", L"hall", L"C:\\a\\hall", L"/a/hall"}) {
        try {
            manager.saveConfiguration(path);
            ADD_FAILURE() << "nothing was thrown";
        } catch (const std::out_of_range& exception) {
            EXPECT_STREQ(exception.what(), "invalid string position");
        }
    }
    EXPECT_EQ(manager.getFileName(), L"C:\\a\\old.skorrax");
}

TEST(ManagerSaving, FailedSaveKeepsTheNewNameAndTheChanges) {
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"none/hall.skorrax");
    TestManager manager;
    manager.getColorConfig()->setTargetSizeX(5);
    EXPECT_EQ(messageOf([&] {
                  manager.saveConfiguration(path);
              }).rfind(L"Error save(): An error occurred trying to save DOM tree to file. Msg is:", 0),
              0u);
    EXPECT_EQ(manager.getFileName(), path);
    EXPECT_TRUE(manager.isConfigDirty());
    EXPECT_EQ(folder.entries(), 0u);
}

TEST(ManagerSaving, FailedSaveLeavesTheOldFile) {
    const TemporaryFolder folder;
    const std::wstring path = folder.write(L"hall.skorrax", "old");
    std::filesystem::permissions(folder.path() / "hall.skorrax", std::filesystem::perms::owner_read);
    TestManager manager;
    EXPECT_THROW(manager.saveConfiguration(path), CorvaneException);
    EXPECT_EQ(folder.read(L"hall.skorrax"), "old");
    EXPECT_EQ(folder.entries(), 1u);
}

TEST(ManagerSaving, SavingIntoAnotherFolderRewritesRelativeNames) {
    const TemporaryFolder folder;
    ASSERT_TRUE(std::filesystem::create_directory(folder.path() / "old"));
    ASSERT_TRUE(std::filesystem::create_directory(folder.path() / "new"));
    const auto manager = newManager();
    manager->saveConfiguration(folder.file(L"old/hall.skorrax"));
    ScreenConfig* screen = manager->getScreenConfig();
    screen->setMeshPath(folder.file(L"old/dome.obj"), BaseConfig::FilePathRelative);
    manager->saveConfiguration(folder.file(L"old/hall.skorrax"));
    EXPECT_EQ(storedMesh(folder.file(L"old/hall.skorrax")), L"dome.obj");

    manager->saveConfiguration(folder.file(L"new/hall.skorrax"));
    EXPECT_EQ(storedMesh(folder.file(L"new/hall.skorrax")), ofThisSystem(L"../old/dome.obj"));
    EXPECT_EQ(storedMesh(folder.file(L"old/hall.skorrax")), L"dome.obj");
    EXPECT_EQ(screen->getMeshPath(BaseConfig::FilePathAbsolute), ofThisSystem(folder.file(L"old/dome.obj")));
    EXPECT_EQ(manager->getAssetManager()->getRootPath(), folder.file(L"new"));

    manager->saveConfiguration(folder.file(L"new/other.skorrax"));
    EXPECT_EQ(storedMesh(folder.file(L"new/other.skorrax")), ofThisSystem(L"../old/dome.obj"));
    manager->saveConfiguration(folder.file(L"old/hall.skorrax"));
    EXPECT_EQ(storedMesh(folder.file(L"old/hall.skorrax")), L"dome.obj");
}

TEST(ManagerSaving, FirstSaveMakesNamesRelative) {
    const TemporaryFolder folder;
    const auto manager = newManager();
    ScreenConfig* screen = manager->getScreenConfig();
    screen->setMeshPath(folder.file(L"dome.obj"), BaseConfig::FilePathAbsolute);
    screen->setPCDPath(L"cloud.pcd", BaseConfig::FilePathRelative);
    manager->saveConfiguration(folder.file(L"hall.skorrax"));
    EXPECT_EQ(screen->getMeshPath(BaseConfig::FilePathRelative), L"dome.obj");
    EXPECT_EQ(screen->getPCDPath(BaseConfig::FilePathRelative), L"cloud.pcd");
    EXPECT_EQ(screen->getPCDPath(BaseConfig::FilePathAbsolute), folder.file(L"cloud.pcd"));
}

TEST(ManagerSaving, SavingIntoTheSameFolderTouchesNoName) {
    TestManager manager(L"D:\\shows\\hall.skorrax");
    manager.document.setStringItem(L"Screen", L"VRML", L".\\dome.obj", L"", L"", L"");
    manager.setConfigDirty(false);
    manager.updateRelativeFilePaths(L"D:\\shows\\other.skorrax");
    manager.updateRelativeFilePaths(L"d:\\SHOWS\\other.skorrax");
    EXPECT_EQ(storedText(manager.document, L"Screen", L"VRML"), L".\\dome.obj");
    EXPECT_FALSE(manager.isConfigDirty());
    EXPECT_EQ(manager.getAssetManager()->getRootPath(), L"D:\\shows");
}

TEST(ManagerSaving, RelativeFolderIsTheSameFolderAgain) {
    TestManager manager(L"shows/hall.skorrax");
    manager.document.setStringItem(L"Screen", L"VRML", L"dome.obj", L"", L"", L"");
    manager.updateRelativeFilePaths(L"shows/hall.skorrax");
    EXPECT_EQ(storedText(manager.document, L"Screen", L"VRML"), L"dome.obj");
}

TEST(ManagerSaving, NamesFollowTheFileBetweenRelativeFolders) {
    TestManager manager(L"hall.skorrax");
    const std::wstring here = XMLConfig::detail::fromUtf8(std::filesystem::current_path().u8string());
    EXPECT_EQ(manager.getAssetManager()->getRootPath(), here);
    manager.document.setStringItem(L"Screen", L"VRML", L"dome.obj", L"", L"", L"");
    manager.updateRelativeFilePaths(L"backup/hall.skorrax");
    EXPECT_EQ(storedText(manager.document, L"Screen", L"VRML"), ofThisSystem(L"../dome.obj"));
    manager.updateRelativeFilePaths(L"./backup/../hall.skorrax");
    EXPECT_EQ(storedText(manager.document, L"Screen", L"VRML"), L"dome.obj");
    manager.updateRelativeFilePaths(here + L"/hall.skorrax");
    EXPECT_EQ(storedText(manager.document, L"Screen", L"VRML"), L"dome.obj");
}

TEST(ManagerSaving, NamesOnDrivesFollowTheFile) {
    TestManager manager(L"D:\\shows\\hall.skorrax");
    manager.document.setStringItem(L"Screen", L"VRML", L"dome.obj", L"", L"", L"");
    manager.document.setStringItem(L"Screen", L"PCD", L"E:\\clouds\\a.pcd", L"", L"", L"");
    manager.updateRelativeFilePaths(L"D:\\tour\\hall.skorrax");
    EXPECT_EQ(storedText(manager.document, L"Screen", L"VRML"), L"..\\shows\\dome.obj");
    EXPECT_EQ(storedText(manager.document, L"Screen", L"PCD"), L"E:\\clouds\\a.pcd");
    manager.updateRelativeFilePaths(L"E:\\clouds\\hall.skorrax");
    EXPECT_EQ(storedText(manager.document, L"Screen", L"VRML"), L"D:\\shows\\dome.obj");
    EXPECT_EQ(storedText(manager.document, L"Screen", L"PCD"), L"a.pcd");
    EXPECT_FALSE(manager.document.doesItemExist(L"Screen", L"Marked_Surface_File", L""));
}

TEST(ManagerSaving, CopyLeavesNameAndDirtyFlag) {
    const TemporaryFolder folder;
    const std::wstring path = folder.write(L"hall.skorrax", fileText());
    const std::wstring copy = folder.file(L"copy.anything");
    const auto manager = loadedManager(path);
    LogCapture log;
    manager->copyConfiguration(copy);
    EXPECT_THAT(log.lines(), ElementsAre(info("copyConfiguration('" + XMLConfig::detail::toUtf8(copy) + "')")));
    EXPECT_FALSE(manager->isConfigDirty());
    manager->setConfigDirty(true);
    manager->copyConfiguration(copy);
    EXPECT_TRUE(manager->isConfigDirty());
    EXPECT_EQ(manager->getFileName(), path);
    EXPECT_THAT(folder.read(L"copy.anything"), HasSubstr("<BuildDate>Jan  1 2010</BuildDate>"));
    EXPECT_THAT(folder.read(L"copy.anything"), Not(HasSubstr("Mar 11 2019")));
}

TEST(ManagerSaving, FailedCopyLeavesNameAndDirtyFlag) {
    const TemporaryFolder folder;
    TestManager manager(L"C:\\a\\old.skorrax");
    EXPECT_THROW(manager.copyConfiguration(folder.file(L"none/copy.skorrax")), CorvaneException);
    EXPECT_FALSE(manager.isConfigDirty());
    manager.setConfigDirty(true);
    EXPECT_THROW(manager.copyConfiguration(folder.file(L"none/copy.skorrax")), CorvaneException);
    EXPECT_TRUE(manager.isConfigDirty());
    EXPECT_EQ(manager.getFileName(), L"C:\\a\\old.skorrax");
}

TEST(ManagerSaving, CopyLeavesTheDocumentWithItsFile) {
    const TemporaryFolder folder;
    const auto manager = loadedManager(folder.write(L"hall.skorrax", fileText()));
    manager->copyConfiguration(folder.file(L"copy.skorrax"));
    EXPECT_FALSE(manager->isConfigChangedOnDisk());
    folder.write(L"hall.skorrax", fileText("<System/>"));
    EXPECT_TRUE(manager->isConfigChangedOnDisk());
    const LogCapture log;
    manager->saveConfiguration(folder.file(L"hall.skorrax"));
    EXPECT_EQ(log.linesOf("Ulvano.XMLConfig.ConfigInfo").size(), 1u);
    manager->copyConfiguration(folder.file(L"hall.skorrax"));
    manager->saveConfiguration(folder.file(L"hall.skorrax"));
    EXPECT_EQ(log.linesOf("Ulvano.XMLConfig.ConfigInfo").size(), 1u);
}
