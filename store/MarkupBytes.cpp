#include "store/MarkupBytes.h"

#include <algorithm>
#include <array>

namespace XMLConfig::detail {

namespace {

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

bool isUtf8Name(std::string_view name) {
    const std::string_view wanted = "utf-8";
    const auto isSame = [](char a, char b) { return (a >= 'A' && a <= 'Z' ? static_cast<char>(a - 'A' + 'a') : a) == b; };
    return std::equal(name.begin(), name.end(), wanted.begin(), wanted.end(), isSame);
}

/// Whether a text without a declaration, or with that one, is in UTF-8. In UTF-16 and UTF-32 a "<" of two or four bytes
/// comes first, of which one that is 0 follows or precedes it.
bool isInUtf8(std::string_view text) {
    if (text.substr(0, 5) != "<?xml" || text.size() < 6 || !isBlank(text[5]))
        return text.size() > 1 && text[0] == '<' && text[1] != '\0';
    const std::string_view declaration = text.substr(0, text.find("?>"));
    for (std::size_t at = 5; const std::optional<MarkupAttribute> attribute = nextAttribute(declaration, at);)
        if (attribute->name == "encoding") return isUtf8Name(attribute->value);
    return true;
}

bool hasLoneReturn(std::string_view text) {
    for (std::size_t at = text.find('\r'); at != none; at = text.find('\r', at + 1))
        if (at + 1 == text.size() || text[at + 1] != '\n') return true;
    return false;
}

}  // namespace

std::optional<std::string_view> markupOf(std::string_view bytes) {
    const std::string_view mark = "\xEF\xBB\xBF";
    if (bytes.substr(0, mark.size()) == mark) bytes.remove_prefix(mark.size());
    return isInUtf8(bytes) && !hasLoneReturn(bytes) ? std::optional(bytes) : std::nullopt;
}

std::size_t endOfName(std::string_view text, std::size_t at) {
    while (at < text.size() && !endsName(text[at])) ++at;
    return at;
}

std::optional<MarkupAttribute> nextAttribute(std::string_view text, std::size_t& at) {
    if (at < text.size() && text[at] == '>') return std::nullopt;
    while (at < text.size() && isBlank(text[at])) ++at;
    const std::size_t nameEnd = endOfName(text, at);
    if (nameEnd == at) return std::nullopt;
    const std::size_t begin = text.find_first_of("\"'", nameEnd);
    if (begin == none) return std::nullopt;
    const std::size_t end = text.find(text[begin], begin + 1);
    if (end == none) return std::nullopt;
    const MarkupAttribute attribute{text.substr(at, nameEnd - at), text.substr(begin + 1, end - begin - 1)};
    at = end + 1;
    return attribute;
}

bool skipTo(std::string_view text, std::size_t& at, std::string_view end) {
    at = text.find(end, at);
    if (at == none) return false;
    at += end.size();
    return true;
}

bool passNoElement(std::string_view text, std::size_t& at) {
    if (text.compare(at, 2, "<?") == 0) return skipTo(text, at, "?>");
    if (text.compare(at, 4, "<!--") == 0) return skipTo(text, at += 4, "-->");
    return text.compare(at, 9, "<![CDATA[") == 0 && skipTo(text, at, "]]>");
}

std::uint64_t lineEndsIn(std::string_view text) {
    std::uint8_t count = 0;
    for (const char character : text) count = static_cast<std::uint8_t>(count + (character == '\n' ? 1 : 0));
    return count;
}

std::uint64_t unitsIn(std::string_view text) {
    std::uint64_t units = 0;
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if ((byte & 0xC0U) != 0x80U) ++units;
        if (byte >= 0xF0U) ++units;  // such a character takes two units of UTF-16
    }
    return units;
}

std::uint64_t columnOf(std::string_view text, std::size_t at) {
    const std::size_t lineEnd = at == 0 ? none : text.rfind('\n', at - 1);
    return 1 + unitsIn(text.substr(lineEnd + 1, at - (lineEnd + 1)));  // none + 1 is 0
}

}  // namespace XMLConfig::detail
