#include "store/DocumentParser.h"

#include <atomic>
#include <functional>
#include <utility>
#include <xercesc/framework/XMLPScanToken.hpp>
#include <xercesc/internal/XMLScanner.hpp>
#include <xercesc/sax/InputSource.hpp>
#include <xercesc/util/BinInputStream.hpp>

#include "platform/Files.h"
#include "store/ContentHash.h"
#include "store/ElementPlaces.h"
#include "store/ParseFailure.h"
#include "store/StrictParser.h"

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

/// Whether there are bytes that in UTF-8 would begin a character beyond the last one. The XML library mostly leaves such a
/// character out and reports nothing.
bool beginBeyondUnicode(std::string_view bytes) {
    const auto hold = [bytes](char byte) { return bytes.find(byte) != std::string_view::npos; };
    return hold('\xF5') || hold('\xF6') || hold('\xF7');
}

/// Hands bytes to the parser as they are read, so that a file is never in memory as a whole.
class Source : public xercesc::InputSource {
public:
    using Read = std::function<std::size_t(void* buffer, std::size_t size)>;
    /// `open` gives what reads the text from its start; it is asked once for each parse.
    explicit Source(std::function<Read()> open) : m_open(std::move(open)) {}
    xercesc::BinInputStream* makeStream() const override {
        m_end = {};
        m_contentHash = {};
        m_isBeyondUnicode = false;
        m_read = m_open();  // the stream may be lost where memory runs out, and must hold no file then
        return new Stream(*this);
    }
    /// Of the last parse.
    [[nodiscard]] const EndOfBytes& end() const { return m_end; }
    [[nodiscard]] std::uint64_t contentHash() const { return m_contentHash.value(); }
    /// Whether it would hold a character beyond the last one if it were UTF-8.
    [[nodiscard]] bool isBeyondUnicode() const { return m_isBeyondUnicode; }
    /// The bytes of the last parse, read again.
    [[nodiscard]] std::string bytes() const {
        const Read read = m_open();
        std::string bytes(m_end.size(), '\0');
        std::size_t size = 0;
        while (const std::size_t count = read(bytes.data() + size, bytes.size() - size)) size += count;
        bytes.resize(size);
        return bytes;
    }

private:
    class Stream : public xercesc::BinInputStream {
    public:
        explicit Stream(const Source& source) : m_source(source) {}
        XMLFilePos curPos() const override { return m_source.m_end.size(); }
        XMLSize_t readBytes(XMLByte* const buffer, const XMLSize_t size) override {
            const XMLSize_t count = m_source.m_read(buffer, size);
            m_source.m_end.asked(size, count);
            const std::string_view bytes(reinterpret_cast<const char*>(buffer), count);
            m_source.m_contentHash.add(bytes);
            m_source.m_isBeyondUnicode = m_source.m_isBeyondUnicode || beginBeyondUnicode(bytes);
            return count;
        }
        const XMLCh* getContentType() const override { return nullptr; }

    private:
        const Source& m_source;
    };

    std::function<Read()> m_open;
    mutable Read m_read;
    mutable EndOfBytes m_end;
    mutable ContentHash m_contentHash;
    mutable bool m_isBeyondUnicode = false;
};

Source sourceOfFile(const std::wstring& path) {
    return Source([path] {
        return
            [file = std::make_shared<FileReader>(path)](void* buffer, std::size_t size) { return file->read(buffer, size); };
    });
}

/// The bytes stay the caller's.
Source sourceOfBytes(std::string_view bytes) {
    return Source([bytes] {
        return [rest = bytes](void* buffer, std::size_t size) mutable {
            const std::size_t count = rest.copy(static_cast<char*>(buffer), size);
            rest.remove_prefix(count);
            return count;
        };
    });
}

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

ParsedTree parse(StrictParser& parser, const Source& source) try {
    DocumentPointer document = parser.parseDocument(source);
    if (source.isBeyondUnicode() && isUtf8(document->getInputEncoding()))
        throw WrongBytes(1, 1, L"invalid multi-byte sequence");
    if (source.end().isInsideCharacter()) parser.refuseEnd(L"The last character is incomplete");
    return {std::move(document),  parser.takeComments(), parser.names(),
            source.contentHash(), parser.levels(),       parser.namespaces()};
} catch (const WrongBytes& failure) {
    failure.throwWithPlaceIn(source.bytes());
}

ParsedTree parse(std::unique_ptr<StrictParser> parser, const Source& source) {
    ParsedTree parsed = parse(*parser, source);
    if (parser->isFitForMore(source.end().size())) parser.reset(spareParser.exchange(parser.release()));
    return parsed;
}

/// What a parser refuses that has read other texts before is left to a new one, which may know fewer names.
ParsedTree parse(const Source& source) {
    if (std::unique_ptr<StrictParser> spare{spareParser.exchange(nullptr)}) {
        try {
            return parse(std::move(spare), source);
        } catch (const ParseFailure&) {  // told below
        }
    }
    return parse(std::make_unique<StrictParser>(), source);
}

}  // namespace

ParsedTree parseFile(const std::wstring& path) { return parse(sourceOfFile(path)); }

ParsedTree parseFileWithPlaces(const std::wstring& path) {
    const auto places = std::make_shared<ElementPlaces>();
    PlacingParser parser(*places);
    ParsedTree parsed = parse(parser, sourceOfFile(path));
    places->contentHash = parsed.contentHash;
    parsed.places = places;
    return parsed;
}

ParsedTree parseBytes(const std::string& bytes) { return parse(sourceOfBytes(bytes)); }

ParsedTree parseElement(const std::string& text) {
    Source source = sourceOfBytes(text);
    source.setEncoding(xercesc::XMLUni::fgUTF8EncodingString);  // whatever a declaration within the text names
    ParsedTree parsed = parse(source);
    // XML 1.1 allows characters and names that a document, being XML 1.0, could not be read with again.
    if (view(parsed.document->getXmlVersion()) == u"1.1") throw ParseFailure(1, 1, L"XML 1.1 is not allowed here");
    return parsed;
}

}  // namespace XMLConfig::detail
