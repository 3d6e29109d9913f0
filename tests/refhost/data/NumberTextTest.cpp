#include "refhost/data/NumberText.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "support/Cases.h"

namespace refhost {

TEST(ShortText, RoundsTheShortestDecimalText)
{
    // clang-format off
    ExpectEach<std::pair<double, int>, std::string>({
        {{0.0, 16}, "0", "nothing behind the point"},
        {{-0.0, 16}, "0", "zero has no sign"},
        {{-0.4, 0}, "0", "what rounds to zero has none either"},
        {{3.0, 16}, "3", "no trailing point"},
        {{100.0, 0}, "100", "zeros before the point stay"},
        {{0.1 + 0.2, 16}, "0.3", "rounding to 16 digits strips the zeros that it makes"},
        {{0.1 + 0.2, 17}, "0.30000000000000004", "the shortest that reads back"},
        {{2.5, 0}, "3", "half goes away from zero"},
        {{-2.5, 0}, "-3", "on both sides"},
        {{0.5, 0}, "1", "also where no digit stands before the point"},
        {{0.05, 0}, "0", "a digit behind the rounded one does not count"},
        {{1.005, 2}, "1.01", "on the decimal text, not on the binary number"},
        {{99.95, 1}, "100", "a carry through the point"},
        {{1e16, 16}, "10000000000000000", "plain below 1e17"},
        {{1e17, 16}, "1e+17", "with an exponent from 1e17 on"},
        {{-1.25e+20, 1}, "-1.3e+20", "digits are those of the mantissa"},
        {{9.99e+20, 1}, "1e+21", "a carry into the exponent"},
        {{1e-16, 16}, "0.0000000000000001", "plain from 1e-16 on"},
        {{1.5e-16, 16}, "0.0000000000000002", "rounded where it has more digits than asked"},
        {{9.5e-17, 16}, "9.5e-17", "with an exponent below"},
        {{1e+100, 16}, "1e+100", "three digits of exponent where it needs them"},
        {{-std::numeric_limits<double>::max(), 16}, "-1.7976931348623157e+308", "the missing number"},
        {{5e-324, 16}, "5e-324", "the smallest number"},
        {{std::numeric_limits<double>::infinity(), 16}, "inf", "what is not finite has a name"},
    }, ShortText);
    // clang-format on
}

TEST(ShortText, ReadsBackAsTheSameNumberWhenNothingIsCut)
{
    std::mt19937_64 random(7);
    for (int round = 0; round < 20000; ++round) {
        const std::uint64_t bits = random();
        double value = 0;
        std::memcpy(&value, &bits, sizeof value);
        if (!std::isfinite(value)) continue;
        const std::string text = ShortText(value, 40);
        ASSERT_EQ(std::strtod(text.c_str(), nullptr), value) << text;
    }
}

TEST(FixedText, RoundsAsPrintfDoesAndDropsTheSignOfZero)
{
    // clang-format off
    ExpectEach<std::pair<double, int>, std::string>({
        {{0.125, 2}, "0.12", "an exact half goes to the even digit"},
        {{0.375, 2}, "0.38", "up or down"},
        {{1.005, 2}, "1.00", "the binary number lies below the half"},
        {{-0.004, 2}, "0.00", "no sign on a zero"},
        {{-0.006, 2}, "-0.01", "a sign on all else"},
        {{1234.5, 0}, "1234", "no point without decimals"},
        {{7, 3}, "7.000", "trailing zeros stay"},
    }, FixedText);
    // clang-format on
    EXPECT_EQ(FixedText(std::numeric_limits<double>::max(), 255).size(), 309u + 1 + 255);
}

TEST(FixedText, AgreesWithPrintfOnNumbersOfAllSizes)
{
    std::mt19937_64 random(7);
    for (int round = 0; round < 20000; ++round) {
        const auto decimals = static_cast<int>(random() % 10);
        // As many are short decimals and halves of the last place as have all their digits.
        const double divisor = round % 2 == 0 ? 2e3 : 7.0;
        const double value = static_cast<double>(random() >> (random() % 60 + 1)) / divisor;
        std::array<char, 64> printed;
        std::snprintf(printed.data(), printed.size(), "%.*f", decimals, -value);
        const bool isZero = std::strtod(printed.data(), nullptr) == 0.0;
        ASSERT_EQ(FixedText(-value, decimals), printed.data() + (isZero ? 1 : 0));
    }
}

TEST(ScientificText, TakesAsManyDigitsAsTheWidthHolds)
{
    // clang-format off
    ExpectEach<std::pair<double, int>, std::string>({
        {{123456789.0, 8}, "1.23e+08", "the mantissa fills what the exponent leaves"},
        {{-123456789.0, 8}, "-1.2e+08", "a sign takes a place"},
        {{123456789.0, 6}, "1e+08", "a point without a digit behind it is not written"},
        {{123456789.0, 4}, "", "not even one digit fits"},
        {{9.99e99, 7}, "1e+100", "rounding up takes a digit more for the exponent"},
        {{9.994e99, 8}, "9.99e+99", "but a number that keeps its exponent has the place"},
        {{9.996e99, 8}, "1.0e+100", "and digits give way to it"},
        {{9.96e99, 5}, "", "also when the whole text then no longer fits"},
    }, ScientificText);
    // clang-format on
}

}  // namespace refhost
