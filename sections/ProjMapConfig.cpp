#include "sections/ProjMapConfig.h"

#include "sections/OpenItems.h"

using XMLConfig::detail::ValueTrait;

ProjMapConfig::ProjMapConfig(ConfigInfo* configInfo, const std::wstring& sectionID)
    : BaseConfig(configInfo, XMLConfig::detail::projMapSection, sectionID) {}

ProjMapConfig::~ProjMapConfig() = default;

void ProjMapConfig::initialize() {}

void ProjMapConfig::get(const std::wstring& key, bool& value) const {
    value = ValueTrait<bool>::read(*m_configInfo, {getSectionName(), getSectionID(), key}, value);
}
void ProjMapConfig::get(const std::wstring& key, int& value) const {
    value = ValueTrait<int>::read(*m_configInfo, {getSectionName(), getSectionID(), key}, value);
}
void ProjMapConfig::get(const std::wstring& key, float& value) const {
    value = ValueTrait<float>::read(*m_configInfo, {getSectionName(), getSectionID(), key}, value);
}
void ProjMapConfig::get(const std::wstring& key, Point_3Dim<double>& value) const {
    value = ValueTrait<Point_3Dim<double>>::read(*m_configInfo, {getSectionName(), getSectionID(), key}, value);
}
void ProjMapConfig::get(const std::wstring& key, std::vector<float>& value) const {
    value = ValueTrait<std::vector<float>>::read(*m_configInfo, {getSectionName(), getSectionID(), key}, value);
}

void ProjMapConfig::set(const std::wstring& key, bool value) {
    ValueTrait<bool>::write(*m_configInfo, {getSectionName(), getSectionID(), key}, value);
}
void ProjMapConfig::set(const std::wstring& key, int value) {
    ValueTrait<int>::write(*m_configInfo, {getSectionName(), getSectionID(), key}, value);
}
void ProjMapConfig::set(const std::wstring& key, float value) {
    ValueTrait<float>::write(*m_configInfo, {getSectionName(), getSectionID(), key}, value);
}
void ProjMapConfig::set(const std::wstring& key, const Point_3Dim<double>& value) {
    ValueTrait<Point_3Dim<double>>::write(*m_configInfo, {getSectionName(), getSectionID(), key}, value);
}
void ProjMapConfig::set(const std::wstring& key, const std::vector<float>& value) {
    ValueTrait<std::vector<float>>::write(*m_configInfo, {getSectionName(), getSectionID(), key}, value);
}

bool ProjMapConfig::change(const std::wstring& key, bool newValue, bool defaultValue) {
    return XMLConfig::detail::change(*m_configInfo, {getSectionName(), getSectionID(), key}, newValue, defaultValue);
}
bool ProjMapConfig::change(const std::wstring& key, int newValue, int defaultValue) {
    return XMLConfig::detail::change(*m_configInfo, {getSectionName(), getSectionID(), key}, newValue, defaultValue);
}
bool ProjMapConfig::change(const std::wstring& key, float newValue, float defaultValue) {
    return XMLConfig::detail::change(*m_configInfo, {getSectionName(), getSectionID(), key}, newValue, defaultValue);
}
bool ProjMapConfig::change(const std::wstring& key, const Point_3Dim<double>& newValue,
                           const Point_3Dim<double>& defaultValue) {
    return XMLConfig::detail::change(*m_configInfo, {getSectionName(), getSectionID(), key}, newValue, defaultValue);
}
bool ProjMapConfig::change(const std::wstring& key, const std::vector<float>& newValue,
                           const std::vector<float>& defaultValue) {
    return XMLConfig::detail::change(*m_configInfo, {getSectionName(), getSectionID(), key}, newValue, defaultValue);
}
