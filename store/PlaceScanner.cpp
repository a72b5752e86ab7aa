#include "store/PlaceScanner.h"

#include <xercesc/framework/XMLPScanToken.hpp>
#include <xercesc/internal/XMLScanner.hpp>

namespace XMLConfig::detail {

namespace {

const XMLCh* idIn(const xercesc::RefVectorOf<xercesc::XMLAttr>& attributes, XMLSize_t count) {
    for (XMLSize_t i = 0; i < count; ++i)
        if (view(attributes.elementAt(i)->getQName()) == u"ID") return attributes.elementAt(i)->getValue();
    return nullptr;
}

std::u16string tagOf(const xercesc::XMLElementDecl& declaration, const XMLCh* prefix) {
    std::u16string tag(view(prefix));
    if (!tag.empty()) tag += u':';
    return tag += view(declaration.getBaseName());
}

}  // namespace

void PlaceScanner::scan(const xercesc::InputSource& source) {
    xercesc::XMLPScanToken token;
    bool isGoing = parseFirst(source, token);
    const xercesc::Locator* const place = getScanner()->getLocator();
    while (isGoing) {
        m_next = {place->getLineNumber(), place->getColumnNumber()};
        isGoing = parseNext(token);
    }
    refuseEmptiness(m_elements.empty());
}

void PlaceScanner::startElement(const xercesc::XMLElementDecl& declaration, const unsigned int uri,
                                const XMLCh* const prefix, const xercesc::RefVectorOf<xercesc::XMLAttr>& attributes,
                                const XMLSize_t attributeCount, const bool isEmpty, const bool isRoot) {
    enterLevel(attributeCount);
    const std::u16string& identity =
        *m_identities.insert(identityOf(tagOf(declaration, prefix), idIn(attributes, attributeCount))).first;
    m_elements.push_back({&identity, m_next, 0, 0});
    if (!m_open.empty()) join(m_elements.size() - 1);
    m_open.push_back({m_elements.size() - 1, 0});
    if (isEmpty) PlaceScanner::endElement(declaration, uri, isRoot, prefix);
}

void PlaceScanner::join(std::size_t added) {
    Open& around = m_open.back();
    if (around.lastChild == 0) m_elements[around.element].firstChild = added;
    else m_elements[around.lastChild].next = added;
    around.lastChild = added;
}

void PlaceScanner::endElement(const xercesc::XMLElementDecl& /*declaration*/, const unsigned int /*uri*/,
                              const bool /*isRoot*/, const XMLCh* const /*prefix*/) {
    leaveLevel();
    m_open.pop_back();
}

void PlaceScanner::docCharacters(const XMLCh* /*text*/, const XMLSize_t /*length*/, const bool /*isCdata*/) {}
void PlaceScanner::docComment(const XMLCh* /*text*/) {}
void PlaceScanner::docPI(const XMLCh* const target, const XMLCh* /*data*/) { checkTarget(target); }
void PlaceScanner::startDocument() { beginText(); }
void PlaceScanner::endDocument() { checkEnd(); }

void PlaceScanner::XMLDecl(const XMLCh* const version, const XMLCh* const /*encoding*/, const XMLCh* const /*standalone*/,
                           const XMLCh* const /*actualEncoding*/) {
    refuseOtherVersions(version);
}

}  // namespace XMLConfig::detail
