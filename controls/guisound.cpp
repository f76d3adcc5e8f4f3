// controls/guisound.cpp: see guisound.h.
#include "controls/guisound.h"

#include "controls/guisidelibrary.h"
#include "controls/guisoundmodule.h"
#include "controls/guitemporaryfile.h"
#include "controls/readwav.h"
#include "foundation/vela-log.h"
#include "foundation/vela-threadrole.h"

#include <string>
#include <utility>

namespace {

void saySilent(char const* why)
{
    static bool isSaid = false;
    if (!std::exchange(isSaid, true))
        velaLog("guiSound::play() - movies are silent; %s\n", why);
}

TarnSoundModule const* loadLibrary()
{
    std::string why;
    auto* const module = guiLoadSideLibrary<TarnSoundEntry>(
        {"TARN_SOUND", "libtarn-sound.so", kTarnSoundEntry, TARN_SOUND_VERSION, "sound"}, why);
    if (!module)
        saySilent(why.c_str());
    return module;
}

TarnSoundModule const* library()
{
    static TarnSoundModule const* const loaded = loadLibrary();
    return loaded;
}

} // namespace

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
