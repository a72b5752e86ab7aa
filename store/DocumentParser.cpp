#include "store/DocumentParser.h"

#include <algorithm>
#include <memory>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/framework/Wrapper4InputSource.hpp>
#include <xercesc/internal/XMLScanner.hpp>
#include <xercesc/parsers/DOMLSParserImpl.hpp>
#include <xercesc/util/BinInputStream.hpp>

#include "platform/Files.h"
#include "platform/Numbers.h"
#include "platform/Text.h"

namespace XMLConfig::detail {

namespace {

/// Hands a file of any name to the parser as it is read, so that it is never in memory as a whole.
class FileStream : public xercesc::BinInputStream {
public:
    explicit FileStream(const std::wstring& path) : m_file(path) {}
    XMLFilePos curPos() const override { return m_position; }
    XMLSize_t readBytes(XMLByte* const buffer, const XMLSize_t size) override {
        const XMLSize_t count = m_file.read(buffer, size);
        m_position += count;
        return count;
    }
    const XMLCh* getContentType() const override { return nullptr; }

private:
    FileReader m_file;
    XMLFilePos m_position = 0;
};

class FileSource : public xercesc::InputSource {
public:
    explicit FileSource(const std::wstring& path) : m_path(path) {}
    xercesc::BinInputStream* makeStream() const override { return new FileStream(m_path); }

private:
    std::wstring m_path;
};

/// The XML library's parser never says that text is malformed unless it is asked; this one stops at the first fault.
class StrictParser : public xercesc::DOMLSParserImpl {
public:
    StrictParser() {
        setParameter(xercesc::XMLUni::fgDOMDatatypeNormalization, true);
        setParameter(xercesc::XMLUni::fgXercesUserAdoptsDOMDocument, true);
        getScanner()->setErrorReporter(this);  // without an error handler the library would not report at all
    }

    ParsedDocument parseStrictly(const xercesc::InputSource& source) {
        const xercesc::Wrapper4InputSource input(const_cast<xercesc::InputSource*>(&source), false);
        m_depth = m_deepest = 0;
        ParsedDocument parsed{DocumentPointer(parse(&input)), m_deepest};
        if (!parsed.document || parsed.document->getDocumentElement() == nullptr) {
            throw ParseFailure(1, 1, L"There is no document element");
        }
        return parsed;
    }

    void error(const unsigned int, const XMLCh* const, const xercesc::XMLErrorReporter::ErrTypes type,
               const XMLCh* const text, const XMLCh* const, const XMLCh* const, const XMLFileLoc line,
               const XMLFileLoc column) override {
        if (type != xercesc::XMLErrorReporter::ErrType_Warning) throw ParseFailure(line, column, fromUtf16(view(text)));
    }

    void doctypeDecl(const xercesc::DTDElementDecl&, const XMLCh* const, const XMLCh* const, const bool,
                     const bool) override {
        refuse(L"A document type is not allowed");
    }

    void XMLDecl(const XMLCh* const version, const XMLCh* const encoding, const XMLCh* const standalone,
                 const XMLCh* const actualEncoding) override {
        // The parser reads "1.2" and the tree throws at it, without a place.
        if (view(version) != u"1.0" && view(version) != u"1.1") refuse(L"This version of XML is not supported");
        DOMLSParserImpl::XMLDecl(version, encoding, standalone, actualEncoding);
    }

    void startElement(const xercesc::XMLElementDecl& declaration, const unsigned int uri, const XMLCh* const prefix,
                      const xercesc::RefVectorOf<xercesc::XMLAttr>& attributes, const XMLSize_t attributeCount,
                      const bool isEmpty, const bool isRoot) override {
        if (++m_depth > maximumDepth) refuse(L"Elements are nested too deeply");
        m_deepest = std::max(m_deepest, m_depth);
        DOMLSParserImpl::startElement(declaration, uri, prefix, attributes, attributeCount, isEmpty, isRoot);
    }

    void endElement(const xercesc::XMLElementDecl& declaration, const unsigned int uri, const bool isRoot,
                    const XMLCh* const prefix) override {
        --m_depth;
        DOMLSParserImpl::endElement(declaration, uri, isRoot, prefix);
    }

private:
    [[noreturn]] void refuse(const wchar_t* reason) const {
        const xercesc::Locator* place = getScanner()->getLocator();
        throw ParseFailure(place->getLineNumber(), place->getColumnNumber(), reason);
    }

    int m_depth = 0;
    int m_deepest = 0;
};

}  // namespace

ParseFailure::ParseFailure(unsigned long long line, unsigned long long column, const std::wstring& reason)
    : std::runtime_error("malformed XML"),
      m_message(L"line " + formatInteger(static_cast<long long>(line)) + L", column " +
                formatInteger(static_cast<long long>(column)) + L": " + reason) {}

ParsedDocument parseFile(const std::wstring& path) { return StrictParser().parseStrictly(FileSource(path)); }

struct FragmentParser::Parser : StrictParser {};

FragmentParser::FragmentParser() : m_parser(std::make_unique<Parser>()) {}

FragmentParser::~FragmentParser() = default;

ParsedDocument FragmentParser::parse(const std::string& text) {
    xercesc::MemBufInputSource source(reinterpret_cast<const XMLByte*>(text.data()), text.size(), xmlText(u"tmpSrc"));
    source.setEncoding(xmlText(u"UTF-8"));  // whatever a declaration within the text names
    ParsedDocument parsed = m_parser->parseStrictly(source);
    // XML 1.1 allows characters and names that the document, being XML 1.0, could not be read with again.
    if (view(parsed.document->getXmlVersion()) == u"1.1") throw ParseFailure(1, 1, L"XML 1.1 is not allowed here");
    return parsed;
}

ParsedDocument parseFragment(const std::string& text) { return FragmentParser().parse(text); }

}  // namespace XMLConfig::detail
