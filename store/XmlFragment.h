#pragma once

#include <memory>
#include <string>

#include "store/ElementView.h"

/// One XML element outside any document, for changing device snippets in place.
namespace XMLConfig::detail {

class Tree;

class XmlFragment {
public:
    /// Parses one element. Throws CorvaneException "Error XmlFragment:  XML message is: line L, column C: ..." for anything
    /// else.
    explicit XmlFragment(const std::wstring& xml);
    ~XmlFragment();

    /// Good until the fragment changes or ends.
    [[nodiscard]] ElementView element() const;
    void setAttribute(const std::wstring& name, const std::wstring& value);
    /// Puts `xml`, one element, in the place of the first child element of that name. False, and nothing done, where there
    /// is none. Throws as the constructor.
    bool replaceChild(const std::wstring& name, const std::wstring& xml);
    /// The element as XML text.
    [[nodiscard]] std::wstring text() const;

private:
    std::unique_ptr<Tree> m_tree;
};

}  // namespace XMLConfig::detail
