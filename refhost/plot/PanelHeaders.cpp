#include "refhost/plot/PanelHeaders.h"

#include <algorithm>
#include <string>
#include <utility>

#include "refhost/plot/Lettering.h"
#include "refhost/plot/TextWidth.h"

namespace refhost {
namespace {

constexpr double kNameFont = kHeaderFont * kBoldness;
constexpr std::size_t kMostMoreLines = 4;

struct WrappedHeader {
    std::vector<std::string> fName;
    std::vector<std::string> fMore;
};

std::string Joined(const std::vector<std::string>& lines)
{
    std::string text;
    for (const std::string& line : lines) {
        text += line;
    }
    return text;
}

bool IsCut(const std::vector<std::string>& lines, const std::string& text)
{
    const auto letters = [](std::string letter) {
        std::erase_if(letter, [](char c) { return c == ' ' || c == '\n'; });
        return letter;
    };
    return letters(Joined(lines)) != letters(text);
}

}  // namespace

std::vector<PlotHeader> WrapHeaders(const std::vector<PanelHeader>& headers, double room,
                                    std::size_t mostNameLines)
{
    std::vector<WrappedHeader> wrapped;
    std::size_t nameLines = 0, moreLines = 0;
    for (const PanelHeader& header : headers) {
        WrappedHeader lines;
        lines.fName = WrapText(header.fName, kNameFont, room, mostNameLines);
        if (!header.fMore.empty()) {
            lines.fMore = WrapText(header.fMore, kHeaderFont, room, kMostMoreLines);
        }
        nameLines = std::max(nameLines, lines.fName.size());
        moreLines = std::max(moreLines, lines.fMore.size());
        wrapped.push_back(std::move(lines));
    }
    std::vector<PlotHeader> plotHeaders;
    for (std::size_t place = 0; place < headers.size(); ++place) {
        WrappedHeader& lines = wrapped[place];
        PlotHeader header;
        if (IsCut(lines.fName, headers[place].fName) || IsCut(lines.fMore, headers[place].fMore)) {
            header.fPopup = headers[place].fName;
            if (!headers[place].fMore.empty()) header.fPopup += "\n" + headers[place].fMore;
        }
        lines.fName.insert(lines.fName.begin(), nameLines - lines.fName.size(), std::string());
        lines.fMore.resize(moreLines);
        header.fStrongLines = nameLines;
        header.fLines = std::move(lines.fName);
        header.fLines.insert(header.fLines.end(), lines.fMore.begin(), lines.fMore.end());
        plotHeaders.push_back(std::move(header));
    }
    return plotHeaders;
}

double WordRoom(const std::vector<PanelHeader>& headers)
{
    double widest = 0.0;
    for (const PanelHeader& header : headers) {
        std::string words = header.fName;
        std::replace(words.begin(), words.end(), ' ', '\n');
        widest = std::max(widest, TextBlockWidth(words, kNameFont));
        widest = std::max(widest, TextBlockWidth(header.fMore, kHeaderFont));
    }
    return widest;
}

double WholeRoom(const std::vector<PanelHeader>& headers)
{
    double widest = 0.0;
    for (const PanelHeader& header : headers) {
        widest = std::max(widest, TextBlockWidth(header.fName, kNameFont));
        widest = std::max(widest, TextBlockWidth(header.fMore, kHeaderFont));
    }
    return widest;
}

}  // namespace refhost
