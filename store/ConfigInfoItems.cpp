#include <utility>

#include "platform/Numbers.h"
#include "platform/Text.h"
#include "store/ConfigInfo.h"
#include "store/CorvaneException.h"
#include "store/Document.h"
#include "store/DocumentParser.h"
#include "store/DocumentWriter.h"
#include "store/Legality.h"

using XMLConfig::detail::Address;
using XMLConfig::detail::Change;
using XMLConfig::detail::Container;
using XMLConfig::detail::Document;
using XMLConfig::detail::reporting;
using XMLConfig::detail::wideTextOf;

namespace {

constexpr const wchar_t* setItemPrefix = L"Error setItem: ";

// A fragment that is about to be stored. Parsed before anything is changed.
XMLConfig::detail::NewElement parseElement(Document& document, const Address& address, const std::wstring& value) {
    try {
        return document.parseElement(XMLConfig::detail::toUtf8(value));
    } catch (const XMLConfig::detail::ParseFailure& failure) {
        throw CorvaneException(setItemPrefix + std::wstring(L" XML message is: ") + failure.message() + L" (" +
                               XMLConfig::detail::describe(address) + L")");
    }
}

std::wstring observedSubSection(const Address& address) {
    return address.subSectionName + (address.subSectionID.empty() ? L"" : L"[" + address.subSectionID + L"]");
}

void tell(const Document& document, Change::Kind kind, const Address& address, const std::wstring& before,
          const std::wstring& after) {
    if (document.observer == nullptr) return;
    std::wstring key = address.key;
    if (!address.subSectionName.empty()) key.insert(0, observedSubSection(address) + L"|");
    document.observer->changed({kind, address.sectionName, address.sectionID, key, before, after});
}

void tellAdded(const Document& document, const Address& address, bool isSectionNew) {
    if (document.observer == nullptr) return;
    const auto told = [&](const std::wstring& key) {
        document.observer->changed({Change::Kind::SectionAdded, address.sectionName, address.sectionID, key, {}, {}});
    };
    if (isSectionNew) told({});
    if (!address.subSectionName.empty()) told(observedSubSection(address));
}

// What an observer is told of an item's content: its text, or its elements as XML text.
std::wstring observed(const Document& document, const xercesc::DOMElement& item) {
    if (document.observer == nullptr) return {};
    std::string elements;
    for (auto* element = item.getFirstElementChild(); element != nullptr; element = element->getNextElementSibling())
        elements += XMLConfig::detail::writeElement(*element);
    return elements.empty() ? wideTextOf(item) : XMLConfig::detail::fromUtf8(elements);
}

}  // namespace

std::wstring ConfigInfo::getStringItem(const std::wstring& sectionName, const std::wstring& key,
                                       const std::wstring& defaultValue, const std::wstring& sectionID,
                                       const std::wstring& subSectionName, const std::wstring& subSectionID) const {
    return reporting(L"Error getItem: ", [&] {
        const Address address{sectionName, sectionID, key, subSectionName, subSectionID};
        const auto item = m_document->getItem(m_document->container(address), address);
        if (item.element == nullptr) return defaultValue;
        std::u16string buffer;
        return XMLConfig::detail::fromUtf16(XMLConfig::detail::textOf(item, buffer));
    });
}

void ConfigInfo::setStringItem(const std::wstring& sectionName, const std::wstring& key, const std::wstring& value,
                               const std::wstring& sectionID, const std::wstring& subSectionName,
                               const std::wstring& subSectionID) {
    setItem(sectionName, key, value, sectionID, L"String", subSectionName, subSectionID);
}

std::wstring ConfigInfo::getStringItemAsDOMElement(const std::wstring& sectionName, const std::wstring& key,
                                                   const std::wstring& defaultValue, const std::wstring& sectionID) const {
    return reporting(L"Error getItem: ", [&]() -> std::wstring {
        const auto* const item = m_document->getItem(sectionName, key, sectionID).element;
        if (item == nullptr || item->getFirstChild() == nullptr) return defaultValue;
        if (XMLConfig::detail::isOneText(item->getFirstChild())) return wideTextOf(*item);
        const auto* const element = item->getFirstElementChild();
        return element == nullptr ? defaultValue : XMLConfig::detail::fromUtf8(XMLConfig::detail::writeElement(*element));
    });
}

