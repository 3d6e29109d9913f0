#pragma once

#include <string>
#include <utility>

#include "refhost/template/ChartDrawing.h"

#include "host/chart/XVariable.h"

namespace refhost {
class CallRecorder;
}

/// What a handle stands for: the name that was asked for, and the settings of the template's
/// variable; none where the template does not hold the name.
class XVariable::Impl {
public:
    Impl(std::string name, refhost::VariableSettings* settings, refhost::CallRecorder& recorder)
        : fName(std::move(name)), fSettings(settings), fRecorder(recorder)
    {
    }

    const std::string fName;
    refhost::VariableSettings* const fSettings;
    refhost::CallRecorder& fRecorder;
};
