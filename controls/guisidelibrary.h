// controls/guisidelibrary.h: the libraries beside libtarn.so that are loaded when somebody needs them: sound, printing.
#pragma once

#include <string>

/// Where one of them is, how it is called, and which version of it fits.
struct guiSideLibrary
{
    char const* variable; ///< of the environment, which may name another file
    char const* file;     ///< beside the file that this code is in
    char const* entry;    ///< the function that gives the module
    int version;          //
    char const* subject;  ///< what it is for, in messages
};

/// The function that gives the module; null, and in `why` what the system says, when there is none. It stays in the
/// process: the toolkit's plug-ins that it brings are not made to be unloaded. Any thread.
void* guiFindSideEntry(guiSideLibrary const& library, std::string& why);

/// The module of a library; null, and why, when there is none that fits.
template <typename Entry>
auto guiLoadSideLibrary(guiSideLibrary const& library, std::string& why) -> decltype(Entry{}())
{
    why = std::string("the library for ") + library.subject + " is of another version";
    void* const entry = guiFindSideEntry(library, why);
    auto* const module = entry ? reinterpret_cast<Entry>(entry)() : nullptr;
    return module && module->version == library.version ? module : nullptr;
}
