#include <gtest/gtest.h>

#include "charts/TemplateText.h"

#include "support/Cases.h"

TEST(ReplaceToken, TakesTheFirstOccurrenceAndInsertsTheTextAsItStands)
{
    const auto replaced = [](std::string text, const char* replacement) {
        ReplaceToken(text, "T", replacement);
        return text;
    };
    ExpectEach<std::tuple<const char*, const char*>, std::string>(
        {{{"<a>T</a><b>T</b>", "x"}, "<a>x</a><b>T</b>", "the first only"},
         {{"<a/>", "x"}, "<a/>", "a template may lack a token"},
         {{"[T]", "R&D <T>"}, "[R&D <T>]", "labels are not escaped"},
         {{"[T]", ""}, "[]", "a token can vanish"}},
        replaced);
}

TEST(OverwriteBehind, StaysWithinTheText)
{
    const auto overwritten = [](std::string text) {
        OverwriteBehind(text, "m=", 3, 2, "12.5");
        return text;
    };
    ExpectEach<const char*, std::string>(
        {{"m=\"00\"/>", "m=\"12.5\"/>", "a longer text makes room"},
         {"m=\"0", "m=\"12.5", "the text ends within the placeholder"},
         {"m=\"", "m=\"12.5", "the text ends before the placeholder"},
         {"m=", "m=", "the text ends before the opening quote"},
         {"", "", "an empty text"},
         {"m=\"00\" m=\"00\"", "m=\"12.5\" m=\"00\"", "the first only"}},
        overwritten);
}

TEST(InsertAt, NeedsTheWholeDistance)
{
    std::string text = "<popup part=\"1\"/>";
    InsertAt(text, "<popup", 7, "a=\"b\" ");
    EXPECT_EQ(text, "<popup a=\"b\" part=\"1\"/>");

    text = "...<popup";
    InsertAt(text, "<popup", 7, "x");
    EXPECT_EQ(text, "...<popup");
}

TEST(EraseElement, NeedsBothTagsInOrder)
{
    const auto erased = [](std::string text) {
        EraseElement(text, "<l>", "</l>");
        return text;
    };
    ExpectEach<const char*, std::string>(
        {{"1<l>2</l>3</l>", "13</l>", "up to the first closing tag"},
         {"1<l>2", "1<l>2", "no closing tag"},
         {"1</l>2", "1</l>2", "no opening tag"},
         {"</l>1<l>2</l>3", "</l>13", "a closing tag before the opening one"},
         {"</l>1<l>2", "</l>1<l>2", "none behind the opening one"}},
        erased);
}

TEST(TrimBlanks, RemovesBlanksOnlyAndOnlyAtTheEnds)
{
    for (const auto& [given, expected] :
         {std::pair{"  a b  ", "a b"}, {"   ", ""}, {"", ""}, {"\ta ", "\ta"}}) {
        std::string text = given;
        TrimBlanks(text);
        EXPECT_EQ(text, expected);
    }
}
