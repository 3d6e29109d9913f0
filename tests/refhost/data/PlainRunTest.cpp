#include "refhost/data/PlainRun.h"

#include <string>

#include <gtest/gtest.h>

namespace refhost {

TEST(PlainRun, EndsAtEveryByteThatIsNotPlain)
{
    for (int code = 0; code < 256; ++code) {
        const bool isPlain = code >= 0x20 && code < 0x80 && code != '<' && code != '"';
        std::string text(21, ' ');
        for (std::size_t place = 0; place < text.size(); ++place) {
            text[place] = static_cast<char>(code);
            const std::size_t length = PlainRun<'<', '"'>(text);
            ASSERT_EQ(length, isPlain ? text.size() : place) << "byte " << code;
            text[place] = ' ';
        }
    }
}

TEST(PlainRun, CopiesTextsOfEveryLengthUpToTheirEnd)
{
    for (std::size_t size = 0; size <= 3 * 16 + 1; ++size) {
        std::string text;
        while (text.size() < size)
            text += static_cast<char>('A' + text.size());
        const std::string behind(size + 1, '<');
        for (std::size_t place = 0; place <= size; ++place) {
            const std::string cut = text.substr(0, place) + behind.substr(place, size - place);
            std::string copy(size + 1, '|');
            ASSERT_EQ(PlainRun<'<'>(cut, copy.data()), place) << "of " << size;
            ASSERT_EQ(copy.substr(0, place), text.substr(0, place));
            ASSERT_EQ(copy.back(), '|') << "no byte behind the room of " << size;
        }
    }
}

}  // namespace refhost
