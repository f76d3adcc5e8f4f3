// controls/guiwidgetmultiedit.cpp: see guiwidgetmultiedit.h.
#include "controls/guiwidgetmultiedit.h"

#include "controls/guieventscope.h"
#include "controls/guiframe.h"
#include "controls/guihtmlcontroledit.h"
#include "controls/guitextlimit.h"
#include "foundation/vela-qt.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QStyle>
#include <QTextCursor>
#include <QTextDocument>
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
    moveCursorTo(at);
}

void guiWidgetMultiEdit::moveCursorTo(int position)
{
    QTextCursor cursor(document());
    cursor.setPosition(std::min(position, document()->characterCount() - 1));
    setTextCursor(cursor);
}

QString guiWidgetMultiEdit::shown(QString const& text)
{
    QTextDocument document;
    document.setPlainText(text);
    return document.toPlainText();
}

/// The toolkit reports what an input method shows as well, while the text is the same.
void guiWidgetMultiEdit::onChange()
{
    guiEventScope scope;
    QString const text = toPlainText();
    if (std::exchange(m_lastText, text) != text && owner)
        owner->onChange(qtoss(text));
}

/// What of the typed text may take the place of the selection.
QString guiWidgetMultiEdit::fitting(QString const& typed) const
{
    if (m_most <= 0)
        return typed;
    QString const text = toPlainText();
    QTextCursor const cursor = textCursor();
    QString const before = text.left(cursor.selectionStart());
    QString const after = text.mid(cursor.selectionEnd());
    return guiFitting(before, typed, after, std::max<qsizetype>(m_most, guiCharactersIn(text)));
}

void guiWidgetMultiEdit::keyPressEvent(QKeyEvent* event)
{
    bool const isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    QString const typed = isReturn ? QStringLiteral("\n") : event->text();
    bool const isTyped = isReturn || (!typed.isEmpty() && typed.at(0).isPrint());
    if (isTyped && fitting(typed).isEmpty())
        event->accept();
    else
        QPlainTextEdit::keyPressEvent(event);
}

void guiWidgetMultiEdit::inputMethodEvent(QInputMethodEvent* event)
{
    if (QString const typed = event->commitString(); !typed.isEmpty())
        event->setCommitString(fitting(typed), event->replacementStart(), event->replacementLength());
    QPlainTextEdit::inputMethodEvent(event);
}

void guiWidgetMultiEdit::insertFromMimeData(QMimeData const* source)
{
    if (m_most <= 0 || !source->hasText()) {
        QPlainTextEdit::insertFromMimeData(source);
        return;
    }
    QMimeData fits;
    fits.setText(fitting(source->text()));
    QPlainTextEdit::insertFromMimeData(&fits);
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
    if (isPainted || event->type() != QEvent::Show || m_firstLine == 0)
        return isPainted || QPlainTextEdit::event(event);
    bool const isDone = QPlainTextEdit::event(event);
    verticalScrollBar()->setValue(std::exchange(m_firstLine, 0));
    return isDone;
}
