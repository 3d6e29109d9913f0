#include "refhost/data/ShortestNumber.h"

#include <charconv>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "support/Cases.h"

namespace refhost {
namespace {

std::string Shortest(double number)
{
    std::string text;
    AppendShortest(text, number);
    return text;
}

std::string ByLibrary(double number)
{
    char room[kLongestNumber];
    return {room, std::to_chars(room, room + sizeof room, number).ptr};
}

std::string ShortDecimal(double number)
{
    char room[kLongestNumber];
    const char* end = WriteShortDecimal(room, number);
    return end ? std::string(room, static_cast<std::size_t>(end - room)) : "none";
}

}  // namespace

TEST(AppendShortest, WritesWhatTheLibraryWrites)
{
    // clang-format off
    constexpr double kOdd[] = {
        0.0, -0.0, 1.0, 99999.0, 100000.0, 1200000.0, 12345600000.0, 0.0001, 0.0009, 0.001, 0.0012, 0.00012, 0.1 + 0.2,
        1e11, 99999999999.9999, 1e15, 5e-324, 2.2250738585072014e-308,
        std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::max()};
    // clang-format on
    for (const double number : kOdd) {
        EXPECT_EQ(Shortest(number), ByLibrary(number));
        EXPECT_EQ(Shortest(-number), ByLibrary(-number));
    }
    std::mt19937_64 random(7);
    for (int round = 0; round < 20000; ++round) {
        const std::uint64_t bits = random();
        double any = 0;
        std::memcpy(&any, &bits, sizeof any);
        ASSERT_EQ(Shortest(any), ByLibrary(any));
        // Decimals of all lengths, with as many places as are taken the short way and one more.
        const double scaled = static_cast<double>(static_cast<std::int64_t>(bits >> (bits % 60)));
        ASSERT_EQ(Shortest(scaled / 1e4), ByLibrary(scaled / 1e4));
        ASSERT_EQ(Shortest(scaled / -1e5), ByLibrary(scaled / -1e5));
    }
}

TEST(WriteShortDecimal, NeverHasAnExponent)
{
    ExpectEach<double, std::string>({{-0.0, "0"},
                                     {100000.0, "100000"},
                                     {-0.0001, "-0.0001"},
                                     {0.05, "0.05"},
                                     {12.5, "12.5"},
                                     {1.00001, "none"},
                                     {1e12, "none"},
                                     {0.1 + 0.2, "none"}},
                                    ShortDecimal);
}

}  // namespace refhost
