// controls/guihtmltabbar.cpp: see guihtmltabbar.h.
#include "controls/guihtmltabbar.h"

#include "controls/guieventscope.h"
#include "controls/guihtmltabs.h"
#include "foundation/vela-qt.h"
#include "foundation/vela-threadrole.h"

#include <algorithm>

guiHtmlTabs* guiHtmlTabBar::tabs() const { return dynamic_cast<guiHtmlTabs*>(getParent()); }

std::vector<guiTabLook> guiHtmlTabBar::looks() const
{
    std::vector<guiTabLook> all;
    if (guiHtmlTabs const* of = tabs())
        for (guiHtmlTabSheet* sheet : of->sheets())
            all.push_back(sheet->look(static_cast<int>(all.size())));
    return all;
}

/// As large as the tabs need, or as small as the bar can be; pixels. Without a widget one is made to be asked.
QSize guiHtmlTabBar::measure(bool least)
{
    if (!hasWindow())
        return {};
    if (m_bar)
        return least ? m_bar->minimumSizeHint() : m_bar->sizeHint();
    guiWidgetTabBar sample;
    sample.setFont(getDefaultFont(nullptr));
    sample.setTabs(looks());
    return least ? sample.minimumSizeHint() : sample.sizeHint();
}

int guiHtmlTabBar::getPreferredWidth() { return clampLength(measure(false).width()); }
int guiHtmlTabBar::getHeightEstimate(unsigned long) { return clampLength(measure(false).height()); }

int guiHtmlTabBar::calcDynamicLayout()
{
    int const preferred = guiHtmlControlValue::calcDynamicLayout();
    m.dynamic.cxMin = std::max(m.dynamic.cxMin, clampLength(std::min(measure(true).width(), measure(false).width())));
    return preferred;
}

int guiHtmlTabBar::index()
{
    QString const shown = sstoq(getText());
    std::vector<guiTabLook> const all = looks();
    auto const found = std::find_if(all.begin(), all.end(), [&](guiTabLook const& tab) { return tab.key == shown; });
    return found != all.end() ? static_cast<int>(found - all.begin()) : 0;
}

void guiHtmlTabBar::showSheet(guiHtmlTabSheet const* sheet)
{
    guiHtmlTabs const* const of = tabs();
    std::vector<guiHtmlTabSheet*> const all = of ? of->sheets() : std::vector<guiHtmlTabSheet*>();
    auto const found = std::find(all.begin(), all.end(), sheet);
    if (found != all.end())
        setText(qtoss((*found)->look(static_cast<int>(found - all.begin())).key), sstring());
}

void guiHtmlTabBar::step(int by)
{
    if (m_bar && m_bar->isEnabled())
        m_bar->step(by);
}

void guiHtmlTabBar::updateTabs()
{
    if (!m_bar)
        return;
    m_bar->setTabs(looks());
    updateLayout(1);
}

std::optional<QString> guiHtmlTabBar::valueOf(QString const& text) const
{
    for (guiTabLook const& tab : looks())
        if (tab.key.compare(text, Qt::CaseInsensitive) == 0)
            return tab.key;
    return std::nullopt;
}

guiValueWidget* guiHtmlTabBar::makeWidget(QWidget* parent)
{
    m_bar = new guiWidgetTabBar(parent);
    m_bar->setFont(getDefaultFont(nullptr));
    m_bar->setTabs(looks());
    return m_bar;
}

void guiHtmlTabBar::destroyChildWidget()
{
    m_bar = nullptr;
    guiHtmlControlValue::destroyChildWidget();
}

void guiHtmlTabBar::onNewValue()
{
    if (guiHtmlTabs* of = tabs())
        of->show(index());
}
