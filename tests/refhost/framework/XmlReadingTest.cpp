#include <string>
#include <string_view>
#include <vector>

#include "refhost/framework/ReadFailure.h"

#include "host/framework/SDOMXMLWrapper.h"

#include <gtest/gtest.h>

#include "support/Cases.h"

namespace refhost {

namespace {

using namespace std::string_literals;

std::string Nested(int depth)
{
    std::string text;
    for (int level = 0; level < depth; ++level)
        text += "<a>";
    for (int level = 0; level < depth; ++level)
        text += "</a>";
    return text;
}

std::string WideText(std::string_view ascii, bool bigEndian)
{
    std::string text;
    for (const char character : ascii) {
        if (bigEndian) text += '\0';
        text += character;
        if (!bigEndian) text += '\0';
    }
    return text;
}

}  // namespace

TEST(LoadFromString, RefusesWhatIsBrokenOrHostileAndSaysWhy)
{
    struct Row {
        std::string document;
        const char* reason;  // part of it
        std::uint64_t line;
        const char* why;
    };
    // clang-format off
    const Row rows[] = {
        {"", "", 1, "no document"},
        {"abc", "", 1, "no element"},
        {"<a>\n<b></a>", "expected end of tag 'b'", 2, "a tag that is not closed"},
        {"<a/><b/>", "", 1, "two roots"},
        {"<a/>text", "", 1, "text behind the root"},
        {"<a x='1' x='2'/>", "", 1, "an attribute twice"},
        {"<a>\n\n&nbsp;</a>", "nbsp", 3, "an unknown entity"},
        {"<a>&#0;</a>", "", 1, "a character that is none"},
        {"<a>&#xD800;</a>", "", 1, "half a pair by its number"},
        {"<!DOCTYPE a><a/>", "DOCTYPE", 1, "a document type without a subset"},
        {"\xFE\xFF"s + WideText("<!DOCTYPE a><a/>", true), "DOCTYPE", 1, "in UTF-16"},
        {"\n<!DOCTYPE a SYSTEM 'file:///etc/passwd'><a/>", "DOCTYPE", 2, "an external subset"},
        {"<?xml version='1.0' standalone='yes'?><!-- <a> -->\n<!DOCTYPE a><a/>", "DOCTYPE", 2, "behind a prolog"},
        {Nested(1001), "1000 levels", 1, "one level too deep"},
        {Nested(100000), "1000 levels", 1, "far too deep"},
        {"<a>x\0y</a>"s, "", 1, "a NUL in the text"},
        {"<a/>\0"s, "NUL", 0, "a NUL behind the root"},
        {"<a/>\0<b/>"s, "NUL", 0, "an element behind a NUL"},
        {"<a/>\n\xC3"s, "UTF-8", 2, "half a character behind the root"},
        {"\xFF\xFE"s + WideText("<a/>", false) + "\0\0"s, "NUL", 0, "a NUL behind the root in UTF-16"},
        {"<?xml version='1.0' encoding='ISO-8859-1'?><a/>\xE9", "", 1, "a character behind the root"},
        {"\xFF\xFE"s + WideText("<a/>", false) + "x"s, "half", 0, "half a unit in UTF-16"},
        {"<a>\n\xC3\xA9\xC3</a>", "UTF-8", 2, "a cut sequence"},
        {"<a>\n<b x='\xC0\xAF'/></a>", "UTF-8", 2, "an overlong form"},
        {"<a>\xED\xA0\x80</a>", "UTF-8", 1, "a surrogate in UTF-8"},
        {"<a>" + std::string(100000, 'x') + "\xF5\x80\x80\x80</a>", "UTF-8", 1, "beyond Unicode, late"},
        {"\xFF\xFE"s + WideText("<a x='", false) + "\x00\xD8"s + WideText("'/>", false), "", 1, "a lone surrogate"},
        {"<?xml version='1.0' encoding='klingon'?><a/>", "", 1, "an unknown encoding"},
        {"<?xml version='2.0'?><a/>", "", 1, "an unknown version"},
    };
    // clang-format on
    for (const Row& row : rows) {
        SCOPED_TRACE(row.why);
        SDOMXMLWrapper root;
        EXPECT_EQ(root.LoadFromString(row.document), nullptr);
        EXPECT_EQ(root.GetName(), "");
        const ReadFailure* failure = LastReadFailure();
        ASSERT_NE(failure, nullptr);
        EXPECT_NE(failure->fReason, "");
        EXPECT_NE(failure->fReason.find(row.reason), std::string::npos) << failure->fReason;
        EXPECT_EQ(failure->fLine, row.line) << failure->fReason;
    }
    SDOMXMLWrapper root;
    EXPECT_NE(root.LoadFromString("<a/>"), nullptr) << "a good document after all of these";
    EXPECT_EQ(LastReadFailure(), nullptr);
}

TEST(LoadFromString, TellsTheColumnOfAnIllFormedByteInCharacters)
{
    SDOMXMLWrapper root;
    ASSERT_EQ(root.LoadFromString("<a>\n\xC3\xA9x\xFF</a>"), nullptr);
    EXPECT_EQ(LastReadFailure()->fLine, 2u);
    EXPECT_EQ(LastReadFailure()->fColumn, 3u);
}

TEST(LoadFromString, ReadsEncodingsAndForms)
{
    // clang-format off
    ExpectEach<std::string, std::string>({
        {"<a>x</a>\n\n", "x", "blanks behind the root"},
        {"<?xml version='1.0'?><!-- <!DOCTYPE a> --><?p <!DOCTYPE a>?><a>x</a>", "x", "words before the root"},
        {"<a>x</a><!-- y --><?z?>", "x", "comments and instructions behind the root"},
        {"<a>x<!-- c -->y<![CDATA[<z>]]><?p?>&amp;</a>", "xy<z>&", "parts of a text are joined"},
        {"<a>1<b>2</b>3<b/>4</a>", "134", "own text only"},
        {"<a><b>2</b></a>", "", "no own text"},
        {"<a>\n <b/>\n</a>", "\n \n", "blanks are text"},
        {"<a>0123456789\xC3\xA9" "0123456789\xE2\x82\xAC\xF0\x9F\x98\x80z</a>",
        "0123456789\xC3\xA9" "0123456789\xE2\x82\xAC\xF0\x9F\x98\x80z", "UTF-8 of every length"},
        {"<a>&#x1F600;</a>", "\xF0\x9F\x98\x80", "a character by its number"},
        {"\xEF\xBB\xBF<a>x</a>", "x", "UTF-8 with a mark"},
        {"\xFF\xFE"s + WideText("<a>x</a>\n", false), "x", "UTF-16, little end first"},
        {"\xFE\xFF"s + WideText("<a>x</a>", true), "x", "UTF-16, big end first"},
        {"<?xml version='1.0' encoding='ISO-8859-1'?><a>\xE9</a>", "\xC3\xA9", "Latin 1"},
        {WideText("<?xml version='1.0' encoding='UTF-16LE'?><a>x</a>", false), "x", "UTF-16 without a mark"},
        {"<?xml version='1.0' encoding='UTF-16'?><a>x</a>", "x", "UTF-8 that says it is UTF-16"},
        {"<?xml version='1.0' encoding='windows-1252'?><a>\x80</a>", "\xE2\x82\xAC", "a code page"},
        {Nested(1000), "", "as deep as may be"},
    }, [](const std::string& document) {
        SDOMXMLWrapper root;
        EXPECT_NE(root.LoadFromString(document), nullptr) << LastReadFailure()->fReason;
        std::string text = "left over";
        EXPECT_TRUE(root.GetTextBody(text));
        return text;
    });
    // clang-format on
}

TEST(LoadFromString, JoinsASurrogatePairThatLiesAcrossTwoPiecesOfAText)
{
    // The parser hands out text in pieces of its buffer; the pair is tried at each place around it.
    std::string document = "<a>" + std::string((1u << 20) - 3, 'x');
    for (int place = 0; place < 5; ++place) {
        document += "\xF0\x9F\x98\x80";
        SDOMXMLWrapper root;
        ASSERT_NE(root.LoadFromString(document + "</a>"), nullptr);
        std::string text;
        root.GetTextBody(text);
        EXPECT_EQ("<a>" + text, document);
        document.resize(document.size() - 4);
        document += 'x';
    }
}

TEST(LoadFromString, ReadsAPairAmongTheLongestCharactersOfABlock)
{
    // Blocks have 1,024 units: a pair across two of them, and around it characters of three bytes.
    std::string text;
    for (int unit = 0; unit < 3 * 1024; ++unit)
        text += unit % 1024 == 1023 ? "\xF0\x9F\x98\x80" : "\xE4\xB8\xAD";
    SDOMXMLWrapper root;
    ASSERT_NE(root.LoadFromString("<a b=\"" + text + "\"/>"), nullptr);
    std::string read;
    root.GetAttribute("b", read);
    EXPECT_EQ(read, text);
}

TEST(LoadFromString, ReplacesTheDocumentOfALoadingWrapperOnly)
{
    SDOMXMLWrapper root;
    ASSERT_NE(root.LoadFromString("<a><b/></a>"), nullptr);
    SDOMXMLWrapper* child = nullptr;
    ASSERT_TRUE(root.GetFirstElement("b", &child, true));
    EXPECT_EQ(child->LoadFromString("<c/>"), nullptr);
    EXPECT_EQ(child->GetName(), "b");
    ASSERT_NE(root.LoadFromString("<d/>"), nullptr);
    EXPECT_EQ(root.GetName(), "d");
    EXPECT_FALSE(root.GetFirstElement("b", &child, true));
}

TEST(LoadFromString, ReadsADocumentByTheRulesOfItsOwnVersionOnly)
{
    const char* const otherVersion = "<?xml version='1.1'?><a>&#27;</a>";
    const char* const nextLine = "<a>x\xC2\x85y</a>";  // an end of line in XML 1.1 alone
    for (const bool isBehindOther : {false, true}) {
        SCOPED_TRACE(isBehindOther);
        SDOMXMLWrapper root;
        ASSERT_TRUE(!isBehindOther || root.LoadFromString(otherVersion));
        ASSERT_NE(root.LoadFromString(nextLine), nullptr);
        std::string text;
        root.GetTextBody(text);
        EXPECT_EQ(text, "x\xC2\x85y");
        EXPECT_EQ(root.LoadFromString("<a>&#27;</a>"), nullptr);
    }
}

}  // namespace refhost
