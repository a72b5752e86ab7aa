#include "platform/Paths.h"

#include <memory>

#include <gtest/gtest.h>

#include "platform/IPathHelper.h"

namespace {

using namespace XMLConfig::detail;

TEST(Paths, KnowBothSeparators) {
    EXPECT_TRUE(isSeparator(L'\\'));
    EXPECT_TRUE(isSeparator(L'/'));
    EXPECT_FALSE(isSeparator(L':'));
}

TEST(Paths, AreAbsoluteWithADriveOrALeadingSeparator) {
    for (const wchar_t* path : {L"C:", L"c:x", L"C:\\a", L"C:/a", L"/", L"/a", L"\\a", L"\\\\server\\share"}) {
        EXPECT_TRUE(isAbsolute(path)) << testing::PrintToString(path);
    }
    for (const wchar_t* path : {L"", L"a", L"a/b", L"..\\a", L".", L"1:\\a", L":a", L"\u00fc:\\a"}) {
        EXPECT_FALSE(isAbsolute(path)) << testing::PrintToString(path);
    }
}

struct PartsRow {
    const wchar_t* path;
    const wchar_t* drive;
    const wchar_t* directory;
    const wchar_t* name;
    const wchar_t* extension;
};

const PartsRow partsRows[] = {
    {L"", L"", L"", L"", L""},
    {L"warp.skorra", L"", L"", L"warp", L".skorra"},
    {L"C:\\data\\warp.skorra", L"C:", L"\\data\\", L"warp", L".skorra"},
    {L"/shows/hall.skorrax", L"", L"/shows/", L"hall", L".skorrax"},
    {L"C:warp", L"C:", L"", L"warp", L""},
    {L"C:", L"C:", L"", L"", L""},
    {L"C:\\", L"C:", L"\\", L"", L""},
    {L"a.b\\c", L"", L"a.b\\", L"c", L""},
    {L"a\\b/c.d.e", L"", L"a\\b/", L"c.d", L".e"},
    {L".hidden", L"", L"", L"", L".hidden"},
    {L"dir/", L"", L"dir/", L"", L""},
    {L"name.", L"", L"", L"name", L"."},
    {L"\\\\server\\share\\f.x", L"", L"\\\\server\\share\\", L"f", L".x"},
};

class PathParts_ : public testing::TestWithParam<PartsRow> {};

TEST_P(PathParts_, SplitAndJoinAgain) {
    const PathParts parts = splitPath(GetParam().path);
    EXPECT_EQ(parts.drive, GetParam().drive);
    EXPECT_EQ(parts.directory, GetParam().directory);
    EXPECT_EQ(parts.name, GetParam().name);
    EXPECT_EQ(parts.extension, GetParam().extension);
    EXPECT_EQ(parts.joined(), GetParam().path);
    EXPECT_EQ(lastComponent(GetParam().path), std::wstring(GetParam().name) + GetParam().extension);
}

INSTANTIATE_TEST_SUITE_P(Paths, PathParts_, testing::ValuesIn(partsRows));

struct Row {
    const wchar_t* path;
    const wchar_t* result;
};

class FolderOf : public testing::TestWithParam<Row> {};

TEST_P(FolderOf, CutsTheLastComponent) { EXPECT_EQ(folderOf(GetParam().path), GetParam().result); }

const Row folderRows[] = {
    {L"", L""},
    {L"hall.skorrax", L""},
    {L"shows/hall.skorrax", L"shows"},
    {L"/shows/hall.skorrax", L"/shows"},
    {L"/shows//hall.skorrax", L"/shows"},
    {L"/hall.skorrax", L"/"},
    {L"/", L"/"},
    {L"C:\\shows\\hall.skorrax", L"C:\\shows"},
    {L"C:/shows\\hall.skorrax", L"C:/shows"},
    {L"C:\\hall.skorrax", L"C:\\"},
    {L"C:/hall.skorrax", L"C:/"},
    {L"C:hall.skorrax", L"C:"},
    {L"\\hall.skorrax", L"\\"},
    {L"\\\\server\\share\\hall.skorrax", L"\\\\server\\share"},
    {L"\\\\server\\share\\shows\\hall.skorrax", L"\\\\server\\share\\shows"},
    {L"..\\hall.skorrax", L".."},
};

INSTANTIATE_TEST_SUITE_P(Paths, FolderOf, testing::ValuesIn(folderRows));

struct JoinRow {
    const wchar_t* folder;
    const wchar_t* name;
    const wchar_t* result;
};

class JoinPath : public testing::TestWithParam<JoinRow> {};

TEST_P(JoinPath, PutsOneSeparatorBetween) { EXPECT_EQ(joinPath(GetParam().folder, GetParam().name), GetParam().result); }

const JoinRow joinRows[] = {
    {L"", L"a", L"a"},
    {L"/shows", L"a", L"/shows/a"},
    {L"/shows/", L"a", L"/shows/a"},
    {L"/shows//", L"a", L"/shows/a"},
    {L"/", L"a", L"/a"},
    {L"shows", L"a\\b", L"shows/a\\b"},
    {L"shows\\x", L"a", L"shows\\x\\a"},
    {L"C:\\", L"a", L"C:\\a"},
    {L"C:/", L"a", L"C:/a"},
    {L"C:", L"a", L"C:\\a"},
    {L"C:/shows", L"a/b", L"C:/shows\\a/b"},
    {L"\\\\server\\share", L"a", L"\\\\server\\share\\a"},
    {L"/shows", L"/a", L"/a"},
    {L"/shows", L"D:\\a", L"D:\\a"},
    {L"/shows", L"", L"/shows"},
};

TEST(Drive, MayBeEveryLetter) {
    for (const wchar_t letter : std::wstring(L"AZaz")) {
        const std::wstring drive = std::wstring(1, letter) + L":";
        EXPECT_EQ(driveOf(drive + L"\\a"), drive);
        EXPECT_TRUE(isAbsolute(drive + L"a"));
    }
    for (const wchar_t other : std::wstring(L"@[`{")) EXPECT_EQ(driveOf(std::wstring(1, other) + L":\\a"), L"");
}

TEST(FoldedPath, OfARelativePathStaysRelative) {
    EXPECT_EQ(foldPath(L"a/../C:/b"), L"./C:/b");
    EXPECT_EQ(foldPath(L".\\C:"), L".\\C:");
    EXPECT_EQ(foldPath(L"./C:/b"), L"./C:/b");
}

INSTANTIATE_TEST_SUITE_P(Paths, JoinPath, testing::ValuesIn(joinRows));

class FoldPath : public testing::TestWithParam<Row> {};

TEST_P(FoldPath, TakesOutDots) { EXPECT_EQ(foldPath(GetParam().path), GetParam().result); }

const Row foldRows[] = {
    {L"", L""},
    {L".", L""},
    {L"a/./b", L"a/b"},
    {L"a/../b", L"b"},
    {L"a/b/..", L"a"},
    {L"a/b/.", L"a/b"},
    {L"a/..", L""},
    {L"a/b/", L"a/b/"},
    {L"../a", L"../a"},
    {L"a/../../b", L"../b"},
    {L"..\\..\\a", L"..\\..\\a"},
    {L"/../a", L"/a"},
    {L"/a/../../b", L"/b"},
    {L"/a/..", L"/"},
    {L"C:\\..\\a", L"C:\\a"},
    {L"C:\\a\\..", L"C:\\"},
    {L"C:..\\a", L"C:..\\a"},
    {L"a\\b/c\\../d", L"a\\b/d"},
    {L"a//b", L"a/b"},
    {L"\\\\server\\share\\..\\a", L"\\\\server\\share\\a"},
    {L"\\\\server\\share\\a\\..\\b", L"\\\\server\\share\\b"},
    {L"a/..b/...", L"a/..b/..."},
};

INSTANTIATE_TEST_SUITE_P(Paths, FoldPath, testing::ValuesIn(foldRows));

TEST(SameDrive, IgnoresCase) {
    EXPECT_TRUE(sameDrive(L"c:\\a", L"C:/b"));
    EXPECT_TRUE(sameDrive(L"/a", L"b"));
    EXPECT_FALSE(sameDrive(L"C:\\a", L"D:\\a"));
    EXPECT_FALSE(sameDrive(L"C:\\a", L"\\a"));
}

struct RelativeRow {
    const wchar_t* path;
    const wchar_t* configFile;
    const wchar_t* result;
};

const RelativeRow relativeRows[] = {
    {L"/shows/warp.skorrax", L"/shows/hall.skorrax", L"warp.skorrax"},
    {L"/shows/meshes/dome.obj", L"/shows/hall.skorrax", L"meshes/dome.obj"},
    {L"/shows", L"/shows/hall.skorrax", L""},
    {L"/shows/", L"/shows/hall.skorrax", L""},
    {L"/shows/x/..", L"/shows/hall.skorrax", L""},
    {L"/", L"/shows/hall.skorrax", L".."},
    {L"/", L"/hall.skorrax", L""},
    {L"/a/b", L"/hall.skorrax", L"a/b"},
    {L"/assets/dome.obj", L"/shows/hall.skorrax", L"../assets/dome.obj"},
    {L"/assets/dome.obj", L"/shows/2021/hall.skorrax", L"../../assets/dome.obj"},
    {L"/Shows/dome.obj", L"/shows/hall.skorrax", L"../Shows/dome.obj"},
    {L"/showsX/dome.obj", L"/shows/hall.skorrax", L"../showsX/dome.obj"},
    {L"/shows/./a/../dome.obj", L"/shows/hall.skorrax", L"dome.obj"},
    {L"/shows//dome.obj", L"/shows/hall.skorrax", L"dome.obj"},
    {L"C:\\shows\\dome.obj", L"C:\\shows\\hall.skorrax", L"dome.obj"},
    {L"c:\\SHOWS\\Dome.obj", L"C:\\shows\\hall.skorrax", L"Dome.obj"},
    {L"C:/shows/m/dome.obj", L"C:\\shows\\hall.skorrax", L"m/dome.obj"},
    {L"C:\\dome.obj", L"C:\\shows\\hall.skorrax", L"..\\dome.obj"},
    {L"C:\\dome.obj", L"C:\\hall.skorrax", L"dome.obj"},
    {L"C:/other/dome.obj", L"C:/shows/x/hall.skorrax", L"..\\..\\other/dome.obj"},
    {L"D:\\shows\\dome.obj", L"C:\\shows\\hall.skorrax", L"D:\\shows\\dome.obj"},
    {L"/shows/dome.obj", L"C:\\shows\\hall.skorrax", L"/shows/dome.obj"},
    {L"C:\\shows\\dome.obj", L"/shows/hall.skorrax", L"C:\\shows\\dome.obj"},
    {L"C:dome.obj", L"C:\\shows\\hall.skorrax", L"C:dome.obj"},
    {L"\\\\server\\share\\shows\\dome.obj", L"\\\\server\\share\\shows\\hall.skorrax", L"dome.obj"},
    {L"\\\\server\\share\\dome.obj", L"\\\\server\\share\\shows\\hall.skorrax", L"..\\dome.obj"},
    {L"\\\\server\\share\\dome.obj", L"\\\\server\\share\\hall.skorrax", L"dome.obj"},
    {L"\\\\server\\other\\dome.obj", L"\\\\server\\share\\hall.skorrax", L"\\\\server\\other\\dome.obj"},
    {L"/shows/dome.obj", L"", L"/shows/dome.obj"},
    {L"/shows/dome.obj", L"shows/hall.skorrax", L"/shows/dome.obj"},
    {L"meshes\\..\\dome.obj", L"/shows/hall.skorrax", L"meshes\\..\\dome.obj"},
    {L"", L"/shows/hall.skorrax", L""},
    {L"/\u65e5\u672c/\U0001F4FD.obj", L"/\u65e5\u672c/hall.skorrax", L"\U0001F4FD.obj"},
};

class PathHelperRelative : public testing::TestWithParam<RelativeRow> {};

TEST_P(PathHelperRelative, IsSeenFromTheRoot) {
    const std::unique_ptr<IPathHelper> helper(createPathHelper());
    helper->setRootPath(GetParam().configFile);
    EXPECT_EQ(helper->makeRelative(GetParam().path), GetParam().result);
    EXPECT_EQ(relativeTo(GetParam().path, helper->getRootPath()), GetParam().result);
}

INSTANTIATE_TEST_SUITE_P(Paths, PathHelperRelative, testing::ValuesIn(relativeRows));

struct AbsoluteRow {
    const wchar_t* path;
    const wchar_t* configFile;
    const wchar_t* result;
};

const AbsoluteRow absoluteRows[] = {
    {L"dome.obj", L"/shows/hall.skorrax", L"/shows/dome.obj"},
    {L"meshes\\dome.obj", L"/shows/hall.skorrax", L"/shows/meshes\\dome.obj"},
    {L"../dome.obj", L"/shows/hall.skorrax", L"/dome.obj"},
    {L"../../../dome.obj", L"/shows/hall.skorrax", L"/dome.obj"},
    {L"./dome.obj", L"/shows/hall.skorrax", L"/shows/dome.obj"},
    {L"..", L"/shows/hall.skorrax", L"/"},
    {L"dome.obj", L"/hall.skorrax", L"/dome.obj"},
    {L"dome.obj", L"C:\\shows\\hall.skorrax", L"C:\\shows\\dome.obj"},
    {L"..\\dome.obj", L"C:\\shows\\hall.skorrax", L"C:\\dome.obj"},
    {L"dome.obj", L"C:\\hall.skorrax", L"C:\\dome.obj"},
    {L"m/dome.obj", L"C:/shows/hall.skorrax", L"C:/shows\\m/dome.obj"},
    {L"..\\..\\dome.obj", L"\\\\server\\share\\shows\\hall.skorrax", L"\\\\server\\share\\dome.obj"},
    {L"/a/../dome.obj", L"/shows/hall.skorrax", L"/a/../dome.obj"},
    {L"D:\\dome.obj", L"/shows/hall.skorrax", L"D:\\dome.obj"},
    {L"a/../dome.obj", L"", L"a/../dome.obj"},
    {L"dome.obj", L"shows/hall.skorrax", L"shows/dome.obj"},
};

class PathHelperAbsolute : public testing::TestWithParam<AbsoluteRow> {};

TEST_P(PathHelperAbsolute, IsJoinedToTheRoot) {
    const std::unique_ptr<IPathHelper> helper(createPathHelper());
    helper->setRootPath(GetParam().configFile);
    EXPECT_EQ(helper->makeAbsolute(GetParam().path), GetParam().result);
    const std::unique_ptr<IPathHelper> elsewhere(createPathHelper());
    elsewhere->setRootPath(L"/elsewhere/x.skorrax");
    EXPECT_EQ(elsewhere->resolve(GetParam().path, helper->getRootPath()), GetParam().result);
}

INSTANTIATE_TEST_SUITE_P(Paths, PathHelperAbsolute, testing::ValuesIn(absoluteRows));

TEST(PathHelper, HasTheFolderOfTheConfigurationAsRoot) {
    const std::unique_ptr<IPathHelper> helper(createPathHelper());
    EXPECT_EQ(helper->getRootPath(), L"");
    helper->setRootPath(L"/shows/hall.skorrax");
    EXPECT_EQ(helper->getRootPath(), L"/shows");
    helper->setRootPath(L"C:\\hall.skorrax");
    EXPECT_EQ(helper->getRootPath(), L"C:\\");
    helper->setRootPath(L"");
    EXPECT_EQ(helper->getRootPath(), L"");
}

TEST(PathHelper, TellsRelativePaths) {
    const std::unique_ptr<IPathHelper> helper(createPathHelper());
    EXPECT_TRUE(helper->isRelative(L"meshes\\dome.obj"));
    EXPECT_TRUE(helper->isRelative(L""));
    EXPECT_FALSE(helper->isRelative(L"C:\\dome.obj"));
    EXPECT_FALSE(helper->isRelative(L"\\dome.obj"));
}

TEST(PathHelper, CutsNoLongPath) {
    std::wstring folder;
    for (int i = 0; i < 2000; ++i) folder += L"/folder";
    const std::unique_ptr<IPathHelper> helper(createPathHelper());
    helper->setRootPath(folder + L"/hall.skorrax");
    EXPECT_EQ(helper->getRootPath(), folder);
    EXPECT_EQ(helper->makeAbsolute(L"dome.obj"), folder + L"/dome.obj");
    EXPECT_EQ(helper->makeRelative(folder + L"/dome.obj"), L"dome.obj");
}

TEST(PathHelper, GoesThereAndBack) {
    const std::unique_ptr<IPathHelper> helper(createPathHelper());
    for (const wchar_t* configFile :
         {L"/a/b/c/hall.skorrax", L"C:\\a\\b\\c\\hall.skorrax", L"\\\\s\\t\\a\\b\\c\\hall.skorrax"}) {
        helper->setRootPath(configFile);
        for (const wchar_t* steps : {L"dome.obj", L"x/dome.obj", L"../dome.obj", L"../../x/y/dome.obj"}) {
            const std::wstring absolute = helper->makeAbsolute(steps);
            EXPECT_EQ(helper->makeAbsolute(helper->makeRelative(absolute)), absolute);
        }
    }
}

}  // namespace
