#pragma once

#include <memory>
#include <string>

#include "store/ElementParts.h"
#include "store/FragmentParser.h"
#include "store/Tree.h"

namespace XMLConfig::detail {

/// An element that is to be stored.
struct NewElement {
    LooseElement element;
    int depth = 0;       ///< levels of nested elements, itself counted
    int namespaces = 0;  ///< declared at most in one of its elements and those around that
};

/// Makes nodes of parts that are plain.
NewElement makeElement(const ElementParts& parts, Tree& tree);

/// Parses elements that are to be stored, for one tree.
class ElementReader {
public:
    /// Throws ParseFailure for anything but one element.
    NewElement read(const std::string& text, Tree& tree);
    /// To be called when the tree is another one: the next element is read into that.
    void forgetTree() noexcept { m_holder = nullptr; }

private:
    std::unique_ptr<FragmentParser> m_parser;
    xercesc::DOMElement* m_holder = nullptr;  // what is parsed is in it until it is taken
};

}  // namespace XMLConfig::detail
