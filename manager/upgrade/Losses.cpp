#include "manager/upgrade/Losses.h"

#include <algorithm>
#include <map>

#include "store/Address.h"
#include "store/ElementView.h"
#include "store/Tokens.h"

namespace XMLConfig::detail {
namespace {

constexpr const wchar_t* cameraTag = L"Camera";

using NewIDs = std::map<std::wstring, std::wstring>;

LostDevice describe(const ElementView& camera) {
    LostDevice device{cameraTag, camera.id(), {}, 0, {}};
    for (const ElementView item : camera.children()) {
        ++device.settings;
        if (item.isNamed(L"Name")) device.name = item.text();
        if (item.isNamed(L"CameraType")) device.type = item.text();
    }
    return device;
}

bool isRemovalOf(const UpgradeChange& change, const LostDevice& camera) {
    return change.kind == UpgradeChange::Kind::Removed && change.key.empty() && change.section == camera.section &&
           change.sectionID == camera.id;
}

NewIDs renamedCameras(const UpgradeReceipt& receipt) {
    NewIDs ids;
    for (const UpgradeStepReport& step : receipt.steps) {
        for (const UpgradeChange& change : step.changes) {
            if (change.kind == UpgradeChange::Kind::Renamed && change.section == cameraTag)
                ids[change.oldValue] = change.newValue;
        }
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

std::vector<LostDevice> camerasOf(const ConfigInfo& document) {
    std::vector<LostDevice> cameras;
    for (const ElementView& camera : sectionElements(document, cameraTag)) cameras.push_back(describe(camera));
    return cameras;
}

std::vector<LostDevice> lostOf(const std::vector<LostDevice>& cameras, const UpgradeReceipt& receipt) {
    std::vector<LostDevice> lost;
    for (const UpgradeStepReport& step : receipt.steps) {
        for (const UpgradeChange& change : step.changes) {
            const auto isLost = [&](const LostDevice& camera) { return isRemovalOf(change, camera); };
            const auto camera = std::find_if(cameras.begin(), cameras.end(), isLost);
            if (camera != cameras.end()) lost.push_back(*camera);
        }
    }
    return lost;
}

std::vector<DanglingReference> danglingReferences(const ConfigInfo& document, const UpgradeReceipt& receipt) {
    const NewIDs ids = renamedCameras(receipt);
    std::vector<DanglingReference> found;
    if (ids.empty()) return found;
    for (const ElementView& color : sectionElements(document, L"Color")) addDangling(found, color, L"CameraOrder", ids);
    for (const ElementView& projector : sectionElements(document, L"Projector")) {
        addDangling(found, projector, L"Associated_Camera_Id_1", ids);
        addDangling(found, projector, L"Associated_Camera_Id_2", ids);
    }
    return found;
}

}  // namespace XMLConfig::detail
