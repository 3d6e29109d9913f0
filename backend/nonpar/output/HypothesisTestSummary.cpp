#include "output/NOPROutput.h"
#include "output/TableParts.h"

#include "model/NOPRTestIdentity.h"

#include "host/pivot/BpProcedure.h"

namespace {

constexpr char kTitle[] = "Hypothesis Test Summary";
constexpr char kCaption[] = "Asymptotic significances are displayed. The significance level is ^1.";
constexpr ColumnWidths kWidths{100, 200};
constexpr DimensionForm kItem{"Item", kLiteral, Place::Rows, {true, false}};
constexpr DimensionForm kStatistics{"Statistics", kLookup, Place::Columns, {true, false}};

// clang-format off
constexpr const char* kDecisionTexts[] = {
    "Unable to compute.",
    "Reject the null hypothesis.",
    "Retain the null hypothesis.",
};
// clang-format on

BpString DecisionText(Decision made)
{
    const bool known = made == decision::kReject || made == decision::kRetain;
    return Lookup(kDecisionTexts[known ? made : 0]);
}

BpComposite Caption(double sigLevel)
{
    BpComposite caption(kCaption, kLookup);
    caption.Add(BpNumber(sigLevel, BpProcedure::Significance()));
    caption.Finish();
    return caption;
}

}  // namespace

void NOPROutput::HypothesisTestSummary()
{
    const auto testCount = static_cast<unsigned>(fStats->GetTests().size());
    if (testCount == 0) return;

    BpPivotTable table = MakeTable(*fHeading, Lookup(kTitle), kTitle, kWidths);
    table.Caption(Caption(fStats->GetSigLevel()));
    fStats->SplitDimensions(table);
    BpDimension item = MakeDimension(table, kItem);
    BpDimension statistics = MakeDimension(table, kStatistics);

    for (unsigned index = 0; index < testCount; ++index) {
        const Test* test = fStats->GetTest(index);
        if (!test) continue;
        item.Category(BpNumber(index + 1.0, BpProcedure::Count()));
        NullHypothesisCell(statistics.Category(Lookup("Null Hypothesis")), *test);
        statistics.Category(Lookup("Test")).Cell(Lookup(std::string(TestTitle(test->fTestKind))));
        SignificanceCell(statistics.Category(Lookup("Sig.")), *test);
        statistics.Category(Lookup("Decision")).Cell(DecisionText(test->fDecision));
    }
}
