#include "tools/Suggestion.h"

#include <algorithm>

#include "manager/DeviceAddresses.h"
#include "manager/Selector.h"
#include "manager/SettingSearch.h"
#include "platform/EditDistance.h"
#include "platform/Words.h"
#include "store/ElementView.h"
#include "tools/Places.h"

namespace tool {
namespace {

using XMLConfig::Address;
using XMLConfig::ElementView;
using XMLConfig::detail::editDistance;
using XMLConfig::detail::lowerAscii;

/// "a", "b" or "c"; of more than are worth reading the first ones.
std::wstring alternatives(std::vector<std::wstring> names) {
    constexpr std::size_t most = 5;
    const bool areMore = names.size() > most;
    if (areMore) names.resize(most);
    std::wstring text;
    for (std::size_t i = 0; i < names.size(); ++i)
        text += (i == 0 ? L"\"" : i + 1 == names.size() && !areMore ? L" or \"" : L", \"") + names[i] + L"\"";
    return areMore ? text + L" or another" : text;
}

bool isIn(const std::vector<std::wstring>& names, const std::wstring& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

/// The names that hold the last part of the text, whatever the case of its letters.
std::vector<std::wstring> namesWith(const std::wstring& text, const std::vector<std::wstring>& names) {
    constexpr std::size_t least = 3;  // what is shorter stands in too many
    const std::wstring part = lowerAscii(text.substr(text.rfind(L'/') + 1));
    std::vector<std::wstring> found;
    for (const std::wstring& name : names)
        if (part.size() >= least && lowerAscii(name).find(part) != std::wstring::npos && !isIn(found, name))
            found.push_back(name);
    return found;
}

/// The address in a device's ID, by which it may be named too.
std::wstring endingOf(const std::wstring& id) {
    const std::wstring_view separator = XMLConfig::detail::deviceIDSeparator;
    const std::size_t begin = id.rfind(separator);
    return begin == std::wstring::npos ? id : id.substr(begin + separator.size());
}

/// The sections that the catalogue knows and those that the document holds.
std::vector<std::wstring> sectionsOf(const ConfigInfo& document) {
    std::vector<std::wstring> names = XMLConfig::sectionNames();
    for (const ElementView& section : XMLConfig::rootElement(document).children())
        if (!XMLConfig::isHeaderElement(section.name()) && !isIn(names, section.name())) names.push_back(section.name());
    return names;
}

/// All that may stand in the brackets.
std::vector<std::wstring> identifiersOf(const ConfigInfo& document, const std::wstring& section) {
    std::vector<std::wstring> names;
    for (const ElementView& one : XMLConfig::sectionElements(document, section))
        for (const std::wstring& name : {one.child(L"Name").text(), one.id(), endingOf(one.id())})
            if (!name.empty()) names.push_back(name);
    return names;
}

std::wstring keyText(const Address& address) {
    return XMLConfig::addressText({L"x", L"", address.subSection, address.subSectionID, address.key}).substr(2);
}

/// The keys that the catalogue knows in the section, and those that stand in it.
std::vector<std::wstring> keysOf(const ElementView& section, const std::wstring& name) {
    std::vector<std::wstring> keys;
    for (const XMLConfig::Setting& setting : XMLConfig::settingsOfSection(name)) keys.push_back(addressKey(setting));
    for (const ElementView& item : section.children()) {
        const std::wstring id = item.id();
        keys.push_back(id.empty() ? item.name() : item.name() + L"[" + id + L"]");
    }
    return keys;
}

ElementView sectionAt(const ConfigInfo& document, const Address& address) {
    return XMLConfig::findElement(document, {address.section, address.sectionID, L"", L"", L""});
}

std::wstring suggestedKey(const ElementView& section, const Address& address) {
    return suggestion(keyText(address), keysOf(section, address.section));
}

}  // namespace

std::wstring suggestion(const std::wstring& text, const std::vector<std::wstring>& names) {
    constexpr std::size_t few = 2;  // letters that fingers miss
    std::vector<std::wstring> nearest;
    std::size_t least = std::max(text.size() / 3, few);
    for (const std::wstring& name : names) {
        const std::size_t steps = editDistance(lowerAscii(text), lowerAscii(name));
        if (steps > least || steps >= name.size() || isIn(nearest, name)) continue;
        if (steps < least) nearest.clear();
        least = steps;
        nearest.push_back(name);
    }
    const std::vector<std::wstring> holding =
        nearest.empty() || least > few ? namesWith(text, names) : std::vector<std::wstring>();
    if (!holding.empty()) nearest = holding;
    return nearest.empty() || isIn(nearest, text) ? L"" : L"; did you mean " + alternatives(nearest) + L"?";
}

std::wstring suggestionFor(const ConfigInfo& document, const Address& address) {
    const ElementView named = address.sectionID.empty() ? ElementView() : sectionAt(document, address);
    if (named) return suggestedKey(named, address);  // before the search through all sections: many can miss one key
    const std::vector<std::wstring> sections = sectionsOf(document);
    if (!isIn(sections, address.section)) return suggestion(address.section, sections);
    const std::vector<Address> places = XMLConfig::select(document, address).places;
    const ElementView section = sectionAt(document, places.empty() ? address : places[0]);
    if (!places.empty() && (section || address.sectionID.empty())) return suggestedKey(section, address);
    const std::wstring nearest = suggestion(address.sectionID, identifiersOf(document, address.section));
    return nearest.empty() ? L"; the file holds " + heldSections(document, address.section) : nearest;
}

}  // namespace tool
