#include "sections/ProjectorConfig.h"

#include <gtest/gtest.h>

#include "sections/ProjectorItems.h"
#include "tests/support/SettingRows.h"

using P = ProjectorConfig;
using Rows = XMLConfig::tests::SettingRows<P>;
using XMLConfig::tests::itemsOf;
using XMLConfig::tests::leavesOf;

namespace {

const Frustum designed({1.0, 2.0, 3.0}, {0.5, 0.25, 0.125}, -0.5, 0.5, 0.25, -0.25, 1920, 1200);
const wchar_t* const designedText =
    L"<Offset>1.000000000000000e+00, 2.000000000000000e+00, 3.000000000000000e+00</Offset>"
    L"<RotationYPR>5.000000000000000e-01, 2.500000000000000e-01, 1.250000000000000e-01</RotationYPR>"
    L"<FOVLeft>-5.000000000000000e-01</FOVLeft><FOVRight>5.000000000000000e-01</FOVRight>"
    L"<FOVTop>2.500000000000000e-01</FOVTop><FOVBottom>-2.500000000000000e-01</FOVBottom>"
    L"<ResolutionX>1920</ResolutionX><ResolutionY>1200</ResolutionY>";
const BlackLevelBlending::PondOfMirrors pond{1, 0, 255, 7};
const wchar_t* const pondText = L"<Top>1</Top><Bottom>0</Bottom><Left>255</Left><Right>7</Right>";
const wchar_t* const zero = L"0.000000000000000e+00";
const wchar_t* const one = L"1.000000000000000e+00";
const wchar_t* const minusOne = L"-1.000000000000000e+00";
const wchar_t* const minusThousand = L"-1.000000000000000e+03";
const wchar_t* const half = L"5.000000000000000e-01";
const wchar_t* const origin = L"0.000000000000000e+00, 0.000000000000000e+00, 0.000000000000000e+00";
const wchar_t* const someWhere = L"1.500000000000000e+00, -2.000000000000000e+00, 2.500000000000000e-01";
const Point_3Dim<double> somePoint{1.5, -2.0, 0.25};

void addDirectRows(Rows& rows) {

    rows.row(&P::getName, &P::setName, L"Name", {L"", L""}, {L"Left", L"Left"}, L"Channel_%s")
        .row(&P::getDeviceSnippet, &P::setDeviceSnippet, L"DeviceSnippet", {L"", L""}, {L"<dev>7</dev>", L"<dev>7</dev>"},
             L"")
        .readOnly(&P::getDeviceSnippetOriginal, L"DeviceSnippetOriginal", {L"", L""}, {L"old", L"old"})
        .row(&P::getAssociatedCameraId1, &P::setAssociatedCameraId1, L"Associated_Camera_Id_1", {L"", L""}, {L"c1", L"c1"})
        .row(&P::getAssociatedCameraId2, &P::setAssociatedCameraId2, L"Associated_Camera_Id_2", {L"", L""}, {L"c2", L"c2"})
        .row(&P::getResolutionX, &P::setResolutionX, L"Resolution_X", {1400, L"1400"}, {1920, L"1920"}, L"1400")
        .row(&P::getResolutionY, &P::setResolutionY, L"Resolution_Y", {1050, L"1050"}, {1200, L"1200"}, L"1050")
        .row(&P::getImageResolutionX, &P::setImageResolutionX, L"ImageResolution_X", {1400, L"1400"}, {800, L"800"})
        .row(&P::getImageResolutionY, &P::setImageResolutionY, L"ImageResolution_Y", {1050, L"1050"}, {600, L"600"})
        .row(&P::getInputImageScalingMode, &P::setInputImageScalingMode, L"InputImageScaling_Mode", {0, L"0"}, {1, L"1"})
        .row(&P::getPortraitMode, &P::setPortraitMode, L"Portrait_Mode", {0, L"0"}, {2, L"2"})
        .row(&P::getBoxSize, &P::setBoxSize, L"Box_Size", {{21, 21}, L"21, 21"}, {{16, 9}, L"16, 9"})
        .row(&P::getBoxSpacing, &P::setBoxSpacing, L"Box_Spacing", {1.5, L"1.500000000000000e+00"}, {0.5, half})
        .row(&P::getGamma, &P::setGamma, L"Gamma", {2.2, L"2.200000000000000e+00"}, {0.5, half}, L"2.200000000000000e+00")
        .row(&P::getLampPower, &P::setLampPower, L"Lamp_Power", {100.0, L"1.000000000000000e+02"}, {0.5, half},
             L"1.000000000000000e+02")
        .row(&P::getColourUser, &P::setColourUser, L"Colour_User", {1, L"1"}, {3, L"3"}, L"1")
        .row(&P::getLampMode, &P::setLampMode, L"Lamp_Mode", {L"", L""}, {L"Dual", L"Dual"}, L"")
        .row(&P::getBlendPercentTop, &P::setBlendPercentTop, L"Blend_Top", {-1.0, minusOne}, {0.5, half}, zero)
        .row(&P::getBlendPercentBottom, &P::setBlendPercentBottom, L"Blend_Bottom", {-1.0, minusOne}, {0.5, half}, zero)
        .row(&P::getBlendPercentRight, &P::setBlendPercentRight, L"Blend_Right", {-1.0, minusOne}, {0.5, half}, zero)
        .row(&P::getBlendPercentLeft, &P::setBlendPercentLeft, L"Blend_Left", {-1.0, minusOne}, {0.5, half}, zero);
}

void addNestedRows(Rows& rows) {

    rows.row(&P::getChannelExtentHeadingYaw, &P::setChannelExtentHeadingYaw, L"Channel_Extents|Heading|Yaw", {0.0, zero},
             {0.5, half}, zero)
        .row(&P::getChannelExtentHeadingPitch, &P::setChannelExtentHeadingPitch, L"Channel_Extents|Heading|Pitch",
             {0.0, zero}, {0.5, half}, zero)
        .row(&P::getChannelExtentHeadingRoll, &P::setChannelExtentHeadingRoll, L"Channel_Extents|Heading|Roll", {0.0, zero},
             {0.5, half}, zero)
        .row(&P::getChannelExtentVFOVTop, &P::setChannelExtentVFOVTop, L"Channel_Extents|VFOV|Top", {0.0, zero}, {0.5, half},
             L"3.490658503988659e-01")
        .row(&P::getChannelExtentVFOVBottom, &P::setChannelExtentVFOVBottom, L"Channel_Extents|VFOV|Bottom", {0.0, zero},
             {0.5, half}, L"-3.490658503988659e-01")
        .row(&P::getChannelExtentHFOVLeft, &P::setChannelExtentHFOVLeft, L"Channel_Extents|HFOV|Left", {0.0, zero},
             {0.5, half}, L"-5.235987755982988e-01")
        .row(&P::getChannelExtentHFOVRight, &P::setChannelExtentHFOVRight, L"Channel_Extents|HFOV|Right", {0.0, zero},
             {0.5, half}, L"5.235987755982988e-01")
        .row(&P::getEyePoint, &P::setEyePoint, L"Channel_Extents|Eye_Point", {{}, origin}, {somePoint, someWhere})
        .row(&P::getDesignedFrustum, &P::setDesignedFrustum, L"Designed|Frustum", {Frustum(), L"all zeros"},
             {designed, designedText})
        .row(&P::getDesignedLumens, &P::setDesignedLumens, L"Designed|Lumens", {0.0, zero}, {0.5, half})
        .readOnly(&P::getInitialYPR, L"InitialProjectorData|YPR", {{}, origin}, {somePoint, someWhere})
        .readOnly(&P::getInitialXYZ, L"InitialProjectorData|XYZ", {{}, origin}, {somePoint, someWhere})
        .readOnly(&P::getInitialF, L"InitialProjectorData|F", {24.0, L"2.400000000000000e+01"}, {0.5, half})
        .readOnly(&P::getInitialAspectRatio, L"InitialProjectorData|Aspect_Ratio", {1.0, one}, {0.5, half})
        .readOnly(&P::getInitialOffset, L"InitialProjectorData|Offset",
                  {{700.0, 525.0}, L"7.000000000000000e+02, 5.250000000000000e+02"}, {{3.0, 4.5}, L"3, 4.5"})
        .readOnly(&P::getOldUID, L"OldSectionID", {L"", L""}, {L"7", L"7"});
}

void addFurtherRows(Rows& rows) {

    rows.row(&P::getScreenAreaLeft, &P::setScreenAreaLeft, L"Screen_Area_Left", {-1000.0, minusThousand}, {0.5, half}, zero)
        .row(&P::getScreenAreaRight, &P::setScreenAreaRight, L"Screen_Area_Right", {-1000.0, minusThousand}, {0.5, half},
             one)
        .row(&P::getScreenAreaTop, &P::setScreenAreaTop, L"Screen_Area_Top", {-1000.0, minusThousand}, {0.5, half}, zero)
        .row(&P::getScreenAreaBottom, &P::setScreenAreaBottom, L"Screen_Area_Bottom", {-1000.0, minusThousand}, {0.5, half},
             one)
        .row(&P::getBlackLevel, &P::setBlackLevel, L"Black_Level", {0.0, zero}, {0.5, half})
        .row(&P::getBlackLevelBoostFactor, &P::setBlackLevelBoostFactor, L"Black_Level_Boost", {1.0, one}, {0.5, half})
        .row(&P::getBlackLevelTint, &P::setBlackLevelTint, L"Black_Level_Tint", {0, L"0"}, {-4, L"-4"})
        .row(&P::getPondOfMirrors, &P::setPondOfMirrors, L"Pond_Of_Mirrors", {{}, L"all zeros"}, {pond, pondText})
        .row(&P::getMotoBlendInitCommand, &P::setMotoBlendInitCommand, L"MotoBlend_Init_Command", {L"", L""}, {L"i", L"i"})
        .row(&P::getMotoBlendOpenCommand, &P::setMotoBlendOpenCommand, L"MotoBlend_Open_Command", {L"", L""}, {L"o", L"o"})
        .row(&P::getMotoBlendCloseCommand, &P::setMotoBlendCloseCommand, L"MotoBlend_Close_Command", {L"", L""},
             {L"c", L"c"})
        .row(&P::getFitOrder, &P::setFitOrder, L"Fit_Order", {0, L"0"}, {3, L"3"})
        .row(&P::getProjectionModelFilename, &P::setProjectionModelFilename, L"Projection_Model_File", {L"", L""},
             {L"m.xml", L"m.xml"})
        .row(&P::getProjectionModelScript, &P::setProjectionModelScript, L"Projection_Model_Script", {L"", L""},
             {L"m.py", L"m.py"})
        .row(&P::getProjectionLayoutFilename, &P::setProjectionLayoutFilename, L"Projection_Layout_File", {L"", L""},
             {L"l.xml", L"l.xml"})
        .readOnly(&P::getSolverType, L"SolverType", {L"", L""}, {L"LM", L"LM"})
        .row(&P::getRedGreenAlignmentImageName, &P::setRedGreenAlignmentImageName, L"Red_Green_Alignment_Image", {L"", L""},
             {L"rg.png", L"rg.png"})
        .row(&P::getPellinorWarpLatency, &P::setPellinorWarpLatency, L"Pellinor_Warp_Latency", {0, L"0"}, {12, L"12"});
}

Rows projectorRows() {
    Rows rows([](ConfigInfo* document) { return std::make_unique<P>(document, L"4"); });
    addDirectRows(rows);
    addNestedRows(rows);
    addFurtherRows(rows);
    return rows;
}

}  // namespace

