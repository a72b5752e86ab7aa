#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/Export.h"

class ConfigInfo;

namespace XMLConfig {

struct Address;

/// An element of a document, read where it stands: a section, a subsection, an item or a part of a fragment. A view is one
/// pointer, made to be copied. It borrows the document: use it no more when the document has changed or ended. A view of no
/// element gives empty texts and no other elements.
class XMLCONFIG_API ElementView {
public:
    class Children;

    ElementView() = default;  ///< of no element
    explicit operator bool() const { return m_element != nullptr; }

    /// The tag.
    std::wstring name() const;
    /// Compares the tag without making wide text of it.
    bool isNamed(const std::wstring& tag) const;
    /// Compares the tags, fastest where both are elements of one document.
    bool isNamedLike(const ElementView& other) const;
    /// An attribute's value; nothing where there is no such attribute.
    std::optional<std::wstring> attribute(const std::wstring& attributeName) const;
    /// All attributes, names and values, in the order in which a save writes them.
    std::vector<std::pair<std::wstring, std::wstring>> attributes() const;
    /// The "ID" attribute's value; "" where there is none.
    std::wstring id() const;
    /// The element's text with that of everything inside it.
    std::wstring text() const;

    /// The first element inside this one.
    ElementView firstChild() const;
    /// The first element of that tag inside this one.
    ElementView child(const std::wstring& tag) const;
    /// The next element beside this one.
    ElementView next() const;
    /// The element around this one; the root has none.
    ElementView parent() const;
    /// For range-based loops over the elements inside this one, in document order.
    Children children() const;

    bool operator==(const ElementView& other) const { return m_element == other.m_element; }
    bool operator!=(const ElementView& other) const { return m_element != other.m_element; }
    /// For unordered sets and maps of views.
    struct Hash {
        std::size_t operator()(const ElementView& view) const { return std::hash<const void*>()(view.m_element); }
    };

private:
    friend struct ElementAccess;

    const void* m_element = nullptr;  // not owned
};

class ElementView::Children {
public:
    class Iterator {
    public:
        explicit Iterator(ElementView place) : m_place(place) {}
        ElementView operator*() const { return m_place; }
        Iterator& operator++() {
            m_place = m_place.next();
            return *this;
        }
        bool operator!=(const Iterator& other) const { return m_place != other.m_place; }

    private:
        ElementView m_place;
    };

    explicit Children(ElementView first) : m_first(first) {}
    Iterator begin() const { return Iterator(m_first); }
    static Iterator end() { return Iterator(ElementView()); }

private:
    ElementView m_first;
};

inline ElementView::Children ElementView::children() const { return Children(firstChild()); }

/// Whether both hold the same elements in the same order, with the same attributes and, where an element holds no others,
/// the same text. What stands between elements does not count, nor do the attributes of the two themselves.
XMLCONFIG_API bool haveEqualContents(const ElementView& one, const ElementView& other);
/// Whether the texts of both, as `text` gives them, are equal; nothing is made of them.
XMLCONFIG_API bool haveEqualTexts(const ElementView& one, const ElementView& other);
/// The root, whose children are the header elements and the sections.
XMLCONFIG_API ElementView rootElement(const ConfigInfo& document);

/// A comment inside the root. The views borrow the document as all do.
struct CommentView {
    ElementView around;  ///< the element in which it stands directly
    ElementView next;    ///< the element after it there; of no element where it is the last
    std::wstring text;
};
/// All comments inside the root, in document order.
XMLCONFIG_API std::vector<CommentView> commentsOf(const ConfigInfo& document);
/// The sections of that tag in document order, those without ID too. Nothing else of the document is visited.
XMLCONFIG_API std::vector<ElementView> sectionElements(const ConfigInfo& document, const std::wstring& tag);
/// What the address names, found as ConfigInfo finds it; a view of no element where there is nothing.
XMLCONFIG_API ElementView findElement(const ConfigInfo& document, const Address& address);

}  // namespace XMLConfig
