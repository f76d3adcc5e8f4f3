// page/guihtmltext.cpp: text runs.
#include "page/guihtmltext.h"

#include <QFont>

guiHtml& guiHtmlText::operator=(guiHtml& other)
{
    guiHtml::operator=(other);
    if (other.getType() == kTypeText)
        m_text = static_cast<guiHtmlText&>(other).m_text;
    return *this;
}

guiHtml* guiHtmlText::Clone(guiHtml* parent)
{
    auto* copy = new guiHtmlText;
    copy->operator=(static_cast<guiHtml&>(*this));
    copy->setParent(parent);
    return copy;
}

// FIXME: text is not measured yet.
int guiHtmlText::getPreferredWidth() { return 0; }
int guiHtmlText::getHeightEstimate(unsigned long) { return 8; }

QFont guiHtml::getDefaultFont(int* points)
{
    if (m.parent)
        return m.parent->getDefaultFont(points);
    if (points)
        *points = 10;
    return QFont();
}
