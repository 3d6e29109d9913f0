#pragma once

#include <cstdint>

/// How a value of the host is shown: four bytes, passed by value.
/// `fType` tells numbers (5), strings (1), dates and times (20 to 30, 38, 39, 85, 86) apart.
struct QORT_Format {
    std::uint16_t fWidth = 8;
    std::uint8_t fType = 5;
    std::uint8_t fDecimals = 2;

    bool operator==(const QORT_Format&) const = default;
};
