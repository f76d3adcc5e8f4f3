// controls/guimovie.cpp: see guimovie.h.
#include "controls/guimovie.h"

#include "controls/guicontrolhost.h"
#include "controls/guihtmlimage.h"
#include "controls/guipicturefile.h"
#include "foundation/pmutex.h"
#include "foundation/threading.h"
#include "foundation/vela-log.h"
#include "page/guiatplace.h"
#include "page/guifiletype.h"
#include "page/guinumbers.h"

#include <QApplication>
#include <algorithm>
#include <cassert>
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
    velaLog("guiMovie::loadFile() - failed to load movie %s; %s%s\n", velaPrintable(name).c_str(), why,
            guiAtPlace::text().c_str());
    return 0;
}

} // namespace

guiMovie::guiMovie() : m_video(std::make_shared<guiVideo const>()), m_lock(pmutex_create()) {}

guiMovie::guiMovie(ScriptObject* owner, sstring const& name) : guiMovie() { loadFile(owner, name); }

guiMovie::~guiMovie()
{
    stop();
    assert(!m_hasThread && !m_isPlaying);
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
        takeVideo(std::move(shown));
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
    takeVideo(std::move(video));
    return 1;
}

void guiMovie::takeVideo(std::shared_ptr<guiVideo const> video)
{
    m_video = std::move(video);
    if (hasAudio())
        m_sound = std::make_shared<guiSound>(m_video);
}

void guiMovie::freeMovie()
{
    stop();
    assertAtRestOrOnPlayer();
    m_sound.reset();
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
    m_isWoken = false; // no player runs
    m_isPaused = false;
    m_isPlaying = true;
    m_thread = pthread_create_managed(&guiMovie::threadMain, reinterpret_cast<intptr_t>(this));
    m_hasThread = m_thread != kNoThread;
    if (!m_hasThread)
        m_isPlaying = false;
}

void guiMovie::pause()
{
    if (m_isPaused.exchange(true))
        return;
    tellSound(&guiSound::pause);
    wakePlayer();
}

void guiMovie::resume()
{
    if (!m_isPaused.exchange(false))
        return;
    tellSound(&guiSound::resume);
    wakePlayer();
}

void guiMovie::stop()
{
    m_isPlaying = false;
    m_isPaused = false;
    wakePlayer();
    join();
    tellSound(&guiSound::stop);
}

/// Sound belongs to the GUI thread. What it is told arrives there in the order of telling, if the movie still lives.
void guiMovie::tellSound(void (guiSound::*what)())
{
    if (!m_sound)
        return;
    auto const tell = [what, sound = std::weak_ptr<guiSound>(m_sound)] {
        if (auto const living = sound.lock())
            (living.get()->*what)();
    };
    QMetaObject::invokeMethod(qApp, tell, Qt::QueuedConnection);
}

// ---- Waiting ----

/// Until then, or until wakePlayer(). The clock does not jump when the time of day is set.
void guiMovie::waitForFrame(std::chrono::steady_clock::time_point end)
{
    std::unique_lock<std::mutex> guard(m_wakeLock);
    m_wake.wait_until(guard, end, [this] { return std::exchange(m_isWoken, false); });
}

void guiMovie::waitUntilWoken()
{
    std::unique_lock<std::mutex> guard(m_wakeLock);
    m_wake.wait(guard, [this] { return std::exchange(m_isWoken, false); });
}

void guiMovie::wakePlayer()
{
    {
        std::lock_guard<std::mutex> const guard(m_wakeLock);
        m_isWoken = true;
    }
    m_wake.notify_one();
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
    using clock = std::chrono::steady_clock;
    constexpr unsigned kShortestFrame = 1; // milliseconds, so that frames without a duration leave the processor alone
    m_player.claim();
    clock::time_point end = clock::now();
    while (m_isPlaying && showNext()) {
        assert(m_next >= 1 && m_next <= m_video->frames.size());
        std::chrono::milliseconds const duration(std::max(m_video->frames[m_next - 1].duration, kShortestFrame));
        end = std::max(end + duration, clock::now()); // a wait that is too long is made up for by the next one
        seeFrame(end);
    }
    m_isPlaying = false;
    if (hasVideo())
        tellSound(&guiSound::stop);
    notifyStopped();
    m_player.release();
}

/// Until the frame has been seen for its time, which does not pass while the movie is paused.
void guiMovie::seeFrame(std::chrono::steady_clock::time_point& end)
{
    using clock = std::chrono::steady_clock;
    while (m_isPlaying && clock::now() < end) {
        if (!m_isPaused) {
            waitForFrame(end);
            continue;
        }
        clock::duration const left = end - clock::now();
        waitUntilWoken();
        end = clock::now() + left;
    }
}

/// Hands the next frame over; false when there is none left, or none at all. The sound begins with the first one.
bool guiMovie::showNext()
{
    if (m_next == 0)
        tellSound(&guiSound::play);
    if (m_next >= m_video->frames.size()) {
        if (!m_isLooping || !hasVideo())
            return false;
        m_next = 0;
        tellSound(&guiSound::play);
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
