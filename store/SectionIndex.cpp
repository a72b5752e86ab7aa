#include "store/SectionIndex.h"

#include <utility>

#include "platform/Text.h"
#include "store/TreeLinks.h"

namespace XMLConfig::detail {

void SectionIndex::reset(xercesc::DOMElement* root) noexcept {
    m_root = root;
    m_isBuilt = false;
    m_last = nullptr;
    m_tags.clear();
    m_groups.clear();
}

void SectionIndex::build() {
    m_tags.clear();  // those that were begun, for want of memory
    SectionTag* tag = nullptr;
    std::u16string_view lastName;
    for (auto* child = firstElementIn(*m_root); child != nullptr; child = elementAfter(*child)) {
        const std::u16string_view name = view(child->getNodeName());
        if (tag == nullptr || name != lastName) tag = &tagNamed(name);
        lastName = name;
        tag->append(*child);
    }
    m_isBuilt = true;
}

SectionTag& SectionIndex::tagNamed(std::u16string_view name) {
    const std::wstring wide = fromUtf16(name);
    return m_tags.try_emplace(wide, wide).first->second;
}

SectionTag* SectionIndex::findTag(const std::wstring& name) {
    if (!m_isBuilt && m_root != nullptr) build();
    const auto found = m_tags.find(name);
    return found == m_tags.end() ? nullptr : &found->second;
}

std::size_t SectionIndex::count(const std::wstring& tag) {
    const SectionTag* const named = findTag(tag);
    return named == nullptr ? 0 : named->count();
}

Section* SectionIndex::find(const std::wstring& tag, const std::wstring& id) {
    if (m_last != nullptr && m_last->tag->name == tag) {
        if (m_last->id == id) return m_last;
        Section* const next = m_last->next;  // sections are mostly read one after the other
        if (next != nullptr && next->id == id && m_last->tag->hasUniqueIDs()) return m_last = next;
    }
    const SectionTag* const named = findTag(tag);
    Section* const found = named == nullptr ? nullptr : named->find(id);
    return found == nullptr ? nullptr : m_last = found;
}

Section* SectionIndex::next(const Section& section, const std::wstring& id) {
    return id.empty() ? section.next : section.tag->nextOfID(section);
}

Item SectionIndex::item(Section& section, const std::wstring& key) {
    section.scan();
    SectionTag& tag = *section.tag;
    const SectionTag::Key* known = tag.findKey(key);
    if (known == nullptr) return key.find(L'|') == std::wstring::npos ? Item() : newNested(section, key);
    const Item read = section.itemRead(known->number);
    if (read.element != nullptr) return read;
    const bool isNested = known->first != nullptr;
    return {isNested ? walk(section.child(known->first->number), known->rest) : section.child(known->number), &section,
            known->number};
}

/// A key of several parts that nobody asked for yet; it is numbered where it leads to an item.
Item SectionIndex::newNested(Section& section, const std::wstring& key) {
    const std::size_t end = key.find(L'|');
    const SectionTag::Key* const first = section.tag->findKey(key.substr(0, end));
    if (first == nullptr) return {};
    std::u16string rest = toUtf16(std::wstring_view(key).substr(end + 1));
    xercesc::DOMElement* const found = walk(section.child(first->number), rest);
    if (found == nullptr) return {};
    return {found, &section, section.tag->numberNested(key, *first, std::move(rest)).number};
}

xercesc::DOMElement* SectionIndex::subSection(Section& section, const std::wstring& tag, const std::wstring& id) {
    section.scan();
    const SectionTag::Key* const known = section.tag->findKey(tag);
    const bool isName = known != nullptr && known->first == nullptr;
    return isName ? section.child(known->number, toUtf16(id)) : nullptr;
}

xercesc::DOMElement* SectionIndex::walk(xercesc::DOMElement* element, std::u16string_view key) {
    while (element != nullptr) {
        const std::size_t end = key.find(u'|');
        element = m_groups.child(*element, key.substr(0, end));
        if (end == std::u16string_view::npos) break;
        key.remove_prefix(end + 1);
    }
    return element;
}

void SectionIndex::sectionAdded(xercesc::DOMElement& element) {
    if (m_isBuilt) tagNamed(view(element.getNodeName())).append(element);
}

void SectionIndex::sectionRemoved(Section& section) {
    m_last = nullptr;
    section.tag->remove(section);
}

void SectionIndex::sectionRenamed(Section& section, const std::wstring& newID) {
    m_last = nullptr;
    section.tag->rename(section, newID);
}

void SectionIndex::sectionsSwapped(Section& earlier, Section& later) {
    m_last = nullptr;
    earlier.tag->swap(earlier, later);
}

void SectionIndex::itemAdded(Section& section, xercesc::DOMElement& added) {
    const auto& parent = static_cast<xercesc::DOMElement&>(*parentOf(added));
    if (&parent == section.element) return section.added(added);
    m_groups.added(parent, added);
    section.changedInside();
}

void SectionIndex::itemRemoved(Section& section, const xercesc::DOMElement& removed) { section.removed(removed); }

void SectionIndex::contentReplaced(Section& section, const xercesc::DOMElement& element) {
    m_groups.replaced(element);
    if (&element == section.element) section.replaced();
    else section.changedInside();
}

}  // namespace XMLConfig::detail
