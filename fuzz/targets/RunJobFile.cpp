#include "fuzz/targets/FuzzTargets.h"
#include "fuzz/targets/OutputChecks.h"
#include "fuzz/targets/SplitRun.h"

#include "frame/NOPRProcCustom.h"

#include "refhost/job/JobFile.h"

#include "host/command/VarSpecObj.h"
#include "host/data/QORT_Variable.h"
#include "host/framework/SplitResult.h"

namespace fuzz {

namespace {

constexpr std::size_t kMostSplits = 4;

/// A text as the value of an attribute; "?" stands for each character that no document can hold.
std::string Escaped(std::string_view text)
{
    std::string escaped;
    for (; !text.empty(); text.remove_prefix(1)) {
        const char c = text.front();
        if (text.starts_with("\xEF\xBF\xBE") || text.starts_with("\xEF\xBF\xBF")) {
            escaped += '?';
            text.remove_prefix(2);
        } else if (std::string_view("<&\"\t\n\r").find(c) != std::string_view::npos) {
            escaped += "&#" + std::to_string(static_cast<int>(c)) + ";";
        } else {
            escaped += static_cast<unsigned char>(c) < ' ' ? '?' : c;
        }
    }
    return escaped;
}

std::string FieldElement(const refhost::Job& job, int index)
{
    const QORT_Variable* variable = job.fDataSource->GetVariable(index);
    std::string field = "<DataField index=\"" + std::to_string(index) + "\" name=\"";
    field += variable ? Escaped(variable->GetName()) : "none";
    field += variable && variable->GetType() != 0
                 ? R"(" displayName="f" optype="categorical" dataType="string">)"
                 : R"(" displayName="f" optype="ordinal" dataType="double">)";
    field += R"(<Value index="0" value="1" displayValue=""/>)"
             R"(<Value index="1" value="2.5" displayValue=""/>)";
    return field + "</DataField>";
}

/// A small document about the first two variables, so that labels and formats of the job show.
std::string DocumentAbout(const refhost::Job& job)
{
    return R"(<StatXML><PMMLModel modelType="NonParametricTests"/><DescriptiveModel>)"
           R"(<DescriptiveSummary><Counts/></DescriptiveSummary></DescriptiveModel><Extension>)"
           R"(<NPAROutput><DataDictionary>)" +
           FieldElement(job, 0) + FieldElement(job, 1) +
           R"(<DataField index="2" name="keep"/></DataDictionary>)"
           R"(<NonParametricTests number="1" sigLevel="0.05">)"
           R"(<Algorithm name="IMedian" classification="Independent_Samples" decision="reject">)"
           R"(<StructuredTable name="Condition">)"
           R"(<Attribute name="ConditionKey" value="DefaultAllDistinctValuesUsed_I_Median_2"/>)"
           R"(<Attribute name="%0" value="0"/><Attribute name="%1" value="1"/></StructuredTable>)"
           R"(<StructuredTable name="BoxPlotInfo"><Attribute name="GroupFieldIndex" value="1"/>)"
           R"(<StructuredTable name="Group0"><Attribute name="GroupIndex" value="0"/>)"
           R"(<SimpleTable name="Box"><RowNames>Box</RowNames>)"
           R"(<ColumnNames>LowerWhisker Q1 Median Q3 UpperWhisker</ColumnNames>)"
           R"(<Row>1 2 3 4 5</Row></SimpleTable></StructuredTable></StructuredTable></Algorithm>)"
           R"(</NonParametricTests><FieldInfos/></NPAROutput></Extension></StatXML>)";
}

void Run(const refhost::Job& job)
{
    NOPRProcCustom procedure;
    procedure.Attach(nullptr, job.fDataSource.get());
    procedure.SetExtraVariables(job.fExtraVariable, job.fExtraVariables);
    const CommandDescriptor descriptor;
    procedure.CollectAnalysisVariables(job.fCommand.get(), &descriptor);
    for (const int variable : procedure.GetAnalysisVariables())
        Require(job.fDataSource->GetVariable(variable), "analysis variables are variables");

    SplitResult split;
    split.fDocument = DocumentAbout(job);
    for (std::size_t index = 0; index < std::min(job.fSplits.size(), kMostSplits); ++index) {
        const refhost::JobSplit& told = job.fSplits[index];
        split.fSplitVariables = told.fVariables;
        split.fSplitAsHeading = told.fAsHeading;
        split.fSplitValues.clear();
        for (const OBS& value : told.fValues)
            split.fSplitValues.push_back(&value);
        Require(WriteInAllFormats(*job.fDataSource, split), "the document of a job is read");
    }
}

}  // namespace

void RunJobFile(std::string_view input)
{
    try {
        Run(refhost::ReadJobText(std::string(input), "job.json", "/data"));
    } catch (const refhost::JobError& error) {
        CheckUtf8(error.what());  // it is made one line where it is told
    }
}

}  // namespace fuzz
