#include "output/SignificanceNotes.h"

#include <string_view>

#include "output/NOPROutput.h"
#include "output/TableParts.h"

#include "model/RecordOf.h"
#include "model/TestQueries.h"

#include "host/pivot/BpProcedure.h"

namespace {

using Test = NOPROutputStats::BaseHypothesisTest;
using KolmogorovSmirnovTest = NOPROutputStats::HTOKolmogorovSmirnov;

/// The significance that stands for a test, and where it was found.
struct Significance {
    std::string_view fName;
    std::string_view fBlock;
    double fValue;

    bool NameHas(std::string_view part) const { return fName.find(part) != fName.npos; }
};

constexpr double kLillieforsBound = 0.2;  // the greatest significance that the tables tell
constexpr double kFewestCases = 5;        // below, the Lilliefors significance can't be told

// --- footnotes of the summary's "Sig." cell; the first rule that applies counts

struct FootnoteRule {
    TestKind fKind;  // 0: any
    bool (*fApplies)(const Test& test, const Significance& significance);
    SignificanceNote fNote;
};

bool IsFisherExact(const Test& /*test*/, const Significance& significance)
{
    return significance.fName == "FisherExactSig";
}

bool IsExact(const Test& /*test*/, const Significance& significance)
{
    return significance.NameHas("ExactSig");
}

bool TiesLeaveRunsOpen(const Test& test, const Significance& /*significance*/)
{
    const auto runs = RunsRange(test);
    return runs && runs->first != runs->second;
}

bool IsYatesAsymptotic(const Test& /*test*/, const Significance& significance)
{
    return significance.fBlock == "YatesContinuityCorrection" &&
           significance.NameHas("AsymptoticSig");
}

// clang-format off
constexpr FootnoteRule kFootnoteRules[] = {
    {kind::kMedian,        IsFisherExact,     {"HTSFootNoteFootNoteFisherExactSig"}},
    {0,                    IsExact,           {"HTSFootNoteShowExact"}},
    {kind::kWaldWolfowitz, TiesLeaveRunsOpen, {"HTSFootNoteUsingMaxWhenTies"}},
    {kind::kMedian,        IsYatesAsymptotic, {"HTSFootNoteYateAsymSig"}},
};

// --- footnotes where the normal distribution came from the sample

constexpr SignificanceNote kTooFewCases[] = {
    {"HTSFootNoteFisherCantCompute", MissingValue},
};
constexpr SignificanceNote kCorrected[] = {
    {"HTSFootNoteFootNoteFisherLillifors"},
};
constexpr SignificanceNote kCorrectedLowerBound[] = {
    {"HTSFootNoteFootNoteFisherLillifors"},
    {"HTSFootNoteFootNoteFisherLowerBound", kLillieforsBound},
};
// clang-format on

bool HasTooFewCases(const Test& test)
{
    double totalN = MissingValue;
    return test.GetStatistic(totalN, "TotalN", "") && totalN < kFewestCases;
}

std::span<const SignificanceNote> FootnotesOf(const Test& test, const Significance& significance)
{
    for (const FootnoteRule& rule : kFootnoteRules) {
        if (rule.fKind != 0 && rule.fKind != test.fTestKind) continue;
        if (rule.fApplies(test, significance)) return {&rule.fNote, 1};
    }
    return EstimatedNormalNotes(test);
}

/// The last name with "Sig" anywhere in it; an empty name and the missing number without one.
Significance FindSignificance(const Test& test)
{
    Significance last{"", "", MissingValue};
    for (const auto& block : test.fStatistics) {
        for (const auto& value : block.fValues) {
            const Significance found{value.fName, block.fName, value.fValue};
            if (found.NameHas("Sig")) last = found;
        }
    }
    return last;
}

}  // namespace

std::span<const SignificanceNote> EstimatedNormalNotes(const Test& test)
{
    const auto* record = RecordOf<KolmogorovSmirnovTest>(&test);
    if (!record || test.fCondition.fConditionKey != distribution::kNormal || !record->fIsUseSample)
        return {};
    if (HasTooFewCases(test)) return kTooFewCases;
    if (record->fHasLowerBoundSig) return kCorrectedLowerBound;
    return kCorrected;
}

std::optional<std::pair<double, double>> RunsRange(const Test& test)
{
    double least = MissingValue;
    double greatest = MissingValue;
    if (test.fTestKind != kind::kWaldWolfowitz ||
        !test.GetStatistic(least, "TestStatistic", "MinimumPossible") ||
        !test.GetStatistic(greatest, "TestStatistic", "MaximumPossible"))
        return std::nullopt;
    return std::pair(least, greatest);
}

void NOPROutput::SignificanceCell(BpCategory category, const Test& test) const
{
    const Significance significance = FindSignificance(test);
    category.Cell(BpNumber(significance.fValue, BpProcedure::Significance()));
    if (const auto* message = FindBlockingMessage(test)) {
        category.CellNote(MessageNote(*message));
        return;
    }

    // All numbers go in before the first note; the detail table sets each before its own note.
    const auto notes = FootnotesOf(test, significance);
    for (const SignificanceNote& note : notes) {
        if (note.fInstead) category.Cell(BpNumber(*note.fInstead, BpProcedure::Significance()));
    }
    for (const SignificanceNote& note : notes)
        category.CellNote(LookupNote(note.fKey));
}
