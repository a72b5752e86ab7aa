#include "store/TextLine.h"

#include <algorithm>
#include <array>
#include <memory>
#include <string_view>
#include <xercesc/framework/XMLRecognizer.hpp>
#include <xercesc/util/TransService.hpp>
#include <xercesc/util/XMLException.hpp>

#include "platform/Text.h"
#include "store/XmlLibrary.h"

namespace XMLConfig {
namespace {

using xercesc::XMLRecognizer;
using Transcoder = std::unique_ptr<xercesc::XMLTranscoder>;

// A transcoder refuses a block with wrong bytes as a whole: the smaller the blocks, the less is tried again.
constexpr std::size_t block = 256;

Transcoder transcoderFor(XMLRecognizer::Encodings encoding) {
    xercesc::XMLTransService::Codes result{};
    return Transcoder(xercesc::XMLPlatformUtils::fgTransService->makeNewTranscoderFor(encoding, result, block));
}

Transcoder transcoderFor(const std::u16string& encoding) {
    xercesc::XMLTransService::Codes result{};
    return Transcoder(
        xercesc::XMLPlatformUtils::fgTransService->makeNewTranscoderFor(detail::xmlText(encoding), result, block));
}

/// Bytes as characters, from the front; none where the next ones are wrong or cut.
class Characters {
public:
    Characters(std::string_view bytes, Transcoder transcoder) : m_bytes(bytes), m_transcoder(std::move(transcoder)) {}

    std::u16string_view next() {
        for (std::size_t size = std::min(block, m_bytes.size()); size > 0; size /= 2) {
            const std::size_t count = decode(size);
            if (count > 0) return {m_units.data(), count};
        }
        return {};
    }

private:
    std::size_t decode(std::size_t size) try {
        std::array<unsigned char, block> sizes{};
        XMLSize_t eaten = 0;
        const XMLSize_t count =
            m_transcoder->transcodeFrom(reinterpret_cast<const XMLByte*>(m_bytes.data()), size,
                                        reinterpret_cast<XMLCh*>(m_units.data()), block, eaten, sizes.data());
        m_bytes.remove_prefix(eaten);
        return count;
    } catch (const xercesc::XMLException&) {
        return 0;
    }

    std::string_view m_bytes;
    Transcoder m_transcoder;
    std::array<char16_t, block> m_units{};
};

/// What the declaration says: `encoding="..."`. "" for none.
std::u16string namedEncoding(std::u16string_view start) {
    if (start.substr(0, 5) != u"<?xml") return {};
    const std::u16string_view declaration = start.substr(0, start.find(u"?>"));
    const std::size_t word = declaration.find(u"encoding");
    const std::size_t begin = declaration.find_first_of(u"\"'", std::min(word, declaration.size()));
    if (begin == std::u16string_view::npos) return {};
    const std::size_t end = declaration.find(declaration[begin], begin + 1);
    return std::u16string(declaration.substr(begin + 1, end - begin - 1));
}

/// Of an encoding that the first bytes alone tell, the name leaves the order of bytes open.
bool isToldByTheBytes(XMLRecognizer::Encodings family) {
    return family == XMLRecognizer::UTF_16B || family == XMLRecognizer::UTF_16L || family == XMLRecognizer::UCS_4B ||
           family == XMLRecognizer::UCS_4L;
}

/// Null for UTF-8.
Transcoder transcoderOf(std::string_view bytes) {
    const XMLRecognizer::Encodings family =
        XMLRecognizer::basicEncodingProbe(reinterpret_cast<const XMLByte*>(bytes.data()), bytes.size());
    if (isToldByTheBytes(family)) return transcoderFor(family);
    Characters start(bytes, transcoderFor(family == XMLRecognizer::EBCDIC ? family : XMLRecognizer::US_ASCII));
    const std::u16string name = namedEncoding(start.next());
    return name.empty() || detail::equalIgnoringCase(detail::fromUtf16(name), L"UTF-8") ? nullptr : transcoderFor(name);
}

/// Takes characters and keeps those of one line.
class LineFinder {
public:
    explicit LineFinder(unsigned long long line) : m_linesBefore(line - 1) {}

    /// False where the line is over.
    bool take(std::u16string_view units) {
        return std::all_of(units.begin(), units.end(), [this](char16_t unit) { return take(unit); });
    }
    [[nodiscard]] std::wstring text() const { return detail::fromUtf16(m_text); }

private:
    bool take(char16_t unit) {
        const bool isSecondHalf = unit == u'\n' && m_isAfterReturn;
        m_isAfterReturn = unit == u'\r';
        if (isSecondHalf) return true;
        if (unit == u'\n' || unit == u'\r') return m_linesBefore-- > 0;
        if (m_linesBefore == 0 && !(unit == u'\uFEFF' && m_isAtStart)) m_text += unit;
        m_isAtStart = false;
        return true;
    }

    unsigned long long m_linesBefore;
    std::u16string m_text;
    bool m_isAfterReturn = false;
    bool m_isAtStart = true;
};

/// UTF-8 is decoded here, since the XML library would end before wrong bytes, of which the message may speak.
void takeUtf8(LineFinder& line, const std::string& bytes) {
    std::size_t begin = 0;
    while (begin < bytes.size()) {
        const std::size_t end = std::min(bytes.find_first_of("\r\n", begin), bytes.size() - 1) + 1;
        if (!line.take(detail::toUtf16(detail::fromUtf8(std::string_view(bytes).substr(begin, end - begin))))) return;
        begin = end;
    }
}

std::wstring lineIn(const std::string& bytes, unsigned long long line) {
    LineFinder finder(line);
    Transcoder transcoder = transcoderOf(bytes);
    if (transcoder == nullptr) {
        takeUtf8(finder, bytes);
        return finder.text();
    }
    Characters characters(bytes, std::move(transcoder));
    for (std::u16string_view units = characters.next(); !units.empty() && finder.take(units);) units = characters.next();
    return finder.text();
}

}  // namespace

std::wstring textLine(const std::string& bytes, unsigned long long line) {
    if (line == 0) return {};
    detail::startXmlLibrary();
    try {
        return lineIn(bytes, line);
    } catch (...) {
        detail::passShortage();
        throw;
    }
}

}  // namespace XMLConfig
