#pragma once

#include <string>

namespace refhost {

/// Where a run's output goes: a file that is written beside its place and renamed at the end, so
/// that no half file is taken for a whole one; or standard output.
class OutputPlace {
public:
    /// Standard output for an empty `file`. Throws `RunFailure` where nothing can be written there.
    explicit OutputPlace(const std::string& file);

    /// Removes what was written unless it was kept.
    ~OutputPlace();
    OutputPlace(const OutputPlace&) = delete;
    OutputPlace& operator=(const OutputPlace&) = delete;

    bool IsStandardOutput() const { return fFile.empty(); }

    /// The file to write to; empty for standard output.
    const std::string& Path() const { return fPath; }

    /// What a user calls it.
    std::string Name() const { return fFile.empty() ? "standard output" : fFile; }

    /// Puts the file, complete by now, into its place. Throws `WriteFailure`.
    void Keep();

private:
    std::string fFile;
    std::string fTarget;  // the file itself where that is a link
    std::string fPath;
    bool fIsKept = false;
};

}  // namespace refhost
