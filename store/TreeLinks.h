#pragma once

#include <atomic>
#include <string_view>
#include <xercesc/dom/impl/DOMElementImpl.hpp>
#include <xercesc/dom/impl/DOMStringPool.hpp>
#include <xercesc/dom/impl/DOMTextImpl.hpp>
#include <xercesc/util/XercesVersion.hpp>

#include "store/XmlLibrary.h"

/// All that the store knows of the inside of the XML library's tree. No other file reaches into it.
///
/// Reason: the library's own functions ask every node that they touch several times for its class, which costs more than
/// making the node; they look an attribute up among all others before they add it; and they keep a document's names in a
/// table that never grows, so that each new one is compared with more of those there are. A load would take four times as
/// long, and one of a hostile file hours.
///
/// What it relies on: the members of version 3.2 of the library. A first child's previous sibling is the last child; the
/// owner of a node that has a parent is that parent, else its document; attributes are sorted by name; names hang in
/// chains by their hash. Nothing else is kept of a link, so that no live range or node iterator may watch the tree; the
/// store makes none.
///
/// Guards: another version at compile time leaves all of this out, and before anything reaches in at run time
/// examineLinks compares the library that was loaded with the one compiled against, by its version and by a small tree.
/// Where either differs, linksAreKnown says so and the library's public functions serve, slower but with the same result.
/// The patch number cannot be compared: the running library tells it nowhere, only its header does. Nor need it be, since
/// 3.2.0 and all later 3.2 stand for each other under one file name and so must keep the members of their classes; a
/// build that does not is seen by the small tree.
namespace XMLConfig::detail {

/// Whether the members of that version are those written down here. `className` is what the library, as it was loaded,
/// calls one of its own classes; its version is a part of it.
bool isKnownVersion(std::string_view className);
/// To be called with a library that was started, before anything else here. Gives what linksAreKnown says from now on.
bool examineLinks(xercesc::DOMImplementation& implementation, std::string_view className);
bool examineLinks(xercesc::DOMImplementation& implementation);
#if XERCES_VERSION_MAJOR == 3 && XERCES_VERSION_MINOR == 2 && !defined(XMLCONFIG_WITHOUT_LINKS)
#define XMLCONFIG_LINKS_MAY_BE_KNOWN
extern std::atomic<bool> areLinksKnown;
[[nodiscard]] inline bool linksAreKnown() { return areLinksKnown.load(std::memory_order_relaxed); }
#else  // members that nobody has compared yet
[[nodiscard]] constexpr bool linksAreKnown() { return false; }
#endif

/// `child`, which has no parent, becomes the last child of an element or attribute of its document.
void append(xercesc::DOMNode& parent, xercesc::DOMNode& child);
/// `child` leaves `parent`, an element or attribute. Throws DOMException (NOT_FOUND_ERR), as the XML library does, when it
/// is no child of it.
void unlink(xercesc::DOMNode& parent, xercesc::DOMNode& child);
/// The node that an element is a child of.
xercesc::DOMNode* parentOf(const xercesc::DOMElement& element);
/// The first element inside an element, and the next one beside it; null where there is none.
xercesc::DOMElement* firstElementIn(const xercesc::DOMElement& element);
xercesc::DOMElement* elementAfter(const xercesc::DOMElement& element);
/// What is asked of most nodes, told at once.
struct NodeLook {
    xercesc::DOMNode::NodeType type;
    const xercesc::DOMNode* next;  ///< the node after it
    std::u16string_view text;      ///< what a text, a CDATA section or a comment holds; of other nodes nothing
};
NodeLook lookFromOutside(const xercesc::DOMNode& node, xercesc::DOMNode::NodeType type);
inline NodeLook lookAt(const xercesc::DOMNode& node) {
    const xercesc::DOMNode::NodeType type = node.getNodeType();
#if defined(XMLCONFIG_LINKS_MAY_BE_KNOWN)
    if (!linksAreKnown()) return lookFromOutside(node, type);
    if (type == xercesc::DOMNode::ELEMENT_NODE)
        return {type, static_cast<const xercesc::DOMElementImpl&>(node).fChild.nextSibling, {}};
    if (type == xercesc::DOMNode::TEXT_NODE) {
        const auto& text = static_cast<const xercesc::DOMTextImpl&>(node);
        const xercesc::DOMBuffer& data = *text.fCharacterData.fDataBuf;
        return {type, text.fChild.nextSibling, {reinterpret_cast<const char16_t*>(data.getRawBuffer()), data.getLen()}};
    }
#endif
    return lookFromOutside(node, type);
}
/// The copy of an element, which may be another document's, with its attributes and nothing else. The library's own refuses
/// some names that its parser reads.
xercesc::DOMElement& copyAlone(const xercesc::DOMElement& element, xercesc::DOMDocument& document);

/// Sees to it that a document's many names are found as fast as its few.
class NameCounter {
public:
    /// To be called before a document is asked for nodes with so many names.
    void count(xercesc::DOMDocument& document, std::size_t names) {
        m_asked += names;
        if (m_asked >= m_askedUntilSpread) spread(document);
    }
    /// For how many names it was called.
    [[nodiscard]] std::size_t asked() const { return m_asked; }

private:
    void spread(xercesc::DOMDocument& document);

    std::size_t m_asked = 0;
    std::size_t m_askedUntilSpread = 1024;
};

// These are asked for only where the links are known.

/// `child`, which is new and has no parent, becomes the last child of an element of which nobody keeps a list.
void appendNew(xercesc::DOMElement& parent, xercesc::DOMElement& child);
void appendNew(xercesc::DOMElement& parent, xercesc::DOMText& child);
/// A new element in no namespace, without room for one. Its name is known to be legal.
xercesc::DOMElement& makePlainElement(xercesc::DOMDocument& document, const XMLCh* name);
/// Adds an attribute to an element that has none of that name. `text`, its value, may be empty.
void addAttribute(xercesc::DOMElement& element, xercesc::DOMAttr& attribute, xercesc::DOMText& text);

}  // namespace XMLConfig::detail
