#include "fuzz/mutators/LineMutator.h"

#include <algorithm>
#include <vector>

#include "fuzz/mutators/Chance.h"

namespace fuzz {

namespace {

using Words = std::vector<std::string>;
using Lines = std::vector<Words>;

constexpr std::size_t kMostCopies = 40;
constexpr std::size_t kBeforeData = 2;  // kind of line and name

Words Split(std::string_view text, char mark)
{
    Words parts(1);
    for (const char c : text) {
        if (c == mark)
            parts.emplace_back();
        else
            parts.back() += c;
    }
    return parts;
}

std::string Joined(const Words& parts, char mark)
{
    std::string text;
    for (const std::string& part : parts)
        text.append(&part == &parts.front() ? "" : std::string(1, mark)).append(part);
    return text;
}

/// A row of data is a word in each line that has as many.
void ChangeRow(Lines& lines, Chance& chance)
{
    const Words& model = chance.From(lines);
    if (model.size() <= kBeforeData) return;
    const std::size_t size = model.size();
    const std::size_t place = kBeforeData + chance.Below(size - kBeforeData);
    const std::size_t copies = chance.Below(3) == 0 ? 0 : chance.Below(kMostCopies);
    for (Words& line : lines) {
        if (line.size() != size) continue;
        const auto at = line.begin() + static_cast<std::ptrdiff_t>(place);
        if (copies == 0)
            line.erase(at);
        else
            line.insert(at, copies, std::string(*at));
    }
}

void ChangeWord(Lines& lines, Chance& chance)
{
    Words& line = chance.From(lines);
    std::string& word = chance.From(line);
    switch (chance.Below(4)) {
        case 0:
            word = chance.HostileText();
            break;
        case 1:
            word = chance.From(chance.From(lines));
            break;
        case 2:
            word = std::to_string(chance.Below(20));
            break;
        default:
            word = word.starts_with('\'') ? word.substr(1) : "'" + word;
    }
}

}  // namespace

std::string MutateLines(std::string_view text, unsigned seed)
{
    Chance chance(seed);
    Lines lines;
    for (const std::string& line : Split(text, '\n'))
        lines.push_back(Split(line, '\t'));
    const auto at = lines.begin() + static_cast<std::ptrdiff_t>(chance.Below(lines.size()));
    switch (chance.Below(6)) {
        case 0:
            lines.insert(at, Words(chance.From(lines)));
            break;
        case 1:
            if (lines.size() > 1) lines.erase(at);
            break;
        case 2:
            std::swap(*at, chance.From(lines));
            break;
        case 3:
            ChangeRow(lines, chance);
            break;
        default:
            ChangeWord(lines, chance);
    }
    Words joined;
    for (const Words& line : lines)
        joined.push_back(Joined(line, '\t'));
    return Joined(joined, '\n');
}

}  // namespace fuzz
