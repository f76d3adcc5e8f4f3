// controls/guisound.h: the sound of a movie. It is played by a library that is loaded when the first sound is played
// (controls/guisoundmodule.h). Without that library, or without an audio device, movies are silent, which is said once.
#pragma once

#include "controls/readavi.h"

#include <chrono>
#include <memory>
#include <string>

/// GUI thread.
class guiSound
{
public:
    /// The sound of this movie.
    explicit guiSound(std::shared_ptr<guiVideo const> video) : m_video(std::move(video)) {}
    ~guiSound() { stop(); }
    guiSound(guiSound const&) = delete;
    guiSound& operator=(guiSound const&) = delete;

    /// From the beginning, also while it plays.
    void play();
    /// Silent until resume(), which goes on at the same place.
    void pause();
    void resume();
    void stop();

private:
    using clock = std::chrono::steady_clock;

    void startAt(std::chrono::milliseconds position);

    std::shared_ptr<guiVideo const> m_video;
    void* m_sound = nullptr; // the library's; null unless it plays
    std::string m_file;      // that the library reads, "" unless it plays
    bool m_isWhole = false;  // m_sound begins where the movie does
    bool m_isPaused = false;
    clock::time_point m_started;             // when m_sound would have begun
    std::chrono::milliseconds m_position{0}; // in the movie, while it is paused
};
