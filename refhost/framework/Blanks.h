#pragma once

namespace refhost {

/// What parts the tokens of a result document's texts and may stand around its numbers.
constexpr bool IsBlank(char character)
{
    return character == ' ' || character == '\n' || character == '\t' || character == '\r';
}

}  // namespace refhost
