#pragma once

#include <cstddef>
#include <map>
#include <string>

namespace refhost {

class OutputBuilder;

/// What the libraries of the host share during a run: where output goes, and how charts are made.
/// The contract's free functions (reports, template files) have no handle to carry it, so it is
/// found by `HostRun::Current`. One run at a time, on one thread. The texts of a run stand in
/// `TextTable::Active`.
struct HostRun {
    OutputBuilder* fOutput = nullptr;
    std::string fTemplateFolder;
    bool fUseColorsOnly = true;
    bool fShowsCharts = true;  ///< false: charts are recorded and never drawn

    /// Texts of template files by name, as far as they were read.
    std::map<std::string, std::string, std::less<>> fTemplateTexts = {};

    std::size_t fChartText = 0;  ///< bytes of long texts in the charts of the current split

    /// The run that is under way. Outside of a run it has no output.
    static HostRun& Current();

    /// Makes a run current for the length of a scope.
    class Scope {
    public:
        explicit Scope(HostRun& run);
        ~Scope();
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;

    private:
        HostRun* fPrevious;
    };
};

}  // namespace refhost
