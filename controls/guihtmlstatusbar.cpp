// controls/guihtmlstatusbar.cpp: see guihtmlstatusbar.h; and its reader.
#include "controls/guihtmlstatusbar.h"

#include "controls/guieventscope.h"
#include "controls/guihtmlread.h"
#include "controls/guiwidgetstatusbar.h"
#include "foundation/vela-qt.h"
#include "foundation/vela-threadrole.h"
#include "page/guihtmlsize.h"
#include "page/guipageroot.h"

#include <utility>

int guiHtmlStatusBar::setText(sstring const& text, sstring const&)
{
    assertOnGuiThread();
    m_content.text = text;
    if (m_bar)
        m_bar->setText(sstoq(text));
    return 1;
}

// As for the menu bar: it exists before heights are computed, above nothing of the page.
int guiHtmlStatusBar::calcDynamicLayout()
{
    createChildWidget();
    guiHtmlControl::calcDynamicLayout();
    return takeNoRoom();
}

void guiHtmlStatusBar::setRect(guiRect* rect)
{
    guiHtmlControl::setRect(rect);
    place();
}

void guiHtmlStatusBar::place()
{
    if (!m_bar)
        return;
    int const height = m_bar->sizeHint().height();
    m_bar->setGeometry(0, m_bar->parentWidget()->height() - height, m_bar->parentWidget()->width(), height);
}

void guiHtmlStatusBar::createChildWidget()
{
    if (m_bar || !hasWindow())
        return;
    assertOnGuiThread();
    m_bar = new guiWidgetStatusBar(getTopLevelWidget());
    m_bar->setFont(getDefaultFont(nullptr));
    m_bar->setText(sstoq(m_content.text));
    if (guiPageRoot* base = getBaseHtml())
        base->setStatusBar(m_bar);
    guiLayoutRun::startAnew(); // the page has less room
    place();
    m_bar->show();
}

void guiHtmlStatusBar::onLookChange()
{
    assertOnGuiThread();
    if (!m_bar)
        return;
    m_bar->setFont(getDefaultFont(nullptr));
    guiLayoutRun::startAnew(); // the bar has another height
    place();
}

void guiHtmlStatusBar::destroyChildWidget()
{
    guiHtmlControl::destroyChildWidget();
    destroyBar();
}

void guiHtmlStatusBar::destroyBar()
{
    guiPageRoot* base = m_bar ? getBaseHtml() : nullptr;
    if (base && base->getStatusBar() == m_bar)
        base->setStatusBar(nullptr);
    guiDeleteWidget(std::exchange(m_bar, nullptr));
    onDestroyChildWidget();
}

namespace {

void pullStatusBar(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    auto* bar = pullControl<guiHtmlStatusBar>(parser, parent, section);
    bar->initText(guiDirectText(section));
}

guiTag const kStatusBar("statusbar", pullStatusBar, kTagNests);

} // namespace
