#include "store/TagScanner.h"

#include <algorithm>
#include <array>

#include "platform/Text.h"
#include "platform/Utf8.h"
#include "store/Attributes.h"

namespace XMLConfig::detail {

namespace {

constexpr std::size_t blockSize = 256;
constexpr std::size_t none = std::string_view::npos;

bool isBlank(char character) { return character == ' ' || character == '\t' || character == '\n' || character == '\r'; }

constexpr std::array<bool, 256> nameEnds() {
    std::array<bool, 256> ends{};
    for (const char character : {' ', '\t', '\n', '\r', '>', '/', '='}) ends[static_cast<unsigned char>(character)] = true;
    return ends;
}
bool endsName(char character) {
    static constexpr std::array<bool, 256> ends = nameEnds();
    return ends[static_cast<unsigned char>(character)];
}

bool isASCII(char character) { return static_cast<unsigned char>(character) < 0x80U; }

std::size_t endOfName(std::string_view text, std::size_t at) {
    while (at < text.size() && !endsName(text[at])) ++at;
    return at;
}

struct Attribute {
    std::string_view name;
    std::string_view value;
};

/// Reads the attribute at a place in a tag, or after blanks there, and passes it; nothing where the tag ends or the
/// text is none that was promised.
std::optional<Attribute> nextAttribute(std::string_view text, std::size_t& at) {
    if (at < text.size() && text[at] == '>') return std::nullopt;
    while (at < text.size() && isBlank(text[at])) ++at;
    const std::size_t nameEnd = endOfName(text, at);
    if (nameEnd == at) return std::nullopt;
    const std::size_t begin = text.find_first_of("\"'", nameEnd);
    if (begin == none) return std::nullopt;
    const std::size_t end = text.find(text[begin], begin + 1);
    if (end == none) return std::nullopt;
    const Attribute attribute{text.substr(at, nameEnd - at), text.substr(begin + 1, end - begin - 1)};
    at = end + 1;
    return attribute;
}

bool isUtf8Name(std::string_view name) {
    const std::string_view wanted = "utf-8";
    const auto isSame = [](char a, char b) { return (a >= 'A' && a <= 'Z' ? static_cast<char>(a - 'A' + 'a') : a) == b; };
    return std::equal(name.begin(), name.end(), wanted.begin(), wanted.end(), isSame);
}

/// Whether a text without a declaration, or with that one, is in UTF-8.
bool isInUtf8(std::string_view text) {
    if (text.substr(0, 5) != "<?xml" || text.size() < 6 || !isBlank(text[5])) return text.substr(0, 1) == "<";
    const std::string_view declaration = text.substr(0, text.find("?>"));
    for (std::size_t at = 5; const std::optional<Attribute> attribute = nextAttribute(declaration, at);)
        if (attribute->name == "encoding") return isUtf8Name(attribute->value);
    return true;
}

/// Of at most blockSize bytes; so few that the compiler can count many of them at a time.
std::uint64_t lineEndsIn(std::string_view text) {
    std::uint16_t count = 0;
    for (const char character : text) count = static_cast<std::uint16_t>(count + (character == '\n' ? 1 : 0));
    return count;
}

bool hasLoneReturn(std::string_view text) {
    for (std::size_t at = text.find('\r'); at != none; at = text.find('\r', at + 1))
        if (at + 1 == text.size() || text[at + 1] != '\n') return true;
    return false;
}

std::u16string utf16Of(std::string_view bytes) { return toUtf16(wideFromUtf8(std::string(bytes))); }

bool equals(std::string_view bytes, const XMLCh* text) {
    const std::u16string_view other = view(text);
    if (!std::all_of(bytes.begin(), bytes.end(), isASCII)) return utf16Of(bytes) == other;
    return std::equal(bytes.begin(), bytes.end(), other.begin(), other.end(),
                      [](char a, char16_t b) { return static_cast<char16_t>(a) == b; });
}

}  // namespace

std::unique_ptr<TagScanner> TagScanner::scan(std::string_view text) {
    const std::string_view mark = "\xEF\xBB\xBF";
    if (text.substr(0, mark.size()) == mark) text.remove_prefix(mark.size());
    if (!isInUtf8(text) || hasLoneReturn(text)) return nullptr;
    std::unique_ptr<TagScanner> scanner(new TagScanner(text));
    return scanner->run() ? std::move(scanner) : nullptr;
}

bool TagScanner::run() {
    for (std::size_t at = m_text.find('<'); at != none; at = m_text.find('<', at))
        if (!readMarkup(at)) return false;
    countLines();
    return m_open.empty() && !m_tags.empty();
}

bool TagScanner::readMarkup(std::size_t& at) {
    switch (at + 1 < m_text.size() ? m_text[at + 1] : '\0') {
        case '/':
            if (m_open.empty()) return false;
            m_open.pop_back();
            at += 2;  // no other markup begins before its end
            return true;
        case '?':
            return skip(at, "?>");
        case '!':
            if (m_text.compare(at, 4, "<!--") == 0) return skip(at += 4, "-->");
            return m_text.compare(at, 9, "<![CDATA[") == 0 && skip(at, "]]>");
        default:
            return readStartTag(at);
    }
}

bool TagScanner::readStartTag(std::size_t& at) {
    const std::size_t begin = at;
    at = endOfName(m_text, at + 1);
    while (const std::optional<Attribute> attribute = nextAttribute(m_text, at))
        if (attribute->name == "ID" && attribute->value.find_first_of("&\t\r\n") != none) return false;
    const bool isEmpty = at < m_text.size() && m_text[at] == '/';
    if (!skip(at, '>') || (m_open.empty() && !m_tags.empty())) return false;
    add(begin, isEmpty);
    return true;
}

void TagScanner::add(std::size_t begin, bool isEmpty) {
    const std::size_t added = m_tags.size();
    m_tags.push_back({begin, 0, 0});
    if (!m_open.empty()) {
        Open& around = m_open.back();
        (around.lastChild == 0 ? m_tags[around.element].firstChild : m_tags[around.lastChild].next) = added;
        around.lastChild = added;
    }
    if (!isEmpty) m_open.push_back({added, 0});
}

bool TagScanner::skip(std::size_t& at, std::string_view end) const {
    at = m_text.find(end, at);
    if (at == none) return false;
    at += end.size();
    return true;
}

bool TagScanner::skip(std::size_t& at, char end) const {
    if (at >= m_text.size() || m_text[at] != end) at = m_text.find(end, at);  // as a rule it stands there
    return at++ != none;
}

void TagScanner::countLines() {
    std::uint64_t lines = 0;
    m_lines.reserve(m_text.size() / blockSize + 1);
    for (std::size_t at = 0; at <= m_text.size(); at += blockSize) {
        m_lines.push_back(lines);
        lines += lineEndsIn(m_text.substr(at, blockSize));
    }
}

std::string_view TagScanner::nameOf(std::size_t element) const {
    const std::size_t begin = m_tags[element].begin + 1;
    return m_text.substr(begin, endOfName(m_text, begin) - begin);
}

std::optional<std::string_view> TagScanner::idOf(std::size_t element) const {
    std::size_t at = endOfName(m_text, m_tags[element].begin + 1);
    while (const std::optional<Attribute> attribute = nextAttribute(m_text, at))
        if (attribute->name == "ID") return attribute->value;
    return std::nullopt;
}

std::u16string TagScanner::identity(std::size_t element) const {
    const std::optional<std::string_view> id = idOf(element);
    const std::u16string idText = id ? utf16Of(*id) : std::u16string();
    return identityOf(utf16Of(nameOf(element)), id ? xmlText(idText) : nullptr);
}

bool TagScanner::isLike(std::size_t element, const xercesc::DOMElement& other) const {
    if (!equals(nameOf(element), other.getNodeName())) return false;
    const xercesc::DOMAttr* const otherID = idAttributeOf(other);
    const std::optional<std::string_view> id = idOf(element);
    if (!id || otherID == nullptr) return !id && otherID == nullptr;
    return equals(*id, otherID->getValue());
}

FilePlace TagScanner::place(std::size_t element) const {
    const std::size_t begin = m_tags[element].begin;
    const std::size_t block = begin / blockSize;
    const std::string_view before = m_text.substr(block * blockSize, begin - block * blockSize);
    const std::uint64_t lines = m_lines[block] + lineEndsIn(before);
    const std::size_t lineEnd = begin == 0 ? none : m_text.rfind('\n', begin - 1);
    const std::string_view line = m_text.substr(lineEnd + 1, begin - (lineEnd + 1));  // none + 1 is 0
    std::uint64_t column = 1;
    for (const char character : line) {
        const auto byte = static_cast<unsigned char>(character);
        if ((byte & 0xC0U) != 0x80U) ++column;
        if (byte >= 0xF0U) ++column;  // such a character takes two units of UTF-16
    }
    return {lines + 1, column};
}

}  // namespace XMLConfig::detail