TEST(ProjectorConfig, SettingsKeepToTheirRows) { projectorRows().check(); }

TEST(ProjectorConfig, TableEqualsTheRows) { projectorRows().checkTable(XMLConfig::detail::projectorItems); }

TEST(ProjectorConfig, NewSectionHoldsTheRowsInOrder) { projectorRows().checkInitialize(); }

TEST(ProjectorConfig, ConstructionWritesNothing) {
    ConfigInfo document;
    const auto before = leavesOf(document);
    const P projector(&document, L"4");
    EXPECT_EQ(projector.getSectionName(), L"Projector");
    EXPECT_EQ(projector.getSectionID(), L"4");
    EXPECT_EQ(leavesOf(document), before);
    EXPECT_FALSE(document.isDirty());
}

TEST(ProjectorConfig, NewProjectorIsNamedAfterItsIdentifier) {
    ConfigInfo document;
    P projector(&document, L"VELDAR***00:0a");
    projector.initialize();
    EXPECT_EQ(projector.getName(), L"Channel_VELDAR***00:0a");
    EXPECT_TRUE(document.isDirty());
}

TEST(ProjectorConfig, NewProjectorReadsOtherValuesThanAnEmptySection) {
    ConfigInfo document;
    P projector(&document, L"1");
    EXPECT_EQ(projector.getBlendPercentTop(), -1.0);
    EXPECT_EQ(projector.getScreenAreaRight(), -1000.0);
    projector.initialize();
    EXPECT_EQ(projector.getBlendPercentTop(), 0.0);
    EXPECT_EQ(projector.getScreenAreaRight(), 1.0);
    EXPECT_EQ(projector.getChannelExtentVFOVTop(), 0.3490658503988659);
    EXPECT_EQ(projector.getName(), L"Channel_1");
}

TEST(ProjectorConfig, IdentifierWithAPlaceholderIsTakenAsItIs) {
    ConfigInfo document;
    P projector(&document, L"%s%s");
    projector.initialize();
    EXPECT_EQ(projector.getName(), L"Channel_%s%s");
}

TEST(ProjectorConfig, WithoutDocumentWorksOnAPrivateOne) {
    P projector(nullptr, L"1");
    projector.initialize();
    EXPECT_EQ(projector.getName(), L"Channel_1");
}
