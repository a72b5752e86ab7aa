#include <optional>
#include <utility>

#include "platform/Numbers.h"
#include "platform/Text.h"
#include "store/ConfigInfo.h"
#include "store/CorvaneException.h"
#include "store/Document.h"
#include "store/DocumentParser.h"
#include "store/DocumentWriter.h"
#include "store/ElementItem.h"
#include "store/Legality.h"

using XMLConfig::detail::Change;
using XMLConfig::detail::ChangeObserver;
using XMLConfig::detail::Container;
using XMLConfig::detail::Document;
using XMLConfig::detail::ItemAddress;
using XMLConfig::detail::NewElement;
using XMLConfig::detail::reporting;
using XMLConfig::detail::wideTextOf;

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

/// What an observer is to be told of one operation, gathered before the change is made.
class Told {
public:
    Told(ChangeObserver& observer, const ItemAddress& address) : m_observer(observer), m_address(address) {}

    void addSection() { put(m_section, Change::Kind::SectionAdded, {}, {}, {}); }
    void addSubSection() { put(m_subSection, Change::Kind::SectionAdded, subSection(), {}, {}); }
    void addItem(Change::Kind kind, std::wstring&& before, std::wstring&& after) {
        std::wstring key = m_address.subSectionName.empty() ? m_address.key : subSection() + L"|" + m_address.key;
        put(m_item, kind, std::move(key), std::move(before), std::move(after));
    }
    void report() {
        for (std::optional<Change>* const change : {&m_section, &m_subSection, &m_item})
            if (*change) m_observer.take(std::move(**change));
    }

private:
    void put(std::optional<Change>& place, Change::Kind kind, std::wstring&& key, std::wstring&& before,
             std::wstring&& after) {
        place =
            Change{kind, m_address.sectionName, m_address.sectionID, std::move(key), std::move(before), std::move(after)};
    }
    [[nodiscard]] std::wstring subSection() const {
        const std::wstring& id = m_address.subSectionID;
        return m_address.subSectionName + (id.empty() ? L"" : L"[" + id + L"]");
    }

    ChangeObserver& m_observer;
    const ItemAddress& m_address;
    std::optional<Change> m_section;
    std::optional<Change> m_subSection;
    std::optional<Change> m_item;
};

// What an observer is told of an item's content: its text, or its elements as XML text.
std::wstring observed(const xercesc::DOMElement& item) {
    if (XMLConfig::detail::isOneText(item.getFirstChild())) return wideTextOf(item);
    std::wstring elements;
    for (auto* element = item.getFirstElementChild(); element != nullptr; element = element->getNextElementSibling())
        elements += XMLConfig::detail::writeElement(*element);
    return elements.empty() ? wideTextOf(item) : elements;
}

void gather(Told& told, const Document& document, const ItemAddress& address, const Container& container,
            const XMLConfig::detail::Item& item, const NewElement& content, const std::wstring& value) {
    const bool isNew = item.element == nullptr;
    const bool isContainerNew = container.element == nullptr;
    const bool isSectionNew = isContainerNew && document.getSection(address.sectionName, address.sectionID) == nullptr;
    if (isSectionNew) told.addSection();
    if (isContainerNew && !address.subSectionName.empty()) told.addSubSection();
    std::wstring after = content.element ? XMLConfig::detail::writeElement(*content.element) : value;
    told.addItem(isNew ? Change::Kind::ItemAdded : Change::Kind::ItemChanged,
                 isNew ? std::wstring() : observed(*item.element), std::move(after));
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
        if (document.observer != nullptr) {
            told.emplace(*document.observer, address);
            gather(*told, document, address, container, item, content, value.text);
        }
        bool isChanged = true;
        if (isNew) document.addItem(address, container, {value.text, std::move(content.element)});
        else if (content.element) isChanged = document.setElement(item, std::move(content.element));
        else document.setText(item, value.text);
        if (!isChanged) return;
        configInfo.setDirty(true);
        if (told) told->report();
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
        if (item == nullptr || item->getFirstChild() == nullptr) return defaultValue;
        if (XMLConfig::detail::isOneText(item->getFirstChild())) return wideTextOf(*item);
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
        const ItemAddress address{sectionName, sectionID, key, {}, {}};
        const auto item = m_document->getItem(sectionName, key, sectionID);
        if (item.element == nullptr) return false;
        std::optional<Told> told;
        if (m_document->observer != nullptr) {
            told.emplace(*m_document->observer, address);
            told->addItem(Change::Kind::ItemRemoved, observed(*item.element), {});
        }
        m_document->removeItem(*item.section, *item.element);
        m_dirty = true;
        if (told) told->report();
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
