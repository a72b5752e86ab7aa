#include "store/DocumentParser.h"

#include <atomic>
#include <functional>
#include <utility>
#include <xercesc/framework/XMLPScanToken.hpp>
#include <xercesc/internal/XMLScanner.hpp>
#include <xercesc/sax/InputSource.hpp>
#include <xercesc/util/BinInputStream.hpp>

#include "platform/Files.h"
#include "platform/Numbers.h"
#include "store/ContentHash.h"
#include "store/StrictParser.h"
#include "store/Utf8Place.h"

namespace XMLConfig::detail {

namespace {

/// Counts the bytes that were read and tells whether they end inside a character. The XML library ignores the bytes of such
/// a character and reports nothing. It gives itself away by what it asks for: it keeps those bytes in its buffer, so that
/// the last time, when it gets nothing, it asks for fewer bytes than the first time.
class EndOfBytes {
public:
    void asked(XMLSize_t room, XMLSize_t given) {
        if (m_firstRoom == 0) m_firstRoom = room;
        if (given == 0) m_lastRoom = room;
        m_size += given;
    }
    [[nodiscard]] XMLFilePos size() const { return m_size; }
    [[nodiscard]] bool isInsideCharacter() const { return m_lastRoom < m_firstRoom; }

private:
    XMLSize_t m_firstRoom = 0;
    XMLSize_t m_lastRoom = 0;
    XMLFilePos m_size = 0;
};

/// Hands bytes to the parser as they are read, so that a file is never in memory as a whole. Serves one parse only.
class Source : public xercesc::InputSource {
public:
    using Read = std::function<std::size_t(void* buffer, std::size_t size)>;
    explicit Source(Read read) : m_read(std::move(read)) {}
    xercesc::BinInputStream* makeStream() const override { return new Stream(*this); }
    [[nodiscard]] const EndOfBytes& end() const { return m_end; }
    [[nodiscard]] std::uint64_t content() const { return m_content.value(); }

private:
    class Stream : public xercesc::BinInputStream {
    public:
        explicit Stream(const Source& source) : m_source(source) {}
        XMLFilePos curPos() const override { return m_source.m_end.size(); }
        XMLSize_t readBytes(XMLByte* const buffer, const XMLSize_t size) override {
            const XMLSize_t count = m_source.m_read(buffer, size);
            m_source.m_end.asked(size, count);
            m_source.m_content.add({reinterpret_cast<const char*>(buffer), count});
            return count;
        }
        const XMLCh* getContentType() const override { return nullptr; }

    private:
        const Source& m_source;
    };

    Read m_read;
    mutable EndOfBytes m_end;
    mutable ContentHash m_content;
};

std::unique_ptr<Source> sourceOfFile(const std::wstring& path) {
    return std::make_unique<Source>(
        [file = std::make_shared<FileReader>(path)](void* buffer, std::size_t size) { return file->read(buffer, size); });
}

/// The bytes stay the caller's.
std::unique_ptr<Source> sourceOfBytes(std::string_view bytes) {
    return std::make_unique<Source>([bytes](void* buffer, std::size_t size) mutable {
        const std::size_t count = bytes.copy(static_cast<char*>(buffer), size);
        bytes.remove_prefix(count);
        return count;
    });
}

}  // namespace

ParseFailure::ParseFailure(unsigned long long line, unsigned long long column, const std::wstring& reason)
    : std::runtime_error("malformed XML"),
      m_message(L"line " + formatInteger(static_cast<long long>(line)) + L", column " +
                formatInteger(static_cast<long long>(column)) + L": " + reason) {}

WrongBytes::WrongBytes(unsigned long long line, unsigned long long column, const std::wstring& reason)
    : ParseFailure(line, column, reason), m_reason(reason) {}

void WrongBytes::throwWithPlaceInFile(const std::wstring& path) const {
    FileReader file(path);
    Utf8Place place;
    char buffer[64 * 1024];
    while (const std::size_t count = file.read(buffer, sizeof buffer)) {
        if (!place.take({buffer, count})) throw ParseFailure(place.line(), place.column(), m_reason);
    }
    throw ParseFailure(*this);
}

void WrongBytes::throwWithPlaceIn(const std::string& bytes) const {
    Utf8Place place;
    if (!place.take(bytes)) throw ParseFailure(place.line(), place.column(), m_reason);
    throw ParseFailure(*this);
}

namespace {

/// A start tag begins where the piece of markup before it ends.
class PlacingParser : public StrictParser {
public:
    explicit PlacingParser(ElementPlaces& places) : m_places(places) {}

private:
    void scan(const xercesc::InputSource& source) override {
        xercesc::XMLPScanToken token;
        bool isGoing = scanFirst(source, token);
        while (isGoing) {
            const xercesc::XMLReader& reader = *getScanner()->getReaderMgr()->getCurrentReader();
            m_next = {reader.getLineNumber(), reader.getColumnNumber()};
            isGoing = parseNext(token);
        }
    }
    /// What the library finds wrong with the very first bytes it reports only where it parses all at once.
    bool scanFirst(const xercesc::InputSource& source, xercesc::XMLPScanToken& token) try {
        return parseFirst(source, token);
    } catch (const xercesc::XMLException& exception) {
        error(static_cast<unsigned int>(exception.getCode()), xercesc::XMLUni::fgExceptDomain, ErrType_Fatal,
              exception.getMessage(), nullptr, nullptr, 0, 0);
        return false;
    }
    void startElement(const xercesc::XMLElementDecl& declaration, unsigned int uri, const XMLCh* prefix,
                      const xercesc::RefVectorOf<xercesc::XMLAttr>& attributes, XMLSize_t attributeCount, bool isEmpty,
                      bool isRoot) override {
        StrictParser::startElement(declaration, uri, prefix, attributes, attributeCount, isEmpty, isRoot);
        m_places.byElement.emplace(static_cast<const xercesc::DOMElement*>(fCurrentNode), m_next);
    }

