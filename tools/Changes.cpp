#include "tools/Changes.h"

#include "manager/Origin.h"
#include "manager/SettingSearch.h"
#include "store/ConfigInfo.h"
#include "store/ElementView.h"
#include "tools/Colour.h"
#include "tools/NumberTexts.h"
#include "tools/TableText.h"

namespace tool {
namespace {

using XMLConfig::Address;
using XMLConfig::Origin;

std::optional<std::wstring> storedAt(const ConfigInfo& document, const Address& place, const XMLConfig::Setting* setting) {
    if (!XMLConfig::findElement(document, place)) return std::nullopt;
    if (setting != nullptr && setting->type == XMLConfig::SettingType::Element)
        return document.getStringItemAsDOMElement(place.section, place.key, L"", place.sectionID);
    return XMLConfig::findElement(document, place).text();
}

const wchar_t* kindOf(const Change& change) {
    if (!change.now) return L"removed";
    return change.old ? L"changed" : L"added";
}

std::wstring markOf(const Change& change, bool isInColour) {
    if (!change.now) return coloured(L"-", Tone::Bad, isInColour);
    const bool isNew = !change.old && change.inheritedFrom.empty();
    return isNew ? coloured(L"+", Tone::Good, isInColour) : coloured(L"~", Tone::Doubtful, isInColour);
}

std::wstring whatHappened(const Change& change, const Showing& showing) {
    const auto value = [&](const std::wstring& text) { return showing.visibleValue(text, change.setting); };
    if (change.old && change.now) return shownChange(showing, *change.old, showing, *change.now, change.setting);
    if (change.now)
        return (change.inheritedFrom.empty() ? L"" : value(change.counted) + L" (inherited) -> ") + value(*change.now);
    if (!change.isKnown) return value(*change.old);
    return value(*change.old) + L" -> " + value(change.counted) +
           (change.inheritedFrom.empty() ? L" (default)" : L" (inherited from " + change.inheritedFrom + L")");
}

std::wstring placeText(const Change& change, const Showing& showing) {
    return change.address.empty() ? L"the whole file" : showing.address(change.address, change.place);
}

}  // namespace

Change beginChange(const ConfigInfo& document, const Address& place) {
    const XMLConfig::Setting* const setting = XMLConfig::knownSetting(place);
    Change change{
        XMLConfig::addressText(place), place, storedAt(document, place, setting), std::nullopt, L"", L"", false, setting};
    endChange(change, document);
    change.now.reset();
    return change;
}

void endChange(Change& change, const ConfigInfo& document) {
    change.now = storedAt(document, change.place, change.setting);
    if (change.now) return;
    const auto counted = XMLConfig::effectiveValue(document, change.place);
    change.isKnown = counted.has_value();
    if (!counted) return;
    change.counted = counted->stored;
    change.inheritedFrom = counted->origin == Origin::Inherited ? counted->from.section : L"";
}

std::wstring changesText(const std::vector<Change>& changes, const Showing& showing, const std::wstring& counts,
                         bool isDryRun, bool isColoured) {
    std::vector<std::vector<std::wstring>> rows;
    rows.reserve(changes.size());
    for (const Change& change : changes)
        rows.push_back({markOf(change, isColoured) + L" " + placeText(change, showing), whatHappened(change, showing)});
    return tableText(rows, L"", 0) + counted(changes.size(), L"change") + counts +
           (isDryRun ? L" (dry run, nothing written)\n" : L"\n");
}

Json jsonOf(const std::vector<Change>& changes) {
    Json json = Json::array();
    for (const Change& change : changes)
        json.push_back({{"address", jsonText(change.address)},
                        {"kind", jsonText(kindOf(change))},
                        {"old", jsonText(change.old)},
                        {"new", jsonText(change.now)}});
    return json;
}

std::wstring changesJson(const char* verb, const std::string& file, const std::vector<Change>& changes,
                         const FindingChange& findings, bool isWritten, int exitStatus) {
    Json answer = jsonAnswer(verb, file);
    answer["written"] = isWritten;
    answer["changes"] = jsonOf(changes);
    answer["newFindings"] = jsonOf(findings.fresh);
    answer["solved"] = jsonOf(findings.solved);
    return jsonEnd(std::move(answer), exitStatus);
}

}  // namespace tool
