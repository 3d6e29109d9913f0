#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "frame/NOPRProcCustom.h"

#include "host/command/VarSpecObj.h"

#include "refhost/command/CommandData.h"
#include "refhost/data/VariableData.h"

#include "support/Cases.h"

namespace {

using Variables = std::vector<int>;
using Subcommands = std::vector<refhost::SubcommandData>;

class AnalysisVariables : public testing::Test {
protected:
    AnalysisVariables()
    {
        std::vector<refhost::VariableData> variables(5);
        for (std::size_t index = 0; index < variables.size(); ++index)
            variables[index].fName = std::string(1, static_cast<char>('a' + index));
        fSource = refhost::MakeDataSource(std::move(variables));
        fProcedure.reset(GetCFProcCustom());
        fProcedure->Attach(nullptr, fSource.get());
    }

    const Variables& Collect(const Subcommands& subcommands)
    {
        const auto command = refhost::MakeCommand(subcommands);
        EXPECT_TRUE(fProcedure->CollectAnalysisVariables(command.get(), &fDescriptor));
        return fProcedure->GetAnalysisVariables();
    }

    CommandDescriptor fDescriptor;
    std::unique_ptr<ProcedureDataSource> fSource;
    std::unique_ptr<CFProcCustom> fProcedure;
};

TEST_F(AnalysisVariables, AreThoseOfTheCommandAndTheHost)
{
    // clang-format off
    ExpectEach<std::tuple<Subcommands, int, Variables>, Variables>({
        {{Subcommands{}, -1, {}}, {}, "nothing to collect"},
        {{Subcommands{}, 0, {}}, {0}, "variable 0 is one"},
        {{Subcommands{}, 3, {4, 1, 4}}, {1, 3, 4}, "the host's, ascending and each once"},
        {{{{"ONESAMPLE", {{"TEST", {"b", "a"}}}}, {"RELATED", {{"TEST", {"b", "c"}}}}}, -1, {1}}, {0, 1, 2}, "named in three places, it stands once"},
        {{{{"INDEPENDENT", {{"TEST", {"a"}}, {"GROUP", {"e"}}}}}, -1, {}}, {0, 4}, "fields and groups"},
        {{{{"INDEPENDENT", {{"GROUP", {"e"}}}}}, -1, {}}, {4}, "groups alone"},
        {{{{"INDEPENDENT", {{"TEST", {"a"}}, {"GROUP", {}}}}}, -1, {}}, {0}, "no group is named"},
        {{{{"INDEPENDENT", {{"TEST", {"a"}}, {"GROUP", {"x"}}}}}, -1, {}}, {0}, "an unknown group"},
        {{{{"ONESAMPLE", {{"TEST", {"a"}}, {"GROUP", {"e"}}}}, {"RELATED", {{"TEST", {"b"}}, {"GROUP", {"d"}}}}}, -1, {}}, {0, 1}, "only independent samples have groups"},
        {{{{"ONESAMPLE", {{"TEST", {"a", "x"}}}}, {"RELATED", {{"TEST", {"b", "c"}}}}}, -1, {}}, {1, 2}, "one unknown name costs its whole parameter"},
        {{{{"ONESAMPLE", {{"TEST", {}}}}}, -1, {}}, {}, "an empty list"},
        {{{{"onesample", {{"TEST", {"a"}}}}, {"OTHER", {{"TEST", {"b"}}}}}, -1, {}}, {}, "other subcommands"},
    }, [this](const Subcommands& subcommands, int extra, const Variables& extras) {
        fProcedure.reset(GetCFProcCustom());
        fProcedure->Attach(nullptr, fSource.get());
        fProcedure->SetExtraVariables(extra, extras);
        return Collect(subcommands);
    });
    // clang-format on
}

TEST_F(AnalysisVariables, StayAsTheyWereWhereNothingIsCollected)
{
    const Variables first = Collect({{"ONESAMPLE", {{"TEST", {"c"}}}}});
    EXPECT_EQ(first, Variables{2});
    EXPECT_EQ(Collect({}), first) << "an empty command";

    const auto command = refhost::MakeCommand({{"ONESAMPLE", {{"TEST", {"a"}}}}});
    EXPECT_TRUE(fProcedure->CollectAnalysisVariables(nullptr, &fDescriptor));
    EXPECT_TRUE(fProcedure->CollectAnalysisVariables(command.get(), nullptr));
    EXPECT_EQ(fProcedure->GetAnalysisVariables(), first) << "no command, no descriptor";
}

}  // namespace
