#include "store/Document.h"

#include <utility>

#include "platform/Files.h"
#include "platform/Numbers.h"
#include "platform/Text.h"
#include "store/BuildIdentity.h"
#include "store/ConfigInfo.h"
#include "store/CorvaneException.h"
#include "store/DocumentParser.h"

namespace XMLConfig::detail {

using xercesc::DOMElement;
using xercesc::DOMNode;

Item knownItem(Section& section, const std::wstring& key) {
    KnownItem* const known = SectionIndex::item(section, key);
    return known == nullptr ? Item() : Item{known->element, known, &section};
}

Document& Document::of(ConfigInfo& configInfo) { return *configInfo.m_document; }
const Document& Document::of(const ConfigInfo& configInfo) { return *configInfo.m_document; }

ChangeObserver* setChangeObserver(ConfigInfo& document, ChangeObserver* observer) {
    return std::exchange(Document::of(document).observer, observer);
}

void Document::initializeXerces() { m_implementation = startXmlLibrary(); }

bool Document::parseDataFile(const std::wstring& path) {
    if (m_implementation == nullptr) return false;
    if (!canOpenForUpdate(path)) throw CorvaneException(L"Error parseDataFile: Can not open file: " + path);
    const std::wstring failed = L"Error parseDataFile: Error during parsing: " + path;
    try {
        m_document = parseFile(path);
    } catch (const ParseFailure& failure) {
        throw CorvaneException(failed + L" XML message is: " + failure.message());
    } catch (const xercesc::XMLException& exception) {
        throw CorvaneException(failed + L" XML message is: " + fromUtf16(view(exception.getMessage())));
    } catch (const xercesc::DOMException& exception) {
        throw CorvaneException(failed + messageOf(exception));
    } catch (...) {
        throw CorvaneException(L"Error parseDataFile: Unknown error during parsing: " + path);
    }
    forgetTree();
    m_index.reset(m_document->getDocumentElement());
    return true;
}

void Document::initializeDOM() {
    if (m_implementation == nullptr) {
        throw CorvaneException(L"Error initializeDataFile: Requested implementation is not supported");
    }
    forgetTree();
    try {
        m_document.reset(m_implementation->createDocument(nullptr, xmlText(u"ConfigInfo"), nullptr));
        appendElement(root(), L"Version", formatFixed(latestFileVersion, 3));
        appendElement(root(), L"BuildDate", buildDate);
        appendElement(root(), L"BuildNumber", buildNumber());
        appendElement(root(), L"DevelopedBy", makerName);
    } catch (const xercesc::DOMException& exception) {
        throw CorvaneException(L"Error initializeDataFile: DOMException code is: " + formatInteger(exception.code));
    } catch (...) {
        throw CorvaneException(L"Error initializeDataFile: An unknown error occurred creating the document");
    }
    m_index.reset(root());
}

void Document::forgetTree() {
    m_spareItems.clear();
    m_spareTexts.clear();
    m_parsed = nullptr;
}

DOMElement* Document::root() const { return m_document ? m_document->getDocumentElement() : nullptr; }

Section* Document::getSection(const std::wstring& name, const std::wstring& id) const { return m_index.find(name, id); }

DOMElement* Document::getSubSection(const std::wstring& name, const std::wstring& subName, const std::wstring& id,
                                    const std::wstring& subID) const {
    const std::u16string subTag = toUtf16(subName);
    const std::u16string subTagID = toUtf16(subID);
    for (const Section* section = getSection(name, id); section != nullptr; section = section->next) {
        if (!id.empty() && section->id != id) continue;
        for (DOMElement* child = section->element->getFirstElementChild(); child != nullptr;
             child = child->getNextElementSibling()) {
            const bool isNamed = view(child->getNodeName()) == subTag;
            if (isNamed && (subTagID.empty() || view(child->getAttribute(xmlText(u"ID"))) == subTagID)) return child;
        }
    }
    return nullptr;
}

Container Document::container(const Address& address) const {
    if (!address.subSectionName.empty()) {
        return {getSubSection(address.sectionName, address.subSectionName, address.sectionID, address.subSectionID),
                nullptr};
    }
    Section* const section = getSection(address.sectionName, address.sectionID);
    return {section == nullptr ? nullptr : section->element, section};
}

Item Document::getItem(const Container& container, const Address& address) const {
    if (container.section != nullptr) return knownItem(*container.section, address.key);
    if (container.element == nullptr) return {};
    return {walkKey(container.element, toUtf16(address.key)), nullptr, nullptr};
}

Item Document::getItem(const std::wstring& name, const std::wstring& key, const std::wstring& id) const {
    Section* const section = getSection(name, id);
    return section == nullptr ? Item() : knownItem(*section, key);
}

bool isOneText(const DOMNode* firstChild) {
    return firstChild != nullptr && firstChild->getNodeType() == DOMNode::TEXT_NODE &&
           firstChild->getNextSibling() == nullptr;
}

std::u16string_view textOf(const DOMElement& element, std::u16string& buffer) {
    const DOMNode* const first = element.getFirstChild();
    if (isOneText(first)) return view(first->getNodeValue());
    const auto gather = [&buffer](const auto& self, const DOMNode& node) -> void {
        for (const DOMNode* child = node.getFirstChild(); child != nullptr; child = child->getNextSibling()) {
            const auto type = child->getNodeType();
            if (type == DOMNode::TEXT_NODE || type == DOMNode::CDATA_SECTION_NODE) {
                buffer += view(child->getNodeValue());
            } else if (type == DOMNode::ELEMENT_NODE) {
                self(self, *child);
            }
        }
    };
    buffer.clear();
    gather(gather, element);
    return buffer;
}

std::u16string_view textOf(const Item& item, std::u16string& buffer) {
    if (item.known == nullptr) return textOf(*item.element, buffer);
    SectionItems& items = item.section->items;
    const std::u16string_view known = items.text(*item.known);
    if (!known.empty()) return known;
    const std::u16string_view found = textOf(*item.element, buffer);
    if (isOneText(item.element->getFirstChild())) items.rememberText(*item.known, found);
    return found;
}

bool hasText(const DOMElement& element, const std::wstring& text) {
    std::u16string buffer;
    return equal(textOf(element, buffer), text);
}

std::wstring wideTextOf(const DOMElement& element) {
    std::u16string buffer;
    return fromUtf16(textOf(element, buffer));
}

}  // namespace XMLConfig::detail
