#include "tools/Showing.h"

#include <set>

#include "manager/Origin.h"
#include "manager/SettingSearch.h"
#include "platform/Utf8.h"
#include "store/ElementView.h"
#include "store/Tokens.h"
#include "tools/Places.h"
#include "tools/Printable.h"
#include "tools/ValueInput.h"

namespace tool {
namespace {

using XMLConfig::Address;
using XMLConfig::ElementView;
using XMLConfig::Setting;
using XMLConfig::Unit;

/// Runs of white space as one blank, none at the ends, and nothing else that is more than one line.
std::wstring inOneLine(const std::wstring& text) {
    std::wstring line;
    bool isPending = false;
    for (const wchar_t character : text) {
        const bool isBlank = character == L' ' || character == L'\t' || character == L'\n' || character == L'\r';
        if (!isBlank && isPending && !line.empty()) line += L' ';
        if (!isBlank) line += character;
        isPending = isBlank;
    }
    return printable(line);
}

/// With every blank that it has.
std::wstring inQuotes(const std::wstring& text) { return L"\"" + printable(text) + L"\""; }

}  // namespace

Showing::Showing(const ConfigInfo& document) : m_units(document) {
    for (const std::wstring& section : XMLConfig::sectionNames()) {
        if (!XMLConfig::isDeviceSection(section)) continue;
        std::map<std::wstring, std::set<std::wstring>> idsByName;
        for (const ElementView& device : reachedSections(document, section))
            idsByName[device.child(L"Name").text()].insert(device.id());
        for (const auto& [name, ids] : idsByName)
            if (!name.empty() && ids.size() == 1) m_names[{section, *ids.begin()}] = name;
    }
}

std::wstring Showing::device(const std::wstring& section, const std::wstring& id) const {
    const auto name = m_names.find({section, id});
    return name == m_names.end() ? id : name->second;
}

std::wstring Showing::address(const std::wstring& text, const Address& place) const {
    const std::wstring section = XMLConfig::addressText({place.section, place.sectionID, L"", L"", L""});
    const std::wstring shown = device(place.section, place.sectionID);
    if (shown == place.sectionID || text.compare(0, section.size(), section) != 0) return printable(text);
    return printable(XMLConfig::addressText({place.section, shown, L"", L"", L""}) + text.substr(section.size()));
}

std::wstring Showing::address(const Address& place) const { return address(addressText(place), place); }

std::wstring Showing::value(const std::wstring& stored, const Setting* setting) const {
    if (setting == nullptr || !isOfType(stored, setting->type)) return inOneLine(stored);
    if (namesCameras(*setting)) return cameras(stored);
    if (!isNumbers(setting->type)) return inOneLine(stored);
    std::wstring shown;
    for (const std::wstring& token : XMLConfig::detail::tokensOf(stored))
        shown += (shown.empty() ? L"" : L", ") + number(numberRead(token), setting->unit);
    return shown;
}

std::wstring Showing::visibleValue(const std::wstring& stored, const Setting* setting) const {
    const std::wstring shown = value(stored, setting);
    return shown.empty() ? inQuotes(stored) : shown;
}

std::wstring Showing::number(double value, Unit unit) const {
    switch (unit) {
        case Unit::Radians:
            return m_units.angle(value, 6);
        case Unit::Meters:
            return m_units.length(value) + L" " + m_units.lengthUnit();
        case Unit::Percent:
            return numberText(value) + L" %";
        default:
            return numberText(value);
    }
}

std::wstring Showing::cameras(const std::wstring& ids) const {
    std::wstring names;
    for (const std::wstring& id : XMLConfig::detail::tokensOf(ids))
        names += (names.empty() ? L"" : L", ") + printable(device(L"Camera", id));
    return names;
}

std::wstring shownChange(const Showing& before, const std::wstring& old, const Showing& after, const std::wstring& now,
                         const Setting* setting) {
    constexpr const wchar_t* arrow = L" -> ";
    for (const Setting* const form : {setting, static_cast<const Setting*>(nullptr)}) {
        const std::wstring oldShown = before.visibleValue(old, form);
        const std::wstring nowShown = after.visibleValue(now, form);
        if (oldShown != nowShown || old == now) return oldShown + arrow + nowShown;
    }
    return inQuotes(old) + arrow + inQuotes(now);
}

}  // namespace tool
