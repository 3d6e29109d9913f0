#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "refhost/command/CommandData.h"

#include "refhost/data/VariableData.h"

#include "host/command/VarSpecObj.h"

namespace refhost {

namespace {

std::vector<QortVarName> Names(const std::vector<std::string>& names)
{
    return {names.begin(), names.end()};
}

}  // namespace

TEST(CommandSpec, FindsSubcommandsAndParametersByExactName)
{
    const auto command = MakeCommand(
        {{"INDEPENDENT", {{"TEST", {"b", "a", "b"}}, {"GROUP", {"g"}}, {"EMPTY", {}}}}});
    EXPECT_EQ(command->getSubComObj("ONESAMPLE"), nullptr);
    EXPECT_EQ(command->getSubComObj("independent"), nullptr);
    EXPECT_EQ(command->getSubComObj(nullptr), nullptr);
    const SubComObj* subcommand = command->getSubComObj("INDEPENDENT");
    ASSERT_NE(subcommand, nullptr);
    EXPECT_EQ(subcommand->getParamObj("test"), nullptr);

    std::vector<QortVarName> names = Names({"left over"});
    ASSERT_NE(subcommand->getParamObj("TEST"), nullptr);
    subcommand->getParamObj("TEST")->getVarList(names);
    ASSERT_EQ(names.size(), 3u) << "replaced, in order, with repeats";
    EXPECT_EQ(names[0].GetName(), "b");
    EXPECT_EQ(names[1].GetName(), "a");
    EXPECT_EQ(subcommand->getParamObj("GROUP")->getVarName().GetName(), "g");
    EXPECT_TRUE(subcommand->getParamObj("EMPTY")->getVarName().IsEmpty());
}

TEST(VarSpecObj, ValidatesAllNamesOrNone)
{
    const auto source = MakeDataSource({{"a", "", false, {}, {}}, {"b", "", false, {}, {}}});
    VarSpecObj variables("TEST", "ONESAMPLE", CommandDescriptor(), source.get(), false);
    EXPECT_TRUE(variables.ValidateVariables(Names({"b", "a", "b"}), RepeatVarOptions::Keep));
    EXPECT_THAT(variables.GetValidVarList(), testing::ElementsAre(1, 0, 1));
    EXPECT_FALSE(variables.ValidateVariables(Names({"a", "B"}), RepeatVarOptions::Keep));
    EXPECT_EQ(variables.ValidateVariable(QortVarName("b")), 1);
    EXPECT_LT(variables.ValidateVariable(QortVarName("c")), 0);

    VarSpecObj without("TEST", "ONESAMPLE", CommandDescriptor(), nullptr, false);
    EXPECT_FALSE(without.ValidateVariables(Names({"a"}), RepeatVarOptions::Keep));
    EXPECT_LT(without.ValidateVariable(QortVarName("a")), 0);
}

}  // namespace refhost
