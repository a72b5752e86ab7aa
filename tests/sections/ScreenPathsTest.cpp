#include "sections/ScreenConfig.h"

#include <gtest/gtest.h>

#include "store/ChangeObserver.h"
#include "store/CorvaneException.h"
#include "tests/sections/ScreenFixture.h"

namespace {

using XMLConfig::tests::itemsOf;
using Texts = std::vector<std::wstring>;

constexpr auto absolute = BaseConfig::FilePathAbsolute;
constexpr auto relative = BaseConfig::FilePathRelative;

class ScreenPaths : public XMLConfig::tests::ScreenFixture {};

}  // namespace

TEST_F(ScreenPaths, PathsAreStoredInTheFormOfTheSetterAndGivenInThatOfTheGetter) {
    screen.setMeshPath(L"/shows/meshes/dome.wrl", relative);
    EXPECT_EQ(items.text(L"VRML"), L"meshes/dome.wrl");
    EXPECT_EQ(screen.getMeshPath(absolute), L"/shows/meshes/dome.wrl");
    EXPECT_EQ(screen.getMeshPath(relative), L"meshes/dome.wrl");
    screen.setMeasuredMeshPath(L"measured.wrl", absolute);
    EXPECT_EQ(items.text(L"MeasuredVRML"), L"/shows/measured.wrl");
    EXPECT_EQ(screen.getMeasuredMeshPath(relative), L"measured.wrl");
    screen.setPCDPath(L"cloud.pcd", static_cast<BaseConfig::FilePathMode>(7));
    EXPECT_EQ(items.text(L"PCD"), L"/shows/cloud.pcd");
    screen.setMarkedSurfaceFilename(L"/images/marked.png", relative);
    EXPECT_EQ(items.text(L"Marked_Surface_File"), L"../images/marked.png");
    EXPECT_EQ(screen.getMarkedSurfaceFilename(absolute), L"/images/marked.png");
}

TEST_F(ScreenPaths, EmptyPathIsStoredEmpty) {
    screen.setPCDPath(L"", absolute);
    EXPECT_EQ(items.text(L"PCD"), L"");
    EXPECT_EQ(screen.getPCDPath(absolute), L"");
}

TEST_F(ScreenPaths, PathsFollowANewRoot) {
    items.putClean(L"VRML", L"meshes/dome.wrl");
    items.putClean(L"PCD", L"");
    items.putClean(L"Marked_Surface_File", L"../images/marked.png");
    items.putClean(L"Shape", L"meshes/dome.wrl");
    assets->setRootPath(L"/shows/new/hall.skorrax");
    screen.updateRelativeFilePaths(L"/shows");
    EXPECT_EQ(itemsOf(document, L"Screen"),
              (Texts{L"VRML = ../meshes/dome.wrl", L"PCD = ", L"Marked_Surface_File = ../../images/marked.png",
                     L"Shape = meshes/dome.wrl"}));
    EXPECT_TRUE(document.isDirty());
    EXPECT_EQ(screen.getMeshPath(absolute), L"/shows/meshes/dome.wrl");
}

TEST_F(ScreenPaths, PathsFollowInAFixedOrder) {
    struct Keys : XMLConfig::detail::ChangeObserver {
        void changed(XMLConfig::detail::Change&& change) override { changes.push_back(change.key); }
        Texts changes;
    } keys;
    for (const wchar_t* key : {L"Marked_Surface_File", L"MeasuredVRML", L"PCD", L"VRML"}) items.putClean(key, L"a.file");
    assets->setRootPath(L"/shows/new/hall.skorrax");
    XMLConfig::detail::setChangeObserver(document, &keys);
    screen.updateRelativeFilePaths(L"/shows");
    XMLConfig::detail::setChangeObserver(document, nullptr);
    EXPECT_EQ(keys.changes, (Texts{L"VRML", L"PCD", L"Marked_Surface_File", L"MeasuredVRML"}));
}

TEST_F(ScreenPaths, AbsolutePathsBecomeRelativeToANewRoot) {
    items.putClean(L"MeasuredVRML", L"/shows/new/measured.wrl");
    assets->setRootPath(L"/shows/new/hall.skorrax");
    screen.updateRelativeFilePaths(L"/shows");
    EXPECT_EQ(items.text(L"MeasuredVRML"), L"measured.wrl");
}

TEST_F(ScreenPaths, MissingPathsAreNotCreatedByANewRoot) {
    screen.updateRelativeFilePaths(L"/elsewhere");
    EXPECT_FALSE(document.doesSectionExist(L"Screen", L""));
    EXPECT_FALSE(document.isDirty());
}

TEST_F(ScreenPaths, WithoutAssetManagerOnlyPathsFail) {
    ScreenConfig bare(&document, nullptr, L"");
    bare.initialize();
    EXPECT_EQ(items.text(L"VRML"), L"");
    EXPECT_EQ(bare.getMeshPath(absolute), L"");
    bare.updateRelativeFilePaths(L"/shows");
    bare.setWidth(3.0);
    EXPECT_EQ(bare.getWidth(), 3.0);
    EXPECT_THROW(bare.setPCDPath(L"cloud.pcd", relative), CorvaneException);
    EXPECT_EQ(items.text(L"PCD"), std::nullopt);
    items.putClean(L"PCD", L"cloud.pcd");
    EXPECT_THROW(bare.getPCDPath(relative), CorvaneException);
    EXPECT_THROW(bare.updateRelativeFilePaths(L"/shows"), CorvaneException);
    EXPECT_EQ(items.text(L"PCD"), L"cloud.pcd");
}

TEST_F(ScreenPaths, AssetManagerIsShared) {
    EXPECT_EQ(assets.use_count(), 2);
    {
        const ScreenConfig other(&document, assets, L"2");
        EXPECT_EQ(assets.use_count(), 3);
    }
    EXPECT_EQ(assets.use_count(), 2);
}
