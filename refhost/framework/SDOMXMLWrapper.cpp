#include "host/framework/SDOMXMLWrapper.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "refhost/framework/NumberParsing.h"
#include "refhost/framework/ReadFailure.h"
#include "refhost/framework/XmlParser.h"
#include "refhost/framework/XmlTree.h"

/// What callers hold for a document; they only ask whether there is one.
class DOMDocument {};

namespace refhost {

namespace {

std::optional<ReadFailure> gLastReadFailure;

/// The numbers of the names of a path's steps, outermost first; nothing where the document knows
/// one of them not.
std::optional<std::vector<XmlTree::Name>> StepsOf(const XmlTree& tree, std::string_view path)
{
    std::vector<XmlTree::Name> steps;
    for (;;) {
        const std::size_t slash = path.find('/');
        const auto name = tree.FindName(path.substr(0, slash));
        if (!name) return {};
        steps.push_back(*name);
        if (slash == std::string_view::npos) return steps;
        path.remove_prefix(slash + 1);
    }
}

/// The first element that answers to the steps from `step` on, each tried at every child that bears
/// its name; 0, which is the root and so nobody's child, where there is none.
XmlTree::Element FindBySteps(const XmlTree& tree, XmlTree::Element parent,
                             const std::vector<XmlTree::Name>& steps, std::size_t step)
{
    const XmlTree::Element end = tree.EndOf(parent);
    for (XmlTree::Element child = parent + 1; child < end; child = tree.EndOf(child)) {
        if (!tree.Bears(child, steps[step])) continue;
        if (step + 1 == steps.size()) return child;
        const XmlTree::Element found = FindBySteps(tree, child, steps, step + 1);
        if (found) return found;
    }
    return 0;
}

}  // namespace

const ReadFailure* LastReadFailure() { return gLastReadFailure ? &*gLastReadFailure : nullptr; }

void ForgetReadFailure() { gLastReadFailure.reset(); }

}  // namespace refhost

using refhost::XmlTree;

/// A tree and what was given out of it. Wrappers lie in blocks, one place for each element, made
/// when the first of a block is asked for: each element has one wrapper, however often it is found.
class SDOMXMLWrapper::Document : public DOMDocument {
public:
    explicit Document(XmlTree tree) : fTree(std::move(tree)), fBlocks(BlockCount()) {}

    SDOMXMLWrapper* WrapperOf(XmlTree::Element element)
    {
        std::unique_ptr<SDOMXMLWrapper[]>& block = fBlocks[element / kBlockSize];
        if (!block) block = std::make_unique<SDOMXMLWrapper[]>(kBlockSize);
        SDOMXMLWrapper& wrapper = block[element % kBlockSize];
        wrapper.fDocument = this;
        wrapper.fElement = element;
        return &wrapper;
    }

    /// The number of a name that a caller gives; nothing where nothing in the document bears it.
    /// Few are asked for, again and again and mostly from the same place in memory.
    std::optional<XmlTree::Name> NumberOf(const char* name)
    {
        Asked& asked = fAsked[reinterpret_cast<std::uintptr_t>(name) / alignof(void*) % kAsked];
        if (asked.fPlace == name && fTree.Spelled(asked.fNumber) == name) return asked.fNumber;
        const auto number = fTree.FindName(name);
        if (number) asked = {name, *number};
        return number;
    }

    SDOMXMLIterator* NewIterator() { return &fIterators.emplace_back(this).fIterator; }

    const XmlTree fTree;

private:
    /// Only this class makes iterators.
    struct KeptIterator {
        explicit KeptIterator(Document* document) : fIterator(document) {}
        SDOMXMLIterator fIterator;
    };

    struct Asked {
        const char* fPlace = nullptr;
        XmlTree::Name fNumber = 0;
    };

    static constexpr std::size_t kBlockSize = 64;
    static constexpr std::size_t kAsked = 64;

    std::size_t BlockCount() const { return fTree.ElementCount() / kBlockSize + 1; }

