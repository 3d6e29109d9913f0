#pragma once

#include <memory>

#include "refhost/writers/PartedSink.h"

namespace refhost {

class ByteOutput;

/// The report that people open: one file without network, complete without script but for the
/// pictures. Nodes are written as they come; what is known only at the end, the outline and the
/// drawing libraries, stands at the end of the file.
std::unique_ptr<PartedSink> MakeHtmlWriter(std::unique_ptr<ByteOutput> output);

}  // namespace refhost
