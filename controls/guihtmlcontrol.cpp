// controls/guihtmlcontrol.cpp: see guihtmlcontrol.h.
#include "controls/guihtmlcontrol.h"

#include "controls/guiclipper.h"
#include "controls/guicontrolhost.h"
#include "controls/guieventscope.h"
#include "controls/guilatewidgets.h"
#include "controls/guimistakemark.h"
#include "controls/guipagelistener.h"
#include "controls/guititle.h"
#include "controls/guiwidget.h"
#include "controls/guizoomstyle.h"
#include "foundation/vela-log.h"
#include "foundation/vela-qt.h"
#include "foundation/vela-threadrole.h"
#include "page/guihtmlsheet.h"
#include "page/guihtmltext-fonts.h"
#include "page/guinodewatch.h"
#include "page/guionpaper.h"
#include "page/guipageroot.h"
#include "page/guirareattributes.h"
#include "page/guiuserevent.h"

#include <QAbstractScrollArea>
#include <QShortcut>
#include <QWidget>
#include <algorithm>
#include <cassert>
#include <utility>

namespace {

// A text of this many characters is wider than any window, so what follows is not measured.
constexpr qsizetype kMeasuredUnits = kMaxPixels;

} // namespace

guiHtml& guiHtmlControl::operator=(guiHtml& other)
{
    guiHtml::operator=(other);
    if (other.getType() == kTypeControl) {
        assert(dynamic_cast<guiHtmlControl*>(&other));
        m_content = static_cast<guiHtmlControl&>(other).m_content;
    }
    return *this;
}

guiHtml* guiHtmlControl::Clone(guiHtml* parent) { return guiCloneNode(*this, parent); }

int guiHtmlControl::setText(sstring const& text, sstring const&)
{
    assertOnGuiThread();
    m_content.text = text;
    if (getChildWidget()) {
        guiNodeWatch self(this);
        destroyChildWidget();
        if (!self.alive())
            return 0;
        createChildWidget();
    }
    updateLayout(1);
    return 1;
}

void guiHtmlControl::setEnabled(int enabled)
{
    assertOnGuiThread();
    guiHtml::setEnabled(enabled);
    if (QWidget* widget = getChildWidget())
        widget->setEnabled(enabled > 0);
}

int guiHtmlControl::onEnter()
{
    sstring const link = guiRareAttributeOf(this, guiRareAttribute::kEnter);
    if (link.getLength() == 0)
        return guiHtml::onEnter();
    guiEventNote const note("enter");
    followLink(link);
    return 1;
}

void guiHtmlControl::setRect(guiRect* rect)
{
    guiHtml::setRect(rect);
    guiWidget* const window = getWindow();
    if (!window || guiOnPaper::isActive())
        return;
    assertOnGuiThread();
    if (awaits(*window))
        return;
    createChildWidget();
    guiRect place;
    getRectInWidget(&place);
    onSetRect(&place);
    placeInClip(getChildWidget());
    if (m_labelKey)
        m_labelKey->setEnabled(!guiIsPutAway(this));
}

/// The window that the page is in, null when it is in none.
guiWidget* guiHtmlControl::getWindow()
{
    QWidget* window = getTopLevelWidget();
    assert(!window || dynamic_cast<guiWidget*>(window));
    return static_cast<guiWidget*>(window);
}

QWidget* guiHtmlControl::getClipWidget()
{
    assert(hasWindow());
    if (m_clipWidget)
        return m_clipWidget;
    guiRect rect;
    getClipRect(&rect);
    m_clipWidget = guiCreateClipper(getWindow(), this, !rect.isEmpty());
    m_clipWidget->setFont(getDefaultFont(nullptr));
    getRectInWidget(&rect);
    onSetRect(&rect);
    return m_clipWidget;
}

void guiHtmlControl::onSetRect(guiRect* rect)
{
    guiRect clip;
    getClipRect(&clip);
    m_clipOffsetX = clip.left - rect->left;
    m_clipOffsetY = clip.top - rect->top;
    clip.width = std::min(rect->right(), clip.right()) - clip.left;
    clip.height = std::min(rect->bottom(), clip.bottom()) - clip.top;
    clip.left = std::max(rect->left, clip.left);
    clip.top = std::max(rect->top, clip.top);
    if (m_clipWidget)
        guiPlaceClipper(m_clipWidget, getWindow(), QRect(clip.left, clip.top, clip.width, clip.height));
}

void guiHtmlControl::onDestroyChildWidget()
{
    assert(!getChildWidget()); // else the control would keep a pointer to a widget that goes with its parent
    if (m_clipWidget)
        m_clipWidget->owner = nullptr;
    guiDeleteWidget(std::exchange(m_clipWidget, nullptr));
    if (m_late.keeper)
        m_late.keeper->forget(this);
    m_late = {};
}

void guiHtmlControl::placeInClip(QWidget* widget)
{
    if (!widget)
        return;
    assert(widget->parentWidget() == m_clipWidget);
    widget->setGeometry(-m_clipOffsetX, -m_clipOffsetY, m.rect.width, m.rect.height);
}

// Where widgets come and go, the toolkit's chain is no order: the page itself knows where Tab goes.
void guiHtmlControl::dirtyTabOrder()
{
    if (m_late.isAwaiting)
        return;
    if (guiPageRoot* base = getBaseHtml())
        base->m.tabOrderDirty = 1;
}

