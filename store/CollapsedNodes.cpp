#include "store/Document.h"
#include "store/DocumentWriter.h"

namespace XMLConfig::detail {

namespace {

using xercesc::DOMNode;

// Steps through children, taking neighbouring pieces of text as one and leaving out text that is indentation only.
class Children {
public:
    explicit Children(const DOMNode& parent) : m_next(parent.getFirstChild()) {}

    /// False at the end. `node` is null for text, which is then in `text`.
    bool step() {
        node = nullptr;
        text.clear();
        while (m_next != nullptr && m_next->getNodeType() == DOMNode::TEXT_NODE) {
            text += view(m_next->getNodeValue());
            m_next = m_next->getNextSibling();
        }
        if (!isIndentation(text)) return true;
        text.clear();
        if (m_next == nullptr) return false;
        node = m_next;
        m_next = m_next->getNextSibling();
        return true;
    }

    const DOMNode* node = nullptr;
    std::u16string text;

private:
    const DOMNode* m_next;
};

bool sameAttributes(const DOMNode& left, const DOMNode& right) {
    const xercesc::DOMNamedNodeMap* const attributes = left.getAttributes();
    const XMLSize_t count = attributes == nullptr ? 0 : attributes->getLength();
    if (count != (right.getAttributes() == nullptr ? 0 : right.getAttributes()->getLength())) return false;
    for (XMLSize_t i = 0; i < count; ++i) {
        const DOMNode* const other = right.getAttributes()->getNamedItem(attributes->item(i)->getNodeName());
        if (other == nullptr || view(other->getNodeValue()) != view(attributes->item(i)->getNodeValue())) return false;
    }
    return true;
}

bool compareCollapsedNodes(const DOMNode& left, const DOMNode& right) {
    if (left.getNodeType() != right.getNodeType() || view(left.getNodeName()) != view(right.getNodeName()) ||
        view(left.getNodeValue()) != view(right.getNodeValue()) || !sameAttributes(left, right)) {
        return false;
    }
    Children mine(left);
    Children theirs(right);
    for (;;) {
        const bool isMine = mine.step();
        if (isMine != theirs.step()) return false;
        if (!isMine) return true;
        if (mine.text != theirs.text || (mine.node == nullptr) != (theirs.node == nullptr)) return false;
        if (mine.node != nullptr && !compareCollapsedNodes(*mine.node, *theirs.node)) return false;
    }
}

}  // namespace

bool holdsCollapsed(const xercesc::DOMElement& element, const xercesc::DOMElement& content) {
    Children held(element);
    const bool isHeld = held.step() && held.node != nullptr && compareCollapsedNodes(*held.node, content);
    return isHeld && !held.step();
}

}  // namespace XMLConfig::detail
