#pragma once

#include <memory>
#include <string>

#include "store/XmlLibrary.h"

namespace XMLConfig::detail {

/// Parses elements given as UTF-8, one after the other, into a tree that there is: making a parser and a document for each
/// costs more than most elements.
class FragmentParser {
public:
    FragmentParser();
    ~FragmentParser();
    FragmentParser(const FragmentParser&) = delete;
    FragmentParser& operator=(const FragmentParser&) = delete;

    /// The element becomes the last child of `parent`; comments and instructions beside it come along. Gives how many
    /// levels of elements it has, itself counted. Throws ParseFailure as parseFile does, and for XML 1.1: then something may
    /// be in `parent`, and the parser must be thrown away.
    int parse(const std::string& text, xercesc::DOMElement& parent);

    /// How many namespaces were declared at most in one of its elements and those around it.
    [[nodiscard]] int namespaces() const { return m_namespaces; }

private:
    class Builder;
    std::unique_ptr<Builder> m_builder;
    int m_namespaces = 0;
};

/// Parses one element given as UTF-8 into a document of its own. Throws likewise.
DocumentPointer parseFragment(const std::string& text);

}  // namespace XMLConfig::detail
