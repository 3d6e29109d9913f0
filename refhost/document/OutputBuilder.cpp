#include "refhost/document/OutputBuilder.h"

namespace refhost {

HeadingNode* OutputBuilder::OpenHeading(TextRef label)
{
    HeadingNode heading;
    heading.fLabel = std::move(label);
    auto node = std::make_unique<OutputNode>();
    node->fContent = std::move(heading);
    fOpen.push_back(std::move(node));
    return std::get_if<HeadingNode>(&fOpen.back()->fContent);
}

void OutputBuilder::CloseHeading(const HeadingNode* heading)
{
    std::size_t place = fOpen.size();
    while (place > 0 && std::get_if<HeadingNode>(&fOpen[place - 1]->fContent) != heading)
        --place;
    if (place == 0) return;
    while (fOpen.size() >= place) {
        OutputNodePtr closed = std::move(fOpen.back());
        fOpen.pop_back();
        Add(std::move(closed));
    }
}

void OutputBuilder::Add(OutputNodePtr node) noexcept
{
    if (fFailure) return;
    try {
        Place(std::move(node));
    } catch (...) {
        Fail(std::current_exception());
    }
}

void OutputBuilder::Fail(std::exception_ptr failure) noexcept
{
    if (!fFailure) fFailure = std::move(failure);
}

void OutputBuilder::ThrowFailure() const
{
    if (fFailure) std::rethrow_exception(fFailure);
}

void OutputBuilder::Place(OutputNodePtr node)
{
    if (fOpen.empty()) {
        fSink.Node(std::move(node));
        return;
    }
    std::get<HeadingNode>(fOpen.back()->fContent).fChildren.push_back(std::move(node));
}

}  // namespace refhost
