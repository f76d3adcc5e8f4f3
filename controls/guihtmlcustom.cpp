// controls/guihtmlcustom.cpp: see guihtmlcustom.h: how the node is made, copied and destroyed.
#include "controls/guihtmlcustom.h"

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

void guiHtmlCustom::destroyChildWidget()
{
    if (getTopLevelWidget())
        endInstance();
    guiHtml::destroyChildWidget();
}
