#include "tools/ValueInput.h"

#include <fmt/format.h>
#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <system_error>
#include <vector>

#include "base/Angles.h"
#include "base/UnitConversionTable.h"
#include "manager/Origin.h"
#include "platform/Utf8.h"
#include "store/Tokens.h"
#include "tools/NumberTexts.h"
#include "tools/Suggestion.h"

namespace tool {
namespace {

using Table = UnitConversionTable;
using XMLConfig::Setting;
using XMLConfig::SettingType;
using XMLConfig::Unit;
using XMLConfig::detail::fullTurn;

struct Suffix {
    const char* text;
    Unit unit;                 ///< of the settings that take it
    Table::UnitSubType meant;  ///< not looked at for percents
};
constexpr Suffix suffixes[] = {
    {"rad", Unit::Radians, Table::Radians},   {"deg", Unit::Radians, Table::Degrees},
    {"°", Unit::Radians, Table::Degrees},     {"arcmin", Unit::Radians, Table::ArcMinutes},
    {"m", Unit::Meters, Table::Meters},       {"cm", Unit::Meters, Table::Centimeters},
    {"mm", Unit::Meters, Table::Millimeters}, {"ft", Unit::Meters, Table::Feet},
    {"in", Unit::Meters, Table::Inches},      {"%", Unit::Percent, Table::UnknownUnitSubType},
};

/// A number that was written in another unit, in the unit that is stored.
double converted(double number, const Suffix& suffix) {
    if (suffix.unit == Unit::Percent) return number;
    return Table::convertValue(suffix.meant, suffix.unit == Unit::Radians ? Table::Radians : Table::Meters, number);
}

bool isSuffix(const std::string& text, Unit unit) {
    const auto isIt = [&](const Suffix& suffix) { return suffix.unit == unit && suffix.text == text; };
    return std::any_of(std::begin(suffixes), std::end(suffixes), isIt);
}

/// "5.2" and "m" as one, for a setting in meters.
std::vector<std::wstring> withUnitsJoined(const std::vector<std::wstring>& tokens, Unit unit) {
    std::vector<std::wstring> joined;
    bool isBare = false;  // whether the last one may get a unit
    for (const std::wstring& token : tokens) {
        const bool isUnit = isBare && isSuffix(XMLConfig::utf8FromWide(token), unit);
        if (isUnit) joined.back() += token;
        else joined.push_back(token);
        isBare = !isUnit && isOfType(token, SettingType::Double);
    }
    return joined;
}

/// "24deg" for a setting in radians as their number; everything else as it is.
std::wstring withoutUnit(const std::wstring& token, Unit unit) {
    const std::string text = XMLConfig::utf8FromWide(token);
    const char* const begin = text.data() + (text.substr(0, 1) == "+" ? 1 : 0);
    const char* const end = text.data() + text.size();
    double number = 0.0;
    const auto [rest, error] = std::from_chars(begin, end, number);
    if (error != std::errc()) return token;
    for (const Suffix& suffix : suffixes)
        if (suffix.unit == unit && std::string(rest, end) == suffix.text)
            return XMLConfig::wideFromUtf8(fmt::format("{}", converted(number, suffix)));
    return token;
}

/// "; did you mean "0.25"?" for 25% of a setting whose numbers are shares.
std::wstring shareHint(const std::wstring& written, const Setting& setting) {
    const std::wstring percents = withoutUnit(written, Unit::Percent);
    const bool isShare = setting.type == SettingType::Double && setting.range && setting.range->high <= 1.0;
    if (!isShare || percents == written || !XMLConfig::contains(*setting.range, numberRead(percents) / 100.0)) return L"";
    return L"; did you mean \"" + numberText(numberRead(percents) / 100.0) + L"\"?";
}

/// What the setting's numbers may be written with: "; did you mean 5.2m?", "; its units are m, cm".
std::wstring unitHint(const std::wstring& written, const Setting& setting) {
    std::vector<std::wstring> units;
    for (const Suffix& suffix : suffixes)
        if (suffix.unit == setting.unit) units.push_back(XMLConfig::wideFromUtf8(suffix.text));
    if (units.empty()) return shareHint(written, setting);
    const std::wstring lower = XMLConfig::detail::lowerAscii(written);
    const bool isMeant = lower != written && isOfType(storedForm(lower, setting), setting.type);
    if (isMeant) return L"; did you mean \"" + lower + L"\"?";
    return L"; it takes " + XMLConfig::detail::joined(units, L", ") + L" after a number";
}

/// "; did you mean "5"?" for the name of a number.
std::wstring nameHint(const std::wstring& written, const Setting& setting) {
    const auto isIt = [name = XMLConfig::detail::lowerAscii(written)](const XMLConfig::NamedNumber& named) {
        return XMLConfig::detail::lowerAscii(named.name) == name;
    };
    const auto named = std::find_if(setting.numbers.begin(), setting.numbers.end(), isIt);
    return named == setting.numbers.end() ? L"" : L"; did you mean \"" + std::to_wstring(named->number) + L"\"?";
}

/// The limits of whole numbers, for one that was refused because it lies beyond them; "" for other texts.
std::wstring limitsHint(const std::wstring& written, const Setting& setting) {
    const std::size_t first = written.find_first_of(L"0123456789");
    const bool isWhole = first <= 1 && written.find_first_not_of(L"0123456789", first) == std::wstring::npos &&
                         (first == 0 || written[0] == L'-' || written[0] == L'+');
    if (setting.type != SettingType::Int || !isWhole) return L"";
    return L", which goes from -2147483648 to 2147483647";
}

std::wstring typeHint(const std::wstring& written, const Setting& setting) {
    const std::wstring hint = nameHint(written, setting) + limitsHint(written, setting);
    return hint.empty() ? unitHint(written, setting) : hint;
}

/// A number as it was written, and what it is in the stored unit.
struct WrittenNumber {
    std::wstring text;
    double number;
    bool hasUnit;
};

std::vector<WrittenNumber> numbersIn(const std::wstring& written, const Setting& setting) {
    std::vector<WrittenNumber> numbers;
    for (const std::wstring& token : withUnitsJoined(XMLConfig::detail::tokensOf(written), setting.unit)) {
        const std::wstring bare = withoutUnit(token, setting.unit);
        numbers.push_back({token, numberRead(bare), bare != token});
    }
    return numbers;
}

std::wstring countsAs(const Setting& setting) {
    if (!setting.othersCountAs) return L"";
    return L"; counts as " + (setting.othersCountAs->empty() ? L"empty" : *setting.othersCountAs);
}

std::optional<ValueFault> wordFault(const std::wstring& written, const Setting& setting) {
    const std::vector<std::wstring>& words = setting.words;
    if (words.empty() || std::find(words.begin(), words.end(), written) != words.end()) return std::nullopt;
    if (setting.olderWord && written == setting.olderWord->text)
        return ValueFault{L"\"" + written + L"\" is the older name of \"" + setting.olderWord->countsAs +
                          L"\" (XC112); did you mean \"" + setting.olderWord->countsAs + L"\"?"};
    std::vector<std::wstring> shown;
    std::copy_if(words.begin(), words.end(), std::back_inserter(shown), [](const auto& word) { return !word.empty(); });
    return ValueFault{L"\"" + written + L"\" is none of " + XMLConfig::detail::joined(shown) + countsAs(setting) +
                      L" (XC109)" + suggestion(written, shown)};
}

std::optional<ValueFault> numberFault(const WrittenNumber& written, const Setting& setting) {
    const auto isIt = [&](const XMLConfig::NamedNumber& named) { return named.number == written.number; };
    if (setting.numbers.empty() || std::any_of(setting.numbers.begin(), setting.numbers.end(), isIt)) return std::nullopt;
    std::wstring list;
    for (const XMLConfig::NamedNumber& named : setting.numbers)
        list += (list.empty() ? L"" : L", ") + std::to_wstring(named.number) + L" " + named.name;
    return ValueFault{written.text + L" is none of " + list + countsAs(setting) + L" (XC110)", false, true};
}

std::optional<ValueFault> finiteFault(const WrittenNumber& written, const Setting&) {
    if (std::isfinite(written.number)) return std::nullopt;
    return ValueFault{written.text + L" is no finite number (XC113)", false, true};
}

std::optional<ValueFault> turnFault(const WrittenNumber& written, const Setting& setting) {
    if (setting.unit != Unit::Radians || !(std::fabs(written.number) > fullTurn)) return std::nullopt;
    const double count = rounded(std::fabs(written.number) / fullTurn, 1);
    const std::wstring turns = L" are " + (count > 1.0 ? numberText(count) + L" turns" : L"more than one turn");
    if (written.hasUnit) return ValueFault{written.text + turns + L", and one is the most (XC305)", false, true};
    const bool canBeDegrees = std::fabs(written.number) <= 360.0;
    return ValueFault{
        written.text + L" radians" + turns + L" (XC305)" + (canBeDegrees ? L"; " + written.text + L"deg?" : L""), false,
        true};
}

std::optional<ValueFault> rangeFault(const WrittenNumber& written, const Setting& setting) {
    if (!setting.range || XMLConfig::contains(*setting.range, written.number)) return std::nullopt;
    const std::wstring text = written.text + L" is outside " + XMLConfig::textOf(*setting.range);
    if (setting.range->ownJudgement) return ValueFault{text + L", which is usual (XC114)", true, false};
    return ValueFault{text + L" (XC114)", false, true};
}

}  // namespace

std::wstring storedForm(const std::wstring& written, const Setting& setting) {
    if (!isNumbers(setting.type)) return written;
    const bool isWhole = setting.type == SettingType::Int || setting.type == SettingType::IntPoint2;
    const bool isOne = setting.type == SettingType::Int || setting.type == SettingType::Double;
    const std::vector<std::wstring> tokens = withUnitsJoined(XMLConfig::detail::tokensOf(written), setting.unit);
    std::wstring stored;
    bool isConverted = false;
    for (const std::wstring& token : tokens) {
        const std::wstring bare = withoutUnit(token, setting.unit);
        const bool hadUnit = bare != token;
        isConverted = isConverted || hadUnit;
        stored += (stored.empty() ? L"" : L", ") +
                  (hadUnit && !isWhole ? XMLConfig::textAsRead(bare, SettingType::Double).value_or(bare) : bare);
    }
    if (!isConverted || (isOne && tokens.size() != 1)) stored = written;
    if (isOne && isOfType(stored, setting.type)) stored = XMLConfig::textAsRead(stored, setting.type).value_or(stored);
    return stored;
}

std::optional<ValueFault> faultOf(const std::wstring& written, const Setting& setting) {
    if (!isOfType(storedForm(written, setting), setting.type))
        return ValueFault{L"\"" + written + L"\" is not of type " + nameOf(setting.type) + typeHint(written, setting), false,
                          true};
    if (auto fault = wordFault(written, setting)) return fault;
    if (!isNumbers(setting.type)) return std::nullopt;
    std::optional<ValueFault> warning;
    for (const WrittenNumber& number : numbersIn(written, setting)) {
        for (const auto find : {finiteFault, numberFault, turnFault, rangeFault}) {
            std::optional<ValueFault> fault = find(number, setting);
            if (fault && !fault->isWarning) return fault;
            if (fault) warning = fault;
        }
    }
    return warning;
}

}  // namespace tool
