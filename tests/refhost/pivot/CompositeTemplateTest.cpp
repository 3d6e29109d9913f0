#include "refhost/pivot/CompositeTemplate.h"

#include <gtest/gtest.h>

#include "support/Cases.h"

namespace refhost {
namespace {

TextRef Plain(const char* shown)
{
    return std::make_shared<const Text>(Text{TextString{shown, false}, shown});
}

TextSublist List(std::initializer_list<const char*> shown)
{
    TextSublist list;
    for (const char* text : shown)
        list.fItems.push_back(Plain(text));
    return list;
}

TEST(CompositeTemplate, FillsItsPlaces)
{
    // clang-format off
    ExpectEach<std::tuple<const char*, std::vector<CompositePart>>, std::string>({
        {{"^1 across ^2", {Plain("a"), Plain("b")}}, "a across b", "places in order"},
        {{"^2-^1-^2", {Plain("a"), Plain("b")}}, "b-a-b", "places in any order, and twice"},
        {{"^1-^2", {Plain("a")}}, "a-", "an unfilled place shows as nothing"},
        {{"^1", {List({"x", "y"})}}, "x, y", "a list in a plain place is joined"},
        {{"[%1:, ^1]1", {List({"x", "y", "z"})}}, "x, y, z", "first item, further items"},
        {{"[%1 = %2:; ^1 = ^2:]1", {List({"x", "1", "y", "2"})}}, "x = 1; y = 2", "items of two"},
        {{"[%1 = %2:; ^1 = ^2:]1", {List({"x", "1", "y"})}}, "x = 1; y = ", "a part of an item"},
        {{"<[%1:, ^1]1>", {List({})}}, "<>", "an empty list shows not even its first form"},
        {{"<[%1:, ^1]2>", {Plain("a")}}, "<>", "a list in an unfilled place"},
        {{"[%1:, ^1]1", {Plain("a")}}, "a", "a single text is a list of one"},
        {{"[all::^1]1", {List({"x", "y"})}}, "all:y", "no mark: items of one member"},
        {{"[a]1 [b:c] [d:e]x ^0 ^x ^ %1", {Plain("q")}}, "[a]1 [b:c] [d:e]x ^0 ^x ^ %1", "what is no form stands as it is"},
        {{"[x [%1:+^1]1", {List({"1", "2"})}}, "x [1+2", "a form begins at its first bracket"},
        {{"^1", {Plain("^1 [%1:^1]1")}}, "^1 [%1:^1]1", "labels are no templates"},
    }, FillTemplate);
    // clang-format on
}

TEST(CompositeTemplate, WalksManyBracketsOnce)
{
    const std::string text(2'000'000, '[');
    EXPECT_EQ(FillTemplate(text + ":]", {}).size(), text.size() + 2);
}

}  // namespace
}  // namespace refhost
