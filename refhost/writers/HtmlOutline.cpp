#include "refhost/writers/HtmlOutline.h"

#include <array>
#include <cerrno>
#include <cstring>

#include <fmt/format.h>

#include "refhost/document/WriteFailure.h"
#include "refhost/writers/ByteOutput.h"
#include "refhost/writers/Escape.h"

namespace refhost {

namespace {

constexpr std::size_t kLargePiece = 1U << 18U;
constexpr std::string_view kEndOfEntry = "</li>\n";
constexpr std::string_view kEndOfList = "</ul></li>\n";

[[noreturn]] void Fail()
{
    throw WriteFailure(fmt::format(
        "the outline of the report can't be kept in a temporary file: {}", std::strerror(errno)));
}

}  // namespace

void HtmlOutline::Open(std::string_view kind, std::string_view id, std::string_view label)
{
    const bool beginsList = !fHasList.empty() && !fHasList.back();
    std::string entry = beginsList ? "\n<ul>\n" : "";
    entry.append("<li><a class=\"").append(kind).append("\" href=\"#").append(id).append("\">");
    AppendMarkupText(entry, label);
    entry.append("</a>");
    // Whole or not at all, and all that is open can be closed, whatever becomes of the memory.
    fHasList.reserve(fHasList.size() + 1);
    fPiece.reserve(fPiece.size() + entry.size() + (fHasList.size() + 1) * kEndOfList.size());
    fPiece.append(entry);
    if (beginsList) fHasList.back() = true;
    fHasList.push_back(false);
    fIsEmpty = false;
}

void HtmlOutline::Close()
{
    fPiece.append(fHasList.back() ? kEndOfList : kEndOfEntry);
    fHasList.pop_back();
    SpillLarge();
}

void HtmlOutline::Add(std::string_view entries)
{
    if (entries.empty()) return;
    fIsEmpty = false;
    fPiece.append(entries);
    SpillLarge();
}

void HtmlOutline::SpillLarge()
{
    if (fPiece.size() < kLargePiece) return;
    if (!fFile) fFile.reset(std::tmpfile());
    if (!fFile) return;  // where no file can be had, memory has to do
    if (std::fwrite(fPiece.data(), 1, fPiece.size(), fFile.get()) != fPiece.size()) Fail();
    fPiece.clear();
}

void HtmlOutline::MoveTo(ByteOutput& output)
{
    if (fFile) {
        if (std::fflush(fFile.get()) != 0 || std::fseek(fFile.get(), 0, SEEK_SET) != 0) Fail();
        std::array<char, 1U << 14U> bytes;
        while (const std::size_t count = std::fread(bytes.data(), 1, bytes.size(), fFile.get()))
            output.Write({bytes.data(), count});
        if (std::ferror(fFile.get()) != 0) Fail();
        fFile.reset();
    }
    output.Write(fPiece);
    fPiece.clear();
    fIsEmpty = true;
}

}  // namespace refhost
