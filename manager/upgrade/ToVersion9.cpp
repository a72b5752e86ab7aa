#include "manager/upgrade/CommonProjectorValues.h"
#include "manager/upgrade/StepTools.h"
#include "manager/upgrade/UpgradeChain.h"
#include "manager/upgrade/VersionUpgrade.h"
#include "platform/CameraInfo.h"
#include "platform/Numbers.h"
#include "store/Log.h"

// Version 9.0 describes cameras by device snippets, as projectors have been since 2.005, keeps the units of the whole
// document in the system section, and lets projectors inherit what most of them share from the geometry section.
namespace XMLConfig::detail {

namespace {

bool isKnownCamera(int type) { return type == 0 || type == 1; }

// The names and forms of a camera's elements are those of the common library's record, as devices report them.
CameraInfo cameraInfo(const StepSection& camera, int type) {
    CameraInfo info;
    info.setBayerPattern(0);
    info.setCameraType(type);
    info.setDefaultGateway({});
    info.setDHCP(camera.flag(L"Connection|DHCP", false));
    info.setFirmware({});
    info.setIPAddress(camera.text(L"Connection|IP_Address"));
    info.setMACAddress(camera.text(L"Connection|MAC_Address"));
    info.setModel(camera.text(L"Model"));
    info.setResolution(camera.integer(L"Resolution_X", 0), camera.integer(L"Resolution_Y", 0));
    info.setSerialNumber(camera.text(L"SerialNumber"));
    info.setSubnetMask(camera.text(L"Connection|Subnet_Mask"));
    return info;
}

void describeCamera(StepSection& camera, int type) {
    const std::wstring newID = L"PGR***" + camera.text(L"Connection|MAC_Address");
    StoredElement snippet{
        L"device", {{L"UID", newID}, {L"name", L""}, {L"password", L""}, {L"type", L"PGR"}, {L"version", L"1.0"}}, {}, {}};
    for (const auto& [name, text] : cameraInfo(camera, type).elements()) snippet.children.push_back({name, {}, text, {}});
    camera.setElement(L"DeviceSnippet", snippet);
    static const StepSection::Keys described = {L"CameraType",   L"SerialNumber", L"Model",
                                                L"Resolution_X", L"Resolution_Y", L"Connection"};
    camera.removeItems(described);
    camera.rename(newID);
}

void describeCameras(StepDocument& document) {
    const StepSection::Keys obsolete = {L"Protocol", L"Bit_Depth", L"Camera_Lens_Name", L"ShowOnOffMapperBlobs"};
    for (StepSection& camera : camerasOf(document)) {
        camera.removeItems(obsolete);
        const int type = camera.integer(L"CameraType", -1);
        if (isKnownCamera(type)) {
            describeCamera(camera, type);
            continue;
        }
        logError(versionUpgradeLog(),  // "encounterd" is spelt so on purpose: logs are searched for it
                 L"Unknown camera type encounterd (" + formatInteger(type) + L"), removing this section");
        camera.remove();
    }
}

void removeObsoleteItems(StepDocument& document) {
    StepSection(document, L"Screen").removeItem(L"GUI_3DPointDistribution");
    StepSection(document, L"Geometry").removeItems({L"IsStacked", L"IsAutoOrderRequired"});
    StepSection(document, L"System").removeItem(L"Load_Skorra_File");
    StepSection(document, L"TargetLocator").removeItems({L"ChannelExtentsAngleUnit", L"Inset_Unit"});
    StepSection(document, L"Screen").removeItem(L"Mask_AngleUnit");
}

void moveUnits(StepDocument& document) {
    StepSection screen(document, L"Screen");
    StepSection system(document, L"System");
    system.setText(L"Length_Unit", screen.text(L"Unit", L"Meters"));
    screen.removeItem(L"Unit");
    system.setText(L"AngleUnit", screen.text(L"AngleUnit", L"Degrees"));
    screen.removeItem(L"AngleUnit");
}

}  // namespace

void toVersion9(StepDocument& document) {
    describeCameras(document);
    removeObsoleteItems(document);
    moveUnits(document);
    shareCommonProjectorValues(document);
}

}  // namespace XMLConfig::detail
