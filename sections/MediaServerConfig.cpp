#include "sections/MediaServerConfig.h"

#include "sections/MediaServerItems.h"
#include "sections/OpenItems.h"

namespace detail = XMLConfig::detail;

MediaServerConfig::MediaServerConfig(ConfigInfo* configInfo, const std::wstring& sectionID)
    : BaseConfig(configInfo, detail::mediaServerItems::sectionName, sectionID) {}

MediaServerConfig::~MediaServerConfig() = default;

void MediaServerConfig::initialize() {}

void MediaServerConfig::get(const std::wstring& key, std::wstring& value) const {
    value = detail::stored({*m_configInfo, getSectionName(), getSectionID(), key}, value);
}
void MediaServerConfig::get(const std::wstring& key, bool& value) const {
    value = detail::stored({*m_configInfo, getSectionName(), getSectionID(), key}, value);
}

void MediaServerConfig::set(const std::wstring& key, const std::wstring& value) {
    detail::store({*m_configInfo, getSectionName(), getSectionID(), key}, value);
}
void MediaServerConfig::set(const std::wstring& key, const wchar_t* value) { set(key, std::wstring(value)); }
void MediaServerConfig::set(const std::wstring& key, bool value) {
    detail::store({*m_configInfo, getSectionName(), getSectionID(), key}, value);
}

bool MediaServerConfig::change(const std::wstring& key, const std::wstring& newValue, const std::wstring& defaultValue) {
    return detail::change({*m_configInfo, getSectionName(), getSectionID(), key}, newValue, defaultValue);
}
bool MediaServerConfig::change(const std::wstring& key, const wchar_t* newValue, const wchar_t* defaultValue) {
    return change(key, std::wstring(newValue), std::wstring(defaultValue));
}
bool MediaServerConfig::change(const std::wstring& key, bool newValue, bool defaultValue) {
    return detail::change({*m_configInfo, getSectionName(), getSectionID(), key}, newValue, defaultValue);
}
