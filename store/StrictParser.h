#pragma once

#include <xercesc/parsers/DOMLSParserImpl.hpp>

#include "store/XmlLibrary.h"

namespace XMLConfig::detail {

/// The XML library's parser, which never says that text is malformed unless it is asked. This one stops at the first fault
/// with a ParseFailure, and must be thrown away then. It opens no other file. Elements without attributes and namespace, as
/// most are, it joins to the tree by their links (see TreeLinks.h): the library takes longer to join than to read them.
class StrictParser : public xercesc::DOMLSParserImpl {
public:
    StrictParser();

    /// What it gives has a document element.
    DocumentPointer parseDocument(const xercesc::InputSource& source);

    void error(unsigned int code, const XMLCh* domain, xercesc::XMLErrorReporter::ErrTypes type, const XMLCh* text,
               const XMLCh* systemId, const XMLCh* publicId, XMLFileLoc line, XMLFileLoc column) override;
    void doctypeDecl(const xercesc::DTDElementDecl& declaration, const XMLCh* publicId, const XMLCh* systemId,
                     bool hasInternalSubset, bool hasExternalSubset) override;
    void XMLDecl(const XMLCh* version, const XMLCh* encoding, const XMLCh* standalone, const XMLCh* actualEncoding) override;
    void startElement(const xercesc::XMLElementDecl& declaration, unsigned int uri, const XMLCh* prefix,
                      const xercesc::RefVectorOf<xercesc::XMLAttr>& attributes, XMLSize_t attributeCount, bool isEmpty,
                      bool isRoot) override;
    void endElement(const xercesc::XMLElementDecl& declaration, unsigned int uri, bool isRoot, const XMLCh* prefix) override;

protected:
    [[nodiscard]] int depth() const { return m_depth; }
    /// To be called at each start and end of an element by those who do not call this class's own functions for them.
    void enterLevel();
    void leaveLevel() { --m_depth; }
    void refuseOtherVersions(const XMLCh* version) const;
    static void refuseEmptiness(bool isEmpty);

private:
    void enter(const XMLCh* name);
    [[noreturn]] void refuse(const wchar_t* reason) const;

    int m_depth = 0;
};

}  // namespace XMLConfig::detail
