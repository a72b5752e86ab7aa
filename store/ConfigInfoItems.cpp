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

using XMLConfig::detail::Change;
using XMLConfig::detail::Container;
using XMLConfig::detail::Document;
using XMLConfig::detail::ItemAddress;
using XMLConfig::detail::NewElement;
using XMLConfig::detail::reporting;

namespace {

constexpr const wchar_t* setItemPrefix = L"Error setItem: ";

/// What is to be stored: a text, the text of an element, or an element.
struct Value {
    const std::wstring& text;
    bool isElement;
    const XMLConfig::detail::StoredElement* element = nullptr;
};

// The element that is about to be stored, if it is one; made before anything is changed.
NewElement elementOf(const Value& value, Document& document, const ItemAddress& address) {
    if (value.element != nullptr) return document.makeElement(*value.element);
    if (!value.isElement || value.text.empty()) return {};
    try {
        return document.readElement(XMLConfig::detail::toUtf8(value.text));
    } catch (const XMLConfig::detail::ParseFailure& failure) {
        throw CorvaneException(setItemPrefix + std::wstring(L" XML message is: ") + failure.message() + L" (" +
                               XMLConfig::detail::describe(address) + L")");
    }
}

/// What an observer is to be told of one operation.
struct Told {
    std::vector<Change> sections;  ///< that are added around the item
    Change item;
};

// What an observer is told of an item's content: its text, or its elements as XML text.
std::wstring observed(const xercesc::DOMElement& item) {
    if (const auto text = XMLConfig::detail::onlyText(item)) return XMLConfig::detail::fromUtf16(*text);
    std::wstring elements;
    for (auto* element = item.getFirstElementChild(); element != nullptr; element = element->getNextElementSibling())
        elements += XMLConfig::detail::writeElement(*element);
    return elements.empty() ? XMLConfig::detail::wideTextOf(item) : elements;
}

/// To be put together before the change is made, because that may fail.
Told toldOf(const Document& document, const ItemAddress& address, const Container& container,
            const XMLConfig::detail::Item& item, const NewElement& content, const std::wstring& value) {
    const auto& [section, id, key, subSection, subSectionID] = address;
    const std::wstring inSection = subSection + (subSectionID.empty() ? L"" : L"[" + subSectionID + L"]");
    const bool isNew = item.element == nullptr;
    std::wstring before = isNew ? std::wstring() : observed(*item.element);
    std::wstring after = content.element ? XMLConfig::detail::writeElement(*content.element) : value;
    Told told{{},
              {isNew ? Change::Kind::ItemAdded : Change::Kind::ItemChanged, section, id,
               subSection.empty() ? key : inSection + L"|" + key, std::move(before), std::move(after)}};
    if (container.element != nullptr) return told;
    if (document.getSection(section, id) == nullptr)
        told.sections.push_back({Change::Kind::SectionAdded, section, id, {}, {}, {}});
    if (!subSection.empty()) told.sections.push_back({Change::Kind::SectionAdded, section, id, inSection, {}, {}});
    return told;
}

void store(ConfigInfo& configInfo, const ItemAddress& address, const Value& value) {
    Document& document = Document::of(configInfo);
    if (!document.exists()) return;
    reporting(setItemPrefix, [&] {
        XMLConfig::detail::refuseWhatXmlCannotHold(setItemPrefix, address, value.text);
        const Container container = document.container(address);
        const auto item = document.getItem(container, address.key);
        const bool isNew = item.element == nullptr;
        const bool isEmpty = value.text.empty() && value.element == nullptr;
        if (!isNew && (value.isElement ? isEmpty : XMLConfig::detail::hasText(*item.element, value.text))) return;

        NewElement content = elementOf(value, document, address);
        XMLConfig::detail::refuseDeepNesting(setItemPrefix, address, content.depth);
        if (content.namespaces != 0) {
            const auto& around = isNew ? document.placeOf(address, container) : *item.element;
            XMLConfig::detail::refuseManyNamespaces(setItemPrefix, address, around, content.namespaces);
        }

        std::optional<Told> told;
        if (document.observer != nullptr) told = toldOf(document, address, container, item, content, value.text);
        bool isChanged = true;
        if (isNew) document.addItem(address, container, {value.text, std::move(content.element)});
        else if (content.element) isChanged = document.setElement(item, std::move(content.element));
        else document.setText(item, value.text);
        if (!isChanged) return;
        configInfo.setDirty(true);
        if (!told) return;
        for (Change& section : told->sections) document.report(std::move(section));
        document.report(std::move(told->item));
    });
}

}  // namespace

