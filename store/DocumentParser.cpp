#include "store/DocumentParser.h"

#include <atomic>
#include <utility>
#include <xercesc/util/BinMemInputStream.hpp>

#include "platform/Files.h"
#include "platform/Numbers.h"
#include "store/CharacterSource.h"
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

/// Making a parser takes as long as reading a small file, so a parser that met no fault is kept for the next load in any
/// thread. One that read a larger file than this is not kept, because it holds much memory. The parser that is kept is never
/// freed, since an application may load a file while the process ends.
constexpr XMLFilePos largestForSpare = 1024 * 1024;
std::atomic<StrictParser*> spareParser = nullptr;

/// Hands a file of any name to the parser as it is read, so that it is never in memory as a whole.
class FileStream : public xercesc::BinInputStream {
public:
    FileStream(FileReader& file, EndOfBytes& end, ContentHash& content) : m_file(file), m_end(end), m_content(content) {}
    XMLFilePos curPos() const override { return m_position; }
    XMLSize_t readBytes(XMLByte* const buffer, const XMLSize_t size) override {
        const XMLSize_t count = m_file.read(buffer, size);
        m_end.asked(size, count);
        m_position += count;
        m_content.add({reinterpret_cast<const char*>(buffer), count});
        return count;
    }
    const XMLCh* getContentType() const override { return nullptr; }

private:
    FileReader& m_file;
    EndOfBytes& m_end;
    ContentHash& m_content;
    XMLFilePos m_position = 0;
};

/// Serves one parse only.
class FileSource : public xercesc::InputSource {
public:
    explicit FileSource(const std::wstring& path) : m_path(path) {}
    xercesc::BinInputStream* makeStream() const override {
        m_file = std::make_unique<FileReader>(m_path);
        return new FileStream(*m_file, m_end, m_content);
    }
    [[nodiscard]] const EndOfBytes& end() const { return m_end; }
    [[nodiscard]] const ContentHash& content() const { return m_content; }

private:
    std::wstring m_path;
    mutable std::unique_ptr<FileReader> m_file;  // not the stream's, which the parser loses when memory runs out
    mutable EndOfBytes m_end;
    mutable ContentHash m_content;
};

/// The bytes stay the caller's.
class BytesSource : public xercesc::InputSource {
public:
    explicit BytesSource(const std::string& bytes) : m_bytes(bytes) {}
    xercesc::BinInputStream* makeStream() const override { return new Stream(m_bytes, m_end); }
    [[nodiscard]] const EndOfBytes& end() const { return m_end; }

private:
    class Stream : public xercesc::BinMemInputStream {
    public:
        Stream(const std::string& bytes, EndOfBytes& end)
            : BinMemInputStream(reinterpret_cast<const XMLByte*>(bytes.data()), bytes.size(), BufOpt_Reference),
              m_end(end) {}
        XMLSize_t readBytes(XMLByte* const buffer, const XMLSize_t size) override {
            const XMLSize_t count = BinMemInputStream::readBytes(buffer, size);
            m_end.asked(size, count);
            return count;
        }

    private:
        EndOfBytes& m_end;
    };

    const std::string& m_bytes;
    mutable EndOfBytes m_end;
};

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

std::unique_ptr<xercesc::InputSource> fileSource(const std::wstring& path) { return std::make_unique<FileSource>(path); }

namespace {

std::unique_ptr<StrictParser> takeParser() {
    std::unique_ptr<StrictParser> parser(spareParser.exchange(nullptr));
    return parser != nullptr ? std::move(parser) : std::make_unique<StrictParser>();
}

void giveBack(std::unique_ptr<StrictParser> parser, XMLFilePos sizeOfFile) {
    if (sizeOfFile <= largestForSpare && parser->isFitForMore()) parser.reset(spareParser.exchange(parser.release()));
}

ParsedTree parsedBy(StrictParser& parser, const xercesc::InputSource& source) {
    DocumentPointer document = parser.parseDocument(source);
    return {std::move(document), parser.takeComments()};
}

ParsedTree parse(const CharacterSource& source, ContentHash& content) {
    std::unique_ptr<StrictParser> parser = takeParser();
    ParsedTree tree = parsedBy(*parser, source);
    giveBack(std::move(parser), source.size());
    content = source.content();
    return tree;
}

void refuseCutEnd(const EndOfBytes& end, const StrictParser& parser) {
    if (end.isInsideCharacter()) parser.refuseEnd(L"The last character is incomplete");
}

ParsedTree parse(const FileSource& source, ContentHash& content) {
    std::unique_ptr<StrictParser> parser = takeParser();
    ParsedTree tree = parsedBy(*parser, source);
    refuseCutEnd(source.end(), *parser);
    giveBack(std::move(parser), source.end().size());
    content = source.content();
    return tree;
}

/// Without a document where the file must be left to the library as the bytes that it has.
ParsedTree parseAsCharacters(const std::wstring& path, ContentHash& content) {
    const CharacterSource source(path);
    if (!source.isUtf8()) return {};
    try {
        return parse(source, content);
    } catch (const ParseFailure&) {  // the library tells the first fault, which may be one of the bytes
        return {};
    }
}

}  // namespace

ParsedTree parseFile(const std::wstring& path, ContentHash& content) {
    if (ParsedTree tree = parseAsCharacters(path, content); tree.document) return tree;
    try {
        return parse(FileSource(path), content);
    } catch (const WrongBytes& failure) {
        failure.throwWithPlaceInFile(path);
    }
}

ParsedTree parseBytes(const std::string& bytes) {
    const BytesSource source(bytes);
    std::unique_ptr<StrictParser> parser = takeParser();
    try {
        ParsedTree tree = parsedBy(*parser, source);
        refuseCutEnd(source.end(), *parser);
        giveBack(std::move(parser), bytes.size());
        return tree;
    } catch (const WrongBytes& failure) {
        failure.throwWithPlaceIn(bytes);
    }
}

ParsedElement parseElement(const std::string& text) {
    BytesSource source(text);
    source.setEncoding(xercesc::XMLUni::fgUTF8EncodingString);  // whatever a declaration within the text names
    std::unique_ptr<StrictParser> parser = takeParser();
    ParsedElement made{parser->parseDocument(source), parser->levels(), parser->namespaces()};
    // XML 1.1 allows characters and names that a document, being XML 1.0, could not be read with again.
    if (view(made.document->getXmlVersion()) == u"1.1") throw ParseFailure(1, 1, L"XML 1.1 is not allowed here");
    giveBack(std::move(parser), text.size());
    return made;
}

}  // namespace XMLConfig::detail
