// controls/guiclipper.cpp: see guiclipper.h.
#include "controls/guiclipper.h"

#include "controls/guiwidget.h"
#include "foundation/vela-threadrole.h"

#include <QRect>
#include <cassert>

namespace {

constexpr char kName[] = "controlclipper";

bool holdsFocus(QWidget const* clipper, guiWidget const* window)
{
    QWidget const* focused = window->focusWidget();
    return focused && clipper->isAncestorOf(focused);
}

// A new parent takes the focus away.
void bringIntoView(QWidget* clipper, guiWidget* window)
{
    QWidget* focused = holdsFocus(clipper, window) ? window->focusWidget() : nullptr;
    clipper->setParent(window);
    if (focused)
        focused->setFocus();
}

} // namespace

guiClipper* guiClipperOf(QWidget* widget)
{
    assertOnGuiThread();
    while (widget && !dynamic_cast<guiClipper*>(widget))
        widget = widget->isWindow() ? nullptr : widget->parentWidget();
    return static_cast<guiClipper*>(widget);
}

guiClipper* guiCreateClipper(guiWidget* window, guiHtml* control, bool isInView)
{
    assertOnGuiThread();
    assert(window);
    auto* clipper = new guiClipper(isInView ? window : window->outOfView(), control);
    clipper->setObjectName(QLatin1String(kName));
    clipper->hide();
    return clipper;
}

void guiPlaceClipper(guiClipper* clipper, guiWidget* window, QRect const& place)
{
    assertOnGuiThread();
    assert(clipper->parentWidget() == window || clipper->parentWidget() == window->outOfView());
    bool const isInView = !place.isEmpty();
    if (isInView && clipper->parentWidget() != window)
        bringIntoView(clipper, window);
    clipper->setGeometry(place);
    window->keepsFocus = true; // a control that is scrolled out of view goes on being the one that is typed into
    clipper->setVisible(isInView);
    window->keepsFocus = false;
    if (!isInView && clipper->parentWidget() == window && !holdsFocus(clipper, window))
        clipper->setParent(window->outOfView());
}
