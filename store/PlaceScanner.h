#pragma once

#include <cstdint>
#include <unordered_set>
#include <vector>

#include "store/PlacedElements.h"
#include "store/StrictParser.h"

namespace XMLConfig::detail {

/// Reads a text for the places of its elements and makes no tree of it. Refuses what a load refuses.
class PlaceScanner : public PlacedElements, public StrictParser {
public:
    /// Throws as StrictParser, and what the source throws.
    void scan(const xercesc::InputSource& source);

    [[nodiscard]] std::size_t firstChild(std::size_t element) const override { return m_elements[element].firstChild; }
    [[nodiscard]] std::size_t next(std::size_t element) const override { return m_elements[element].next; }
    [[nodiscard]] std::u16string identity(std::size_t element) const override { return *m_elements[element].identity; }
    [[nodiscard]] bool isLike(std::size_t element, const xercesc::DOMElement& other) const override {
        return *m_elements[element].identity == identityOf(other);
    }
    [[nodiscard]] FilePlace place(std::size_t element) const override { return m_elements[element].place; }

private:
    struct Placed {
        const std::u16string* identity = nullptr;
        FilePlace place;
        std::size_t firstChild = 0;
        std::size_t next = 0;
    };
    struct Open {
        std::size_t element = 0;
        std::size_t lastChild = 0;
    };

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
    void join(std::size_t added);

    std::vector<Placed> m_elements;
    std::unordered_set<std::u16string> m_identities;
    std::vector<Open> m_open;  // from the root to where the scanner is
    FilePlace m_next{1, 1};    // of the piece of markup that is read next
};

}  // namespace XMLConfig::detail
