// controls/guimovie.h: a movie. All of it is decoded when it is loaded; a thread of its own then hands its frames to an
// image node one after another.
#pragma once

#include "controls/guisound.h"
#include "controls/readavi.h"
#include "foundation/vela-string.h"
#include "foundation/vela-threadrole.h"

#include <atomic>
#include <cassert>
#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <pthread.h>

class guiHtmlImage;
class ScriptObject;
struct pmutex;

/// Made, loaded and destroyed on the GUI thread; play(), pause(), resume() and stop() on any but the player's own. Its
/// sound begins with the first frame, pauses with it, and ends with the movie; a file that is only sound ends as a
/// movie when its sound begins, and is heard until it is stopped or over.
class guiMovie
{
public:
    using stoppedCallback = void (*)(guiMovie* movie, void* data);

    guiMovie();
    /// Also loads the file; isValid() says whether it could.
    guiMovie(ScriptObject* owner, sstring const& name);
    /// Stops the movie.
    ~guiMovie();
    guiMovie(guiMovie const&) = delete;
    guiMovie& operator=(guiMovie const&) = delete;

    /// Whether the name's last extension is ".wav", ".avi" or ".avz", in any case.
    static bool isMovie(sstring const& name);

    /// Replaces what was loaded before by a file, which the component reads; `name` is its full name, with a movie's
    /// extension. 1, or 0 after a log line, and the movie is then empty.
    int loadFile(ScriptObject* owner, sstring const& name);
    /// Stops the movie and frees what was loaded.
    void freeMovie();
    bool isValid() const { return hasVideo() || hasAudio(); }
    bool hasVideo() const { return !m_video->frames.empty(); }
    bool hasAudio() const { return !m_video->audio.empty(); }
    std::vector<VideoFrame> const& getFrames() const { return m_video->frames; }

    /// The node that shows the frames, not owned; null: none. Only while no player runs.
    void setRenderTarget(guiHtmlImage* target);
    /// Starts from the first frame, over and over when `loop` is not 0. A paused movie goes on where it was paused; one
    /// that plays goes on playing. A movie without frames ends at once.
    void play(int loop);
    void pause();
    void resume();
    /// Ends playing and waits until the last frame has been handed over.
    void stop();
    bool isPlaying() const { return m_isPlaying; }
    /// Called once, on the player's thread, when the movie ends or is stopped.
    void onStopped(stoppedCallback callback, void* data);

private:
    void takeVideo(std::shared_ptr<guiVideo const> video);
    static intptr_t threadMain(intptr_t self);
    void run();
    bool showNext() TARN_ON(m_player);
    void notifyStopped() TARN_ON(m_player);
    void join();
    void waitForFrame(std::chrono::steady_clock::time_point end);
    void waitUntilWoken();
    void seeFrame(std::chrono::steady_clock::time_point& end) TARN_ON(m_player);
    void wakePlayer();
    void tellSound(void (guiSound::*what)());
    /// Ends the program while the player runs on another thread, in builds with assertions.
    void assertAtRestOrOnPlayer() const TARN_PROVES(m_player) { assert(m_player.isHeld()); }

    std::shared_ptr<guiVideo const> m_video; // never null; shared by all movies of one file
    guiHtmlImage* m_target = nullptr;
    std::atomic<bool> m_isPlaying{false};
    std::atomic<bool> m_isPaused{false};
    std::atomic<bool> m_isLooping{false};
    velaThreadRole m_player;                          // held by the thread while it plays
    std::size_t m_next TARN_GUARDED_BY(m_player) = 0; // frame
    pthread_t m_thread{};                             // the player's, while m_hasThread
    bool m_hasThread = false;                         // a thread was started and has not been joined yet
    stoppedCallback m_callback = nullptr;             // guarded by m_lock
    void* m_callbackData = nullptr;                   // guarded by m_lock
    pmutex* m_lock;                                   // owned
    std::mutex m_wakeLock;
    std::condition_variable m_wake;    // ends the wait for the next frame early
    bool m_isWoken = false;            // guarded by m_wakeLock
    std::shared_ptr<guiSound> m_sound; // null without sound
};
