#pragma once

#include <string_view>

#include "refhost/document/OutputNode.h"

namespace fuzz {

/// What stands between a template and the lines of its data.
inline constexpr std::string_view kDataMark = "\n%%data\n";

/// A chart from the text of its template, the mark and lines of words parted by tabs: its data and
/// what a view set. "\n" in a word is a line feed. Lines that say nothing are passed over.
///
///     source   NAME
///     column   NAME  VALUE...                    of the last source; a number, 'text, or nothing
///     size     WIDTH HEIGHT
///     title    TEXT                              the same: subtitle, footnote
///     label    VARIABLE TEXT                     the same: prefix, host
///     relabel  VARIABLE KEY TEXT
///     category VARIABLE 0|1
///     format   VARIABLE TYPE WIDTH DECIMALS      the same: bound
///     numbers  VARIABLE DECIMALS 0|1 PREFIX SUFFIX
refhost::ChartNode ReadChartInput(std::string_view input);

}  // namespace fuzz
