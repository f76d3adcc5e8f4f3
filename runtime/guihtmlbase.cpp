// runtime/guihtmlbase.cpp: the page root: its window, and what script asks of it.
#include "runtime/guihtmlbase.h"

#include "controls/guinodeicon.h"
#include "controls/guipagelistener.h"
#include "controls/guiwidget.h"
#include "foundation/threading.h"
#include "foundation/vela-qt.h"
#include "page/guihtmlsize.h"
#include "page/guihtmltext-fonts.h"
#include "page/guilaterevents.h"
#include "page/guinodewatch.h"
#include "page/guipagefile.h"
#include "page/guirareattributes.h"
#include "runtime/gui.h"
#include "runtime/guicallback.h"
#include "runtime/guicloserequest.h"
#include "runtime/guielements.h"
#include "runtime/guipagewatcher.h"
#include "runtime/guipromises.h"
#include "runtime/guithread.h"

#include <QApplication>
#include <QButtonGroup>
#include <QFontInfo>
#include <QMenuBar>
#include <QWindow>
#include <algorithm>
#include <cassert>

namespace {

/// The default size that a pair of limits suggests; `fallback` without limits.
int middleOf(int minimum, int maximum, int fallback)
{
    if (minimum != 0 && maximum != 0)
        return minimum + (maximum - minimum) / 2;
    if (minimum != 0)
        return minimum;
    return maximum != 0 ? maximum : fallback;
}

/// Limits a size in pixels to what a window can have. The limit is larger than any screen, and keeps the pixels of a
/// page that asks for more within 256 MiB.
int inRange(int size)
{
    constexpr int kLargestWindow = 8192;
    return std::clamp(size, 1, kLargestWindow);
}

void storeNonZero(int& target, int value)
{
    if (value != 0)
        target = value;
}

/// What the style bits ask of the window manager, for a window that can be resized.
Qt::WindowFlags flagsFromStyle(unsigned style)
{
    Qt::WindowFlags flags = Qt::Window | Qt::CustomizeWindowHint;
    if (style & guiStyleMinimize)
        flags |= Qt::WindowMinimizeButtonHint;
    if (style & guiStyleMaximize)
        flags |= Qt::WindowMaximizeButtonHint;
    constexpr unsigned kNeedsSystemMenu =
        guiStyleMinimize | guiStyleMaximize | guiStyleSystemMenu | guiStyleSystemMenuOnly;
    if (style & kNeedsSystemMenu)
        flags |= Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
    if (style & guiStyleContextHelp)
        flags |= Qt::WindowContextHelpButtonHint;
    if (style & guiStyleStaysOnTop)
        flags |= Qt::WindowStaysOnTopHint;
    if ((flags & Qt::WindowSystemMenuHint) || (style & guiStyleTitle))
        flags |= Qt::WindowTitleHint;
    return flags;
}

/// A window of one size has a dialog frame and no buttons that would change the size.
Qt::WindowFlags fixedFrame(Qt::WindowFlags flags)
{
    flags &= ~(Qt::WindowMinimizeButtonHint | Qt::WindowMaximizeButtonHint);
    return flags | Qt::MSWindowsFixedSizeDialogHint;
}

} // namespace

guiHtmlBase::guiHtmlBase(ScriptObject* page, ScriptPrivate* data, ScriptObject* form, sstring const& path)
    : m_page(page), m_pagePrivate(data), m_form(form)
{
    setString(kStringFile, path);
    if (!m_page)
        return;
    m_engine = m_page->getEngine();
    m_returnCode = m_engine->makeValue();
}

guiHtmlBase::~guiHtmlBase()
{
    shutdownWait();
    if (pGUI && pGUI->getThread()->isGuiThread())
        forgetPromises(true);
    m_groups.clear();
    if (m_returnCode)
        m_engine->releaseValue(m_returnCode);
    destroyChildren(); // while this is still the root that they ask for
}

void guiHtmlBase::release(guiHtmlBase* root)
{
    assertOnGuiThread();
    if (!root)
        return;
    guiNodeWatch live(root);
    if (guiWidget* widget = root->getWidget()) {
        guiLaterEvents later; // script's object is going already, so no handler may run
        widget->refresh();
    }
    guiElements_drop(root);
    root->destroyWidget();
    if (!live.alive())
        return;
    root->m_isReleased = true;
    if (guiPageWatcher* watcher = guiPageWatcher::current())
        watcher->onWindowGone(root->m_page);
    root->m_page = nullptr;
    root->m_pagePrivate = nullptr;
    root->m_form = nullptr;
    assert(!root->getWidget());
    if (!root->isCalling())
        delete root;
}

