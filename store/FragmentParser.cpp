#include "store/FragmentParser.h"

#include <algorithm>
#include <xercesc/dom/impl/DOMDocumentImpl.hpp>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/framework/Wrapper4InputSource.hpp>

#include "store/DocumentParser.h"
#include "store/StrictParser.h"
#include "store/TreeLinks.h"

namespace XMLConfig::detail {

namespace {

using xercesc::DOMElement;

class TextSource : public xercesc::MemBufInputSource {
public:
    explicit TextSource(const std::string& utf8)
        : MemBufInputSource(reinterpret_cast<const XMLByte*>(utf8.data()), utf8.size(), xmlText(u"tmpSrc")) {
        setEncoding(xmlText(u"UTF-8"));  // whatever a declaration within the text names
    }
};

// XML 1.1 allows characters and names that a document, being XML 1.0, could not be read with again.
void refuseXml11(bool isXml11) {
    if (isXml11) throw ParseFailure(1, 1, L"XML 1.1 is not allowed here");
}

}  // namespace

/// Builds in the tree of `parent` instead of a document of the parser's own.
class FragmentParser::Builder : public StrictParser {
public:
    int parseInto(DOMElement& parent, const xercesc::InputSource& source) {
        const Loan loan(*this, parent);
        const xercesc::Wrapper4InputSource input(const_cast<xercesc::InputSource*>(&source), false);
        m_isXml11 = false;
        m_deepest = 0;
        parse(&input);
        refuseEmptiness(m_deepest == 0);
        refuseXml11(m_isXml11);
        return m_deepest;
    }

    void startDocument() override {
        fDocument = static_cast<xercesc::DOMDocumentImpl*>(m_parent->getOwnerDocument());
        fCurrentParent = fCurrentNode = m_parent;
    }

    void endDocument() override {}

    void XMLDecl(const XMLCh* const version, const XMLCh* const /*encoding*/, const XMLCh* const /*standalone*/,
                 const XMLCh* const /*actualEncoding*/) override {
        refuseOtherVersions(version);
        m_isXml11 = view(version) == u"1.1";
    }

    void startElement(const xercesc::XMLElementDecl& declaration, const unsigned int uri, const XMLCh* const prefix,
                      const xercesc::RefVectorOf<xercesc::XMLAttr>& attributes, const XMLSize_t attributeCount,
                      const bool isEmpty, const bool isRoot) override {
        m_deepest = std::max(m_deepest, depth() + 1);
        StrictParser::startElement(declaration, uri, prefix, attributes, attributeCount, isEmpty, isRoot);
    }

    void endElement(const xercesc::XMLElementDecl& declaration, const unsigned int uri, const bool isRoot,
                    const XMLCh* const prefix) override {
        StrictParser::endElement(declaration, uri, isRoot, prefix);
        if (isRoot) fWithinElement = false;
    }

    // A text can come in several pieces, and its first is joined here.
    void docCharacters(const XMLCh* const text, const XMLSize_t length, const bool isCdata) override {
        const bool isFirst = fWithinElement && !isCdata && fCurrentNode->getNodeType() != xercesc::DOMNode::TEXT_NODE;
        if (!isFirst) return StrictParser::docCharacters(text, length, isCdata);
        xercesc::DOMText* const node = createText(text, length);
        append(static_cast<DOMElement&>(*fCurrentParent), *node);
        fCurrentNode = node;
    }

private:
    /// The parser would end the document that it believes to have made.
    class Loan {
    public:
        Loan(Builder& builder, DOMElement& parent) : m_builder(builder) { builder.m_parent = &parent; }
        ~Loan() {
            m_builder.m_parent = nullptr;
            m_builder.fDocument = nullptr;
        }
        Loan(const Loan&) = delete;
        Loan& operator=(const Loan&) = delete;

    private:
        Builder& m_builder;
    };

    DOMElement* m_parent = nullptr;  // not owned
    bool m_isXml11 = false;
    int m_deepest = 0;
};

FragmentParser::FragmentParser() : m_builder(std::make_unique<Builder>()) {}

FragmentParser::~FragmentParser() = default;

int FragmentParser::parse(const std::string& text, DOMElement& parent) {
    return m_builder->parseInto(parent, TextSource(text));
}

DocumentPointer parseFragment(const std::string& text) {
    DocumentPointer document = StrictParser().parseDocument(TextSource(text));
    refuseXml11(view(document->getXmlVersion()) == u"1.1");
    return document;
}

}  // namespace XMLConfig::detail
