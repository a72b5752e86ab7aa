
#include "manager/SettingSearch.h"
#include "platform/Utf8.h"
#include "tools/DiffText.h"
#include "tools/Json.h"
#include "tools/Showing.h"

namespace tool {
namespace {

using XMLConfig::Difference;
using XMLConfig::LoneDevice;
using XMLConfig::SettingDifference;

Json texts(const std::vector<std::wstring>& list) {
    Json json = Json::array();
    for (const std::wstring& item : list) json.push_back(jsonText(item));
    return json;
}

Json devices(const std::vector<LoneDevice>& list) {
    Json json = Json::array();
    for (const LoneDevice& device : list)
        json.push_back({{"section", jsonText(device.section)},
                        {"id", jsonText(device.id)},
                        {"name", jsonText(device.name)},
                        {"settings", device.settings}});
    return json;
}

Json plain(const SettingDifference& difference) {
    return {{"address", jsonText(difference.address)}, {"old", jsonText(difference.old)}, {"new", jsonText(difference.now)}};
}

Json changes(const std::vector<SettingDifference>& list, const Showing& old, const Showing& now) {
    Json json = Json::array();
    for (const SettingDifference& difference : list) {
        const XMLConfig::Setting* const setting = difference.inSnippet ? nullptr : XMLConfig::knownSetting(difference.place);
        Json change = {{"address", jsonText(difference.address)},
                       {"device", jsonText(difference.device)},
                       {"old", jsonText(difference.old)},
                       {"new", jsonText(difference.now)}};
        change["oldText"] = difference.old ? jsonText(old.value(*difference.old, setting)) : Json(nullptr);
        change["newText"] = difference.now ? jsonText(now.value(*difference.now, setting)) : Json(nullptr);
        json.push_back(change);
    }
    return json;
}

Json plainList(const std::vector<SettingDifference>& list, bool withReason) {
    Json json = Json::array();
    for (const SettingDifference& difference : list) {
        json.push_back(plain(difference));
        if (withReason) json.back()["why"] = jsonText(difference.why);
    }
    return json;
}

Json renamed(const Difference& difference) {
    Json json = Json::array();
    for (const XMLConfig::RenamedDevice& device : difference.renamed)
        json.push_back({{"section", jsonText(device.section)},
                        {"name", jsonText(device.name)},
                        {"old", jsonText(device.oldID)},
                        {"new", jsonText(device.newID)},
                        {"by", jsonText(device.by)}});
    return json;
}

Json orders(const Difference& difference) {
    Json json = Json::array();
    for (const XMLConfig::OrderDifference& order : difference.order)
        json.push_back({{"section", jsonText(order.section)}, {"old", texts(order.old)}, {"new", texts(order.now)}});
    return json;
}

}  // namespace

std::wstring diffJson(const Difference& difference, const Compared& compared) {
    const Json json = {
        {"format", 1},
        {"verb", "diff"},
        {"old", compared.oldFile},
        {"new", compared.newFile},
        {"same", difference.isNothing()},
        {"renamed", renamed(difference)},
        {"added", devices(difference.added)},
        {"removed", devices(difference.removed)},
        {"changed", changes(difference.changed, Showing(compared.oldDocument), Showing(compared.newDocument))},
        {"sameInEffect", plainList(difference.sameInEffect, true)},
        {"sameInValue", plainList(difference.sameInValue, false)},
        {"runs", plainList(difference.runs, false)},
        {"order", orders(difference)},
        {"changedComments", difference.comments},
        {"exit", difference.isNothing() ? 0 : 1}};
    return XMLConfig::wideFromUtf8(json.dump(2)) + L"\n";
}

}  // namespace tool
