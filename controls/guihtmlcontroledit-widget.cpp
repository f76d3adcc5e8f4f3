// controls/guihtmlcontroledit-widget.cpp: makes the widgets of fields, with all that the page asks for in them.
#include "controls/guieventscope.h"
#include "controls/guifieldbuttons.h"
#include "controls/guihtmlcontroledit.h"
#include "controls/guihtmldatalist.h"
#include "controls/guiowncolors.h"
#include "controls/guiplaceholder.h"
#include "controls/guiwidgetlineedit.h"
#include "controls/guiwidgetmultiedit.h"
#include "foundation/vela-qt.h"
#include "foundation/vela-threadrole.h"
#include "page/guipageroot.h"

#include <QScrollBar>
#include <algorithm>
#include <cassert>
#include <utility>

namespace {

// A field of one line takes no more units; the toolkit's own limit.
constexpr int kMostInLine = 32767;

/// Whether a text area may make another text of it: it has its own ends of lines and blanks.
bool isChangedByArea(QStringView text)
{
    auto const isOther = [](QChar each) {
        ushort const unit = each.unicode();
        return unit == u'\r' || unit == u'\0' || unit == 0xA0 || (unit >= 0x2028 && unit <= 0x2029) || unit >= 0xFDD0;
    };
    return std::any_of(text.begin(), text.end(), isOther);
}

/// What can not be changed looks like the window around it.
void showReadOnly(QWidget* widget)
{
    guiChooseColors(widget, [](QPalette const& around, QPalette& own) {
        own.setColor(QPalette::Base, around.color(QPalette::Window));
    });
}

} // namespace

QWidget* guiHtmlControlEdit::getChildWidget()
{
    assert(!m_lineEdit || !m_multiEdit);
    if (m_lineEdit)
        return m_lineEdit;
    return m_multiEdit;
}

void guiHtmlControlEdit::createChildWidget()
{
    if (getChildWidget() || m_shape.rows < 1 || !hasWindow())
        return;
    assertOnGuiThread();
    dirtyTabOrder();
    if (m_shape.rows == 1)
        createLineEdit();
    else
        createMultiEdit();
}

// The owner is bound last, because setting the first text is not a change to report.
void guiHtmlControlEdit::createLineEdit()
{
    m_lineEdit = new guiWidgetLineEdit(getClipWidget());
    if (m_shape.type == kEditPassword)
        m_lineEdit->setEchoMode(QLineEdit::Password);
    m_lineEdit->setText(sstoq(m_content.text));
    equipLine();
    restoreView();
    m_lineEdit->owner = this;
    finishWidget(m_lineEdit);
}

void guiHtmlControlEdit::createMultiEdit()
{
    m_multiEdit = new guiWidgetMultiEdit(getClipWidget());
    m_multiEdit->setPlainText(sstoq(m_content.text));
    equipArea();
    restoreView();
    m_multiEdit->owner = this;
    finishWidget(m_multiEdit);
}

void guiHtmlControlEdit::keepState()
{
    getText();
    m_view = {};
    if (m_lineEdit && m_lineEdit->cursorPosition() != m_lineEdit->text().size())
        m_view.cursor = m_lineEdit->cursorPosition();
    if (m_multiEdit)
        m_view = {m_multiEdit->textCursor().position(), m_multiEdit->verticalScrollBar()->value()};
}

void guiHtmlControlEdit::restoreView()
{
    fieldView const view = std::exchange(m_view, fieldView());
    if (m_lineEdit && view.cursor >= 0)
        m_lineEdit->setCursorPosition(view.cursor);
    if (!m_multiEdit || view.cursor < 0)
        return;
    m_multiEdit->moveCursorTo(view.cursor);
    m_multiEdit->scrollWhenPlaced(view.top);
}

void guiHtmlControlEdit::onAwait() { awaitText(); }

/// Makes of the text what a widget makes of it.
void guiHtmlControlEdit::awaitText()
{
    if (m_shape.rows == 1 && m_content.text.getLength() > kMostInLine)
        m_content.text = qtoss(sstoq(m_content.text).left(kMostInLine));
    if (m_shape.rows > 1 && isChangedByArea(sstoview(m_content.text)))
        m_content.text = qtoss(guiWidgetMultiEdit::shown(sstoq(m_content.text)));
}

void guiHtmlControlEdit::equipLine()
{
    m_lineEdit->setMost(m_shape.maxLength);
    if (m_shape.type == kEditFile)
        guiAddBrowseButton(m_lineEdit);
    if (m_shape.type == kEditSearch)
        m_lineEdit->setClearButtonEnabled(true);
    if (!m_extras)
        return;
    guiShowPlaceholder(m_lineEdit, sstoq(m_extras->placeholder));
    if (m_shape.type == kEditPassword && m_extras->canReveal)
        guiAddRevealButton(m_lineEdit);
    if (m_extras->list.getLength() != 0)
        addCompletion();
    if (!m_extras->isReadOnly)
        return;
    m_lineEdit->setReadOnly(true);
    showReadOnly(m_lineEdit);
}

void guiHtmlControlEdit::equipArea()
{
    m_multiEdit->setMost(m_shape.maxLength);
    if (!m_extras)
        return;
    guiShowPlaceholder(m_multiEdit, sstoq(m_extras->placeholder));
    if (!m_extras->wraps)
        m_multiEdit->setLineWrapMode(QPlainTextEdit::NoWrap);
    if (!m_extras->isReadOnly)
        return;
    m_multiEdit->setReadOnly(true);
    m_multiEdit->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    showReadOnly(m_multiEdit);
}

void guiHtmlControlEdit::addCompletion()
{
    guiPageRoot* const page = getBaseHtml();
    guiHtml* const named = page ? page->getNamed(m_extras->list) : nullptr;
    if (auto const* list = dynamic_cast<guiHtmlDataList const*>(named))
        m_lineEdit->complete(list->getOptions());
}

void guiHtmlControlEdit::destroyChildWidget()
{
    guiHtmlControl::destroyChildWidget();
    destroyWidgets();
}

void guiHtmlControlEdit::destroyWidgets()
{
    if (getChildWidget())
        dirtyTabOrder();
    assert(guiIsBoundTo(m_lineEdit, this));
    assert(guiIsBoundTo(m_multiEdit, this));
    guiDestroyWrapper(m_lineEdit);
    guiDestroyWrapper(m_multiEdit);
    onDestroyChildWidget();
}
