#pragma once

#include <string>

#include "host/chart/ChartString.h"
#include "host/chart/XVariable.h"

class FacSTDictionary;
class NOPROutputStats;
class QORT_Variable;
class VarDataProcessor;
class XDocument;
class XGraph;
struct FieldInfoData;

/// The steps that views share. Views differ in the order of these calls, and that order shows in
/// the output; so each step is one thing and has no switches.

/// A word of the dictionary.
ChartString LookUpText(const FacSTDictionary* dictionary, const std::string& key);

/// `setEditor` and `setLanguage`, the first calls on every document.
void PrepareDocument(XDocument& document);

/// `setSubtitle` with the split's text, where there is one.
void SetSplitSubtitle(XGraph& graph, const std::string& splitText);

/// `setTitle`, then the subtitle.
void SetTitles(XGraph& graph, const ChartString& title, const std::string& splitText);

/// `SetDescription`: the title, with the split's text behind it where `appendSplit` says so.
void Describe(XDocument& document, const ChartString& title, const std::string& splitText,
              bool appendSplit);

/// `setQORTVariable`, then `setFormatBasedOnQORTVariable`.
void BindVariable(XVariable variable, const QORT_Variable* hostVariable);

/// `applyCTemplate`, then `SendChart`.
void SendWithTemplate(XDocument& document);

/// `SendChart` alone.
void Send(XDocument& document);

/// The variable of a field; null where there is no field.
const QORT_Variable* VariableOf(const FieldInfoData* field);

/// The record that a list's number names; null where it names none (negative, huge, fractional
/// parts cut).
const FieldInfoData* FieldAt(const NOPROutputStats* stats, double index);
