#include <optional>
#include <utility>
#include <vector>

#include "platform/Numbers.h"
#include "platform/Text.h"
#include "store/ConfigInfo.h"
#include "store/CorvaneException.h"
#include "store/Document.h"
#include "store/DocumentWriter.h"
#include "store/ElementItem.h"
#include "store/Legality.h"
#include "store/ParseFailure.h"
#include "store/TreeLinks.h"

namespace detail = XMLConfig::detail;
using Kind = detail::Change::Kind;

namespace {

constexpr const wchar_t* setItemPrefix = L"Error setItem: ";

/// What is to be stored: a text, the text of an element, or an element.
struct Value {
    const std::wstring& text;
    bool isElement;
    const detail::StoredElement* element = nullptr;
};

// The element that is about to be stored, if it is one; made before anything is changed.
detail::NewElement elementOf(const Value& value, detail::Document& document, const detail::ItemAddress& address) {
    if (value.element != nullptr) return document.makeElement(*value.element);
    if (!value.isElement || value.text.empty()) return {};
    try {
        return document.readElement(detail::toUtf8(value.text));
    } catch (const detail::ParseFailure& failure) {
        throw CorvaneException(setItemPrefix + std::wstring(L" XML message is: ") + failure.message() + L" (" +
                               detail::describe(address) + L")");
    }
}

/// The same, where the document could be read again with it.
detail::NewElement acceptedElement(const Value& value, detail::Document& document, const detail::ItemAddress& address,
                                   const detail::Container& container, const detail::Item& item) {
    detail::NewElement element = elementOf(value, document, address);
    detail::refuseDeepNesting(setItemPrefix, address, element.levels);
    if (element.namespaces == 0) return element;
    const auto& around = item.element == nullptr ? document.placeOf(address, container) : *item.element;
    detail::refuseManyNamespaces(setItemPrefix, address, around, element.namespaces);
    return element;
}

// What an observer is told of an item's content: its text, or its elements as XML text.
std::wstring observed(const xercesc::DOMElement& item) {
    if (const auto text = detail::onlyText(item)) return detail::fromUtf16(*text);
    std::wstring elements;
    for (auto* element = detail::firstElementIn(item); element != nullptr; element = detail::elementAfter(*element))
        elements += detail::writeElement(*element);
    return elements.empty() ? detail::wideTextOf(item) : elements;
}

/// What an observer is told of one operation: the sections that are added around the item, and the item. To be put together
/// before the change is made, because that may fail.
std::vector<detail::Change> toldOf(const detail::Document& document, const detail::ItemAddress& address,
                                   const detail::Container& container, const detail::Item& item,
                                   const detail::NewElement& content, const std::wstring& value) {
    const auto& [section, id, key, subSection, subSectionID] = address;
    const std::wstring inSection = detail::Change::subSection(subSection, subSectionID);
    const bool isNew = item.element == nullptr;
    const bool isNewSection = container.element == nullptr && document.getSection(section, id) == nullptr;
    const bool isNewSubSection = container.element == nullptr && !subSection.empty();
    std::vector<detail::Change> told;
    if (isNewSection) told.push_back({Kind::SectionAdded, section, id, {}, {}, {}});
    if (isNewSubSection) told.push_back({Kind::SectionAdded, section, id, inSection, {}, {}});
    told.push_back({isNew ? Kind::ItemAdded : Kind::ItemChanged, section, id,
                    subSection.empty() ? key : inSection + L"|" + key, isNew ? std::wstring() : observed(*item.element),
                    content.element ? detail::writeElement(*content.element) : value});
    return told;
}

void store(ConfigInfo& configInfo, const detail::ItemAddress& address, const Value& value) {
    detail::Document& document = detail::Document::of(configInfo);
    if (!document.exists()) return;
    detail::reporting(setItemPrefix, [&] {
        detail::refuseWhatXmlCannotHold(setItemPrefix, address, value.text);
        const detail::Container container = document.container(address);
        const auto item = document.getItem(container, address.key);
        const bool isNew = item.element == nullptr;
        const bool isEmpty = value.text.empty() && value.element == nullptr;
        if (!isNew && (value.isElement ? isEmpty : detail::hasText(*item.element, value.text))) return;

        detail::NewElement content = acceptedElement(value, document, address, container, item);
        std::vector<detail::Change> told;
        if (document.observer != nullptr) told = toldOf(document, address, container, item, content, value.text);
        bool isChanged = true;
        if (isNew) document.addItem(address, container, {value.text, std::move(content.element)});
        else if (content.element) isChanged = document.setElement(item, std::move(content.element));
        else document.setText(item, value.text);
        if (!isChanged) return;
        configInfo.setDirty(true);
        for (detail::Change& change : told) document.report(std::move(change));
    });
}

}  // namespace

