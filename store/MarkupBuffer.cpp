#include "store/MarkupBuffer.h"

#include <string>

#include "platform/Text.h"

namespace XMLConfig::detail {

namespace {

/// Null for a character that no entity stands for.
const char* entityFor(char16_t character, bool isAttribute) {
    switch (character) {
        case u'&':
            return "&amp;";
        case u'<':
            return "&lt;";
        case u'>':
            return "&gt;";
        case u'"':
            return isAttribute ? "&quot;" : nullptr;
        default:
            return nullptr;
    }
}

}  // namespace

void MarkupBuffer::appendOther(std::u16string_view text) {
    std::string bytes;
    appendUtf8(bytes, text);
    append(std::string_view(bytes));
}

void MarkupBuffer::escapeOther(std::u16string_view text, bool isAttribute) {
    std::size_t plain = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t character = text[i];
        if (character > u'>' && character < 0x7F) continue;
        const char* const entity = entityFor(character, isAttribute);
        if (entity == nullptr && !needsNumber(character, isAttribute)) continue;
        appendText(text.substr(plain, i - plain));
        plain = i + 1;
        if (entity != nullptr) append(std::string_view(entity));
        else appendReference(character);
    }
    appendText(text.substr(plain));
}

// What the parser would turn into something else, and what XML 1.1 takes as references only.
bool MarkupBuffer::needsNumber(char16_t character, bool isAttribute) const {
    if (character == u'\r') return true;
    if (character == u'\t' || character == u'\n') return isAttribute;
    const bool isControl = character < 0x20 || (character >= 0x7F && character <= 0x9F);
    return m_isXml11 && (isControl || character == 0x2028);
}

void MarkupBuffer::appendReference(char16_t character) {
    constexpr char digits[] = "0123456789ABCDEF";
    append("&#x");
    bool isStarted = false;
    for (int shift = 12; shift >= 0; shift -= 4) {
        const auto digit = static_cast<std::size_t>((character >> shift) & 0xF);
        isStarted = isStarted || digit != 0;
        if (isStarted) append(digits[digit]);
    }
    append(';');
}

}  // namespace XMLConfig::detail
