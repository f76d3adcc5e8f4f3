// controls/guimistakemark.cpp: see guimistakemark.h.
#include "controls/guimistakemark.h"

#include "controls/guihtmlcontrol.h"
#include "controls/guititle.h"
#include "foundation/vela-qt.h"

#include <QFocusEvent>
#include <QPainter>
#include <QToolTip>

namespace {

/// The focus comes back from a menu, a list that drops down, or another window.
bool isForGood(Qt::FocusReason reason)
{
    return reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason && reason != Qt::MenuBarFocusReason;
}

} // namespace

QColor guiWarningColor(QPalette const& palette)
{
    constexpr QRgb kOnLight = 0xFFC62828;
    constexpr QRgb kOnDark = 0xFFFF6B6B;
    constexpr int kMiddle = 128;
    return QColor::fromRgb(palette.color(QPalette::Base).lightness() < kMiddle ? kOnDark : kOnLight);
}

guiMistakeMark::guiMistakeMark(QWidget* over, guiHtmlControl* control)
    : QWidget(over), m_control(control), m_tip(over->toolTip())
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_NoSystemBackground);
    setFocusPolicy(Qt::NoFocus);
    over->installEventFilter(this);
    hide();
}

/// Null when the widget is the control's no more.
guiHtmlControl* guiMistakeMark::owner() const
{
    auto* const control = static_cast<guiHtmlControl*>(m_control.get());
    return control && control->getChildWidget() == parentWidget() ? control : nullptr;
}

void guiMistakeMark::showMistake(sstring const& mistake)
{
    QWidget* const over = parentWidget();
    bool const isWrong = mistake.getLength() != 0;
    over->setToolTip(isWrong ? guiTipOf(mistake) : m_tip);
    over->setAccessibleDescription(sstoq(mistake));
    if (isWrong) {
        setGeometry(over->rect());
        raise();
    }
    setVisible(isWrong);
}

void guiMistakeMark::sayMistake()
{
    QWidget* const over = parentWidget();
    QToolTip::showText(over->mapToGlobal(QPoint(0, over->height())), over->toolTip(), over);
}

bool guiMistakeMark::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize && isVisible()) {
        setGeometry(parentWidget()->rect());
    } else if (event->type() == QEvent::FocusOut && isForGood(static_cast<QFocusEvent*>(event)->reason())) {
        if (guiHtmlControl* control = owner())
            control->showMistake();
    }
    return QWidget::eventFilter(watched, event);
}

void guiMistakeMark::paintEvent(QPaintEvent*)
{
    constexpr qreal kThickness = 2;
    constexpr qreal kRadius = 2;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(guiWarningColor(palette()), kThickness));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), kRadius, kRadius);
}
