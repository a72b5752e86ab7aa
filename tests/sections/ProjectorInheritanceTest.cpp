#include <gtest/gtest.h>

#include "sections/GeometryConfig.h"
#include "sections/ProjectorConfig.h"
#include "sections/SystemConfig.h"
#include "tests/support/SettingRows.h"

using XMLConfig::tests::leavesOf;

namespace {

using P = ProjectorConfig;

/// One inherited setting: its key, the table's default, two other values with their stored texts, and its accessors.
template <typename T>
struct Inherited {
    const wchar_t* key;
    T fallback;
    T parents;
    const wchar_t* parentsText;
    T own;
    T (P::*get)() const;
    void (P::*set)(T);
    void (P::*unset)();
};

template <typename T>
void checkInheritance(const Inherited<T>& setting) {
    SCOPED_TRACE(testing::PrintToString(std::wstring(setting.key)));
    ConfigInfo document;
    P projector(&document, L"2");
    EXPECT_EQ((projector.*setting.get)(), setting.fallback);

    document.setStringItem(L"Geometry", setting.key, setting.parentsText, L"", {}, {});
    EXPECT_EQ((projector.*setting.get)(), setting.parents);
    EXPECT_FALSE(document.doesSectionExist(L"Projector", L"2")) << "reading creates nothing";

    (projector.*setting.set)(setting.own);
    EXPECT_EQ((projector.*setting.get)(), setting.own);
    EXPECT_EQ(document.getStringItem(L"Geometry", setting.key, {}, {}, {}, {}), setting.parentsText);

    (projector.*setting.unset)();
    EXPECT_FALSE(document.doesItemExist(L"Projector", setting.key, L"2"));
    EXPECT_EQ((projector.*setting.get)(), setting.parents);

    document.setDirty(false);
    (projector.*setting.unset)();
    EXPECT_FALSE(document.isDirty()) << "nothing is left to unset";

    document.setStringItem(L"Projector", setting.key, L"", L"2", {}, {});
    EXPECT_NE((projector.*setting.get)(), setting.parents) << "an empty item of its own hides the geometry section's";
}

}  // namespace

TEST(ProjectorInheritance, GeometrySectionServesWhatTheProjectorLacks) {
    checkInheritance<int>({L"ImageResolution_X", 1400, 1920, L"1920", 800, &P::getImageResolutionX, &P::setImageResolutionX,
                           &P::unsetImageResolutionX});
    checkInheritance<int>({L"ImageResolution_Y", 1050, 1200, L"1200", 600, &P::getImageResolutionY, &P::setImageResolutionY,
                           &P::unsetImageResolutionY});
    checkInheritance<int>({L"InputImageScaling_Mode", 0, 1, L"1", 5, &P::getInputImageScalingMode,
                           &P::setInputImageScalingMode, &P::unsetInputImageScalingMode});
    checkInheritance<int>(
        {L"Portrait_Mode", 0, 1, L"1", 3, &P::getPortraitMode, &P::setPortraitMode, &P::unsetPortraitMode});
    checkInheritance<double>({L"Box_Spacing", 1.5, 2.5, L"2.500000000000000e+00", 0.75, &P::getBoxSpacing, &P::setBoxSpacing,
                              &P::unsetBoxSpacing});
}

TEST(ProjectorInheritance, BoxSizeComesFromTheGeometryUntilSet) {
    ConfigInfo document;
    P projector(&document, L"1");
    const Point_2Dim<int> fallback(21, 21);
    const Point_2Dim<int> parents(30, 10);
    const Point_2Dim<int> own(5, 6);
    EXPECT_TRUE(projector.getBoxSize() == fallback);
    document.setStringItem(L"Geometry", L"Box_Size", L"30, 10", L"", {}, {});
    EXPECT_TRUE(projector.getBoxSize() == parents);
    projector.setBoxSize(own);
    EXPECT_TRUE(projector.getBoxSize() == own);
    EXPECT_EQ(document.getStringItem(L"Projector", L"Box_Size", {}, L"1", {}, {}), L"5, 6");
    projector.unsetBoxSize();
    EXPECT_TRUE(projector.getBoxSize() == parents);
}

TEST(ProjectorInheritance, MalformedOwnItemGivesTheDefaultNotTheGeometrys) {
    ConfigInfo document;
    P projector(&document, L"1");
    document.setStringItem(L"Geometry", L"Box_Size", L"30, 10", L"", {}, {});
    for (const wchar_t* text : {L"", L"7", L"1, 2, 3"}) {
        document.setStringItem(L"Projector", L"Box_Size", text, L"1", {}, {});
        EXPECT_TRUE(projector.getBoxSize() == Point_2Dim<int>(21, 21)) << testing::PrintToString(std::wstring(text));
    }
}

TEST(ProjectorInheritance, MalformedGeometryItemGivesTheDefault) {
    ConfigInfo document;
    document.setStringItem(L"Geometry", L"Box_Size", L"wide", L"", {}, {});
    document.setStringItem(L"Geometry", L"ImageResolution_X", L"wide", L"", {}, {});
    const P projector(&document, L"1");
    EXPECT_TRUE(projector.getBoxSize() == Point_2Dim<int>(21, 21));
    EXPECT_EQ(projector.getImageResolutionX(), 0);
}

