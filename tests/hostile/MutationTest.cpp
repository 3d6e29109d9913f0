#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <fstream>
#include <pugixml.hpp>
#include <set>
#include <sstream>

#include "fuzz/targets/SplitRun.h"

#include "refhost/job/JobFile.h"

#include "host/framework/SplitResult.h"

/// Each example's document with one thing wrong, at each place where it can be, through the whole
/// way into each format. Places of one name below one kind of test count once: what reads and what
/// shows them is the same.

namespace {

#ifdef __SANITIZE_ADDRESS__
constexpr std::size_t kStride = 19;  // of the cases; no part of the length of a table below
#else
constexpr std::size_t kStride = 1;
#endif
constexpr auto kLongest = std::chrono::seconds(kStride == 1 ? 2 : 20);  // for one document

// Text that would be markup, a script, an attribute's end, a comment's, a control of a terminal.
constexpr char kEvil[] = "=1+1</script><evil x=\"'>&--> ]]>\xC2\x9B\xE2\x80\xAE";

constexpr const char* kValues[] = {
    "",       "-1",   "7",    "1000000", "2147483648",  "99999999999999999999",
    "1.5",    "nan",  "inf",  "-inf",    "1e999",       "1e308",
    "-1e308", "0x10", "1,5",  "0",       "1e-320",      "-99999999999999999999",
    "-0",     "x",    " 1 2", kEvil,     "-2147483648", "-1.7976931348623157e+308",
};

/// One thing that is wrong with a table, or with any element.
struct Harm {
    const char* fWhat;
    void (*fDo)(pugi::xml_node);
};

void SetText(pugi::xml_node node, const std::string& text)
{
    if (node) node.text().set(text.c_str());
}

std::string LongNames(std::string_view name)
{
    std::string names;
    for (int place = 0; place < 300; ++place)
        names.append(name).append(" ");
    return names;
}

// clang-format off
constexpr Harm kTableHarms[] = {
    {"no rows",            [](pugi::xml_node t) { while (t.remove_child("Row")) {} }},
    {"no first row",       [](pugi::xml_node t) { t.remove_child("Row"); }},
    {"no last row",        [](pugi::xml_node t) { t.remove_child(t.last_child()); }},
    {"one row more",       [](pugi::xml_node t) { t.append_copy(t.child("Row")); }},
    {"an empty row",       [](pugi::xml_node t) { SetText(t.child("Row"), ""); }},
    {"a short row",        [](pugi::xml_node t) { SetText(t.child("Row"), "1"); }},
    {"a short last row",   [](pugi::xml_node t) { SetText(t.last_child(), "1"); }},
    {"a long row",         [](pugi::xml_node t) { SetText(t.child("Row"), LongNames("2")); }},
    {"rows of words",      [](pugi::xml_node t) { for (auto row : t.children("Row")) SetText(row, "a b \"c d\" \"\""); }},
    {"rows of no numbers", [](pugi::xml_node t) { for (auto row : t.children("Row")) SetText(row, "nan inf -1e999 0x1 1,5"); }},
    {"rows far off",       [](pugi::xml_node t) { for (auto row : t.children("Row")) SetText(row, "-1 99 4294967296 1e300 -1e300 0.5"); }},
    {"rows of 10,000",     [](pugi::xml_node t) { for (auto row : t.children("Row")) SetText(row, LongNames("1e308")); }},
    {"no row names",       [](pugi::xml_node t) { t.remove_child("RowNames"); }},
    {"no column names",    [](pugi::xml_node t) { t.remove_child("ColumnNames"); }},
    {"empty row names",    [](pugi::xml_node t) { SetText(t.child("RowNames"), ""); }},
    {"empty column names", [](pugi::xml_node t) { SetText(t.child("ColumnNames"), ""); }},
    {"one row name",       [](pugi::xml_node t) { SetText(t.child("RowNames"), "0"); }},
    {"equal row names",    [](pugi::xml_node t) { SetText(t.child("RowNames"), LongNames("0")); }},
    {"equal column names", [](pugi::xml_node t) { SetText(t.child("ColumnNames"), LongNames("0")); }},
    {"evil column names",  [](pugi::xml_node t) { SetText(t.child("ColumnNames"), LongNames(kEvil)); }},
    {"evil row names",     [](pugi::xml_node t) { SetText(t.child("RowNames"), LongNames(kEvil)); }},
    {"row names far off",  [](pugi::xml_node t) { SetText(t.child("RowNames"), "-1 4294967295 99999999999999999999 nan x 1.5"); }},
    {"columns far off",    [](pugi::xml_node t) { SetText(t.child("ColumnNames"), "-1 4294967295 99999999999999999999 nan x 1.5"); }},
};

constexpr Harm kElementHarms[] = {
    {"gone",    [](pugi::xml_node n) { n.parent().remove_child(n); }},
    {"twice",   [](pugi::xml_node n) { n.parent().insert_copy_after(n, n); }},
    {"empty",   [](pugi::xml_node n) { n.remove_children(); }},
    {"bare",    [](pugi::xml_node n) { n.remove_attributes(); }},
    {"renamed", [](pugi::xml_node n) { n.set_name("Unknown"); }},
    {"words",   [](pugi::xml_node n) { n.append_child(pugi::node_pcdata).set_value(kEvil); }},
};
// clang-format on

std::string FileText(const std::string& file)
{
    std::ostringstream text;
    text << std::ifstream(file, std::ios::binary).rdbuf();
    return text.str();
}

std::string Serialized(const pugi::xml_document& document)
{
    std::ostringstream text;
    document.save(text, "", pugi::format_raw);
    return text.str();
}

/// What is wrong with the document; told where a check ends the process.
std::string theCase;

void TellCase(int)
{
    [[maybe_unused]] const auto written = write(STDERR_FILENO, theCase.data(), theCase.size());
}

/// An example's document, to be changed at a place and changed back.
class Example {
public:
    Example(const std::string& name, std::set<std::string>& tried)
        : fJob(refhost::ReadJobFile(NONPAR_SOURCE_DIR "/examples/" + name + "/job.json")),
          fTried(tried)
    {
    }

