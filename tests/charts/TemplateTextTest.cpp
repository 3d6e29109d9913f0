#include <gtest/gtest.h>

#include "charts/TemplateText.h"

TEST(ReplaceToken, TakesTheFirstOccurrenceAndInsertsTheTextAsItStands)
{
    struct Row {
        const char* text;
        const char* replacement;
        const char* expected;
        const char* why;
    };
    for (const Row& row : {Row{"<a>T</a><b>T</b>", "x", "<a>x</a><b>T</b>", "the first only"},
                           Row{"<a/>", "x", "<a/>", "a template may lack a token"},
                           Row{"[T]", "R&D <T>", "[R&D <T>]", "labels are not escaped"},
                           Row{"[T]", "", "[]", "a token can vanish"}}) {
        SCOPED_TRACE(row.why);
        std::string text = row.text;
        ReplaceToken(text, "T", row.replacement);
        EXPECT_EQ(text, row.expected);
    }
}

TEST(OverwriteBehind, StaysWithinTheText)
{
    struct Row {
        const char* text;
        const char* expected;
        const char* why;
    };
    for (const Row& row :
         {Row{"m=\"00\"/>", "m=\"12.5\"/>", "a longer text makes room"},
          Row{"m=\"0", "m=\"12.5", "the text ends within the placeholder"},
          Row{"m=\"", "m=\"12.5", "the text ends before the placeholder"},
          Row{"m=", "m=", "the text ends before the opening quote"}, Row{"", "", "an empty text"},
          Row{"m=\"00\" m=\"00\"", "m=\"12.5\" m=\"00\"", "the first only"}}) {
        SCOPED_TRACE(row.why);
        std::string text = row.text;
        OverwriteBehind(text, "m=", 3, 2, "12.5");
        EXPECT_EQ(text, row.expected);
    }
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
    struct Row {
        const char* text;
        const char* expected;
        const char* why;
    };
    for (const Row& row :
         {Row{"1<l>2</l>3</l>", "13</l>", "up to the first closing tag"},
          Row{"1<l>2", "1<l>2", "no closing tag"}, Row{"1</l>2", "1</l>2", "no opening tag"},
          Row{"</l>1<l>2</l>3", "</l>13", "a closing tag before the opening one"},
          Row{"</l>1<l>2", "</l>1<l>2", "none behind the opening one"}}) {
        SCOPED_TRACE(row.why);
        std::string text = row.text;
        EraseElement(text, "<l>", "</l>");
        EXPECT_EQ(text, row.expected);
    }
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
