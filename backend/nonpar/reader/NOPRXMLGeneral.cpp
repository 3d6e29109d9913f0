#include "reader/NOPRXMLGeneral.h"

#include "model/NOPRTestIdentity.h"

namespace {

/// The text of the first child element of a name.
bool ReadTextOf(const SDOMXMLWrapper& element, const char* name, std::string& text)
{
    const SDOMXMLWrapper* child = FirstElement(element, name);
    return child && child->GetTextBody(text);
}

template <class Record>
Record& AppendChild(std::vector<Record>& list, ChildRef::Kind childKind,
                    std::vector<ChildRef>& order)
{
    order.push_back({childKind, static_cast<int>(list.size())});
    return list.emplace_back();
}

/// Most tables have a few attributes, and lists that begin with room for them don't move.
constexpr std::size_t kUsualAttributes = 4;

bool ReadChild(const SDOMXMLWrapper& child, StructuredTableData& data)
{
    const std::string& tag = child.GetName();
    if (tag == "Attribute") {
        if (data.fAttributes.empty()) {
            data.fAttributes.reserve(kUsualAttributes);
            data.fChildOrder.reserve(data.fChildOrder.size() + kUsualAttributes);
        }
        auto& attribute = AppendChild(data.fAttributes, ChildRef::kAttribute, data.fChildOrder);
        return ReadAttribute(child, attribute.fName, attribute.fValue);
    }
    if (tag == "SimpleTable")
        return ReadSimpleTable(
            child, AppendChild(data.fSimpleTables, ChildRef::kSimpleTable, data.fChildOrder));
    if (tag == "StructuredTable")
        return ReadStructuredTable(
            child, AppendChild(data.fStrucTables, ChildRef::kStructuredTable, data.fChildOrder));
    return true;
}

}  // namespace

bool ReadAttribute(const SDOMXMLWrapper& element, std::string& name, std::string& value)
{
    value.clear();
    element.GetAttribute("value", value);
    return element.GetAttribute("name", name);
}

bool ReadNumberAttribute(const SDOMXMLWrapper& element, std::string& name, double& value)
{
    value = MissingValue;
    element.GetAttribute("value", value);
    return element.GetAttribute("name", name);
}

bool ReadSimpleTable(const SDOMXMLWrapper& element, SimpleTableData& data)
{
    if (!element.GetAttribute("name", data.fName)) return false;
    if (!ReadTextOf(element, "RowNames", data.fRowNames)) return false;
    if (!ReadTextOf(element, "ColumnNames", data.fColumnNames)) return false;

    data.fRowTexts.clear();
    return ForEachChild(element, "Row", true, [&data](const SDOMXMLWrapper& row) {
        return row.GetTextBody(data.fRowTexts.emplace_back());
    });
}

bool ReadStructuredTable(const SDOMXMLWrapper& element, StructuredTableData& data)
{
    if (!element.GetAttribute("name", data.fName)) return false;

    data.fAttributes.clear();
    data.fSimpleTables.clear();
    data.fStrucTables.clear();
    data.fChildOrder.clear();
    return ForEachChild(element, "", true,
                        [&data](const SDOMXMLWrapper& child) { return ReadChild(child, data); });
}

std::string TextOf(const SDOMXMLWrapper& element, const char* attribute)
{
    std::string text;
    element.GetAttribute(attribute, text);
    return text;
}

int IntegerOf(const SDOMXMLWrapper& element, const char* attribute)
{
    int value = 0;
    element.GetAttribute(attribute, value);
    return value;
}

const SDOMXMLWrapper* FirstElement(const SDOMXMLWrapper& element, const char* path)
{
    SDOMXMLWrapper* found = nullptr;
    return element.GetFirstElement(path, &found, true) ? found : nullptr;
}
