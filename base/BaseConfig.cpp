#include "base/BaseConfig.h"

#include <utility>

#include "base/UnitConversionTable.h"
#include "base/ValueTraits.h"
#include "store/ConfigInfo.h"
#include "store/Together.h"

using XMLConfig::detail::ValueTrait;

BaseConfig::BaseConfig(ConfigInfo* configInfo, const std::wstring& sectionName, const std::wstring& sectionID)
    : m_configInfo(configInfo), m_sectionName(sectionName), m_sectionID(sectionID) {
    if (m_configInfo == nullptr) {
        m_ownedConfigInfo = std::make_unique<ConfigInfo>();
        m_configInfo = m_ownedConfigInfo.get();
    }
    setupConversionMap();
}

BaseConfig::~BaseConfig() = default;

const std::wstring& BaseConfig::getSectionName() const { return m_sectionName; }

const std::wstring& BaseConfig::getSectionID() const { return m_sectionID; }

double BaseConfig::getFileVersion() const { return m_configInfo->getVersion(); }

bool BaseConfig::removeSection() const { return m_configInfo->removeSection(m_sectionName, m_sectionID); }

bool BaseConfig::moveSection(int position) const { return m_configInfo->moveSection(position, m_sectionName, m_sectionID); }

void BaseConfig::renameSection(const std::wstring& newSectionID) {
    const std::wstring oldID = m_sectionID;
    std::wstring newID = newSectionID;
    XMLConfig::detail::together(*m_configInfo, [&] {
        m_configInfo->renameSection(m_sectionName, oldID, newID);
        m_configInfo->setStringItem(m_sectionName, oldSectionIDTagName(), oldID, newID, {}, {});
    });
    m_sectionID = std::move(newID);
}

std::wstring BaseConfig::oldSectionIDTagName() { return L"OldSectionID"; }

BaseConfig::Explicit<int> BaseConfig::get(const std::wstring& key, int defaultValue) const {
    return {ValueTrait<int>::read(*m_configInfo, {m_sectionName, m_sectionID, key}, defaultValue)};
}

BaseConfig::Explicit<double> BaseConfig::get(const std::wstring& key, double defaultValue) const {
    return {ValueTrait<double>::read(*m_configInfo, {m_sectionName, m_sectionID, key}, defaultValue)};
}

BaseConfig::Explicit<bool> BaseConfig::get(const std::wstring& key, bool defaultValue) const {
    return {ValueTrait<bool>::read(*m_configInfo, {m_sectionName, m_sectionID, key}, defaultValue)};
}

BaseConfig::Explicit<Point_2Dim<int>> BaseConfig::get(const std::wstring& key, const Point_2Dim<int>& defaultValue) const {
    return {ValueTrait<Point_2Dim<int>>::read(*m_configInfo, {m_sectionName, m_sectionID, key}, defaultValue)};
}

BaseConfig::Explicit<Point_3Dim<double>> BaseConfig::get(const std::wstring& key,
                                                         const Point_3Dim<double>& defaultValue) const {
    return {ValueTrait<Point_3Dim<double>>::read(*m_configInfo, {m_sectionName, m_sectionID, key}, defaultValue)};
}

BaseConfig::Explicit<std::wstring> BaseConfig::get(const std::wstring& key, const std::wstring& defaultValue) const {
    return {ValueTrait<std::wstring>::read(*m_configInfo, {m_sectionName, m_sectionID, key}, defaultValue)};
}

BaseConfig::Explicit<std::wstring> BaseConfig::get(const std::wstring& key, const wchar_t* defaultValue) const {
    return get(key, std::wstring(defaultValue));
}

void BaseConfig::set(const std::wstring& key, int value) {
    ValueTrait<int>::write(*m_configInfo, {m_sectionName, m_sectionID, key}, value);
}

void BaseConfig::set(const std::wstring& key, double value) {
    ValueTrait<double>::write(*m_configInfo, {m_sectionName, m_sectionID, key}, value);
}

void BaseConfig::set(const std::wstring& key, bool value) {
    ValueTrait<bool>::write(*m_configInfo, {m_sectionName, m_sectionID, key}, value);
}

void BaseConfig::set(const std::wstring& key, const Point_2Dim<int>& value) {
    ValueTrait<Point_2Dim<int>>::write(*m_configInfo, {m_sectionName, m_sectionID, key}, value);
}

void BaseConfig::set(const std::wstring& key, const Point_3Dim<double>& value) {
    ValueTrait<Point_3Dim<double>>::write(*m_configInfo, {m_sectionName, m_sectionID, key}, value);
}

void BaseConfig::set(const std::wstring& key, const std::wstring& value) {
    ValueTrait<std::wstring>::write(*m_configInfo, {m_sectionName, m_sectionID, key}, value);
}
