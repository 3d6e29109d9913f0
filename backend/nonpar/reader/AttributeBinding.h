#pragma once

#include <algorithm>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "reader/NOPRXMLGeneral.h"
#include "reader/Numbers.h"
#include "reader/ReaderSteps.h"

#include "host/framework/Conversions.h"

/// Which field of a record an attribute of the document fills; its type tells how its text is read.
template <class Record>
struct AttributeBinding {
    std::string_view fName;
    std::variant<int Record::*, double Record::*, std::string Record::*,
                 std::vector<double> Record::*>
        fField;
};

inline void SetFromText(int& field, const std::string& text) { field = String2Integer(text); }
inline void SetFromText(double& field, const std::string& text) { field = String2Double(text); }
inline void SetFromText(std::string& field, const std::string& text) { field = text; }
inline void SetFromText(std::vector<double>& field, const std::string& text)
{
    ParseNumbers(text, field);
}

/// False where no row has the attribute's name.
template <class Record>
bool SetField(Record& record, std::span<const AttributeBinding<Record>> rows,
              const XMLAttribute& attribute)
{
    const auto row = std::ranges::find(rows, attribute.fName, &AttributeBinding<Record>::fName);
    if (row == rows.end()) return false;
    std::visit([&](auto field) { SetFromText(record.*field, attribute.fValue); }, row->fField);
    return true;
}

/// Fills a record from the attributes of a table; names without a row are reported.
template <class Record, std::size_t kCount>
void ReadAttributes(const StructuredTableData& data, const AttributeBinding<Record> (&rows)[kCount],
                    Record& record)
{
    for (const XMLAttribute& attribute : data.fAttributes)
        if (!SetField<Record>(record, rows, attribute)) ReportNotParsed(attribute.fName);
}
