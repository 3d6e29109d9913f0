#pragma once

#include <optional>
#include <string>

#include "host/data/OBS.h"

class QORT_Variable;

/// A value as the host's variable sees it.
class CFStatVariableValue {
public:
    /// Takes the text of a value and completes it against the variable: padded to the format's
    /// width for a string variable, read as a number for a numeric one. Numbers of date formats
    /// stay in the unit of the document. `mode` is 0.
    bool SetCompleteValue(const std::string& text, const QORT_Variable& variable, int mode);

    /// The value; null as long as none was set. It lives as long as this object.
    const OBS* GetObsValue() const;

    /// The text that was given, unpadded.
    const std::string& GetStringValue() const;

private:
    std::optional<OBS> fObs;
    std::string fText;
};
