#pragma once

class QORT_DataSource;
struct SplitResult;

namespace fuzz {

/// The formats of output that need no file.
enum class Format { Json, Html, Text };

/// Puts a split through the plug-in and checks what comes out. A failed read and a broken invariant
/// are fine; false tells of them.
bool WriteInFormat(const QORT_DataSource& source, const SplitResult& split, Format format);
bool WriteInAllFormats(const QORT_DataSource& source, const SplitResult& split);

}  // namespace fuzz
