#include "sections/CameraConfig.h"

#include <gtest/gtest.h>

#include "sections/CameraItems.h"
#include "tests/support/SettingRows.h"
#include "tests/support/StoredItems.h"
#include "tests/support/VirtualSlots.h"

using C = CameraConfig;
using Rows = XMLConfig::tests::SettingRows<C>;
using XMLConfig::tests::itemsOf;
using XMLConfig::tests::leavesOf;

using XMLConfig::tests::StoredItems;

namespace {

const wchar_t* const noPoint = L"nan, nan, nan";

Rows cameraRows() {
    Rows rows([](ConfigInfo* document) { return std::make_unique<C>(document, L"4"); });
    rows.row(&C::getName, &C::setName, L"Name", {L"Camera_XX", L"Camera_XX"}, {L"Left", L"Left"}, L"Camera_%s")
        .row(&C::getDeviceSnippet, &C::setDeviceSnippet, L"DeviceSnippet", {L"", L""}, {L"<dev>7</dev>", L"<dev>7</dev>"},
             L"")
        .readOnly(&C::getDeviceSnippetOriginal, L"DeviceSnippetOriginal", {L"", L""}, {L"old", L"old"})
        .row(&C::getBinarizationThreshold, &C::setBinarizationThreshold, L"Binarization_Threshold", {75, L"75"}, {6, L"6"},
             L"75")
        .row(&C::getLEDExposure, &C::setLEDExposure, L"LED_Exposure", {100000, L"100000"}, {5, L"5"}, L"100000")
        .row(&C::getMarkedSurfaceExposure, &C::setMarkedSurfaceExposure, L"MarkedSurface_Exposure", {100000, L"100000"},
             {5, L"5"})
        .row(&C::getLEDBinarizationThreshold, &C::setLEDBinarizationThreshold, L"LED_Binarization_Threshold", {75, L"75"},
             {6, L"6"}, L"75")
        .row(&C::getMarkedSurfaceBinarizationThreshold, &C::setMarkedSurfaceBinarizationThreshold,
             L"MarkedSurface_Binarization_Threshold", {75, L"75"}, {6, L"6"})
        .row(&C::getMarkedSurfaceOpacity, &C::setMarkedSurfaceOpacity, L"Marked_Surface_Opacity", {20, L"20"}, {99, L"99"})
        .row(&C::getSubliminalExposureWindow, &C::setSubliminalExposureWindow, L"SubliminalExposureWindow", {75, L"75"},
             {6, L"6"})
        .row(&C::getGeometryExposure, &C::setGeometryExposure, L"Geometry_Exposure", {100000, L"100000"}, {5, L"5"},
             L"100000")
        .row(&C::getIntrinsicFileID, &C::setIntrinsicFileID, L"IntrinsicFileID", {L"", L""}, {L"lens8", L"lens8"}, L"")
        .row(&C::getMaskingROIScreenAreaPercentage, &C::setMaskingROIScreenAreaPercentage, L"MaskingROIScreenAreaPercentage",
             {0.0001, L"1.000000000000000e-04"}, {0.5, L"5.000000000000000e-01"}, L"1.000000000000000e-04")
        .row(&C::getCameraReferenceImageResourceIdentifier, &C::setCameraReferenceImageResourceIdentifier,
             L"Camera_Reference_Image_RESID", {L"", L""}, {L"r1", L"r1"})
        .row(&C::getCameraReferenceImageTimeStamp, &C::setCameraReferenceImageTimeStamp, L"Camera_Reference_Image_Timestamp",
             {0, L"0"}, {1234567890, L"1234567890"})
        .row(&C::getExplicitExtrinsicsValid, &C::setExplicitExtrinsicsValid, L"ExplicitExtrinsicValid", {false, L"false"},
             {true, L"true"})
        .catalogued(L"ExplicitExtrinsicXYZ", noPoint)
        .catalogued(L"ExplicitExtrinsicYPR", noPoint)
        .row(&C::getMultiCamEdgeThreshold, &C::setMultiCamEdgeThreshold, L"MultiCamEdgeThreshold", {{}, L""},
             {{1, -2, 3, 400}, L"1,-2,3,400"}, L"40,40,40,40")
        .catalogued(L"Camera_Calibration_Points", L"")
        .catalogued(L"Reference_Camera_Calibration_Points", L"")
        .readOnly(&C::getOldUID, L"OldSectionID", {L"", L""}, {L"7", L"7"})
        .row(&C::isAutomaticExposure, &C::setAutomaticExposure, L"Automatic_Exposure", {true, L"true"}, {false, L"false"},
             L"true")
        .row(&C::isMarkedSurfaceAutomaticExposure, &C::setMarkedSurfaceAutomaticExposure,
             L"Marked_Surface_Automatic_Exposure", {true, L"true"}, {false, L"false"})
        .row(&C::isExtendedContrast, &C::setExtendedContrast, L"Extended_Contrast", {false, L"false"}, {true, L"true"})
        .row(&C::getCameraGain, &C::setCameraGain, L"Camera_Gain", {0, L"0"}, {-3, L"-3"}, L"0");
    return rows;
}

}  // namespace

