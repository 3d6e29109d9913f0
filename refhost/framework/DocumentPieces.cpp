#include "refhost/framework/DocumentPieces.h"

#include <algorithm>

#include "refhost/framework/DocumentBytes.h"

namespace refhost {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t kLongestPath = 10000;  // bytes of the names of the open elements

struct Passage {
    std::string_view fStart, fEnd;
};

// Where "<" starts no tag.
constexpr Passage kPassages[] = {{"<!--", "-->"}, {"<![CDATA[", "]]>"}, {"<?", "?>"}};

class Cutter {
public:
    explicit Cutter(std::string_view document) : fDocument(document)
    {
        if (document.starts_with(kByteOrderMark)) fAt = kByteOrderMark.size();
        if (document.substr(fAt).starts_with("<?xml")) PassPassage();
        fStart = document.substr(0, fAt);
    }

    std::vector<DocumentPiece> Run(std::size_t count)
    {
        std::vector<DocumentPiece> pieces{WholeDocument(fDocument)};
        std::size_t begin = 0;  // of the last piece
        while (pieces.size() < count &&
               GoToStartTag(std::max(fDocument.size() / count * pieces.size(), begin + 1))) {
            DocumentPiece next{std::string(fStart), fDocument.substr(fAt), {}, fPath.size()};
            DocumentPiece& last = pieces.back();
            last.fBody = fDocument.substr(begin, fAt - begin);
            for (const std::string_view name : fPath) {
                next.fOpening.append("<").append(name).append(">");
            }
            std::for_each(fPath.rbegin(), fPath.rend(), [&last](std::string_view name) {
                last.fClosing.append("</").append(name).append(">");
            });
            begin = fAt;
            pieces.push_back(std::move(next));
        }
        return pieces;
    }

private:
    /// To the first start tag at a place or behind it that stands within an element.
    bool GoToStartTag(std::size_t place)
    {
        for (;;) {
            fAt = fDocument.find('<', fAt);
            if (fAt == std::string_view::npos) return false;
            const char behind = fAt + 1 < fDocument.size() ? fDocument[fAt + 1] : '\0';
            if (behind == '!' || behind == '?') {
                if (!PassPassage()) return false;
                continue;
            }
            if (behind != '/' && fAt >= place && !fPath.empty() && fPathBytes <= kLongestPath) {
                return true;
            }
            if (!(behind == '/' ? PassEndTag() : PassStartTag())) return false;
        }
    }

    bool PassPassage()
    {
        for (const Passage& passage : kPassages) {
            if (!fDocument.substr(fAt).starts_with(passage.fStart)) continue;
            return GoBehind(fDocument.find(passage.fEnd, fAt + passage.fStart.size()),
                            passage.fEnd.size());
        }
        return false;
    }

    bool PassEndTag()
    {
        if (fPath.empty()) return false;
        fPathBytes -= fPath.back().size();
        fPath.pop_back();
        return GoBehind(fDocument.find('>', fAt), 1);
    }

    bool PassStartTag()
    {
        const std::size_t name = fAt + 1;
        std::size_t end = name;
        while (end < fDocument.size() && !IsNameEnd(fDocument[end]))
            ++end;
        const std::size_t nameEnd = end;
        while (end < fDocument.size() && fDocument[end] != '>') {
            const char character = fDocument[end];
            if (character == '"' || character == '\'') end = fDocument.find(character, end + 1);
            if (end == std::string_view::npos) return false;
            ++end;
        }
        if (end >= fDocument.size()) return false;
        if (fDocument[end - 1] != '/') {
            fPath.push_back(fDocument.substr(name, nameEnd - name));
            fPathBytes += fPath.back().size();
        }
        return GoBehind(end, 1);
    }

    static bool IsNameEnd(char character)
    {
        return character == '>' || character == '/' || character == ' ' || character == '\t' ||
               character == '\r' || character == '\n';
    }

    bool GoBehind(std::size_t place, std::size_t size)
    {
        if (place == std::string_view::npos) return false;
        fAt = place + size;
        return true;
    }

    const std::string_view fDocument;
    std::string_view fStart;  // the byte order mark and the XML declaration
    std::size_t fAt = 0;
    std::vector<std::string_view> fPath;  // names of the open elements, outermost first
    std::size_t fPathBytes = 0;
};

}  // namespace

DocumentPiece WholeDocument(std::string_view document) { return {{}, document, {}, 0}; }

std::vector<DocumentPiece> CutDocument(std::string_view document, std::size_t count)
{
    if (!IsToBeUtf8(document)) return {WholeDocument(document)};
    return Cutter(document).Run(count);
}

}  // namespace refhost
