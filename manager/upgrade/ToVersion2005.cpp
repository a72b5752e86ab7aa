#include "manager/upgrade/StepTools.h"
#include "manager/upgrade/UpgradeChain.h"
#include "platform/Numbers.h"

// Version 2.005 describes how a projector is reached in a device snippet and names its section by its MAC address, so
// that devices can be told apart on every site. The items that spelt the connection out go, with everything that the
// calibration of that release no longer uses.
namespace XMLConfig::detail {

namespace {

// Four numbers where there are none, and four equal ones where there is one; any other list is kept.
void completeEdgeThresholds(StepSection& camera) {
    std::vector<std::wstring> pieces;
    ConfigInfo::createTokenVector(pieces, camera.text(L"MultiCamEdgeThreshold"), L",");
    if (pieces.size() > 1) return;
    const std::wstring threshold = formatInteger(pieces.empty() ? 40 : leadingInteger(pieces.front()));
    camera.setText(L"MultiCamEdgeThreshold", threshold + L',' + threshold + L',' + threshold + L',' + threshold);
}

StoredElement deviceSnippet(const StepSection& projector, const std::wstring& uid) {
    const std::wstring number = formatInteger(projector.integer(L"ID", -1));
    const bool isSerial = projector.text(L"Protocol", L"serial") == L"serial";
    const std::wstring port = projector.text(L"Projector_Comm_String", L"COM1");
    const std::wstring value = formatInteger(projector.integer(L"Projector_Comm_Long", 9600));

    const StoredElement first{isSerial ? L"port" : L"address", {}, port, {}};
    const StoredElement second{isSerial ? L"baud" : L"port", {}, value, {}};
    const StoredElement connection{L"connection", {{L"type", isSerial ? L"SERIAL" : L"ETHERNET"}}, {}, {first, second}};
    return {L"device",
            {{L"UID", uid}, {L"name", L"PRJ-" + number}, {L"type", L"VELDAR"}, {L"version", L"1.0"}},
            L"\t",
            {{L"id", {}, number, {}}, connection}};
}

void describeDevices(StepDocument& document) {
    for (StepSection& projector : projectorsOf(document)) {
        const std::wstring uid = L"VELDAR***" + projector.text(L"Projector_MAC_Address");
        if (projector.element(L"DeviceSnippet").empty())
            projector.setElement(L"DeviceSnippet", deviceSnippet(projector, uid));
        projector.rename(uid);
    }
}

void spreadPortraitMode(StepDocument& document) {
    const int portraitMode = StepSection(document, L"System").integer(L"Portrait_Mode", 0);
    for (StepSection& projector : projectorsOf(document)) projector.setInteger(L"Portrait_Mode", portraitMode);
}

void setEngineDefaults(StepDocument& document) {
    StepSection geometry(document, L"Geometry");
    geometry.setText(L"CalibrationEngine", L"MULTI-CAMERA");
    geometry.setInteger(L"Blob_Location_Algorithm", 0);
    geometry.setInteger(L"Blob_Number_Historical", 5);
    geometry.setNumber(L"Grid_Movement_Factor", 0.66);

    StepSection color(document, L"Color");
    color.setInteger(L"MaxIterationsColor", 25);
    color.setInteger(L"AdvColor_TargetSizeX", 0);
    color.setInteger(L"AdvColor_TargetSizeY", 0);
}

void removeCalibrationConfigurations(StepDocument& document) {
    StepSection geometry(document, L"Geometry");
    for (int n = 1; n <= 50; ++n) {
        const std::wstring key = L"CalConf" + formatInteger(n);
        if (geometry.text(key).empty()) return;
        geometry.removeItem(key);
    }
}

void removeObsoleteItems(StepDocument& document) {
    const StepSection::Keys ofProjectors = {L"Spherical_Angle_Top",
                                            L"Spherical_Angle_Bottom",
                                            L"Spherical_Angle_Left",
                                            L"Spherical_Angle_Right",
                                            L"Top_Edge",
                                            L"Bottom_Edge",
                                            L"Left_Edge",
                                            L"Right_Edge",
                                            L"ID",
                                            L"Protocol",
                                            L"Projector_MAC_Address",
                                            L"Projector_Comm_String",
                                            L"Projector_Comm_Long"};
    for (StepSection& camera : camerasOf(document)) camera.removeItem(L"MaskingROIPixelBuffer");
    for (StepSection& projector : projectorsOf(document)) projector.removeItems(ofProjectors);
    StepSection(document, L"Geometry")
        .removeItems({L"Blob_Width", L"Blob_Height", L"Blob_Close_Enough", L"Edge_Blob_Offset"});
    StepSection(document, L"Screen").removeItems({L"Eye_Point", L"Screen_RotationRadius"});
    StepSection(document, L"System")
        .removeItems({L"Use_Frame_Grabber", L"Image_Export_Template", L"Imaging_Library", L"Portrait_Mode"});
    StepSection(document, L"TargetLocator")
        .removeItems({L"Unit", L"AngleUnit", L"Center_Point", L"Height", L"Width", L"Radius", L"RotationRadius", L"MinTheta",
                      L"MaxTheta", L"MinPhi", L"MaxPhi"});
}

void setSolveDefaults(StepDocument& document) {
    StepSection geometry(document, L"Geometry");
    geometry.setInteger(L"Auto_Masking_Type", 0);
    geometry.setFlag(L"Use_Quick_Cal", false);
    geometry.setFlag(L"Use_TSAI_Extrapolation", false);
    geometry.setInteger(L"Mapper_Box_Size", 21);
    geometry.setNumber(L"Mapper_Spacing", 1.5);

    StepSection(document, L"System").setFlag(L"Parallelize_Sends", true);
    StepSection(document, L"Screen").setInteger(L"SizeDefinition", 0);
    StepSection color(document, L"Color");
    color.setNumber(L"Brightness_Tolerance", 0.5);
    color.setNumber(L"Colour_Tolerance", 0.001);
    color.setNumber(L"Colour_Converge_Jump", 0.5);
}

}  // namespace

void toVersion2005(StepDocument& document) {
    for (StepSection& camera : camerasOf(document)) completeEdgeThresholds(camera);
    describeDevices(document);
    spreadPortraitMode(document);
    setEngineDefaults(document);
    removeCalibrationConfigurations(document);
    removeObsoleteItems(document);
    setSolveDefaults(document);
    for (StepSection& projector : projectorsOf(document)) {
        projector.setNumber(L"Edge_Blob_Offset_X", 15.0);
        projector.setNumber(L"Edge_Blob_Offset_Y", 15.0);
    }
}

}  // namespace XMLConfig::detail
