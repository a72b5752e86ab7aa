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

/// Appends the characters of the first bytes and gives how many bytes those were; 0 where they are wrong or cut.
std::size_t decodeBlock(std::u16string& text, std::string_view bytes, xercesc::XMLTranscoder& transcoder) try {
    std::array<XMLCh, block> units{};
    std::array<unsigned char, block> sizes{};
    XMLSize_t eaten = 0;
    const XMLSize_t count = transcoder.transcodeFrom(reinterpret_cast<const XMLByte*>(bytes.data()), bytes.size(),
                                                     units.data(), block, eaten, sizes.data());
    text.append(units.begin(), units.begin() + count);
    return eaten;
} catch (const xercesc::XMLException&) {
    return 0;
}

/// The characters up to bytes that are wrong or cut.
std::u16string decoded(std::string_view bytes, xercesc::XMLTranscoder& transcoder) {
    std::u16string text;
    for (std::size_t size = std::min(block, bytes.size()); size > 0;) {
        const std::size_t eaten = decodeBlock(text, bytes.substr(0, size), transcoder);
        bytes.remove_prefix(eaten);
        size = eaten == 0 ? size / 2 : std::min(block, bytes.size());
    }
    return text;
}

std::u16string_view withoutByteOrderMark(std::u16string_view text) {
    return text.substr(text.substr(0, 1) == u"\uFEFF" ? 1 : 0);
}

/// Of an encoding that the first bytes alone tell, the name leaves the order of bytes open.
bool isToldByTheBytes(XMLRecognizer::Encodings family) {
    return family == XMLRecognizer::UTF_16B || family == XMLRecognizer::UTF_16L || family == XMLRecognizer::UCS_4B ||
           family == XMLRecognizer::UCS_4L;
}

XMLRecognizer::Encodings familyOf(std::string_view bytes) {
    return XMLRecognizer::basicEncodingProbe(reinterpret_cast<const XMLByte*>(bytes.data()), bytes.size());
}

/// Reads the characters that a declaration is made of.
Transcoder transcoderForDeclarations(XMLRecognizer::Encodings family) {
    const bool isAscii = !isToldByTheBytes(family) && family != XMLRecognizer::EBCDIC;
    return transcoderFor(isAscii ? XMLRecognizer::US_ASCII : family);
}

/// What the declaration says: `encoding="..."`. "" for none.
std::u16string encodingNamedIn(std::string_view bytes) {
    const Transcoder transcoder = transcoderForDeclarations(familyOf(bytes));
    const std::u16string start = decoded(bytes.substr(0, 4 * block), *transcoder);
    const std::u16string_view text = withoutByteOrderMark(start);
    if (text.substr(0, 5) != u"<?xml") return {};
    const std::u16string_view declaration = text.substr(0, text.find(u"?>"));
    const std::size_t word = declaration.find(u"encoding");
    const std::size_t begin = declaration.find_first_of(u"\"'", std::min(word, declaration.size()));
    if (begin == std::u16string_view::npos) return {};
    const std::size_t end = declaration.find(declaration[begin], begin + 1);
    return std::u16string(declaration.substr(begin + 1, end - begin - 1));
}

/// Null for UTF-8.
Transcoder transcoderOf(std::string_view bytes) {
    const XMLRecognizer::Encodings family = familyOf(bytes);
    if (isToldByTheBytes(family)) return transcoderFor(family);
    const std::u16string name = encodingNamedIn(bytes);
    return name.empty() || detail::equalIgnoringCase(detail::fromUtf16(name), L"UTF-8") ? nullptr : transcoderFor(name);
}

/// UTF-8 is decoded here, since the XML library would end before wrong bytes, of which the message may speak.
std::u16string charactersOf(const std::string& bytes) {
    const Transcoder transcoder = transcoderOf(bytes);
    return transcoder == nullptr ? detail::toUtf16(detail::fromUtf8(bytes)) : decoded(bytes, *transcoder);
}

std::u16string_view lineIn(std::u16string_view text, unsigned long long line) {
    text = withoutByteOrderMark(text);
    for (std::size_t end = text.find_first_of(u"\r\n"); line > 1; end = text.find_first_of(u"\r\n"), --line) {
        if (end == std::u16string_view::npos) return {};
        text.remove_prefix(end + (text.substr(end, 2) == u"\r\n" ? 2 : 1));
    }
    return text.substr(0, text.find_first_of(u"\r\n"));
}

/// What a function makes of bytes with the help of the XML library.
template <typename Function>
std::wstring madeByTheLibrary(const Function& function) {
    detail::startXmlLibrary();
    try {
        return function();
    } catch (...) {
        detail::passShortage();
        throw;
    }
}

}  // namespace

std::wstring textLine(const std::string& bytes, unsigned long long line) {
    if (line == 0) return {};
    return madeByTheLibrary([&] { return detail::fromUtf16(lineIn(charactersOf(bytes), line)); });
}

std::wstring namedEncoding(const std::string& bytes) {
    return madeByTheLibrary([&] { return detail::fromUtf16(encodingNamedIn(bytes)); });
}

}  // namespace XMLConfig
