// controls/guiwidgetmoment.cpp: see guiwidgetmoment.h.
#include "controls/guiwidgetmoment.h"

#include "controls/guicalendarpopup.h"
#include "controls/guieventscope.h"
#include "controls/guifieldbuttons.h"

#include <QDate>
#include <QKeyEvent>
#include <QLocale>
#include <QTime>
#include <QWheelEvent>
#include <algorithm>
#include <utility>

namespace {

QString isoFormat() { return QStringLiteral("yyyy-MM-dd"); }

QString pieceOf(QChar letter)
{
    if (letter == u'y')
        return QStringLiteral("yyyy");
    return letter == u'd' ? QStringLiteral("dd") : letter == u'M' ? QStringLiteral("MM") : QString();
}

/// Day, month and year in the order of the language's own short form and with its sign between them, always in figures
/// and with all four of the year.
QString dayFormat()
{
    QString const own = QLocale().dateFormat(QLocale::ShortFormat);
    QStringList pieces;
    QChar sign = u'-';
    for (QChar each : own) {
        QString const piece = pieceOf(each);
        if (!piece.isEmpty() && !pieces.contains(piece))
            pieces << piece;
        if (pieces.size() == 1 && (each == u'.' || each == u'/'))
            sign = each;
    }
    return pieces.size() == 3 && !own.contains(QLatin1String("MMM")) ? pieces.join(sign) : isoFormat();
}

/// The same with the zeros left out that one may leave out.
QString loose(QString format)
{
    for (char const* piece : {"dd", "MM", "HH"})
        format.replace(QLatin1String(piece), QString(QLatin1Char(*piece)));
    return format;
}

std::optional<QString> readDay(QString const& text)
{
    QString const format = dayFormat();
    for (QString const& each : {isoFormat(), format, loose(format)})
        if (QDate const day = QDate::fromString(text, each); day.isValid())
            return day.toString(Qt::ISODate);
    return std::nullopt;
}

std::optional<QString> readTime(QString const& text)
{
    for (char const* each : {"HH:mm", "H:mm"})
        if (QTime const time = QTime::fromString(text, QLatin1String(each)); time.isValid())
            return time.toString(QStringLiteral("HH:mm"));
    for (char const* each : {"HH:mm:ss", "H:mm:ss"})
        if (QTime const time = QTime::fromString(text, QLatin1String(each)); time.isValid())
            return time.toString(QStringLiteral("HH:mm:ss"));
    return std::nullopt;
}

QString turnedDay(QString const& value, QChar piece, int steps)
{
    QDate const day = QDate::fromString(value, Qt::ISODate);
    if (piece == u'y')
        return day.addYears(steps).toString(Qt::ISODate);
    return (piece == u'M' ? day.addMonths(steps) : day.addDays(steps)).toString(Qt::ISODate);
}

QString turnedTime(QString const& value, QChar piece, int steps)
{
    constexpr int kMinute = 60;
    constexpr int kHour = 3600;
    int const seconds = piece == u'H' ? kHour : piece == u'm' ? kMinute : 1;
    QTime const time = QTime::fromString(value, Qt::ISODate).addSecs(steps * seconds);
    return time.toString(value.size() > 5 ? QStringLiteral("HH:mm:ss") : QStringLiteral("HH:mm"));
}

} // namespace

QString guiMomentFormat(bool isDate) { return isDate ? dayFormat() : QStringLiteral("HH:mm"); }

std::optional<QString> guiReadMoment(QString const& text, bool isDate)
{
    return isDate ? readDay(text.trimmed()) : readTime(text.trimmed());
}

guiWidgetMoment::guiWidgetMoment(QWidget* parent, guiMomentShape shape) : QLineEdit(parent), m_shape(std::move(shape))
{
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_NoSystemBackground);
    if (m_shape.isDate)
        guiAddCalendarButton(this, [this] { showCalendar(); });
    connect(this, &QLineEdit::textChanged, this, [this] { report(); });
}

QString guiWidgetMoment::value() const { return guiReadMoment(text(), m_shape.isDate).value_or(text()); }

void guiWidgetMoment::showValue(QString const& value)
{
    std::optional<QString> const moment = guiReadMoment(value, m_shape.isDate);
    bool const isDay = moment && m_shape.isDate;
    setText(isDay ? QDate::fromString(*moment, Qt::ISODate).toString(dayFormat()) : moment.value_or(value));
}

/// Without a value it begins with today, or now.
void guiWidgetMoment::turn(int steps)
{
    guiEventScope scope;
    std::optional<QString> const before = guiReadMoment(text(), m_shape.isDate);
    if (isReadOnly() || (!before && !text().isEmpty()))
        return;
    QString const format =
        before && before->size() > 5 && !m_shape.isDate ? QStringLiteral("HH:mm:ss") : guiMomentFormat(m_shape.isDate);
    int const at = std::clamp<int>(cursorPosition(), 0, static_cast<int>(format.size()) - 1);
    QChar const piece = format[at].isLetter() ? format[at] : format[std::max(0, at - 1)];
    if (before)
        showValue(m_shape.isDate ? turnedDay(*before, piece, steps) : turnedTime(*before, piece, steps));
    else
        showValue(m_shape.isDate ? QDate::currentDate().toString(Qt::ISODate)
                                 : QTime::currentTime().toString(QStringLiteral("HH:mm")));
    setSelection(static_cast<int>(format.indexOf(piece)), static_cast<int>(format.count(piece)));
}

void guiWidgetMoment::keyPressEvent(QKeyEvent* event)
{
    guiEventScope scope;
    int const steps = event->key() == Qt::Key_Up ? 1 : event->key() == Qt::Key_Down ? -1 : 0;
    if (isKeyUsed(event->key()))
        event->accept();
    else if (steps != 0 && event->modifiers() == Qt::NoModifier)
        turn(steps);
    else
        QLineEdit::keyPressEvent(event);
}

// Only with the focus, so that scrolling a page changes nothing.
void guiWidgetMoment::wheelEvent(QWheelEvent* event)
{
    if (!hasFocus() || event->angleDelta().y() == 0)
        event->ignore();
    else
        turn(event->angleDelta().y() > 0 ? 1 : -1);
}

/// What was written loosely stands there properly afterwards.
void guiWidgetMoment::focusOutEvent(QFocusEvent* event)
{
    guiEventScope scope;
    if (guiReadMoment(text(), m_shape.isDate))
        showValue(value());
    QLineEdit::focusOutEvent(event);
}

void guiWidgetMoment::showCalendar()
{
    if (isReadOnly())
        return;
    auto* const calendar = new guiCalendarPopup(this);
    auto const day = [](QString const& text) { return QDate::fromString(text, Qt::ISODate); };
    calendar->allow(day(m_shape.least), day(m_shape.most));
    calendar->choose(day(value()));
    connect(calendar, &guiCalendarPopup::chosen, this, [this](QDate chosen) {
        selectAll();
        insert(chosen.toString(dayFormat()));
    });
    calendar->showBelow(this);
}
