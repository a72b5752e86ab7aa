#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "store/FilePlaces.h"

namespace XMLConfig::detail {

/// Counts the start tags of a text, from 0, which is the root's. The text stays the caller's and is what markupOf gives.
class StartTags {
public:
    explicit StartTags(std::string_view text) : m_text(text) {}

    /// Where the start tag of that number begins. It must not come before the one that was asked for last. Nothing where the
    /// text has fewer.
    std::optional<FilePlace> place(std::size_t number);

private:
    bool passTag();
    void countLinesTo(std::size_t end);
    void tellPlace();

    std::string_view m_text;
    std::size_t m_at = 0;      // where the next tag is looked for
    std::size_t m_begin = 0;   // of the tag that was passed last
    std::size_t m_passed = 0;  // how many start tags were passed
    std::uint64_t m_lines = 0;
    std::size_t m_linesEnd = 0;  // up to which the line ends are counted
    FilePlace m_place;           // that was told last
    std::size_t m_told = 0;      // where that is in the text
};

}  // namespace XMLConfig::detail
