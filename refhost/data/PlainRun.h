#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <string_view>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace refhost {

/// True for the bytes that can be copied as they are: ASCII without controls, and without the
/// specials.
template <char... kSpecials>
inline constexpr std::array<bool, 256> kPlainBytes = [] {
    std::array<bool, 256> plain{};
    for (std::size_t byte = ' '; byte < 0x80; ++byte)
        plain[byte] = ((static_cast<char>(byte) != kSpecials) && ...);
    return plain;
}();

/// How many of them the text begins with. They are copied where `copy` is given, which has room for
/// the whole text; what stands there behind them is undefined.
template <char... kSpecials>
inline std::size_t PlainRun(std::string_view text, char* copy = nullptr)
{
    std::size_t length = 0;
#ifdef __SSE2__
    const auto specialsOf = [](__m128i bytes) {
        // As signed numbers, what is not ASCII lies below the controls.
        __m128i special = _mm_cmplt_epi8(bytes, _mm_set1_epi8(' '));
        ((special = _mm_or_si128(special, _mm_cmpeq_epi8(bytes, _mm_set1_epi8(kSpecials)))), ...);
        return static_cast<unsigned>(_mm_movemask_epi8(special));
    };
    constexpr std::size_t kWide = 16;
    for (; length + kWide <= text.size(); length += kWide) {
        const auto* from = reinterpret_cast<const __m128i*>(text.data() + length);
        const __m128i bytes = _mm_loadu_si128(from);
        if (copy) _mm_storeu_si128(reinterpret_cast<__m128i*>(copy + length), bytes);
        const unsigned specials = specialsOf(bytes);
        if (specials != 0) return length + static_cast<std::size_t>(std::countr_zero(specials));
    }
    constexpr std::size_t kHalf = 8;
    constexpr unsigned kBehindHalf = 1U << kHalf;
    if (length + kHalf <= text.size()) {
        const auto* from = reinterpret_cast<const __m128i*>(text.data() + length);
        const __m128i bytes = _mm_loadl_epi64(from);
        if (copy) _mm_storel_epi64(reinterpret_cast<__m128i*>(copy + length), bytes);
        const unsigned specials = specialsOf(bytes) | kBehindHalf;
        length += static_cast<std::size_t>(std::countr_zero(specials));
        if (specials % kBehindHalf != 0) return length;
    }
#endif
    for (; length < text.size(); ++length) {
        const char byte = text[length];
        if (!kPlainBytes<kSpecials...>[static_cast<unsigned char>(byte)]) break;
        if (copy) copy[length] = byte;
    }
    return length;
}

}  // namespace refhost
