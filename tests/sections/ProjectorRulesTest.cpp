#include <gtest/gtest.h>

#include <string>

#include "sections/ProjectorConfig.h"
#include "tests/support/SettingRows.h"
#include "tests/support/StoredItems.h"

using XMLConfig::tests::StoredItems;

namespace {

/// Notes which virtual members are called.
class Watched : public ProjectorConfig {
public:
    using ProjectorConfig::ProjectorConfig;
    int getResolutionX() const override { return 300; }
    int getResolutionY() const override { return 200; }
    double getChannelExtentHeadingYaw() const override { return noted("yaw", 0.1); }
    double getChannelExtentHeadingPitch() const override { return noted("pitch", 0.2); }
    double getChannelExtentHeadingRoll() const override { return noted("roll", 0.3); }
    double getChannelExtentVFOVTop() const override { return noted("top", 0.4); }
    double getChannelExtentVFOVBottom() const override { return noted("bottom", 0.5); }
    double getChannelExtentHFOVLeft() const override { return noted("left", 0.6); }
    double getChannelExtentHFOVRight() const override { return noted("right", 0.7); }
    Point_3Dim<double> getEyePoint() const override { return {noted("eye", 1.0), 2.0, 3.0}; }
    void setName(const std::wstring&) override { calls += "setName "; }
    void setScreenAreaBottom(double) override { calls += "setBottom "; }
    void setEyePoint(const Point_3Dim<double>&) override { calls += "setEye "; }

    mutable std::string calls;

private:
    double noted(const char* name, double value) const {
        calls += std::string(name) + " ";
        return value;
    }
};

}  // namespace

TEST(ProjectorRules, LampModesHaveTheirNames) {
    EXPECT_EQ(ProjectorConfig::LAMP_MODE_SINGLE1, L"Single1");
    EXPECT_EQ(ProjectorConfig::LAMP_MODE_SINGLE2, L"Single2");
    EXPECT_EQ(ProjectorConfig::LAMP_MODE_DUAL, L"Dual");
}

TEST(ProjectorRules, OnlyKnownLampModesAreGiven) {
    ConfigInfo document;
    ProjectorConfig projector(&document, L"1");
    for (const std::wstring known : {L"Single1", L"Single2", L"Dual"}) {
        projector.setLampMode(known);
        EXPECT_EQ(projector.getLampMode(), known);
    }
    for (const std::wstring unknown : {L"dual", L"Dual ", L"Single3", L"Single", L"", L"Triple"}) {
        projector.setLampMode(unknown);
        EXPECT_EQ(projector.getLampMode(), L"") << testing::PrintToString(unknown);
        EXPECT_EQ(document.getStringItem(L"Projector", L"Lamp_Mode", L"none", L"1", {}, {}), unknown) << "stored unchecked";
    }
}

TEST(ProjectorRules, PoseIsFoundAutomaticallyWhereNoneIsStored) {
    ConfigInfo document;
    const ProjectorConfig projector(&document, L"1");
    EXPECT_TRUE(projector.getAutoInitIntrinsics());
    EXPECT_TRUE(projector.getAutoInitExtrinsics());
    StoredItems(document, L"Projector", L"1").put(L"InitialProjectorData|YPR", L"1, 2, 3");
    EXPECT_TRUE(projector.getAutoInitIntrinsics());
    EXPECT_TRUE(projector.getAutoInitExtrinsics());
    StoredItems(document, L"Projector", L"1").put(L"InitialProjectorData|F", L"");
    EXPECT_FALSE(projector.getAutoInitIntrinsics()) << "an item that exists counts, whatever it holds";
    EXPECT_TRUE(projector.getAutoInitExtrinsics());
    StoredItems(document, L"Projector", L"1").put(L"InitialProjectorData|XYZ", L"0, 0, 0");
    EXPECT_FALSE(projector.getAutoInitExtrinsics());
}

