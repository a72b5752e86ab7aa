#pragma once

#include <string_view>

namespace XMLConfig::detail {

/// Finds the first byte that is no UTF-8, and counts lines and columns up to it as the XML library counts them: from 1, a
/// carriage return with the line feed after it as one end of a line, a character of UTF-16's two units as two columns.
class Utf8Place {
public:
    /// Takes the next bytes of the text. False where one of them is wrong; the place is then that of its character.
    bool take(std::string_view bytes);
    [[nodiscard]] unsigned long long line() const { return m_line; }
    [[nodiscard]] unsigned long long column() const { return m_column; }

private:
    bool takeByte(unsigned char byte);
    bool begin(unsigned char byte);
    void countAscii(unsigned char byte);

    unsigned long long m_line = 1;
    unsigned long long m_column = 1;
    int m_missing = 0;             // bytes of the character that is read
    int m_width = 0;               // columns of that character
    unsigned char m_least = 0x80;  // what its next byte may be
    unsigned char m_most = 0xBF;
    bool m_isAfterReturn = false;
    bool m_isAtStart = true;
};

}  // namespace XMLConfig::detail
