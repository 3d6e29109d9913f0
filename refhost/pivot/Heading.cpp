#include "refhost/pivot/CellText.h"
#include "refhost/pivot/HeadingImpl.h"
#include "refhost/pivot/PivotTableImpl.h"

#include "refhost/document/HostRun.h"
#include "refhost/document/OutputBuilder.h"

#include "host/pivot/BpError.h"
#include "host/pivot/BpHeading.h"
#include "host/pivot/BpPivotTable.h"

namespace {

/// The output to write to, or null. Here a failed output ends the run; the handles' destructors
/// can't.
refhost::OutputBuilder* Working(refhost::OutputBuilder* output)
{
    if (output) output->ThrowFailure();
    return output;
}

}  // namespace

BpHeading::Impl::Impl(refhost::OutputBuilder* output, refhost::HeadingNumber heading)
    : fOutput(output), fHeading(heading)
{
}

void BpHeading::Impl::Open(refhost::TextRef label)
{
    fHeading = fOutput->OpenHeading(std::move(label));
}

BpHeading::Impl::~Impl()
{
    if (fOutput) fOutput->CloseHeading(fHeading);
}

BpHeading::BpHeading(std::unique_ptr<Impl> impl) : fImpl(std::move(impl)) {}
BpHeading::~BpHeading() = default;
BpHeading::BpHeading(BpHeading&&) noexcept = default;
BpHeading& BpHeading::operator=(BpHeading&&) noexcept = default;

BpHeading BpHeading::Heading(const BpCellText& text)
{
    refhost::OutputBuilder* output = Working(fImpl ? fImpl->Output() : nullptr);
    auto impl = std::make_unique<Impl>(output, 0);  // first, so that what is opened is closed
    if (output) impl->Open(refhost::Snapshot(text));
    return BpHeading(std::move(impl));
}

BpPivotTable BpHeading::PivotTable(const BpCellText& title, const BpCellText& subtype, bool)
{
    refhost::OutputBuilder* output = Working(fImpl ? fImpl->Output() : nullptr);
    return BpPivotTable(std::make_unique<BpPivotTable::Impl>(output, refhost::Snapshot(title),
                                                             refhost::Snapshot(subtype)));
}

void BpError(const std::string& text, BpErrorShow show, BpErrorLevel level)
{
    refhost::OutputBuilder* output = Working(refhost::HostRun::Current().fOutput);
    if (!output) return;
    refhost::ErrorNode error{text, static_cast<int>(show), static_cast<int>(level)};
    output->Add(std::make_unique<refhost::OutputNode>(refhost::OutputNode{std::move(error)}));
}