TEST(ProjectorRules, InitialOffsetIsTheImageCentreUntilStored) {
    ConfigInfo document;
    ProjectorConfig projector(&document, L"1");
    projector.setResolutionX(1920);
    projector.setResolutionY(1200);
    EXPECT_TRUE(projector.getInitialOffset() == Point_2Dim<double>(960, 600));
    projector.setResolutionX(1921);
    EXPECT_TRUE(projector.getInitialOffset() == Point_2Dim<double>(960.5, 600));
    StoredItems(document, L"Projector", L"1").put(L"InitialProjectorData|Offset", L"1.5 2.5");
    EXPECT_TRUE(projector.getInitialOffset() == Point_2Dim<double>(1.5, 2.5));
    StoredItems(document, L"Projector", L"1").put(L"InitialProjectorData|Offset", L"1.5");
    EXPECT_TRUE(projector.getInitialOffset() == Point_2Dim<double>(960.5, 600));
}

TEST(ProjectorRules, InitialOffsetAsksTheVirtualResolution) {
    ConfigInfo document;
    EXPECT_TRUE(Watched(&document, L"1").getInitialOffset() == Point_2Dim<double>(150, 100));
}

TEST(ProjectorRules, InitializeCallsVirtualSetters) {
    ConfigInfo document;
    Watched projector(&document, L"1");
    projector.initialize();
    EXPECT_EQ(projector.calls, "setName setBottom ");
    EXPECT_FALSE(document.doesItemExist(L"Projector", L"Name", L"1"));
    EXPECT_FALSE(document.doesItemExist(L"Projector", L"Screen_Area_Bottom", L"1"));
}

TEST(ProjectorRules, ViewportIsReadThroughVirtualGettersInOrder) {
    ConfigInfo document;
    const Watched projector(&document, L"1");
    const Viewport viewport = projector.getChannelExtentsAsViewport();
    EXPECT_EQ(projector.calls, "roll pitch yaw bottom top right left eye ");
    EXPECT_TRUE(viewport.Offset == Point_3Dim<double>(1.0, 2.0, 3.0));
    EXPECT_TRUE(viewport.RotationYPR == Point_3Dim<double>(0.1, 0.2, 0.3));
    EXPECT_EQ(viewport.FOVLeft, 0.6);
    EXPECT_EQ(viewport.FOVRight, 0.7);
    EXPECT_EQ(viewport.FOVTop, 0.4);
    EXPECT_EQ(viewport.FOVBottom, 0.5);
    EXPECT_EQ(viewport.ResolutionX, 1);
    EXPECT_EQ(viewport.ResolutionY, 1);
}

TEST(ProjectorRules, ViewportIsWrittenItemByItem) {
    ConfigInfo document;
    ProjectorConfig projector(&document, L"1");
    projector.setChannelExtentsFromViewport(Viewport({1, 2, 3}, {0.5, 0.25, 0.125}, -0.5, 0.75, 0.375, -0.625, 1920, 1200));
    EXPECT_EQ(projector.getChannelExtentHeadingYaw(), 0.5);
    EXPECT_EQ(projector.getChannelExtentHeadingPitch(), 0.25);
    EXPECT_EQ(projector.getChannelExtentHeadingRoll(), 0.125);
    EXPECT_EQ(projector.getChannelExtentHFOVLeft(), -0.5);
    EXPECT_EQ(projector.getChannelExtentHFOVRight(), 0.75);
    EXPECT_EQ(projector.getChannelExtentVFOVTop(), 0.375);
    EXPECT_EQ(projector.getChannelExtentVFOVBottom(), -0.625);
    EXPECT_TRUE(projector.getEyePoint() == Point_3Dim<double>(1, 2, 3));
    const Viewport again = projector.getChannelExtentsAsViewport();
    EXPECT_TRUE(again.RotationYPR == Point_3Dim<double>(0.5, 0.25, 0.125));
    EXPECT_EQ(again.ResolutionX, 1) << "the resolution is not stored";
    EXPECT_EQ(XMLConfig::tests::itemsOf(document, L"Projector", L"1").size(), 1u) << "all below Channel_Extents";
}

