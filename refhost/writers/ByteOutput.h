#pragma once

#include <cassert>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

namespace refhost {

/// Where a writer's bytes go: standard output, a file, or a text in memory. Bytes are gathered and
/// go out in large pieces, or when the writer says so. What can't be written throws `WriteFailure`,
/// with a line that gives the target's name and the reason.
class ByteOutput {
    static constexpr std::size_t kPiece = 1U << 16U;

public:
    static constexpr std::size_t kMostRoom = kPiece;

    /// Standard output where `file` is empty; otherwise the file, which is made or emptied.
    ByteOutput(const std::string& file, std::string name);

    /// Appends to a text, which outlives this object.
    explicit ByteOutput(std::string& text) : fText(&text) {}

    /// Keeps all bytes until they are taken: it gathers, and never hands over.
    ByteOutput() : fKeeps(true) {}

    /// Gives up what was not flushed: `Close` is the way to end well.
    ~ByteOutput();
    ByteOutput(const ByteOutput&) = delete;
    ByteOutput& operator=(const ByteOutput&) = delete;

    void Write(std::string_view bytes)
    {
        if (bytes.size() > fSize - fUsed) {
            WriteBeyond(bytes);
            return;
        }
        std::memcpy(fPiece.get() + fUsed, bytes.data(), bytes.size());
        fUsed += bytes.size();
    }

    void Put(char byte)
    {
        if (fUsed == fSize) MakeRoom(1);
        fPiece[fUsed++] = byte;
    }

    /// Room for so many bytes, `kMostRoom` at most, to be written at once; `Took` tells their end.
    char* Room(std::size_t bytes)
    {
        assert(bytes <= kMostRoom);
        if (bytes > fSize - fUsed) MakeRoom(bytes);
        return fPiece.get() + fUsed;
    }
    void Took(const char* end) { fUsed = static_cast<std::size_t>(end - fPiece.get()); }

    /// Hands over what was gathered.
    void Flush();

    /// Flushes, and closes a file.
    void Close();

    /// What was kept since the last call; valid until more is written.
    std::string_view Take();

private:
    /// Empties the piece, or makes it larger where it is to keep what it holds.
    void MakeRoom(std::size_t bytes);

    /// Writes what the piece has no room for.
    void WriteBeyond(std::string_view bytes);

    /// Hands bytes over without gathering them.
    void Send(std::string_view bytes);
    [[noreturn]] void Fail(int reason) const;

    std::string* fText = nullptr;
    bool fKeeps = false;
    std::string fName;
    int fDescriptor = -1;
    bool fOwned = false;
    std::unique_ptr<char[]> fPiece = std::make_unique_for_overwrite<char[]>(kPiece);
    std::size_t fSize = kPiece;
    std::size_t fUsed = 0;  // of the piece
};

}  // namespace refhost
