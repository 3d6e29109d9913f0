#pragma once

#include <memory>

#include "refhost/writers/PartedSink.h"

namespace refhost {

class ByteOutput;

/// The complete, stable record of what was asked of the host, for tests and other programs; see
/// docs/output-json.md.
std::unique_ptr<PartedSink> MakeJsonWriter(std::unique_ptr<ByteOutput> output);

}  // namespace refhost
