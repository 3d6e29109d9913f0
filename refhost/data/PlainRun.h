#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <type_traits>

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

#ifdef __SSE2__

/// Bytes that are looked at at once: 16, or the lower 8 or 4 of a register.
template <std::size_t kWidth>
struct Block {
    static __m128i Load(const char* from)
    {
        if constexpr (kWidth == 16) {
            return _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
        } else {
            std::conditional_t<kWidth == 8, std::int64_t, std::int32_t> bytes = 0;
            std::memcpy(&bytes, from, kWidth);
            if constexpr (kWidth == 8) return _mm_cvtsi64_si128(bytes);
            return _mm_cvtsi32_si128(static_cast<int>(bytes));
        }
    }

    /// A bit for each byte that is not plain, and one behind them.
    template <char... kSpecials>
    static unsigned Specials(__m128i bytes)
    {
        // As signed numbers, what is not ASCII lies below the controls.
        __m128i special = _mm_cmplt_epi8(bytes, _mm_set1_epi8(' '));
        ((special = _mm_or_si128(special, _mm_cmpeq_epi8(bytes, _mm_set1_epi8(kSpecials)))), ...);
        return static_cast<unsigned>(_mm_movemask_epi8(special)) | (1U << kWidth);
    }

    /// How many plain bytes the text begins with. Its last block laps over the one before, so no
    /// byte is left to be looked at alone.
    template <char... kSpecials>
    static std::size_t PlainRun(std::string_view text, char* copy)
    {
        std::size_t at = 0;
        while (true) {
            if (copy) std::memcpy(copy + at, text.data() + at, kWidth);
            const unsigned specials = Specials<kSpecials...>(Load(text.data() + at));
            const auto plain = static_cast<std::size_t>(std::countr_zero(specials));
            if (plain < kWidth) return at + plain;
            at += kWidth;
            if (at == text.size()) return at;
            at = std::min(at, text.size() - kWidth);
        }
    }
};

#endif

/// How many of them the text begins with. They are copied where `copy` is given, which has room for
/// the whole text; what stands there behind them is undefined.
template <char... kSpecials>
inline std::size_t PlainRun(std::string_view text, char* copy = nullptr)
{
#ifdef __SSE2__
    if (text.size() >= 16) return Block<16>::PlainRun<kSpecials...>(text, copy);
    if (text.size() >= 8) return Block<8>::PlainRun<kSpecials...>(text, copy);
    if (text.size() >= 4) return Block<4>::PlainRun<kSpecials...>(text, copy);
#endif
    std::size_t length = 0;
    for (; length < text.size(); ++length) {
        const char byte = text[length];
        if (!kPlainBytes<kSpecials...>[static_cast<unsigned char>(byte)]) break;
        if (copy) copy[length] = byte;
    }
    return length;
}

}  // namespace refhost
