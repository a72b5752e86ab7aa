#include "store/Namesakes.h"

#include "store/Attributes.h"
#include "store/TreeLinks.h"

namespace XMLConfig::detail {

xercesc::DOMElement* ElementQueue::first(const xercesc::DOMElement& parent) {
    while (m_passed < m_elements.size() && parentOf(*m_elements[m_passed]) != &parent) ++m_passed;
    return m_passed == m_elements.size() ? nullptr : m_elements[m_passed];
}

xercesc::DOMElement* ElementQueue::takeFirst(const xercesc::DOMElement& parent) {
    xercesc::DOMElement* const taken = first(parent);
    if (taken != nullptr) ++m_passed;
    return taken;
}

void Namesakes::add(xercesc::DOMElement* element) {
    m_all.add(element);
    if (m_isListedByID) m_byID[std::u16string(idTextOf(*element))].add(element);
}

xercesc::DOMElement* Namesakes::withID(const std::u16string& id, const xercesc::DOMElement& parent) {
    if (!m_isListedByID) listByID();
    const auto found = m_byID.find(id);
    return found == m_byID.end() ? nullptr : found->second.first(parent);
}

void Namesakes::listByID() {
    m_byID.clear();
    for (xercesc::DOMElement* const element : m_all) m_byID[std::u16string(idTextOf(*element))].add(element);
    m_isListedByID = true;
}

}  // namespace XMLConfig::detail
