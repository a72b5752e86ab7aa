#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "store/FilePlaces.h"

/// Markup as the bytes of a text that is known to be well-formed, because a document was loaded from it. Nothing is checked,
/// so that it takes a small part of the time of a load; no text, whatever it holds, is read beyond its end.
namespace XMLConfig::detail {

/// What stands after the byte order mark. Nothing where the text is written in a way in which it cannot be read byte by
/// byte: in another encoding than UTF-8, or with carriage returns alone for the ends of lines.
std::optional<std::string_view> markupOf(std::string_view bytes);

struct MarkupAttribute {
    std::string_view name;
    std::string_view value;
};
/// Reads the attribute at a place in a tag, or after blanks there, and passes it; nothing where the tag ends or the text is
/// none that was promised.
std::optional<MarkupAttribute> nextAttribute(std::string_view text, std::size_t& at);
/// Where the name ends that begins there.
std::size_t endOfName(std::string_view text, std::size_t at);
/// Passes a comment, a CDATA section or a processing instruction, which begins there; false where it does not end.
bool passNoElement(std::string_view text, std::size_t& at);
bool skipTo(std::string_view text, std::size_t& at, std::string_view end);

/// Of at most so many bytes lineEndsIn tells the line ends: so few that the compiler can count many at a time.
constexpr std::size_t mostForLineEnds = 240;
std::uint64_t lineEndsIn(std::string_view text);
/// How many units of UTF-16 the characters take.
std::uint64_t unitsIn(std::string_view text);
/// Which character of its line the byte begins, counted from 1.
std::uint64_t columnOf(std::string_view text, std::size_t at);

}  // namespace XMLConfig::detail
