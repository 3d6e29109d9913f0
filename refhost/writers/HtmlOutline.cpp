#include "refhost/writers/HtmlOutline.h"

#include <array>

#include "refhost/document/WriteFailure.h"
#include "refhost/writers/ByteOutput.h"
#include "refhost/writers/Escape.h"

namespace refhost {

namespace {

constexpr std::size_t kLargePiece = 1U << 18U;

}  // namespace

void HtmlOutline::Open(std::string_view kind, std::string_view id, std::string_view label)
{
    fIsEmpty = false;
    if (!fHasList.empty() && !fHasList.back()) {
        fPiece.append("\n<ul>\n");
        fHasList.back() = true;
    }
    fHasList.push_back(false);
    fPiece.append("<li><a class=\"").append(kind).append("\" href=\"#").append(id).append("\">");
    AppendMarkupText(fPiece, label);
    fPiece.append("</a>");
}

void HtmlOutline::Close()
{
    fPiece.append(fHasList.back() ? "</ul></li>\n" : "</li>\n");
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
    if (std::fwrite(fPiece.data(), 1, fPiece.size(), fFile.get()) != fPiece.size())
        throw WriteFailure("The outline of the report can't be kept in a temporary file.");
    fPiece.clear();
}

void HtmlOutline::MoveTo(ByteOutput& output)
{
    if (fFile) {
        std::rewind(fFile.get());
        std::array<char, 1U << 14U> bytes;
        while (const std::size_t count = std::fread(bytes.data(), 1, bytes.size(), fFile.get()))
            output.Write({bytes.data(), count});
        fFile.reset();
    }
    output.Write(fPiece);
    fPiece.clear();
    fIsEmpty = true;
}

}  // namespace refhost
