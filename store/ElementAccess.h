#pragma once

#include "store/ElementView.h"
#include "store/XmlLibrary.h"

namespace XMLConfig {

/// From views to the tree's elements and back, for the store alone.
struct ElementAccess {
    static ElementView view(const xercesc::DOMElement* element) {
        ElementView view;
        view.m_element = element;
        return view;
    }
    static xercesc::DOMElement* element(const ElementView& view) {
        return static_cast<xercesc::DOMElement*>(const_cast<void*>(view.m_element));
    }
};

}  // namespace XMLConfig