TEST(ProjectorRules, FrustumDerivesItsExtentsAgain) {
    ConfigInfo document;
    ProjectorConfig projector(&document, L"1");
    EXPECT_EQ(projector.getDesignedFrustum().Width, 0.0);
    projector.setDesignedFrustum(Frustum({}, {}, -0.5, 0.5, 0.25, -0.25, 4, 3));
    const Frustum given = projector.getDesignedFrustum();
    EXPECT_DOUBLE_EQ(given.Width, 1.0926049796875810);    // 2 tan 0.5
    EXPECT_DOUBLE_EQ(given.Height, -0.5106838424420725);  // 2 tan -0.25
}

TEST(ProjectorRules, PartlyStoredRecordsKeepZerosElsewhere) {
    ConfigInfo document;
    StoredItems(document, L"Projector", L"1").put(L"Designed|Frustum|FOVLeft", L"-0.5");
    StoredItems(document, L"Projector", L"1").put(L"Pond_Of_Mirrors|Left", L"300");
    const ProjectorConfig projector(&document, L"1");
    EXPECT_EQ(projector.getDesignedFrustum().FOVLeft, -0.5);
    EXPECT_EQ(projector.getDesignedFrustum().ResolutionX, 0);
    EXPECT_EQ(projector.getPondOfMirrors().Left, 44) << "cut to eight bits";
    EXPECT_EQ(projector.getPondOfMirrors().Top, 0);
}

TEST(ProjectorRules, OldIdentifierIsKnownAfterRenames) {
    ConfigInfo document;
    ProjectorConfig projector(&document, L"first");
    projector.initialize();
    EXPECT_EQ(projector.getOldUID(), L"");
    projector.renameSection(L"second");
    EXPECT_EQ(projector.getOldUID(), L"first");
    projector.renameSection(L"third");
    EXPECT_EQ(projector.getOldUID(), L"second");
    EXPECT_EQ(projector.getName(), L"Channel_first") << "the name is not renamed";
}

TEST(ProjectorRules, TextThatIsNoNumberReadsZero) {
    ConfigInfo document;
    const ProjectorConfig projector(&document, L"1");
    for (const wchar_t* text : {L"", L"abc", L"--1", L".", L"e5"}) {
        StoredItems(document, L"Projector", L"1").put(L"Gamma", text);
        StoredItems(document, L"Projector", L"1").put(L"Resolution_X", text);
        EXPECT_EQ(projector.getGamma(), 0.0) << testing::PrintToString(std::wstring(text));
        EXPECT_EQ(projector.getResolutionX(), 0) << testing::PrintToString(std::wstring(text));
    }
    StoredItems(document, L"Projector", L"1").put(L"Gamma", L" 1.5mm");
    StoredItems(document, L"Projector", L"1").put(L"Resolution_X", L" 12.9");
    EXPECT_EQ(projector.getGamma(), 1.5);
    EXPECT_EQ(projector.getResolutionX(), 12);
}

TEST(ProjectorRules, NumbersBeyondTheirTypeSaturate) {
    ConfigInfo document;
    const ProjectorConfig projector(&document, L"1");
    StoredItems(document, L"Projector", L"1").put(L"Resolution_X", L"99999999999999999999");
    StoredItems(document, L"Projector", L"1").put(L"Resolution_Y", L"-99999999999999999999");
    EXPECT_EQ(projector.getResolutionX(), 2147483647);
    EXPECT_EQ(projector.getResolutionY(), -2147483647 - 1);
}

TEST(ProjectorRules, PointsWithAWrongCountGiveTheDefault) {
    ConfigInfo document;
    const ProjectorConfig projector(&document, L"1");
    for (const wchar_t* text : {L"", L"1, 2", L"1, 2, 3, 4", L"1;2;3"}) {
        StoredItems(document, L"Projector", L"1").put(L"Channel_Extents|Eye_Point", text);
        StoredItems(document, L"Projector", L"1").put(L"InitialProjectorData|XYZ", text);
        EXPECT_TRUE(projector.getEyePoint() == Point_3Dim<double>()) << testing::PrintToString(std::wstring(text));
        EXPECT_TRUE(projector.getInitialXYZ() == Point_3Dim<double>()) << testing::PrintToString(std::wstring(text));
    }
}
