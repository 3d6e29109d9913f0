#pragma once

class QORT_DataSource;
struct SplitResult;

namespace fuzz {

/// Puts a split through the plug-in, once for each format of output that needs no file, and checks
/// what comes out. A failed read and a broken invariant are fine.
void WriteInAllFormats(const QORT_DataSource& source, const SplitResult& split);

}  // namespace fuzz
