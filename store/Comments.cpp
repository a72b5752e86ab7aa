#include "store/Comments.h"

#include "platform/Text.h"
#include "store/ConfigInfo.h"
#include "store/CorvaneException.h"
#include "store/Document.h"
#include "store/ElementAccess.h"
#include "store/Legality.h"
#include "store/TreeLinks.h"

namespace XMLConfig {
namespace {

constexpr const wchar_t* addPrefix = L"Error addComment: ";
constexpr const wchar_t* removePrefix = L"Error removeComment: ";

xercesc::DOMElement& placeOf(const wchar_t* prefix, const detail::Document& document, const ElementView& around) {
    xercesc::DOMElement* const place = ElementAccess::element(around);
    if (place != nullptr && (place == document.root() || detail::parentOf(*place) == document.root())) return *place;
    throw CorvaneException(prefix + std::wstring(L"the element is neither the root nor a section"));
}

/// Null where neither follows.
const xercesc::DOMNode* elementOrCommentAfter(const xercesc::DOMNode& node) {
    const xercesc::DOMNode* next = node.getNextSibling();
    while (next != nullptr && next->getNodeType() != xercesc::DOMNode::ELEMENT_NODE &&
           next->getNodeType() != xercesc::DOMNode::COMMENT_NODE)
        next = next->getNextSibling();
    return next;
}

void listComments(std::vector<CommentView>& comments, const xercesc::DOMElement& around) {
    std::size_t waiting = comments.size();  // the first that waits for the element after it
    for (const auto* node = around.getFirstChild(); node != nullptr; node = node->getNextSibling()) {
        const auto type = node->getNodeType();
        if (type == xercesc::DOMNode::COMMENT_NODE) {
            comments.push_back({ElementAccess::view(&around), {}, detail::fromUtf16(detail::view(node->getNodeValue()))});
        } else if (type == xercesc::DOMNode::ELEMENT_NODE) {
            const auto& element = static_cast<const xercesc::DOMElement&>(*node);
            for (; waiting < comments.size(); ++waiting) comments[waiting].next = ElementAccess::view(&element);
            listComments(comments, element);
            waiting = comments.size();
        }
    }
}

}  // namespace

std::vector<CommentView> commentsOf(const ConfigInfo& document) {
    const auto& parsed = detail::Document::of(document).parsedComments();
    if (!parsed) return commentsIn(rootElement(document));
    std::vector<CommentView> comments(parsed->size());
    for (std::size_t i = comments.size(); i-- > 0;) {  // from the last on, since many can have one element after them
        const xercesc::DOMComment& comment = *(*parsed)[i];
        const xercesc::DOMNode* const next = elementOrCommentAfter(comment);
        const bool isComment = next != nullptr && next->getNodeType() == xercesc::DOMNode::COMMENT_NODE;
        comments[i] = {ElementAccess::view(static_cast<const xercesc::DOMElement*>(comment.getParentNode())),
                       isComment ? comments[i + 1].next : ElementAccess::view(static_cast<const xercesc::DOMElement*>(next)),
                       detail::fromUtf16(detail::view(comment.getData()))};
    }
    return comments;
}

std::vector<CommentView> commentsIn(const ElementView& around) {
    std::vector<CommentView> comments;
    if (around) listComments(comments, *ElementAccess::element(around));
    return comments;
}

void addComment(ConfigInfo& document, const std::vector<ElementView>& around, const std::wstring& text) {
    detail::reporting(addPrefix, [&] {
        detail::refuseComment(addPrefix, text);
        detail::Document& tree = detail::Document::of(document);
        std::vector<xercesc::DOMElement*> places;
        places.reserve(around.size());
        for (const ElementView& each : around) places.push_back(&placeOf(addPrefix, tree, each));
        if (places.empty()) return;
        tree.addComments(places, text);
        document.setDirty(true);
    });
}

std::size_t removeComment(ConfigInfo& document, const ElementView& around, const std::wstring& text) {
    return detail::reporting(removePrefix, [&] {
        detail::Document& tree = detail::Document::of(document);
        const std::size_t count = tree.removeComments(placeOf(removePrefix, tree, around), text);
        if (count > 0) document.setDirty(true);
        return count;
    });
}

}  // namespace XMLConfig
