#pragma once

#include <string>
#include <utility>

struct QORT_Format;

/// One cell value of the host: a number, or a string padded with blanks to its format's width.
/// Passed by pointer; whoever hands a pointer out keeps the value.
class OBS {
public:
    explicit OBS(double number) : fNumber(number) {}
    explicit OBS(std::string text) : fIsString(true), fText(std::move(text)) {}

    bool IsString() const { return fIsString; }

    /// 0 for a string.
    double Number() const { return fNumber; }

    /// The padded text; empty for a number.
    const std::string& Text() const { return fText; }

private:
    bool fIsString = false;
    double fNumber = 0.0;
    std::string fText;
};

/// Renders a value by width, type and decimals of `format` into `buffer`, which holds at least
/// `format.fWidth` bytes. All of them are written, filled with blanks: numbers and dates stand
/// right-aligned, strings left-aligned. There is no closing NUL.
void ToString(const OBS& value, const QORT_Format& format, char* buffer);
