#include "refhost/pivot/CellText.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <limits>

#include "refhost/data/MissingValue.h"
#include "refhost/data/VariableData.h"
#include "refhost/pivot/TextIdentity.h"
#include "refhost/strings/TextTable.h"

#include "host/data/OBS.h"

#include "support/Cases.h"
#include "support/CollectedOutput.h"

namespace refhost {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

std::vector<VariableData> Variables()
{
    return {
        {"weight", "Weight in grams", false, {8, 5, 2}, {}},
        {"feed", "", false, {8, 5, 0}, {{OBS(1.0), "casein"}}},
        {"name", "Name", true, {4, 1, 0}, {{OBS(std::string("b   ")), "Beta"}}},
        {"day", "Day", false, {10, 20, 0}, {{OBS(1.0), "second"}}},
    };
}

TEST(CellText, ShowsNumbersInTheirFormat)
{
    const auto source = MakeDataSource(Variables());
    const CollectedOutput run(source.get());
    // clang-format off
    ExpectEach<std::tuple<double, BpFormatSpec>, std::string>({
        {{0.0412, BpProcedure::Significance()}, "0.041", "three decimals"},
        {{0.00049, BpProcedure::Significance()}, "<0.001", "no significance is zero"},
        {{0.0005, BpProcedure::Significance()}, "0.001", "what rounds up shows"},
        {{0.0, BpProcedure::Significance()}, "0.000", "a number that is zero"},
        {{-0.0001, BpProcedure::Significance()}, "0.000", "a statistic below zero"},
        {{-0.0001, BpProcedure::Coefficient()}, "0.000", "a zero has no sign"},
        {{71, BpProcedure::Count()}, "71", "whole"},
        {{95, BpProcedure::Percent()}, "95", "a whole percentage"},
        {{0.95 * 100.0, BpProcedure::Percent()}, "95", "rounding of the product doesn't show"},
        {{97.5, BpProcedure::Percent()}, "97.5", "a broken percentage"},
        {{100.0 / 3.0, BpProcedure::Percent()}, "33.3", "one decimal where that is enough"},
        {{0.9995 * 100.0, BpProcedure::Percent()}, "99.95", "not yet a hundred"},
        {{0.9999 * 100.0, BpProcedure::Percent()}, "99.99", "closer to it"},
        {{0.00001, BpProcedure::Percent()}, "0.00001", "more than nothing"},
        {{1e-12, BpProcedure::Percent()}, "<0.000000001", "hardly anything"},
        {{0.0001, BpProcedure::Proportion()}, "<0.001", "no significance level is zero"},
        {{0.05, BpProcedure::Proportion()}, "0.050", "a usual one"},
        {{5, BpProcedure::CountOrCoefficent(5)}, "5", "whole: a count"},
        {{5.25, BpProcedure::CountOrCoefficent(5.25)}, "5.250", "broken: a coefficient"},
        {{1.5, BpProcedure::StdDev(0)}, "1.500", "one decimal more than the variable"},
        {{1.5, BpProcedure::StdDev(1)}, "1.5", "the other variable"},
        {{1.5, BpProcedure::StdDev(99)}, "1.500", "no such variable"},
        {{kMissingValue, BpProcedure::Percent()}, ".", "missing"},
        {{kInfinity, BpProcedure::Count()}, ".", "not finite"},
        {{1e300, BpProcedure::Coefficient()}, "1e+300", "no three hundred digits"},
    }, [](double number, const BpFormatSpec& format) { return Snapshot(BpNumber(number, format))->fShown; });
    // clang-format on
}

TEST(CellText, ShowsValuesByTheirVariable)
{
    const auto source = MakeDataSource(Variables());
    const CollectedOutput run(source.get());
    const auto variable = [&source](int index) { return source->GetVariable(index); };
    const OBS day(0.0), labelledDay(1.0), text(std::string("b   ")), wide(std::string("abcdefgh"));
    const OBS missing(kMissingValue);
    // clang-format off
    ExpectEach<BpDataValue, std::string>({
        {{variable(0), 12.5, Preference::Preferred}, "12.50", "the variable's decimals"},
        {{variable(1), 1.0, Preference::Preferred}, "casein", "the value's label"},
        {{variable(2), &text, Preference::Preferred}, "Beta", "a padded string's label"},
        {{variable(2), std::string("b"), Preference::Preferred}, "Beta", "an unpadded one's"},
        {{variable(2), std::string("zz  "), Preference::Preferred}, "zz", "no padding shows"},
        {{variable(2), &wide, Preference::Preferred}, "abcdefgh", "wider than its format"},
        {{variable(3), &day, Preference::Preferred}, "1970-01-01", "document days"},
        {{variable(3), &labelledDay, Preference::Preferred}, "second", "a labelled day"},
        {{variable(3), 12219379200.0, Preference::Preferred}, "1970-01-01", "the host's own"},
        {{variable(3), 12219465600.0, Preference::Preferred}, "second", "a labelled one of it"},
        {{variable(0), &missing, Preference::Preferred}, ".", "missing"},
        {{variable(0), static_cast<const OBS*>(nullptr), Preference::Preferred}, ".", "no value"},
        {{nullptr, 2.5, Preference::Preferred}, "2.5", "no variable"},
        {{nullptr, &text, Preference::Preferred}, "b", "a string without variable"},
        {{variable(2), 3.0, Preference::Preferred}, "3", "a number of a string variable"},
    }, [](const BpDataValue& value) { return Snapshot(value)->fShown; });
    // clang-format on
    EXPECT_EQ(Snapshot(BpVariable(variable(0), Show::Preferred))->fShown, "Weight in grams");
    EXPECT_EQ(Snapshot(BpVariable(variable(1), Show::Preferred))->fShown, "feed");
    EXPECT_EQ(Snapshot(BpVariable(nullptr, Show::Preferred))->fShown, "");
}

TEST(CellText, LooksKeysUp)
{
    const std::string file = testing::TempDir() + "pivot_texts.json";
    std::ofstream(file) << R"({"pivot": {"Sig.": "p", "222328": "Samples ^1 and ^2 are tied."}})";
    TextTable table;
    std::string reason;
    ASSERT_TRUE(table.Load(file, reason)) << reason;
    std::remove(file.c_str());
    const TextTable::Scope scope(table);
    // clang-format off
    ExpectEach<std::tuple<const char*, bool>, std::string>({
        {{"Sig.", true}, "p", "a key"},
        {{"Sig.", false}, "Sig.", "literal"},
        {{"Decision", true}, "Decision", "a key without a text"},
        {{"123", true}, "123", "a code without a text"},
        {{"123", false}, "123", "a literal number"},
    }, [](const char* key, bool lookup) { return Snapshot(BpString(key, lookup))->fShown; });
    // clang-format on
    BpComposite composite("222328", true);
    composite.Add(BpString("x", false));
    composite.Add(BpString("y", false));
    composite.Finish();
    EXPECT_EQ(Snapshot(composite)->fShown, "Samples x and y are tied.");
}

TEST(CellText, KeepsWhatWasTakenWhenACompositeGrows)
{
    BpComposite composite("^1^2^3", false);
    composite.Add(BpString("a", false));
    const TextRef early = Snapshot(composite);
    const BpCellText copy = composite.Replicate();
    composite.Sublist();
    composite.Add(BpString("b", false));
    composite.Add(BpString("c", false));
    composite.EndSublist();
    composite.Add(BpString("d", false));
    composite.Finish();
    composite.Add(BpString("late", false));
    EXPECT_EQ(early->fShown, "a");
    EXPECT_EQ(Snapshot(copy)->fShown, "a");
    EXPECT_EQ(Snapshot(composite)->fShown, "ab, cd");
    EXPECT_EQ(std::get<TextComposite>(Snapshot(composite)->fPassed).fParts.size(), 3U);
}

BpComposite Filled(const std::string& string, bool lookup, const char* part, bool asSublist)
{
    BpComposite composite(string, lookup);
    if (asSublist) composite.Sublist();
    composite.Add(BpString(part, false));
    composite.Finish();
    return composite;
}

TEST(TextIdentity, ComparesWhatWasPassed)
{
    const auto source = MakeDataSource(Variables());
    const CollectedOutput run(source.get());
    const QORT_Variable* weight = source->GetVariable(0);
    const QORT_Variable* day = source->GetVariable(3);
    const OBS zero(0.0);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    // clang-format off
    ExpectEach<std::tuple<BpCellText, BpCellText>, bool>({
        {{BpString("x", true), BpString("x", true)}, true, "string and lookup"},
        {{BpString("x", true), BpString("x", false)}, false, "lookup differs"},
        {{BpNumber(1, BpProcedure::Count()), BpNumber(1, BpProcedure::Count())}, true, "number"},
        {{BpNumber(1, BpProcedure::Count()), BpNumber(1, BpProcedure::Percent())}, false, "format"},
        {{BpNumber(1.2, BpProcedure::Count()), BpNumber(1.3, BpProcedure::Count())}, false, "they only look alike"},
        {{BpNumber(nan, BpProcedure::Count()), BpNumber(nan, BpProcedure::Count())}, true, "none"},
        {{BpVariable(weight, Show::Preferred), BpVariable(weight, Show::Preferred)}, true, "field"},
        {{BpVariable(weight, Show::Preferred), BpString("Weight in grams", false)}, false, "kinds"},
        {{BpDataValue(weight, 0.0, Preference::Preferred), BpDataValue(day, 0.0, Preference::Preferred)}, false, "same value, other variable"},
        {{BpDataValue(day, 0.0, Preference::Preferred), BpDataValue(day, &zero, Preference::Preferred)}, false, "same number, other unit"},
        {{Filled("^1", true, "a", false), Filled("^1", true, "a", false)}, true, "same parts"},
        {{Filled("^1", true, "a", false), Filled("^1", true, "b", false)}, false, "other parts"},
        {{Filled("^1", true, "a", false), Filled("^1", true, "a", true)}, false, "list or not"},
    }, [](const BpCellText& a, const BpCellText& b) {
        const bool isSame = SamePassed(Snapshot(a), Snapshot(b));
        EXPECT_TRUE(!isSame || PassedHash(Snapshot(a)) == PassedHash(Snapshot(b)));
        return isSame;
    });
    // clang-format on
}

}  // namespace
}  // namespace refhost
