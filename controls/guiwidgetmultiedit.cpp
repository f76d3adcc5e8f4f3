// controls/guiwidgetmultiedit.cpp: see guiwidgetmultiedit.h.
#include "controls/guiwidgetmultiedit.h"

#include "controls/guieventscope.h"
#include "controls/guiframe.h"
#include "controls/guihtmlcontroledit.h"
#include "foundation/vela-qt.h"

#include <QEvent>
#include <QStyle>
#include <QTextCursor>
#include <algorithm>
#include <utility>

guiWidgetMultiEdit::guiWidgetMultiEdit(QWidget* parent) : QPlainTextEdit(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_NoSystemBackground);
    setTabChangesFocus(true);
    setLineWrapMode(QPlainTextEdit::WidgetWidth);
    setWordWrapMode(QTextOption::WordWrap);
    connect(this, &QPlainTextEdit::textChanged, this, &guiWidgetMultiEdit::onChange);
}

void guiWidgetMultiEdit::replaceText(QString const& text)
{
    int const at = textCursor().position();
    QTextCursor all(document());
    all.select(QTextCursor::Document);
    all.insertText(text);
    QTextCursor cursor(document());
    cursor.setPosition(std::min(at, document()->characterCount() - 1));
    setTextCursor(cursor);
}

/// The toolkit reports what an input method shows as well, while the text is the same.
void guiWidgetMultiEdit::onChange()
{
    guiEventScope scope;
    QString const text = toPlainText();
    if (std::exchange(m_lastText, text) != text && owner)
        owner->onChange(qtoss(text));
}

/// A scroll bar that leaves no width for the text makes the editor discard how its lines wrap, which removes the bar,
/// and so on: the GUI thread would be stuck in an endless loop.
bool guiWidgetMultiEdit::event(QEvent* event)
{
    if (event->type() == QEvent::Resize) {
        int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
        bool hasRoom = width() - 2 * frameWidth() >= 2 * bar;
        setVerticalScrollBarPolicy(hasRoom ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
        setHorizontalScrollBarPolicy(hasRoom ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
    }
    bool const isPainted = event->type() == QEvent::Paint && guiPaintFrame(this);
    return isPainted || QPlainTextEdit::event(event);
}
