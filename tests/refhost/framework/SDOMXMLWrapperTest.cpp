#include "host/framework/SDOMXMLWrapper.h"

#include <string>

#include <gtest/gtest.h>

#include "support/Cases.h"

namespace {

std::string AttributeOf(const SDOMXMLWrapper& element, const char* name)
{
    std::string value = "(none)";
    element.GetAttribute(name, value);
    return value;
}

std::string Names(const SDOMXMLWrapper& element, const char* name)
{
    std::string names;
    SDOMXMLIterator* iterator = nullptr;
    if (!element.GetElementIterator(name, &iterator, true)) return "(no iterator)";
    SDOMXMLWrapper* child = nullptr;
    while (iterator->Next(&child))
        names += child->GetName() + AttributeOf(*child, "n") + " ";
    SDOMXMLWrapper* const last = child;
    EXPECT_FALSE(iterator->Next(&child));
    EXPECT_EQ(child, last) << "the end leaves the target as it was";
    return names;
}

}  // namespace

TEST(GetFirstElement, GivesTheFirstThatAnswersToTheWholePath)
{
    SDOMXMLWrapper root;
    ASSERT_NE(root.LoadFromString("<r><e n='1'><x/></e><e n='2'><f n='3'><x/></f>"
                                  "<f n='4'><g n='5'/><g n='6'/></f></e><p:q n='7'/>"
                                  "<e n='8'><f><g n='9'/></f></e><g n='10'/></r>"),
              nullptr);
    // clang-format off
    ExpectEach<const char*, std::string>({
        {"e", "1", "a child"},
        {"g", "10", "direct children only"},
        {"e/f/g", "5", "an element that leads nowhere is passed over, at every step"},
        {"p:q", "7", "the prefix belongs to the name"},
        {"q", "none", "and is not left out"},
        {"E", "none", "case counts"},
        {"e/g", "none", "no such child"},
        {"r", "none", "the root is not its own child"},
        {"e/", "none", "an empty step names nothing"},
        {"/e", "none", "an empty step names nothing"},
        {"", "none", "nor does an empty path"},
        {nullptr, "none", "or none"},
    }, [&root](const char* path) -> std::string {
        SDOMXMLWrapper* found = &root;
        const bool isFound = root.GetFirstElement(path, &found, true);
        EXPECT_EQ(isFound, found != &root) << "else the target stays as it was";
        return isFound ? AttributeOf(*found, "n") : "none";
    });
    // clang-format on
}

TEST(GetElementIterator, WalksDirectChildrenInOrder)
{
    SDOMXMLWrapper root;
    ASSERT_NE(root.LoadFromString("<r>t<a n='1'><a n='2'/></a><b n='3'/>t<a n='4'/></r>"), nullptr);
    EXPECT_EQ(Names(root, "a"), "a1 a4 ");
    EXPECT_EQ(Names(root, ""), "a1 b3 a4 ") << "the empty name gives all";
    EXPECT_EQ(Names(root, "c"), "") << "a name that nothing bears";
    EXPECT_EQ(Names(root, "r"), "");
    SDOMXMLWrapper* leaf = nullptr;
    ASSERT_TRUE(root.GetFirstElement("b", &leaf, true));
    EXPECT_EQ(Names(*leaf, ""), "") << "no children";
}

TEST(GetAttribute, ReadsNumbersThatAreWhollyNumbers)
{
    SDOMXMLWrapper root;
    ASSERT_NE(root.LoadFromString("<r i=' 12 ' d='2.75e1' t='12x' e='' h='0x10' big='99999999999' "
                                  "inf='1e999' n='nan' a='&lt;&quot;&#10;'/>"),
              nullptr);
    // clang-format off
    ExpectEach<const char*, std::pair<int, double>>({
        {"i", {12, 12}, "blanks around it don't count"},
        {"d", {27, 27.5}, "cut for an integer"},
        {"big", {2147483647, 99999999999.0}, "clamped for an integer"},
        {"t", {7, 7}, "no number: not there"},
        {"e", {7, 7}, "no number: not there"},
        {"h", {7, 7}, "no number: not there"},
        {"inf", {7, 7}, "no finite number: not there"},
        {"n", {7, 7}, "no finite number: not there"},
        {"none", {7, 7}, "not there"},
        {nullptr, {7, 7}, "no name"},
    }, [&root](const char* name) {
        int integer = 7;
        double number = 7;
        const bool isThere = root.GetAttribute(name, integer);
        EXPECT_EQ(isThere, integer != 7);
        EXPECT_EQ(root.GetAttribute(name, number), isThere);
        return std::pair(integer, number);
    });
    // clang-format on
    EXPECT_EQ(AttributeOf(root, "a"), "<\"\n");
    EXPECT_EQ(AttributeOf(root, "e"), "") << "an empty text is there";
}

TEST(SDOMXMLWrapper, AnswersNothingBeforeADocumentWasLoaded)
{
    const SDOMXMLWrapper empty;
    SDOMXMLWrapper* found = nullptr;
    SDOMXMLIterator* iterator = nullptr;
    std::string text = "x";
    EXPECT_EQ(empty.GetName(), "");
    EXPECT_FALSE(empty.GetFirstElement("a", &found, true));
    EXPECT_FALSE(empty.GetElementIterator("a", &iterator, true));
    EXPECT_EQ(AttributeOf(empty, "a"), "(none)");
    EXPECT_TRUE(empty.GetTextBody(text));
    EXPECT_EQ(text, "");
}
