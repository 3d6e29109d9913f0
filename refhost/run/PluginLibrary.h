#pragma once

#include <memory>
#include <string>

class CFProcCustom;

namespace refhost {

/// A loaded plug-in. It stays loaded as long as this object lives, and so must outlive all that it
/// made.
class PluginLibrary {
public:
    /// Throws `RunFailure` where the file can't be loaded or has no entry.
    explicit PluginLibrary(const std::string& file);
    ~PluginLibrary();
    PluginLibrary(const PluginLibrary&) = delete;
    PluginLibrary& operator=(const PluginLibrary&) = delete;

    /// A new procedure object; throws `RunFailure` where the plug-in makes none.
    std::unique_ptr<CFProcCustom> MakeProcedure() const;

private:
    using Entry = CFProcCustom* (*)();

    std::string fFile;
    void* fHandle = nullptr;
    Entry fEntry = nullptr;
};

}  // namespace refhost
