#include "store/Document.h"
#include "store/DocumentWriter.h"
#include "store/TreeLinks.h"

namespace XMLConfig::detail {

namespace {

using xercesc::DOMElement;
using xercesc::DOMNode;

/// Takes every text away that is indentation only.
void collapse(DOMElement& element) {
    for (DOMNode* node = element.getFirstChild(); node != nullptr;) {
        DOMNode* const next = node->getNextSibling();
        const DOMNode::NodeType type = node->getNodeType();
        if (type == DOMNode::ELEMENT_NODE) collapse(static_cast<DOMElement&>(*node));
        if (type == DOMNode::TEXT_NODE && isIndentation(view(node->getNodeValue()))) unlink(element, *node);
        node = next;
    }
}

LooseElement collapsedCopy(const DOMElement& element, Tree& tree) {
    LooseElement copy = tree.copy(element);
    collapse(*copy);
    return copy;
}

}  // namespace

bool holdsCollapsed(const DOMElement& element, const DOMElement& content) {
    Tree scratch;
    scratch.adopt(DocumentPointer(startXmlLibrary()->createDocument()));
    const LooseElement holder = collapsedCopy(element, scratch);
    const LooseElement wanted = collapsedCopy(content, scratch);
    const DOMNode* const held = holder->getFirstChild();
    return held != nullptr && held->getNextSibling() == nullptr && held->isEqualNode(wanted.get());
}

}  // namespace XMLConfig::detail
