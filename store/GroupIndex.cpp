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

xercesc::DOMElement* GroupIndex::child(xercesc::DOMElement& parent, std::u16string_view name) {
    if (!m_groups.empty()) {
        const auto known = m_groups.find(&parent);
        if (known != m_groups.end()) {
            const auto found = known->second.find(name);
            return found == known->second.end() ? nullptr : found->second;
        }
    }
    int walked = 0;
    for (const auto* child = firstElementIn(parent); child != nullptr; child = elementAfter(*child)) {
        if (isNamed(*child, name)) return const_cast<xercesc::DOMElement*>(child);
        if (++walked == longestWalk) {
            const ByName& listed = list(parent);
            const auto found = listed.find(name);
            return found == listed.end() ? nullptr : found->second;
        }
    }
    return nullptr;
}

void GroupIndex::added(const xercesc::DOMElement& parent, xercesc::DOMElement& child) {
    const auto known = m_groups.find(&parent);
    if (known != m_groups.end()) known->second.emplace(view(child.getNodeName()), &child);
}

const GroupIndex::ByName& GroupIndex::list(const xercesc::DOMElement& parent) {
    ByName byName;
    for (auto* child = parent.getFirstElementChild(); child != nullptr; child = child->getNextElementSibling())
        byName.emplace(view(child->getNodeName()), child);
    return m_groups.emplace(&parent, std::move(byName)).first->second;
}

}  // namespace XMLConfig::detail
