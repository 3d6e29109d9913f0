#pragma once

#include <string>

namespace refhost {

class OutputBuilder;
class TextTable;

/// What the libraries of the host share during a run: where output goes, and by what it is shown.
/// The contract's free functions (reports, template files, words) have no handle to carry it, so it
/// is found by `HostRun::Current`. One run at a time, on one thread.
struct HostRun {
    OutputBuilder* fOutput = nullptr;
    const TextTable* fTexts = nullptr;  ///< null: every key shows as it stands
    std::string fTemplateFolder;
    bool fUseColorsOnly = true;

    /// The run that is under way; never null. Outside of a run it has no output and no texts.
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