std::wstring ConfigInfo::getStringItem(const std::wstring& sectionName, const std::wstring& key,
                                       const std::wstring& defaultValue, const std::wstring& sectionID,
                                       const std::wstring& subSectionName, const std::wstring& subSectionID) const {
    return reporting(L"Error getItem: ", [&] {
        const ItemAddress address{sectionName, sectionID, key, subSectionName, subSectionID};
        const auto item = m_document->getItem(m_document->container(address), key);
        if (item.element == nullptr) return defaultValue;
        std::u16string buffer;
        return XMLConfig::detail::fromUtf16(XMLConfig::detail::textOf(item, buffer));
    });
}

void ConfigInfo::setStringItem(const std::wstring& sectionName, const std::wstring& key, const std::wstring& value,
                               const std::wstring& sectionID, const std::wstring& subSectionName,
                               const std::wstring& subSectionID) {
    store(*this, {sectionName, sectionID, key, subSectionName, subSectionID}, {value, false});
}

std::wstring ConfigInfo::getStringItemAsDOMElement(const std::wstring& sectionName, const std::wstring& key,
                                                   const std::wstring& defaultValue, const std::wstring& sectionID) const {
    return reporting(L"Error getItem: ", [&]() -> std::wstring {
        const auto* const item = m_document->getItem(sectionName, key, sectionID).element;
        if (item == nullptr) return defaultValue;
        if (const auto text = XMLConfig::detail::onlyText(*item)) return XMLConfig::detail::fromUtf16(*text);
        const auto* const element = item->getFirstElementChild();
        return element == nullptr ? defaultValue : XMLConfig::detail::writeElement(*element);
    });
}

void ConfigInfo::setStringItemAsDOMElement(const std::wstring& sectionName, const std::wstring& key,
                                           const std::wstring& value, const std::wstring& sectionID) {
    store(*this, {sectionName, sectionID, key, {}, {}}, {value, true});
}

bool ConfigInfo::doesSectionExist(const std::wstring& sectionName, const std::wstring& sectionID) const {
    return reporting(L"Error getSection: ", [&] { return m_document->getSection(sectionName, sectionID) != nullptr; });
}

bool ConfigInfo::doesSubSectionExist(const std::wstring& sectionName, const std::wstring& subSectionName,
                                     const std::wstring& sectionID, const std::wstring& subSectionID) const {
    return reporting(L"Error getSection: ", [&] {
        if (subSectionName.empty()) return false;
        return m_document->container({sectionName, sectionID, {}, subSectionName, subSectionID}).element != nullptr;
    });
}

bool ConfigInfo::doesItemExist(const std::wstring& sectionName, const std::wstring& key,
                               const std::wstring& sectionID) const {
    return reporting(L"Error getItem: ",
                     [&] { return m_document->getItem(sectionName, key, sectionID).element != nullptr; });
}

bool ConfigInfo::removeItem(const std::wstring& sectionName, const std::wstring& key, const std::wstring& sectionID) {
    return reporting(L"Error removeItem(): ", [&] {
        const auto item = m_document->getItem(sectionName, key, sectionID);
        if (item.element == nullptr) return false;
        std::optional<Change> told;
        if (m_document->observer != nullptr)
            told = Change{Change::Kind::ItemRemoved, sectionName, sectionID, key, observed(*item.element), {}};
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
