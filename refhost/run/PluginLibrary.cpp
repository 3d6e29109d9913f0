#include "refhost/run/PluginLibrary.h"

#include <dlfcn.h>

#include <new>

#include <fmt/format.h>

#include "refhost/run/MemoryWatch.h"
#include "refhost/run/RunFailure.h"

#include "host/framework/CFProcCustom.h"

namespace refhost {

namespace {

constexpr char kEntryName[] = "GetCFProcCustom";

}  // namespace

PluginLibrary::PluginLibrary(const std::string& file) : fFile(file)
{
    // A name without a slash would be searched for in the system's folders.
    const std::string path = file.find('/') == std::string::npos ? "./" + file : file;
    fHandle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!fHandle) throw RunFailure(fmt::format("the plug-in can't be loaded: {}", dlerror()));
    fEntry = reinterpret_cast<Entry>(dlsym(fHandle, kEntryName));
    if (fEntry) return;
    dlclose(fHandle);
    throw RunFailure(fmt::format("{} is no plug-in: it has no {}", file, kEntryName));
}

PluginLibrary::~PluginLibrary() { dlclose(fHandle); }

std::unique_ptr<CFProcCustom> PluginLibrary::MakeProcedure() const
{
    const MemoryWatch memory;
    std::unique_ptr<CFProcCustom> procedure(fEntry());
    if (!procedure && memory.RanOut()) throw std::bad_alloc();
    if (!procedure) throw RunFailure(fmt::format("{} makes no procedure", fFile));
    return procedure;
}

}  // namespace refhost
