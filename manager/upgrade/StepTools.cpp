#include "manager/upgrade/StepTools.h"

#include "platform/Numbers.h"
#include "store/ElementItem.h"
#include "store/TextForms.h"

namespace XMLConfig::detail {

namespace {

std::vector<StepSection> sectionsOf(StepDocument& document, StepDevices& devices) {
    std::vector<StepSection> sections;
    sections.reserve(devices.list.size());
    for (StepDevice& device : devices.list)
        if (!device.isGone) sections.emplace_back(document, device);
    return sections;
}

}  // namespace

StepSection::StepSection(StepDocument& document, const wchar_t* name) : m_document(&document), m_name(name) {}

const std::wstring& StepSection::id() const {
    static const std::wstring none;
    return m_device == nullptr ? none : m_device->id;
}

const std::wstring* StepSection::waiting(const std::wstring& key) const {
    const StepDevice::Item* const item = m_device == nullptr ? nullptr : StepDocument::waiting(*m_device, key);
    return item == nullptr ? nullptr : &item->text;
}

bool StepSection::has(const std::wstring& key) const {
    return waiting(key) != nullptr || stored().doesItemExist(name(), key, id());
}
bool StepSection::flag(const std::wstring& key, bool fallback) const { return boolOf(text(key)).value_or(fallback); }
int StepSection::integer(const std::wstring& key, int fallback) const {
    const std::wstring* const text = waiting(key);
    return text != nullptr ? leadingInteger(*text) : stored().getIntegerItem(name(), key, fallback, id());
}
double StepSection::number(const std::wstring& key, double fallback) const {
    const std::wstring* const text = waiting(key);
    return text != nullptr ? leadingDouble(*text) : stored().getDoubleItem(name(), key, fallback, id());
}
Point_2Dim<int> StepSection::point(const std::wstring& key, const Point_2Dim<int>& fallback) const {
    if (waiting(key) != nullptr) m_document->write(*m_device);
    return stored().getPoint2IItem(name(), key, fallback, id());
}
std::wstring StepSection::text(const std::wstring& key, const std::wstring& fallback) const {
    const std::wstring* const text = waiting(key);
    return text != nullptr ? *text : stored().getStringItem(name(), key, fallback, id(), {}, {});
}
std::wstring StepSection::element(const std::wstring& key) const {
    const std::wstring* const text = waiting(key);
    return text != nullptr ? *text : stored().getStringItemAsDOMElement(name(), key, {}, id());
}

void StepSection::setFlag(const std::wstring& key, bool value) { setText(key, textOf(value)); }
void StepSection::setInteger(const std::wstring& key, int value) { setText(key, textOf(value)); }
void StepSection::setNumber(const std::wstring& key, double value) { setText(key, textOf(value)); }
void StepSection::setPoint(const std::wstring& key, const Point_2Dim<int>& value) { setText(key, textOf(value)); }
void StepSection::setText(const std::wstring& key, const std::wstring& value) {
    if (m_device != nullptr && m_document->put(*m_device, key, value)) return;
    stored().setStringItem(name(), key, value, id(), {}, {});
}
void StepSection::setElement(const std::wstring& key, const StoredElement& element) {
    if (m_device != nullptr) m_document->write(*m_device);
    setElementItem(stored(), name(), key, element, id());
}

void StepSection::removeItem(const std::wstring& key) {
    if (m_device == nullptr || !m_document->drop(*m_device, key)) stored().removeItem(name(), key, id());
}
void StepSection::removeItems(const Keys& keys) {
    for (const std::wstring& key : keys) removeItem(key);
}
void StepSection::rename(const std::wstring& newID) {
    m_document->prepareRenaming(*m_device, newID);
    stored().renameSection(name(), id(), newID);
    m_device->id = newID;
}
void StepSection::remove() {
    m_device->waiting.clear();
    m_device->isGone = true;
    stored().removeSection(name(), id());
}

std::vector<StepSection> projectorsOf(StepDocument& document) { return sectionsOf(document, document.projectors()); }
std::vector<StepSection> camerasOf(StepDocument& document) { return sectionsOf(document, document.cameras()); }

}  // namespace XMLConfig::detail
