#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "fuzz/mutators/Mutators.h"
#include "fuzz/targets/FuzzTargets.h"

/// What libFuzzer calls, for the target that the build names.

extern "C" size_t LLVMFuzzerMutate(uint8_t* data, size_t size, size_t maxSize);

namespace {

constexpr std::string_view kTarget = NONPAR_FUZZ_TARGET;

/// One in so many mutations is of bare bytes.
constexpr unsigned kByteShare = 5;

const fuzz::FuzzTarget& Target()
{
    static const fuzz::FuzzTarget* const target = fuzz::FindFuzzTarget(kTarget);
    return *target;
}

const fuzz::Mutator& Mutator()
{
    static const fuzz::Mutator* const mutator = fuzz::FindMutator(kTarget);
    return *mutator;
}

std::string_view View(const uint8_t* data, size_t size)
{
    return {reinterpret_cast<const char*>(data), size};
}

/// 0 for a text that has no room.
size_t Give(const std::string& text, uint8_t* data, size_t maxSize)
{
    if (text.empty() || text.size() > maxSize) return 0;
    std::memcpy(data, text.data(), text.size());
    return text.size();
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    Target().fPrepare();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    Target().fRun(View(data, size));
    return 0;
}

extern "C" size_t LLVMFuzzerCustomMutator(uint8_t* data, size_t size, size_t maxSize, unsigned seed)
{
    if (seed % kByteShare != 0) {
        const std::string text = Mutator().fMutate(View(data, size), seed);
        if (text != View(data, size))
            if (const size_t given = Give(text, data, maxSize)) return given;
    }
    return LLVMFuzzerMutate(data, size, maxSize);
}

extern "C" size_t LLVMFuzzerCustomCrossOver(const uint8_t* data1, size_t size1,
                                            const uint8_t* data2, size_t size2, uint8_t* out,
                                            size_t maxSize, unsigned seed)
{
    return Give(Mutator().fCross(View(data1, size1), View(data2, size2), seed), out, maxSize);
}