    FilePlace m_next;  // of the piece of markup that is read next
    ElementPlaces& m_places;
};

/// Making a parser takes as long as reading a small file, so a parser that met no fault is kept for the next load in any
/// thread. It is never freed, since an application may load a file while the process ends.
std::atomic<StrictParser*> spareParser = nullptr;

ParsedTree parse(StrictParser& parser, const Source& source) {
    DocumentPointer document = parser.parseDocument(source);
    if (source.end().isInsideCharacter()) parser.refuseEnd(L"The last character is incomplete");
    return {std::move(document), parser.takeComments(), source.content(), parser.levels(), parser.namespaces()};
}

ParsedTree parse(std::unique_ptr<StrictParser> parser, const Source& source) {
    ParsedTree parsed = parse(*parser, source);
    if (parser->isFitForMore(source.end().size())) parser.reset(spareParser.exchange(parser.release()));
    return parsed;
}

/// What a parser refuses that has read other texts before is left to a new one, which may know fewer names.
ParsedTree parse(const std::function<std::unique_ptr<Source>()>& source) {
    if (std::unique_ptr<StrictParser> spare{spareParser.exchange(nullptr)}) {
        try {
            return parse(std::move(spare), *source());
        } catch (const ParseFailure&) {  // told below
        }
    }
    return parse(std::make_unique<StrictParser>(), *source());
}

}  // namespace

ParsedTree parseFile(const std::wstring& path) {
    try {
        return parse([&] { return sourceOfFile(path); });
    } catch (const WrongBytes& failure) {
        failure.throwWithPlaceInFile(path);
    }
}

ParsedTree parseFileWithPlaces(const std::wstring& path) {
    try {
        const auto places = std::make_shared<ElementPlaces>();
        PlacingParser parser(*places);
        ParsedTree parsed = parse(parser, *sourceOfFile(path));
        places->content = parsed.content;
        parsed.places = places;
        return parsed;
    } catch (const WrongBytes& failure) {
        failure.throwWithPlaceInFile(path);
    }
}

ParsedTree parseBytes(const std::string& bytes) {
    try {
        return parse([&] { return sourceOfBytes(bytes); });
    } catch (const WrongBytes& failure) {
        failure.throwWithPlaceIn(bytes);
    }
}

ParsedTree parseElement(const std::string& text) {
    ParsedTree parsed = parse([&] {
        auto source = sourceOfBytes(text);
        source->setEncoding(xercesc::XMLUni::fgUTF8EncodingString);  // whatever a declaration within the text names
        return source;
    });
    // XML 1.1 allows characters and names that a document, being XML 1.0, could not be read with again.
    if (view(parsed.document->getXmlVersion()) == u"1.1") throw ParseFailure(1, 1, L"XML 1.1 is not allowed here");
    return parsed;
}

}  // namespace XMLConfig::detail
