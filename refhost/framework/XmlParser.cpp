#include "refhost/framework/XmlParser.h"

#include <algorithm>
#include <cstdint>
#include <future>
#include <limits>
#include <memory>
#include <new>
#include <string_view>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include "refhost/framework/DocumentBytes.h"
#include "refhost/framework/DocumentPieces.h"
#include "refhost/framework/XmlScanner.h"
#include "refhost/framework/XmlTreeBuilder.h"

namespace refhost {

namespace {

// Numbers of elements and attributes have 32 bits, and each takes four bytes of a document or more.
constexpr std::size_t kMostBytes = std::size_t{4} * std::numeric_limits<XmlTree::Element>::max();

constexpr std::size_t kFewestBytesOfThread = std::size_t{1} << 19U;
constexpr std::size_t kMostThreads = 4;  // the rest of the reading is done by one

/// The one that is kept: making one takes longer than parsing a small document. The library's own
/// state, which its first scanner sets up, has to outlive it, so it begins with one.
std::unique_ptr<XmlScanner>& KeptScanner()
{
    static auto scanner = std::make_unique<XmlScanner>();
    return scanner;
}

std::optional<XmlTree> ParseWhole(const std::string& document, ReadFailure& failure)
{
    std::unique_ptr<XmlScanner>& kept = KeptScanner();
    if (!kept) kept = std::make_unique<XmlScanner>();
    // Taken, so that none whose work was broken off is used again.
    std::unique_ptr<XmlScanner> scanner = std::move(kept);
    XmlTreeBuilder builder(document);
    const bool isRead = scanner->Read(WholeDocument(document), builder, failure);
    if (scanner->IsFitForNext()) kept = std::move(scanner);
    if (!isRead) return {};
    return builder.Take();
}

/// Nothing: it can't be cut, or one of its pieces can't be read or holds bytes that are no
/// well-formed UTF-8; why is for the whole to tell.
std::optional<XmlTree> ParseSideBySide(const std::string& document, std::size_t threads)
try {
    const std::vector<DocumentPiece> pieces = CutDocument(document, threads);
    if (pieces.size() == 1) return {};

    // All room is made by this thread, which is going to use it again. That of the first is enough
    // for all.
    std::vector<XmlTreeBuilder> builders;
    builders.reserve(pieces.size());
    builders.emplace_back(document);
    for (std::size_t place = 1; place < pieces.size(); ++place)
        builders.emplace_back(pieces[place].fBody);

    const auto read = [&](std::size_t place) {
        ReadFailure failure;
        return XmlScanner().Read(pieces[place], builders[place], failure) &&
               !FindIllFormedUtf8(pieces[place].fBody);
    };
    std::vector<std::future<bool>> others;
    others.reserve(pieces.size());
    for (std::size_t place = 1; place < pieces.size(); ++place)
        others.push_back(std::async(std::launch::async, read, place));
    bool areRead = read(0);
    for (std::future<bool>& other : others)
        areRead = other.get() && areRead;
    if (!areRead) return {};

    XmlTree tree = builders.front().Take();
    for (std::size_t place = 1; place < pieces.size(); ++place) {
        if (!tree.Join(builders[place].Take(), pieces[place].fOpened)) return {};
    }
    return tree;
} catch (const std::system_error&) {  // no thread to be had
    return {};
} catch (const std::bad_alloc&) {
    return {};
}

/// The parser passes over some of such bytes, and tells others where it begins to decode and not
/// where they stand. True where there are any; `failure` is then theirs.
bool HasIllFormedUtf8(std::string_view document, ReadFailure& failure)
{
    const auto place = FindIllFormedUtf8(document);
    if (!place) return false;
    const std::string_view before = document.substr(0, *place);
    const std::size_t lineStart = before.rfind('\n') + 1;  // 0 where there is none
    failure.fReason = "a byte that is no well-formed UTF-8";
    failure.fLine = 1 + static_cast<std::uint64_t>(std::count(before.begin(), before.end(), '\n'));
    failure.fColumn = 1 + static_cast<std::uint64_t>(std::count_if(
                              before.begin() + static_cast<std::ptrdiff_t>(lineStart), before.end(),
                              [](char byte) { return (byte & 0xC0) != 0x80; }));
    return true;
}

}  // namespace

std::size_t UsualParseThreads(std::size_t bytes)
{
    const std::size_t processors = std::max(std::thread::hardware_concurrency(), 1U);
    return std::clamp(bytes / kFewestBytesOfThread, std::size_t{1},
                      std::min(processors, kMostThreads));
}

std::optional<XmlTree> ParseXml(const std::string& document, std::size_t threads,
                                ReadFailure& failure)
try {
    if (document.size() > kMostBytes) {
        failure = {kTooLarge};
        return {};
    }
    std::optional<XmlTree> tree;
    if (threads > 1) tree = ParseSideBySide(document, threads);
    if (!tree) {
        tree = ParseWhole(document, failure);
        if (HasIllFormedUtf8(document, failure) || !tree) return {};
    }
    std::string overlooked = FindOverlookedBytes(document);
    if (overlooked.empty()) return tree;
    failure = {std::move(overlooked)};
    return {};
} catch (const std::bad_alloc&) {
    failure = {kTooLarge};
    return {};
}

}  // namespace refhost
