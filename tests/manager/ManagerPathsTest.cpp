#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/AssetManager.h"
#include "sections/ColorConfig.h"
#include "sections/MediaServerConfig.h"
#include "sections/SystemConfig.h"
#include "tests/manager/TestManager.h"
#include "tests/support/LogCapture.h"

using testing::ElementsAre;

namespace {

struct NameRow {
    const wchar_t* fileName;
    const wchar_t* noPath;
    const wchar_t* noPathNoExtension;
};

}  // namespace

TEST(ManagerPaths, FileNameIsCutAtTheLastSlashFirst) {
    for (const NameRow& row :
         {NameRow{L"C:/dir/sub\\file.skorrax", L"sub\\file.skorrax", L"sub\\file"},
          NameRow{L"C:\\dir\\file.skorrax", L"file.skorrax", L"file"},
          NameRow{L"/dir/file.skorrax", L"file.skorrax", L"file"}, NameRow{L"a.b.skorrax", L"a.b.skorrax", L"a.b"},
          NameRow{L"/d.ir/file", L"file", L"file"}, NameRow{L"file", L"file", L"file"},
          NameRow{L".skorrax", L".skorrax", L""}, NameRow{L"C:file.skorrax", L"C:file.skorrax", L"C:file"},
          NameRow{L"/dir/", L"", L""}, NameRow{L"", L"", L""}}) {
        const TestManager manager(row.fileName);
        EXPECT_EQ(manager.getFileName(), row.fileName);
        EXPECT_EQ(manager.getFileNameNoPath(), row.noPath);
        EXPECT_EQ(manager.getFileNameNoPathNoExtension(), row.noPathNoExtension);
    }
}

TEST(ManagerPaths, FileNameCanBeSetToItself) {
    TestManager manager(L"/dir/file.skorrax");
    manager.setFileName(manager.getFileName());
    EXPECT_EQ(manager.getFileName(), L"/dir/file.skorrax");
}

TEST(ManagerPaths, MpcdiNameStandsBesideTheFile) {
    struct Row {
        const wchar_t* fileName;
        const wchar_t* mpcdi;
    };
    for (const Row& row : {Row{L"", L"mpcdi.xml"}, Row{L"/shows/hall", L"mpcdi.xml"},
                           Row{L"D:\\shows\\hall.skorrax", L"D:\\shows\\hall.mpcdi.xml"},
                           Row{L"/shows/a.b.skorrax", L"/shows/a.b.mpcdi.xml"}, Row{L"/a.b/hall", L"/a.mpcdi.xml"}})
        EXPECT_EQ(TestManager(row.fileName).getMpcdiOutputFilename(), row.mpcdi);
}

TEST(ManagerPaths, MpcdiNameIsTheMediaServersWhereItHasOne) {
    TestManager manager(L"D:\\shows\\hall.skorrax");
    manager.getMediaServerConfig()->set(L"outputFile", L"out.skorra");
    EXPECT_EQ(manager.getMpcdiOutputFilename(), L"out.skorra");
    manager.getMediaServerConfig()->set(L"outputFile", L"");
    EXPECT_EQ(manager.getMpcdiOutputFilename(), L"D:\\shows\\hall.mpcdi.xml");
}

TEST(ManagerPaths, ForeignExtensionMakesUntitled) {
    struct Row {
        const wchar_t* path;
        const wchar_t* fileName;
    };
    for (const Row& row :
         {Row{L"C:\\a\\b.skorrax", L"C:\\a\\b.skorrax"}, Row{L"C:\\a\\b.skorra", L""}, Row{L"C:\\a\\b.SKORRAX", L""},
          Row{L"C:\\a\\b.", L"C:\\a\\b."}, Row{L"C:\\a\\b", L"C:\\a\\b"}, Row{L"/a.x/b", L""}, Row{L"", L""},
          Row{L".skorrax", L".skorrax"}, Row{L".", L"."}, Row{L"/a/b.skorrax.xml", L""}}) {
        TestManager manager(L"/before.skorrax");
        manager.setConfigUntitledIfDeprecatedExtension(row.path);
        EXPECT_EQ(manager.getFileName(), row.fileName);
    }
}

