#pragma once

#include <string>
#include <vector>

#include "host/framework/SDOMXMLWrapper.h"

/// The three generic elements of a result document as plain records. Nothing here knows of tests;
/// texts stand as the document has them. A false leaves behind what was read so far.

struct XMLAttribute {
    std::string fName;
    std::string fValue;
};

struct SimpleTableData {
    std::string fName;
    std::string fRowNames;
    std::string fColumnNames;
    std::vector<std::string> fRowTexts;
};

/// One child of a structured table: its kind, and its position among the children of that kind.
struct ChildRef {
    enum Kind : int { kAttribute = 0, kSimpleTable = 1, kStructuredTable = 2 };

    Kind fKind;
    int fPosition;
};

struct StructuredTableData {
    std::string fName;
    std::vector<XMLAttribute> fAttributes;
    std::vector<SimpleTableData> fSimpleTables;
    std::vector<StructuredTableData> fStrucTables;
    std::vector<ChildRef> fChildOrder;  ///< all children of the three kinds, in document order
};

/// Whether the element has a `name`; a missing `value` is an empty text.
bool ReadAttribute(const SDOMXMLWrapper& element, std::string& name, std::string& value);

/// Whether the element has a `name`; a `value` that is missing or no number is `MissingValue`.
bool ReadNumberAttribute(const SDOMXMLWrapper& element, std::string& name, double& value);

/// False without a `name`, row names or column names.
bool ReadSimpleTable(const SDOMXMLWrapper& element, SimpleTableData& data);

/// False without a `name`, or where one of its children can't be read.
bool ReadStructuredTable(const SDOMXMLWrapper& element, StructuredTableData& data);

/// An attribute's text; empty where it is missing.
std::string TextOf(const SDOMXMLWrapper& element, const char* attribute);

/// An attribute's integer; 0 where it is missing or no number.
int IntegerOf(const SDOMXMLWrapper& element, const char* attribute);

/// The first element that answers to a path; null where there is none.
const SDOMXMLWrapper* FirstElement(const SDOMXMLWrapper& element, const char* path);

/// Calls `step` with each child element of a name, up to the first false; false where a step was.
/// `withoutIterator` is the result where the children can't be walked.
template <class Step>
bool ForEachChild(const SDOMXMLWrapper& element, const char* name, bool withoutIterator, Step step)
{
    SDOMXMLIterator* children = nullptr;
    if (!element.GetElementIterator(name, &children, true)) return withoutIterator;

    SDOMXMLWrapper* child = nullptr;
    while (children && children->Next(&child))
        if (!step(static_cast<const SDOMXMLWrapper&>(*child))) return false;
    return true;
}
