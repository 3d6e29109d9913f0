#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

#include "model/NOPRTestIdentity.h"

/// What fills a place of a null hypothesis.
enum class HypothesisFiller {
    None,
    Fields,             ///< fields by their indices
    Values,             ///< numbers in the format of the test field
    Numbers,            ///< plain numbers
    ValueIndices,       ///< values of the field of parameter 0
    ValueTexts,         ///< the same, and texts of values that the field doesn't hold
    StandardDeviation,  ///< of the normal distribution
};

/// A place, the parameter that fills it, and whether its members stand as one list.
struct HypothesisPlace {
    HypothesisFiller fFiller = HypothesisFiller::None;
    std::size_t fParameter = 0;
    bool fSublist = false;
};

/// A condition key, which is the key of its sentence too, and what fills ^1, ^2 and so on. It
/// counts only under its own kind.
struct ConditionKey {
    static constexpr std::size_t kMostPlaces = 5;

    TestKind fKind;
    std::string_view fKey;
    std::array<HypothesisPlace, kMostPlaces> fPlaces;

    /// The places of the sentence; the document gives as many parameters.
    constexpr std::span<const HypothesisPlace> Places() const
    {
        std::size_t count = 0;
        while (count < kMostPlaces && fPlaces[count].fFiller != HypothesisFiller::None)
            ++count;
        return std::span(fPlaces).first(count);
    }
};

/// All keys, by kind.
std::span<const ConditionKey> ConditionKeys();

/// Null where the kind has no such key.
const ConditionKey* FindConditionKey(TestKind testKind, std::string_view key);
