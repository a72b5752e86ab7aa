#include "sections/MediaServerConfig.h"

#include "sections/MediaServerItems.h"
#include "sections/OpenItems.h"

using XMLConfig::detail::ValueTrait;

MediaServerConfig::MediaServerConfig(ConfigInfo* configInfo, const std::wstring& sectionID)
    : BaseConfig(configInfo, XMLConfig::detail::mediaServerItems.section, sectionID) {}

MediaServerConfig::~MediaServerConfig() = default;

void MediaServerConfig::initialize() {}

void MediaServerConfig::get(const std::wstring& key, std::wstring& value) const {
    value = ValueTrait<std::wstring>::read(*m_configInfo, {getSectionName(), getSectionID(), key}, value);
}
void MediaServerConfig::get(const std::wstring& key, bool& value) const {
    value = ValueTrait<bool>::read(*m_configInfo, {getSectionName(), getSectionID(), key}, value);
}

void MediaServerConfig::set(const std::wstring& key, const std::wstring& value) {
    ValueTrait<std::wstring>::write(*m_configInfo, {getSectionName(), getSectionID(), key}, value);
}
void MediaServerConfig::set(const std::wstring& key, const wchar_t* value) { set(key, std::wstring(value)); }
void MediaServerConfig::set(const std::wstring& key, bool value) {
    ValueTrait<bool>::write(*m_configInfo, {getSectionName(), getSectionID(), key}, value);
}

bool MediaServerConfig::change(const std::wstring& key, const std::wstring& newValue, const std::wstring& defaultValue) {
    return XMLConfig::detail::change(*m_configInfo, {getSectionName(), getSectionID(), key}, newValue, defaultValue);
}
bool MediaServerConfig::change(const std::wstring& key, const wchar_t* newValue, const wchar_t* defaultValue) {
    return change(key, std::wstring(newValue), std::wstring(defaultValue));
}
bool MediaServerConfig::change(const std::wstring& key, bool newValue, bool defaultValue) {
    return XMLConfig::detail::change(*m_configInfo, {getSectionName(), getSectionID(), key}, newValue, defaultValue);
}