std::wstring ConfigInfo::getStringItem(const std::wstring& sectionName, const std::wstring& key,
                                       const std::wstring& defaultValue, const std::wstring& sectionID,
                                       const std::wstring& subSectionName, const std::wstring& subSectionID) const {
    return detail::reporting(L"Error getItem: ", [&] {
        const detail::ItemAddress address{sectionName, sectionID, key, subSectionName, subSectionID};
        const auto item = m_document->getItem(m_document->container(address), key);
        if (item.element == nullptr) return defaultValue;
        std::u16string buffer;
        return detail::fromUtf16(m_document->textOf(item, buffer));
    });
}

void ConfigInfo::setStringItem(const std::wstring& sectionName, const std::wstring& key, const std::wstring& value,
                               const std::wstring& sectionID, const std::wstring& subSectionName,
                               const std::wstring& subSectionID) {
    store(*this, {sectionName, sectionID, key, subSectionName, subSectionID}, {value, false});
}

std::wstring ConfigInfo::getStringItemAsDOMElement(const std::wstring& sectionName, const std::wstring& key,
                                                   const std::wstring& defaultValue, const std::wstring& sectionID) const {
    return detail::reporting(L"Error getItem: ", [&]() -> std::wstring {
        const auto* const item = m_document->getItem(sectionName, key, sectionID).element;
        if (item == nullptr) return defaultValue;
        if (const auto text = detail::onlyText(*item)) return detail::fromUtf16(*text);
        const auto* const element = detail::firstElementIn(*item);
        return element == nullptr ? defaultValue : detail::writeElement(*element);
    });
}

void ConfigInfo::setStringItemAsDOMElement(const std::wstring& sectionName, const std::wstring& key,
                                           const std::wstring& value, const std::wstring& sectionID) {
    store(*this, {sectionName, sectionID, key, {}, {}}, {value, true});
}

bool ConfigInfo::doesSectionExist(const std::wstring& sectionName, const std::wstring& sectionID) const {
    return detail::reporting(L"Error getSection: ",
                             [&] { return m_document->getSection(sectionName, sectionID) != nullptr; });
}

bool ConfigInfo::doesSubSectionExist(const std::wstring& sectionName, const std::wstring& subSectionName,
                                     const std::wstring& sectionID, const std::wstring& subSectionID) const {
    return detail::reporting(L"Error getSection: ", [&] {
        if (subSectionName.empty()) return false;
        return m_document->container({sectionName, sectionID, {}, subSectionName, subSectionID}).element != nullptr;
    });
}

bool ConfigInfo::doesItemExist(const std::wstring& sectionName, const std::wstring& key,
                               const std::wstring& sectionID) const {
    return detail::reporting(L"Error getItem: ",
                             [&] { return m_document->getItem(sectionName, key, sectionID).element != nullptr; });
}

bool ConfigInfo::removeItem(const std::wstring& sectionName, const std::wstring& key, const std::wstring& sectionID) {
    return detail::reporting(L"Error removeItem(): ", [&] {
        const auto item = m_document->getItem(sectionName, key, sectionID);
        if (item.element == nullptr) return false;
        std::optional<detail::Change> told;
        if (m_document->observer != nullptr)
            told = detail::Change{Kind::ItemRemoved, sectionName, sectionID, key, observed(*item.element), {}};
        m_document->removeItem(*item.section, *item.element);
        m_dirty = true;
        if (told) m_document->report(std::move(*told));
        return true;
    });
}

void ConfigInfo::setItem(const std::wstring& sectionName, const std::wstring& key, const std::wstring& value,
                         const std::wstring& sectionID, const std::wstring& type, const std::wstring& subSectionName,
                         const std::wstring& subSectionID) {
    store(*this, {sectionName, sectionID, key, subSectionName, subSectionID}, {value, type == L"DOMElement"});
}

namespace XMLConfig::detail {

void setElementItem(ConfigInfo& document, const std::wstring& sectionName, const std::wstring& key,
                    const StoredElement& element, const std::wstring& sectionID) {
    static const std::wstring none;
    if (isPlain(element)) store(document, {sectionName, sectionID, key, none, none}, {none, true, &element});
    else document.setStringItemAsDOMElement(sectionName, key, xmlOf(element), sectionID);
}

}  // namespace XMLConfig::detail
