#include "base/BaseConfig.h"
#include "manager/upgrade/CommonProjectorValues.h"
#include "manager/upgrade/StepTools.h"
#include "manager/upgrade/Steps.h"
#include "manager/upgrade/VersionUpgrade.h"
#include "platform/CameraInfo.h"
#include "platform/Numbers.h"
#include "platform/Text.h"
#include "sections/CameraConfig.h"
#include "store/Log.h"

// Version 9.0 describes cameras by device snippets, as projectors have been since 2.005, keeps the units of the whole
// document in the system section, and lets projectors inherit what most of them share from the geometry section.
namespace XMLConfig::detail {

namespace {

bool isKnownCamera(int type) { return type == 0 || type == 1; }

CameraInfo cameraInfo(const ConfigInfo& document, const std::wstring& id, int type) {
    const auto text = [&](const wchar_t* key) { return textItem(document, L"Camera", key, {}, id); };
    CameraInfo info;
    info.setBayerPattern(0);
    info.setCameraType(type);
    info.setDefaultGateway({});
    info.setDHCP(document.getBoolItem(L"Camera", L"Connection|DHCP", false, id));
    info.setFirmware({});
    info.setIPAddress(text(L"Connection|IP_Address"));
    info.setMACAddress(text(L"Connection|MAC_Address"));
    info.setModel(text(L"Model"));
    info.setResolution(document.getIntegerItem(L"Camera", L"Resolution_X", 0, id),
                       document.getIntegerItem(L"Camera", L"Resolution_Y", 0, id));
    info.setSerialNumber(text(L"SerialNumber"));
    info.setSubnetMask(text(L"Connection|Subnet_Mask"));
    return info;
}

void describeCamera(ConfigInfo& document, const std::wstring& id, int type) {
    const std::wstring newID = L"PGR***" + textItem(document, L"Camera", L"Connection|MAC_Address", {}, id);
    const std::string snippet = "<device UID=\"" + escaped(newID) +
                                "\" name=\"\" password=\"\" type=\"PGR\" version=\"1.0\">" +
                                cameraInfo(document, id, type).toXml() + "</device>";
    CameraConfig(&document, id).setDeviceSnippet(fromUtf8(snippet));
    removeItems(document, L"Camera",
                {L"CameraType", L"SerialNumber", L"Model", L"Resolution_X", L"Resolution_Y", L"Connection"}, id);
    document.renameSection(L"Camera", id, newID);
}

void describeCameras(ConfigInfo& document) {
    for (const std::wstring& id : camerasOf(document)) {
        removeItems(document, L"Camera", {L"Protocol", L"Bit_Depth", L"Camera_Lens_Name", L"ShowOnOffMapperBlobs"}, id);
        const int type = document.getIntegerItem(L"Camera", L"CameraType", -1, id);
        if (isKnownCamera(type)) {
            describeCamera(document, id, type);
            continue;
        }
        logError(versionUpgradeLog(),
                 L"Unknown camera type encounterd (" + formatInteger(type) + L"), removing this section");
        document.removeSection(L"Camera", id);
    }
}

void removeObsoleteItems(ConfigInfo& document) {
    removeItems(document, L"Screen", {L"GUI_3DPointDistribution"});
    removeItems(document, L"Geometry", {L"IsStacked", L"IsAutoOrderRequired"});
    removeItems(document, L"System", {L"Load_Skorra_File"});
    removeItems(document, L"TargetLocator", {L"ChannelExtentsAngleUnit", L"Inset_Unit"});
    removeItems(document, L"Screen", {L"Mask_AngleUnit"});
}

void moveUnits(ConfigInfo& document) {
    const std::wstring length = textItem(document, L"Screen", L"Unit", BaseConfig::UNIT_METERS());
    setTextItem(document, L"System", L"Length_Unit", length);
    removeItems(document, L"Screen", {L"Unit"});
    const std::wstring angle = textItem(document, L"Screen", L"AngleUnit", BaseConfig::ANGLE_UNIT_DEGREES());
    setTextItem(document, L"System", L"AngleUnit", angle);
    removeItems(document, L"Screen", {L"AngleUnit"});
}

}  // namespace

void toVersion9(ConfigInfo& document) {
    describeCameras(document);
    removeObsoleteItems(document);
    moveUnits(document);
    shareCommonProjectorValues(document);
}

}  // namespace XMLConfig::detail
