#pragma once

#include <deque>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "model/NOPROutputStats.h"

#include "refhost/document/OutputNode.h"
#include "refhost/strings/TextTable.h"

#include "host/data/QORT_DataSource.h"
#include "host/data/QORT_Format.h"
#include "host/strings/FacSTDictionary.h"

/// A variable of the host; of format type 1 it is a string variable.
struct VariableSpec {
    std::string fName;
    std::string fLabel = {};
    QORT_Format fFormat = {};
};

/// What a view borrows, made by hand, and a host that records what it does. Fields count from 0 in
/// the order in which they are added; templates and words are the test's own.
///
///     ViewRecorder recorder;
///     recorder.AddField({.fName = "weight"});
///     recorder.SetTemplate("NPARHistogram.viztemplate", "<visualization/>");
///     const auto chart = recorder.Draw([&] { view.Render("", false); });
class ViewRecorder {
public:
    using ValueAndLabel = std::pair<std::string, std::string>;

    ViewRecorder();
    ~ViewRecorder();
    ViewRecorder(const ViewRecorder&) = delete;
    ViewRecorder& operator=(const ViewRecorder&) = delete;

    /// A field of the dictionary and its record. Values are completed against the variable.
    FieldInfoData& AddField(const VariableSpec& variable,
                            const std::vector<ValueAndLabel>& values = {});

    /// A field that the host knows no variable of.
    FieldInfoData& AddFieldWithoutVariable();

    /// Without a text there is no such file.
    void SetTemplate(const std::string& file, const std::string& text);

    /// Words of the dictionary; other keys stand for themselves.
    void SetWords(const std::vector<std::pair<std::string, std::string>>& words);

    /// The chart that was sent; none where none was. More than one fails the test.
    std::optional<refhost::ChartNode> Draw(const std::function<void()>& draw);

    NOPROutputStats& Stats() { return fStats; }
    const FacSTDictionary* Dictionary() const { return &fDictionary; }

private:
    std::filesystem::path fFolder;
    std::deque<std::unique_ptr<ProcedureDataSource>> fVariables;
    NOPROutputStats fStats;
    refhost::TextTable fTexts;
    FacSTDictionary fDictionary{""};
};

/// The calls of a chart, one line each: "XVariable.addRelabel value 1 \"yes\"". Texts stand in
/// quotes, values of the host in braces.
std::vector<std::string> CallLines(const refhost::ChartNode& chart);

/// The rows of a source, one line each: "value=1 type=\"a\"", columns in their order. A line of the
/// names of the columns comes first. Empty where there is no such source.
std::vector<std::string> RowLines(const refhost::ChartNode& chart, const std::string& source);

/// A number format of the host.
QORT_Format FormatOf(int type, int width, int decimals);
