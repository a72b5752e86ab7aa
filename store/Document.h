#pragma once

#include <string>
#include <vector>

#include "store/ChangeObserver.h"
#include "store/FragmentParser.h"
#include "store/SectionIndex.h"
#include "store/XmlLibrary.h"

class ConfigInfo;

/// The tree behind a ConfigInfo: loading and making it, finding elements by address, and the primitive changes that the
/// public operations are made of. Keeps the section index true.
namespace XMLConfig::detail {

class Document;

/// Where a value is: a section, perhaps a subsection, and a key. References to the caller's text.
struct Address {
    const std::wstring& sectionName;
    const std::wstring& sectionID;
    const std::wstring& key;
    const std::wstring& subSectionName;
    const std::wstring& subSectionID;
};

/// The element below which a key is resolved. `section` is known only when it is the section itself.
struct Container {
    xercesc::DOMElement* element = nullptr;
    Section* section = nullptr;
};

/// An item that was found; without an element where there is none.
struct Item {
    xercesc::DOMElement* element = nullptr;
    KnownItem* known = nullptr;  ///< the index's own record of it, which subsections' items have none of
    Section* section = nullptr;  ///< where that record is kept
};

struct ReleaseElement {
    Document* document = nullptr;
    void operator()(xercesc::DOMElement* element) const;
};

/// An element that was parsed to be stored. It belongs to the document but is no part of its tree.
struct NewElement {
    std::unique_ptr<xercesc::DOMElement, ReleaseElement> element;
    int depth = 0;  ///< levels of nested elements, itself counted
};

/// The item of a section that a key leads to.
Item knownItem(Section& section, const std::wstring& key);

class Document {
public:
    static Document& of(ConfigInfo& configInfo);
    static const Document& of(const ConfigInfo& configInfo);

    /// Starts the XML library. Throws when it does not start.
    void initializeXerces();
    /// Replaces the tree by a file's. False when there is no parser; throws as ConfigInfo's file constructor.
    bool parseDataFile(const std::wstring& path);
    /// Replaces the tree by a new one: the root and its four header elements.
    void initializeDOM();

    [[nodiscard]] bool exists() const { return m_document != nullptr; }
    [[nodiscard]] const xercesc::DOMDocument& tree() const { return *m_document; }
    [[nodiscard]] xercesc::DOMElement* root() const;

    // Looking up; null where there is nothing.
    Section* getSection(const std::wstring& name, const std::wstring& id) const;
    xercesc::DOMElement* getSubSection(const std::wstring& name, const std::wstring& subName, const std::wstring& id,
                                       const std::wstring& subID) const;
    [[nodiscard]] Container container(const Address& address) const;
    [[nodiscard]] Item getItem(const Container& container, const Address& address) const;
    [[nodiscard]] Item getItem(const std::wstring& name, const std::wstring& key, const std::wstring& id) const;
    /// How many sections of that tag there are.
    [[nodiscard]] std::size_t countSections(const std::wstring& name) const { return m_index.count(name); }

    // Changing. Callers set the dirty flag and tell the observer.
    Container makeContainer(const Address& address);
    /// Parses an element that is to be stored. Throws ParseFailure for anything else.
    NewElement parseElement(const std::string& text);
    /// Walks the key below the container, making what is missing.
    Item makeItem(const Container& container, const std::wstring& key);
    void setSectionText(xercesc::DOMElement* section, const std::wstring& value);
    void setText(const Item& item, const std::wstring& value, const Container& container);
    /// The element becomes the item's only content. True when that differs from what was there by more than layout.
    bool setElement(const Item& item, NewElement content, const Container& container);
    void removeItem(Section& section, xercesc::DOMElement* item);
    void removeSection(Section& section);
    void removeSubSection(xercesc::DOMElement* subSection);
    void renameSection(Section& section, const std::wstring& newID);
    /// `later`, the next section of the same tag, goes immediately before `earlier`.
    void swapSections(Section& earlier, Section& later);
    xercesc::DOMElement* appendElement(xercesc::DOMElement* parent, const std::wstring& name, const std::wstring& text);
    void insertHeaderBefore(xercesc::DOMElement* next, const std::wstring& name, const std::wstring& text);

    ChangeObserver* observer = nullptr;  ///< not owned

private:
    friend struct ReleaseElement;

    xercesc::DOMElement* makeElement(const xercesc::DOMNode& parent, const std::wstring& name);
    xercesc::DOMText* makeText(const std::u16string& text);
    /// There is another tree.
    void forgetTree();
    /// Ends a node that has no parent any more.
    void release(xercesc::DOMNode* node);
    void removeAndRelease(xercesc::DOMElement* parent, xercesc::DOMNode* child);
    void removeChildren(xercesc::DOMElement* element);
    void removeLayoutBehind(xercesc::DOMElement* parent, xercesc::DOMElement* child);
    Section& sectionOf(const Container& container);
    void forgetText(const Item& item, const Container& container);

    xercesc::DOMImplementation* m_implementation = nullptr;  // not owned
    DocumentPointer m_document;
    mutable SectionIndex m_index;
    std::unique_ptr<FragmentParser> m_fragmentParser;
    xercesc::DOMElement* m_parsed = nullptr;         // holds what is parsed until it is stored; made when it is needed
    std::vector<xercesc::DOMElement*> m_spareItems;  // removed; taken apart only when a text is asked for
    std::vector<xercesc::DOMText*> m_spareTexts;     // the XML library walks all it has kept whenever it makes a text
};

/// Whether a node's first child, null where it has none, is a text and its only child.
bool isOneText(const xercesc::DOMNode* firstChild);
/// The text of an element with that of everything inside it. The view is into the tree where the element holds one piece
/// of text, else into `buffer`; it is good until the tree or the buffer changes.
std::u16string_view textOf(const xercesc::DOMElement& element, std::u16string& buffer);
/// The same of an item, which is remembered where it is one short piece of text: the view is good until another item is
/// read or anything changes.
std::u16string_view textOf(const Item& item, std::u16string& buffer);
bool hasText(const xercesc::DOMElement& element, const std::wstring& text);
std::wstring wideTextOf(const xercesc::DOMElement& element);
/// Whether two trees are equal when text nodes made of layout only are left out.
bool compareCollapsedNodes(const xercesc::DOMNode& left, const xercesc::DOMNode& right);

}  // namespace XMLConfig::detail
