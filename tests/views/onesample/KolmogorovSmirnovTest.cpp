#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ViewRecorder.h"

#include "views/onesample/KolmogorovSmirnov.h"

#include "model/NOPRTestRecords.h"

#include "host/chart/ChartString.h"

using testing::HasSubstr;
using testing::Not;

namespace {

constexpr char kTemplate[] = "NPARHistogram.viztemplate";
constexpr char kNormal[] = "NormalDistribution_O_KolmogorovSmirnov_3";
constexpr char kUniform[] = "UniformDistribution_O_KolmogorovSmirnov_3";
constexpr char kPoisson[] = "PoissonDistribution_O_KolmogorovSmirnov_2";
constexpr char kExponential[] = "ExponentialDistribution_O_KolmogorovSmirnov_2";

const QORT_Format kPlain = {8, 5, 2};
const QORT_Format kDate = {10, 20, 0};
const QORT_Format kTimeOfDay = {8, 21, 0};

struct Case {
    std::string key;
    std::vector<std::vector<double>> parameters;
    QORT_Format format = kPlain;
};

/// Draws a test of the first field; without a key there is no record.
std::optional<refhost::ChartNode> Draw(ViewRecorder& recorder, const Case& given)
{
    NOPROutputStats::BaseHypothesisTest test;
    test.fTestKind = kind::kOneSampleKolmogorovSmirnov;
    test.fCondition.fConditionKey = given.key;
    for (const auto& parameter : given.parameters)
        test.fCondition.fParameters.push_back({0, parameter});
    KolmogorovSmirnov view(recorder.Dictionary(), &recorder.Stats(),
                           given.key.empty() ? nullptr : &test);
    view.SelectField(0);
    return recorder.Draw([&] { view.Render("", false); });
}

std::string TextOf(const Case& given, const std::string& text)
{
    ViewRecorder recorder;
    recorder.SetTemplate(kTemplate, text);
    recorder.AddField({.fName = "x", .fFormat = given.format}).fDistribution = {
        "Interval", {}, {}, {{1}, {1}}};
    const auto chart = Draw(recorder, given);
    return chart ? chart->fText : "no chart";
}

std::string Curve(const std::string& attributes)
{
    return "<line><distributionStatistic " + attributes +
           "/><x variable=\"value\"/><y variable=\"count\"/></line></graph>";
}

}  // namespace

TEST(KolmogorovSmirnov, DrawsTheCurveOfItsDistribution)
{
    struct Row {
        Case given;
        std::string attributes;
        const char* why;
    };
    for (const Row& row :
         {Row{{kNormal, {{0}, {5.25}, {0.1}}},
              "distribution=\"normal\" parameter=\"5.25\" secondaryParameter=\"0.1\"",
              "mean and spread"},
          Row{{kUniform, {{0}, {1}, {9}}},
              "distribution=\"uniform\" parameter=\"1\" secondaryParameter=\"9\"",
              "both bounds"},
          Row{{kPoisson, {{0}, {3}}}, "distribution=\"poisson\" parameter=\"3\" ", "the mean"},
          Row{{kExponential, {{0}, {4}}},
              "distribution=\"exponential\" parameter=\"0.25\" ",
              "the rate"},
          Row{{kPoisson, {}}, "distribution=\"poisson\" parameter=\"0\" ", "a missing mean"},
          Row{{kNormal, {{0}, {}, {}}},
              "distribution=\"normal\" parameter=\"0\" secondaryParameter=\"0\"",
              "missing values"},
          Row{{kNormal, {{0}, {1}, {2.125}}, kDate},
              "distribution=\"normal\" parameter=\"1970-01-02T00:00:00\" "
              "secondaryParameter=\"P2DT03H00M00S\"",
              "a date and a duration"},
          Row{{kUniform, {{0}, {0}, {1.5}}, kDate},
              "distribution=\"uniform\" parameter=\"1970-01-01T00:00:00\" "
              "secondaryParameter=\"1970-01-02T12:00:00\"",
              "two dates"},
          Row{{kNormal, {{0}, {0}, {1}}, kTimeOfDay},
              "distribution=\"normal\" parameter=\"1970-01-01T00:00:00\" "
              "secondaryParameter=\"P1DT00H00M00S\"",
              "a time of day counts as a date here"}}) {
        SCOPED_TRACE(row.why);
        EXPECT_EQ(TextOf(row.given, "<graph></graph></graph>"),
                  "<graph>" + Curve(row.attributes) + "</graph>");
    }
}

TEST(KolmogorovSmirnov, DrawsNoCurveForOtherKeysAndMissingParameters)
{
    for (const Case& given : {Case{"Other_O_Key_1", {{0}, {1}, {2}}}, Case{"", {}},
                              Case{kNormal, {{0}, {1}}}, Case{kUniform, {{0}, {1}}}})
        EXPECT_EQ(TextOf(given, "<graph></graph>"), "<graph></graph>") << given.key;
    EXPECT_EQ(TextOf({kNormal, {{0}, {1}, {2}}}, "no mark"), "no mark");
}

