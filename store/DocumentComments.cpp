#include <vector>

#include "platform/Text.h"
#include "store/Document.h"
#include "store/TreeLinks.h"

namespace XMLConfig::detail {

using xercesc::DOMElement;
using xercesc::DOMNode;

DOMElement* Document::commentable(const DOMElement& element) const {
    if (&element == root()) return root();
    return parentOf(element) == root() ? const_cast<DOMElement*>(&element) : nullptr;
}

void Document::addComments(const std::vector<DOMElement*>& places, const std::wstring& text) {
    const std::u16string units = toUtf16(text);
    std::vector<DOMNode*> made;
    made.reserve(places.size());
    for (std::size_t i = 0; i < places.size(); ++i) made.push_back(m_tree.makeComment(units));
    m_journal.makeRoom(places.size());
    for (std::size_t i = 0; i < places.size(); ++i) join(*places[i], *made[i]);
    changed([] {});  // comments are no part of the index
}

std::size_t Document::removeComments(DOMElement& place, const std::wstring& text) {
    const std::u16string units = toUtf16(text);
    std::vector<DOMNode*> found;
    for (DOMNode* node = place.getFirstChild(); node != nullptr; node = node->getNextSibling())
        if (node->getNodeType() == DOMNode::COMMENT_NODE && view(node->getNodeValue()) == units) found.push_back(node);
    m_journal.makeRoom(found.size());
    for (DOMNode* const comment : found) part(place, *comment);
    if (!found.empty()) changed([] {});  // comments are no part of the index
    return found.size();
}

}  // namespace XMLConfig::detail
