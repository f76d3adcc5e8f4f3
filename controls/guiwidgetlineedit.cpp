// controls/guiwidgetlineedit.cpp: see guiwidgetlineedit.h.
#include "controls/guiwidgetlineedit.h"

#include "controls/guieventscope.h"
#include "controls/guihtmlcontroledit.h"
#include "controls/guitextlimit.h"
#include "controls/guiwidget.h"
#include "foundation/vela-qt.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>

guiWidgetLineEdit::guiWidgetLineEdit(QWidget* parent) : QLineEdit(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_NoSystemBackground);
    connect(this, &QLineEdit::textChanged, this, &guiWidgetLineEdit::onChange);
}

void guiWidgetLineEdit::replaceText(QString const& text)
{
    int const cursor = cursorPosition();
    bool const staysAtEnd = hasFocus() && cursor == static_cast<int>(this->text().size()); // a script types behind it
    if (m_limit)
        m_limit->accept(text);
    selectAll();
    insert(text);
    if (!staysAtEnd)
        setCursorPosition(cursor); // which the toolkit limits
}

void guiWidgetLineEdit::setMost(int characters)
{
    if (characters <= 0)
        return;
    m_limit = new guiTextLimit(this, characters);
    m_limit->accept(text());
    setValidator(m_limit);
}

void guiWidgetLineEdit::complete(QStringList const& options)
{
    auto* const completion = new QCompleter(options, this);
    completion->setCaseSensitivity(Qt::CaseInsensitive);
    completion->setFilterMode(Qt::MatchContains);
    setCompleter(completion);
}

bool guiWidgetLineEdit::isCompleting() const { return completer() && completer()->popup()->isVisible(); }

void guiWidgetLineEdit::onChange(QString const& text)
{
    guiEventScope scope;
    if (owner)
        owner->onChange(qtoss(text));
}

void guiWidgetLineEdit::keyPressEvent(QKeyEvent* event)
{
    guiEventScope scope;
    bool const ends = event->key() == Qt::Key_Escape || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (ends && isCompleting())
        event->ignore(); // the key is for the list that is offered
    else if (guiHandleKey(owner, event->key(), true))
        event->accept();
    else
        QLineEdit::keyPressEvent(event);
}
