#include "store/Document.h"

#include <utility>

#include "platform/Files.h"
#include "platform/Numbers.h"
#include "platform/Text.h"
#include "store/BuildIdentity.h"
#include "store/ConfigInfo.h"
#include "store/CorvaneException.h"
#include "store/DocumentParser.h"
#include "store/TextForms.h"
#include "store/TreeLinks.h"

namespace XMLConfig::detail {

using xercesc::DOMElement;

Document& Document::of(ConfigInfo& configInfo) { return *configInfo.m_document; }
const Document& Document::of(const ConfigInfo& configInfo) { return *configInfo.m_document; }

ChangeObserver* setChangeObserver(ConfigInfo& document, ChangeObserver* observer) {
    return std::exchange(Document::of(document).observer, observer);
}

bool Document::parseDataFile(const std::wstring& path, const FileParser parse) {
    if (m_implementation == nullptr) return false;
    if (!canOpenForUpdate(path)) {
        const std::wstring reason = isHeldByAnother(path) ? L" (another program has it open)" : L"";
        throw CorvaneException(L"Error parseDataFile: Can not open file: " + path + reason);
    }
    FileState state;
    take(path, [&] {
        state = FileState::before(path);
        ParsedTree parsed = parse(path);
        state.wasRead(parsed.contentHash);
        return parsed;
    });
    file = std::move(state);
    return true;
}

void Document::parseData(const std::string& bytes, const std::wstring& name) {
    take(name, [&] { return parseBytes(bytes); });
}

void Document::take(const std::wstring& name, const std::function<ParsedTree()>& parse) {
    const std::wstring failed = L"Error parseDataFile: Error during parsing: " + name;
    try {
        adopt(parse());
    } catch (const FileError& error) {
        throw CorvaneException(failed + L" Msg is: " + error.message());
    } catch (...) {
        rethrow(failed, L"Error parseDataFile: Unknown error during parsing: " + name);
    }
}

void Document::initializeDOM() {
    if (m_implementation == nullptr) {
        throw CorvaneException(L"Error initializeDataFile: Requested implementation is not supported");
    }
    try {
        DocumentPointer made(m_implementation->createDocument());
        made->appendChild(made->createElementNS(nullptr, xmlText(u"ConfigInfo")));
        const auto add = [&made](const wchar_t* name, const std::wstring& text) {
            DOMElement* const element = made->createElement(xmlText(toUtf16(name)));
            append(*element, *made->createTextNode(xmlText(toUtf16(text))));
            append(*made->getDocumentElement(), *element);
        };
        add(versionElement, versionText(latestFileVersion));
        add(buildDateElement, buildDate);
        add(buildNumberElement, buildNumber);
        add(makerElement, makerName);
        adopt({std::move(made)});
    } catch (const xercesc::DOMException& exception) {
        throw CorvaneException(L"Error initializeDataFile: DOMException code is: " + formatInteger(exception.code));
    } catch (...) {
        passShortage();
        throw CorvaneException(L"Error initializeDataFile: An unknown error occurred creating the document");
    }
}

void Document::adopt(ParsedTree tree) noexcept {
    m_tree.adopt(std::move(tree.document), tree.names);
    m_index.reset(root());
    m_parsedPlaces = std::move(tree.places);
    m_parsedComments = std::move(tree.comments);
}

Container Document::container(const ItemAddress& address) const {
    Section* section = getSection(address.sectionName, address.sectionID);
    if (section == nullptr) return {};
    if (address.subSectionName.empty()) return {section->element, section};
    for (; section != nullptr; section = SectionIndex::next(*section, address.sectionID)) {
        DOMElement* const found = SectionIndex::subSection(*section, address.subSectionName, address.subSectionID);
        if (found != nullptr) return {found, section};
    }
    return {};
}

Item Document::getItem(const Container& container, const std::wstring& key) const {
    if (container.element == nullptr) return {};
    if (container.isSection()) return m_index.item(*container.section, key);
    return {m_index.walk(container.element, toUtf16(key)), container.section};
}

Item Document::getItem(const std::wstring& name, const std::wstring& key, const std::wstring& id) const {
    Section* const section = getSection(name, id);
    return section == nullptr ? Item() : getItem({section->element, section}, key);
}

std::u16string_view Document::textOf(const Item& item, std::u16string& buffer) const {
    const std::u16string_view known = item.section->textRead(item.number);
    if (!known.empty()) return known;
    const auto only = onlyText(*item.element);
    if (!only) return detail::textOf(*item.element, buffer);
    if (!m_journal.isOpen()) item.section->rememberRead(item, *only);
    return *only;
}

}  // namespace XMLConfig::detail
