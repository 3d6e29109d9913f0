#pragma once

#include <string>
#include <vector>

/// A decimal integer; a text with a fraction or an exponent is cut toward 0, what lies beyond 32
/// bits is clamped, and a text that is no number gives 0.
int String2Integer(const std::string& text);

/// A decimal number with a point, whatever the locale. A text that is not wholly one finite number
/// gives the missing number, the most negative finite double.
double String2Double(const std::string& text);

/// Appends the tokens of a text, parted by blanks, tabs and line ends. A token in double quotes may
/// hold these; a doubled quote in it stands for one.
void SplitToToken(const std::string& text, std::vector<std::string>& tokens);

std::string Integer2String(int value);

/// Turns a number as a result document gives it into the host's own value of a format type: days,
/// or seconds, since 1 January 1970 into seconds since 14 October 1582. Numbers of other types, and
/// the missing number, pass as they are.
double NumericFormatCFToStat(double value, int formatType);
