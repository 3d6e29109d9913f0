#include "refhost/framework/DocumentPieces.h"

#include <string>
#include <utility>

#include "refhost/framework/XmlParser.h"

#include <gtest/gtest.h>

namespace refhost {

namespace {

/// All that a document says, or why it can't be read.
std::string Reading(const std::string& document, std::size_t threads)
{
    ReadFailure failure;
    const auto tree = ParseXml(document, threads, failure);
    if (!tree) return failure.fReason + " at " + std::to_string(failure.fLine);
    std::string all;
    for (XmlTree::Element element = 0; element < tree->ElementCount(); ++element) {
        all += tree->NameOf(element) + "[" + std::string(tree->TextOf(element)) + "]";
        for (const char* attribute : {"x", "y"}) {
            const auto name = tree->FindName(attribute);
            const auto value = name ? tree->AttributeOf(element, *name) : std::nullopt;
            if (value) all.append(attribute).append("=").append(*value);
        }
        all += " to " + std::to_string(tree->EndOf(element)) + "\n";
    }
    return all;
}

std::string Rows(int count)
{
    std::string rows;
    for (int row = 0; row < count; ++row) {
        const std::string number = std::to_string(row);
        rows += "\n<r" + number + " x='" + number + "'>t" + number + "<c y=\"a > b / c\"/>" +
                (row % 2 ? "<e><f>g</f>&amp;</e >" : "") + "u</r" + number + ">v";
    }
    return rows;
}

}  // namespace

TEST(CutDocument, ChangesNothingInWhatIsRead)
{
    struct Row {
        std::string document;
        std::size_t pieces;  // of four at most
        const char* why;
    };
    const std::string rows = Rows(40);
    // clang-format off
    const Row cases[] = {
        {"<a>" + rows + "</a>", 4, "children of the root"},
        {"<a><b>p<c>" + rows + "</c>q<d x='1'>" + rows + "</d></b>s<b/></a>", 4, "other depths, texts around the cuts"},
        {"\xEF\xBB\xBF<?xml version='1.0' encoding='utf-8'?><a>" + rows + "</a>\n", 4, "a mark and a declaration"},
        {"<?xml version='1.1'?><a>" + rows + "&#1;</a>", 4, "another version of XML"},
        {"<a><!-- <b> -->" + rows + "<![CDATA[<c>]]><?d <e>?>" + rows + "</a>", 4, "words between tags"},
        {"<a x='<'>" + rows + "</a>", 4, "a tag within a value, which is refused"},
        {"<a>" + rows + "<b></a>" + rows, 4, "an end too few"},
        {"<a>" + rows + "</b>" + rows + "</a>", 4, "another end"},
        {"<a>" + rows + "</a>" + rows + "</a>", 4, "an end too many"},
        {"<a>" + rows + "<!-- " + rows + "</a>", 2, "a comment without an end"},
        {"<a>" + rows + "<r x='1' x='2'/></a>", 4, "an attribute twice"},
        {"<a>" + rows + "<r x='" + rows + "</a>", 2, "a value without an end"},
        {"<a>" + rows + "</a>" + rows, 4, "elements behind the root"},
        {"<a>" + rows + "</a>x", 4, "text behind the root"},
        {"<a>" + rows + "\xFF</a>", 4, "a byte that is none"},
        {"<!DOCTYPE a><a>" + rows + "</a>", 1, "a document type"},
        {"<?xml version='1.0' encoding='ISO-8859-1'?><a>\xE9" + rows + "</a>", 1, "another encoding"},
        {"<a" + std::string(20000, 'a') + ">" + rows + "</a" + std::string(20000, 'a') + ">", 1, "names too long to be said again"},
        {"<a>" + std::string(9000, 'x') + "</a>", 1, "nothing but text"},
        {"<a/>", 1, "no place"},
        {"<?xml", 1, "half a declaration"},
        {"<a><", 2, "half a tag"},
    };
    // clang-format on
    for (const Row& row : cases) {
        SCOPED_TRACE(row.why);
        EXPECT_EQ(CutDocument(row.document, 4).size(), row.pieces);
        const std::string expected = Reading(row.document, 1);
        for (std::size_t threads = 2; threads < 9; ++threads)
            EXPECT_EQ(Reading(row.document, threads), expected) << threads << " threads";
    }
}

TEST(CutDocument, MakesPiecesOfOneSize)
{
    const std::string document = "<a>" + Rows(1000) + "</a>";
    for (const DocumentPiece& piece : CutDocument(document, 4)) {
        EXPECT_NEAR(static_cast<double>(piece.fBody.size()),
                    static_cast<double>(document.size()) / 4, 100.0);
    }
}

}  // namespace refhost
