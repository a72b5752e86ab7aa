#pragma once

#include <exception>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "store/ChangeObserver.h"
#include "store/DocumentParser.h"
#include "store/FileState.h"
#include "store/Journal.h"
#include "store/NewElement.h"
#include "store/NodeText.h"
#include "store/SectionIndex.h"
#include "store/Tree.h"

class ConfigInfo;

/// The tree that a ConfigInfo keeps, with its index: finding elements by address, and the primitive changes that the public
/// operations are made of.
namespace XMLConfig::detail {

/// Where a value is: a section, perhaps a subsection, and a key. References to the caller's text, since every get and set
/// makes one; XMLConfig::Address keeps what people wrote.
struct ItemAddress {
    const std::wstring& sectionName;
    const std::wstring& sectionID;
    const std::wstring& key;
    const std::wstring& subSectionName;
    const std::wstring& subSectionID;
};

/// The element below which a key is resolved: a section or a subsection of it.
struct Container {
    xercesc::DOMElement* element = nullptr;
    Section* section = nullptr;
    [[nodiscard]] bool isSection() const { return section != nullptr && element == section->element; }
};

/// What an item holds: a text, which may be empty, or one element.
struct Content {
    const std::wstring& text;
    LooseElement element;
};

/// Whatever an operation needs it makes beside the tree, and joins it last, which cannot fail: an operation that throws,
/// for want of memory too, leaves the tree as it was. After each change all elements, sections and items that were found
/// before are worth nothing: the tree may have been copied.
class Document {
public:
    static Document& of(ConfigInfo& configInfo);
    static const Document& of(const ConfigInfo& configInfo);

    /// Starts the XML library. Throws when it does not start.
    Document() : m_implementation(startXmlLibrary()) {}
    using FileParser = ParsedTree (*)(const std::wstring& path);
    /// Replaces the tree by a file's. False when there is no parser; throws as ConfigInfo's file constructor.
    bool parseDataFile(const std::wstring& path, FileParser parse = parseFile);
    /// Replaces the tree by that of a file's bytes. Throws what parseDataFile throws, with the name in place of the path.
    void parseData(const std::string& bytes, const std::wstring& name);
    /// Replaces the tree by a new one: the root and its four header elements.
    void initializeDOM();

    [[nodiscard]] bool exists() const { return m_tree.exists(); }
    [[nodiscard]] const xercesc::DOMDocument& tree() const { return m_tree.document(); }
    [[nodiscard]] xercesc::DOMElement* root() const { return m_tree.root(); }
    /// As they were noted; null where they were not, and once anything has changed.
    [[nodiscard]] const std::shared_ptr<const ElementPlaces>& parsedPlaces() const { return m_parsedPlaces; }
    using Comments = std::vector<const xercesc::DOMComment*>;
    /// The comments inside the root in document order, as they were parsed; nothing once the tree was changed or copied.
    [[nodiscard]] const std::optional<Comments>& parsedComments() const { return m_parsedComments; }

    // Looking up; null where there is nothing.
    Section* getSection(const std::wstring& name, const std::wstring& id) const { return m_index.find(name, id); }
    [[nodiscard]] Container container(const ItemAddress& address) const;
    [[nodiscard]] Item getItem(const Container& container, const std::wstring& key) const;
    [[nodiscard]] Item getItem(const std::wstring& name, const std::wstring& key, const std::wstring& id) const;
    /// The text of an item, as of its element. A short text of one piece is remembered with the item, unless changes are
    /// made together, of which the next would forget it. The view is good until another item is read or anything changes.
    std::u16string_view textOf(const Item& item, std::u16string& buffer) const;
    /// How many sections of that tag there are.
    [[nodiscard]] std::size_t countSections(const std::wstring& name) const { return m_index.count(name); }
    /// The innermost element there is around an item that is missing.
    [[nodiscard]] const xercesc::DOMElement& placeOf(const ItemAddress& address, const Container& container) const;

