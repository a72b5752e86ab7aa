#include "store/TreeLinks.h"

#include <algorithm>
#include <typeinfo>
#include <xercesc/dom/impl/DOMAttrNSImpl.hpp>
#include <xercesc/dom/impl/DOMCasts.hpp>
#include <xercesc/dom/impl/DOMDocumentImpl.hpp>
#include <xercesc/dom/impl/DOMElementNSImpl.hpp>

#include "platform/Prefetch.h"

namespace XMLConfig::detail {

using xercesc::DOMDocument;
using xercesc::DOMElement;
using xercesc::DOMNode;

namespace {

/// The node, if it is an element, else the first element after it. Entity references, whose children would have to be looked
/// at too, never stand in a tree of the store.
DOMElement* elementFrom(DOMNode* node) {
    while (node != nullptr && node->getNodeType() != DOMNode::ELEMENT_NODE) node = node->getNextSibling();
    return static_cast<DOMElement*>(node);
}

}  // namespace

DOMElement* firstElementIn(const DOMElement& element) { return elementFrom(element.getFirstChild()); }

// Walks along links wait for the memory of each node. Mostly nodes lie in it as in the document, and so the ones that are a
// few elements ahead can be fetched meanwhile.
DOMElement* elementAfter(const DOMElement& element) {
    prefetch(&element, 2048, 512);
    return elementFrom(element.getNextSibling());
}

NodeLook lookFromOutside(const DOMNode& node, const DOMNode::NodeType type) {
    const bool holdsText = type != DOMNode::ELEMENT_NODE && type != DOMNode::PROCESSING_INSTRUCTION_NODE;
    return {type, node.getNextSibling(), holdsText ? view(node.getNodeValue()) : std::u16string_view()};
}

#if defined(XMLCONFIG_LINKS_MAY_BE_KNOWN)

std::atomic<bool> areLinksKnown = false;

namespace {

using xercesc::DOMAttrImpl;
using xercesc::DOMDocumentImpl;
using xercesc::DOMElementImpl;
using xercesc::DOMTextImpl;

#define XMLCONFIG_TEXT_OF(name) #name
#define XMLCONFIG_VALUE_OF(name) XMLCONFIG_TEXT_OF(name)
constexpr std::string_view compiledVersion = XMLCONFIG_VALUE_OF(XERCES_CPP_NAMESPACE);  // "xercesc_3_2"

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

xercesc::DOMParentNode& childrenOf(DOMElement& element) { return static_cast<DOMElementImpl&>(element).fParent; }

xercesc::DOMParentNode& childrenOf(DOMNode& parent) {
    const bool isAttribute = parent.getNodeType() == DOMNode::ATTRIBUTE_NODE;
    return isAttribute ? static_cast<DOMAttrImpl&>(parent).fParent : childrenOf(static_cast<DOMElement&>(parent));
}

void join(xercesc::DOMParentNode& children, DOMNode& parent, DOMNode& child, const Links links) {
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
}

using Name = xercesc::DOMStringPoolEntry;

/// Reaches the protected members of a document.
struct NameTable : DOMDocumentImpl {
    static Name**& entries(DOMDocumentImpl& document) { return document.*(&NameTable::fNameTable); }
    static XMLSize_t& size(DOMDocumentImpl& document) { return document.*(&NameTable::fNameTableSize); }
};

template <typename Visitor>
void visitNames(DOMDocumentImpl& document, Visitor&& visit) {
    for (XMLSize_t i = 0; i < NameTable::size(document); ++i) {
        for (Name* name = NameTable::entries(document)[i]; name != nullptr;) {
            Name* const next = name->fNext;  // the visitor may hang it elsewhere
            visit(*name);
            name = next;
        }
    }
}

/// Gives the names as much room as they need by now to be found in the same time as a few.
void spreadNames(DOMDocumentImpl& document) {
    XMLSize_t count = 0;
    visitNames(document, [&count](const Name& /*name*/) { ++count; });
    if (count <= NameTable::size(document)) return;
    const XMLSize_t size = count * 2 + 1;
    auto** const entries = static_cast<Name**>(document.allocate(size * sizeof(Name*)));  // lives as long as the document
    std::fill_n(entries, size, nullptr);
    visitNames(document, [entries, size](Name& name) {
        Name*& first = entries[xercesc::XMLString::hash(name.fString, size)];
        name.fNext = first;
        first = &name;
    });
    NameTable::entries(document) = entries;
    NameTable::size(document) = size;
}

/// Whether a first child and the one after it are joined to `parent` as is written down here.
bool areJoined(DOMElement& parent, DOMNode& first, DOMNode& second) {
    const Links firstLinks = linksOf(first);
    const Links secondLinks = linksOf(second);
    return childrenOf(parent).fFirstChild == &first && firstLinks.child.nextSibling == &second &&
           firstLinks.child.previousSibling == &second && secondLinks.child.previousSibling == &first &&
           secondLinks.child.nextSibling == nullptr && firstLinks.node.fOwnerNode == &parent &&
           secondLinks.node.fOwnerNode == &parent && firstLinks.node.isOwned() && secondLinks.node.isOwned() &&
           firstLinks.node.isFirstChild() && !secondLinks.node.isFirstChild();
}

bool isAttributeJoined(DOMElement& element) {
    const xercesc::DOMNamedNodeMap* const attributes = element.getAttributes();
    auto& attribute = static_cast<DOMAttrImpl&>(*attributes->item(0));
    DOMNode* const value = attribute.getFirstChild();
    return static_cast<DOMElementImpl&>(element).fAttributes == attributes && attribute.fNode.fOwnerNode == &element &&
           attribute.fNode.isOwned() && attribute.fParent.fFirstChild == value &&
           linksOf(*value).child.previousSibling == value && linksOf(*value).node.fOwnerNode == &attribute;
}

bool holdsText(const DOMNode& node, std::u16string_view expected) {
    const xercesc::DOMBuffer& data = *static_cast<const DOMTextImpl&>(node).fCharacterData.fDataBuf;
    return data.getLen() == expected.size() && view(data.getRawBuffer()) == expected;
}

bool isNameKept(DOMDocument& document, const XMLCh* const name) {
    bool isKept = false;
    visitNames(static_cast<DOMDocumentImpl&>(document), [&](const Name& kept) { isKept = isKept || kept.fString == name; });
    return isKept;
}

/// What the library's functions make of a small tree, seen from the inside.
bool isTreeAsExpected(xercesc::DOMImplementation& implementation) {
    const DocumentPointer document(implementation.createDocument(nullptr, xmlText(u"a"), nullptr));
    DOMElement& root = *document->getDocumentElement();
    DOMNode& element = *root.appendChild(document->createElement(xmlText(u"b")));
    DOMNode& text = *root.appendChild(document->createTextNode(xmlText(u"c")));
    root.setAttribute(xmlText(u"d"), xmlText(u"e"));
    return areJoined(root, element, text) && isAttributeJoined(root) && isNameKept(*document, element.getNodeName()) &&
           holdsText(text, u"c");
}

}  // namespace

bool isKnownVersion(const std::string_view className) {
    const std::size_t found = className.find(compiledVersion);
    if (found == std::string_view::npos) return false;
    const std::string_view rest = className.substr(found + compiledVersion.size());
    return rest.substr(0, 1) != "_";  // "3_2_1" would be another one
}

bool examineLinks(xercesc::DOMImplementation& implementation, const std::string_view className) {
    areLinksKnown = isKnownVersion(className) && isTreeAsExpected(implementation);
    return areLinksKnown;
}

void append(DOMNode& parent, DOMNode& child) {
    if (!linksAreKnown()) {
        parent.appendChild(&child);
        return;
    }
    join(childrenOf(parent), parent, child, linksOf(child));
    childrenOf(parent).changed();
}

void unlink(DOMNode& parent, DOMNode& child) {
    if (!linksAreKnown()) {
        parent.removeChild(&child);
        return;
    }
    prefetch(&child, 512, 768);  // the nodes after it are mostly next to leave
    const Links links = linksOf(child);
    if (links.node.fOwnerNode != &parent) throw xercesc::DOMException(xercesc::DOMException::NOT_FOUND_ERR);
    xercesc::DOMParentNode& children = childrenOf(parent);
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

DOMNode* parentOf(const DOMElement& element) {
    if (!linksAreKnown()) return element.getParentNode();
    const xercesc::DOMNodeImpl& node = static_cast<const DOMElementImpl&>(element).fNode;
    return node.isOwned() ? node.fOwnerNode : nullptr;
}

void appendNew(DOMElement& parent, DOMElement& child) {
    auto& inside = static_cast<DOMElementImpl&>(child);
    join(childrenOf(parent), parent, child, {inside.fNode, inside.fChild});
}

void appendNew(DOMElement& parent, xercesc::DOMText& child) {
    auto& inside = static_cast<DOMTextImpl&>(child);
    join(childrenOf(parent), parent, child, {inside.fNode, inside.fChild});
}

// The library would look for an equal one by namespace first, through all there are.
void addAttribute(DOMElement& element, xercesc::DOMAttr& attribute, xercesc::DOMText& text) {
    xercesc::DOMAttrMapImpl& attributes = *static_cast<DOMElementImpl&>(element).fAttributes;
    attributes.reserve(1);
    attributes.setNamedItemFast(&attribute);
    join(static_cast<DOMAttrImpl&>(attribute).fParent, attribute, text, linksOf(text));
}

DOMElement& makePlainElement(DOMDocument& document, const XMLCh* const name) {
    return *static_cast<DOMDocumentImpl&>(document).createElementNoCheck(name);
}

DOMElement& copyAlone(const DOMElement& element, DOMDocument& document) {
    if (!linksAreKnown()) return static_cast<DOMElement&>(*document.importNode(&element, false));
    using Memory = xercesc::DOMMemoryManager;
    const XMLCh* const uri = element.getNamespaceURI();
    const XMLCh* const name = element.getNodeName();
    DOMElement& copy = uri == nullptr ? makePlainElement(document, name)
                                      : *new (&document, Memory::ELEMENT_NS_OBJECT) xercesc::DOMElementNSImpl(
                                            &document, uri, element.getPrefix(), element.getLocalName(), name);
    const xercesc::DOMNamedNodeMap& attributes = *element.getAttributes();
    for (XMLSize_t i = 0; i < attributes.getLength(); ++i) {
        const DOMNode& from = *attributes.item(i);
        auto* const attribute = new (&document, Memory::ATTR_NS_OBJECT) xercesc::DOMAttrNSImpl(
            &document, from.getNamespaceURI(), from.getPrefix(), from.getLocalName(), from.getNodeName());
        addAttribute(copy, *attribute, *document.createTextNode(from.getNodeValue()));
    }
    return copy;
}

void NameCounter::spread(DOMDocument& document) {
    m_askedUntilSpread = m_asked * 2;
    if (linksAreKnown()) spreadNames(static_cast<DOMDocumentImpl&>(document));
}

#else  // a version of the library whose members nobody has compared with those above

bool isKnownVersion(std::string_view /*className*/) { return false; }
bool examineLinks(xercesc::DOMImplementation& /*implementation*/, std::string_view /*className*/) { return false; }
void append(DOMNode& parent, DOMNode& child) { parent.appendChild(&child); }
void unlink(DOMNode& parent, DOMNode& child) { parent.removeChild(&child); }
DOMNode* parentOf(const DOMElement& element) { return element.getParentNode(); }
DOMElement& makePlainElement(DOMDocument& document, const XMLCh* name) { return *document.createElement(name); }
DOMElement& copyAlone(const DOMElement& element, DOMDocument& document) {
    return static_cast<DOMElement&>(*document.importNode(&element, false));
}
void appendNew(DOMElement& parent, DOMElement& child) { parent.appendChild(&child); }
void appendNew(DOMElement& parent, xercesc::DOMText& child) { parent.appendChild(&child); }
void addAttribute(DOMElement& /*element*/, xercesc::DOMAttr& /*attribute*/, xercesc::DOMText& /*text*/) {}
void NameCounter::spread(DOMDocument& /*document*/) {}

#endif

bool examineLinks(xercesc::DOMImplementation& implementation) {
    return examineLinks(implementation, typeid(implementation).name());
}

}  // namespace XMLConfig::detail
