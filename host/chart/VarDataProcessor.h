#pragma once

#include <memory>
#include <string>

/// The rows of a chart, in named sources. Columns are declared before any value is set; rows are
/// numbered from 0. What names no declared column, and a negative row, is passed over.
class VarDataProcessor {
public:
    /// Names a column, so that values can be set without looking it up.
    struct _varinfo {
        std::string fSource;
        std::string fVariable;
    };

    VarDataProcessor();
    ~VarDataProcessor();
    VarDataProcessor(const VarDataProcessor&) = delete;
    VarDataProcessor& operator=(const VarDataProcessor&) = delete;

    /// `kind` is 0 at all callers.
    void AddDataSource(const char* source, int kind);

    /// Fills `*info` unless it is null.
    void AddVariable(const char* source, const char* variable, _varinfo* info);

    void SetVariableValue(const char* source, const char* variable, int row, double value);
    void SetVariableValue(const _varinfo* info, int row, double value);

    /// `text` is UTF-8.
    void SetStringVariableValue(const char* source, const char* variable, int row,
                                const std::string& text);

    class Impl;
    const Impl& GetImpl() const { return *fImpl; }

private:
    std::unique_ptr<Impl> fImpl;
};
