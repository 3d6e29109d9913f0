#include "refhost/writers/ByteOutput.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "refhost/writers/WellFormed.h"

#include "support/Cases.h"

namespace refhost {
namespace {

TEST(ByteOutput, WritesEverythingOnce)
{
    const std::string file = testing::TempDir() + "byte_output.bin";
    std::string expected;
    {
        ByteOutput output(file, file);
        for (int piece = 0; piece < 30'000; ++piece) {
            output.Write("piece ");
            output.Put('\n');
            expected += "piece \n";
        }
        const std::string large(300'000, 'x');
        output.Write(large);
        expected += large;
        output.Close();
    }
    std::stringstream written;
    written << std::ifstream(file, std::ios::binary).rdbuf();
    EXPECT_TRUE(written.str() == expected);
    EXPECT_EQ(std::remove(file.c_str()), 0);
}

TEST(ByteOutput, KeepsWhatIsTakenLater)
{
    ByteOutput output;
    EXPECT_EQ(output.Take(), "");
    for (const std::size_t size : {10U, 70'000U, 1'000'000U, 5U}) {
        std::string expected;
        while (expected.size() < size) {
            output.Write("piece ");
            output.Put('\n');
            expected += "piece \n";
        }
        output.Flush();
        output.Write(expected);
        EXPECT_TRUE(output.Take() == expected + expected) << size;
    }
}

TEST(WellFormed, ReplacesWhatIsNoCharacter)
{
    // clang-format off
    ExpectEach<std::string, std::string>({
        {"a\u00e9\u20ac\U0001F600", "a\u00e9\u20ac\U0001F600", "one to four bytes"},
        {"a\xff" "b", "a\uFFFDb", "never a byte of UTF-8"},
        {"\x80", "\uFFFD", "a byte that only continues"},
        {"\xe2\x82", "\uFFFD", "cut off at the end"},
        {"\xe2\x82z", "\uFFFDz", "cut off by a letter"},
        {"\xc0\xaf", "\uFFFD\uFFFD", "overlong"},
        {"\xed\xa0\x80", "\uFFFD\uFFFD\uFFFD", "a surrogate"},
        {"\xf4\x90\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD", "beyond Unicode"},
    }, [](const std::string& text) {
        std::string scratch;
        return std::string(WellFormed(text, scratch));
    });
    // clang-format on
}

}  // namespace
}  // namespace refhost
