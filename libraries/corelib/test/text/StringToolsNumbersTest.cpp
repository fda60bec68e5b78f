#include "libraries/corelib/source/text/StringToolsNumbers.h"

#include "libraries/corelib/source/text/StringToolsConvert.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace TarvikCorelib::StringTools {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

struct Trim {
    const char* text;
    const char* expected;
};

const std::vector<Trim> trims = {
    {"007.50", "7.5"}, {"0.50", ".5"}, {"70", "70"},       {"000", "000"},    {"12.", "12"},
    {"3.00", "3"},     {".000", "0"},  {"0.", "0"},        {"-0.50", "-0.5"}, {"-07", "-07"},
    {".", "."},        {"", ""},       {"0abc0", "0abc0"}, {"1.2.0", "1.2."}};

TEST(StringToolsNumbersTest, ZerosThatDoNotCountAreTrimmed) {
    for (const Trim& row : trims) {
        std::string narrow = row.text;
        std::wstring wide = widen(row.text);
        EXPECT_EQ(trimNumber(narrow), row.expected);
        EXPECT_EQ(trimNumber(wide), widen(row.expected));
    }
}

struct Rounding {
    const char* text;
    std::size_t decimals;
    const char* expected;
};

const std::vector<Rounding> roundings = {
    {"1.25", 1, "1.3"},  {"1.249", 1, "1.2"},     {"9.96", 1, "10.0"},
    {"99.5", 0, "100."}, {"-9.5", 0, "-10."},     {"+9.5", 0, "+10."},
    {"-.96", 1, "-1.0"}, {"1.5", 3, "1.500"},     {"7", 2, "7.00"},
    {"7", 0, "7"},       {"1.55", 2, "1.55"},     {"a.99", 1, "a1.0"},
    {".55", 1, ".55"},   {"1.2.55", 1, "1.2.55"}, {"-a.55", 1, "-a.55"},
    {"-", 1, "-"},       {".", 1, "."},           {"", 1, ""}};

TEST(StringToolsNumbersTest, ANumberIsRoundedInItsText) {
    for (const Rounding& row : roundings) {
        std::string narrow = row.text;
        std::wstring wide = widen(row.text);
        EXPECT_EQ(roundNumber(narrow, row.decimals, true), row.expected);
        EXPECT_EQ(roundNumber(wide, row.decimals, true), widen(row.expected));
    }
    std::string text = "1.5";
    EXPECT_EQ(roundNumber(text, 3, false), "1.5");
}

struct Real {
    double number;
    const char* narrow;
    const wchar_t* wide;
};

const std::vector<Real> reals = {{-0.0, "0", L"0"},
                                 {-2.5, "-2.5", L"-2.5"},
                                 {1e-15, "0", L"0.000000000000001"},
                                 {-1e15, "-1000000000000000", L"-1000000000000000"},
                                 {1.5e21, "1.500000000000000e+21", L"1.500000000000000e+21"},
                                 {5e-300, "5.000000000000000e-3", L"5.000000000000000e-3"},
                                 {-infinity, "-inf", L"-inf"}};

TEST(StringToolsNumbersTest, AWideRealHasOneDecimalMore) {
    for (const Real& row : reals) {
        EXPECT_EQ(toString(row.number), row.narrow);
        EXPECT_EQ(toWString(row.number), row.wide);
    }
}

struct Whole {
    const char* text;
    int eight;
    unsigned thirtyTwo;
    long long sixtyFour;
};

const std::vector<Whole> wholes = {{"-3x", -3, 4294967293U, -3},
                                   {"+5", 5, 5, 0},
                                   {" 5", 5, 5, 0},
                                   {"", 0, 0, 0},
                                   {"300", 44, 300, 300},
                                   {"18446744073709551617", -1, 4294967295U, 1}};

TEST(StringToolsNumbersTest, ANumberTooWideIsCutOrWrapsAround) {
    for (const Whole& row : wholes) {
        EXPECT_EQ(toInt8(row.text), row.eight) << row.text;
        EXPECT_EQ(toUInt32(widen(row.text)), row.thirtyTwo) << row.text;
        EXPECT_EQ(toInt64(row.text), row.sixtyFour) << row.text;
        EXPECT_EQ(toInt64(widen(row.text)), row.sixtyFour) << row.text;
    }
    EXPECT_EQ(toInt64("9223372036854775808"), std::numeric_limits<long long>::min());
    EXPECT_EQ(toUInt64("-1"), 0U);
}

TEST(StringToolsNumbersTest, AViewEndsWhereItEndsAndALongTextIsReadToItsNumber) {
    const std::string_view digits = "12345";
    EXPECT_EQ(toInt16(digits.substr(1, 2)) + toDouble(digits.substr(3, 1)), 27);
    EXPECT_EQ(toInt32(std::string_view("1\0002", 3)), 1);
    EXPECT_EQ(toInt32(std::wstring(70, L' ') + L"-7"), -7);
    EXPECT_EQ(toDouble(std::string(40, ' ') + std::string(21, '0') + "1e+2x"), 100);
}

TEST(StringToolsNumbersTest, TheLongestIntegersHaveRoom) {
    EXPECT_EQ(toString(std::numeric_limits<long long>::min()), "-9223372036854775808");
    EXPECT_EQ(toWString(~0ULL), L"18446744073709551615");
}

TEST(StringToolsNumbersTest, OnlyNothingAndZeroAreFalse) {
    EXPECT_FALSE(toBool("") || toBool("0") || toBool(L"0"));
    EXPECT_TRUE(toBool("false") && toBool("00") && toBool(L"false"));
}

TEST(StringToolsNumbersTest, OnlyTheNarrowFormCapsInfinity) {
    EXPECT_EQ(toDouble("inf"), 1.7976931348623157e308);
    EXPECT_EQ(toDouble(L"inf"), infinity);
    EXPECT_EQ(toDouble("-1e999"), -infinity);
    EXPECT_TRUE(std::isnan(toDouble("nan")));
}

}  // namespace
}  // namespace TarvikCorelib::StringTools