TEST(CameraConfig, SettingsKeepToTheirRows) { cameraRows().check(); }

TEST(CameraConfig, TableEqualsTheRows) { cameraRows().checkTable(XMLConfig::detail::cameraItems); }

TEST(CameraConfig, NewSectionHoldsTheRowsInOrder) { cameraRows().checkInitialize(); }

TEST(CameraConfig, ConstructionWritesNothing) {
    ConfigInfo document;
    const auto before = leavesOf(document);
    const C camera(&document, L"4");
    EXPECT_EQ(camera.getSectionName(), L"Camera");
    EXPECT_EQ(camera.getSectionID(), L"4");
    EXPECT_EQ(leavesOf(document), before);
    EXPECT_FALSE(document.isDirty());
}

TEST(CameraConfig, NewCameraIsNamedAfterItsIdentifier) {
    ConfigInfo document;
    C camera(&document, L"VELDAR***00:0a");
    EXPECT_EQ(camera.getName(), L"Camera_XX");
    camera.initialize();
    EXPECT_EQ(camera.getName(), L"Camera_VELDAR***00:0a");
    EXPECT_EQ(camera.getMultiCamEdgeThreshold(), (std::vector<int>{40, 40, 40, 40}));
}

TEST(CameraConfig, OldIdentifierIsKnownAfterRename) {
    ConfigInfo document;
    C camera(&document, L"first");
    camera.initialize();
    EXPECT_EQ(camera.getOldUID(), L"");
    camera.renameSection(L"second");
    EXPECT_EQ(camera.getOldUID(), L"first");
}

TEST(CameraConfig, ExposureAndThresholdAreReadAsNumbers) {
    ConfigInfo document;
    const C camera(&document, L"1");
    StoredItems(document, L"Camera", L"1").put(L"LED_Exposure", L"long");
    StoredItems(document, L"Camera", L"1").put(L"Camera_Gain", L"99999999999");
    StoredItems(document, L"Camera", L"1").put(L"Automatic_Exposure", L"maybe");
    StoredItems(document, L"Camera", L"1").put(L"Extended_Contrast", L"YES");
    EXPECT_EQ(camera.getLEDExposure(), 0);
    EXPECT_EQ(camera.getCameraGain(), 2147483647);
    EXPECT_TRUE(camera.isAutomaticExposure()) << "no flag: the default";
    EXPECT_TRUE(camera.isExtendedContrast());
}

#if defined(TESTS_KNOW_VIRTUAL_SLOTS)
TEST(CameraConfig, VirtualMembersStandInTheirOrder) {
    const std::vector<NamedSlot> slots = {
        NAMED_SLOT(C, initialize),
        NAMED_SLOT(C, getCameraCalibrationPoints),
        NAMED_SLOT(C, setCameraCalibrationPoints),
        NAMED_SLOT(C, getMaskingROIScreenAreaPercentage),
        NAMED_SLOT(C, isExtendedContrast),
    };
    EXPECT_EQ(misplacedSlots(2, slots), "");
    EXPECT_EQ(slotCount<C>(), 7) << "every other member is not virtual";
}
#endif
