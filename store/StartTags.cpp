#include "store/StartTags.h"

#include <algorithm>

#include "store/MarkupBytes.h"

namespace XMLConfig::detail {

std::optional<FilePlace> StartTags::place(std::size_t number) {
    if (number < m_passed) return m_place;
    while (m_passed <= number)
        if (!passTag()) return std::nullopt;
    countLinesTo(m_begin);
    tellPlace();
    return m_place;
}

// Where many tags stand in one line, each column is counted on from the one before it.
void StartTags::tellPlace() {
    const bool isSameLine = m_place.line == m_lines + 1;
    const std::uint64_t column =
        isSameLine ? m_place.column + unitsIn(m_text.substr(m_told, m_begin - m_told)) : columnOf(m_text, m_begin);
    m_place = {m_lines + 1, column};
    m_told = m_begin;
}

// No other markup begins inside of a tag: an attribute's value holds no "<".
bool StartTags::passTag() {
    while ((m_at = m_text.find('<', m_at)) != std::string_view::npos) {
        const char next = m_at + 1 < m_text.size() ? m_text[m_at + 1] : '\0';
        if (next == '/') {
            ++m_at;
        } else if (next == '!' || next == '?') {
            if (!passNoElement(m_text, m_at)) break;
        } else {
            m_begin = m_at++;
            ++m_passed;
            return true;
        }
    }
    m_at = m_text.size();
    return false;
}

void StartTags::countLinesTo(std::size_t end) {
    while (m_linesEnd < end) {
        const std::string_view piece = m_text.substr(m_linesEnd, std::min(mostForLineEnds, end - m_linesEnd));
        m_lines += lineEndsIn(piece);
        m_linesEnd += piece.size();
    }
}

}  // namespace XMLConfig::detail
