#include "sections/ProjMapConfig.h"

#include "sections/OpenItems.h"

namespace detail = XMLConfig::detail;

ProjMapConfig::ProjMapConfig(ConfigInfo* configInfo, const std::wstring& sectionID)
    : BaseConfig(configInfo, L"ProjMap", sectionID) {}

ProjMapConfig::~ProjMapConfig() = default;

void ProjMapConfig::initialize() {}

void ProjMapConfig::get(const std::wstring& key, bool& value) const {
    value = detail::stored({*m_configInfo, getSectionName(), getSectionID(), key}, value);
}
void ProjMapConfig::get(const std::wstring& key, int& value) const {
    value = detail::stored({*m_configInfo, getSectionName(), getSectionID(), key}, value);
}
void ProjMapConfig::get(const std::wstring& key, float& value) const {
    value = detail::stored({*m_configInfo, getSectionName(), getSectionID(), key}, value);
}
void ProjMapConfig::get(const std::wstring& key, Point_3Dim<double>& value) const {
    value = detail::stored({*m_configInfo, getSectionName(), getSectionID(), key}, value);
}
void ProjMapConfig::get(const std::wstring& key, std::vector<float>& value) const {
    value = detail::stored({*m_configInfo, getSectionName(), getSectionID(), key}, value);
}

void ProjMapConfig::set(const std::wstring& key, bool value) {
    detail::store({*m_configInfo, getSectionName(), getSectionID(), key}, value);
}
void ProjMapConfig::set(const std::wstring& key, int value) {
    detail::store({*m_configInfo, getSectionName(), getSectionID(), key}, value);
}
void ProjMapConfig::set(const std::wstring& key, float value) {
    detail::store({*m_configInfo, getSectionName(), getSectionID(), key}, value);
}
void ProjMapConfig::set(const std::wstring& key, const Point_3Dim<double>& value) {
    detail::store({*m_configInfo, getSectionName(), getSectionID(), key}, value);
}
void ProjMapConfig::set(const std::wstring& key, const std::vector<float>& value) {
    detail::store({*m_configInfo, getSectionName(), getSectionID(), key}, value);
}

bool ProjMapConfig::change(const std::wstring& key, bool newValue, bool defaultValue) {
    return detail::change({*m_configInfo, getSectionName(), getSectionID(), key}, newValue, defaultValue);
}
bool ProjMapConfig::change(const std::wstring& key, int newValue, int defaultValue) {
    return detail::change({*m_configInfo, getSectionName(), getSectionID(), key}, newValue, defaultValue);
}
bool ProjMapConfig::change(const std::wstring& key, float newValue, float defaultValue) {
    return detail::change({*m_configInfo, getSectionName(), getSectionID(), key}, newValue, defaultValue);
}
bool ProjMapConfig::change(const std::wstring& key, const Point_3Dim<double>& newValue,
                           const Point_3Dim<double>& defaultValue) {
    return detail::change({*m_configInfo, getSectionName(), getSectionID(), key}, newValue, defaultValue);
}
bool ProjMapConfig::change(const std::wstring& key, const std::vector<float>& newValue,
                           const std::vector<float>& defaultValue) {
    return detail::change({*m_configInfo, getSectionName(), getSectionID(), key}, newValue, defaultValue);
}
