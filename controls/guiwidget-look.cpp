// controls/guiwidget-look.cpp: how a window's page follows the desktop's colours and font, and how the user zooms it.
#include "controls/guieventscope.h"
#include "controls/guiwidget.h"
#include "page/guiinks.h"
#include "page/guipageroot.h"
#include "page/guizoom.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWheelEvent>
#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <optional>

namespace {

constexpr unsigned kSteps[] = {50, 67, 80, 90, 100, 110, 125, 150, 175, 200, 250, 300};

/// The next larger (1) or smaller (-1) zoom, in percent.
unsigned nextZoom(unsigned from, int step)
{
    if (step > 0) {
        auto const* const found = std::upper_bound(std::begin(kSteps), std::end(kSteps), from);
        return found == std::end(kSteps) ? *std::prev(found) : *found;
    }
    auto const* const found = std::lower_bound(std::begin(kSteps), std::end(kSteps), from);
    return found == std::begin(kSteps) ? *found : *std::prev(found);
}

/// The zoom that a key asks for; none for all other keys. On many keyboards plus is the same key as "=".
std::optional<unsigned> zoomFor(QKeyEvent const& event, unsigned from)
{
    Qt::KeyboardModifiers const modifiers = event.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
    if (modifiers != Qt::ControlModifier)
        return std::nullopt;
    switch (event.key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        return nextZoom(from, 1);
    case Qt::Key_Minus:
    case Qt::Key_Underscore:
        return nextZoom(from, -1);
    case Qt::Key_0:
        return kUnzoomed;
    default:
        return std::nullopt;
    }
}

} // namespace

bool guiWidget::zoomByKey(QKeyEvent const& event)
{
    guiPageRoot* const page = livePage();
    std::optional<unsigned> const wanted = page ? zoomFor(event, page->getZoom()) : std::nullopt;
    if (wanted)
        guiZoomPage(*page, *wanted);
    return wanted.has_value();
}

/// A notch of the wheel is a step; what turns more finely is added up.
bool guiWidget::zoomByWheel(QWheelEvent const& event)
{
    constexpr int kNotch = 120;
    if (event.modifiers() != Qt::ControlModifier || !livePage())
        return false;
    int const turned = event.angleDelta().y();
    if ((turned < 0) != (m_zoomTurn < 0))
        m_zoomTurn = 0;
    m_zoomTurn += turned;
    if (std::abs(m_zoomTurn) >= kNotch) {
        int const step = m_zoomTurn > 0 ? 1 : -1;
        m_zoomTurn = 0;
        guiZoomPage(*livePage(), nextZoom(livePage()->getZoom(), step));
    }
    return true;
}

// The toolkit tells every widget in turn, and several times: what is to be done is done once, afterwards.
void guiWidget::noteLook(QEvent const& event)
{
    QEvent::Type const type = event.type();
    bool const isLook = type == QEvent::PaletteChange || type == QEvent::ApplicationPaletteChange ||
                        type == QEvent::FontChange || type == QEvent::ApplicationFontChange;
    if (!isLook || m_isLookStale)
        return;
    m_isLookStale = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            assertOnGuiThread();
            followDesktop();
        },
        Qt::QueuedConnection);
}

void guiWidget::followDesktop()
{
    guiEventScope scope;
    m_isLookStale = false;
    guiForgetDesktopColors();
    QFont const font = QApplication::font();
    bool const isOtherFont = font != m_desktopFont;
    m_desktopFont = font;
    if (livePage() && isOtherFont)
        guiRefreshLook(*livePage());
    update();
}
