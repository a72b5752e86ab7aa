#pragma once

#include <cstddef>
#include <string_view>

/// Whether a stored text is the whole of a value, with nothing left over. What the library reads is more lenient: it takes
/// the longest number that begins a text.
namespace XMLConfig::detail {

bool isBoolText(std::wstring_view text);  ///< one of the ten words, in any case
/// Blanks may stand around a number; an integer lies within 32 bits, and "nan" and "inf" are numbers.
bool isIntegerText(std::wstring_view text);
bool isNumberText(std::wstring_view text);
/// As many integers, or numbers, as the point has dimensions.
bool isIntegerPointText(std::wstring_view text, std::size_t dimensions);
bool isPointText(std::wstring_view text, std::size_t dimensions);

}  // namespace XMLConfig::detail
