#include <exception>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/Text.h"
#include "store/Document.h"
#include "store/TreeLinks.h"

namespace XMLConfig::detail {

namespace {

using xercesc::DOMElement;
using xercesc::DOMNode;

/// Cuts the first part from a key; false where that was the last.
bool cutPart(std::wstring_view& key, std::wstring_view& part) {
    const std::size_t end = key.find(L'|');
    part = key.substr(0, end);
    if (end == std::wstring_view::npos) return false;
    key.remove_prefix(end + 1);
    return true;
}

}  // namespace

/// The elements that an address wants and the tree lacks: where the first of them is to be joined, and their names and IDs.
struct Document::Missing {
    struct Step {
        std::wstring_view name;
        std::wstring_view id;
    };
    DOMElement* place = nullptr;
    Section* section = nullptr;  // what the place is in; null for the root
    std::vector<Step> steps;
    bool isSubSection = false;  // whether a subsection is among them
};

/// What follows an element that goes must go whatever its white space is, or an empty line would stay. Elsewhere a carriage
/// return is no indentation, since it may be a value.
void Document::removeIndentationAfter(DOMElement& parent, const DOMElement& child) noexcept {
    DOMNode* const next = child.getNextSibling();
    if (next == nullptr || next->getNodeType() != DOMNode::TEXT_NODE) return;
    const bool isWhiteSpace = view(next->getNodeValue()).find_first_not_of(u" \t\n\r\v\f") == std::u16string_view::npos;
    if (isWhiteSpace) part(parent, *next);
}

void Document::join(DOMNode& parent, DOMNode& child) noexcept {
    append(parent, child);
    m_journal.joined(parent, child);
}

void Document::joinBefore(DOMElement& parent, DOMNode& child, DOMNode* next) noexcept {
    parent.insertBefore(&child, next);
    m_journal.joined(parent, child);
}

void Document::part(DOMNode& parent, DOMNode& child) noexcept {
    m_journal.parting(parent, child);
    m_tree.remove(parent, child);
}

void Document::makeRoomToReplace(const DOMNode& parent) {
    if (m_journal.isOpen()) m_journal.makeRoom(parent.getChildNodes()->getLength() + 1);
}

void Document::empty(DOMNode& parent) noexcept {
    while (DOMNode* const child = parent.getFirstChild()) part(parent, *child);
}

DOMElement* Document::childOf(const Container& container, std::wstring_view name) const {
    return container.isSection() ? getItem(container, std::wstring(name)).element
                                 : m_index.walk(container.element, toUtf16(name));
}

Document::Missing Document::missingOf(const ItemAddress& address, const Container& container) const {
    Missing missing{container.element, container.section, {}, false};
    if (container.element == nullptr) {
        missing.section = getSection(address.sectionName, address.sectionID);
        missing.place = missing.section == nullptr ? root() : missing.section->element;
        missing.isSubSection = !address.subSectionName.empty();
        if (missing.section == nullptr) missing.steps.push_back({address.sectionName, address.sectionID});
        if (missing.isSubSection) missing.steps.push_back({address.subSectionName, address.subSectionID});
    }
    std::wstring_view key = address.key;
    for (bool isLast = false; !isLast;) {
        std::wstring_view part;
        isLast = !cutPart(key, part);
        // The whole key leads nowhere, so that its last part is missing in any case.
        const bool canBeThere = !isLast && missing.steps.empty();
        DOMElement* const found = canBeThere ? childOf({missing.place, missing.section}, part) : nullptr;
        if (found != nullptr) missing.place = found;
        else missing.steps.push_back({part, {}});
    }
    return missing;
}

const DOMElement& Document::placeOf(const ItemAddress& address, const Container& container) const {
    return *missingOf(address, container).place;
}

LooseElement Document::build(const Missing& missing, Content content, std::exception_ptr& illegalName) {
    LooseElement outermost;
    DOMElement* innermost = nullptr;
    for (const Missing::Step& step : missing.steps) {
        LooseElement element;
        try {
            element = m_tree.makeElement(*missing.place, step.name);
        } catch (const xercesc::DOMException&) {
            illegalName = std::current_exception();
            return outermost;
        }
        if (!step.id.empty()) m_tree.addAttribute(*element, u"ID", toUtf16(step.id).c_str());
        DOMElement* const inner = element.get();
        if (innermost == nullptr) outermost = std::move(element);
        else append(*innermost, *element.release());
        innermost = inner;
    }
    if (content.element) append(*innermost, *content.element.release());
    else if (!content.text.empty()) append(*innermost, *m_tree.makeText(content.text));
    return outermost;
}

void Document::addItem(const ItemAddress& address, const Container& container, Content content) {
    const Missing missing = missingOf(address, container);
    std::exception_ptr illegalName;
    m_journal.makeRoom(2);
    DOMElement* const added = build(missing, std::move(content), illegalName).release();
    if (added != nullptr) {
        join(*missing.place, *added);
        const bool isSection = missing.section == nullptr;
        if (missing.isSubSection) removeIndentationAfter(*root(), isSection ? *added : *missing.section->element);
        if (isSection) changed([&] { m_index.sectionAdded(*added); });
        else changed([&] { m_index.itemAdded(*missing.section, *added); });
    }
    if (illegalName) std::rethrow_exception(illegalName);
}

void Document::setText(const Item& item, const std::wstring& value) {
    DOMNode* const first = item.element->getFirstChild();
    if (isOneText(first) && !value.empty() && !m_journal.isOpen()) {
        Tree::setText(static_cast<xercesc::DOMText&>(*first), value);
    } else {
        makeRoomToReplace(*item.element);
        xercesc::DOMText* const text = value.empty() ? nullptr : m_tree.makeText(value);
        empty(*item.element);
        if (text != nullptr) join(*item.element, *text);
    }
    changed([&] { m_index.contentReplaced(*item.section, *item.element); });
}

bool Document::setElement(const Item& item, LooseElement content) {
    const bool isDifferent = !holdsCollapsed(*item.element, *content);
    makeRoomToReplace(*item.element);
    empty(*item.element);
    join(*item.element, *content.release());
    changed([&] { m_index.contentReplaced(*item.section, *item.element); });
    return isDifferent;
}

void Document::setSectionText(Section& section, const std::wstring& value) { setText({section.element, &section}, value); }

void Document::removeItem(Section& section, DOMElement& item) {
    if (parentOf(item) != section.element) throw xercesc::DOMException(xercesc::DOMException::NOT_FOUND_ERR);
    m_journal.makeRoom(1);
    part(*section.element, item);
    changed([&] { m_index.itemRemoved(section, item); });
}

void Document::removeSection(Section& section) {
    m_journal.makeRoom(2);
    removeIndentationAfter(*root(), *section.element);
    part(*root(), *section.element);
    changed([&] { m_index.sectionRemoved(section); });
}

void Document::removeSubSection(const Container& subSection) {
    m_journal.makeRoom(2);
    removeIndentationAfter(*subSection.section->element, *subSection.element);
    part(*subSection.section->element, *subSection.element);
    changed([&] { m_index.itemRemoved(*subSection.section, *subSection.element); });
}

void Document::renameSection(Section& section, const std::wstring& newID) {
    xercesc::DOMAttr* const attribute = section.element->getAttributeNode(xmlText(u"ID"));
    DOMNode* const text = attribute->getFirstChild();
    // Setting the attribute's value would leave the XML library without a value where memory runs out.
    if (isOneText(text) && !newID.empty() && !m_journal.isOpen()) {
        Tree::setText(static_cast<xercesc::DOMText&>(*text), newID);
    } else {
        makeRoomToReplace(*attribute);
        DOMNode* const made = newID.empty() ? nullptr : m_tree.makeText(newID);
        empty(*attribute);
        if (made != nullptr) join(*attribute, *made);
    }
    changed([&] { m_index.sectionRenamed(section, newID); });
}

void Document::swapSections(Section& earlier, Section& later) {
    m_journal.makeRoom(2);
    m_journal.parting(*root(), *later.element);
    joinBefore(*root(), *later.element, earlier.element);
    changed([&] { m_index.sectionsSwapped(earlier, later); });
}

void Document::setHeaders(const std::vector<Header>& headers, DOMElement* next) {
    std::vector<LooseElement> made;
    std::vector<DOMNode*> texts;
    std::size_t steps = 0;
    for (const Header& header : headers) {
        made.push_back(header.element == nullptr ? m_tree.makeElement(*root(), header.name) : LooseElement());
        texts.push_back(m_tree.makeText(header.text));
        steps += 2 + (header.element == nullptr ? 0 : header.element->getChildNodes()->getLength());
    }
    m_journal.makeRoom(steps);
    for (std::size_t i = 0; i < headers.size(); ++i) {
        DOMElement* const element = made[i] ? made[i].get() : headers[i].element;
        empty(*element);
        join(*element, *texts[i]);
        if (made[i]) joinBefore(*root(), *made[i].release(), next);
    }
    changed([&] { m_index.reset(root()); });
}

void Document::shedWaste() noexcept {
    if (m_journal.isOpen() || !m_tree.shedWaste()) return;
    m_index.reset(root());
    m_parsedComments.reset();
}

}  // namespace XMLConfig::detail
