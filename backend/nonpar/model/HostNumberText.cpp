#include "model/HostNumberText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <span>

#include "model/NOPRTestIdentity.h"

#include "host/data/OBS.h"
#include "host/data/QORT_Format.h"

namespace {

constexpr std::uint16_t kShownWidth = 40;
constexpr double kSecondsPerDay = 86400.0;
constexpr double kSecondsTo1970 = 12219379200.0;  // from 14 October 1582, 0 of the host's dates

constexpr int kDayTypes[] = {20, 23, 24, 26, 28, 29, 30, 38, 39};
constexpr int kSecondTypes[] = {22, 86};

bool Holds(std::span<const int> types, int type) { return std::ranges::count(types, type) != 0; }

}  // namespace

double HostNumber(double value, int formatType)
{
    if (IsMissing(value)) return value;
    double shown = value;
    if (Holds(kDayTypes, formatType)) shown = value * kSecondsPerDay + kSecondsTo1970;
    if (Holds(kSecondTypes, formatType)) shown = value + kSecondsTo1970;
    return std::isfinite(shown) ? shown : MissingValue;
}

std::string HostNumberText(double value, QORT_Format& format)
{
    format.fWidth = kShownWidth;
    std::array<char, kShownWidth> buffer;
    buffer.fill(' ');
    ToString(OBS(HostNumber(value, format.fType)), format, buffer.data());
    return std::string(WithoutBlanks({buffer.data(), buffer.size()}));
}

std::string_view WithoutBlanks(std::string_view text)
{
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}
