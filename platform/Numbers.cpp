#include "platform/Numbers.h"

#include <algorithm>
#include <cfloat>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>
#include <optional>
#include <stdexcept>
#include <system_error>

namespace XMLConfig::detail {
namespace {

template <typename Unit>
struct Text {
    const Unit* at;
    const Unit* end;

    explicit Text(std::basic_string_view<Unit> text) : at(text.data()), end(text.data() + text.size()) {}
    bool startsWith(char character) const { return at != end && *at == static_cast<Unit>(character); }
    bool startsWithDigit() const { return at != end && *at >= Unit('0') && *at <= Unit('9'); }
    bool startsWithSpace() const { return at != end && (*at == Unit(' ') || (*at >= Unit('\t') && *at <= Unit('\r'))); }
    bool skip(char character) {
        const bool found = startsWith(character);
        if (found) ++at;
        return found;
    }
    void skipSpace() {
        while (startsWithSpace()) ++at;
    }
    /// Appends digits to `value`, which wraps around beyond 19 of them; gives their number.
    std::int64_t takeDigits(std::uint64_t& value) {
        const Unit* const from = at;
        for (; startsWithDigit(); ++at) value = value * 10 + static_cast<std::uint64_t>(*at - Unit('0'));
        return at - from;
    }
    /// `word` in lower case; the text's letters may have any case.
    bool startsWithWord(std::string_view word) const {
        if (static_cast<std::size_t>(end - at) < word.size()) return false;
        return std::equal(word.begin(), word.end(), at, [](char expected, Unit unit) {
            return unit == static_cast<Unit>(expected) || unit == static_cast<Unit>(expected - ('a' - 'A'));
        });
    }
};

/// Steps over a sign; true for a minus.
template <typename Unit>
bool skipSign(Text<Unit>& text) {
    if (text.skip('-')) return true;
    text.skip('+');
    return false;
}

struct IntegerRead {
    bool found;
    bool inRange;
    std::int32_t value;  // saturated
};

template <typename Unit>
IntegerRead readInteger(Text<Unit> text) {
    constexpr std::int64_t most = std::numeric_limits<std::int32_t>::max();
    text.skipSpace();
    const bool negative = skipSign(text);
    const std::int64_t limit = negative ? most + 1 : most;
    const bool found = text.startsWithDigit();
    std::int64_t value = 0;
    for (; text.startsWithDigit(); ++text.at) {
        value = std::min(value * 10 + static_cast<std::int64_t>(*text.at - Unit('0')), limit + 1);
    }
    const std::int64_t saturated = std::min(value, limit);
    return {found, value <= limit, static_cast<std::int32_t>(negative ? -saturated : saturated)};
}

/// Digits and decimals of a number's text.
struct Mantissa {
    std::uint64_t value = 0;  // wrong beyond 19 digits, which it cannot hold
    std::int64_t digits = 0;
    std::int64_t decimals = 0;
};

/// Digits with at most one point; nothing is taken where there is no digit.
template <typename Unit>
Mantissa takeMantissa(Text<Unit>& text) {
    const Unit* const from = text.at;
    Mantissa mantissa;
    mantissa.digits = text.takeDigits(mantissa.value);
    if (text.skip('.')) mantissa.decimals = text.takeDigits(mantissa.value);
    mantissa.digits += mantissa.decimals;
    if (mantissa.digits == 0) text.at = from;
    return mantissa;
}

/// A complete exponent, saturated; 0, and nothing taken, where there is none.
template <typename Unit>
std::int64_t takeExponent(Text<Unit>& text) {
    const Unit* const from = text.at;
    if (!text.skip('e') && !text.skip('E')) return 0;
    const bool negative = skipSign(text);
    if (!text.startsWithDigit()) text.at = from;
    constexpr std::int64_t most = std::numeric_limits<std::int32_t>::max();
    std::int64_t value = 0;
    for (; text.startsWithDigit(); ++text.at)
        value = std::min(value * 10 + static_cast<std::int64_t>(*text.at - Unit('0')), most);
    return negative ? -value : value;
}

constexpr double powersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                  1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

/// The usual number: both sides of one product or quotient are exact, so the result is rounded once and rightly.
std::optional<double> exactNumber(const Mantissa& mantissa, std::int64_t exponent) {
    constexpr std::uint64_t exactIntegers = std::uint64_t(1) << std::numeric_limits<double>::digits;
    constexpr std::int64_t exactPowers = std::size(powersOfTen) - 1;
    if (FLT_EVAL_METHOD != 0 || mantissa.digits > 19 || mantissa.value > exactIntegers) return std::nullopt;
    const std::int64_t shift = exponent - mantissa.decimals;
    if (shift < -exactPowers || shift > exactPowers) return std::nullopt;
    const auto value = static_cast<double>(mantissa.value);
    return shift < 0 ? value / powersOfTen[-shift] : value * powersOfTen[shift];
}

/// Whether an unsigned number that no double can hold is too large, rather than too small.
bool isTooLarge(std::string_view number) {
    const auto leading = static_cast<std::int64_t>(std::min(number.find_first_of("123456789"), number.size()));
    Text<char> text(number);
    const Mantissa mantissa = takeMantissa(text);
    const bool isAfterPoint = number.find('.') < number.size() && static_cast<std::int64_t>(number.find('.')) < leading;
    const std::int64_t before = isAfterPoint ? leading - 1 : leading;  // digits that are zeros
    return mantissa.digits - mantissa.decimals - before + takeExponent(text) > 0;
}

double unsignedNumber(const char* begin, const char* end) {
    double value = 0.0;
    if (std::from_chars(begin, end, value).ec != std::errc::result_out_of_range) return value;
    const bool tooLarge = isTooLarge({begin, static_cast<std::size_t>(end - begin)});
    return tooLarge ? std::numeric_limits<double>::infinity() : 0.0;
}

template <typename Unit>
double unsignedNumber(const Unit* begin, const Unit* end) {
    constexpr std::ptrdiff_t usual = 64;
    const auto narrow = [](Unit unit) { return static_cast<char>(unit); };
    if (end - begin <= usual) {
        char digits[usual];
        return unsignedNumber(digits, std::transform(begin, end, digits, narrow));
    }
    std::string digits(static_cast<std::size_t>(end - begin), '\0');
    std::transform(begin, end, digits.begin(), narrow);
    return unsignedNumber(digits.data(), digits.data() + digits.size());
}

template <typename Unit>
double readDouble(Text<Unit> text) {
    text.skipSpace();
    const bool negative = skipSign(text);
    const Unit* const begin = text.at;
    double value = 0.0;
    const Mantissa mantissa = takeMantissa(text);
    if (mantissa.digits > 0) {
        const std::optional<double> exact = exactNumber(mantissa, takeExponent(text));
        value = exact ? *exact : unsignedNumber(begin, text.at);
    } else if (text.startsWithWord("nan")) {
        value = std::numeric_limits<double>::quiet_NaN();
    } else if (text.startsWithWord("inf")) {
        value = std::numeric_limits<double>::infinity();
    } else {
        return 0.0;
    }
    return negative ? -value : value;
}

std::wstring formatNonFinite(double value) {
    std::wstring text = std::isnan(value) ? L"nan" : L"inf";
    if (std::signbit(value)) text.insert(text.begin(), L'-');
    return text;
}

std::wstring widen(const char* begin, const char* end) { return {begin, end}; }

}  // namespace

std::wstring formatInteger(long long value) {
    char buffer[std::numeric_limits<long long>::digits10 + 3];
    return widen(buffer, std::to_chars(std::begin(buffer), std::end(buffer), value).ptr);
}

std::wstring formatScientific(double value) {
    if (!std::isfinite(value)) return formatNonFinite(value);
    char buffer[32];
    return widen(buffer, std::to_chars(std::begin(buffer), std::end(buffer), value, std::chars_format::scientific, 15).ptr);
}

std::wstring formatFixed(double value, int decimals) {
    if (!std::isfinite(value)) return formatNonFinite(value);
    const int places = std::max(decimals, 0);
    std::string buffer(
        static_cast<std::size_t>(std::numeric_limits<double>::max_exponent10 + 4) + static_cast<std::size_t>(places), '\0');
    char* const begin = buffer.data();
    return widen(begin, std::to_chars(begin, begin + buffer.size(), value, std::chars_format::fixed, places).ptr);
}

std::wstring formatGeneral(float value) {
    if (!std::isfinite(value)) return formatNonFinite(value);
    char buffer[32];
    return widen(buffer, std::to_chars(std::begin(buffer), std::end(buffer), value, std::chars_format::general, 6).ptr);
}

std::int32_t leadingInteger(std::wstring_view text) { return readInteger(Text<wchar_t>(text)).value; }
std::int32_t leadingInteger(std::u16string_view text) { return readInteger(Text<char16_t>(text)).value; }
double leadingDouble(std::wstring_view text) { return readDouble(Text<wchar_t>(text)); }
double leadingDouble(std::u16string_view text) { return readDouble(Text<char16_t>(text)); }

std::int32_t strictInteger(std::wstring_view text) {
    const IntegerRead read = readInteger(Text<wchar_t>(text));
    if (!read.found) throw std::invalid_argument("invalid stoi argument");
    if (!read.inRange) throw std::out_of_range("stoi argument out of range");
    return read.value;
}

}  // namespace XMLConfig::detail
