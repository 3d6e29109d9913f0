#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

#include "model/NOPROutputStats.h"

#include "host/chart/ChartString.h"
#include "host/chart/XVariable.h"

class VarDataProcessor;
class XDocument;
class XGraph;

/// The steps that views share. Views differ in the order of these calls, and that order shows in
/// the output; so each step is one thing and has no switches.

/// `AddDataSource`, then `AddVariable` for each variable, in their order.
void DeclareVariables(VarDataProcessor& processor, const char* source,
                      std::initializer_list<const char*> variables);

/// `setEditor` and `setLanguage`, the first calls on every document.
void PrepareDocument(XDocument& document);

/// `setSubtitle` with the split's text, where there is one.
void SetSplitSubtitle(XGraph& graph, const std::string& splitText);

/// `setTitle`, then the subtitle.
void SetTitles(XGraph& graph, const ChartString& title, const std::string& splitText);

/// `setQORTVariable`, then `setFormatBasedOnQORTVariable`.
void BindVariable(XVariable variable, const QORT_Variable* hostVariable);

/// The title, with the split's text behind it where `appendSplit` says so. A document borrows its
/// description until it is sent.
ChartString Description(const ChartString& title, const std::string& splitText, bool appendSplit);

/// `SendChart`, the last step. A chart that reached it counts as sent, whatever comes of it.
bool Send(XDocument& document);

/// The variable of a field; null where there is no field.
const QORT_Variable* VariableOf(const FieldInfoData* field);

/// The record that a list's number names, cut to an integer; null where it names none.
const FieldInfoData* FieldAt(const NOPROutputStats* stats, double index);

/// The parameters of a test's condition; none without a test.
const std::vector<NOPROutputStats::ConditionParameter>& ParametersOf(
    const NOPROutputStats::BaseHypothesisTest* test);

/// The first value of a condition's parameter; none where there is no such parameter or value.
std::optional<double> FirstValue(const std::vector<NOPROutputStats::ConditionParameter>& parameters,
                                 std::size_t position);