// A new widget has the clip widget's font. Setting the same font again is not free: it makes a combo box create the
// list that it drops down.
void guiHtmlControl::showLook(QWidget* widget)
{
    QFont const font = getDefaultFont(nullptr);
    if (widget->font() != font)
        widget->setFont(font);
    guiZoomWidget(widget, m.zoom);
}

void guiHtmlControl::onLookChange()
{
    assertOnGuiThread();
    if (m_clipWidget)
        m_clipWidget->setFont(getDefaultFont(nullptr));
    if (QWidget* widget = getChildWidget())
        showLook(widget);
}

void guiHtmlControl::finishWidget(QWidget* widget)
{
    assert(widget && widget == getChildWidget());
    showLook(widget);
    widget->setEnabled(m.enabled);
    if (hasString(kStringTitle))
        widget->setToolTip(guiTipOf(getString(kStringTitle)));
    if (hasRules())
        m_mark = new guiMistakeMark(widget, this);
    if (m_content.labelKey != 0)
        listenToLabelKey(widget);
    placeInClip(widget);
    guiCurrentPageListener().onWidget(this);
    if (m_late.isAwaiting)
        arrive();
    widget->installEventFilter(getWindow());
    if (auto* area = qobject_cast<QAbstractScrollArea*>(widget))
        area->viewport()->installEventFilter(getWindow()); // which gets what the pointer does
    widget->show();
}

// The key belongs to the window, since a control that is out of view hears none. Of controls with one key each press
// takes the next.
void guiHtmlControl::listenToLabelKey(QWidget* widget)
{
    auto* const key = new QShortcut(QKeySequence(Qt::ALT | static_cast<Qt::Key>(m_content.labelKey)), getWindow());
    m_labelKey = key;
    auto const act = [widget, window = getWindow()] {
        guiEventScope scope;
        guiClipper* const clipper = window->htmlBase ? guiClipperOf(widget) : nullptr;
        if (clipper && clipper->owner)
            clipper->owner->onLabel();
    };
    QObject::connect(widget, &QObject::destroyed, key, &QObject::deleteLater);
    QObject::connect(key, &QShortcut::activated, widget, act);
    QObject::connect(key, &QShortcut::activatedAmbiguously, widget, act);
}

void guiHtmlControl::onLabel()
{
    assertOnGuiThread();
    guiNodeWatch const self(this);
    guiReveal(this);
    QWidget* const widget = self.alive() ? needWidget() : nullptr;
    if (widget && widget->isEnabled() && widget->focusPolicy() != Qt::NoFocus)
        widget->setFocus(Qt::ShortcutFocusReason);
}

int guiHtmlControl::textWidth(sstring const& text)
{
    guiTextFont& font = guiTextFonts::of(getDefaultFont(nullptr));
    QStringView const shown = sstoview(text).left(kMeasuredUnits);
    return clampLength(guiTextPixels(font.wordAdvance(shown)));
}

int guiHtmlControl::clampLength(std::int64_t pixels)
{
    return static_cast<int>(std::clamp<std::int64_t>(pixels, 0, kMaxPixels));
}

int guiHtmlControl::takeNoRoom()
{
    m.dynamic = {};
    m.dynamic.unitX = kUnitPixels;
    m.expandWidth = m.expandHeight = 0;
    return 0;
}

std::optional<int> guiHtmlControl::getBaseLine()
{
    constexpr int kFrame = 3;
    if (!hasWindow() || m.activeCy == 0)
        return std::nullopt;
    guiTextFont const& font = guiTextFonts::of(getDefaultFont(nullptr));
    int const spare = clampLength(m.activeCy) - font.lineSpacing();
    return (keepsHeight() ? spare / 2 : kFrame) + font.lineSpacing() - font.descent();
}

int guiHtmlControl::lineSpacing() { return guiTextFonts::of(getDefaultFont(nullptr)).lineSpacing(); }

ScriptObject* guiHtmlControl::getCustomObject()
{
    if (m.object || !guiPageObjectOf(this))
        return m.object;
    if (guiControlHost::current().isScriptThread()) {
        buildCustomObject_script();
        return m.object;
    }
    guiNodeWatch self(this);
    guiControlHost::current().buildCustomObject(this);
    return self.alive() ? m.object.load() : nullptr;
}

void guiHtmlControl::buildCustomObject_script()
{
    assertOnScriptThread();
    assert(!m.object);
    guiControlHost& host = guiControlHost::current();
    ScriptObject* object = host.makeControlObject(this);
    if (!object) {
        velaLog("BuildCustomObject failed for 0x%08lX!\n", reinterpret_cast<unsigned long>(this));
        return;
    }
    addScriptMethods(object);
    host.bindObject(object, this);
    m.object = object;
}

void guiHtmlControl::followLink(sstring const& link)
{
    assertOnGuiThread();
    if (link.getLength() == 0)
        return;
    guiEventNote const note(getControlType() == kControlButton ? "click" : "change");
    guiNodeWatch self(this);
    ScriptObject* object = getCustomObject(); // may run script
    if (self.alive())
        onHyperlink(link, object);
}
