#include "manager/upgrade/Losses.h"

#include <algorithm>
#include <map>

#include "store/Address.h"
#include "store/ElementView.h"
#include "store/Tokens.h"

namespace XMLConfig::detail {
namespace {

constexpr const wchar_t* cameraTag = L"Camera";
constexpr const wchar_t* projectorTag = L"Projector";

using NewIDs = std::map<std::wstring, std::wstring>;

LostDevice describe(const ElementView& element) {
    LostDevice device;
    device.section = element.name();
    device.id = element.id();
    for (const ElementView item : element.children()) {
        ++device.settings;
        if (item.isNamed(L"Name")) device.name = item.text();
        if (item.isNamed(L"CameraType")) device.type = item.text();
    }
    return device;
}

const LostDevice* find(const std::vector<LostDevice>& devices, const std::wstring& section, const std::wstring& id) {
    const auto isIt = [&](const LostDevice& device) { return device.section == section && device.id == id; };
    const auto device = std::find_if(devices.begin(), devices.end(), isIt);
    return device == devices.end() ? nullptr : &*device;
}

NewIDs newCameraIDs(const std::vector<DeviceWithNewID>& renamed) {
    NewIDs ids;
    for (const DeviceWithNewID& device : renamed) {
        if (device.section == cameraTag) ids[device.oldID] = device.newID;
    }
    return ids;
}

std::wstring withNewIDs(const std::wstring& value, const NewIDs& ids) {
    std::wstring text;
    bool isFollowed = false;
    for (const std::wstring& id : tokensOf(value)) {
        const auto found = ids.find(id);
        isFollowed = isFollowed || found != ids.end();
        text += (text.empty() ? L"" : L",") + (found == ids.end() ? id : found->second);
    }
    return isFollowed ? text : value;
}

void addDangling(std::vector<DanglingReference>& found, const ElementView& section, const std::wstring& key,
                 const NewIDs& ids) {
    for (const ElementView item : section.children()) {
        if (!item.isNamed(key)) continue;
        const std::wstring value = item.text();
        const std::wstring followed = withNewIDs(value, ids);
        if (followed != value)
            found.push_back({addressText({section.name(), section.id(), L"", L"", key}), value, followed});
        return;
    }
}

}  // namespace

std::vector<LostDevice> devicesOf(const ConfigInfo& document) {
    std::vector<LostDevice> devices;
    for (const wchar_t* const tag : {projectorTag, cameraTag})
        for (const ElementView& device : sectionElements(document, tag)) devices.push_back(describe(device));
    return devices;
}

std::vector<LostDevice> lostOf(const std::vector<LostDevice>& devices, const UpgradeReceipt& receipt) {
    std::vector<LostDevice> lost;
    for (const UpgradeStepReport& step : receipt.steps) {
        for (const UpgradeChange& change : step.changes) {
            if (change.kind != UpgradeChange::Kind::Removed || !change.key.empty()) continue;
            const LostDevice* const device = find(devices, change.section, change.sectionID);
            if (device != nullptr) lost.push_back(*device);
        }
    }
    return lost;
}

std::vector<DeviceWithNewID> renamedOf(const std::vector<LostDevice>& devices, const UpgradeReceipt& receipt) {
    std::vector<DeviceWithNewID> renamed;
    for (const UpgradeStepReport& step : receipt.steps) {
        for (const UpgradeChange& change : step.changes) {
            if (change.kind != UpgradeChange::Kind::Renamed) continue;
            const LostDevice* const device = find(devices, change.section, change.oldValue);
            renamed.push_back({change.section, device == nullptr ? L"" : device->name, change.oldValue, change.newValue});
        }
    }
    return renamed;
}

std::vector<DanglingReference> danglingReferences(const ConfigInfo& document, const std::vector<DeviceWithNewID>& renamed) {
    const NewIDs ids = newCameraIDs(renamed);
    std::vector<DanglingReference> found;
    if (ids.empty()) return found;
    for (const ElementView& color : sectionElements(document, L"Color")) addDangling(found, color, L"CameraOrder", ids);
    for (const ElementView& projector : sectionElements(document, projectorTag)) {
        addDangling(found, projector, L"Associated_Camera_Id_1", ids);
        addDangling(found, projector, L"Associated_Camera_Id_2", ids);
    }
    return found;
}

}  // namespace XMLConfig::detail
