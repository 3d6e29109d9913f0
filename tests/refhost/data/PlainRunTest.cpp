#include "refhost/data/PlainRun.h"

#include <string>

#include <gtest/gtest.h>

namespace refhost {

// Two kinds of blocks, and single bytes behind them.
constexpr std::size_t kLength = 16 + 8 + 7;

TEST(PlainRun, EndsAtEveryByteThatIsNotPlain)
{
    for (int code = 0; code < 256; ++code) {
        const bool isPlain = code >= 0x20 && code < 0x80 && code != '<' && code != '"';
        for (std::size_t place = 0; place < kLength; ++place) {
            std::string text(kLength, ' ');
            text[place] = static_cast<char>(code);
            const std::size_t length = PlainRun<'<', '"'>(text);
            ASSERT_EQ(length, isPlain ? text.size() : place) << "byte " << code;
        }
    }
}

}  // namespace refhost