bool guiHtmlBase::isCalling() const
{
    pGUI->enter();
    bool isCalling = m_shutdownCount != 0;
    pGUI->leave();
    return isCalling;
}

void guiHtmlBase::loadFormValues(guiHtml* node)
{
    assertOnGuiThread();
    if (guiPageWatcher* watcher = guiPageWatcher::current())
        watcher->onContent(*this, node);
    formValues().load(node);
}

void guiHtmlBase::startElements(guiHtml* node)
{
    guiCurrentPageListener().onNewContent(node);
    guiElements_start(*this, node);
}

void guiHtmlBase::endElements(guiHtml* node) { guiElements_end(node); }

/// The widget, for a caller that uses it: only the GUI thread may, while there is one.
guiWidget* guiHtmlBase::widgetToUse() const
{
    guiWidget* widget = getWidget();
    if (widget)
        assertOnGuiThread();
    return widget;
}

namespace {

/// Has the desktop keep the window above the one that it blocks, and place it there: on Wayland only the compositor
/// can.
void standOver(QWidget& window, QWidget const& below)
{
    window.winId(); // has the window made, which knows what it belongs to before it is shown
    if (QWindow* const handle = window.windowHandle())
        handle->setTransientParent(below.windowHandle());
}

} // namespace

guiWidget* guiHtmlBase::createWidget(int modal)
{
    assertOnGuiThread();
    if (guiWidget* existing = getWidget())
        return existing;
    QWidget const* const below = modal != 0 ? QApplication::activeWindow() : nullptr;
    bool const isModal = below != nullptr;
    Qt::WindowFlags flags = flagsFromStyle(m_style);
    if (isModal)
        flags |= Qt::Dialog;
    bool hasOneSize = m_minimumWidth != 0 && m_minimumWidth == m_maximumWidth && m_minimumHeight != 0 &&
                      m_minimumHeight == m_maximumHeight;
    if ((m_style & guiStyleDialogBorder) || hasOneSize)
        flags = fixedFrame(flags);

    auto* widget = new guiWidget(nullptr, "Tarn Components", isModal, flags);
    widget->htmlBase = this;
    widget->setFocusPolicy(Qt::TabFocus); // a click beside a control leaves the keyboard where it is
    m_widget.store(widget, std::memory_order_release);
    if (pGUI)
        pGUI->onOpen(widget, this);
    updateLayout(0);
    applyLimits(widget);
    widget->resize(inRange(getDefaultWidth()), inRange(getDefaultHeight()));
    showIcon();
    if (below)
        standOver(*widget, *below);
    if (guiPageWatcher* watcher = guiPageWatcher::current())
        watcher->onOpen(*this, *widget);
    return widget;
}

void guiHtmlBase::destroyWidget()
{
    guiWidget* widget = widgetToUse();
    if (!widget)
        return;
    guiNodeWatch self(this);
    widget->refresh(); // tells the node under the pointer that it is left, while the page is still whole
    if (!self.alive() || getWidget() != widget)
        return;
    formValues().store(); // while the controls still know what was typed into them
    if (!self.alive() || getWidget() != widget)
        return;
    endElements(this);
    if (!self.alive() || getWidget() != widget)
        return;
    destroyChildWidget();
    assert(getWidget() == widget);
    m_widget.store(nullptr, std::memory_order_release);
    forgetPageText();
    m_findBar.clear();
    m_problemStrip.clear();
    guiLayoutRun::startAnew(); // controls take no room in a page without a window
    widget->deleteWhenSafe();  // at the end of the paint if one is going on; tells the component
    forgetPromises(true);
    guiCallback_postNullEvent();
}

bool guiHtmlBase::mayClose()
{
    assertOnGuiThread();
    return guiCloseRequest_ask(*this);
}

void guiHtmlBase::forgetPromises(bool withWindow)
{
    assertOnGuiThread();
    guiPromises_forget(*this, withWindow);
}

void guiHtmlBase::setTitle(sstring const& title)
{
    m_title = title;
    if (guiWidget* widget = widgetToUse())
        widget->setWindowTitle(sstoq(title));
}

sstring guiHtmlBase::getTitle() const { return m_title; }

