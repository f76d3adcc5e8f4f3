// tests/page/pagetree.cpp: see pagetree.h.
#include "tests/page/pagetree.h"

#include "page/guihtmltext-fonts.h"

#include <QFontMetrics>

testRoot::testRoot() { m.alignY = kAlignTop; }

QFont testRoot::getDefaultFont(int* points)
{
    if (points)
        *points = 10;
    static QFont const font = testFont();
    return font;
}

void testRoot::layOut(int width, int height)
{
    m_widget.resize(width, height);
    guiRect rect{0, width, 0, height};
    calcDynamicLayout();
    setRect(&rect);
}

guiHtml* testBox::Clone(guiHtml* parent)
{
    guiHtml* copy = new testBox(m_width, m_height);
    *copy = *this;
    copy->setParent(parent);
    return copy;
}

testBox* addBox(guiHtml* parent, int width, int height)
{
    auto* box = new testBox(width, height);
    parent->append(box);
    return box;
}

guiHtml* addNode(guiHtml* parent) { return parent->append(new guiHtml); }

guiHtmlText* addText(guiHtml* parent, char const* text)
{
    auto* run = new guiHtmlText;
    run->editText() = text;
    parent->append(run);
    return run;
}

void addMarkers(guiHtml* parent, std::initializer_list<guiMarker> markers)
{
    for (guiMarker marker : markers)
        parent->appendMarker(marker);
}

void requestWidth(guiHtml* node, guiSizeUnit unit, unsigned amount)
{
    node->m.fixed.unitX = unit;
    node->m.fixed.x = amount;
}

void requestHeight(guiHtml* node, guiSizeUnit unit, unsigned amount)
{
    node->m.fixed.unitY = unit;
    node->m.fixed.y = amount;
}

QFont testFont(int points)
{
    QFont font(QStringLiteral("DejaVu Sans"));
    normalizeFontHeight(font, points);
    return font;
}

int widthOf(char const* text, int points)
{
    return QFontMetrics(testFont(points)).horizontalAdvance(QString::fromUtf8(text));
}
