#pragma once

#include <memory>
#include <optional>
#include <string>

/// One XML element outside any document, for changing device snippets in place.
namespace XMLConfig::detail {

class XmlFragment {
public:
    /// Parses one element. Throws CorvaneException "Error XmlFragment:  XML message is: line L, column C: ..." for anything
    /// else.
    explicit XmlFragment(const std::wstring& xml);
    ~XmlFragment();
    XmlFragment(const XmlFragment&) = delete;
    XmlFragment& operator=(const XmlFragment&) = delete;

    /// Nothing where the element has no such attribute.
    [[nodiscard]] std::optional<std::wstring> attribute(const std::wstring& name) const;
    void setAttribute(const std::wstring& name, const std::wstring& value);
    [[nodiscard]] bool hasChild(const std::wstring& name) const;
    /// Puts `xml`, one element, in the place of the first child element of that name. False, and nothing done, where there
    /// is none. Throws as the constructor.
    bool replaceChild(const std::wstring& name, const std::wstring& xml);
    /// The element as XML text.
    [[nodiscard]] std::wstring text() const;

private:
    struct Tree;
    std::unique_ptr<Tree> m_tree;
};

}  // namespace XMLConfig::detail
