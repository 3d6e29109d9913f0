#pragma once

class OBS;
class QORT_Variable;

/// A variable of a template: a handle into the chart document, passed by value. A handle of a name
/// that the template does not hold takes every call and does nothing. Texts are copied; null
/// variables and texts are taken as absent.
class XVariable {
public:
    class Impl;
    explicit XVariable(Impl* impl) : fImpl(impl) {}

    void setQORTVariable(const QORT_Variable* variable);
    void setFormatBasedOnQORTVariable(const QORT_Variable* variable);
    void setLabel(const char16_t* label);
    void setCategorical(bool categorical);
    void SetNumberFormat(int decimals, bool grouping, const char16_t* prefix,
                         const char16_t* suffix);
    void SetFormatPrefix(const char16_t* prefix);

    /// A data value shows as that text: a value given by its text, by its number, or a text that is
    /// a value of the host. A later text for the same key replaces the earlier one.
    void addRelabel(const char16_t* key, const char16_t* text);
    void addRelabel(unsigned key, const char16_t* text);
    void addRelabel(const char16_t* key, const OBS* value);

private:
    Impl* fImpl;
};
