#include <gtest/gtest.h>

#include "host/data/QORT_Variable.h"
#include "host/framework/CFMetaData.h"

#include "support/Cases.h"
#include "support/DocumentBuilder.h"
#include "support/Reading.h"

namespace {

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
    // clang-format off
    ExpectEach<const char*, CFDatum::Kind>({
        {"string", CFDatum::Kind::Text, "text stays text"},
        {"integer", CFDatum::Kind::Integer, "64 bits"},
        {"double", CFDatum::Kind::Number},
        {"date", CFDatum::Kind::Number, "dates are numbers of days"},
        {"String", CFDatum::Kind::Number, "an unknown type is a number"},
    }, [](const char* dataType) {
        const Reading reading(
            DocumentBuilder().AddField({.name = "f", .dataType = dataType, .values = {{"-7"}}}).Text());
        const CFDatum& datum = reading.fStats.GetMetaData()->GetField(0)->GetValues().at(0).GetDatum();
        EXPECT_EQ(datum.GetInteger(), datum.GetKind() == CFDatum::Kind::Integer ? -7 : 0);
        return datum.GetKind();
    });
    // clang-format on
}

TEST(ReadDataDictionary, FailsWhereAnIndexIsNotThePosition)
{
    // clang-format off
    ExpectEach<std::pair<const char*, const char*>, bool>({
        {{"<DataField index=\"1\"", "<DataField index=\"2\""}, false, "a gap"},
        {{"<DataField index=\"1\"", "<DataField"}, false, "no index counts as 0"},
        {{"<DataField index=\"0\"", "<DataField"}, true, "which is right for the first"},
        {{"<DataField index=\"0\"", "<DataField index=\"zero\""}, true, "no number counts as no index"},
        {{"<Value index=\"1\"", "<Value index=\"0\""}, false, "twice the same value"},
        {{"<Value index=\"1\"", "<Value index=\"-1\""}, false, "a negative value index"},
    }, [](const char* part, const char* by) {
        return Reading(Replaced(TwoFields().Text(), part, by), Variables()).fRead;
    });
    // clang-format on
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

TEST(ReadFieldInfos, OverwritesWhatAFieldHadBefore)
{
    const NamedNumbers first = {{"TotalN", 1}, {"Min", 1}, {"StdDev", 2}};
    const NamedNumbers second = {{"TotalN", 2}, {"StdDev", MissingValue}, {"Skewness", 3}};
    const Reading reading(TwoFields()
                              .AddFieldInfo({.field = 0, .categorical = true, .numbers = first})
                              .AddFieldInfo({.field = 0, .numbers = second})
                              .Text());
    const FieldInfoData& field = *reading.fStats.GetFieldInfo(0U);
    EXPECT_FALSE(field.fIsCategorical);
    EXPECT_EQ(field.fTotalN, 2);
    EXPECT_EQ(field.fMin, 1) << "what the second leaves out stays";
    EXPECT_TRUE(IsMissing(field.fStdDev)) << "the missing token is no number";
    EXPECT_TRUE(reading.fReports.empty()) << "unknown numbers of a field are skipped";
}

TEST(ReadFieldInfos, FailsWithoutOneTableOfOneTable)
{
    const std::string document = TwoFields().AddFieldInfo({.field = 0}).Text();
    const std::string table = SimpleTable("Interval", "", "", {{}, {}}).Text();
    const std::string whole = StructuredTable("ContinuousDistribution")
                                  .Add(SimpleTable("Interval", "", "", {{}, {}}))
                                  .Text();
    // clang-format off
    ExpectEach<std::pair<std::string, std::string>, bool>({
        {{whole, ""}, false, "no distribution"},
        {{table, ""}, false, "no table in it"},
        {{table, table + table}, false, "two tables in it"},
        {{whole, whole + StructuredTable("Further").Text()}, true, "only the first distribution is looked at"},
        {{"varIndex=\"0\"", "varIndex=\"2\""}, true, "a field without a record is passed over"},
        {{"varIndex=\"0\"", "varIndex=\"-5\""}, true, "and so is a negative one"},
        {{"varIndex=\"0\"", ""}, true, "and one that is not told"},
    }, [&](const std::string& part, const std::string& by) {
        return Reading(Replaced(document, part, by)).fRead;
    });
    // clang-format on
}

}  // namespace
