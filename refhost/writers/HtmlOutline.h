#pragma once

#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace refhost {

class ByteOutput;

/// The outline of a report as nested lists. It stands behind the results but grows with them, so
/// beyond a first piece it waits in a temporary file and memory stays as it is.
class HtmlOutline {
public:
    /// An entry is closed by `Close`; between them stand the entries below it. `kind` is the class
    /// of its link.
    void Open(std::string_view kind, std::string_view id, std::string_view label);
    void Close();

    /// Entries as another outline wrote them.
    void Add(std::string_view entries);

    bool IsEmpty() const { return fIsEmpty; }

    /// Writes the entries, and is then empty.
    void MoveTo(ByteOutput& output);

private:
    struct CloseFile {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };

    void SpillLarge();

    bool fIsEmpty = true;
    std::vector<bool> fHasList;  // of each open entry: whether its list of entries has begun
    std::string fPiece;          // what is not in the file
    std::unique_ptr<std::FILE, CloseFile> fFile;
};

}  // namespace refhost
