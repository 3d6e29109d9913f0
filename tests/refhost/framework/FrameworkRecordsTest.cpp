#include <gtest/gtest.h>

#include "refhost/framework/InvariantBroken.h"

#include "refhost/data/MissingValue.h"
#include "refhost/data/VariableData.h"

#include "host/data/QORT_Variable.h"
#include "host/framework/Assertion.h"
#include "host/framework/CFStatVariableValue.h"

namespace refhost {

TEST(CFStatVariableValue, CompletesATextAgainstItsVariable)
{
    const auto source =
        MakeDataSource({{"feed", "", true, {6, 1, 0}, {}}, {"day", "", false, {11, 20, 0}, {}}});
    CFStatVariableValue value;
    EXPECT_EQ(value.GetObsValue(), nullptr) << "nothing was set";
    value.SetCompleteValue("bean", *source->GetVariable(0), 0);
    ASSERT_NE(value.GetObsValue(), nullptr);
    EXPECT_EQ(value.GetObsValue()->Text(), "bean  ") << "padded";
    EXPECT_EQ(value.GetStringValue(), "bean") << "unpadded";
    value.SetCompleteValue("1", *source->GetVariable(1), 0);
    EXPECT_EQ(value.GetObsValue()->Number(), 1) << "a date stays in the document's unit";
    value.SetCompleteValue("casein", *source->GetVariable(1), 0);
    EXPECT_EQ(value.GetObsValue()->Number(), kMissingValue);
    EXPECT_EQ(value.GetStringValue(), "casein");
}

TEST(CFAssert, KeepsTheFirstBrokenInvariantEvenWhereItWasSwallowed)
{
    ForgetBrokenInvariant();
    CFAssert(true, "holds");
    EXPECT_EQ(BrokenInvariant(), nullptr);
    for (const char* text : {"nSplits > 0", "later"}) {
        try {
            CFAssert(false, text);
            FAIL() << "it went on";
        } catch (const InvariantBroken& broken) {
            EXPECT_STREQ(broken.what(), text);
        }
    }
    ASSERT_NE(BrokenInvariant(), nullptr);
    EXPECT_EQ(*BrokenInvariant(), "nSplits > 0");
    ForgetBrokenInvariant();
    EXPECT_EQ(BrokenInvariant(), nullptr);
}

}  // namespace refhost