    /// All that can be wrong with the example's first document. Places that were met count as
    /// tried, also where they only are looked at.
    void Visit(bool tries)
    {
        fTries = tries;
        pugi::xml_document document;
        document.load_string(FileText(fJob.fSplits.front().fDocument).c_str());
        // With one test at a time: a document of all takes as much longer.
        for (const auto& test : document.select_nodes("//Algorithm"))
            TryEach(Alone(document, test.node()));
    }

    std::size_t fCases = 0;

private:
    static std::string Alone(const pugi::xml_document& document, const pugi::xml_node& test)
    {
        pugi::xml_document copy;
        copy.reset(document);
        pugi::xml_node tests = copy.select_node("//NonParametricTests").node();
        tests.remove_children();
        tests.append_copy(test);
        return Serialized(copy);
    }

    static std::string PlaceOf(pugi::xml_node node)
    {
        std::string place;
        for (; node.parent(); node = node.parent())
            place =
                std::string("/") + node.name() + "[" + node.attribute("name").value() + "]" + place;
        return place;
    }

    void TryEach(const std::string& document)
    {
        pugi::xml_document good;
        good.load_string(document.c_str());
        const auto elements = good.select_nodes("/StatXML//*");
        for (std::size_t number = 0; number < elements.size(); ++number) {
            const pugi::xml_node node = elements[number].node();
            const std::string place = PlaceOf(node);
            if (!fTried.insert(place).second || !fTries) continue;
            const auto harmed = [&](const std::string& what, const auto& harm) {
                if (fCases++ % kStride != 0) return;
                pugi::xml_document copy;
                copy.reset(good);
                harm(copy.select_nodes("/StatXML//*")[number].node());
                Try(place + " " + what, Serialized(copy));
            };
            for (const pugi::xml_attribute& attribute : node.attributes())
                for (const char* value : kValues)
                    harmed(std::string(attribute.name()) + "=" + value, [&](pugi::xml_node copy) {
                        copy.attribute(attribute.name()).set_value(value);
                    });
            for (const Harm& harm : kElementHarms)
                harmed(harm.fWhat, harm.fDo);
            if (std::string_view(node.name()) != "SimpleTable") continue;
            for (const Harm& harm : kTableHarms)
                harmed(harm.fWhat, harm.fDo);
        }
    }

    void Try(const std::string& what, const std::string& document) const
    {
        theCase = what + "\n";
        SplitResult split;
        split.fDocument = document;
        // A page holds a megabyte of scripts, so it is not made for each.
        std::vector<fuzz::Format> formats = {fuzz::Format::Json};
        if (fCases / kStride % 5 == 0) formats.push_back(fuzz::Format::Html);
        if (fCases / kStride % 5 == 1) formats.push_back(fuzz::Format::Text);
        for (const fuzz::Format format : formats) {
            const auto start = std::chrono::steady_clock::now();
            fuzz::WriteInFormat(*fJob.fDataSource, split, format);
            EXPECT_LT(std::chrono::steady_clock::now() - start, kLongest) << what;
        }
    }

    refhost::Job fJob;
    bool fTries = true;
    std::set<std::string>& fTried;
};

constexpr const char* kExamples[] = {"chick-feed",    "department-ratings", "infertility",
                                     "insect-sprays", "mobility",           "motor-trend",
                                     "new-york-air",  "tooth-growth"};

class Mutation : public testing::TestWithParam<const char*> {};

TEST_P(Mutation, HarmsNeitherTheHostNorTheOutput)
{
    std::signal(SIGABRT, TellCase);
    std::set<std::string> tried;
    for (const std::string name : kExamples) {
        Example example(name, tried);
        const bool isTurn = name == GetParam();
        example.Visit(isTurn);
        if (!isTurn) continue;
        RecordProperty("cases", static_cast<int>(example.fCases));
        return;
    }
}

INSTANTIATE_TEST_SUITE_P(Examples, Mutation, testing::ValuesIn(kExamples), [](const auto& row) {
    std::string name = row.param;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
});

}  // namespace
