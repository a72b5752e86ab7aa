#include "store/FragmentParser.h"

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

DocumentPointer parsed(StrictParser& parser, const std::string& text) {
    DocumentPointer document = parser.parseDocument(TextSource(text));
    refuseXml11(view(document->getXmlVersion()) == u"1.1");
    return document;
}

}  // namespace

/// Builds in the tree of `parent` instead of a document of the parser's own.
class FragmentParser::Builder : public StrictParser {
public:
    int parseInto(DOMElement& parent, const xercesc::InputSource& source) {
        const Loan loan(*this, parent);
        const xercesc::Wrapper4InputSource input(const_cast<xercesc::InputSource*>(&source), false);
        m_isXml11 = false;
        forgetLevels();
        parse(&input);
        refuseEmptiness(levels() == 0);
        refuseXml11(m_isXml11);
        return levels();
    }

    void startDocument() override {
        beginText();
        fDocument = insideOf(m_parent->getOwnerDocument());
        fCurrentParent = fCurrentNode = m_parent;
    }

    void endDocument() override { checkEnd(); }

    void XMLDecl(const XMLCh* const version, const XMLCh* const /*encoding*/, const XMLCh* const /*standalone*/,
                 const XMLCh* const /*actualEncoding*/) override {
        refuseOtherVersions(version);
        m_isXml11 = view(version) == u"1.1";
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
};

FragmentParser::FragmentParser() : m_builder(std::make_unique<Builder>()) {}

FragmentParser::~FragmentParser() = default;

// Where the inside of the XML library is not known, the parser makes a document, and the element is copied from that.
int FragmentParser::parse(const std::string& text, DOMElement& parent) {
    if (linksAreKnown()) {
        if (!m_builder->isFitForMore()) m_builder = std::make_unique<Builder>();
        const int levels = m_builder->parseInto(parent, TextSource(text));
        m_namespaces = m_builder->namespaces();
        return levels;
    }
    StrictParser parser;
    const DocumentPointer document = parsed(parser, text);
    for (const auto* child = document->getFirstChild(); child != nullptr; child = child->getNextSibling()) {
        parent.appendChild(parent.getOwnerDocument()->importNode(child, true));
    }
    m_namespaces = parser.namespaces();
    return parser.levels();
}

DocumentPointer parseFragment(const std::string& text) {
    StrictParser parser;
    return parsed(parser, text);
}

}  // namespace XMLConfig::detail
