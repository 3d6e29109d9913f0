#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "refhost/chart/Transcoding.h"
#include "refhost/document/OutputNode.h"

#include "host/data/OBS.h"
#include "host/data/QORT_Variable.h"

namespace refhost {

inline ChartArgument Argument(const ChartArgument& argument) { return argument; }
inline ChartArgument Argument(bool value) { return value; }
inline ChartArgument Argument(double value) { return value; }
inline ChartArgument Argument(int value) { return std::int64_t{value}; }
inline ChartArgument Argument(unsigned value) { return std::int64_t{value}; }
inline ChartArgument Argument(const std::string& value) { return value; }

inline ChartArgument Argument(const char16_t* text)
{
    return text ? ChartArgument(ToUtf8(text)) : ChartArgument();
}

inline ChartArgument Argument(const QORT_Variable* variable)
{
    return variable ? ChartArgument(variable->GetName()) : ChartArgument();
}

inline ChartArgument Argument(const OBS* value)
{
    if (!value) return {};
    if (value->IsString()) return ChartHostValue{value->Text()};
    return ChartHostValue{value->Number()};
}

/// The calls of a document, in the order in which they were made.
class CallRecorder {
public:
    template <class... Arguments>
    void Record(std::string operation, const Arguments&... arguments)
    {
        ChartCall& call = fCalls.Own().emplace_back(ChartCall{std::move(operation), {}});
        call.fArguments.reserve(sizeof...(arguments));
        (call.fArguments.push_back(Argument(arguments)), ...);
    }

    const SharedList<ChartCall>& Calls() const { return fCalls; }

private:
    SharedList<ChartCall> fCalls;
};

}  // namespace refhost
