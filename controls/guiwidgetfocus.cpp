// controls/guiwidgetfocus.cpp: see guiwidgetfocus.h.
#include "controls/guiwidgetfocus.h"

#include "controls/guieventscope.h"
#include "controls/guihtmlcustom.h"
#include "foundation/vela-qt.h"
#include "page/guicolor.h"
#include "page/guiinks.h"
#include "page/guiuserevent.h"

#include <QKeyEvent>
#include <QPainter>

namespace {

bool isModifier(int key)
{
    return key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Alt || key == Qt::Key_Meta ||
           key == Qt::Key_AltGr || key == Qt::Key_CapsLock;
}

} // namespace

guiWidgetFocus::guiWidgetFocus(QWidget* parent, guiHtmlCustom* node) : QWidget(parent), owner(node)
{
    setFocusPolicy(Qt::TabFocus); // a click gives it the focus too, through the window
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_NoSystemBackground);
}

// Escape is the window's.
void guiWidgetFocus::keyPressEvent(QKeyEvent* event)
{
    guiEventScope scope;
    bool const isOurs = owner && event->key() != Qt::Key_Escape && !isModifier(event->key());
    if (!isOurs) {
        event->ignore();
        return;
    }
    event->accept();
    guiElementInput input;
    input.modifiers = guiModifierNames(event->modifiers());
    input.key = guiKeyName(event->key());
    input.text = qtoss(event->text());
    owner->setInput(input);
    owner->onKey();
}

void guiWidgetFocus::focusInEvent(QFocusEvent* event)
{
    guiEventScope scope;
    QWidget::focusInEvent(event);
    update();
    if (owner)
        owner->onFocus(true);
}

void guiWidgetFocus::focusOutEvent(QFocusEvent* event)
{
    guiEventScope scope;
    QWidget::focusOutEvent(event);
    update();
    if (owner)
        owner->onFocus(false);
}

void guiWidgetFocus::paintEvent(QPaintEvent*)
{
    if (!hasFocus())
        return;
    constexpr int kThickness = 2;
    QPainter painter(this);
    painter.setPen(QPen(toQColor(guiFocusInk(palette())), kThickness, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
}
