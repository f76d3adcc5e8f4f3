// tests/page/pagetree.h: small page trees for tests of text and layout, built by hand: a root with a window of its own,
// and leaves of known size.
#pragma once

#include "page/guihtml.h"
#include "page/guihtmltext.h"
#include "page/guipageroot.h"

#include <QFont>
#include <QWidget>

#include <initializer_list>
#include <memory>
#include <string>

/// A page root of its own: a hidden window, and the first font in 10 points.
class testRoot : public guiPageRoot
{
public:
    testRoot();
    using guiHtml::operator=;
    QWidget* getTopLevelWidget() override { return &m_widget; }
    QFont getDefaultFont(int* points) override;

    /// Lays out from scratch at a size.
    void layOut(int width, int height);

private:
    QWidget m_widget;
};

/// A leaf of known preferred width and height, as a control is.
class testBox : public guiHtml
{
public:
    testBox(int width, int height) : m_width(width), m_height(height) {}
    using guiHtml::operator=;
    int getType() override { return kTypeControl; }
    guiHtml* Clone(guiHtml* parent) override;
    int getPreferredWidth() override { return m_width; }
    int getHeightEstimate(unsigned long) override { return m_height; }

private:
    int m_width;
    int m_height;
};

/// Appends a new leaf, plain node or text run. The parent owns it.
testBox* addBox(guiHtml* parent, int width, int height);
guiHtml* addNode(guiHtml* parent);
guiHtmlText* addText(guiHtml* parent, char const* text);
void addMarkers(guiHtml* parent, std::initializer_list<guiMarker> markers);

/// A request on one axis, as the attributes width and height make it.
void requestWidth(guiHtml* node, guiSizeUnit unit, unsigned amount);
void requestHeight(guiHtml* node, guiSizeUnit unit, unsigned amount);

/// The default font of testRoot, in a size of the table.
QFont testFont(int points = 10);
/// Width of a text in it, as the toolkit measures it.
int widthOf(char const* text, int points = 10);
