#include "store/StrictParser.h"

#include <xercesc/framework/Wrapper4InputSource.hpp>
#include <xercesc/internal/XMLScanner.hpp>

#include "platform/Text.h"
#include "store/DocumentParser.h"
#include "store/TreeLinks.h"

namespace XMLConfig::detail {

StrictParser::StrictParser() {
    setParameter(xercesc::XMLUni::fgDOMDatatypeNormalization, true);
    setParameter(xercesc::XMLUni::fgXercesUserAdoptsDOMDocument, true);
    getScanner()->setErrorReporter(this);  // without an error handler the library would not report at all
}

DocumentPointer StrictParser::parseDocument(const xercesc::InputSource& source) {
    const xercesc::Wrapper4InputSource input(const_cast<xercesc::InputSource*>(&source), false);
    DocumentPointer document(parse(&input));
    refuseEmptiness(!document || document->getDocumentElement() == nullptr);
    return document;
}

void StrictParser::error(const unsigned int /*code*/, const XMLCh* const /*domain*/,
                         const xercesc::XMLErrorReporter::ErrTypes type, const XMLCh* const text,
                         const XMLCh* const /*systemId*/, const XMLCh* const /*publicId*/, const XMLFileLoc line,
                         const XMLFileLoc column) {
    if (type != xercesc::XMLErrorReporter::ErrType_Warning) throw ParseFailure(line, column, fromUtf16(view(text)));
}

void StrictParser::doctypeDecl(const xercesc::DTDElementDecl& /*declaration*/, const XMLCh* const /*publicId*/,
                               const XMLCh* const /*systemId*/, const bool /*hasInternalSubset*/,
                               const bool /*hasExternalSubset*/) {
    refuse(L"A document type is not allowed");
}

void StrictParser::XMLDecl(const XMLCh* const version, const XMLCh* const encoding, const XMLCh* const standalone,
                           const XMLCh* const actualEncoding) {
    refuseOtherVersions(version);
    DOMLSParserImpl::XMLDecl(version, encoding, standalone, actualEncoding);
}

void StrictParser::startElement(const xercesc::XMLElementDecl& declaration, const unsigned int uri,
                                const XMLCh* const prefix, const xercesc::RefVectorOf<xercesc::XMLAttr>& attributes,
                                const XMLSize_t attributeCount, const bool isEmpty, const bool isRoot) {
    enterLevel();
    const bool isPlain = attributeCount == 0 && uri == getScanner()->getEmptyNamespaceId();
    if (!isPlain || isRoot)
        return DOMLSParserImpl::startElement(declaration, uri, prefix, attributes, attributeCount, isEmpty, isRoot);
    enter(declaration.getBaseName());
    if (isEmpty) endElement(declaration, uri, isRoot, prefix);
}

void StrictParser::endElement(const xercesc::XMLElementDecl& declaration, const unsigned int uri, const bool isRoot,
                              const XMLCh* const prefix) {
    leaveLevel();
    DOMLSParserImpl::endElement(declaration, uri, isRoot, prefix);
}

void StrictParser::enterLevel() {
    if (++m_depth > maximumDepth) refuse(L"Elements are nested too deeply");
}

void StrictParser::enter(const XMLCh* const name) {
    xercesc::DOMElement* const element = createElementNS(nullptr, nullptr, name, name);
    append(static_cast<xercesc::DOMElement&>(*fCurrentParent), *element);
    fCurrentParent = fCurrentNode = element;
}

void StrictParser::refuseOtherVersions(const XMLCh* const version) const {
    // The parser reads "1.2" and the tree throws at it, without a place.
    if (view(version) != u"1.0" && view(version) != u"1.1") refuse(L"This version of XML is not supported");
}

void StrictParser::refuseEmptiness(const bool isEmpty) {
    if (isEmpty) throw ParseFailure(1, 1, L"There is no document element");
}

void StrictParser::refuse(const wchar_t* const reason) const {
    const xercesc::Locator* place = getScanner()->getLocator();
    throw ParseFailure(place->getLineNumber(), place->getColumnNumber(), reason);
}

}  // namespace XMLConfig::detail
