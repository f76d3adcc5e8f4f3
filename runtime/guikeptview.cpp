// runtime/guikeptview.cpp: see guikeptview.h.
#include "runtime/guikeptview.h"

#include "controls/guiwidgetlistview.h"
#include "foundation/vela-qt.h"
#include "page/guihtml.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QSignalBlocker>
#include <algorithm>

namespace {

/// The field of a control that is one, or has one, as those for numbers and editable lists do; null without.
QLineEdit* lineOf(guiHtml* node)
{
    QWidget* const widget = node->getChildWidget();
    if (!widget)
        return nullptr;
    auto* const line = qobject_cast<QLineEdit*>(widget);
    return line ? line : widget->findChild<QLineEdit*>();
}

QPlainTextEdit* areaOf(guiHtml* node) { return qobject_cast<QPlainTextEdit*>(node->getChildWidget()); }

QString valueOf(guiWidgetListView& view, guiRowNumber row)
{
    return row == kNoRow || !view.rows().has(row) ? QString() : view.rows().value(row).toString();
}

} // namespace

guiKeptView::guiKeptView(guiHtml* node)
{
    assertOnGuiThread();
    if (node->isScrolled()) {
        m_scrollX = node->getScroll().posX;
        m_scrollY = node->getScroll().posY;
    }
    readField(node);
    readList(node);
}

void guiKeptView::readField(guiHtml* node)
{
    if (QLineEdit const* line = lineOf(node)) {
        int const start = line->selectionStart();
        int const cursor = line->cursorPosition();
        int const anchor = start < 0 ? cursor : start == cursor ? line->selectionEnd() : start;
        if (line->hasFocus() || cursor != line->text().size() || anchor != cursor)
            m_field = fieldView{line->text(), anchor, cursor};
    } else if (QPlainTextEdit const* area = areaOf(node)) {
        QTextCursor const cursor = area->textCursor();
        fieldView const view{area->toPlainText(), cursor.anchor(), cursor.position(),
                             area->verticalScrollBar()->value(), area->horizontalScrollBar()->value()};
        if (view.anchor != 0 || view.cursor != 0 || view.top != 0 || view.left != 0)
            m_field = view;
    }
}

void guiKeptView::readList(guiHtml* node)
{
    QWidget* const widget = node->getChildWidget();
    if (auto* view = qobject_cast<guiWidgetListView*>(widget)) {
        int const bar = view->verticalScrollBar()->value();
        guiRowNumber const current = view->currentRow();
        if (bar != 0 || current != kNoRow)
            m_list = listView{bar == 0 ? QString() : valueOf(*view, view->topRow()), valueOf(*view, current), bar};
    } else if (auto const* box = qobject_cast<QListWidget*>(widget); box && box->verticalScrollBar()->value() != 0) {
        m_list = listView{{}, {}, box->verticalScrollBar()->value()};
    }
}

void guiKeptView::giveTo(guiHtml* node) const
{
    assertOnGuiThread();
    bool const isElsewhere =
        node->isScrolled() && (m_scrollX != node->getScroll().posX || m_scrollY != node->getScroll().posY);
    if (isElsewhere) {
        node->onScrollX(static_cast<int>(m_scrollX));
        node->onScrollY(static_cast<int>(m_scrollY));
        node->updateScrollbarRanges();
        node->update();
    }
    if (m_field)
        giveField(node);
    if (m_list)
        giveList(node);
}

void guiKeptView::giveField(guiHtml* node) const
{
    if (QLineEdit* line = lineOf(node)) {
        if (line->text() != m_field->text)
            return;
        QSignalBlocker const quiet(line);
        line->setCursorPosition(m_field->anchor);
        line->cursorForward(m_field->cursor != m_field->anchor, m_field->cursor - m_field->anchor);
    } else if (QPlainTextEdit* area = areaOf(node)) {
        int const length = area->document()->characterCount() - 1;
        bool const isSame = area->toPlainText() == m_field->text;
        QTextCursor cursor = area->textCursor();
        cursor.setPosition(std::min(m_field->anchor, isSame ? length : 0));
        cursor.setPosition(std::min(m_field->cursor, isSame ? length : 0), QTextCursor::KeepAnchor);
        area->setTextCursor(cursor);
        area->verticalScrollBar()->setValue(m_field->top);
        area->horizontalScrollBar()->setValue(m_field->left);
    }
}

void guiKeptView::giveList(guiHtml* node) const
{
    QWidget* const widget = node->getChildWidget();
    if (auto* box = qobject_cast<QListWidget*>(widget)) {
        box->doItemsLayout();
        box->verticalScrollBar()->setValue(m_list->bar);
    }
    auto* const view = qobject_cast<guiWidgetListView*>(widget);
    if (!view)
        return;
    view->doItemsLayout();
    if (guiRowNumber const row = m_list->current.isEmpty() ? kNoRow : view->rows().find(m_list->current); row != kNoRow)
        view->setCurrentRow(row);
    guiRowNumber const top = m_list->top.isEmpty() ? kNoRow : view->rows().find(m_list->top);
    if (top != kNoRow)
        view->setTopRow(top);
    else
        view->verticalScrollBar()->setValue(m_list->bar);
}
