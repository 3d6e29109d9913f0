#pragma once

#include <memory>

#include "refhost/writers/PartedSink.h"

namespace refhost {

class ByteOutput;

/// Output for a terminal, or to be pasted into a mail: tables in box characters, charts in words.
std::unique_ptr<PartedSink> MakeTextWriter(std::unique_ptr<ByteOutput> output, int terminalWidth);

}  // namespace refhost
