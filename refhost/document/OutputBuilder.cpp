#include "refhost/document/OutputBuilder.h"

#include <algorithm>
#include <new>
#include <utility>

namespace refhost {

template <class Step>
void OutputBuilder::Guard(Step step) noexcept
{
    if (fFailure) return;
    try {
        step();
    } catch (...) {
        Fail(std::current_exception());
    }
}

HeadingNumber OutputBuilder::OpenHeading(TextRef label) noexcept
{
    ++fLast;
    Guard([&] {
        fOpen.push_back(fLast);
        fSink.OpenHeading(std::move(label));
    });
    return fLast;
}

void OutputBuilder::CloseHeading(HeadingNumber heading) noexcept
{
    const auto place = std::find(fOpen.begin(), fOpen.end(), heading);
    for (auto open = fOpen.end() - place; open > 0; --open) {
        fOpen.pop_back();
        Guard([this] { fSink.CloseHeading(); });
    }
}

void OutputBuilder::Add(OutputNodePtr node) noexcept
{
    Guard([&] {
        try {
            fSink.Node(std::move(node));
        } catch (const std::bad_alloc&) {  // what was written before it is to stand
        }
    });
}

void OutputBuilder::Fail(std::exception_ptr failure) noexcept
{
    if (!fFailure) fFailure = std::move(failure);
}

void OutputBuilder::ThrowFailure() const
{
    if (fFailure) std::rethrow_exception(fFailure);
}

}  // namespace refhost
