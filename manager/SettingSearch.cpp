#include "manager/SettingSearch.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <unordered_map>

#include "manager/Catalogue.h"
#include "platform/Numbers.h"
#include "platform/Words.h"
#include "sections/OpenItems.h"
#include "store/BuildIdentity.h"
#include "store/TextForms.h"

namespace XMLConfig {
namespace {

struct Part {
    SettingType type;
    const wchar_t* key;
    SettingType partType;
    Unit unit;
};
// Flags of mirrors are bytes.
constexpr Range mirrorFlags{0.0, 255.0, false, false};
constexpr Part parts[] = {
    {SettingType::Frustum, L"|Offset", SettingType::Point3, Unit::Meters},
    {SettingType::Frustum, L"|RotationYPR", SettingType::Point3, Unit::Radians},
    {SettingType::Frustum, L"|FOVLeft", SettingType::Double, Unit::Radians},
    {SettingType::Frustum, L"|FOVRight", SettingType::Double, Unit::Radians},
    {SettingType::Frustum, L"|FOVTop", SettingType::Double, Unit::Radians},
    {SettingType::Frustum, L"|FOVBottom", SettingType::Double, Unit::Radians},
    {SettingType::Frustum, L"|ResolutionX", SettingType::Int, Unit::Pixels},
    {SettingType::Frustum, L"|ResolutionY", SettingType::Int, Unit::Pixels},
    {SettingType::PondOfMirrors, L"|Top", SettingType::Int, Unit::None},
    {SettingType::PondOfMirrors, L"|Bottom", SettingType::Int, Unit::None},
    {SettingType::PondOfMirrors, L"|Left", SettingType::Int, Unit::None},
    {SettingType::PondOfMirrors, L"|Right", SettingType::Int, Unit::None},
};

std::wstring zeroOf(SettingType type) {
    if (type == SettingType::Point3) return detail::textOf(Point_3Dim<double>{});
    return type == SettingType::Double ? detail::textOf(0.0) : detail::textOf(0);
}

Setting settingOf(const Part& part, const Setting& record) {
    Setting setting = record;
    setting.key += part.key;
    setting.type = part.partType;
    setting.unit = part.unit;
    setting.defaultText = zeroOf(part.partType);
    if (part.type == SettingType::PondOfMirrors) setting.range = mirrorFlags;
    return setting;
}

std::vector<Setting> settingsWithParts() {
    std::vector<Setting> settings;
    for (const Setting& setting : catalogue()) {
        settings.push_back(setting);
        for (const Part& part : parts)
            if (setting.type == part.type) settings.push_back(settingOf(part, setting));
    }
    return settings;
}

const std::vector<Setting>& knownSettings() {
    static const std::vector<Setting> known = settingsWithParts();
    return known;
}

/// Length of the decimal number that begins the text, in the form in which accessors write it into a key; 0 when none does.
std::size_t numberLength(std::wstring_view text) {
    std::size_t length = text.substr(0, 1) == L"-" ? 1 : 0;
    const std::size_t digits = length;
    while (length < text.size() && detail::isDigit(text[length])) ++length;
    const bool isWritten = length > digits && detail::formatInteger(detail::leadingInteger(text)) == text.substr(0, length);
    return isWritten ? length : 0;
}

/// "%d" stands for a number, "%s" for one character or more, everything else for itself.
bool matchesPattern(std::wstring_view text, std::wstring_view pattern) {
    const std::size_t percent = pattern.find(L'%');
    if (percent == std::wstring_view::npos) return text == pattern;
    if (text.substr(0, percent) != pattern.substr(0, percent)) return false;
    const std::wstring_view rest = text.substr(percent);
    const std::wstring_view restOfPattern = pattern.substr(percent + 2);
    if (pattern[percent + 1] == L'd') {
        const std::size_t length = numberLength(rest);
        return length > 0 && matchesPattern(rest.substr(length), restOfPattern);
    }
    for (std::size_t length = 1; length <= rest.size(); ++length)
        if (matchesPattern(rest.substr(length), restOfPattern)) return true;
    return false;
}

/// The settings of one section: by key, and those whose keys are patterns one after the other.
class SectionSettings {
public:
    void add(const Setting& setting) {
        if (setting.key.find(L'%') == std::wstring::npos) m_byKey.emplace(setting.key, &setting);
        else m_patterns.push_back(&setting);
    }
    const Setting* find(const std::wstring& path) const {
        const auto exact = m_byKey.find(path);
        if (exact != m_byKey.end()) return exact->second;
        const auto fits = [&](const Setting* setting) { return matchesPattern(path, setting->key); };
        const auto pattern = std::find_if(m_patterns.begin(), m_patterns.end(), fits);
        return pattern == m_patterns.end() ? nullptr : *pattern;
    }

private:
    std::unordered_map<std::wstring_view, const Setting*> m_byKey;
    std::vector<const Setting*> m_patterns;
};

class SettingsBySection {
public:
    SettingsBySection() {
        for (const Setting& setting : knownSettings()) m_sections[setting.section].add(setting);
    }
    const SectionSettings* find(const std::wstring& section) const {
        const auto place = m_sections.find(section);
        return place == m_sections.end() ? nullptr : &place->second;
    }

private:
    std::unordered_map<std::wstring_view, SectionSettings> m_sections;
};

const SettingsBySection& settingsBySection() {
    static const SettingsBySection sections;
    return sections;
}

/// The address below its section in the catalogue's spelling.
std::wstring pathOf(const Address& address) {
    if (address.subSection.empty()) return address.key;
    const std::wstring id = address.subSectionID.empty() ? L"" : L"[" + address.subSectionID + L"]";
    return address.subSection + id + (address.key.empty() ? L"" : L"|" + address.key);
}

}  // namespace

const Setting* knownSetting(const Address& address) {
    const SectionSettings* const section = settingsBySection().find(address.section);
    return section == nullptr ? nullptr : section->find(pathOf(address));
}

std::optional<Setting> findSetting(const Address& address) {
    const Setting* const setting = knownSetting(address);
    return setting == nullptr ? std::nullopt : std::optional<Setting>(*setting);
}

bool isGroupOfSettings(const Address& address) {
    const std::wstring path = pathOf(address);
    const auto isBelow = [&](const Setting& setting) {
        if (setting.section != address.section) return false;
        for (std::size_t end = setting.key.find(L'|'); end != std::wstring::npos; end = setting.key.find(L'|', end + 1))
            if (matchesPattern(path, std::wstring_view(setting.key).substr(0, end))) return true;
        return false;
    };
    return std::any_of(knownSettings().begin(), knownSettings().end(), isBelow);
}

std::vector<Setting> settingsOfSection(const std::wstring& section) {
    std::vector<Setting> settings;
    for (const Setting& setting : catalogue())
        if (setting.section == section) settings.push_back(setting);
    return settings;
}

std::wstring addressKey(const Setting& setting) {
    std::wstring key = setting.key;
    std::replace(key.begin(), key.end(), L'|', L'/');
    return key;
}

bool isOpenSection(const std::wstring& section) {
    return std::find(std::begin(detail::openSections), std::end(detail::openSections), section) !=
           std::end(detail::openSections);
}

bool isDeviceSection(const std::wstring& section) { return section == L"Projector" || section == L"Camera"; }

bool namesCameras(const Setting& setting) {
    return setting.type == SettingType::CameraIDs || setting.key.find(L"Associated_Camera_Id_") == 0;
}

bool isHeaderElement(const std::wstring& name) {
    return std::find(std::begin(detail::headerElements), std::end(detail::headerElements), name) !=
           std::end(detail::headerElements);
}

std::vector<std::wstring> sectionNames() {
    std::vector<std::wstring> names;
    const auto add = [&](const std::wstring& name) {
        if (std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
    };
    for (const Setting& setting : knownSettings()) add(setting.section);
    for (const wchar_t* section : detail::openSections) add(section);
    return names;
}

}  // namespace XMLConfig
