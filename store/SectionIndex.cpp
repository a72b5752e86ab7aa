#include "store/SectionIndex.h"

#include <algorithm>

#include "platform/Text.h"

namespace XMLConfig::detail {

namespace {

void list(Section& section) {
    auto& sameID = section.tag->byID[section.id];
    const auto earlier = [](const Section* left, const Section* right) { return left->order < right->order; };
    sameID.insert(std::upper_bound(sameID.begin(), sameID.end(), &section, earlier), &section);
}

void unlist(const Section& section) {
    const auto found = section.tag->byID.find(section.id);
    auto& sameID = found->second;
    sameID.erase(std::find(sameID.begin(), sameID.end(), &section));
    if (sameID.empty()) section.tag->byID.erase(found);
}

void add(SectionTag& tag, std::uint64_t order, xercesc::DOMElement* element) {
    Section& section = tag.sections.emplace_hint(tag.sections.end(), order, Section())->second;
    section.element = element;
    section.tag = &tag;
    section.order = order;
    section.id = idOf(*element);
    list(section);
}

std::size_t numberOf(SectionTag& tag, const std::wstring& key) {
    return tag.keyNumbers.emplace(key, tag.keyNumbers.size()).first->second;
}

KnownItem& remember(Section& section, std::size_t number, xercesc::DOMElement* element) {
    return section.items.add(number, element, section.tag->keyNumbers.size());
}

void rememberChild(Section& section, xercesc::DOMElement* child) {
    const XMLCh* const name = child->getNodeName();
    auto& numbers = section.tag->nameNumbers;
    auto found = numbers.find(name);
    if (found == numbers.end()) found = numbers.emplace(name, numberOf(*section.tag, fromUtf16(view(name)))).first;
    remember(section, found->second, child);
}

void scan(Section& section) {
    section.items.isScanned = true;
    for (auto* child = section.element->getFirstElementChild(); child != nullptr; child = child->getNextElementSibling()) {
        rememberChild(section, child);
    }
}

KnownItem* known(Section& section, const std::wstring& key) {
    const auto found = section.tag->keyNumbers.find(key);
    return found == section.tag->keyNumbers.end() ? nullptr : section.items.find(found->second);
}

}  // namespace

std::wstring idOf(const xercesc::DOMElement& element) { return fromUtf16(view(element.getAttribute(xmlText(u"ID")))); }

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
    if (m_lastSection != nullptr && id == m_lastID && tag == m_lastTag) return m_lastSection;
    SectionTag* const named = tagNamed(tag);
    if (named == nullptr || named->sections.empty()) return nullptr;
    const auto sameID = id.empty() ? named->byID.end() : named->byID.find(id);
    if (!id.empty() && sameID == named->byID.end()) return nullptr;
    m_lastTag = tag;
    m_lastID = id;
    m_lastSection = id.empty() ? &named->sections.begin()->second : sameID->second.front();
    return m_lastSection;
}

Section& SectionIndex::sectionOf(xercesc::DOMElement* element) {
    SectionTag& tag = *tagNamed(fromUtf16(view(element->getNodeName())));
    const auto& sameID = tag.byID.at(idOf(*element));
    return **std::find_if(sameID.begin(), sameID.end(), [&](const Section* section) { return section->element == element; });
}

KnownItem* SectionIndex::item(Section& section, const std::wstring& key) {
    if (!section.items.isScanned) scan(section);
    if (KnownItem* const found = known(section, key)) return found;
    const std::size_t end = key.find(L'|');
    if (end == std::wstring::npos) return nullptr;
    const KnownItem* const first = known(section, key.substr(0, end));
    xercesc::DOMElement* const found =
        first == nullptr ? nullptr : walkKey(first->element, toUtf16(std::wstring_view(key).substr(end + 1)));
    return found == nullptr ? nullptr : &remember(section, numberOf(*section.tag, key), found);
}

void SectionIndex::itemAppended(Section& section, xercesc::DOMElement* child) {
    if (section.items.isScanned) rememberChild(section, child);
}

void SectionIndex::itemRemoved(Section& section, const xercesc::DOMElement* child) {
    if (!section.items.isScanned) return;
    const auto number = section.tag->nameNumbers.find(child->getNodeName());
    const bool isAlone = !section.items.hasNamesakes && child->getFirstElementChild() == nullptr;
    if (!isAlone || number == section.tag->nameNumbers.end()) return section.items.clear();
    section.items.remove(number->second);
}

void SectionIndex::appended(xercesc::DOMElement* element) {
    if (m_isBuilt) add(m_tags[fromUtf16(view(element->getNodeName()))], m_nextOrder++, element);
}

void SectionIndex::removing(xercesc::DOMElement* element) {
    m_lastSection = nullptr;
    const Section& section = sectionOf(element);
    unlist(section);
    section.tag->sections.erase(section.order);
}

void SectionIndex::renamed(xercesc::DOMElement* element, const std::wstring& newID) {
    m_lastSection = nullptr;
    Section& section = sectionOf(element);
    unlist(section);
    section.id = newID;
    list(section);
}

void SectionIndex::swapped(xercesc::DOMElement* one, xercesc::DOMElement* other) {
    m_lastSection = nullptr;
    Section& first = sectionOf(one);
    Section& second = sectionOf(other);
    auto& sections = first.tag->sections;
    unlist(first);
    unlist(second);
    auto firstNode = sections.extract(first.order);
    auto secondNode = sections.extract(second.order);
    std::swap(firstNode.key(), secondNode.key());
    std::swap(first.order, second.order);
    sections.insert(std::move(firstNode));
    sections.insert(std::move(secondNode));
    list(first);
    list(second);
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
        add(*lastTag, m_nextOrder++, child);
    }
}

SectionTag* SectionIndex::tagNamed(const std::wstring& name) {
    if (m_root == nullptr) return nullptr;
    if (!m_isBuilt) build();
    const auto found = m_tags.find(name);
    return found == m_tags.end() ? nullptr : &found->second;
}

}  // namespace XMLConfig::detail
