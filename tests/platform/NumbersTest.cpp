#include "platform/Numbers.h"

#include <clocale>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <sstream>
#include <stdexcept>

#include <gtest/gtest.h>

#include "platform/Text.h"
#include "tests/support/GermanLocale.h"

namespace {

using XMLConfig::detail::formatFixed;
using XMLConfig::detail::formatGeneral;
using XMLConfig::detail::formatInteger;
using XMLConfig::detail::formatScientific;
using XMLConfig::detail::leadingDouble;
using XMLConfig::detail::leadingInteger;
using XMLConfig::detail::strictInteger;

constexpr double infinity = std::numeric_limits<double>::infinity();

bool isSameBits(double left, double right) { return std::memcmp(&left, &right, sizeof left) == 0; }

struct DoubleRow {
    const wchar_t* text;
    double value;
};

const DoubleRow doubleRows[] = {
    {L"", 0.0},
    {L" ", 0.0},
    {L"1.5", 1.5},
    {L" \t\n\v\f\r1.5", 1.5},
    {L"+1.5", 1.5},
    {L"-1.5", -1.5},
    {L"1.500000000000000e+00", 1.5},
    {L"-1.234567890123457e-05", -1.234567890123457e-05},
    {L"5.", 5.0},
    {L".5", 0.5},
    {L"-.5e1", -5.0},
    {L".", 0.0},
    {L"-", 0.0},
    {L"+-5", 0.0},
    {L"- 5", 0.0},
    {L"e5", 0.0},
    {L"abc", 0.0},
    {L"1.5abc", 1.5},
    {L"1.5.5", 1.5},
    {L"1,5", 1.0},
    {L"1 2", 1.0},
    {L"2e", 2.0},
    {L"2e+", 2.0},
    {L"2e+x", 2.0},
    {L"2e 3", 2.0},
    {L"2e3", 2000.0},
    {L"2E-3", 0.002},
    {L"2d3", 2.0},
    {L"0x10", 0.0},
    {L"0x1p3", 0.0},
    {L"-0", -0.0},
    {L"-0.0e5", -0.0},
    {L"9007199254740993", 9007199254740992.0},
    {L"9007199254740995", 9007199254740996.0},
    {L"18446744073709551617", 18446744073709551616.0},
    {L"0.1", 0.1},
    {L"1e22", 1e22},
    {L"1e23", 1e23},
    {L"123456789e-22", 123456789e-22},
    {L"1e-23", 1e-23},
    {L"2.2250738585072011e-308", 2.2250738585072011e-308},
    {L"4.9406564584124654e-324", 4.9406564584124654e-324},
    {L"1.7976931348623157e308", std::numeric_limits<double>::max()},
    {L"1.7976931348623159e308", infinity},
    {L"1e309", infinity},
    {L"-1e309", -infinity},
    {L"1e99999999999999999999", infinity},
    {L"1e-400", 0.0},
    {L"-1e-400", -0.0},
    {L"1e-99999999999999999999", 0.0},
    {L"0e99999999999999999999", 0.0},
    {L"0.00001e310", 1e305},
    {L"0.00001e400", infinity},
    {L"1234567.8e302", 1.2345678e308},
    {L"1234567.8e303", infinity},
    {L"1234567.8e-400", 0.0},
    {L"inf", infinity},
    {L"Inf", infinity},
    {L"+INF", infinity},
    {L"-inf", -infinity},
    {L" infinity", infinity},
    {L"-Infinity!", -infinity},
    {L"in", 0.0},
    {L"i", 0.0},
    {L"na", 0.0},
    {L"\u0661", 0.0},
    {L"1\u0661", 1.0},
    {L"\u00a01", 0.0},
    {L"\u3031", 0.0},
};

class LeadingDouble : public testing::TestWithParam<DoubleRow> {};

TEST_P(LeadingDouble, TakesTheLongestLeadingNumber) {
    EXPECT_PRED2(isSameBits, leadingDouble(GetParam().text), GetParam().value);
    EXPECT_PRED2(isSameBits, leadingDouble(XMLConfig::detail::toUtf16(GetParam().text)), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(Numbers, LeadingDouble, testing::ValuesIn(doubleRows));

TEST(LeadingDouble, ReadsNotANumberInAnyCaseWithItsSign) {
    for (const wchar_t* text : {L"nan", L"NaN", L"+NAN", L"nan(7)"}) {
        EXPECT_TRUE(std::isnan(leadingDouble(text)));
        EXPECT_FALSE(std::signbit(leadingDouble(text)));
    }
    EXPECT_TRUE(std::isnan(leadingDouble(u"-nan")));
    EXPECT_TRUE(std::signbit(leadingDouble(u"-nan")));
}

TEST(LeadingDouble, TakesNumbersOfAnyLength) {
    const std::wstring zeros(100000, L'0');
    EXPECT_EQ(leadingDouble(zeros + L"1.5"), 1.5);
    EXPECT_EQ(leadingDouble(L"1" + zeros), infinity);
    EXPECT_EQ(leadingDouble(L"0." + zeros + L"1"), 0.0);
    EXPECT_EQ(leadingDouble(L"0." + zeros + L"1e100001"), 1.0);
    EXPECT_EQ(leadingDouble(L"1" + zeros + L"e-100000"), 1.0);
    EXPECT_EQ(leadingDouble(L"1.5" + zeros + L"e2"), 150.0);
    EXPECT_EQ(leadingDouble(zeros + L"." + zeros + L"1e200000"), infinity);
    EXPECT_PRED2(isSameBits, leadingDouble(L"-0." + zeros + L"1e99000"), -0.0);
}

TEST(LeadingDouble, RoundsAsTheExactDecimalDemands) {
    // One digit far to the right decides between two neighbours.
    const std::wstring half = L"1.00000000000000011102230246251565404236316680908203125";
    EXPECT_EQ(leadingDouble(half), 1.0);
    EXPECT_EQ(leadingDouble(half + std::wstring(500, L'0') + L"1"), 1.0000000000000002);
}

TEST(LeadingDouble, AgreesWithTheCLibraryOnRandomTexts) {
    std::setlocale(LC_NUMERIC, "C");
    std::mt19937 random(2021);
    for (int i = 0; i < 20000; ++i) {
        std::string text = std::to_string(random());
        if (random() % 2 != 0) text.insert(random() % text.size(), ".");
        if (random() % 3 == 0) text += std::to_string(random());
        if (random() % 2 != 0) text += "e" + std::to_string(static_cast<int>(random() % 80) - 40);
        ASSERT_EQ(leadingDouble(std::wstring(text.begin(), text.end())), std::strtod(text.c_str(), nullptr)) << text;
    }
}

struct IntegerRow {
    const wchar_t* text;
    std::int32_t value;
};

const IntegerRow integerRows[] = {
    {L"", 0},
    {L"42", 42},
    {L" \t\n\v\f\r42", 42},
    {L"+42", 42},
    {L"-42", -42},
    {L"- 42", 0},
    {L"--42", 0},
    {L"42abc", 42},
    {L"42.9", 42},
    {L"1e3", 1},
    {L"0x10", 0},
    {L"010", 10},
    {L"abc", 0},
    {L"nan", 0},
    {L"inf", 0},
    {L"-inf", 0},
    {L"2147483647", 2147483647},
    {L"2147483648", 2147483647},
    {L"-2147483648", std::numeric_limits<std::int32_t>::min()},
    {L"-2147483649", std::numeric_limits<std::int32_t>::min()},
    {L"99999999999999999999999999", 2147483647},
    {L"-99999999999999999999999999", std::numeric_limits<std::int32_t>::min()},
    {L"000000000000000000000000000007", 7},
    {L"1.000", 1},
};

class LeadingInteger : public testing::TestWithParam<IntegerRow> {};

TEST_P(LeadingInteger, TakesTheLongestLeadingNumberAndSaturates) {
    EXPECT_EQ(leadingInteger(GetParam().text), GetParam().value);
    EXPECT_EQ(leadingInteger(XMLConfig::detail::toUtf16(GetParam().text)), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(Numbers, LeadingInteger, testing::ValuesIn(integerRows));

std::string strictFault(const std::wstring& text) {
    try {
        strictInteger(text);
    } catch (const std::invalid_argument& fault) {
        return std::string("invalid_argument: ") + fault.what();
    } catch (const std::out_of_range& fault) {
        return std::string("out_of_range: ") + fault.what();
    }
    return "no fault";
}

TEST(StrictInteger, ReadsDigitsAsFarAsTheyGo) {
    EXPECT_EQ(strictInteger(L"7"), 7);
    EXPECT_EQ(strictInteger(L" +12x"), 12);
    EXPECT_EQ(strictInteger(L"-2147483648"), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(strictInteger(L"2147483647"), 2147483647);
}

TEST(StrictInteger, RefusesTextWithoutANumber) {
    for (const wchar_t* text : {L"", L" ", L"x1", L"-", L"+ 1", L"nan"}) {
        EXPECT_EQ(strictFault(text), "invalid_argument: invalid stoi argument");
    }
}

TEST(StrictInteger, RefusesWhatThirtyTwoBitsCannotHold) {
    for (const wchar_t* text : {L"2147483648", L"-2147483649", L"99999999999999999999999"}) {
        EXPECT_EQ(strictFault(text), "out_of_range: stoi argument out of range");
    }
}

TEST(FormatInteger, WritesAllSizes) {
    EXPECT_EQ(formatInteger(0), L"0");
    EXPECT_EQ(formatInteger(-7), L"-7");
    EXPECT_EQ(formatInteger(1234567), L"1234567");
    EXPECT_EQ(formatInteger(std::numeric_limits<long long>::min()), L"-9223372036854775808");
    EXPECT_EQ(formatInteger(std::numeric_limits<long long>::max()), L"9223372036854775807");
}

TEST(FormatScientific, WritesFifteenDecimalsAndAnExponentOfTwoDigits) {
    EXPECT_EQ(formatScientific(1.5), L"1.500000000000000e+00");
    EXPECT_EQ(formatScientific(-0.1), L"-1.000000000000000e-01");
    EXPECT_EQ(formatScientific(0.0), L"0.000000000000000e+00");
    EXPECT_EQ(formatScientific(-0.0), L"-0.000000000000000e+00");
    EXPECT_EQ(formatScientific(1920), L"1.920000000000000e+03");
    EXPECT_EQ(formatScientific(1e100), L"1.000000000000000e+100");
    EXPECT_EQ(formatScientific(4.9406564584124654e-324), L"4.940656458412465e-324");
    EXPECT_EQ(formatScientific(std::numeric_limits<double>::max()), L"1.797693134862316e+308");
}

TEST(FormatScientific, WritesWhatIsNotFinite) {
    EXPECT_EQ(formatScientific(infinity), L"inf");
    EXPECT_EQ(formatScientific(-infinity), L"-inf");
    EXPECT_EQ(formatScientific(std::numeric_limits<double>::quiet_NaN()), L"nan");
    EXPECT_EQ(formatScientific(-std::numeric_limits<double>::quiet_NaN()), L"-nan");
}

TEST(FormatScientific, IsAFixedPointOnceWritten) {
    std::mt19937_64 random(9);
    for (int i = 0; i < 20000; ++i) {
        const std::uint64_t bits = random();
        double value = 0;
        std::memcpy(&value, &bits, sizeof value);
        const std::wstring written = formatScientific(value);
        ASSERT_EQ(formatScientific(leadingDouble(written)), written);
        ASSERT_EQ(formatScientific(leadingDouble(XMLConfig::detail::toUtf16(written))), written);
    }
}

TEST(FormatFixed, WritesTheDecimalsAskedFor) {
    EXPECT_EQ(formatFixed(9.0, 3), L"9.000");
    EXPECT_EQ(formatFixed(2.0005, 3), L"2.001");
    EXPECT_EQ(formatFixed(-0.0004, 3), L"-0.000");
    EXPECT_EQ(formatFixed(2.5, 0), L"2");
    EXPECT_EQ(formatFixed(1e21, 1), L"1000000000000000000000.0");
    EXPECT_EQ(formatFixed(-std::numeric_limits<double>::max(), 3).size(), 1u + 309u + 1u + 3u);
    EXPECT_EQ(formatFixed(infinity, 3), L"inf");
}

TEST(FormatGeneral, WritesSixSignificantDigitsAsAStreamDoes) {
    EXPECT_EQ(formatGeneral(0.5f), L"0.5");
    EXPECT_EQ(formatGeneral(1234567.0f), L"1.23457e+06");
    EXPECT_EQ(formatGeneral(100000.0f), L"100000");
    EXPECT_EQ(formatGeneral(0.0001f), L"0.0001");
    EXPECT_EQ(formatGeneral(0.00001f), L"1e-05");
    EXPECT_EQ(formatGeneral(-0.0f), L"-0");
    EXPECT_EQ(formatGeneral(std::numeric_limits<float>::infinity()), L"inf");
}

TEST(FormatGeneral, AgreesWithAStreamOnRandomFloats) {
    std::mt19937 random(5);
    for (int i = 0; i < 20000; ++i) {
        const std::uint32_t bits = static_cast<std::uint32_t>(random());
        float value = 0;
        std::memcpy(&value, &bits, sizeof value);
        if (!std::isfinite(value)) continue;
        std::wostringstream stream;
        stream.imbue(std::locale::classic());
        stream << value;
        ASSERT_EQ(formatGeneral(value), stream.str());
    }
}

TEST(Numbers, DoNotFollowTheLocale) {
    const GermanLocale german;
    std::ostringstream stream;
    stream << 1234.5;
    ASSERT_EQ(stream.str(), "1.234,5");
    EXPECT_EQ(formatScientific(1.5), L"1.500000000000000e+00");
    EXPECT_EQ(formatFixed(1234.5, 3), L"1234.500");
    EXPECT_EQ(formatGeneral(0.5f), L"0.5");
    EXPECT_EQ(formatInteger(1234567), L"1234567");
    EXPECT_EQ(leadingDouble(L"1.500000000000000e+00"), 1.5);
    EXPECT_EQ(leadingDouble(L"0.1234567890123456789"), 0.1234567890123456789);
    EXPECT_EQ(leadingDouble(u"1,5"), 1.0);
    EXPECT_EQ(leadingInteger(L"1.234"), 1);
    if (!GermanLocale::isOfTheCLibraryToo()) GTEST_SKIP() << "the C library has no German locale here";
    EXPECT_STREQ(std::localeconv()->decimal_point, ",");
}

}  // namespace
