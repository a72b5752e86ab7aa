#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Numbers to text and back, the same under every locale. Forms are those of printf in the "C" locale with
/// exponents of at least two digits; non-finite doubles are written "nan", "-nan", "inf" and "-inf".
namespace XMLConfig::detail {

std::wstring formatInteger(long long value);           ///< "%ld"
std::wstring formatScientific(double value);           ///< "%.15e"
std::wstring formatFixed(double value, int decimals);  ///< "%.<decimals>f"
/// "%g" of a float with six significant digits: a stream's standard form.
std::wstring formatGeneral(float value);

/// The longest leading decimal integer after white space; 0 when there is none ("0x10" reads 0, "nan" reads 0).
/// Saturates at the limits of 32 bits.
std::int32_t leadingInteger(std::wstring_view text);
/// The longest leading decimal number after white space; 0.0 when there is none. "nan", "inf" and "infinity" count,
/// in any case and with a sign. Beyond the range of a double it reads as an infinity, below it as zero (with the sign).
double leadingDouble(std::wstring_view text);
/// Both read the XML library's text by the same rules.
std::int32_t leadingInteger(std::u16string_view text);
double leadingDouble(std::u16string_view text);

/// Decimal text of an identifier to int: white space is skipped, a sign allowed, digits read as far as they go.
/// Throws std::invalid_argument "invalid stoi argument" where no number begins the text and std::out_of_range
/// "stoi argument out of range" beyond 32 bits, with these texts on every platform.
std::int32_t strictInteger(std::wstring_view text);

}  // namespace XMLConfig::detail
