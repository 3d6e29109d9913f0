#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "reader/NOPRXMLGeneral.h"
#include "reader/Numbers.h"

#include "model/NOPROutputStats.h"

#include "host/framework/SDOMXMLWrapper.h"

#include "support/Cases.h"
#include "support/Reading.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(ParseNumbers, ReadsTokensAndTheMissingOne)
{
    using Numbers = std::vector<double>;
    // clang-format off
    ExpectEach<const char*, Numbers>({
        {"1 -2.5 3e2", {1, -2.5, 300}, "blanks part numbers"},
        {"1\t2\n3\r\n4", {1, 2, 3, 4}, "and so do tabs and line ends"},
        {"7 __MISSING__ 8", {7, MissingValue, 8}, "the missing token"},
        {"__MISSING__x", {MissingValue}, "no number is missing as well"},
        {"\"1.5\" 2", {1.5, 2}, "quotes don't belong to a token"},
        {"1e999", {MissingValue}, "beyond the numbers"},
        {" \n ", {9, 9, 9}, "without tokens the list stays as it was"},
    }, [](const char* text) {
        Numbers numbers = {9, 9, 9};
        EXPECT_TRUE(ParseNumbers(text, numbers));
        return numbers;
    });
    // clang-format on
}

TEST(ParseIntegers, KnowsNoMissingToken)
{
    std::vector<int> numbers;
    EXPECT_TRUE(ParseIntegers("4 __MISSING__ -1 99999999999 2.9", numbers));
    EXPECT_THAT(numbers, ElementsAre(4, 0, -1, std::numeric_limits<int>::max(), 2));
}

TEST(ToNumericTable, KeepsShapesApart)
{
    const SimpleTableData data{"Content", "a \"b c\"", "", {"1 2 3", "", "4"}};
    NumericTable table;
    ASSERT_TRUE(ToNumericTable(data, table));
    EXPECT_EQ(table.fName, "Content");
    EXPECT_THAT(NamesIn(table.fRowNames), ElementsAre("a", "b c"));
    EXPECT_THAT(table.fColumnNames, IsEmpty());
    EXPECT_THAT(table.fRows, ElementsAre(ElementsAre(1, 2, 3), IsEmpty(), ElementsAre(4)));
}

TEST(ToNumericTable, ReadsTextsOfManyPieces)
{
    constexpr std::size_t kCount = 300'000;
    SimpleTableData data{"", "", "", {""}};
    for (std::size_t number = 0; number < kCount; ++number)
        data.fRowTexts.front() += std::to_string(number) + ' ';
    data.fColumnNames = data.fRowTexts.front();
    NumericTable table;
    ASSERT_TRUE(ToNumericTable(data, table));
    const std::vector<double>& row = table.fRows.front();
    ASSERT_EQ(row.size(), kCount);
    ASSERT_EQ(table.fColumnNames.size(), kCount);
    for (std::size_t number = 0; number < kCount; ++number) {
        ASSERT_EQ(row[number], static_cast<double>(number));
        ASSERT_EQ(table.fColumnNames[number], std::to_string(number));
    }
}

TEST(ToNumericTable, KeepsWhatAnEmptyRowHeldBefore)
{
    NumericTable table;
    ToNumericTable({"", "old", "old", {"1 2", "3", "5"}}, table);
    ToNumericTable({"", "new", "new", {"", "4"}}, table);
    EXPECT_THAT(NamesIn(table.fRowNames), ElementsAre("new"));
    EXPECT_THAT(NamesIn(table.fColumnNames), ElementsAre("new"));
    EXPECT_THAT(table.fRows, ElementsAre(ElementsAre(1, 2), ElementsAre(4)));
}

/// An element that stands as a document of its own.
class Loaded {
public:
    explicit Loaded(const std::string& text) { EXPECT_TRUE(fRoot.LoadFromString(text)) << text; }
    const SDOMXMLWrapper& Root() const { return fRoot; }

private:
    SDOMXMLWrapper fRoot;
};

TEST(ReadAttribute, AsksForANameOnly)
{
    std::string name;
    std::string value = "before";
    EXPECT_TRUE(ReadAttribute(Loaded("<Attribute name='n'/>").Root(), name, value));
    EXPECT_EQ(name, "n");
    EXPECT_EQ(value, "");
    EXPECT_FALSE(ReadAttribute(Loaded("<Attribute value=' v '/>").Root(), name, value));
    EXPECT_EQ(value, " v ") << "nothing is trimmed";
    double number = 1;
    EXPECT_FALSE(ReadNumberAttribute(Loaded("<A value='1'/>").Root(), name, number));
    EXPECT_TRUE(ReadNumberAttribute(Loaded("<A name='n' value='2,5'/>").Root(), name, number));
    EXPECT_TRUE(IsMissing(number)) << "no number";
}

TEST(ReadSimpleTable, NeedsItsNameAndBothLists)
{
    // clang-format off
    ExpectEach<const char*, bool>({
        {"<SimpleTable name='t'><RowNames/><ColumnNames/></SimpleTable>", true, "empty lists and no rows"},
        {"<SimpleTable><RowNames/><ColumnNames/></SimpleTable>", false, "no name"},
        {"<SimpleTable name='t'><ColumnNames/></SimpleTable>", false, "no row names"},
        {"<SimpleTable name='t'><RowNames/></SimpleTable>", false, "no column names"},
        {"<SimpleTable name='t'><ColumnNames/><Row/><Other/><RowNames/></SimpleTable>", true, "in any order"},
    }, [](const char* text) {
        SimpleTableData data;
        return ReadSimpleTable(Loaded(text).Root(), data);
    });
    // clang-format on
}

TEST(ReadStructuredTable, FailsWithAnyOfItsChildren)
{
    // clang-format off
    ExpectEach<const char*, bool>({
        {"<StructuredTable name='s'/>", true, "no children"},
        {"<StructuredTable/>", false, "no name"},
        {"<StructuredTable name='s'><Attribute value='v'/></StructuredTable>", false, "an attribute without a name"},
        {"<StructuredTable name='s'><SimpleTable name='t'/></StructuredTable>", false, "a table without names"},
        {"<StructuredTable name='s'><Other/></StructuredTable>", true, "an unknown child is skipped"},
        {"<StructuredTable name='s'><StructuredTable name='a'><StructuredTable/></StructuredTable></StructuredTable>",
            false, "a nameless table in the depth"},
    }, [](const char* text) {
        StructuredTableData data;
        return ReadStructuredTable(Loaded(text).Root(), data);
    });
    // clang-format on
}

}  // namespace
