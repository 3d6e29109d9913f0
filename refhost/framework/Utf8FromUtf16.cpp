#include "refhost/framework/Utf8FromUtf16.h"

#include <array>
#include <cstddef>
#include <cstdint>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace refhost {

namespace {

constexpr std::size_t kBlockUnits = 1024;
constexpr std::size_t kMostBytesOfUnit = 3;  // four for a pair, which are two units,
constexpr std::size_t kMostBytesOfBlock =    // the first of which may lie before the block
    kBlockUnits * kMostBytesOfUnit + 1;

/// Writes the ASCII units at the front of a piece and tells how many there are.
std::size_t WriteAscii(std::u16string_view piece, char* out)
{
    std::size_t count = 0;
#ifdef __SSE2__
    const __m128i notAscii = _mm_set1_epi16(static_cast<short>(0xFF80));
    constexpr std::size_t kLanes = 8;
    for (; count + kLanes <= piece.size(); count += kLanes) {
        const __m128i units =
            _mm_loadu_si128(reinterpret_cast<const __m128i*>(piece.data() + count));
        const __m128i high = _mm_and_si128(units, notAscii);
        if (_mm_movemask_epi8(_mm_cmpeq_epi16(high, _mm_setzero_si128())) != 0xFFFF) break;
        _mm_storel_epi64(reinterpret_cast<__m128i*>(out + count), _mm_packus_epi16(units, units));
    }
#endif
    for (; count < piece.size() && piece[count] < 0x80; ++count)
        out[count] = static_cast<char>(piece[count]);
    return count;
}

char* WriteCodePoint(std::uint32_t code, char* out)
{
    const auto trail = [](std::uint32_t bits) { return static_cast<char>(0x80U | (bits & 0x3FU)); };
    if (code < 0x800) {
        *out++ = static_cast<char>(0xC0U | (code >> 6U));
    } else {
        if (code < 0x10000) {
            *out++ = static_cast<char>(0xE0U | (code >> 12U));
        } else {
            *out++ = static_cast<char>(0xF0U | (code >> 18U));
            *out++ = trail(code >> 12U);
        }
        *out++ = trail(code >> 6U);
    }
    *out++ = trail(code);
    return out;
}

bool IsLeading(char16_t unit) { return (unit & 0xFC00U) == 0xD800U; }
bool IsTrailing(char16_t unit) { return (unit & 0xFC00U) == 0xDC00U; }

std::uint32_t CodePointOfPair(char16_t leading, char16_t trailing)
{
    return 0x10000U + ((leading & 0x3FFU) << 10U) + (trailing & 0x3FFU);
}

}  // namespace

bool Utf8FromUtf16::Append(std::u16string_view piece, std::string& text)
{
    std::array<char, kMostBytesOfBlock> block;
    while (!piece.empty()) {
        const std::u16string_view units = piece.substr(0, kBlockUnits);
        char* out = block.data();
        bool paired = true;
        std::size_t place = 0;
        while (place < units.size()) {
            if (fLeading == 0) {
                const std::size_t ascii = WriteAscii(units.substr(place), out);
                place += ascii;
                out += ascii;
                if (place == units.size()) break;
            }
            const char16_t unit = units[place++];
            paired = IsTrailing(unit) == (fLeading != 0);
            if (!paired) break;
            if (IsLeading(unit)) {
                fLeading = unit;
                continue;
            }
            out = WriteCodePoint(fLeading ? CodePointOfPair(fLeading, unit) : unit, out);
            fLeading = 0;
        }
        text.append(block.data(), out);
        if (!paired) return false;
        piece.remove_prefix(units.size());
    }
    return true;
}

}  // namespace refhost
