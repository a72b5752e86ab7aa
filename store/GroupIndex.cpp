#include "store/GroupIndex.h"

#include "store/TreeLinks.h"

namespace XMLConfig::detail {

namespace {

/// Most names differ at once, so that nobody needs to know how long the element's is.
bool isNamed(const xercesc::DOMElement& element, std::u16string_view name) {
    const XMLCh* own = element.getNodeName();
    for (const char16_t unit : name)
        if (unit == 0 || *own++ != unit) return false;
    return *own == 0;
}

constexpr int longestWalk = 32;  // how many children are walked through before they are worth a list

}  // namespace

xercesc::DOMElement* GroupIndex::child(const xercesc::DOMElement& parent, std::u16string_view name) {
    int walked = 0;
    for (auto* child = firstElementIn(parent); child != nullptr; child = elementAfter(*child)) {
        if (isNamed(*child, name)) return child;
        if (++walked == longestWalk) return listedChild(parent, name);
    }
    return nullptr;
}

xercesc::DOMElement* GroupIndex::listedChild(const xercesc::DOMElement& parent, std::u16string_view name) {
    auto known = m_groups.find(&parent);
    if (known == m_groups.end()) {
        ByName byName;
        for (auto* child = firstElementIn(parent); child != nullptr; child = elementAfter(*child))
            byName.emplace(view(child->getNodeName()), child);
        known = m_groups.emplace(&parent, std::move(byName)).first;
    }
    const auto found = known->second.find(name);
    return found == known->second.end() ? nullptr : found->second;
}

void GroupIndex::added(const xercesc::DOMElement& parent, xercesc::DOMElement& child) {
    const auto known = m_groups.find(&parent);
    if (known != m_groups.end()) known->second.emplace(view(child.getNodeName()), &child);
}

}  // namespace XMLConfig::detail
