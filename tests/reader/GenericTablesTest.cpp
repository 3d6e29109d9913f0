#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "reader/NOPRXMLGeneral.h"
#include "reader/Numbers.h"

#include "model/NOPROutputStats.h"

#include "host/framework/SDOMXMLWrapper.h"

#include "support/DocumentBuilder.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(ParseNumbers, ReadsTokensAndTheMissingOne)
{
    struct Row {
        const char* text;
        std::vector<double> numbers;
        const char* why;
    };
    for (const Row& row : {Row{"1 -2.5 3e2", {1, -2.5, 300}, "blanks part numbers"},
                           Row{"1\t2\n3\r\n4", {1, 2, 3, 4}, "and so do tabs and line ends"},
                           Row{"7 __MISSING__ 8", {7, MissingValue, 8}, "the missing token"},
                           Row{"__MISSING__x", {MissingValue}, "no number is missing as well"},
                           Row{"\"1.5\" 2", {1.5, 2}, "quotes don't belong to a token"},
                           Row{"1e999", {MissingValue}, "beyond the numbers"}}) {
        SCOPED_TRACE(row.why);
        std::vector<double> numbers = {9, 9, 9, 9, 9, 9};
        EXPECT_TRUE(ParseNumbers(row.text, numbers));
        EXPECT_EQ(numbers, row.numbers);
    }
}

TEST(ParseNumbers, LeavesTheListAsItWasWithoutTokens)
{
    std::vector<double> numbers = {1, 2};
    EXPECT_TRUE(ParseNumbers(" \n ", numbers));
    EXPECT_THAT(numbers, ElementsAre(1, 2));
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
    EXPECT_THAT(table.fRowNames, ElementsAre("a", "b c"));
    EXPECT_THAT(table.fColumnNames, IsEmpty());
    EXPECT_THAT(table.fRows, ElementsAre(ElementsAre(1, 2, 3), IsEmpty(), ElementsAre(4)));
}

TEST(ToNumericTable, KeepsWhatAnEmptyRowHeldBefore)
{
    NumericTable table;
    ToNumericTable({"", "old", "old", {"1 2", "3", "5"}}, table);
    ToNumericTable({"", "new", "new", {"", "4"}}, table);
    EXPECT_THAT(table.fRowNames, ElementsAre("new"));
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
}

TEST(ReadNumberAttribute, TakesWhatIsNoNumberForMissing)
{
    std::string name;
    double value = 1;
    EXPECT_TRUE(ReadNumberAttribute(Loaded("<A name='n' value='2.5'/>").Root(), name, value));
    EXPECT_EQ(value, 2.5);
    EXPECT_TRUE(ReadNumberAttribute(Loaded("<A name='n' value='2,5'/>").Root(), name, value));
    EXPECT_TRUE(IsMissing(value));
    EXPECT_FALSE(ReadNumberAttribute(Loaded("<A value='1'/>").Root(), name, value));
}

TEST(ReadSimpleTable, NeedsItsNameAndBothLists)
{
    struct Row {
        const char* text;
        bool read;
        const char* why;
    };
    // clang-format off
    const Row rows[] = {
        {"<SimpleTable name='t'><RowNames/><ColumnNames/></SimpleTable>", true, "empty lists and no rows"},
        {"<SimpleTable><RowNames/><ColumnNames/></SimpleTable>", false, "no name"},
        {"<SimpleTable name='t'><ColumnNames/></SimpleTable>", false, "no row names"},
        {"<SimpleTable name='t'><RowNames/></SimpleTable>", false, "no column names"},
        {"<SimpleTable name='t'><ColumnNames/><Row/><Other/><RowNames/></SimpleTable>", true, "in any order"},
    };
    // clang-format on
    for (const Row& row : rows) {
        SCOPED_TRACE(row.why);
        SimpleTableData data;
        EXPECT_EQ(ReadSimpleTable(Loaded(row.text).Root(), data), row.read);
    }
}

TEST(ReadSimpleTable, KeepsTextsUntouched)
{
    SimpleTableData data;
    ASSERT_TRUE(
        ReadSimpleTable(Loaded("<SimpleTable name='t'><RowNames> a </RowNames><ColumnNames>"
                               "<![CDATA[<b>]]></ColumnNames><Row>1 2</Row><Row/></SimpleTable>")
                            .Root(),
                        data));
    EXPECT_EQ(data.fRowNames, " a ");
    EXPECT_EQ(data.fColumnNames, "<b>");
    EXPECT_THAT(data.fRowTexts, ElementsAre("1 2", ""));
}

TEST(ReadStructuredTable, KeepsChildrenAndTheirOrder)
{
    const Element element =
        StructuredTable("s", {Attribute("a", "1"), SimpleTable("t", "", "", {}),
                              StructuredTable("inner"), Element("Other"), Attribute("b", "2")});
    StructuredTableData data;
    ASSERT_TRUE(ReadStructuredTable(Loaded(element.Text()).Root(), data));
    EXPECT_EQ(data.fName, "s");
    ASSERT_EQ(data.fAttributes.size(), 2U);
    EXPECT_EQ(data.fAttributes[1].fValue, "2");
    EXPECT_EQ(data.fSimpleTables.at(0).fName, "t");
    EXPECT_EQ(data.fStrucTables.at(0).fName, "inner");
    std::vector<std::pair<int, int>> order;
    for (const ChildRef& child : data.fChildOrder)
        order.emplace_back(child.fKind, child.fPosition);
    EXPECT_THAT(order,
                ElementsAre(std::pair(0, 0), std::pair(1, 0), std::pair(2, 0), std::pair(0, 1)));
}

TEST(ReadStructuredTable, FailsWithAnyOfItsChildren)
{
    struct Row {
        const char* text;
        bool read;
        const char* why;
    };
    // clang-format off
    const Row rows[] = {
        {"<StructuredTable name='s'/>", true, "no children"},
        {"<StructuredTable/>", false, "no name"},
        {"<StructuredTable name='s'><Attribute value='v'/></StructuredTable>", false, "an attribute without a name"},
        {"<StructuredTable name='s'><SimpleTable name='t'/></StructuredTable>", false, "a table without names"},
        {"<StructuredTable name='s'><Other/></StructuredTable>", true, "an unknown child is skipped"},
        {"<StructuredTable name='s'><StructuredTable name='a'><StructuredTable/></StructuredTable></StructuredTable>",
            false, "a nameless table in the depth"},
    };
    // clang-format on
    for (const Row& row : rows) {
        SCOPED_TRACE(row.why);
        StructuredTableData data;
        EXPECT_EQ(ReadStructuredTable(Loaded(row.text).Root(), data), row.read);
    }
}

TEST(ReadStructuredTable, StopsAtTheFirstChildThatFails)
{
    StructuredTableData data;
    EXPECT_FALSE(ReadStructuredTable(
        Loaded("<StructuredTable name='s'><Attribute name='a'/><Attribute/><Attribute name='c'/>"
               "</StructuredTable>")
            .Root(),
        data));
    EXPECT_EQ(data.fAttributes.size(), 2U);
    EXPECT_EQ(data.fChildOrder.size(), 2U) << "the child that failed keeps its place";
}

}  // namespace
