#include "store/Utf8Place.h"

#include <algorithm>

namespace XMLConfig::detail {

bool Utf8Place::take(std::string_view bytes) {
    constexpr std::string_view mark = "\xEF\xBB\xBF";  // the byte order mark takes no column
    if (m_isAtStart && bytes.substr(0, mark.size()) == mark) bytes.remove_prefix(mark.size());
    m_isAtStart = m_isAtStart && bytes.empty();
    return std::all_of(bytes.begin(), bytes.end(), [this](char byte) { return takeByte(static_cast<unsigned char>(byte)); });
}

bool Utf8Place::takeByte(unsigned char byte) {
    if (m_missing == 0) return begin(byte);
    if (byte < m_least || byte > m_most) return false;
    m_least = 0x80;
    m_most = 0xBF;
    if (--m_missing == 0) m_column += static_cast<unsigned>(m_width);
    return true;
}

bool Utf8Place::begin(unsigned char byte) {
    if (byte < 0x80) {
        countAscii(byte);
        return true;
    }
    if (byte < 0xC2 || byte > 0xF4) return false;
    m_missing = byte < 0xE0 ? 1 : byte < 0xF0 ? 2 : 3;
    m_width = byte < 0xF0 ? 1 : 2;
    // Overlong forms, surrogates and what lies beyond U+10FFFF begin with these.
    if (byte == 0xE0) m_least = 0xA0;
    if (byte == 0xED) m_most = 0x9F;
    if (byte == 0xF0) m_least = 0x90;
    if (byte == 0xF4) m_most = 0x8F;
    m_isAfterReturn = false;
    return true;
}

void Utf8Place::countAscii(unsigned char byte) {
    const bool isSecondHalf = byte == '\n' && m_isAfterReturn;
    m_isAfterReturn = byte == '\r';
    if (isSecondHalf) return;
    if (byte != '\n' && byte != '\r') {
        ++m_column;
        return;
    }
    ++m_line;
    m_column = 1;
}

}  // namespace XMLConfig::detail
