#pragma once

#include "host/chart/XVariable.h"

/// The chart as a whole, seen from outside: its texts, its frame, its variables. It belongs to its
/// document.
class XGraph {
public:
    virtual ~XGraph() = default;

    /// The template's variable of that name. `start` is 0 at all callers.
    virtual XVariable getVariable(const char* name, int start) = 0;

    virtual void setTitle(const char16_t* text) = 0;
    virtual void setSubtitle(const char16_t* text) = 0;
    virtual void setFootnote(const char16_t* text) = 0;

    /// Size of the frame, in units of the template's own frame.
    virtual void setOuterFrameWidth(double width) = 0;
    virtual void setOuterFrameHeight(double height) = 0;
};