void guiHtmlBase::setIcon(sstring const& file)
{
    m_icon = file;
    showIcon();
}

void guiHtmlBase::showIcon()
{
    constexpr int kIconSize = 64;
    guiWidget* widget = widgetToUse();
    guiPictureRef picture;
    sstring const file = m_icon ? *m_icon : guiRareAttributeOf(this, guiRareAttribute::kIcon);
    if (widget)
        widget->setWindowIcon(guiIconOfNode(this, file, kIconSize, picture));
}

void guiHtmlBase::setMinimumSize(int width, int height)
{
    storeNonZero(m_minimumWidth, width);
    storeNonZero(m_minimumHeight, height);
    if (guiWidget* widget = widgetToUse())
        applyLimits(widget);
}

void guiHtmlBase::setMaximumSize(int width, int height)
{
    storeNonZero(m_maximumWidth, width);
    storeNonZero(m_maximumHeight, height);
    if (guiWidget* widget = widgetToUse())
        applyLimits(widget);
}

void guiHtmlBase::applyLimits(QWidget* widget) const
{
    if (m_minimumWidth != 0)
        widget->setMinimumWidth(inRange(m_minimumWidth));
    if (m_maximumWidth != 0)
        widget->setMaximumWidth(inRange(m_maximumWidth));
    if (m_minimumHeight != 0)
        widget->setMinimumHeight(inRange(m_minimumHeight));
    if (m_maximumHeight != 0)
        widget->setMaximumHeight(inRange(m_maximumHeight));
}

void guiHtmlBase::setDefaultSize(int width, int height)
{
    storeNonZero(m_defaultWidth, width);
    storeNonZero(m_defaultHeight, height);
    if (guiWidget* widget = widgetToUse())
        widget->resize(inRange(getDefaultWidth()), inRange(getDefaultHeight()));
}

void guiHtmlBase::setResizable(int resizable)
{
    if (m_defaultWidth == 0)
        m_defaultWidth = middleOf(m_minimumWidth, m_maximumWidth, kDefaultWidth);
    if (m_defaultHeight == 0)
        m_defaultHeight = middleOf(m_minimumHeight, m_maximumHeight, kDefaultHeight);
    if (resizable != 0)
        return;
    setMinimumSize(m_defaultWidth, m_defaultHeight);
    setMaximumSize(m_defaultWidth, m_defaultHeight);
}

sstring guiHtmlBase::getFocus()
{
    guiWidget* widget = widgetToUse();
    std::optional<guiLinkPlace> const link = widget ? widget->currentLink().get() : std::nullopt;
    if (link)
        return link->node->getName();
    QWidget* focused = widget ? widget->focusWidget() : nullptr;
    guiHtml* node = focused ? findWidget(focused) : nullptr;
    return node ? node->getName() : sstring();
}

void guiHtmlBase::setFocus(sstring name)
{
    m_pendingFocus = name;
    if (!getTopLevelWidget())
        return;
    assertOnGuiThread();
    guiNodeWatch const node(name.getLength() != 0 ? getNamed(name) : nullptr);
    guiNodeWatch const self(this);
    guiReveal(node.get());
    if (node.alive() && node.get()->awaitsWidget())
        node.get()->createChildWidget();
    QWidget* control = node.alive() ? node.get()->getChildWidget() : nullptr;
    if (!control || !self.alive())
        return;
    control->setFocus();
    m_pendingFocus = sstring();
}

// The control that Enter triggers looks as such.
void guiHtmlBase::setEnterControl(sstring const& name)
{
    sstring const before = std::exchange(m_enterControl, name);
    for (sstring each : {before, name})
        if (guiHtml* node = each.getLength() != 0 ? getNamed(each) : nullptr; node && node->getChildWidget())
            node->getChildWidget()->update();
}

void guiHtmlBase::setReturnCode(ScriptValue& value)
{
    if (m_returnCode)
        *m_returnCode = value;
}

void guiHtmlBase::addToGroup(QAbstractButton* button, sstring const& group)
{
    assertOnGuiThread();
    assert(button);
    istring wanted(group);
    auto found =
        std::find_if(m_groups.begin(), m_groups.end(), [&](auto const& known) { return wanted == known.first; });
    if (found == m_groups.end()) {
        m_groups.emplace_back(group, std::make_unique<QButtonGroup>());
        found = std::prev(m_groups.end());
    }
    found->second->addButton(button);
}

