// controls/guianimation.h: a picture file with several frames, such as an animated GIF.
#pragma once

#include "controls/guipicturefile.h"
#include "controls/guipicturememory.h"

#include <QBuffer>
#include <QImageReader>
#include <QPixmap>
#include <QTimer>
#include <memory>
#include <set>

class guiHtml;
class ScriptObject;

/// One clock for all nodes that show the file, which show the same frame. The clock runs only while one of them is
/// painted: a frame that nobody sees is not decoded. GUI thread.
class guiAnimation
{
public:
    /// The animation of a file, shared with those who show it already; null, after a log line, when there is no memory
    /// left for it, or without a line when it can not be read any more.
    static std::shared_ptr<guiAnimation> open(ScriptObject* owner, sstring const& name);

    ~guiAnimation();
    guiAnimation(guiAnimation const&) = delete;
    guiAnimation& operator=(guiAnimation const&) = delete;

    QPixmap const& frame() const { return m_frame; }
    /// The node has been painted with this frame, and is repainted when the next one is due, if it lives then.
    void shownBy(guiHtml* node);

private:
    guiAnimation() = default;
    bool start(guiPictureFile& file, sstring const& name);
    void rewind();
    bool readFrame();
    void showNext();

    QByteArray m_bytes; // of the file
    guiPictureMemory m_memory;
    std::unique_ptr<QBuffer> m_buffer;      // reads m_bytes
    std::unique_ptr<QImageReader> m_reader; // reads m_buffer
    QPixmap m_frame;
    int m_roundsLeft = 0; // -1: without end
    bool m_isOver = false;
    std::set<guiHtml*> m_nodes; // not owned, may be gone; painted since the last frame
    QTimer m_timer;             // until the next frame
};
