// controls/guianimation.cpp: see guianimation.h.
#include "controls/guianimation.h"

#include "controls/guipicturereader.h"
#include "foundation/vela-log.h"
#include "foundation/vela-threadrole.h"
#include "page/guihtml.h"

#include <map>
#include <utility>

namespace {

/// Files often ask for no pause at all and mean what others made of it.
constexpr int kShortestPause = 20; // milliseconds
constexpr int kUsualPause = 100;   //
constexpr int kFramesAtOnce = 2;   // in memory: what the reader draws on, and what is shown

std::map<guiFileState, std::weak_ptr<guiAnimation>>& shownAnimations()
{
    static std::map<guiFileState, std::weak_ptr<guiAnimation>> animations;
    return animations;
}

} // namespace

std::shared_ptr<guiAnimation> guiAnimation::open(ScriptObject* owner, sstring const& name)
{
    assertOnGuiThread();
    guiPictureFile file(owner, name);
    std::erase_if(shownAnimations(), [](auto const& each) { return each.second.expired(); });
    if (auto const found = shownAnimations().find(file.state()); found != shownAnimations().end())
        return found->second.lock();
    std::shared_ptr<guiAnimation> animation(new guiAnimation);
    if (!file.exists() || !animation->start(file, name))
        return nullptr;
    shownAnimations()[file.state()] = animation;
    return animation;
}

guiAnimation::~guiAnimation() { assertOnGuiThread(); }

bool guiAnimation::start(guiPictureFile& file, sstring const& name)
{
    QByteArray bytes;
    if (!file.read(bytes))
        return false;
    m_bytes = QByteArray(bytes.constData(), bytes.size()); // the file's are the host's
    guiPictureReader const reader(m_bytes);
    if (!m_memory.take(m_bytes.size() + kFramesAtOnce * guiPictureReader::bytesOf(reader.kind().size))) {
        velaLog("guiAnimation::open() - image %s stands still; no memory is left for pictures\n",
                velaPrintable(name).c_str());
        return false;
    }
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&m_timer, &QTimer::timeout, [this] { showNext(); });
    rewind();
    if (!readFrame())
        return false;
    m_roundsLeft = m_reader->loopCount();
    return true;
}

void guiAnimation::rewind()
{
    m_reader.reset();
    m_buffer = std::make_unique<QBuffer>(&m_bytes);
    m_buffer->open(QIODevice::ReadOnly);
    m_reader = std::make_unique<QImageReader>(m_buffer.get());
}

bool guiAnimation::readFrame()
{
    QPixmap frame = QPixmap::fromImageReader(m_reader.get());
    if (frame.isNull())
        return false;
    m_frame = std::move(frame);
    return true;
}

void guiAnimation::shownBy(guiHtml* node)
{
    if (m_isOver)
        return;
    m_nodes.insert(node);
    if (m_timer.isActive())
        return;
    int const pause = m_reader->nextImageDelay();
    m_timer.start(pause < kShortestPause ? kUsualPause : pause);
}

void guiAnimation::showNext()
{
    if (!readFrame()) {
        m_isOver = m_roundsLeft == 0;
        if (m_isOver)
            return;
        if (m_roundsLeft > 0)
            --m_roundsLeft;
        rewind();
        m_isOver = !readFrame(); // the file's first frame was good before
    }
    for (guiHtml* node : std::exchange(m_nodes, {}))
        if (guiHtml::isRegistered(node))
            node->update();
}
