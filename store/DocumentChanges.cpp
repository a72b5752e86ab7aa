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

void Document::join(DOMNode& parent, DOMNode& child, DOMNode* next) noexcept {
    if (next == nullptr) append(parent, child);
    else parent.insertBefore(&child, next);
    m_journal.joined(parent, child);
}

void Document::part(DOMNode& parent, DOMNode& child) noexcept {
    m_journal.parting(parent, child);
    m_tree.remove(parent, child);
}

void Document::makeRoomToReplace(const DOMNode& parent) {
    if (m_journal.isOpen()) m_journal.makeRoom(parent.getChildNodes()->getLength() + 1);
}

void Document::replaceContent(DOMNode& parent, DOMNode* content) noexcept {
    while (DOMNode* const child = parent.getFirstChild()) part(parent, *child);
    if (content != nullptr) join(parent, *content);
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
        const Item found = canBeThere ? getItem({missing.place, missing.section}, std::wstring(part)) : Item();
        if (found.element != nullptr) missing.place = found.element;
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
    if (onlyText(*item.element) && !value.empty() && !m_journal.isOpen()) {
        Tree::setText(static_cast<xercesc::DOMText&>(*item.element->getFirstChild()), value);
    } else {
        makeRoomToReplace(*item.element);
        replaceContent(*item.element, value.empty() ? nullptr : m_tree.makeText(value));
    }
    changed([&] { m_index.contentReplaced(*item.section, *item.element); });
}

bool Document::setElement(const Item& item, LooseElement content) {
    const bool isDifferent = !holdsCollapsed(*item.element, *content);
    makeRoomToReplace(*item.element);
    replaceContent(*item.element, content.release());
    changed([&] { m_index.contentReplaced(*item.section, *item.element); });
    return isDifferent;
}

void Document::removeItem(Section& section, DOMElement& item) {
    if (parentOf(item) != section.element) throw xercesc::DOMException(xercesc::DOMException::NOT_FOUND_ERR);
    m_journal.makeRoom(1);
    part(*section.element, item);
    changed([&] { m_index.itemRemoved(section, item); });
}

void Document::remove(const Container& place) {
    DOMElement& parent = place.isSection() ? *root() : *place.section->element;
    m_journal.makeRoom(2);
    removeIndentationAfter(parent, *place.element);
    part(parent, *place.element);
    if (place.isSection()) changed([&] { m_index.sectionRemoved(*place.section); });
    else changed([&] { m_index.itemRemoved(*place.section, *place.element); });
}

void Document::renameSection(Section& section, const std::wstring& newID) {
    // Setting the attribute's value would leave the XML library without a value where memory runs out.
    xercesc::DOMAttr& attribute = *section.element->getAttributeNode(xmlText(u"ID"));
    makeRoomToReplace(attribute);
    replaceContent(attribute, newID.empty() ? nullptr : m_tree.makeText(newID));
    changed([&] { m_index.sectionRenamed(section, newID); });
}

void Document::swapSections(Section& earlier, Section& later) {
    m_journal.makeRoom(2);
    m_journal.parting(*root(), *later.element);
    join(*root(), *later.element, earlier.element);
    changed([&] { m_index.sectionsSwapped(earlier, later); });
}

void Document::setHeader(DOMElement& header, const std::wstring& text) {
    makeRoomToReplace(header);
    replaceContent(header, m_tree.makeText(text));
    changed([&] { m_index.reset(root()); });
}

void Document::insertHeader(const std::wstring& name, const std::wstring& text, DOMElement& next) {
    LooseElement header = m_tree.makeElement(*root(), name);
    append(*header, *m_tree.makeText(text));
    m_journal.makeRoom(1);
    join(*root(), *header.release(), &next);
    changed([&] { m_index.reset(root()); });
}

void Document::addComments(const std::vector<DOMElement*>& places, const std::wstring& text) {
    const std::u16string units = toUtf16(text);
    std::vector<DOMNode*> made;
    made.reserve(places.size());
    for (std::size_t i = 0; i < places.size(); ++i) made.push_back(m_tree.makeComment(units));
    m_journal.makeRoom(places.size());
    for (std::size_t i = 0; i < places.size(); ++i) join(*places[i], *made[i]);
    changed([] {});  // comments are no part of the index
}

std::size_t Document::removeComments(DOMElement& place, const std::wstring& text) {
    const std::u16string units = toUtf16(text);
    std::vector<DOMNode*> found;
    for (DOMNode* node = place.getFirstChild(); node != nullptr; node = node->getNextSibling())
        if (node->getNodeType() == DOMNode::COMMENT_NODE && view(node->getNodeValue()) == units) found.push_back(node);
    m_journal.makeRoom(found.size());
    for (DOMNode* const comment : found) part(place, *comment);
    if (!found.empty()) changed([] {});  // comments are no part of the index
    return found.size();
}

void Document::shedWaste() noexcept {
    if (m_journal.isOpen() || !m_tree.shedWaste()) return;
    m_index.reset(root());
    forgetParse();
}

}  // namespace XMLConfig::detail
