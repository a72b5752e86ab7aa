#pragma once

#include <utility>
#include <vector>
#include <xercesc/dom/DOMComment.hpp>
#include <xercesc/parsers/DOMLSParserImpl.hpp>
#include <xercesc/util/StringPool.hpp>

#include "store/TreeLinks.h"
#include "store/XmlLibrary.h"

namespace XMLConfig::detail {

/// Whether a text of that encoding is decoded by the XML library as UTF-8.
bool isUtf8(const XMLCh* encoding);

/// The XML library's parser, which never says that text is malformed unless it is asked. This one stops at the first fault
/// with a ParseFailure, and must be thrown away then. It opens no other file. Elements, attributes and texts it joins to the
/// tree by their links where these are known (see TreeLinks.h): the library takes longer to join than to read them.
class StrictParser : public xercesc::DOMLSParserImpl {
public:
    StrictParser();

    /// Parses a whole document, which has a document element.
    DocumentPointer parseDocument(const xercesc::InputSource& source);
    /// The comments inside the document element of what was parsed last, in document order; once.
    std::vector<const xercesc::DOMComment*> takeComments() { return std::exchange(m_comments, {}); }
    /// Throws a ParseFailure whose place is the end of what was parsed last.
    [[noreturn]] void refuseEnd(const wchar_t* reason) const;
    /// How many levels of elements the document had.
    [[nodiscard]] int levels() const { return m_levels; }
    /// How many elements and attributes it had.
    [[nodiscard]] std::size_t names() const { return m_names.asked(); }
    /// How many namespaces were declared at most in one element and those around it.
    [[nodiscard]] int namespaces() const { return m_namespaces.most(); }
    /// Whether another text may be read, after one of so many bytes: the library forgets neither the version of XML nor the
    /// names of elements and namespaces. A few names are worth keeping, for the next text mostly has the same.
    [[nodiscard]] bool isFitForMore(XMLFilePos size);

    void error(unsigned int code, const XMLCh* domain, xercesc::XMLErrorReporter::ErrTypes type, const XMLCh* text,
               const XMLCh* systemId, const XMLCh* publicId, XMLFileLoc line, XMLFileLoc column) override;
    void doctypeDecl(const xercesc::DTDElementDecl& declaration, const XMLCh* publicId, const XMLCh* systemId,
                     bool hasInternalSubset, bool hasExternalSubset) override;
    void XMLDecl(const XMLCh* version, const XMLCh* encoding, const XMLCh* standalone, const XMLCh* actualEncoding) override;
    void startDocument() override;
    void endDocument() override;
    void startElement(const xercesc::XMLElementDecl& declaration, unsigned int uri, const XMLCh* prefix,
                      const xercesc::RefVectorOf<xercesc::XMLAttr>& attributes, XMLSize_t attributeCount, bool isEmpty,
                      bool isRoot) override;
    void endElement(const xercesc::XMLElementDecl& declaration, unsigned int uri, bool isRoot, const XMLCh* prefix) override;
    void docCharacters(const XMLCh* text, XMLSize_t length, bool isCdata) override;
    void docComment(const XMLCh* text) override;
    void docPI(const XMLCh* target, const XMLCh* data) override;

private:
    /// Reads the source to its end.
    virtual void scan(const xercesc::InputSource& source) { AbstractDOMParser::parse(source); }

    /// The library searches all namespaces that are declared around a name for it. It asks this pool once for each that is
    /// declared, and before it uses any.
    class Namespaces : public xercesc::XMLStringPool {
    public:
        explicit Namespaces(const StrictParser& parser) : m_parser(parser) {}
        unsigned int addOrFind(const XMLCh* name) override;
        /// Forgets those that the library knows without a declaration.
        void forget() { m_pending = m_most = 0; }
        [[nodiscard]] int most() const { return m_most; }
        void enterElement(int depth);
        void leaveElement(int depth);

    private:
        struct Declaration {
            int depth;
            int count;
        };
        const StrictParser& m_parser;
        int m_pending = 0;  // of the element that begins
        int m_inForce = 0;  // of those around it
        int m_most = 0;
        std::vector<Declaration> m_declarations;
    };

    void enterLevel(XMLSize_t attributeCount);
    void countName(const xercesc::XMLElementDecl& declaration);
    xercesc::DOMElement& makeElement(unsigned int uri, const XMLCh* prefix, const XMLCh* name);
    void addAttributes(xercesc::DOMElement& element, const xercesc::RefVectorOf<xercesc::XMLAttr>& attributes,
                       XMLSize_t count);
    [[noreturn]] void refuse(const std::wstring& reason) const;

    Namespaces m_namespaces;
    std::vector<const xercesc::DOMComment*> m_comments;
    int m_depth = 0;
    int m_levels = 0;
    XMLSize_t m_elementNames = 0;  // that the library knows, of all texts
    XMLFilePos m_size = 0;         // of all texts
    NameCounter m_names;
    XMLFileLoc m_endLine = 1;
    XMLFileLoc m_endColumn = 1;
};

}  // namespace XMLConfig::detail
