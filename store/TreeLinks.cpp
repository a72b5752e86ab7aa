#include "store/TreeLinks.h"

#include <xercesc/dom/impl/DOMCasts.hpp>
#include <xercesc/dom/impl/DOMElementImpl.hpp>
#include <xercesc/dom/impl/DOMTextImpl.hpp>
#include <xercesc/util/XercesVersion.hpp>

namespace XMLConfig::detail {

using xercesc::DOMElement;
using xercesc::DOMNode;

#if XERCES_VERSION_MAJOR == 3 && XERCES_VERSION_MINOR == 2

namespace {

using xercesc::DOMElementImpl;
using xercesc::DOMTextImpl;

struct Links {
    xercesc::DOMNodeImpl& node;
    xercesc::DOMChildNode& child;
};

Links linksOf(DOMNode& node) {
    if (node.getNodeType() == DOMNode::ELEMENT_NODE) {
        auto& element = static_cast<DOMElementImpl&>(node);
        return {element.fNode, element.fChild};
    }
    if (node.getNodeType() == DOMNode::TEXT_NODE) {
        auto& text = static_cast<DOMTextImpl&>(node);
        return {text.fNode, text.fChild};
    }
    return {*xercesc::castToNodeImpl(&node), *xercesc::castToChildImpl(&node)};
}

}  // namespace

// A first child's previous sibling is the last one.
void append(DOMElement& parent, DOMNode& child) {
    xercesc::DOMParentNode& children = static_cast<DOMElementImpl&>(parent).fParent;
    const Links links = linksOf(child);
    links.node.fOwnerNode = &parent;
    links.node.isOwned(true);
    if (children.fFirstChild == nullptr) {
        children.fFirstChild = &child;
        links.node.isFirstChild(true);
        links.child.previousSibling = &child;
    } else {
        const Links first = linksOf(*children.fFirstChild);
        linksOf(*first.child.previousSibling).child.nextSibling = &child;
        links.child.previousSibling = first.child.previousSibling;
        first.child.previousSibling = &child;
    }
    children.changed();
}

void unlink(DOMElement& parent, DOMNode& child) {
    const Links links = linksOf(child);
    if (links.node.fOwnerNode != &parent) throw xercesc::DOMException(xercesc::DOMException::NOT_FOUND_ERR);
    xercesc::DOMParentNode& children = static_cast<DOMElementImpl&>(parent).fParent;
    DOMNode* const next = links.child.nextSibling;
    DOMNode* const previous = links.child.previousSibling;
    if (children.fFirstChild == &child) {
        children.fFirstChild = next;
        if (next != nullptr) linksOf(*next).node.isFirstChild(true);
    } else {
        linksOf(*previous).child.nextSibling = next;
    }
    DOMNode* const nextOrFirst = next != nullptr ? next : children.fFirstChild;
    if (nextOrFirst != nullptr) linksOf(*nextOrFirst).child.previousSibling = previous;

    links.node.isFirstChild(false);
    links.node.fOwnerNode = children.fOwnerDocument;
    links.node.isOwned(false);
    links.child.nextSibling = nullptr;
    links.child.previousSibling = nullptr;
    children.changed();
}

#else  // links that nobody has compared yet

void append(DOMElement& parent, DOMNode& child) { parent.appendChild(&child); }
void unlink(DOMElement& parent, DOMNode& child) { parent.removeChild(&child); }

#endif

}  // namespace XMLConfig::detail
