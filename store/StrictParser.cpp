#include "store/StrictParser.h"

#include <algorithm>
#include <xercesc/internal/XMLScanner.hpp>
#include <xercesc/util/XMLChar.hpp>
#include <xercesc/util/XMLExceptMsgs.hpp>

#include "platform/Numbers.h"
#include "platform/Text.h"
#include "store/Limits.h"
#include "store/ParseFailure.h"
#include "store/TreeLinks.h"

namespace XMLConfig::detail {

using xercesc::DOMElement;

namespace {

// A parser that has read more than this is not used again: it holds the memory of its longest text, and all names.
constexpr XMLFilePos mostBytes = 4 * 1024 * 1024;
constexpr XMLSize_t mostNames = 1024;

/// Whether an error of the library is that bytes are no characters.
bool isOfBytes(unsigned int code, const XMLCh* domain) {
    using xercesc::XMLExcepts;
    return view(domain) == view(xercesc::XMLUni::fgExceptDomain) &&
           (code == XMLExcepts::Trans_BadSrcSeq ||
            (code >= XMLExcepts::UTF8_FormatError && code <= XMLExcepts::UTF8_Exceeds_BytesLimit));
}

}  // namespace

bool isUtf8(const XMLCh* const encoding) {
    const std::wstring name = fromUtf16(view(encoding));
    return equalIgnoringCase(name, L"UTF-8") || equalIgnoringCase(name, L"UTF8");
}

StrictParser::StrictParser() : m_namespaces(*this) {
    setParameter(xercesc::XMLUni::fgDOMDatatypeNormalization, true);
    // Of the scanners that see document types, the one that knows no schemas takes less for each name and element.
    setParameter(xercesc::XMLUni::fgXercesScannerName, static_cast<const void*>(xercesc::XMLUni::fgDGXMLScanner));
    getScanner()->setErrorReporter(this);  // without an error handler the library would not report at all
    getScanner()->setURIStringPool(&m_namespaces);
}

DocumentPointer StrictParser::parseDocument(const xercesc::InputSource& source) {
    scan(source);
    DocumentPointer document(adoptDocument());
    if (document->getDocumentElement() == nullptr) throw ParseFailure(1, 1, L"There is no document element");
    return document;
}

bool StrictParser::isFitForMore(const XMLFilePos size) {
    m_size += size;
    const bool isXml11 = getScanner()->getXMLVersion() == xercesc::XMLReader::XMLV1_1;
    return !isXml11 && m_namespaces.getStringCount() <= maximumNamespaces && m_elementNames <= mostNames &&
           m_size <= mostBytes;
}

void StrictParser::error(const unsigned int code, const XMLCh* const domain, const xercesc::XMLErrorReporter::ErrTypes type,
                         const XMLCh* const text, const XMLCh* const /*systemId*/, const XMLCh* const /*publicId*/,
                         const XMLFileLoc line, const XMLFileLoc column) {
    if (type == xercesc::XMLErrorReporter::ErrType_Warning) return;
    // The library has no place yet for a text that it cannot even begin to read, and names no file for it.
    if (line == 0) throw ParseFailure(1, 1, L"What the text begins with is in no encoding that is known");
    if (isOfBytes(code, domain) && isUtf8(getScanner()->getReaderMgr()->getCurrentEncodingStr()))
        throw WrongBytes(line, column, fromUtf16(view(text)));
    throw ParseFailure(line, column, fromUtf16(view(text)));
}

void StrictParser::doctypeDecl(const xercesc::DTDElementDecl& /*declaration*/, const XMLCh* const /*publicId*/,
                               const XMLCh* const /*systemId*/, const bool /*hasInternalSubset*/,
                               const bool /*hasExternalSubset*/) {
    refuse(L"A document type is not allowed");
}

void StrictParser::XMLDecl(const XMLCh* const version, const XMLCh* const encoding, const XMLCh* const standalone,
                           const XMLCh* const actualEncoding) {
    // The parser reads the version "1.2"; the tree refuses it, without saying where it stands.
    if (view(version) != u"1.0" && view(version) != u"1.1") refuse(L"This version of XML is not supported");
    DOMLSParserImpl::XMLDecl(version, encoding, standalone, actualEncoding);
}

void StrictParser::startDocument() {
    m_levels = 0;
    m_comments.clear();
    m_namespaces.forget();
    m_names = {};
    DOMLSParserImpl::startDocument();
}

// The library takes the character U+0000 after the document element for the end of the text.
void StrictParser::endDocument() {
    const xercesc::Locator* const place = getScanner()->getLocator();
    m_endLine = place->getLineNumber();
    m_endColumn = place->getColumnNumber();
    if (!getScanner()->getReaderMgr()->atEOF()) refuse(L"The character U+0000 is not allowed");
    DOMLSParserImpl::endDocument();
}

// Without a document type no attribute is an ID or has a default, so that each is what the text says.
void StrictParser::startElement(const xercesc::XMLElementDecl& declaration, const unsigned int uri,
                                const XMLCh* const prefix, const xercesc::RefVectorOf<xercesc::XMLAttr>& attributes,
                                const XMLSize_t attributeCount, const bool isEmpty, const bool isRoot) try {
    enterLevel(attributeCount);
    countName(declaration);
    if (!linksAreKnown())
        return DOMLSParserImpl::startElement(declaration, uri, prefix, attributes, attributeCount, isEmpty, isRoot);
    m_names.count(*getDocument(), attributeCount + 1);
    DOMElement& element = makeElement(uri, prefix, declaration.getBaseName());
    if (attributeCount != 0) addAttributes(element, attributes, attributeCount);
    if (isRoot) getDocument()->appendChild(&element);
    else appendNew(static_cast<DOMElement&>(*fCurrentParent), element);
    fCurrentParent = fCurrentNode = &element;
    fWithinElement = true;
    if (isEmpty) endElement(declaration, uri, isRoot, prefix);
} catch (const xercesc::DOMException& exception) {  // XML 1.1 lets a prefix stand for no namespace, the tree does not
    refuse(fromUtf16(view(exception.getMessage())));
}

void StrictParser::endElement(const xercesc::XMLElementDecl& declaration, const unsigned int uri, const bool isRoot,
                              const XMLCh* const prefix) {
    m_namespaces.leaveElement(m_depth--);
    if (isRoot) fWithinElement = false;
    if (isRoot || !linksAreKnown()) return DOMLSParserImpl::endElement(declaration, uri, isRoot, prefix);
    fCurrentNode = fCurrentParent;
    fCurrentParent = parentOf(static_cast<DOMElement&>(*fCurrentParent));
}

// A text can come in several pieces, and its first is joined here.
void StrictParser::docCharacters(const XMLCh* const text, const XMLSize_t length, const bool isCdata) {
    const bool isFirst = fWithinElement && !isCdata && fCurrentNode->getNodeType() != xercesc::DOMNode::TEXT_NODE;
    if (!isFirst || !linksAreKnown()) return DOMLSParserImpl::docCharacters(text, length, isCdata);
    xercesc::DOMText* const made = createText(text, length);
    appendNew(static_cast<DOMElement&>(*fCurrentParent), *made);
    fCurrentNode = made;
}

void StrictParser::docComment(const XMLCh* const text) {
    DOMLSParserImpl::docComment(text);
    if (fWithinElement) m_comments.push_back(static_cast<const xercesc::DOMComment*>(fCurrentNode));
}

// The scanner lets some names pass that the tree refuses, without saying where they stand.
void StrictParser::docPI(const XMLCh* const target, const XMLCh* const data) {
    const bool isXml11 = getScanner()->getXMLVersion() == xercesc::XMLReader::XMLV1_1;
    if (!isXml11 && !xercesc::XMLChar1_0::isValidName(target))
        refuse(L"The name of a processing instruction holds a character that is not allowed there");
    DOMLSParserImpl::docPI(target, data);
}

void StrictParser::enterLevel(const XMLSize_t attributeCount) {
    if (++m_depth > maximumDepth) refuse(L"Elements are nested too deeply");
    if (attributeCount > maximumAttributes) {
        refuse(L"An element has more than " + formatInteger(maximumAttributes) + L" attributes");
    }
    m_namespaces.enterElement(m_depth);
    m_levels = std::max(m_levels, m_depth);
}

// The library numbers the names from 1 as it meets them.
void StrictParser::countName(const xercesc::XMLElementDecl& declaration) {
    m_elementNames = std::max<XMLSize_t>(m_elementNames, declaration.getId());
    if (m_elementNames > maximumNames)
        refuse(L"The elements have more than " + formatInteger(maximumNames) + L" different names");
}

DOMElement& StrictParser::makeElement(const unsigned int uri, const XMLCh* const prefix, const XMLCh* const name) {
    if (uri == getScanner()->getEmptyNamespaceId()) return makePlainElement(*getDocument(), name);
    const XMLCh* const uriText = getScanner()->getURIText(uri);
    if (view(prefix).empty()) return *createElementNS(uriText, nullptr, name, name);
    const std::u16string fullName = std::u16string(view(prefix)).append(u":").append(view(name));
    return *createElementNS(uriText, prefix, name, xmlText(fullName));
}

void StrictParser::addAttributes(DOMElement& element, const xercesc::RefVectorOf<xercesc::XMLAttr>& attributes,
                                 const XMLSize_t count) {
    for (XMLSize_t i = 0; i < count; ++i) {
        const xercesc::XMLAttr& read = *attributes.elementAt(i);
        const bool isDefault = view(read.getPrefix()).empty() && view(read.getName()) == u"xmlns";
        const unsigned int uri = isDefault ? getScanner()->getXMLNSNamespaceId() : read.getURIId();
        const bool isPlain = uri == getScanner()->getEmptyNamespaceId();
        const XMLCh* const uriText = isPlain ? nullptr : getScanner()->getURIText(uri);
        xercesc::DOMAttr* const made = createAttrNS(uriText, read.getPrefix(), read.getName(), read.getQName());
        const std::u16string_view value = view(read.getValue());
        addAttribute(element, *made, *createText(read.getValue(), value.size()));
    }
}

unsigned int StrictParser::Namespaces::addOrFind(const XMLCh* const name) {
    if (m_inForce + ++m_pending > maximumNamespaces) {
        m_parser.refuse(L"More than " + formatInteger(maximumNamespaces) + L" namespaces are declared");
    }
    return XMLStringPool::addOrFind(name);
}

void StrictParser::Namespaces::enterElement(const int depth) {
    if (m_pending == 0) return;
    m_declarations.push_back({depth, m_pending});
    m_inForce += m_pending;
    m_most = std::max(m_most, m_inForce);
    m_pending = 0;
}

void StrictParser::Namespaces::leaveElement(const int depth) {
    if (m_declarations.empty() || m_declarations.back().depth != depth) return;
    m_inForce -= m_declarations.back().count;
    m_declarations.pop_back();
}

void StrictParser::refuse(const std::wstring& reason) const {
    const xercesc::Locator* place = getScanner()->getLocator();
    throw ParseFailure(place->getLineNumber(), place->getColumnNumber(), reason);
}

void StrictParser::refuseEnd(const wchar_t* const reason) const { throw ParseFailure(m_endLine, m_endColumn, reason); }

}  // namespace XMLConfig::detail
