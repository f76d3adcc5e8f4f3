// controls/guimovie.cpp: see guimovie.h.
#include "controls/guimovie.h"

#include "controls/guicontrolhost.h"
#include "controls/guihtmlimage.h"
#include "controls/guipicturefile.h"
#include "foundation/pmutex.h"
#include "foundation/threading.h"
#include "foundation/vela-log.h"
#include "page/guifiletype.h"
#include "page/guinumbers.h"

#include <algorithm>
#include <cassert>
#include <ctime>
#include <map>
#include <utility>

namespace {

bool isSound(sstring const& name)
{
    unsigned const dot = name.rfind('.');
    return dot != sstring::npos && guiIsWord(name.subString(dot), ".wav");
}

/// What movies that live have read, by file.
std::map<guiFileState, std::weak_ptr<guiVideo const>>& shownVideos()
{
    static std::map<guiFileState, std::weak_ptr<guiVideo const>> videos;
    return videos;
}

std::shared_ptr<guiVideo const> shownVideo(guiFileState const& file)
{
    std::erase_if(shownVideos(), [](auto const& each) { return each.second.expired(); });
    auto const found = shownVideos().find(file);
    return found == shownVideos().end() ? nullptr : found->second.lock();
}

/// Null when the bytes are no movie.
std::shared_ptr<guiVideo const> readVideo(sstring const& name, QByteArray const& bytes)
{
    auto video = std::make_shared<guiVideo>();
    if (isSound(name))
        video->audio.assign(bytes.begin(), bytes.end());
    else
        loadVideo(bytes.constData(), static_cast<std::size_t>(bytes.size()), *video);
    return video->audio.empty() && video->frames.empty() ? nullptr : video;
}

int logFailure(sstring const& name, char const* why)
{
    velaLog("guiMovie::loadFile() - failed to load movie %s; %s\n", velaPrintable(name).c_str(), why);
    return 0;
}

/// Waits until the event is set or the time has passed.
void waitAtMost(pevent* event, unsigned milliseconds)
{
    timespec deadline = {};
    clock_gettime(CLOCK_REALTIME, &deadline);
    deadline.tv_sec += static_cast<time_t>(milliseconds / 1000);
    deadline.tv_nsec += static_cast<long>(milliseconds % 1000) * 1'000'000;
    if (deadline.tv_nsec >= 1'000'000'000) {
        deadline.tv_nsec -= 1'000'000'000;
        ++deadline.tv_sec;
    }
    pevent_wait_timeout_ts(event, &deadline);
}

} // namespace

guiMovie::guiMovie() : m_video(std::make_shared<guiVideo const>()), m_lock(pmutex_create()), m_wake(pevent_create()) {}

guiMovie::guiMovie(ScriptObject* owner, sstring const& name) : guiMovie() { loadFile(owner, name); }

guiMovie::~guiMovie()
{
    stop();
    assert(!m_hasThread && !m_isPlaying);
    pevent_destroy(m_wake);
    pmutex_destroy(m_lock);
}

bool guiMovie::isMovie(sstring const& name) { return getFindFileType(name) == kFileMovie; }

int guiMovie::loadFile(ScriptObject* owner, sstring const& name)
{
    assertOnGuiThread();
    freeMovie();
    if (!isMovie(name))
        return logFailure(name, "bad format");
    guiPictureFile file(owner, name);
    if (auto shown = shownVideo(file.state())) {
        m_video = std::move(shown);
        return 1;
    }
    QByteArray bytes;
    if (!file.exists() || !file.read(bytes))
        return logFailure(name, "file not found");
    std::shared_ptr<guiVideo const> video = readVideo(name, bytes);
    if (!video)
        return logFailure(name, "bad format");
    if (video->isCut)
        velaLog("guiMovie::loadFile() - movie %s is cut short; no memory is left for pictures\n",
                velaPrintable(name).c_str());
    shownVideos()[file.state()] = video;
    m_video = std::move(video);
    return 1;
}

void guiMovie::freeMovie()
{
    stop();
    assertAtRestOrOnPlayer();
    m_video = std::make_shared<guiVideo const>();
    m_next = 0;
}

void guiMovie::onStopped(stoppedCallback callback, void* data)
{
    pmutex_request(m_lock);
    m_callback = callback;
    m_callbackData = data;
    pmutex_release(m_lock);
}

void guiMovie::setRenderTarget(guiHtmlImage* target)
{
    assert(!m_hasThread);
    m_target = target;
}

void guiMovie::play(int loop)
{
    m_isLooping = loop != 0;
    if (m_isPlaying) {
        resume();
        return;
    }
    join(); // the thread of the last time, which has ended by itself
    if (!isValid())
        return;
    assertAtRestOrOnPlayer();
    m_next = 0;
    pevent_reset(m_wake);
    m_isPaused = false;
    m_isPlaying = true;
    m_thread = pthread_create_managed(&guiMovie::threadMain, reinterpret_cast<intptr_t>(this));
    m_hasThread = m_thread != kNoThread;
    if (!m_hasThread)
        m_isPlaying = false;
}

void guiMovie::resume()
{
    if (m_isPaused.exchange(false))
        pevent_set(m_wake);
}

void guiMovie::stop()
{
    m_isPlaying = false;
    m_isPaused = false;
    pevent_set(m_wake);
    join();
}

void guiMovie::join()
{
    if (!std::exchange(m_hasThread, false))
        return;
    assert(!pthread_equal(pthread_self(), m_thread)); // the player cannot wait for its own end
    pthread_join(m_thread, nullptr);
}

// ---- The player's thread ----

intptr_t guiMovie::threadMain(intptr_t self)
{
    reinterpret_cast<guiMovie*>(self)->run();
    return 0;
}

void guiMovie::run()
{
    constexpr unsigned kShortestFrame =
        1; // milliseconds, so that frames without a duration do not keep a processor busy
    m_player.claim();
    while (m_isPlaying) {
        if (m_isPaused) {
            pevent_wait(m_wake);
            continue;
        }
        if (!showNext())
            break;
        assert(m_next >= 1 && m_next <= m_video->frames.size());
        unsigned const duration = m_video->frames[m_next - 1].duration;
        waitAtMost(m_wake, std::max(duration, kShortestFrame));
    }
    m_isPlaying = false;
    notifyStopped();
    m_player.release();
}

/// Hands the next frame over; false when there is none left, or none at all.
bool guiMovie::showNext()
{
    if (m_next >= m_video->frames.size()) {
        if (!m_isLooping || !hasVideo())
            return false;
        m_next = 0;
    }
    VideoFrame const& frame = m_video->frames[m_next++];
    if (m_target)
        m_target->setMovieFrame(&frame.image);
    return true;
}

void guiMovie::notifyStopped()
{
    pmutex_request(m_lock);
    stoppedCallback const callback = std::exchange(m_callback, nullptr);
    void* const data = m_callbackData;
    pmutex_release(m_lock);
    if (callback)
        callback(this, data);
}
