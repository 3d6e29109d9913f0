#include <algorithm>
#include <cstddef>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

#include "refhost/data/Characters.h"
#include "refhost/data/DateFormats.h"
#include "refhost/data/MissingValue.h"
#include "refhost/data/NumberText.h"
#include "refhost/data/ValueText.h"

#include "host/data/OBS.h"
#include "host/data/QORT_Format.h"

namespace refhost {

namespace {

std::string FullText(double number, const QORT_Format& format)
{
    if (IsUntold(number)) return ".";
    const auto date = DateFormatText(number, format.fType, format.fDecimals);
    return date ? *date : FixedText(number, format.fDecimals);
}

/// The text of a number in a width; stars where not even one digit and its exponent fit.
std::string FittingText(double number, const QORT_Format& format)
{
    std::string text = FullText(number, format);
    if (text.size() <= format.fWidth) return text;
    text = ScientificText(number, format.fWidth);
    return text.empty() ? std::string(format.fWidth, '*') : text;
}

}  // namespace

std::string ValueText(const OBS& value, const QORT_Format& format)
{
    if (!value.IsString())
        if (auto date = DateFormatText(value.Number(), format.fType, format.fDecimals))
            return *std::move(date);
    std::string text = value.IsString() ? std::string(WholeCharacters(value.Text(), format.fWidth))
                                        : FittingText(value.Number(), format);
    text.erase(text.find_last_not_of(' ') + 1);
    text.erase(0, std::min(text.find_first_not_of(' '), text.size()));
    return text;
}

std::string PaddedText(std::string text, const QORT_Format& format)
{
    if (text.size() < format.fWidth) text.resize(format.fWidth, ' ');
    return text;
}

}  // namespace refhost

void ToString(const OBS& value, const QORT_Format& format, char* buffer)
{
    if (!buffer || format.fWidth == 0) return;
    std::memset(buffer, ' ', format.fWidth);
    if (value.IsString()) {
        const std::string_view text = refhost::WholeCharacters(value.Text(), format.fWidth);
        text.copy(buffer, text.size());
        return;
    }
    const std::string text = refhost::FittingText(value.Number(), format);
    text.copy(buffer + (format.fWidth - text.size()), text.size());
}
