#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ViewRecorder.h"

#include "charts/ValueLabels.h"

#include "host/chart/XDocument.h"
#include "host/chart/XGraph.h"
#include "host/data/OBS.h"

using testing::ElementsAre;

TEST(ValueText, IsTheLabelOrTheValueOrTheNumber)
{
    ViewRecorder recorder;
    const FieldInfoData& field =
        recorder.AddField({.fName = "feed"}, {{"1", "casein"}, {"2.50", ""}});
    struct Row {
        const FieldInfoData* field;
        int index;
        const char* expected;
        const char* why;
    };
    for (const Row& row :
         {Row{&field, 0, "casein", "the label"},
          Row{&field, 1, "2.50", "the document's text of the value"},
          Row{&field, 2, "2", "beyond the values"}, Row{&field, -1, "-1", "before the values"},
          Row{nullptr, 7, "7", "no field"}}) {
        SCOPED_TRACE(row.why);
        EXPECT_EQ(ValueText(row.field, row.index), row.expected);
    }
}

TEST(ApplyValueLabels, BindsTheVariableAndRelabelsPositions)
{
    ViewRecorder recorder;
    const FieldInfoData& field =
        recorder.AddField({.fName = "feed"}, {{"10", "casein"}, {"20", ""}});
    const FieldInfoData& unknown = recorder.AddFieldWithoutVariable();
    const auto chart = recorder.Draw([&] {
        XDocument document("<visualization/>");
        XVariable variable = document.getExternalGraph().getVariable("Category", 0);
        ApplyValueLabels(&field, variable);
        ApplyValueLabels(&unknown, variable);
        ApplyValueLabels(nullptr, variable);
        document.SendChart(true, false, false);
    });
    ASSERT_TRUE(chart);
    EXPECT_THAT(CallLines(*chart),
                ElementsAre("XDocument.getExternalGraph", "XGraph.getVariable \"Category\"",
                            "XVariable.setQORTVariable \"Category\" \"feed\"",
                            "XVariable.addRelabel \"Category\" \"0\" \"casein\"",
                            "XVariable.addRelabel \"Category\" \"1\" {20}",
                            "XDocument.SendChart true false false"));
}

TEST(StringValue, IsCutToTheFormatsWidthAndLosesBlanksAtTheEnd)
{
    struct Row {
        const char* text;
        int width;
        const char* expected;
        const char* why;
    };
    for (const Row& row : {Row{"ab      ", 8, "ab", "padded"},
                           Row{" a b    ", 8, " a b", "blanks at the start stay"},
                           Row{"        ", 8, "", "blanks only"},
                           Row{"abcdefgh", 3, "abc", "longer than the format"},
                           Row{"Gr\xC3\xB6\xC3\x9F"
                               "e",
                               5, "Gr\xC3\xB6", "no half of a character"},
                           Row{"ab", 8, "ab", "shorter than the format"}}) {
        SCOPED_TRACE(row.why);
        EXPECT_EQ(StringValue(OBS(std::string(row.text)), FormatOf(1, row.width, 0)), row.expected);
    }
    EXPECT_EQ(StringValue(OBS(5.0), FormatOf(1, 8, 0)), "") << "a number has no text";
}