void ConfigInfo::setStringItemAsDOMElement(const std::wstring& sectionName, const std::wstring& key,
                                           const std::wstring& value, const std::wstring& sectionID) {
    setItem(sectionName, key, value, sectionID, L"DOMElement", {}, {});
}

bool ConfigInfo::doesSectionExist(const std::wstring& sectionName, const std::wstring& sectionID) const {
    return reporting(L"Error getSection: ", [&] { return m_document->getSection(sectionName, sectionID) != nullptr; });
}

bool ConfigInfo::doesSubSectionExist(const std::wstring& sectionName, const std::wstring& subSectionName,
                                     const std::wstring& sectionID, const std::wstring& subSectionID) const {
    return reporting(L"Error getSection: ", [&] {
        return m_document->getSubSection(sectionName, subSectionName, sectionID, subSectionID) != nullptr;
    });
}

bool ConfigInfo::doesItemExist(const std::wstring& sectionName, const std::wstring& key,
                               const std::wstring& sectionID) const {
    return reporting(L"Error getItem: ",
                     [&] { return m_document->getItem(sectionName, key, sectionID).element != nullptr; });
}

bool ConfigInfo::removeItem(const std::wstring& sectionName, const std::wstring& key, const std::wstring& sectionID) {
    return reporting(L"Error removeItem(): ", [&] {
        const Address address{sectionName, sectionID, key, {}, {}};
        const Container container = m_document->container(address);
        auto* const item = m_document->getItem(container, address).element;
        if (item == nullptr) return false;
        const std::wstring before = observed(*m_document, *item);
        m_document->removeItem(*container.section, item);
        m_dirty = true;
        tell(*m_document, Change::Kind::ItemRemoved, address, before, {});
        return true;
    });
}

void ConfigInfo::setItem(const std::wstring& sectionName, const std::wstring& key, const std::wstring& value,
                         const std::wstring& sectionID, const std::wstring& type, const std::wstring& subSectionName,
                         const std::wstring& subSectionID) {
    if (!m_document->exists()) return;
    reporting(setItemPrefix, [&] {
        const Address address{sectionName, sectionID, key, subSectionName, subSectionID};
        const bool isElement = type == L"DOMElement";
        XMLConfig::detail::refuseWhatXmlCannotHold(setItemPrefix, address, value);
        Container container = m_document->container(address);
        auto item = m_document->getItem(container, address);
        const bool isNew = item.element == nullptr;
        if (!isNew && (isElement ? value.empty() : XMLConfig::detail::hasText(*item.element, value))) return;

        auto content =
            isElement && !value.empty() ? parseElement(*m_document, address, value) : XMLConfig::detail::NewElement();
        XMLConfig::detail::refuseDeepNesting(setItemPrefix, address, content.depth);

        const std::wstring before = isNew ? std::wstring() : observed(*m_document, *item.element);
        const bool isContainerNew = container.element == nullptr;
        const bool isSectionNew = isContainerNew && m_document->getSection(sectionName, sectionID) == nullptr;
        if (isNew) {
            if (isContainerNew) container = m_document->makeContainer(address);
            item = m_document->makeItem(container, key);
        }
        bool isChanged = true;
        if (content.element) {
            isChanged = m_document->setElement(item, std::move(content), container) || isNew;
        } else if (!isElement) {
            m_document->setText(item, value, container);
        }
        if (!isChanged) return;
        m_dirty = true;
        if (isContainerNew) tellAdded(*m_document, address, isSectionNew);
        tell(*m_document, isNew ? Change::Kind::ItemAdded : Change::Kind::ItemChanged, address, before,
             observed(*m_document, *item.element));
    });
}