TEST(ManagerPaths, StoredNamesBecomePathsToOpen) {
    struct Row {
        const wchar_t* fileName;
        const wchar_t* path;
        const wchar_t* result;
    };
    for (const Row& row : {
             Row{L"", L"C:\\data\\warp.skorra", L"C:\\data\\warp.skorrax"},
             Row{L"D:\\shows\\hall.skorrax", L"C:\\data\\warp.skorra", L"C:\\data\\warp.skorrax"},
             Row{L"D:\\shows\\hall.skorrax", L"warp.skorrax", L"D:\\shows\\warp.skorrax"},
             Row{L"D:\\shows\\hall.skorrax", L"warp.skorra", L"D:\\shows\\warp.skorrax"},
             Row{L"D:\\shows\\hall.skorrax", L"warps\\a.b.skorra", L"D:\\shows\\warps\\a.b.skorrax"},
             Row{L"D:/shows/hall.skorrax", L"warps/a.bin", L"D:/shows/warps/a.bin"},
             Row{L"D:\\shows\\hall.skorrax", L"warp.SKORRA", L"D:\\shows\\warp.SKORRA"},
             Row{L"D:\\shows\\hall.skorrax", L"warp", L"D:\\shows\\warp"},
             Row{L"D:\\hall.skorrax", L"warp.skorra", L"D:\\warp.skorrax"},
             Row{L"/shows/hall.skorrax", L"warp.skorrax", L"/shows/warp.skorrax"},
             Row{L"/shows/hall.skorrax", L"../warp.skorra", L"/shows/../warp.skorrax"},
             Row{L"/shows/hall.skorrax", L"/data/warp.skorra", L"/data/warp.skorrax"},
             Row{L"/shows/hall.skorrax", L"C:\\warp.skorra", L"C:\\warp.skorrax"},
             Row{L"/hall.skorrax", L"warp.skorrax", L"/warp.skorrax"},
             Row{L"", L"warp.skorra", L"warp.skorrax"},
             Row{L"", L"sub\\warp.skorrax", L"sub\\warp.skorrax"},
             Row{L"shows/hall.skorrax", L"warp.skorrax", L"warp.skorrax"},
             Row{L"D:\\shows\\hall.skorrax", L"", L"D:\\shows\\"},
             Row{L"", L"", L""},
         }) {
        EXPECT_EQ(TestManager(row.fileName).processPath(row.path), row.result);
    }
}

TEST(ManagerPaths, LongNamesAreNotCut) {
    const std::wstring folder = L"/" + std::wstring(400, L'f') + L"/";
    const TestManager manager(folder + L"hall.skorrax");
    const std::wstring name(300, L'n');
    EXPECT_EQ(manager.processPath(name + L".skorra"), folder + name + L".skorrax");
}

TEST(ManagerPaths, ProcessedPathsAreLogged) {
    const TestManager manager(L"/shows/hall.skorrax");
    LogCapture log;
    EXPECT_EQ(manager.processPath(L"warp.skorra"), L"/shows/warp.skorrax");
    EXPECT_THAT(log.lines(), ElementsAre(LogLine{"Ulvano.XMLConfig.XMLConfigManager", "INFO",
                                                 "processFileName( 'warp.skorra' ) = '/shows/warp.skorrax'"}));
}

TEST(ManagerPaths, WarpAndColourFilesAreProcessed) {
    TestManager manager(L"D:\\shows\\hall.skorrax");
    EXPECT_EQ(manager.getSkorraFilename(), L"D:\\shows\\untitled.skorrax");
    EXPECT_EQ(manager.getAdvancedColorFilename(), L"D:\\shows\\SavedAdvancedColor.skorrax");
    manager.document.setStringItem(L"System", L"Skorra_File", L"warp.skorra", L"", L"", L"");
    manager.getColorConfig()->setAdvancedColorFilename(L"C:\\colour.skorra");
    EXPECT_EQ(manager.getSkorraFilename(), L"D:\\shows\\warp.skorrax");
    EXPECT_EQ(manager.getAdvancedColorFilename(), L"C:\\colour.skorrax");
    EXPECT_EQ(manager.getSystemConfig()->getSkorraFilename(), L"warp.skorra");
}
