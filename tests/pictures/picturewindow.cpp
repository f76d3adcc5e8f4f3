// tests/pictures/picturewindow.cpp: see picturewindow.h.
#include "tests/pictures/picturewindow.h"

#include "controls/guiwidget.h"
#include "runtime/gui.h"
#include "runtime/guihtmlbase.h"
#include "runtime/guithread.h"
#include "script/guiwindow.h"

#include <QApplication>
#include <QCursor>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <QScreen>
#include <QScrollBar>
#include <QWindow>
#include <stdexcept>

namespace {

std::function<void(guiHtmlBase&)> const* theWork;

void doTheWork(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs&, ScriptValue&)
{
    if (guiHtmlBase* root = GetWindow(guiWindow_getData(data)))
        (*theWork)(*root);
}

guiHtml* nodeNamed(guiHtmlBase& root, std::string const& name)
{
    guiHtml* node = name.empty() ? &root : root.getNamed(sstring(name.c_str()));
    if (!node)
        throw std::runtime_error("the page has no node named " + name);
    return node;
}

bool isOnScreen() { return QGuiApplication::platformName() == QLatin1String("xcb"); }

/// Where no window is: the last pixel of the screen. Windows stand at its other end.
void putPointerAway(guiWidget* widget)
{
    QRect screen = widget->screen()->geometry();
    if (isOnScreen())
        QCursor::setPos(screen.bottomRight());
    widget->move(screen.topLeft() + QPoint(20, 20));
}

/// A window manager puts a window into a frame and gives it the focus; until then it may still move it, or hide it.
bool isManaged(guiWidget* widget)
{
    return !isOnScreen() || (widget->isActiveWindow() && widget->windowHandle()->frameMargins().top() > 0);
}

bool isShown(guiHtmlBase& root)
{
    guiWidget* widget = root.getWidget();
    QWindow* window = widget ? widget->windowHandle() : nullptr;
    QSize wanted(root.getDefaultWidth(), root.getDefaultHeight());
    return window && window->isExposed() && widget->size() == wanted && window->size() == wanted && isManaged(widget);
}

QImage inPixels(QPixmap const& picture)
{
    QImage image = picture.toImage().convertToFormat(QImage::Format_RGB32);
    image.setDevicePixelRatio(1);
    return image;
}

/// What the X server has of the window. The off-screen platform's own copy loses pixels at scale 2, so there the window
/// paints into the picture.
QPixmap seenOf(guiWidget* widget)
{
    return isOnScreen() ? widget->screen()->grabWindow(widget->winId()) : widget->grab();
}

/// No page asks for this by itself, so it is painted over the picture.
void paintHighlight(guiHtmlBase& root, std::string const& name, QPixmap& picture)
{
    guiHtml* node = nodeNamed(root, name);
    guiRect rect;
    node->getRectInWidget(&rect);
    QPainter painter(&picture);
    node->paintBorder(&painter, &rect, 1);
}

} // namespace

PictureWindow::PictureWindow(NativeHost& host, std::string const& page) : m_host(host), m_window(host.window(page))
{
    m_window.on("onPress", [](NativeWindow&, NativeArguments const&) {});
    if (!m_window.open())
        throw std::runtime_error("can not open " + page);
    onGuiThread([](guiHtmlBase& root) { putPointerAway(root.getWidget()); });
    waitUntilShown();
}

PictureWindow::~PictureWindow() { m_window.close(); }

void PictureWindow::waitUntilShown()
{
    bool isReady = false;
    auto ask = [&] {
        onGuiThread([&](guiHtmlBase& root) { isReady = isShown(root); });
        return isReady;
    };
    if (!m_host.serveUntil(ask, std::chrono::seconds(20)))
        throw std::runtime_error("the window does not appear in its size");
}

void PictureWindow::onGuiThread(std::function<void(guiHtmlBase&)> const& work)
{
    std::string fault;
    std::function<void(guiHtmlBase&)> guarded = [&](guiHtmlBase& root) {
        try {
            work(root);
        } catch (std::exception const& error) {
            fault = error.what();
        }
    };
    theWork = &guarded;
    NativeArguments none;
    NativeValue result;
    NativeObject& object = *m_window.object();
    pGUI->getThread()->callFunction(doTheWork, pGUI->getManager(), object.getPrivate(), &object, none, result);
    if (!fault.empty())
        throw std::runtime_error(fault);
}

/// Mouse moves that arrive while the component does something are dropped, so this one waits in the queue.
void PictureWindow::postMouse(int type, int x, int y)
{
    onGuiThread([=](guiHtmlBase& root) {
        guiWidget* widget = root.getWidget();
        QPointF at(x, y);
        Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        auto* event = new QMouseEvent(static_cast<QEvent::Type>(type), at, widget->mapToGlobal(at), button, button,
                                      Qt::NoModifier);
        QCoreApplication::postEvent(widget, event);
    });
}

void PictureWindow::pointAt(int x, int y) { postMouse(QEvent::MouseMove, x, y); }

void PictureWindow::press(int x, int y)
{
    pointAt(x, y);
    postMouse(QEvent::MouseButtonPress, x, y);
}

void PictureWindow::disable(std::string const& name)
{
    onGuiThread([&](guiHtmlBase& root) { nodeNamed(root, name)->setEnabled(0); });
}

void PictureWindow::scroll(std::string const& name, int x, int y)
{
    onGuiThread([&](guiHtmlBase& root) {
        guiHtml::scroll_t const& scroll = nodeNamed(root, name)->getScroll();
        if (scroll.barX)
            scroll.barX->setValue(x);
        if (scroll.barY)
            scroll.barY->setValue(y);
    });
}

void PictureWindow::resize(int width, int height)
{
    m_window.setDefaultSize(width, height);
    waitUntilShown();
}

// The server, the window manager and repaints that were asked for take their time. What is on the screen in the end
// came there piece by piece, by scrolling and repainting what had changed, and must be what painting everything gives.
QImage PictureWindow::take()
{
    QImage seen;
    bool isUpToDate = false;
    auto look = [&] {
        onGuiThread([&](guiHtmlBase& root) {
            QPixmap picture = seenOf(root.getWidget());
            isUpToDate = inPixels(picture) == inPixels(root.getWidget()->grab());
            if (!m_highlighted.empty())
                paintHighlight(root, m_highlighted, picture);
            seen = inPixels(picture);
        });
        return isUpToDate;
    };
    m_host.serveUntil(look, std::chrono::seconds(5));
    return seen;
}
