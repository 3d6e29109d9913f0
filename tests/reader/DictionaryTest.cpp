#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/data/QORT_Variable.h"
#include "host/framework/CFMetaData.h"

#include "support/DocumentBuilder.h"
#include "support/Reading.h"

namespace {

using testing::ElementsAre;

/// Two variables: a number "x" and a string "s" of width 4.
std::vector<refhost::VariableData> Variables()
{
    refhost::VariableData number;
    number.fName = "x";
    refhost::VariableData text;
    text.fName = "s";
    text.fIsString = true;
    text.fFormat = {.fWidth = 4, .fType = 1, .fDecimals = 0};
    return {number, text};
}

DocumentBuilder TwoFields()
{
    DocumentBuilder builder;
    builder.AddField({.name = "s", .dataType = "string", .values = {{"ab", "first"}, {"c"}}});
    builder.AddField({.name = "x", .values = {{"2.5", "half"}}});
    return builder;
}

TEST(ReadDataDictionary, MakesARecordForEachFieldButTheLast)
{
    const Reading reading(TwoFields().Text(), Variables());
    ASSERT_TRUE(reading.fRead);
    ASSERT_NE(reading.fStats.GetMetaData(), nullptr);
    EXPECT_EQ(reading.fStats.GetMetaData()->FieldCount(), 3);
    ASSERT_EQ(reading.fStats.GetFieldInfos().size(), 2U);
    EXPECT_EQ(reading.fStats.GetFieldInfo(2U), nullptr);
    for (int index = 0; index < 2; ++index)
        EXPECT_EQ(reading.fStats.GetFieldInfo(static_cast<unsigned>(index))->fFieldIndex, index);
}

TEST(ReadDataDictionary, LinksFieldsToTheHostsVariablesByName)
{
    const Reading reading(TwoFields().AddField({.name = "X", .values = {{"1"}}}).Text(),
                          Variables());
    const FieldInfoData& text = *reading.fStats.GetFieldInfo(0U);
    ASSERT_NE(text.fVariable, nullptr);
    EXPECT_EQ(text.fVariable->GetName(), "s");
    ASSERT_EQ(text.fValues.size(), 2U);
    EXPECT_EQ(text.fValues[0].fValue.GetObsValue()->Text(), "ab  ") << "padded to the format";
    EXPECT_EQ(text.fValues[0].fValue.GetStringValue(), "ab");
    EXPECT_EQ(text.fValues[0].fLabel, "first");
    EXPECT_EQ(text.fValues[1].fValueIndex, 1);
    EXPECT_EQ(text.fValues[1].fLabel, "") << "no label in the document";
    EXPECT_EQ(reading.fStats.GetFieldInfo(1U)->fValues[0].fValue.GetObsValue()->Number(), 2.5);

    const FieldInfoData& unknown = *reading.fStats.GetFieldInfo(2U);
    EXPECT_EQ(unknown.fVariable, nullptr) << "case counts";
    EXPECT_TRUE(unknown.fValues.empty());
    EXPECT_EQ(reading.fStats.GetMetaData()->GetField(2)->GetValues().size(), 1U)
        << "the dictionary still holds them";
}

TEST(ReadDataDictionary, GivesValuesTheTypeOfTheirStorage)
{
    struct Row {
        const char* dataType;
        CFDatum::Kind expected;
        const char* why;
    };
    for (const Row& row : {Row{"string", CFDatum::Kind::Text, "text stays text"},
                           Row{"integer", CFDatum::Kind::Integer, "64 bits"},
                           Row{"double", CFDatum::Kind::Number, ""},
                           Row{"date", CFDatum::Kind::Number, "dates are numbers of days"},
                           Row{"String", CFDatum::Kind::Number, "an unknown type is a number"}}) {
        SCOPED_TRACE(row.dataType);
        const Reading reading(
            DocumentBuilder()
                .AddField({.name = "f", .dataType = row.dataType, .values = {{"-7", "seven"}}})
                .Text());
        const CFField& field = *reading.fStats.GetMetaData()->GetField(0);
        ASSERT_EQ(field.GetValues().size(), 1U);
        const CFDatum& datum = field.GetValues()[0].GetDatum();
        EXPECT_EQ(datum.GetKind(), row.expected) << row.why;
        EXPECT_EQ(datum.GetInteger(), row.expected == CFDatum::Kind::Integer ? -7 : 0);
        EXPECT_EQ(field.GetValues()[0].GetText(), "-7");
        EXPECT_EQ(field.GetValueLabels()[0].GetText(), "seven");
    }
}

TEST(ReadDataDictionary, FailsWhereAnIndexIsNotThePosition)
{
    const std::string document = TwoFields().Text();
    struct Row {
        const char* part;
        const char* by;
        bool read;
        const char* why;
    };
    // clang-format off
    const Row rows[] = {
        {"<DataField index=\"1\"", "<DataField index=\"2\"", false, "a gap"},
        {"<DataField index=\"1\"", "<DataField", false, "no index counts as 0"},
        {"<DataField index=\"0\"", "<DataField", true, "which is right for the first"},
        {"<DataField index=\"0\"", "<DataField index=\"zero\"", true, "no number counts as no index"},
        {"<Value index=\"1\"", "<Value index=\"0\"", false, "twice the same value"},
        {"<Value index=\"1\"", "<Value index=\"-1\"", false, "a negative value index"},
    };
    // clang-format on
    for (const Row& row : rows) {
        SCOPED_TRACE(row.why);
        EXPECT_EQ(Reading(Replaced(document, row.part, row.by), Variables()).fRead, row.read);
    }
}

TEST(ReadDataDictionary, ToleratesFewFields)
{
    const Reading none(
        Replaced(DocumentBuilder().Text(), "<NPAROutput>", "<NPAROutput><DataDictionary/>"));
    EXPECT_TRUE(none.fRead);
    EXPECT_EQ(none.fStats.GetMetaData()->FieldCount(), 0);

    const Reading one(Replaced(DocumentBuilder().Text(), "<NPAROutput>",
                               "<NPAROutput><DataDictionary><DataField/></DataDictionary>"));
    EXPECT_TRUE(one.fRead);
    EXPECT_TRUE(one.fStats.GetFieldInfos().empty()) << "the last field has no record";

    const Reading absent(DocumentBuilder().Text());
    EXPECT_EQ(absent.fStats.GetMetaData(), nullptr);
}

TEST(ReadFieldInfos, FillsTheRecordOfTheField)
{
    const Reading reading(TwoFields()
                              .AddFieldInfo({.field = 1,
                                             .numbers = {{"TotalN", 10},
                                                         {"Min", -1.5},
                                                         {"Max", 4},
                                                         {"Mean", 2},
                                                         {"StdDev", MissingValue},
                                                         {"Skewness", 3}},
                                             .distribution = {{4, 6}, {0.5, 1.5}}})
                              .AddFieldInfo({.field = 0, .categorical = true})
                              .Text(),
                          Variables());
    ASSERT_TRUE(reading.fRead);
    const FieldInfoData& number = *reading.fStats.GetFieldInfo(1U);
    EXPECT_TRUE(number.fIsRead);
    EXPECT_FALSE(number.fIsCategorical);
    EXPECT_EQ(number.fTotalN, 10);
    EXPECT_EQ(number.fMin, -1.5);
    EXPECT_EQ(number.fMax, 4);
    EXPECT_EQ(number.fMean, 2);
    EXPECT_TRUE(IsMissing(number.fStdDev)) << "a missing token is no number";
    EXPECT_EQ(number.fDistribution.fName, "Interval");
    EXPECT_THAT(number.fDistribution.fRows, ElementsAre(ElementsAre(4, 6), ElementsAre(0.5, 1.5)));
    EXPECT_TRUE(reading.fStats.GetFieldInfo(0U)->fIsCategorical);
    EXPECT_TRUE(reading.fReports.empty()) << "unknown numbers of a field are skipped";
}

TEST(ReadFieldInfos, OverwritesWhatAFieldHadBefore)
{
    const Reading reading(
        TwoFields()
            .AddFieldInfo({.field = 0, .categorical = true, .numbers = {{"TotalN", 1}, {"Min", 1}}})
            .AddFieldInfo({.field = 0, .numbers = {{"TotalN", 2}}})
            .Text());
    const FieldInfoData& field = *reading.fStats.GetFieldInfo(0U);
    EXPECT_FALSE(field.fIsCategorical);
    EXPECT_EQ(field.fTotalN, 2);
    EXPECT_EQ(field.fMin, 1) << "what the second leaves out stays";
}

TEST(ReadFieldInfos, FailsWithoutOneTableOfOneTable)
{
    const std::string document = TwoFields().AddFieldInfo({.field = 0}).Text();
    const std::string table = SimpleTable("Interval", "", "", {{}, {}}).Text();
    const std::string whole = StructuredTable("ContinuousDistribution")
                                  .Add(SimpleTable("Interval", "", "", {{}, {}}))
                                  .Text();
    struct Row {
        std::string part;
        std::string by;
        bool read;
        const char* why;
    };
    // clang-format off
    const Row rows[] = {
        {whole, "", false, "no distribution"},
        {table, "", false, "no table in it"},
        {table, table + table, false, "two tables in it"},
        {whole, whole + StructuredTable("Further").Text(), true, "only the first distribution is looked at"},
        {"varIndex=\"0\"", "varIndex=\"2\"", true, "a field without a record is passed over"},
        {"varIndex=\"0\"", "varIndex=\"-5\"", true, "and so is a negative one"},
        {"varIndex=\"0\"", "", true, "and one that is not told"},
    };
    // clang-format on
    for (const Row& row : rows) {
        SCOPED_TRACE(row.why);
        EXPECT_EQ(Reading(Replaced(document, row.part, row.by)).fRead, row.read);
    }
}

}  // namespace
