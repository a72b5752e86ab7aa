#include "base/BaseConfig.h"

#include "base/UnitConversionTable.h"
#include "store/ConfigInfo.h"

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
    m_configInfo->renameSection(m_sectionName, oldID, newSectionID);
    m_configInfo->setStringItem(m_sectionName, oldSectionIDTagName(), oldID, newSectionID, {}, {});
    m_sectionID = newSectionID;
}

std::wstring BaseConfig::oldSectionIDTagName() { return L"OldSectionID"; }

BaseConfig::Explicit<int> BaseConfig::get(const std::wstring& key, int defaultValue) const {
    return {m_configInfo->getIntegerItem(m_sectionName, key, defaultValue, m_sectionID)};
}

BaseConfig::Explicit<double> BaseConfig::get(const std::wstring& key, double defaultValue) const {
    return {m_configInfo->getDoubleItem(m_sectionName, key, defaultValue, m_sectionID)};
}

BaseConfig::Explicit<bool> BaseConfig::get(const std::wstring& key, bool defaultValue) const {
    return {m_configInfo->getBoolItem(m_sectionName, key, defaultValue, m_sectionID)};
}

BaseConfig::Explicit<Point_2Dim<int>> BaseConfig::get(const std::wstring& key, const Point_2Dim<int>& defaultValue) const {
    return {m_configInfo->getPoint2IItem(m_sectionName, key, defaultValue, m_sectionID)};
}

BaseConfig::Explicit<Point_3Dim<double>> BaseConfig::get(const std::wstring& key,
                                                         const Point_3Dim<double>& defaultValue) const {
    return {m_configInfo->getPoint3DItem(m_sectionName, key, defaultValue, m_sectionID)};
}

BaseConfig::Explicit<std::wstring> BaseConfig::get(const std::wstring& key, const std::wstring& defaultValue) const {
    return {m_configInfo->getStringItem(m_sectionName, key, defaultValue, m_sectionID, {}, {})};
}

BaseConfig::Explicit<std::wstring> BaseConfig::get(const std::wstring& key, const wchar_t* defaultValue) const {
    return get(key, std::wstring(defaultValue));
}

void BaseConfig::set(const std::wstring& key, int value) {
    m_configInfo->setIntegerItem(m_sectionName, key, value, m_sectionID);
}

void BaseConfig::set(const std::wstring& key, double value) {
    m_configInfo->setDoubleItem(m_sectionName, key, value, m_sectionID);
}

void BaseConfig::set(const std::wstring& key, bool value) {
    m_configInfo->setBoolItem(m_sectionName, key, value, m_sectionID);
}

void BaseConfig::set(const std::wstring& key, const Point_2Dim<int>& value) {
    m_configInfo->setPoint2IItem(m_sectionName, key, value, m_sectionID);
}

void BaseConfig::set(const std::wstring& key, const Point_3Dim<double>& value) {
    m_configInfo->setPoint3DItem(m_sectionName, key, value, m_sectionID);
}

void BaseConfig::set(const std::wstring& key, const std::wstring& value) {
    m_configInfo->setStringItem(m_sectionName, key, value, m_sectionID, {}, {});
}
