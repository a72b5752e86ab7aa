#include "platform/Clock.h"

#include <chrono>
#include <utility>

#include "platform/Numbers.h"

namespace XMLConfig::detail {
namespace {

std::function<std::int64_t()>& clockInUse() {
    static std::function<std::int64_t()> clock;
    return clock;
}

std::int64_t floorDivided(std::int64_t value, std::int64_t divisor) {
    return value / divisor - (value % divisor < 0 ? 1 : 0);
}

struct Date {
    std::int64_t year;
    std::int64_t month;
    std::int64_t day;
};

/// Years are counted from March, so that a leap day ends one, in eras of 400 years of 146097 days.
Date dateOf(std::int64_t daysSince1970) {
    const std::int64_t days = daysSince1970 + 719468;  // from 0000-03-01
    const std::int64_t era = floorDivided(days, 146097);
    const std::int64_t dayOfEra = days - era * 146097;
    const std::int64_t yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const std::int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const std::int64_t fromMarch = (5 * dayOfYear + 2) / 153;
    const std::int64_t month = fromMarch < 10 ? fromMarch + 3 : fromMarch - 9;
    return {era * 400 + yearOfEra + (month <= 2 ? 1 : 0), month, dayOfYear - (153 * fromMarch + 2) / 5 + 1};
}

std::wstring padded(std::int64_t value, std::size_t digits) {
    std::wstring text = formatInteger(value);
    if (text.size() < digits) text.insert(0, digits - text.size(), L'0');
    return text;
}

}  // namespace

std::int64_t now() {
    if (clockInUse()) return clockInUse()();
    return std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
}

void setClock(std::function<std::int64_t()> clock) { clockInUse() = std::move(clock); }

std::wstring utcStamp(std::int64_t seconds) {
    constexpr std::int64_t secondsADay = 86400;
    const std::int64_t day = floorDivided(seconds, secondsADay);
    const std::int64_t second = seconds - day * secondsADay;
    const Date date = dateOf(day);
    return padded(date.year, 4) + L'-' + padded(date.month, 2) + L'-' + padded(date.day, 2) + L'T' +
           padded(second / 3600, 2) + L'-' + padded(second / 60 % 60, 2) + L'-' + padded(second % 60, 2);
}

}  // namespace XMLConfig::detail
