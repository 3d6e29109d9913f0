#include "refhost/run/StoppableSink.h"

#include <utility>

#include "refhost/run/Interruption.h"

namespace refhost {

namespace {

void ThrowWhereInterrupted()
{
    if (IsInterrupted()) throw Interrupted();
}

}  // namespace

void StoppableSink::Begin(const RunStart& start) { fNext.Begin(start); }

void StoppableSink::BeginSplit(std::size_t split)
{
    fHasOutput = false;
    fNext.BeginSplit(split);
}

void StoppableSink::EndSplit()
{
    for (; fDepth > 0; --fDepth)
        fNext.CloseHeading();
    fNext.EndSplit();
}

void StoppableSink::OpenHeading(TextRef label)
{
    ThrowWhereInterrupted();
    fHasOutput = true;
    ++fDepth;
    fNext.OpenHeading(std::move(label));
}

void StoppableSink::CloseHeading()
{
    --fDepth;
    fNext.CloseHeading();
}

void StoppableSink::Node(OutputNodePtr&& node)
{
    ThrowWhereInterrupted();
    fHasOutput = true;
    fNext.Node(std::move(node));
}

void StoppableSink::End(const RunEnd& end) { fNext.End(end); }

}  // namespace refhost