    std::vector<std::unique_ptr<SDOMXMLWrapper[]>> fBlocks;
    std::deque<KeptIterator> fIterators;
    std::array<Asked, kAsked> fAsked;  // by place
};

SDOMXMLWrapper::SDOMXMLWrapper() = default;

SDOMXMLWrapper::~SDOMXMLWrapper()
{
    if (fOwnsDocument) delete fDocument;
}

DOMDocument* SDOMXMLWrapper::LoadFromString(const std::string& text)
{
    if (fDocument && !fOwnsDocument) return nullptr;  // given out: stands for its element
    refhost::ForgetReadFailure();
    delete std::exchange(fDocument, nullptr);
    fOwnsDocument = false;

    refhost::ReadFailure failure;
    std::optional<XmlTree> tree =
        refhost::ParseXml(text, refhost::UsualParseThreads(text.size()), failure);
    if (!tree) {
        refhost::gLastReadFailure = std::move(failure);
        return nullptr;
    }
    fDocument = std::make_unique<Document>(std::move(*tree)).release();
    fOwnsDocument = true;
    fElement = 0;
    return fDocument;
}

const std::string& SDOMXMLWrapper::GetName() const
{
    static const std::string nothing;
    return fDocument ? fDocument->fTree.NameOf(fElement) : nothing;
}

std::optional<std::string_view> SDOMXMLWrapper::FindAttribute(const char* name) const
{
    if (!fDocument || !name) return {};
    const auto number = fDocument->NumberOf(name);
    if (!number) return {};
    return fDocument->fTree.AttributeOf(fElement, *number);
}

bool SDOMXMLWrapper::GetAttribute(const char* name, std::string& value) const
{
    const auto text = FindAttribute(name);
    if (text) value = *text;
    return text.has_value();
}

bool SDOMXMLWrapper::GetAttribute(const char* name, int& value) const
{
    const auto text = FindAttribute(name);
    const auto number = text ? refhost::ParseInteger(*text) : std::nullopt;
    if (number) value = *number;
    return number.has_value();
}

bool SDOMXMLWrapper::GetAttribute(const char* name, double& value) const
{
    const auto text = FindAttribute(name);
    const auto number = text ? refhost::ParseDouble(*text) : std::nullopt;
    if (number) value = *number;
    return number.has_value();
}

bool SDOMXMLWrapper::GetFirstElement(const char* path, SDOMXMLWrapper** out, bool) const
{
    if (!fDocument || !path || !out) return false;
    const auto steps = refhost::StepsOf(fDocument->fTree, path);
    if (!steps) return false;
    const XmlTree::Element found = refhost::FindBySteps(fDocument->fTree, fElement, *steps, 0);
    if (!found) return false;
    *out = fDocument->WrapperOf(found);
    return true;
}

bool SDOMXMLWrapper::GetElementIterator(const char* name, SDOMXMLIterator** out, bool) const
{
    if (!fDocument || !name || !out) return false;
    SDOMXMLIterator* const iterator = fDocument->NewIterator();
    const auto number = fDocument->NumberOf(name);
    if (number || *name == '\0') {
        iterator->fNext = fElement + 1;
        iterator->fEnd = fDocument->fTree.EndOf(fElement);
        iterator->fName = number;
    }
    *out = iterator;
    return true;
}

bool SDOMXMLWrapper::GetTextBody(std::string& text) const
{
    if (fDocument)
        text = fDocument->fTree.TextOf(fElement);
    else
        text.clear();
    return true;
}

SDOMXMLIterator::SDOMXMLIterator(SDOMXMLWrapper::Document* document) : fDocument(document) {}

bool SDOMXMLIterator::Next(SDOMXMLWrapper** out)
{
    while (fNext < fEnd) {
        const XmlTree::Element element = fNext;
        fNext = fDocument->fTree.EndOf(element);
        if (fName && !fDocument->fTree.Bears(element, *fName)) continue;
        *out = fDocument->WrapperOf(element);
        return true;
    }
    return false;
}
