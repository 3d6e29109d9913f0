#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "model/NOPROutputStats.h"
#include "model/NOPRTestRecords.h"
#include "output/NOPROutput.h"

#include "host/data/QORT_Variable.h"
#include "host/framework/SplitResult.h"
#include "host/pivot/BpPivotTable.h"
#include "host/pivot/BpProcedure.h"

#include "refhost/data/VariableData.h"
#include "refhost/framework/InvariantBroken.h"

#include "PassedTexts.h"

/// A split with a few fields, whose records a test fills. Each field stands at the index of its
/// constant; "gone" is a field of which the host has no variable.
class OutputTest : public testing::Test {
protected:
    using Stats = NOPROutputStats;
    using Test = NOPROutputStats::BaseHypothesisTest;
    using Parameters = std::vector<std::vector<double>>;

    static constexpr int kWeight = 0;
    static constexpr int kFeed = 1;
    static constexpr int kCity = 2;  // a string field
    static constexpr int kDay = 3;   // a date
    static constexpr int kGone = 4;
    static constexpr int kNoField = 99;

    OutputTest()
    {
        fStats.SetDataSource(fSource.get());
        fStats.SetSigLevel(0.05);
        fStats.SetConfidenceLevel(0.95);
        AddField("weight", {"10", "20", "30"});
        AddField("feed", {"1", "2", "3"});
        AddField("city", {"Rome", "Oslo"});
        AddField("day", {"100"});
        fStats.AddFieldInfo()->fFieldIndex = kGone;
    }

    static std::unique_ptr<ProcedureDataSource> MakeSource()
    {
        std::vector<refhost::VariableData> variables(4);
        variables[0].fName = "weight";
        variables[1].fName = "feed";
        variables[1].fValueLabels = {{OBS(1), "casein"}, {OBS(2), "horsebean"}, {OBS(3), "soy"}};
        variables[2].fName = "city";
        variables[2].fIsString = true;
        variables[2].fFormat = {8, 1, 0};
        variables[3].fName = "day";
        variables[3].fFormat = {10, 20, 0};
        return refhost::MakeDataSource(std::move(variables));
    }

    void AddField(const char* name, const std::vector<std::string>& values)
    {
        FieldInfoData* field = fStats.AddFieldInfo();
        field->fFieldIndex = static_cast<int>(fStats.GetFieldInfos().size()) - 1;
        field->fVariable = fSource->GetVariable(fSource->FindVarIndex(name, 0));
        for (const std::string& value : values) {
            FieldValue& entry = field->fValues.emplace_back();
            entry.fValueIndex = static_cast<int>(field->fValues.size()) - 1;
            entry.fValue.SetCompleteValue(value, *field->fVariable, 0);
        }
    }

    /// A test of the family that its kind belongs to; parameter N is the N-th list.
    template <class Record>
    Record& Add(TestKind testKind, const std::string& key = {}, const Parameters& parameters = {})
    {
        const SampleKind family = testKind <= 10   ? sample::kOne
                                  : testKind <= 18 ? sample::kRelated
                                                   : sample::kIndependent;
        Test* test = fStats.CreateTest(family, testKind, decision::kRetain);
        test->fCondition.fConditionKey = key;
        for (const auto& values : parameters)
            test->fCondition.fParameters.push_back(
                {static_cast<int>(test->fCondition.fParameters.size()), values});
        return dynamic_cast<Record&>(*test);
    }

    Test& Add(TestKind testKind, const std::string& key = {}, const Parameters& parameters = {})
    {
        return Add<Test>(testKind, key, parameters);
    }

    NOPROutput Output()
    {
        BpProcedure& procedure = fOutput.Procedure();
        return {&procedure, &procedure, fSource.get(), &fStats};
    }

    /// The text of the invariant that `step` breaks; empty where none breaks.
    template <class Step>
    static std::string BrokenBy(Step step)
    {
        try {
            step();
        } catch (const refhost::InvariantBroken& broken) {
            return broken.what();
        }
        return {};
    }

    std::unique_ptr<ProcedureDataSource> fSource = MakeSource();
    NOPROutputStats fStats;
    CollectedOutput fOutput{fSource.get()};
};
