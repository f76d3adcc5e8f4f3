// controls/guisound.cpp: see guisound.h.
#include "controls/guisound.h"

#include "controls/guisoundmodule.h"
#include "controls/guitemporaryfile.h"
#include "foundation/vela-log.h"
#include "foundation/vela-threadrole.h"

#include <algorithm>
#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>

namespace {

// ---- The library ----

void saySilent(char const* why)
{
    static bool isSaid = false;
    if (!std::exchange(isSaid, true))
        velaLog("guiSound::play() - movies are silent; %s\n", why);
}

/// Beside the file that this code is in.
std::string pathOfLibrary()
{
    if (char const* const own = std::getenv("TARN_SOUND"))
        return own;
    Dl_info info;
    std::filesystem::path folder;
    if (dladdr(reinterpret_cast<void const*>(&pathOfLibrary), &info) && info.dli_fname)
        folder = std::filesystem::path(info.dli_fname).parent_path();
    return (folder / "libtarn-sound.so").string();
}

/// It stays in the process: the toolkit's plug-ins that it brings are not made to be unloaded.
TarnSoundModule const* loadLibrary()
{
    void* const library = dlopen(pathOfLibrary().c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    void* const entry = library ? dlsym(library, kTarnSoundEntry) : nullptr;
    TarnSoundModule const* const module = entry ? reinterpret_cast<TarnSoundEntry>(entry)() : nullptr;
    if (module && module->version == TARN_SOUND_VERSION)
        return module;
    char const* const why = entry ? nullptr : dlerror();
    saySilent(why ? why : "the library for sound is of another version");
    return nullptr;
}

TarnSoundModule const* library()
{
    static TarnSoundModule const* const loaded = loadLibrary();
    return loaded;
}

// ---- WAV files ----

unsigned numberAt(std::vector<unsigned char> const& bytes, std::size_t at, int count = 4)
{
    unsigned number = 0;
    for (int i = 0; i < count; ++i)
        number |= static_cast<unsigned>(bytes[at + static_cast<std::size_t>(i)]) << 8 * i;
    return number;
}

void putNumber(std::vector<unsigned char>& bytes, std::size_t at, std::size_t number)
{
    for (std::size_t i = 0; i < 4; ++i)
        bytes[at + i] = static_cast<unsigned char>(number >> 8 * i);
}

/// Where the parts of a WAV file are; 0 where a part is missing.
struct wavParts
{
    std::size_t format = 0; // data of the chunk "fmt "
    std::size_t data = 0;   // data of the chunk "data"
    std::size_t end = 0;    // of the data
};

wavParts findParts(std::vector<unsigned char> const& file)
{
    constexpr std::size_t kHeader = 8; // name and size
    constexpr std::size_t kFormat = 16;
    wavParts parts;
    for (std::size_t at = 12; at + kHeader <= file.size();) {
        std::size_t const begin = at + kHeader;
        std::size_t const size = std::min<std::size_t>(numberAt(file, at + 4), file.size() - begin);
        std::string const name(file.begin() + static_cast<std::ptrdiff_t>(at),
                               file.begin() + static_cast<std::ptrdiff_t>(at + 4));
        if (name == "fmt " && size >= kFormat)
            parts.format = begin;
        if (name == "data") {
            parts.data = begin;
            parts.end = begin + size;
            break;
        }
        at = begin + size + size % 2;
    }
    return parts;
}

} // namespace

std::vector<unsigned char> guiSoundFrom(std::vector<unsigned char> const& file, std::chrono::milliseconds position)
{
    wavParts const parts = findParts(file);
    if (position.count() <= 0 || parts.format == 0 || parts.data == 0)
        return file;
    std::uint64_t const bytesPerSecond = numberAt(file, parts.format + 8);
    std::size_t const block = std::max(1u, numberAt(file, parts.format + 12, 2));
    std::uint64_t const passed = static_cast<std::uint64_t>(position.count()) * bytesPerSecond / 1000;
    std::size_t const skipped = std::min<std::uint64_t>(passed / block * block, parts.end - parts.data);
    auto const at = [&file](std::size_t offset) { return file.begin() + static_cast<std::ptrdiff_t>(offset); };
    std::vector<unsigned char> rest(file.begin(), at(parts.data));
    rest.insert(rest.end(), at(parts.data + skipped), at(parts.end));
    putNumber(rest, 4, rest.size() - 8);
    putNumber(rest, parts.data - 4, parts.end - parts.data - skipped);
    return rest;
}

void guiSound::startAt(std::chrono::milliseconds position)
{
    assertOnGuiThread();
    stop();
    TarnSoundModule const* const module = library();
    if (!module)
        return;
    m_file = guiTemporaryFile::write(guiSoundFrom(m_video->audio, position), ".wav");
    if (m_file.empty())
        return saySilent("no temporary file can be written");
    m_sound = module->open(m_file.c_str());
    if (!m_sound)
        return saySilent("there is no audio device");
    m_isWhole = position.count() == 0;
    m_started = clock::now() - position;
    module->play(m_sound);
}

void guiSound::play()
{
    m_isPaused = false;
    if (!m_sound || !m_isWhole)
        return startAt({});
    m_started = clock::now();
    library()->play(m_sound);
}

void guiSound::pause()
{
    if (m_isPaused || !m_sound)
        return;
    m_position = std::chrono::duration_cast<std::chrono::milliseconds>(clock::now() - m_started);
    stop();
    m_isPaused = true;
}

void guiSound::resume()
{
    if (std::exchange(m_isPaused, false))
        startAt(m_position);
}

void guiSound::stop()
{
    assertOnGuiThread();
    m_isPaused = false;
    if (void* const sound = std::exchange(m_sound, nullptr))
        library()->close(sound);
    if (!m_file.empty())
        guiTemporaryFile::remove(std::exchange(m_file, {}));
}