int guiHtmlBase::getMenuHeight()
{
    assertOnGuiThread();
    return m_menuBar ? m_menuBar->sizeHint().height() : 0;
}

void guiHtmlBase::setMenuBar(QMenuBar* bar)
{
    assertOnGuiThread();
    m_menuBar = bar;
}

QMenuBar* guiHtmlBase::getMenuBar() const { return m_menuBar; }

void guiHtmlBase::setStatusBar(QWidget* bar)
{
    assertOnGuiThread();
    m_statusBar = bar;
}

QWidget* guiHtmlBase::getStatusBar() const { return m_statusBar; }

void guiHtmlBase::setFindBar(QWidget* bar)
{
    assertOnGuiThread();
    m_findBar = bar;
}

void guiHtmlBase::setProblemStrip(QWidget* strip)
{
    assertOnGuiThread();
    m_problemStrip = strip;
}

int guiHtmlBase::getStatusHeight()
{
    int height = 0;
    for (QWidget const* each : {m_statusBar.data(), m_findBar.data(), m_problemStrip.data()})
        height += each ? each->sizeHint().height() : 0;
    return height;
}

QFont guiHtmlBase::getDefaultFont(int* points)
{
    if (getParent())
        return guiHtml::getDefaultFont(points);
    return guiPageFont(this, points);
}

void guiHtmlBase::shutdownEnter()
{
    if (!pGUI)
        return;
    pGUI->enter();
    pGUI->shutdownEnter();
    ++m_shutdownCount;
    pGUI->leave();
}

void guiHtmlBase::shutdownLeave()
{
    if (!pGUI)
        return;
    pGUI->enter();
    assert(pGUI->hasCallsInFlight(m_shutdownCount)); // each call for a page is one for the component
    if (m_shutdownCount != 0)
        --m_shutdownCount;
    if (m_shutdownCount == 0 && m_isReleased)
        pGUI->getThread()->postRelease(this); // not here: the caller is still inside this page
    pGUI->shutdownLeave();
    pGUI->leave();
}

void guiHtmlBase::shutdownWait()
{
    constexpr unsigned kPollMs = 200;
    if (!pGUI)
        return;
    assert(!pGUI->holdsLock()); // the end of a call takes it
    pGUI->enter();
    while (m_shutdownCount != 0) {
        pGUI->leave();
        // The call may need the script thread, so that thread runs script work instead of sleeping.
        ScriptPump* pump = pGUI->getThread()->isScriptThread() ? pGUI->getPump() : nullptr;
        if (pump)
            pump->step();
        else
            millisleep(kPollMs);
        pGUI->enter();
    }
    pGUI->leave();
}

// A name that is only a bookmark keeps the page.
int guiHtmlBase::loadFile(sstring file)
{
    guiNodeWatch self(this);
    bool const isPage = file.getLength() != 0 && file[0] != '#';
    if (isPage)
        forgetPromises(false);
    int const result = guiHtml::loadFile(file);
    if (isPage && self.alive())
        m_hasPage = result != 0;
    return result;
}

int guiHtmlBase::setText(sstring const& content, sstring const& directory)
{
    assertOnGuiThread();
    guiNodeWatch self(this);
    guiPageWatcher* const watcher = guiPageWatcher::current();
    if (watcher)
        watcher->onText(*this, guiPageOrigin::isSet() ? std::nullopt : std::optional(content), directory);
    if (!watcher || !watcher->isShowing())
        forgetPromises(false); // the page that is only shown anew is the same to script
    int const result = guiHtml::setText(content, directory);
    if (!self.alive())
        return result;
    m_hasPage = result != 0;
    showIcon();
    return result;
}

QWidget* guiHtmlBase::getTopLevelWidget() { return getParent() ? getParent()->getTopLevelWidget() : getWidget(); }

/// What Enter and Escape do: the name "X" closes the window, any other triggers the control of that name. Always 1,
/// which uses up the key.
int guiHtmlBase::triggerNamed(sstring const& name)
{
    if (name.getLength() == 0)
        return 1;
    if (name == "X") {
        guiCloseRequest_post(*this);
        return 1;
    }
    sstring wanted(name);
    if (guiHtml* node = getNamed(wanted))
        pGUI->getThread()->postTrigger(node);
    return 1;
}

int guiHtmlBase::onEnter() { return triggerNamed(m_enterControl); }
int guiHtmlBase::onEscape() { return triggerNamed(m_escapeControl); }
