#include "manager/upgrade/StepTools.h"

#include <utility>

namespace XMLConfig::detail {

namespace {

std::vector<StepSection> sectionsOf(ConfigInfo& document, const wchar_t* name) {
    std::vector<std::wstring> ids = document.getSectionIDs(name);
    std::vector<StepSection> sections;
    sections.reserve(ids.size());
    for (std::wstring& id : ids) sections.emplace_back(document, name, std::move(id));
    return sections;
}

}  // namespace

StepSection::StepSection(ConfigInfo& document, const wchar_t* name, std::wstring id)
    : m_document(&document), m_name(name), m_id(std::move(id)) {}

bool StepSection::has(const std::wstring& key) const { return m_document->doesItemExist(m_name, key, m_id); }
bool StepSection::flag(const std::wstring& key, bool fallback) const {
    return m_document->getBoolItem(m_name, key, fallback, m_id);
}
int StepSection::integer(const std::wstring& key, int fallback) const {
    return m_document->getIntegerItem(m_name, key, fallback, m_id);
}
double StepSection::number(const std::wstring& key, double fallback) const {
    return m_document->getDoubleItem(m_name, key, fallback, m_id);
}
Point_2Dim<int> StepSection::point(const std::wstring& key, const Point_2Dim<int>& fallback) const {
    return m_document->getPoint2IItem(m_name, key, fallback, m_id);
}
std::wstring StepSection::text(const std::wstring& key, const std::wstring& fallback) const {
    return m_document->getStringItem(m_name, key, fallback, m_id, {}, {});
}
std::wstring StepSection::element(const std::wstring& key) const {
    return m_document->getStringItemAsDOMElement(m_name, key, {}, m_id);
}

void StepSection::setFlag(const std::wstring& key, bool value) { m_document->setBoolItem(m_name, key, value, m_id); }
void StepSection::setInteger(const std::wstring& key, int value) { m_document->setIntegerItem(m_name, key, value, m_id); }
void StepSection::setNumber(const std::wstring& key, double value) { m_document->setDoubleItem(m_name, key, value, m_id); }
void StepSection::setPoint(const std::wstring& key, const Point_2Dim<int>& value) {
    m_document->setPoint2IItem(m_name, key, value, m_id);
}
void StepSection::setText(const std::wstring& key, const std::wstring& value) {
    m_document->setStringItem(m_name, key, value, m_id, {}, {});
}
void StepSection::setElement(const std::wstring& key, const ElementParts& element) {
    setElementItem(*m_document, m_name, key, element, m_id);
}

void StepSection::removeItem(const std::wstring& key) { m_document->removeItem(m_name, key, m_id); }
void StepSection::removeItems(const Keys& keys) {
    for (const std::wstring& key : keys) removeItem(key);
}
void StepSection::rename(const std::wstring& newID) {
    m_document->renameSection(m_name, m_id, newID);
    m_id = newID;
}
void StepSection::remove() { m_document->removeSection(m_name, m_id); }

std::vector<StepSection> projectorsOf(ConfigInfo& document) { return sectionsOf(document, L"Projector"); }
std::vector<StepSection> camerasOf(ConfigInfo& document) { return sectionsOf(document, L"Camera"); }

}  // namespace XMLConfig::detail
