#include "refhost/pivot/PivotProcedure.h"

#include <utility>

#include "refhost/pivot/HeadingImpl.h"

#include "refhost/document/HostRun.h"

#include "host/pivot/BpProcedure.h"

namespace refhost {

namespace {

class RunProcedure;

/// Makers of formats and texts have no handle of a run, so the procedure is found here.
RunProcedure* gCurrent = nullptr;

class RunProcedure final : public BpProcedure {
public:
    explicit RunProcedure(const QORT_DataSource* source)
        : BpProcedure(std::make_unique<BpHeading::Impl>(HostRun::Current().fOutput, 0)),
          fSource(source),
          fPrevious(std::exchange(gCurrent, this))
    {
    }
    ~RunProcedure() override { gCurrent = fPrevious; }
    RunProcedure(const RunProcedure&) = delete;
    RunProcedure& operator=(const RunProcedure&) = delete;

    const QORT_DataSource* const fSource;
    KeptTexts fKeptTexts;

private:
    RunProcedure* fPrevious;
};

}  // namespace

std::unique_ptr<BpProcedure> MakeProcedure(const QORT_DataSource* source)
{
    return std::make_unique<RunProcedure>(source);
}

const QORT_DataSource* FormatDataSource() { return gCurrent ? gCurrent->fSource : nullptr; }

KeptTexts* TextsOfRun() { return gCurrent ? &gCurrent->fKeptTexts : nullptr; }

}  // namespace refhost

BpFormatSpec BpProcedure::Significance() { return BpFormatSpec(BpFormatSpec::Kind::Significance); }

BpFormatSpec BpProcedure::Proportion() { return BpFormatSpec(BpFormatSpec::Kind::Proportion); }

BpFormatSpec BpProcedure::Count() { return BpFormatSpec(BpFormatSpec::Kind::Count); }

BpFormatSpec BpProcedure::Coefficient() { return BpFormatSpec(BpFormatSpec::Kind::Coefficient); }

BpFormatSpec BpProcedure::Percent() { return BpFormatSpec(BpFormatSpec::Kind::Percent); }

// Which of the two it is, the number that is shown tells by itself.
BpFormatSpec BpProcedure::CountOrCoefficent(double)
{
    return BpFormatSpec(BpFormatSpec::Kind::CountOrCoefficient);
}

BpFormatSpec BpProcedure::StdDev(int variable)
{
    return BpFormatSpec(BpFormatSpec::Kind::StdDev, variable);
}