TEST(ProjectorInheritance, ServesWhatTheSectionsThemselvesWrite) {
    ConfigInfo document;
    GeometryConfig geometry(&document, L"");
    geometry.setImageResolutionX(1);
    geometry.setImageResolutionY(2);
    geometry.setInputImageScalingMode(3);
    geometry.setPortraitMode(4);
    geometry.setBoxSize({5, 6});
    geometry.setBoxSpacing(7.0);
    SystemConfig system(&document, nullptr, L"");
    system.setMotoBlendInitCommand(L"i");
    system.setMotoBlendOpenCommand(L"o");
    system.setMotoBlendCloseCommand(L"c");
    const P projector(&document, L"1");
    EXPECT_EQ(projector.getImageResolutionX(), 1);
    EXPECT_EQ(projector.getImageResolutionY(), 2);
    EXPECT_EQ(projector.getInputImageScalingMode(), 3);
    EXPECT_EQ(projector.getPortraitMode(), 4);
    EXPECT_TRUE(projector.getBoxSize() == Point_2Dim<int>(5, 6));
    EXPECT_EQ(projector.getBoxSpacing(), 7.0);
    EXPECT_EQ(projector.getMotoBlendInitCommand(), L"i");
    EXPECT_EQ(projector.getMotoBlendOpenCommand(), L"o");
    EXPECT_EQ(projector.getMotoBlendCloseCommand(), L"c");
}

TEST(ProjectorInheritance, NeighbourProjectorsDoNotServe) {
    ConfigInfo document;
    P(&document, L"1").setImageResolutionX(800);
    EXPECT_EQ(P(&document, L"2").getImageResolutionX(), 1400);
}

TEST(ProjectorInheritance, OtherSettingsAreNotInherited) {
    ConfigInfo document;
    document.setStringItem(L"Geometry", L"Fit_Order", L"3", L"", {}, {});
    document.setStringItem(L"Geometry", L"Gamma", L"1.0", L"", {}, {});
    document.setStringItem(L"System", L"Portrait_Mode", L"1", L"", {}, {});
    const P projector(&document, L"1");
    EXPECT_EQ(projector.getFitOrder(), 0);
    EXPECT_EQ(projector.getGamma(), 2.2);
    EXPECT_EQ(projector.getPortraitMode(), 0);
}

TEST(ProjectorInheritance, NewProjectorInherits) {
    ConfigInfo document;
    P projector(&document, L"1");
    projector.initialize();
    document.setStringItem(L"Geometry", L"ImageResolution_Y", L"900", L"", {}, {});
    document.setStringItem(L"System", L"MotoBlend_Close_Command", L"shut", L"", {}, {});
    EXPECT_EQ(projector.getImageResolutionY(), 900);
    EXPECT_EQ(projector.getMotoBlendCloseCommand(), L"shut");
}

TEST(ProjectorInheritance, MotorisedBlendCommandsComeFromTheSystem) {
    struct Command {
        const wchar_t* key;
        std::wstring (P::*get)() const;
        void (P::*set)(const std::wstring&);
    };
    const Command commands[] = {
        {L"MotoBlend_Init_Command", &P::getMotoBlendInitCommand, &P::setMotoBlendInitCommand},
        {L"MotoBlend_Open_Command", &P::getMotoBlendOpenCommand, &P::setMotoBlendOpenCommand},
        {L"MotoBlend_Close_Command", &P::getMotoBlendCloseCommand, &P::setMotoBlendCloseCommand},
    };
    for (const Command& command : commands) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(command.key)));
        ConfigInfo document;
        P projector(&document, L"1");
        EXPECT_EQ((projector.*command.get)(), L"");
        document.setStringItem(L"System", command.key, L"all", L"", {}, {});
        EXPECT_EQ((projector.*command.get)(), L"all");
        (projector.*command.set)(L"mine");
        EXPECT_EQ((projector.*command.get)(), L"mine");
        (projector.*command.set)(L"");
        EXPECT_FALSE(document.doesItemExist(L"Projector", command.key, L"1"));
        EXPECT_EQ((projector.*command.get)(), L"all");
        EXPECT_EQ(document.getStringItem(L"System", command.key, {}, {}, {}, {}), L"all");
    }
}

TEST(ProjectorInheritance, EmptyCommandOfAnUnknownProjectorCreatesNothing) {
    ConfigInfo document;
    const auto before = leavesOf(document);
    P(&document, L"1").setMotoBlendOpenCommand(L"");
    EXPECT_EQ(leavesOf(document), before);
    EXPECT_FALSE(document.isDirty());
}

TEST(ProjectorInheritance, StoredEmptyCommandHidesTheSystems) {
    ConfigInfo document;
    document.setStringItem(L"System", L"MotoBlend_Open_Command", L"all", L"", {}, {});
    document.setStringItem(L"Projector", L"MotoBlend_Open_Command", L"", L"1", {}, {});
    EXPECT_EQ(P(&document, L"1").getMotoBlendOpenCommand(), L"");
}
