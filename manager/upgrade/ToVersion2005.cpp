#include "manager/upgrade/StepTools.h"
#include "manager/upgrade/Steps.h"
#include "platform/Numbers.h"
#include "platform/Text.h"
#include "sections/CameraConfig.h"
#include "sections/ColorConfig.h"
#include "sections/GeometryConfig.h"
#include "sections/ProjectorConfig.h"
#include "sections/ScreenConfig.h"
#include "sections/SystemConfig.h"

// Version 2.005 describes how a projector is reached in a device snippet and names its section by its MAC address, so
// that devices can be told apart on every site. The items that spelt the connection out go, with everything that the
// calibration of that release no longer uses.
namespace XMLConfig::detail {

namespace {

void completeEdgeThresholds(ConfigInfo& document) {
    for (const std::wstring& id : camerasOf(document)) {
        CameraConfig camera(&document, id);
        const bool isEmpty = camera.getMultiCamEdgeThreshold().empty();
        const std::wstring text = textItem(document, L"Camera", L"MultiCamEdgeThreshold", {}, id);
        const bool holdsNothing = text.find_first_not_of(L',') == std::wstring::npos;
        if (isEmpty && holdsNothing) camera.setMultiCamEdgeThreshold({40, 40, 40, 40});
    }
}

std::wstring deviceSnippet(const ConfigInfo& document, const std::wstring& id, const std::wstring& mac) {
    const std::string number = toUtf8(formatInteger(document.getIntegerItem(L"Projector", L"ID", -1, id)));
    const std::wstring protocol = textItem(document, L"Projector", L"Protocol", L"serial", id);
    const std::string port = escaped(textItem(document, L"Projector", L"Projector_Comm_String", L"COM1", id));
    const std::string value = toUtf8(formatInteger(document.getIntegerItem(L"Projector", L"Projector_Comm_Long", 9600, id)));

    std::string snippet = "<device UID=\"VELDAR***" + escaped(mac) + "\" name=\"PRJ-" + number +
                          "\" type=\"VELDAR\" version=\"1.0\">\t<id>" + number + "</id>";
    if (protocol != L"serial") {
        snippet += "<connection type=\"ETHERNET\"><address>" + port + "</address><port>" + value + "</port>";
    } else {
        snippet += "<connection type=\"SERIAL\"><port>" + port + "</port><baud>" + value + "</baud>";
    }
    return fromUtf8(snippet + "</connection></device>");
}

void describeDevices(ConfigInfo& document) {
    for (const std::wstring& id : projectorsOf(document)) {
        const std::wstring mac = textItem(document, L"Projector", L"Projector_MAC_Address", {}, id);
        const std::wstring snippet = deviceSnippet(document, id, mac);
        if (document.getStringItemAsDOMElement(L"Projector", L"DeviceSnippet", {}, id).empty()) {
            document.setStringItemAsDOMElement(L"Projector", L"DeviceSnippet", snippet, id);
        }
        document.renameSection(L"Projector", id, L"VELDAR***" + mac);
    }
}

void spreadPortraitMode(ConfigInfo& document) {
    const int portraitMode = document.getIntegerItem(L"System", L"Portrait_Mode", 0, {});
    for (const std::wstring& id : projectorsOf(document)) {
        document.setIntegerItem(L"Projector", L"Portrait_Mode", portraitMode, id);
    }
}

void setEngineDefaults(ConfigInfo& document) {
    setTextItem(document, L"Geometry", L"CalibrationEngine", L"MULTI-CAMERA");
    document.setIntegerItem(L"Geometry", L"Blob_Location_Algorithm", 0, {});
    GeometryConfig geometry(&document, {});
    geometry.setBlobNumHistorical(5);
    geometry.setGridMovementFactor(0.66);

    ColorConfig color(&document, {});
    color.setMaxIterationsColor(25);
    color.setTargetSizeX(0);
    color.setTargetSizeY(0);
}

void removeCalibrationConfigurations(ConfigInfo& document) {
    for (int n = 1; n <= 50; ++n) {
        const std::wstring key = (L"CalConf" + formatInteger(n)).substr(0, 31);
        if (textItem(document, L"Geometry", key.c_str(), {}).empty()) return;
        document.removeItem(L"Geometry", key, {});
    }
}

void removeObsoleteItems(ConfigInfo& document) {
    for (const std::wstring& id : camerasOf(document)) removeItems(document, L"Camera", {L"MaskingROIPixelBuffer"}, id);
    for (const std::wstring& id : projectorsOf(document)) {
        removeItems(document, L"Projector",
                    {L"Spherical_Angle_Top", L"Spherical_Angle_Bottom", L"Spherical_Angle_Left", L"Spherical_Angle_Right",
                     L"Top_Edge", L"Bottom_Edge", L"Left_Edge", L"Right_Edge", L"ID", L"Protocol", L"Projector_MAC_Address",
                     L"Projector_Comm_String", L"Projector_Comm_Long"},
                    id);
    }
    removeItems(document, L"Geometry", {L"Blob_Width", L"Blob_Height", L"Blob_Close_Enough", L"Edge_Blob_Offset"});
    removeItems(document, L"Screen", {L"Eye_Point", L"Screen_RotationRadius"});
    removeItems(document, L"System", {L"Use_Frame_Grabber", L"Image_Export_Template", L"Imaging_Library", L"Portrait_Mode"});
    removeItems(document, L"TargetLocator",
                {L"Unit", L"AngleUnit", L"Center_Point", L"Height", L"Width", L"Radius", L"RotationRadius", L"MinTheta",
                 L"MaxTheta", L"MinPhi", L"MaxPhi"});
}

void setSolveDefaults(ConfigInfo& document) {
    GeometryConfig(&document, {}).setAutoMaskingType(0);
    document.setBoolItem(L"Geometry", L"Use_Quick_Cal", false, {});
    document.setBoolItem(L"Geometry", L"Use_TSAI_Extrapolation", false, {});
    document.setIntegerItem(L"Geometry", L"Mapper_Box_Size", 21, {});
    document.setDoubleItem(L"Geometry", L"Mapper_Spacing", 1.5, {});

    SystemConfig(&document, nullptr, {}).setParallelizeSends(true);
    ScreenConfig(&document, nullptr, {}).setSizeDefinition(ScreenConfig::SizeManual);
    ColorConfig color(&document, {});
    color.setBrightnessTolerance(0.5);
    color.setColourTolerance(0.001);
    color.setColourConvergeJump(0.5);
}

}  // namespace

void toVersion2005(ConfigInfo& document) {
    completeEdgeThresholds(document);
    describeDevices(document);
    spreadPortraitMode(document);
    setEngineDefaults(document);
    removeCalibrationConfigurations(document);
    removeObsoleteItems(document);
    setSolveDefaults(document);
    for (const std::wstring& id : projectorsOf(document)) {
        document.setDoubleItem(L"Projector", L"Edge_Blob_Offset_X", 15.0, id);
        document.setDoubleItem(L"Projector", L"Edge_Blob_Offset_Y", 15.0, id);
    }
}

}  // namespace XMLConfig::detail
