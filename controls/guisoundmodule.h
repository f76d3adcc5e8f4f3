// controls/guisoundmodule.h: the small C interface between the component and the library that plays sound
// (sound/qtsound.cpp), which is loaded when the first sound is played: a program without sound pays nothing for it.
#pragma once

#define TARN_SOUND_VERSION 1

/// Filled in by the library. Everything on the GUI thread.
struct TarnSoundModule
{
    int version; ///< TARN_SOUND_VERSION
    /// Opens a WAV file; null when there is no device that plays it. The file is the library's from now on: it is
    /// removed as soon as it has been read.
    void* (*open)(char const* path);
    /// Plays a sound from its beginning, also while it plays.
    void (*play)(void* sound);
    void (*stop)(void* sound);
    /// Stops and frees it.
    void (*close)(void* sound);
};

/// The type and the name of the one function that the library exports.
using TarnSoundEntry = TarnSoundModule const* (*)();
inline constexpr char kTarnSoundEntry[] = "tarnSoundModule";
