// controls/guifindbar.cpp: see guifindbar.h.
#include "controls/guifindbar.h"

#include "controls/guieventscope.h"
#include "controls/guifind.h"
#include "controls/guiowntexts.h"
#include "controls/guitextwindow.h"
#include "page/guihtmlsize.h"
#include "page/guinodewatch.h"
#include "page/guipageroot.h"
#include "page/guipagetext.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QStyle>
#include <QToolButton>

#include <algorithm>
#include <vector>

namespace {

constexpr int kFieldWidth = 220; // pixels
constexpr int kAround = 4;

} // namespace

guiFindBar::guiFindBar(guiTextWindow& window) : QWidget(window.asWidget()), m_host(window), m_window(window.asWidget())
{
    setAutoFillBackground(true);
    setAttribute(Qt::WA_NoMousePropagation); // what lies behind it is not for the pointer
    setContextMenuPolicy(Qt::PreventContextMenu);
    guiUseOwnDirection(this);
    setAccessibleName(guiOwnText("Find"));
    addField();
    m_previous = addButton(Qt::UpArrow, guiOwnText("Previous"));
    m_next = addButton(Qt::DownArrow, guiOwnText("Next"));
    m_case = new QCheckBox(guiOwnText("Match case"), this);
    m_count = new QLabel(this);
    m_close = addButton(Qt::NoArrow, guiOwnText("Close"));
    m_close->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton, nullptr, this));
    lineUp();
    for (QWidget* each : findChildren<QWidget*>())
        each->installEventFilter(this);
    connect(m_field, &QLineEdit::textChanged, this, &guiFindBar::onChange);
    connect(m_case, &QCheckBox::toggled, this, &guiFindBar::onChange);
    for (QToolButton* each : {m_next, m_previous, m_close})
        connect(each, &QToolButton::clicked, this, [this, each] { onPress(each); });
    hide();
}

void guiFindBar::addField()
{
    m_field = new QLineEdit(this);
    m_field->setPlaceholderText(guiOwnText("Find on this page"));
    m_field->setAccessibleName(guiOwnText("Find on this page"));
    m_field->setClearButtonEnabled(true);
    m_field->setMinimumWidth(kFieldWidth / 2);
    m_field->setMaximumWidth(kFieldWidth);
}

void guiFindBar::lineUp()
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(2 * kAround, kAround + 1, kAround, kAround);
    row->addWidget(m_field, 1);
    row->addWidget(m_previous);
    row->addWidget(m_next);
    row->addWidget(m_case);
    row->addWidget(m_count);
    row->addStretch(1);
    row->addWidget(m_close);
}

void guiFindBar::onChange()
{
    guiEventScope scope;
    look();
}

void guiFindBar::onPress(QToolButton const* button)
{
    guiEventScope scope;
    if (button == m_close)
        close();
    else
        goOn(button == m_next);
}

QToolButton* guiFindBar::addButton(Qt::ArrowType arrow, QString const& name)
{
    auto* button = new QToolButton(this);
    button->setAutoRaise(true);
    button->setArrowType(arrow);
    button->setToolTip(name);
    button->setAccessibleName(name);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

void guiFindBar::open()
{
    guiPageRoot* page = m_host.shownPage();
    if (!page)
        return;
    if (!isOpen())
        m_before = m_window->focusWidget();
    QString const selected = page->pageText() ? page->pageText()->selection.text() : QString();
    show();
    makeRoom();
    if (!selected.isEmpty() && !selected.contains(u'\n'))
        m_field->setText(selected);
    m_field->setFocus(Qt::ShortcutFocusReason);
    m_field->selectAll();
    look();
}

void guiFindBar::close()
{
    if (!isOpen())
        return;
    bool const hadFocus = isAncestorOf(m_window->focusWidget());
    hide();
    if (guiPageRoot* page = m_host.shownPage(); page && page->pageText())
        page->pageText()->search.clear();
    makeRoom();
    if (hadFocus && m_before)
        m_before->setFocus(Qt::OtherFocusReason);
    else if (hadFocus)
        m_window->setFocus(Qt::OtherFocusReason);
}

/// The page gives the bar its room, or gets it back.
void guiFindBar::makeRoom()
{
    guiPageRoot* page = m_host.shownPage();
    if (!page)
        return;
    page->setFindBar(isOpen() ? this : nullptr);
    place();
    guiLayoutRun::startAnew();
    page->updateLayout(1);
}

void guiFindBar::place()
{
    int const height = sizeHint().height();
    int const below = m_host.shownPage() ? std::max(0, m_host.shownPage()->getStatusHeight() - height) : 0;
    setGeometry(0, m_window->height() - below - height, m_window->width(), height);
    raise();
}

void guiFindBar::look()
{
    guiPageRoot* page = m_host.shownPage();
    if (page)
        tellCount(guiFind(*page, m_field->text(), m_case->isChecked(), guiFindStep::kFromHere));
}

void guiFindBar::goOn(bool forward)
{
    guiPageRoot* page = m_host.shownPage();
    guiFindStep const step = forward ? guiFindStep::kNext : guiFindStep::kPrevious;
    if (page)
        tellCount(guiFind(*page, m_field->text(), m_case->isChecked(), step));
}

void guiFindBar::tellCount(std::size_t count)
{
    guiPageText const* text = m_host.shownPage() ? m_host.shownPage()->pageText() : nullptr;
    QString told;
    if (text && text->search.current())
        told = guiOwnText("%1 of %2").arg(*text->search.current() + 1).arg(count);
    else if (!m_field->text().isEmpty())
        told = guiOwnText("Not found");
    m_count->setText(told);
    m_next->setEnabled(count != 0);
    m_previous->setEnabled(count != 0);
}

// ---- Keys ----

/// Return and F3 go on, with Shift they go back.
bool guiFindBar::useKey(QKeyEvent const& event)
{
    bool const isReturn = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    bool const isOnButton = qobject_cast<QToolButton*>(m_window->focusWidget()) != nullptr;
    if (event.key() == Qt::Key_Escape)
        return close(), true;
    if (isReturn && isOnButton)
        return static_cast<QToolButton*>(m_window->focusWidget())->click(), true;
    if (!isReturn && event.key() != Qt::Key_F3)
        return false;
    goOn(!event.modifiers().testFlag(Qt::ShiftModifier));
    return true;
}

bool guiFindBar::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    guiEventScope scope;
    return useKey(static_cast<QKeyEvent const&>(*event)) || QWidget::eventFilter(watched, event);
}

void guiFindBar::keyPressEvent(QKeyEvent* event)
{
    guiEventScope scope;
    if (!useKey(*event))
        QWidget::keyPressEvent(event);
}

// Tab stays in the bar; Escape leaves it.
bool guiFindBar::focusNextPrevChild(bool next)
{
    std::vector<QWidget*> stops;
    for (QWidget* each : {static_cast<QWidget*>(m_field), static_cast<QWidget*>(m_previous),
                          static_cast<QWidget*>(m_next), static_cast<QWidget*>(m_case), static_cast<QWidget*>(m_close)})
        if (each->isEnabled())
            stops.push_back(each);
    auto const at = std::find(stops.begin(), stops.end(), m_window->focusWidget());
    auto const current = static_cast<std::size_t>(at - stops.begin()) % stops.size();
    std::size_t const to = (current + (next ? 1 : stops.size() - 1)) % stops.size();
    stops[to]->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

void guiFindBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawLine(0, 0, width(), 0);
}
