// page/guisavedpainter.h: what a block changes of a painter's state is undone at its end.
#pragma once

#include <QPainter>

class guiSavedPainter
{
public:
    explicit guiSavedPainter(QPainter& painter) : m_painter(painter) { m_painter.save(); }
    ~guiSavedPainter() { m_painter.restore(); }
    guiSavedPainter(guiSavedPainter const&) = delete;
    guiSavedPainter& operator=(guiSavedPainter const&) = delete;

private:
    QPainter& m_painter;
};
