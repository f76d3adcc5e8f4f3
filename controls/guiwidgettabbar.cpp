// controls/guiwidgettabbar.cpp: see guiwidgettabbar.h.
#include "controls/guiwidgettabbar.h"

#include "controls/guieventscope.h"

#include <QKeyEvent>
#include <QToolButton>
#include <QWheelEvent>
#include <algorithm>
#include <utility>

guiWidgetTabBar::guiWidgetTabBar(QWidget* parent) : QTabBar(parent)
{
    setDrawBase(false); // the frame below is painted by the page
    setExpanding(false);
    setUsesScrollButtons(true);
    setIconSize(QSize(kIconSize, kIconSize));
    setFocusPolicy(Qt::TabFocus);
    for (auto* arrow : findChildren<QToolButton*>())
        arrow->setFocusPolicy(Qt::NoFocus);
    connect(this, &QTabBar::currentChanged, this, [this] { report(); });
}

QString guiWidgetTabBar::value() const
{
    int const index = currentIndex();
    return index >= 0 && index < static_cast<int>(m_keys.size()) ? m_keys[static_cast<std::size_t>(index)] : QString();
}

void guiWidgetTabBar::showValue(QString const& value)
{
    auto const found = std::find(m_keys.begin(), m_keys.end(), value);
    if (found != m_keys.end())
        setCurrentIndex(static_cast<int>(found - m_keys.begin()));
}

// The toolkit leaves a tab that is disabled; here the page decides.
void guiWidgetTabBar::setTabs(std::vector<guiTabLook> const& tabs)
{
    guiHtmlControlValue* const listener = std::exchange(owner, nullptr);
    int const shown = currentIndex();
    m_keys.clear();
    for (guiTabLook const& tab : tabs) {
        showTab(static_cast<int>(m_keys.size()), tab);
        m_keys.push_back(tab.key);
    }
    while (count() > static_cast<int>(m_keys.size()))
        removeTab(count() - 1);
    setCurrentIndex(shown >= 0 ? shown : 0);
    owner = listener;
}

void guiWidgetTabBar::showTab(int index, guiTabLook const& tab)
{
    if (index == count())
        addTab(tab.icon, tab.text);
    setTabIcon(index, tab.icon);
    setTabText(index, tab.text);
    setTabEnabled(index, tab.isEnabled);
}

void guiWidgetTabBar::step(int by) { turnTo(currentIndex() + by + count(), by); }

void guiWidgetTabBar::turnTo(int from, int by)
{
    for (int tried = 0; tried < count(); ++tried) {
        int const index = (from + tried * by + 2 * count()) % count();
        if (isTabEnabled(index))
            return setCurrentIndex(index);
    }
}

void guiWidgetTabBar::keyPressEvent(QKeyEvent* event)
{
    guiEventScope scope;
    event->accept();
    if (isKeyUsed(event->key()))
        return;
    if (event->key() == Qt::Key_Home)
        turnTo(0, 1);
    else if (event->key() == Qt::Key_End)
        turnTo(count() - 1, -1);
    else
        QTabBar::keyPressEvent(event);
}

void guiWidgetTabBar::wheelEvent(QWheelEvent* event)
{
    if (hasFocus())
        QTabBar::wheelEvent(event);
    else
        event->ignore();
}
