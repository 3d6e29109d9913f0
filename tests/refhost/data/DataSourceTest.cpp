#include <gtest/gtest.h>

#include "refhost/data/VariableData.h"

#include "host/data/QORT_ValueLabelMap.h"
#include "host/data/QORT_Variable.h"

namespace refhost {

TEST(DataSource, FindsVariablesByIndexAndExactName)
{
    const auto source = MakeDataSource({{"Weight", "Weight in grams", false, {}, {}},
                                        {"weight", "", true, {12, 1, 0}, {}},
                                        {"Weight", "again", false, {}, {}}});
    EXPECT_EQ(source->FindVarIndex("weight", 0), 1) << "case counts";
    EXPECT_EQ(source->FindVarIndex("Weight", 0), 0) << "the first of two";
    EXPECT_LT(source->FindVarIndex("weigh", 0), 0);
    EXPECT_LT(source->FindVarIndex("", 0), 0);
    EXPECT_LT(source->FindVarIndex(nullptr, 0), 0);
    EXPECT_EQ(source->GetVariable(-1), nullptr);
    EXPECT_EQ(source->GetVariable(3), nullptr);
    ASSERT_NE(source->GetVariable(1), nullptr);
    EXPECT_EQ(source->GetVariable(0)->GetPreferredLabel(), "Weight in grams");
    EXPECT_EQ(source->GetVariable(1)->GetPreferredLabel(), "weight")
        << "the name, for want of a label";
    EXPECT_EQ(source->GetVariable(1)->GetType(), 1);
    EXPECT_EQ(source->GetVariable(1)->GetFormatEx(), (QORT_Format{12, 1, 0}));
}

TEST(ValueLabels, AreFoundByValue)
{
    const auto source = MakeDataSource(
        {{"feed", "", false, {}, {{OBS(0.0), "none"}, {OBS(2.5), "some"}, {OBS(2.5), "more"}}},
         {"kind", "", true, {4, 1, 0}, {{OBS(std::string("ab  ")), "A b"}}},
         {"bare", "", false, {}, {}}});
    const QORT_ValueLabelMap feed(source->GetVariable(0)->GetValueLabels());
    EXPECT_STREQ(feed.GetLabel(OBS(-0.0)), "none") << "zero has one label, whatever its sign";
    EXPECT_STREQ(feed.GetLabel(OBS(2.5)), "some") << "the first counts";
    EXPECT_EQ(feed.GetLabel(OBS(1.0)), nullptr);
    EXPECT_EQ(feed.GetLabel(OBS(std::string())), nullptr) << "a text is no number";
    const QORT_ValueLabelMap kind(source->GetVariable(1)->GetValueLabels());
    EXPECT_STREQ(kind.GetLabel(OBS(std::string("ab"))), "A b") << "blanks at the end don't count";
    EXPECT_EQ(kind.GetLabel(OBS(std::string(" ab"))), nullptr) << "those at the start do";
    EXPECT_EQ(source->GetVariable(2)->GetValueLabels(), nullptr);
    EXPECT_EQ(QORT_ValueLabelMap(nullptr).GetLabel(OBS(1.0)), nullptr);
}

}  // namespace refhost