    // Changing. The callers set the dirty flag and tell the observer.
    NewElement readElement(const std::string& text) { return detail::readElement(text, m_tree); }
    NewElement makeElement(const StoredElement& element) { return detail::makeElement(element, m_tree); }
    /// Adds an item that is missing, with the section, the subsection and the groups that are missing around it. Where a
    /// name is illegal, throws DOMException and leaves what comes before it; nothing else leaves a part.
    void addItem(const ItemAddress& address, const Container& container, Content content);
    void setText(const Item& item, const std::wstring& value);
    /// The element becomes the item's only content. True when that differs from what was there by more than indentation.
    bool setElement(const Item& item, LooseElement content);
    void removeItem(Section& section, xercesc::DOMElement& item);
    /// Removes a section or subsection and the white space after it.
    void remove(const Container& place);
    void renameSection(Section& section, const std::wstring& newID);
    /// `later`, the next section of the same tag, goes immediately before `earlier`.
    void swapSections(Section& earlier, Section& later);
    void setHeader(xercesc::DOMElement& header, const std::wstring& text);
    void insertHeader(const std::wstring& name, const std::wstring& text, xercesc::DOMElement& next);
    /// Each of the places, the root or sections, gets a comment after all that it holds.
    void addComments(const std::vector<xercesc::DOMElement*>& places, const std::wstring& text);
    /// Takes away the comments of that text that stand directly in the place; how many.
    std::size_t removeComments(xercesc::DOMElement& place, const std::wstring& text);

    /// Tells the observer, if there is one, of a change that was made.
    void report(Change&& change) const {
        if (observer != nullptr) observer->changed(std::move(change));
    }

    ChangeObserver* observer = nullptr;  ///< not owned
    FileState file;                      ///< where the document was loaded from or saved to last

private:
    friend class Together;

    /// Each primitive change ends here: `tell` tells the index of it.
    template <typename Tell>
    void changed(Tell tell) noexcept {
        forgetParse();
        try {
            tell();
        } catch (...) {
            m_index.reset(root());
        }
        shedWaste();
    }
    void take(const std::wstring& name, const std::function<ParsedTree()>& parse);
    void shedWaste() noexcept;
    /// To be called when nodes of the parse may have left the tree or others have joined it.
    void forgetParse() noexcept {
        m_parsedPlaces.reset();
        m_parsedComments.reset();
    }
    void adopt(ParsedTree tree) noexcept;
    struct Missing;
    [[nodiscard]] Missing missingOf(const ItemAddress& address, const Container& container) const;
    /// What is missing, up to the first name that is illegal.
    LooseElement build(const Missing& missing, Content content, std::exception_ptr& illegalName);
    void removeIndentationAfter(xercesc::DOMElement& parent, const xercesc::DOMElement& child) noexcept;
    // How nodes join the tree and leave it; the journal must have room.
    void join(xercesc::DOMNode& parent, xercesc::DOMNode& child, xercesc::DOMNode* next = nullptr) noexcept;
    void part(xercesc::DOMNode& parent, xercesc::DOMNode& child) noexcept;
    /// `content`, which may be null, becomes the parent's only child.
    void replaceContent(xercesc::DOMNode& parent, xercesc::DOMNode* content) noexcept;
    /// For all children to leave and one to join.
    void makeRoomToReplace(const xercesc::DOMNode& parent);

    xercesc::DOMImplementation* const m_implementation;  // not owned; null where the library has none
    Tree m_tree;
    mutable SectionIndex m_index;
    Journal m_journal;
    std::shared_ptr<const ElementPlaces> m_parsedPlaces;
    std::optional<Comments> m_parsedComments;
};

/// Whether an element holds `content` and nothing else, where texts that are indentation only count nowhere.
bool holdsCollapsed(const xercesc::DOMElement& element, const xercesc::DOMElement& content);

}  // namespace XMLConfig::detail
