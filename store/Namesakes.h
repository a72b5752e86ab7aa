#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include "store/XmlLibrary.h"

namespace XMLConfig::detail {

/// Elements in document order, of which those that have left their parent are passed over. So whoever removes one need not
/// look for it here.
class ElementQueue {
public:
    void add(xercesc::DOMElement* element) { m_elements.push_back(element); }
    /// The first that still is in `parent`; null where there is none.
    xercesc::DOMElement* first(const xercesc::DOMElement& parent);
    /// Takes the first that still is in `parent` out of the queue; null where there is none.
    xercesc::DOMElement* takeFirst(const xercesc::DOMElement& parent);
    [[nodiscard]] auto begin() const { return m_elements.begin() + static_cast<std::ptrdiff_t>(m_passed); }
    [[nodiscard]] auto end() const { return m_elements.end(); }

private:
    std::vector<xercesc::DOMElement*> m_elements;
    std::size_t m_passed = 0;
};

/// The second and later elements of one name in a section.
class Namesakes {
public:
    void add(xercesc::DOMElement* element);
    xercesc::DOMElement* takeFirst(const xercesc::DOMElement& parent) { return m_all.takeFirst(parent); }
    /// The first of that "ID"; null where there is none.
    xercesc::DOMElement* withID(const std::u16string& id, const xercesc::DOMElement& parent);

private:
    void listByID();

    ElementQueue m_all;
    bool m_isListedByID = false;  // who never asks pays nothing
    std::unordered_map<std::u16string, ElementQueue> m_byID;
};

}  // namespace XMLConfig::detail
