#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "store/StrictParser.h"

namespace XMLConfig::detail {

/// What tells an element from those beside it: its tag and its "ID" attribute, which may be missing.
std::u16string identityOf(std::u16string_view tag, const XMLCh* id);

/// An element of a text and where its start tag begins.
struct PlacedElement {
    std::size_t identity = 0;  ///< the number of its identity
    std::uint64_t line = 0;
    std::uint64_t column = 0;
    std::size_t firstChild = 0;  ///< by index, like the next; 0, which is the root, stands for none
    std::size_t next = 0;
};

/// Reads a text for the places of its elements and makes no tree of it. Refuses what a load refuses.
class PlaceScanner : public StrictParser {
public:
    /// Throws as StrictParser, and what the source throws.
    void scan(const xercesc::InputSource& source);

    /// In document order, the root first.
    std::vector<PlacedElement> elements;
    /// The number of each identity that was met.
    std::unordered_map<std::u16string, std::size_t> identities;

    void startElement(const xercesc::XMLElementDecl& declaration, unsigned int uri, const XMLCh* prefix,
                      const xercesc::RefVectorOf<xercesc::XMLAttr>& attributes, XMLSize_t attributeCount, bool isEmpty,
                      bool isRoot) override;
    void endElement(const xercesc::XMLElementDecl& declaration, unsigned int uri, bool isRoot, const XMLCh* prefix) override;
    void docCharacters(const XMLCh* text, XMLSize_t length, bool isCdata) override;
    void docComment(const XMLCh* text) override;
    void docPI(const XMLCh* target, const XMLCh* data) override;
    void startDocument() override;
    void endDocument() override;
    void XMLDecl(const XMLCh* version, const XMLCh* encoding, const XMLCh* standalone, const XMLCh* actualEncoding) override;

private:
    void join(std::size_t added);

    struct Open {
        std::size_t element = 0;
        std::size_t lastChild = 0;
    };
    std::vector<Open> m_open;  // from the root to where the scanner is
    std::uint64_t m_line = 1;  // of the piece of markup that is read next
    std::uint64_t m_column = 1;
};

}  // namespace XMLConfig::detail
