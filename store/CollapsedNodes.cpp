#include "store/Document.h"
#include "store/DocumentWriter.h"

namespace XMLConfig::detail {

namespace {

using xercesc::DOMElement;
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

bool areEqualButForContents(const DOMNode& left, const DOMNode& right) {
    if (left.getNodeType() != right.getNodeType() || view(left.getNodeName()) != view(right.getNodeName())) return false;
    if (left.getNodeType() != DOMNode::ELEMENT_NODE) return view(left.getNodeValue()) == view(right.getNodeValue());
    return haveEqualAttributes(static_cast<const DOMElement&>(left), static_cast<const DOMElement&>(right));
}

bool areEqualCollapsed(const DOMNode& left, const DOMNode& right) {
    if (!areEqualButForContents(left, right)) return false;
    Children mine(left);
    Children theirs(right);
    for (;;) {
        const bool isMine = mine.step();
        if (isMine != theirs.step()) return false;
        if (!isMine) return true;
        if (mine.text != theirs.text || (mine.node == nullptr) != (theirs.node == nullptr)) return false;
        if (mine.node != nullptr && !areEqualCollapsed(*mine.node, *theirs.node)) return false;
    }
}

}  // namespace

bool holdsCollapsed(const xercesc::DOMElement& element, const xercesc::DOMElement& content) {
    Children held(element);
    const bool isHeld = held.step() && held.node != nullptr && areEqualCollapsed(*held.node, content);
    return isHeld && !held.step();
}

}  // namespace XMLConfig::detail
