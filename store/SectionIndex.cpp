#include "store/SectionIndex.h"

#include "platform/Text.h"

namespace XMLConfig::detail {

namespace {

void rememberChild(Section& section, xercesc::DOMElement* child) {
    const std::size_t number = section.tag->numberOfName(child->getNodeName());
    section.items.add(number, child, section.tag->countNumbers());
}

void scan(Section& section) {
    section.items.isScanned = true;
    for (auto* child = section.element->getFirstElementChild(); child != nullptr; child = child->getNextElementSibling()) {
        rememberChild(section, child);
    }
}

KnownItem* known(Section& section, const std::wstring& key) {
    const std::size_t* const number = section.tag->findNumber(key);
    return number == nullptr ? nullptr : section.items.find(*number);
}

}  // namespace

xercesc::DOMElement* childNamed(const xercesc::DOMElement* element, std::u16string_view name) {
    xercesc::DOMNode* child = element->getFirstChild();
    for (; child != nullptr; child = child->getNextSibling()) {
        if (child->getNodeType() == xercesc::DOMNode::ELEMENT_NODE && view(child->getNodeName()) == name) break;
    }
    return static_cast<xercesc::DOMElement*>(child);
}

xercesc::DOMElement* walkKey(xercesc::DOMElement* element, std::u16string_view key) {
    for (;;) {
        const std::size_t end = key.find(u'|');
        element = childNamed(element, key.substr(0, end));
        if (element == nullptr || end == std::u16string_view::npos) return element;
        key.remove_prefix(end + 1);
    }
}

void SectionIndex::reset(xercesc::DOMElement* root) {
    m_root = root;
    m_isBuilt = false;
    m_lastSection = nullptr;
    m_tags.clear();
}

Section* SectionIndex::find(const std::wstring& tag, const std::wstring& id) {
    if (m_lastSection != nullptr && tag == m_lastTag) {
        if (id == m_lastID) return m_lastSection;
        Section* const next = m_lastSection->next;  // and sections are mostly read one after the other
        if (next != nullptr && next->isFirstOfID && !id.empty() && next->id == id) {
            m_lastID = id;
            return m_lastSection = next;
        }
    }
    const SectionTag* const named = tagNamed(tag);
    Section* const found = named == nullptr ? nullptr : id.empty() ? named->first() : named->find(id);
    if (found == nullptr) return nullptr;
    m_lastTag = tag;
    m_lastID = id;
    return m_lastSection = found;
}

std::size_t SectionIndex::count(const std::wstring& tag) {
    const SectionTag* const named = tagNamed(tag);
    return named == nullptr ? 0 : named->count();
}

Section& SectionIndex::sectionOf(const xercesc::DOMElement* element) {
    return tagNamed(fromUtf16(view(element->getNodeName())))->of(element);
}

KnownItem* SectionIndex::item(Section& section, const std::wstring& key) {
    if (!section.items.isScanned) scan(section);
    if (KnownItem* const found = known(section, key)) return found;
    const std::size_t end = key.find(L'|');
    if (end == std::wstring::npos) return nullptr;
    const KnownItem* const first = known(section, key.substr(0, end));
    xercesc::DOMElement* const found =
        first == nullptr ? nullptr : walkKey(first->element, toUtf16(std::wstring_view(key).substr(end + 1)));
    if (found == nullptr) return nullptr;
    const std::size_t number = section.tag->numberOfNested(key);
    return &section.items.add(number, found, section.tag->countNumbers());
}

void SectionIndex::itemAppended(Section& section, xercesc::DOMElement* child) {
    if (section.items.isScanned) rememberChild(section, child);
}

void SectionIndex::itemRemoved(Section& section, const xercesc::DOMElement* child) {
    if (!section.items.isScanned) return;
    if (section.items.hasNamesakes) return section.items.clear();
    const std::size_t number = section.tag->numberOfName(child->getNodeName());
    section.items.remove(number);
    if (child->getFirstElementChild() == nullptr) return;
    for (const std::size_t nested : section.tag->nestedIn(number)) section.items.remove(nested);
}

void SectionIndex::appended(xercesc::DOMElement* element) {
    if (m_isBuilt) m_tags[fromUtf16(view(element->getNodeName()))].append(element, m_nextOrder++);
}

void SectionIndex::removing(Section& section) {
    m_lastSection = nullptr;
    section.tag->remove(section);
}

void SectionIndex::renamed(Section& section, const std::wstring& newID) {
    section.tag->rename(section, newID);
    if (m_lastSection == &section && section.isFirstOfID && !newID.empty()) m_lastID = newID;
    else m_lastSection = nullptr;
}

void SectionIndex::swapped(Section& earlier, Section& later) {
    m_lastSection = nullptr;
    earlier.tag->swap(earlier, later);
}

void SectionIndex::build() {
    m_isBuilt = true;
    m_nextOrder = 0;
    std::u16string_view lastName;
    SectionTag* lastTag = nullptr;
    for (xercesc::DOMElement* child = m_root->getFirstElementChild(); child != nullptr;
         child = child->getNextElementSibling()) {
        const std::u16string_view name = view(child->getNodeName());
        if (lastTag == nullptr || name != lastName) lastTag = &m_tags[fromUtf16(name)];
        lastName = name;
        lastTag->append(child, m_nextOrder++);
    }
}

SectionTag* SectionIndex::tagNamed(const std::wstring& name) {
    if (m_root == nullptr) return nullptr;
    if (!m_isBuilt) build();
    const auto found = m_tags.find(name);
    return found == m_tags.end() ? nullptr : &found->second;
}

}  // namespace XMLConfig::detail
