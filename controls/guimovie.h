// controls/guimovie.h: a movie: decoded whole when it is loaded, its frames handed to an image node one after another
// by a thread of its own.
#pragma once

#include "controls/readavi.h"
#include "foundation/vela-string.h"

#include <atomic>
#include <pthread.h>

class guiHtmlImage;
class ScriptObject;
struct pevent;
struct pmutex;

/// Made, loaded and destroyed on the GUI thread; play(), pause(), resume() and stop() on any but the player's own.
/// FIXME: the sound is read and never played.
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

    /// Reads the file through the component, by full name with a movie's extension; what was loaded before is gone. 1,
    /// or 0 after a log line, and the movie is empty.
    int loadFile(ScriptObject* owner, sstring const& name);
    /// Stops the movie and frees what was loaded.
    void freeMovie();
    bool isValid() const { return hasVideo() || hasAudio(); }
    bool hasVideo() const { return !m_video.frames.empty(); }
    bool hasAudio() const { return !m_video.audio.empty(); }
    std::vector<VideoFrame> const& getFrames() const { return m_video.frames; }

    /// The node that shows the frames, not owned; null: none. While the movie is not playing.
    void setRenderTarget(guiHtmlImage* target) { m_target = target; }
    /// Starts from the first frame, `loop` not 0 over and over; goes on where it was paused; nothing while it plays. A
    /// movie without frames ends at once.
    void play(int loop);
    void pause() { m_isPaused = true; }
    void resume();
    /// Ends playing and waits until the last frame has been handed over.
    void stop();
    bool isPlaying() const { return m_isPlaying; }
    /// What to call, on the player's thread, when the movie ends or is stopped; once.
    void onStopped(stoppedCallback callback, void* data);

private:
    static intptr_t threadMain(intptr_t self);
    void run();
    bool showNext();
    void notifyStopped();
    void join();

    guiVideo m_video;
    guiHtmlImage* m_target = nullptr;
    std::atomic<bool> m_isPlaying{false};
    std::atomic<bool> m_isPaused{false};
    std::atomic<bool> m_isLooping{false};
    std::size_t m_next = 0; // frame; the player's while it runs
    pthread_t m_player{};
    bool m_hasPlayer = false;             // a thread was started and not joined yet
    stoppedCallback m_callback = nullptr; // guarded by m_lock
    void* m_callbackData = nullptr;       // guarded by m_lock
    pmutex* m_lock;                       // owned
    pevent* m_wake;                       // owned; ends the wait for the next frame early
};