TEST(KolmogorovSmirnov, WritesParametersThatNoDistributionHas)
{
    for (const QORT_Format& format : {kPlain, kDate})
        for (const double parameter : {0.0, MissingValue, 1e308, -1e-308})
            for (const char* key : {kNormal, kUniform, kExponential}) {
                SCOPED_TRACE(std::string(key) + " " + std::to_string(parameter));
                const Case given = {key, {{0}, {parameter}, {parameter}}, format};
                EXPECT_THAT(TextOf(given, "labelText</graph>"), HasSubstr("parameter=\""));
            }
}

TEST(KolmogorovSmirnov, TellsTheParametersInALabel)
{
    struct Row {
        Case given;
        const char* expected;
        const char* why;
    };
    for (const Row& row :
         {Row{{kNormal, {{0}, {5.25}, {0.1}}},
              "Normal Parameters&#10;Mean 5.250&#10;Std. Deviation 0.1000",
              "one and two more decimals"},
          Row{{kUniform, {{0}, {1}, {9}}},
              "Uniform Parameters&#10;Minimum 1.00&#10;Maximum 9.00",
              "bounds as values of the field"},
          Row{{kPoisson, {{0}, {3}}}, "Poisson Parameter&#10;Mean 3.000", "the mean"},
          Row{{kExponential, {{0}, {4}}}, "Exponential Parameter&#10;Mean 4.000", "not the rate"},
          Row{{kNormal, {{0}, {1}, {2.125}}, kDate},
              "Normal Parameters&#10;Mean 1970-01-02&#10;Std. Deviation 2 03:00:00",
              "a date and a duration"},
          Row{{kNormal, {{0}, {90}, {2.5}}, kTimeOfDay},
              "Normal Parameters&#10;Mean 00:01:30.0&#10;Std. Deviation 00:00:02.50",
              "a time of day is not told as a duration"},
          Row{{"Other_O_Key_1", {{0}, {1}}}, "", "another key"},
          Row{{"", {}}, "labelText", "no record"}}) {
        SCOPED_TRACE(row.why);
        EXPECT_EQ(TextOf(row.given, "[labelText]"), "[" + std::string(row.expected) + "]");
    }
}

TEST(KolmogorovSmirnov, TranslatesItsWordsAndNamesItsAxes)
{
    ViewRecorder recorder;
    recorder.SetTemplate(kTemplate, "xAxisLabel|yAxisLabel|labelText");
    recorder.SetWords({{"Frequency", "Count"},
                       {"Mean", "Mittel"},
                       {"Poisson Parameter", "P"},
                       {"One-Sample Kolmogorov-Smirnov Poisson Test", "KS P"}});
    FieldInfoData& field = recorder.AddFieldWithoutVariable();
    field.fDistribution = {"Interval", {}, {}, {{1}, {1}}};
    const auto chart = Draw(recorder, {kPoisson, {{0}, {3}}});
    ASSERT_TRUE(chart);
    EXPECT_EQ(chart->fText, "|Count|P&#10;Mittel 3.0000") << "three decimals without a format";
    EXPECT_EQ(chart->fTitle, "KS P");
    EXPECT_THAT(CallLines(*chart), Not(testing::Contains(HasSubstr("getVariable"))));
}

TEST(KolmogorovSmirnov, BindsTheFieldAfterTheTitles)
{
    ViewRecorder recorder;
    recorder.SetTemplate(kTemplate, "t");
    recorder.AddField({.fName = "x"}).fDistribution = {"Interval", {}, {}, {{1}, {1}}};
    const auto chart = Draw(recorder, {kPoisson, {{0}, {3}}});
    ASSERT_TRUE(chart);
    EXPECT_THAT(CallLines(*chart),
                testing::ElementsAre(
                    "XDocument.setEditor 2", "XDocument.setLanguage", "XDocument.getExternalGraph",
                    "XGraph.setTitle \"One-Sample Kolmogorov-Smirnov Poisson Test\"",
                    "XDocument.getExternalGraph", "XGraph.getVariable \"value\"",
                    "XVariable.setQORTVariable \"value\" \"x\"",
                    "XVariable.setFormatBasedOnQORTVariable \"value\" \"x\"",
                    "XDocument.SetDescription \"One-Sample Kolmogorov-Smirnov Poisson Test\"",
                    "XDocument.SetChartData", "XDocument.applyCTemplate false",
                    "XDocument.SendChart true false false"));
}

TEST(KolmogorovSmirnov, DrawsIntervalTablesOnly)
{
    ViewRecorder recorder;
    recorder.SetTemplate(kTemplate, "t");
    FieldInfoData& field = recorder.AddField({.fName = "x"});
    field.fDistribution = {"Content", {}, {}, {{1}, {1}}};
    EXPECT_FALSE(Draw(recorder, {kPoisson, {{0}, {3}}}));
    field.fDistribution.fName = "Interval";
    field.fIsCategorical = true;
    EXPECT_FALSE(Draw(recorder, {kPoisson, {{0}, {3}}}));
    field.fOrdinalAsContinuous = true;
    EXPECT_TRUE(Draw(recorder, {kPoisson, {{0}, {3}}}));
}
