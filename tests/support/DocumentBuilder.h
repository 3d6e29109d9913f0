#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Result documents for tests. A test states the elements that its case is about; the builder adds
/// the frame that every document has.
///
///     const std::string text =
///         DocumentBuilder()
///             .AddField({.name = "weight"})
///             .AddField({.name = "feed", .optype = "categorical", .values = {{"1", "casein"}}})
///             .AddTest(Algorithm("IMedian", "reject",
///                                {Condition("TwoFields_I_Median_2", {{0}, {1}}),
///                                 Statistics({{"TotalN", 71}, {"AsymptoticSig", 0.003}})}))
///             .Text();

/// An element of a document. Attributes and children keep the order in which they are given.
class Element {
public:
    explicit Element(std::string tag) : fTag(std::move(tag)) {}

    Element& Set(std::string_view attribute, std::string_view value);
    Element& Set(std::string_view attribute, double value);
    Element& Add(const Element& child);
    Element& Add(const std::vector<Element>& children);

    /// Text of the element itself; escaped when it is written.
    Element& Body(std::string_view text);

    std::string Text() const;

private:
    std::string fTag;
    std::string fAttributes;
    std::string fContent;
};

/// A number in a document; the missing number is written as its token.
std::string NumberToken(double number);

/// Numbers parted by blanks, as number lists have them.
std::string NumberList(const std::vector<double>& numbers);

Element Attribute(std::string_view name, std::string_view value);
Element Attribute(std::string_view name, double value);

using Rows = std::vector<std::vector<double>>;
using Children = std::vector<Element>;
using NamedNumbers = std::vector<std::pair<std::string, double>>;

/// `rowNames` and `columnNames` are texts of names parted by blanks.
Element SimpleTable(std::string_view name, std::string_view rowNames, std::string_view columnNames,
                    const Rows& rows);

Element StructuredTable(std::string_view name, const Children& children = {});

/// Parameter N of the key is the N-th list.
Element Condition(std::string_view key, const std::vector<std::vector<double>>& parameters,
                  const Children& further = {});

struct Message {
    int code = 0;
    std::string type = "error";
    std::vector<std::vector<double>> parameters = {};
    std::string group = {};
};
Element WarningMessages(const std::vector<Message>& messages);

/// The test's own numbers, then blocks of numbers.
Element Statistics(const NamedNumbers& numbers,
                   const std::vector<std::pair<std::string, NamedNumbers>>& blocks = {});

/// A test; its classification follows from the first letter of its name. No `decision` is written
/// where it is empty.
Element Algorithm(std::string_view name, std::string_view decision, const Children& children = {});

struct ValueSpec {
    std::string value;
    std::string label = {};
};

struct FieldSpec {
    std::string name;
    std::string optype = "continuous";
    std::string dataType = "double";
    std::string label = {};
    std::vector<ValueSpec> values = {};
};

/// What a `FieldInfo` says; `categorical` selects the name of its table.
struct FieldInfoSpec {
    int field = 0;
    bool categorical = false;
    NamedNumbers numbers = {};
    Rows distribution = {{}, {}};
};

class DocumentBuilder {
public:
    /// Fields count from 0 in the order in which they are added.
    DocumentBuilder& AddField(const FieldSpec& field);
    DocumentBuilder& AddTest(const Element& algorithm);
    DocumentBuilder& AddFieldInfo(const FieldInfoSpec& info);

    /// An attribute of "NonParametricTests", such as "sigLevel".
    DocumentBuilder& SetTests(std::string_view attribute, std::string_view value);
    DocumentBuilder& SetCounts(std::string_view attribute, std::string_view value);

    /// The whole document. Behind the fields stands one more, so that all of them have a record;
    /// without fields there is no dictionary.
    std::string Text() const;

private:
    std::vector<FieldSpec> fFields;
    Element fTests{"NonParametricTests"};
    Element fFieldInfos{"FieldInfos"};
    Element fCounts{"Counts"};
};

/// `text` with the first `part` of it replaced; a test whose `part` is not there fails.
std::string Replaced(std::string text, std::string_view part, std::string_view by);
