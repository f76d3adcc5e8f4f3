// controls/guihtmlcustom.cpp: see guihtmlcustom.h: how the node is made, copied and destroyed.
#include "controls/guihtmlcustom.h"

#include "controls/guieventscope.h"
#include "controls/guiwidgetfocus.h"
#include "foundation/vela-threadrole.h"
#include "page/guionpaper.h"
#include "page/guipageroot.h"

guiHtmlCustom::guiHtmlCustom(guiHtml* parent) : guiHtml(parent), m_link(std::make_shared<guiElementLink>(this))
{
    ++s_count;
}

guiHtmlCustom::~guiHtmlCustom()
{
    dropInstance();
    m_link->cut();
    --s_count;
}

guiHtml& guiHtmlCustom::operator=(guiHtml& other)
{
    dropInstance();
    guiHtml::operator=(other);
    if (other.getType() != kTypeCustom)
        return *this;
    m_component = static_cast<guiHtmlCustom&>(other).m_component;
    return *this;
}

guiHtml* guiHtmlCustom::Clone(guiHtml* parent) { return guiCloneNode(*this, parent); }

// ---- The keyboard ----

QWidget* guiHtmlCustom::getChildWidget() { return m_focusWidget; }

void guiHtmlCustom::createChildWidget()
{
    QWidget* window = getTopLevelWidget();
    bool const hearsKeys = m_hasInstance && m.object.load()->hasMethod(sstring("eKey"));
    if (m_focusWidget || !window || !hearsKeys)
        return;
    assertOnGuiThread();
    m_focusWidget = new guiWidgetFocus(window, this);
    m_focusWidget->setEnabled(m.enabled);
    m_focusWidget->show();
    if (guiPageRoot* base = getBaseHtml())
        base->m.tabOrderDirty = 1;
}

void guiHtmlCustom::setRect(guiRect* rect)
{
    guiHtml::setRect(rect);
    if (guiOnPaper::isActive())
        return;
    createChildWidget();
    if (!m_focusWidget)
        return;
    guiRect clip;
    getClipRect(&clip);
    m_focusWidget->setGeometry(clip.left, clip.top, clip.width, clip.height);
    m_focusWidget->raise();
}

void guiHtmlCustom::setEnabled(int enabled)
{
    guiHtml::setEnabled(enabled);
    if (m_focusWidget)
        m_focusWidget->setEnabled(enabled > 0);
}

void guiHtmlCustom::destroyChildWidget()
{
    if (getTopLevelWidget())
        endInstance();
    guiDestroyWrapper(m_focusWidget);
    guiHtml::destroyChildWidget();
}
