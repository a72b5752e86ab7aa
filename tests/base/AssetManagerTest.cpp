#include "base/AssetManager.h"

#include <type_traits>

#include <gtest/gtest.h>

#include "tests/support/VirtualSlots.h"

static_assert(std::is_polymorphic_v<AssetManager> && !std::has_virtual_destructor_v<AssetManager>);

namespace {

constexpr auto absolute = BaseConfig::FilePathAbsolute;
constexpr auto relative = BaseConfig::FilePathRelative;

}  // namespace

TEST(AssetManager, EmptyPathsStayEmpty) {
    for (const wchar_t* root : {L"", L"/shows/hall.skorrax", L"D:\\shows\\hall.skorrax"}) {
        const AssetManager assets(root);
        EXPECT_EQ(assets.getPath(L"", absolute), L"");
        EXPECT_EQ(assets.getPath(L"", relative), L"");
        EXPECT_EQ(assets.getAbsolutePath(L""), L"");
        EXPECT_EQ(assets.getRelativePath(L""), L"");
        EXPECT_EQ(assets.relocate(L"", L"/old"), L"");
    }
}

TEST(AssetManager, RootIsTheFolderOfTheFile) {
    EXPECT_EQ(AssetManager(L"/shows/hall.skorrax").getRootPath(), L"/shows");
    EXPECT_EQ(AssetManager(L"D:\\shows\\hall.skorrax").getRootPath(), L"D:\\shows");
    EXPECT_EQ(AssetManager(L"/hall.skorrax").getRootPath(), L"/");
    EXPECT_EQ(AssetManager(L"").getRootPath(), L"");
    AssetManager assets(L"/shows/hall.skorrax");
    assets.setRootPath(L"C:\\data\\x.skorrax");
    EXPECT_EQ(assets.getRootPath(), L"C:\\data");
    assets.setRootPath(L"");
    EXPECT_EQ(assets.getRootPath(), L"");
}

TEST(AssetManager, PathsTakeTheFormAskedFor) {
    const AssetManager posix(L"/shows/hall.skorrax");
    EXPECT_EQ(posix.getPath(L"meshes/dome.obj", absolute), L"/shows/meshes/dome.obj");
    EXPECT_EQ(posix.getPath(L"meshes/dome.obj", relative), L"meshes/dome.obj");
    EXPECT_EQ(posix.getPath(L"/shows/meshes/dome.obj", relative), L"meshes/dome.obj");
    EXPECT_EQ(posix.getPath(L"/other/dome.obj", relative), L"../other/dome.obj");
    EXPECT_EQ(posix.getPath(L"/other/dome.obj", absolute), L"/other/dome.obj");
    EXPECT_EQ(posix.getAbsolutePath(L"dome.obj"), L"/shows/dome.obj");
    EXPECT_EQ(posix.getRelativePath(L"/shows/dome.obj"), L"dome.obj");
    const AssetManager drive(L"D:\\shows\\hall.skorrax");
    EXPECT_EQ(drive.getPath(L"meshes\\dome.obj", absolute), L"D:\\shows\\meshes\\dome.obj");
    EXPECT_EQ(drive.getPath(L"d:\\SHOWS\\dome.obj", relative), L"dome.obj");
    EXPECT_EQ(drive.getPath(L"E:\\dome.obj", relative), L"E:\\dome.obj");
}

TEST(AssetManager, EveryModeButRelativeIsAbsolute) {
    const AssetManager assets(L"/shows/hall.skorrax");
    for (const int mode : {0, 2, -1})
        EXPECT_EQ(assets.getPath(L"dome.obj", static_cast<BaseConfig::FilePathMode>(mode)), L"/shows/dome.obj") << mode;
}

TEST(AssetManager, PathsStayAsTheyAreWithoutARoot) {
    const AssetManager assets(L"");
    EXPECT_EQ(assets.getAbsolutePath(L"dome.obj"), L"dome.obj");
    EXPECT_EQ(assets.getRelativePath(L"/shows/dome.obj"), L"/shows/dome.obj");
}

TEST(AssetManager, RelocatedPathsNameTheSameFile) {
    const AssetManager assets(L"/new/hall.skorrax");
    EXPECT_EQ(assets.relocate(L"dome.obj", L"/old"), L"../old/dome.obj");
    EXPECT_EQ(assets.relocate(L"../new/dome.obj", L"/old"), L"dome.obj");
    EXPECT_EQ(assets.relocate(L"/new/meshes/dome.obj", L"/old"), L"meshes/dome.obj");
    const AssetManager drive(L"D:\\new\\hall.skorrax");
    EXPECT_EQ(drive.relocate(L"dome.obj", L"D:\\old"), L"..\\old\\dome.obj");
    EXPECT_EQ(drive.relocate(L"dome.obj", L"E:\\old"), L"E:\\old\\dome.obj");
}

TEST(AssetManager, NameThatLooksLikeADriveIsFoundAgain) {
    const AssetManager assets(L"/shows/hall.skorrax");
    EXPECT_EQ(assets.getRelativePath(L"/shows/T:dome.obj"), L"./T:dome.obj");
    EXPECT_EQ(assets.getAbsolutePath(L"./T:dome.obj"), L"/shows/T:dome.obj");
    EXPECT_EQ(assets.getRelativePath(L"/shows/meshes/T:dome.obj"), L"meshes/T:dome.obj");
    EXPECT_EQ(assets.getRelativePath(L"/T:/dome.obj"), L"../T:/dome.obj");
    EXPECT_EQ(assets.relocate(L"./T:dome.obj", L"/shows"), L"./T:dome.obj");
}

TEST(AssetManager, SharesAreTheSameInEitherSpelling) {
    const AssetManager assets(L"\\\\server\\share\\shows\\hall.skorrax");
    EXPECT_EQ(assets.getRelativePath(L"\\\\server/share/shows/dome.obj"), L"dome.obj");
    EXPECT_EQ(assets.getRelativePath(L"\\\\server/share/shows"), L"");
    EXPECT_EQ(assets.getRelativePath(L"\\\\server/share2/dome.obj"), L"\\\\server/share2/dome.obj");
    EXPECT_EQ(assets.getRelativePath(L"\\\\server/sh"), L"\\\\server/sh");
}

#if defined(TESTS_KNOW_VIRTUAL_SLOTS)
TEST(AssetManager, VirtualMembersStandInOrder) {
    EXPECT_EQ(misplacedSlots(0, {NAMED_SLOT(AssetManager, setRootPath), NAMED_SLOT(AssetManager, getRootPath),
                                 NAMED_SLOT(AssetManager, getPath), NAMED_SLOT(AssetManager, getRelativePath),
                                 NAMED_SLOT(AssetManager, getAbsolutePath)}),
              "");
    EXPECT_EQ(slotOf(&AssetManager::relocate), -1);
}
#endif
