// runtime/guiproblemstrip.cpp: see guiproblemstrip.h.
#include "runtime/guiproblemstrip.h"

#include "controls/guiwidget.h"
#include "page/guihtmlsize.h"
#include "runtime/guihtmlbase.h"

#include <QEvent>
#include <QFontMetrics>
#include <QPainter>

namespace {

// Pixels beside the text, and above and below it together.
constexpr int kBeside = 8;
constexpr int kAround = 8;

// Reads on light and dark desktops alike.
constexpr QRgb kGround = 0xFFB3261E;
constexpr QRgb kInk = 0xFFFFFFFF;

constexpr char kName[] = "problem";

} // namespace

guiProblemStrip::guiProblemStrip(QWidget* window) : QWidget(window)
{
    setObjectName(QLatin1String(kName));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_NoMousePropagation); // what lies behind it is not for the pointer
    setContextMenuPolicy(Qt::PreventContextMenu);
    setAccessibleDescription(QStringLiteral("problem"));
    window->installEventFilter(this);
}

void guiProblemStrip::show(guiHtmlBase& root, QString const& message)
{
    assertOnGuiThread();
    guiWidget* const window = root.getWidget();
    if (!window)
        return;
    QWidget* const before = window->findChild<QWidget*>(QLatin1String(kName), Qt::FindDirectChildrenOnly);
    auto* strip = static_cast<guiProblemStrip*>(before);
    if (message.isEmpty() && !strip)
        return;
    if (!strip)
        strip = new guiProblemStrip(window);
    strip->m_message = message;
    strip->setAccessibleName(message);
    strip->setToolTip(message);
    QWidget const* const status = root.getStatusBar();
    strip->m_below = status ? status->sizeHint().height() : 0;
    root.setProblemStrip(message.isEmpty() ? nullptr : strip);
    strip->place();
    strip->setVisible(!message.isEmpty());
    strip->raise();
    strip->update();
    if (message.isEmpty())
        strip->deleteLater();
    if (message.isEmpty())
        strip->setObjectName(QString());
    guiLayoutRun::startAnew(); // the page has more or less room
    root.updateLayout(1);
}

QSize guiProblemStrip::sizeHint() const { return {0, fontMetrics().height() + kAround}; }

void guiProblemStrip::place()
{
    int const height = sizeHint().height();
    setGeometry(0, parentWidget()->height() - m_below - height, parentWidget()->width(), height);
}

bool guiProblemStrip::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize)
        place();
    return QWidget::eventFilter(watched, event);
}

void guiProblemStrip::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), QColor::fromRgb(kGround));
    QRect const room = rect().adjusted(kBeside, 0, -kBeside, 0);
    painter.setPen(QColor::fromRgb(kInk));
    // What is wrong stands at the end, behind the name of the file.
    painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(m_message, Qt::ElideLeft, room.width()));
}
