// controls/guihtmlcustom-paint.cpp: how a custom element shows what its instance has drawn. Painting never waits for
// script: it replays the last drawing and asks for a new one when that is out of date; the element is painted again
// when the new one has come. While one is on its way, further requests wait for it, and a new one is asked for at most
// once a frame, so that a component which asks all the time does not keep both threads busy.
#include "controls/guihtmlcustom.h"
#include "controls/guiscriptvalue.h"
#include "controls/guitoolkit.h"
#include "foundation/vela-threadrole.h"
#include "page/guionpaper.h"
#include "page/guiqrect.h"
#include "page/guisavedpainter.h"

#include <QPainter>
#include <QRegion>
#include <QTimer>
#include <QWidget>
#include <algorithm>
#include <utility>

namespace {

constexpr std::chrono::milliseconds kFrame{16};

/// Has the instance draw. Script thread.
std::shared_ptr<guiDrawing> record(ScriptObject* instance, ScriptObject* toolkit, guiExtent const& size)
{
    guiRect rect{0, size.width, 0, size.height};
    OpenToolkit(toolkit, nullptr, nullptr, nullptr, &rect);
    guiControlHost::current().callHandlerHere(instance, "ePaint");
    return CloseToolkit(toolkit);
}

} // namespace

guiExtent guiHtmlCustom::innerSize() const
{
    return {std::max(0, m.rect.width - 2 * m.border), std::max(0, m.rect.height - 2 * m.border)};
}

bool guiHtmlCustom::isInView()
{
    QWidget* widget = getTopLevelWidget();
    guiRect clip;
    getClipRect(&clip);
    return widget && widget->isVisible() && !clip.isEmpty();
}

void guiHtmlCustom::invalidate(guiRect* rect)
{
    assertOnGuiThread();
    m_painting.isStale = true;
    if (rect)
        m_painting.part = guiUnited(m_painting.part, *rect);
    else
        m_painting.isWhole = true;
    if (isInView())
        askDrawing();
}

void guiHtmlCustom::askFirstDrawing()
{
    guiRect clip;
    getClipRect(&clip);
    if (!clip.isEmpty())
        askDrawing();
}

/// Whether the last drawing is too new for another; then one is asked for when it no longer is.
bool guiHtmlCustom::isAskedTooSoon()
{
    auto const age = std::chrono::steady_clock::now() - m_painting.lastAsked;
    if (age >= kFrame)
        return false;
    if (std::exchange(m_painting.isTimed, true))
        return true;
    auto const rest = std::chrono::ceil<std::chrono::milliseconds>(kFrame - age);
    QTimer::singleShot(rest, Qt::PreciseTimer, [link = m_link] {
        guiHtmlCustom* node = link->node();
        if (!node)
            return;
        node->m_painting.isTimed = false;
        if (node->isInView())
            node->askDrawing();
    });
    return true;
}

void guiHtmlCustom::askDrawing()
{
    guiExtent const size = innerSize();
    bool const isWanted = m_painting.isStale && !m_painting.isAsked && m_hasInstance && m_toolkit;
    if (!isWanted || size.width == 0 || size.height == 0 || !m.object.load()->hasMethod(sstring("ePaint")))
        return;
    if (m_painting.shown && isAskedTooSoon())
        return;
    sendRequest(size);
}

void guiHtmlCustom::sendRequest(guiExtent const& size)
{
    m_painting.isStale = false;
    m_painting.isAsked = true;
    m_painting.lastAsked = std::chrono::steady_clock::now();
    onCallback();
    auto result = std::make_shared<std::shared_ptr<guiDrawing>>();
    guiControlHost& host = guiControlHost::current();
    host.postToScript(
        this,
        [instance = guiKept(m.object), toolkit = guiKept(m_toolkit), size, result] {
            *result = record(instance.get(), toolkit.get(), size);
        },
        [link = m_link, result, &host] {
            host.postToGui([link, result] {
                if (guiHtmlCustom* node = link->node())
                    node->takeDrawing(std::move(*result));
            });
        });
}

void guiHtmlCustom::takeDrawing(std::shared_ptr<guiDrawing> drawing)
{
    assertOnGuiThread();
    m_painting.isAsked = false;
    if (!drawing)
        return;
    drawing->takeImages();
    bool const isWhole =
        std::exchange(m_painting.isWhole, false) || !m_painting.shown || m_painting.shown->size() != drawing->size();
    guiRect const part = std::exchange(m_painting.part, guiRect());
    guiExtent const size = innerSize();
    m_painting.isStale |= drawing->size() != size;
    m_painting.shown = std::move(drawing);
    updatePart(isWhole ? guiRect{0, size.width, 0, size.height} : part);
    if (m_painting.isStale && isInView())
        askDrawing();
}

/// `part`: relative to the inner corner.
void guiHtmlCustom::updatePart(guiRect const& part)
{
    QWidget* widget = getTopLevelWidget();
    if (!widget)
        return;
    guiRect place;
    guiRect clip;
    getRectInWidget(&place);
    getClipRect(&clip);
    QRect const area = guiToQRect(part).translated(place.left + m.border, place.top + m.border) & guiToQRect(clip);
    if (!area.isEmpty())
        widget->update(area);
}

/// The last drawing, as it was made for the window: in the width that the element has on paper, if that is less.
void guiHtmlCustom::paintOnPaper(QPainter& painter, QRect const& inner)
{
    if (!m_painting.shown || m_painting.shown->size().width < 1)
        return;
    guiSavedPainter const saved(painter);
    double const scale = std::min(1.0, inner.width() / static_cast<double>(m_painting.shown->size().width));
    painter.translate(inner.topLeft());
    painter.scale(scale, scale);
    m_painting.shown->paintTo(painter, this, 0, 0);
}

void guiHtmlCustom::paintChildrenTo(QPainter* painter, int x, int y, guiWidget*, QRegion const* region)
{
    assertOnGuiThread();
    guiExtent const size = innerSize();
    if (guiOnPaper::isActive()) {
        guiSavedPainter const saved(*painter);
        QRect const inner(x + m.border, y + m.border, size.width, size.height);
        painter->setClipRegion(region ? region->intersected(inner) : QRegion(inner));
        paintOnPaper(*painter, inner);
        return;
    }
    if (m_painting.shown && m_painting.shown->size() != size)
        m_painting.isStale = true;
    QRect const inner(x + m.border, y + m.border, size.width, size.height);
    {
        guiSavedPainter const saved(*painter);
        if (region)
            painter->setClipRegion(*region);
        painter->setClipRect(inner, Qt::IntersectClip);
        if (m_painting.shown)
            m_painting.shown->paintTo(*painter, this, inner.left(), inner.top());
    }
    if (QWidget* window = getTopLevelWidget(); window && window->isVisible())
        askDrawing();
}
