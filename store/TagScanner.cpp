#include "store/TagScanner.h"

#include <algorithm>

#include "platform/Text.h"
#include "platform/Utf8.h"
#include "store/Attributes.h"
#include "store/MarkupBytes.h"

namespace XMLConfig::detail {

namespace {

constexpr std::size_t none = std::string_view::npos;

bool isASCII(char character) { return static_cast<unsigned char>(character) < 0x80U; }

std::u16string utf16Of(std::string_view bytes) { return toUtf16(wideFromUtf8(std::string(bytes))); }

bool equals(std::string_view bytes, const XMLCh* text) {
    const std::u16string_view other = view(text);
    if (!std::all_of(bytes.begin(), bytes.end(), isASCII)) return utf16Of(bytes) == other;
    return std::equal(bytes.begin(), bytes.end(), other.begin(), other.end(),
                      [](char a, char16_t b) { return static_cast<char16_t>(a) == b; });
}

}  // namespace

std::unique_ptr<TagScanner> TagScanner::scan(std::string_view text) {
    const std::optional<std::string_view> markup = markupOf(text);
    if (!markup) return nullptr;
    std::unique_ptr<TagScanner> scanner(new TagScanner(*markup));
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
        case '!':
            return passNoElement(m_text, at);
        default:
            return readStartTag(at);
    }
}

bool TagScanner::readStartTag(std::size_t& at) {
    const std::size_t begin = at;
    at = endOfName(m_text, at + 1);
    while (const std::optional<MarkupAttribute> attribute = nextAttribute(m_text, at))
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

bool TagScanner::skip(std::size_t& at, char end) const {
    if (at >= m_text.size() || m_text[at] != end) at = m_text.find(end, at);  // as a rule it stands there
    return at++ != none;
}

void TagScanner::countLines() {
    std::uint64_t lines = 0;
    m_lines.reserve(m_text.size() / mostForLineEnds + 1);
    for (std::size_t at = 0; at <= m_text.size(); at += mostForLineEnds) {
        m_lines.push_back(lines);
        lines += lineEndsIn(m_text.substr(at, mostForLineEnds));
    }
}

std::string_view TagScanner::nameOf(std::size_t element) const {
    const std::size_t begin = m_tags[element].begin + 1;
    return m_text.substr(begin, endOfName(m_text, begin) - begin);
}

std::optional<std::string_view> TagScanner::idOf(std::size_t element) const {
    std::size_t at = endOfName(m_text, m_tags[element].begin + 1);
    while (const std::optional<MarkupAttribute> attribute = nextAttribute(m_text, at))
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
    const std::size_t block = begin / mostForLineEnds;
    const std::string_view before = m_text.substr(block * mostForLineEnds, begin - block * mostForLineEnds);
    const std::uint64_t lines = m_lines[block] + lineEndsIn(before);
    return {lines + 1, columnOf(m_text, begin)};
}

}  // namespace XMLConfig::detail
