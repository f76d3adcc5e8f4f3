// controls/guisidelibrary.cpp: see guisidelibrary.h.
#include "controls/guisidelibrary.h"

#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>

namespace {

std::string pathOf(guiSideLibrary const& library)
{
    if (char const* const own = std::getenv(library.variable))
        return own;
    Dl_info info;
    std::filesystem::path folder;
    if (dladdr(reinterpret_cast<void const*>(&pathOf), &info) && info.dli_fname)
        folder = std::filesystem::path(info.dli_fname).parent_path();
    return (folder / library.file).string();
}

} // namespace

void* guiFindSideEntry(guiSideLibrary const& library, std::string& why)
{
    void* const loaded = dlopen(pathOf(library).c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    void* const entry = loaded ? dlsym(loaded, library.entry) : nullptr;
    if (!entry)
        if (char const* const told = dlerror())
            why = told;
    return entry;
}
