#include "store/SectionIndex.h"

#include <utility>

#include "platform/Text.h"
#include "store/Attributes.h"
#include "store/TreeLinks.h"

namespace XMLConfig::detail {

namespace {

void rememberChild(Section& section, xercesc::DOMElement* child) {
    const std::size_t number = section.tag->numberOfName(child->getNodeName());
    section.items.add(number, child, section.tag->countNumbers());
}

void scan(Section& section) {
    if (section.items.isScanned) return;
    try {
        for (const auto* child = firstElementIn(*section.element); child != nullptr; child = elementAfter(*child))
            rememberChild(section, const_cast<xercesc::DOMElement*>(child));
        section.items.isScanned = true;
    } catch (...) {
        section.items.clear();
        throw;
    }
}

void forgetNested(Section& section, std::size_t number) {
    const std::vector<std::size_t>* const nested = section.tag->nestedIn(number);
    if (nested == nullptr) return;
    for (const std::size_t each : *nested) section.items.remove(each);
}

}  // namespace

xercesc::DOMElement* childNamed(const xercesc::DOMElement* element, std::u16string_view name) {
    xercesc::DOMNode* child = element->getFirstChild();
    for (; child != nullptr; child = child->getNextSibling()) {
        if (child->getNodeType() == xercesc::DOMNode::ELEMENT_NODE && view(child->getNodeName()) == name) break;
    }
    return static_cast<xercesc::DOMElement*>(child);
}

void SectionIndex::reset(xercesc::DOMElement* root) noexcept {
    m_root = root;
    m_isBuilt = false;
    m_nextOrder = 0;
    m_lastSection = nullptr;
    m_tags.clear();
    m_groups.clear();
}

void SectionIndex::changed(const TreeChange& change) {
    using Kind = TreeChange::Kind;
    switch (change.kind) {
        case Kind::SectionAdded:
            if (m_isBuilt) m_tags[fromUtf16(view(change.element->getNodeName()))].append(change.element, m_nextOrder++);
            return;
        case Kind::SectionRemoved:
            m_lastSection = nullptr;
            return change.section->tag->remove(*change.section);
        case Kind::SectionRenamed:
            return sectionRenamed(*change.section, *change.newID);
        case Kind::SectionsSwapped:
            m_lastSection = nullptr;
            return change.section->tag->swap(*change.section, *change.later);
        case Kind::ChildAdded:
            if (change.section->items.isScanned) rememberChild(*change.section, change.element);
            return;
        case Kind::ChildRemoved:
            return childRemoved(*change.section, *change.element);
        case Kind::InsideAdded:
            return insideAdded(*change.section, *change.element);
        case Kind::InsideReplaced:
            m_groups.replaced(*change.element);
            return forgetInside(*change.section, *change.element);
        case Kind::TextReplaced:
            return change.section->items.forgetText(*change.known);
        case Kind::HeadersSet:
            return reset(m_root);
        case Kind::CommentsChanged:
            return;
    }
}

Section* SectionIndex::find(const std::wstring& tag, const std::wstring& id) {
    if (m_lastSection != nullptr && tag == m_lastTag) {
        if (id == m_lastID) return m_lastSection;
        Section* const next = m_lastSection->next;  // sections are mostly read one after the other
        if (next != nullptr && next->isFirstOfID && !id.empty() && next->id == id) {
            m_lastID = id;
            return m_lastSection = next;
        }
    }
    const SectionTag* const named = tagNamed(tag);
    Section* const found = named == nullptr ? nullptr : id.empty() ? named->first() : named->find(id);
    if (found == nullptr) return nullptr;
    m_lastSection = nullptr;  // so that nothing is remembered where copying one of the texts fails
    m_lastTag = tag;
    m_lastID = id;
    return m_lastSection = found;
}

Section* SectionIndex::next(const Section& section, const std::wstring& id) {
    return id.empty() ? section.next : section.tag->nextOfID(section);
}

std::size_t SectionIndex::count(const std::wstring& tag) {
    const SectionTag* const named = tagNamed(tag);
    return named == nullptr ? 0 : named->count();
}

Section& SectionIndex::sectionOf(const xercesc::DOMElement* element) {
    return tagNamed(fromUtf16(view(element->getNodeName())))->of(element);
}

KnownItem* SectionIndex::item(Section& section, const std::wstring& key) {
    scan(section);
    SectionTag& tag = *section.tag;
    const SectionTag::Key* const known = tag.findKey(key);
    if (known == nullptr) return key.find(L'|') == std::wstring::npos ? nullptr : newNested(section, key);
    if (KnownItem* const found = section.items.find(known->number)) return found;
    const KnownItem* const first = known->rest.empty() ? nullptr : section.items.find(known->first);
    xercesc::DOMElement* const found = first == nullptr ? nullptr : walk(first->element, known->rest);
    return found == nullptr ? nullptr : &section.items.add(known->number, found, tag.countNumbers());
}

/// A key of several parts that nobody asked for yet; it is numbered where it leads to an item.
KnownItem* SectionIndex::newNested(Section& section, const std::wstring& key) {
    SectionTag& tag = *section.tag;
    const std::size_t end = key.find(L'|');
    const SectionTag::Key* const known = tag.findKey(key.substr(0, end));
    const KnownItem* const first = known == nullptr ? nullptr : section.items.find(known->number);
    if (first == nullptr) return nullptr;
    std::u16string rest = toUtf16(std::wstring_view(key).substr(end + 1));
    xercesc::DOMElement* const found = walk(first->element, rest);
    if (found == nullptr) return nullptr;
    const std::size_t number = tag.numberNested(key, known->number, std::move(rest));
    return &section.items.add(number, found, tag.countNumbers());
}

xercesc::DOMElement* SectionIndex::subSection(Section& section, const std::wstring& tag, const std::wstring& id) {
    scan(section);
    if (tag.find(L'|') != std::wstring::npos) return nullptr;  // a key of several parts
    const SectionTag::Key* const known = section.tag->findKey(tag);
    const KnownItem* const first = known == nullptr ? nullptr : section.items.find(known->number);
    if (first == nullptr || id.empty()) return first == nullptr ? nullptr : first->element;
    const std::u16string wanted = toUtf16(id);
    if (idTextOf(*first->element) == wanted) return first->element;
    Namesakes* const others = section.items.after(known->number);
    return others == nullptr ? nullptr : others->withID(wanted, *section.element);
}

xercesc::DOMElement* SectionIndex::walk(xercesc::DOMElement* element, std::u16string_view key) {
    for (;;) {
        const std::size_t end = key.find(u'|');
        element = m_groups.child(*element, key.substr(0, end));
        if (element == nullptr || end == std::u16string_view::npos) return element;
        key.remove_prefix(end + 1);
    }
}

void SectionIndex::sectionRenamed(Section& section, const std::wstring& newID) {
    section.tag->rename(section, newID);
    const bool isLast = m_lastSection == &section && section.isFirstOfID && !newID.empty();
    m_lastSection = nullptr;
    if (!isLast) return;
    m_lastID = newID;
    m_lastSection = &section;
}

void SectionIndex::insideAdded(Section& section, xercesc::DOMElement& added) {
    auto& parent = static_cast<xercesc::DOMElement&>(*parentOf(added));
    m_groups.added(parent, added);
    // Only items that hold nothing but text have their text kept; the parent was one until now, so forget it.
    if (parent.getFirstChild()->getNextSibling() == &added) forgetInside(section, added);
}

void SectionIndex::childRemoved(Section& section, const xercesc::DOMElement& child) {
    if (!section.items.isScanned) return;
    const std::size_t number = section.tag->numberOfName(child.getNodeName());
    const KnownItem* const known = section.items.find(number);
    if (known == nullptr || known->element != &child) return;
    forgetNested(section, number);
    section.items.removeFirst(number, *section.element);
}

// What is known inside of the section's child that holds the element, or is it.
void SectionIndex::forgetInside(Section& section, const xercesc::DOMElement& element) {
    if (!section.items.isScanned) return;
    if (&element == section.element) return section.items.clear();
    const xercesc::DOMElement* child = &element;
    for (const auto* parent = parentOf(*child); parent != nullptr && parent != section.element; parent = parentOf(*child))
        child = static_cast<const xercesc::DOMElement*>(parent);
    const std::size_t number = section.tag->numberOfName(child->getNodeName());
    KnownItem* const known = section.items.find(number);
    if (known == nullptr || known->element != child) return;
    section.items.forgetText(*known);
    forgetNested(section, number);
}

void SectionIndex::build() {
    std::u16string_view lastName;
    SectionTag* lastTag = nullptr;
    for (xercesc::DOMElement* child = m_root->getFirstElementChild(); child != nullptr;
         child = child->getNextElementSibling()) {
        const std::u16string_view name = view(child->getNodeName());
        if (lastTag == nullptr || name != lastName) lastTag = &m_tags[fromUtf16(name)];
        lastName = name;
        lastTag->append(child, m_nextOrder++);
    }
    m_isBuilt = true;
}

SectionTag* SectionIndex::tagNamed(const std::wstring& name) {
    if (m_root == nullptr) return nullptr;
    if (!m_isBuilt) {
        try {
            build();
        } catch (...) {
            reset(m_root);
            throw;
        }
    }
    const auto found = m_tags.find(name);
    return found == m_tags.end() ? nullptr : &found->second;
}

}  // namespace XMLConfig::detail
