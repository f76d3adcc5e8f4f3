// tests/page/pagewindow.h: a window below all widgets of the component: a page root and a plain widget of the toolkit
// that shows nothing, and a canvas to paint nodes on.
#pragma once

#include "page/guihtmlsize.h"
#include "page/guipagesurface.h"
#include "tests/support/canvas.h"
#include "tests/support/testroot.h"
#include "tests/support/windowof.h"

#include <QScrollBar>
#include <QWidget>
#include <gtest/gtest.h>
#include <memory>
#include <string>

/// Painting hands a widget of this name through from whoever paints to the nodes, and a page never looks into it. The
/// windows of the component define it in a layer above this one; here it is a widget that can scroll a page.
class guiWidget : public QWidget, public guiPageSurface
{
public:
    QScrollBar* createScrollBar(guiHtml*, Qt::Orientation orientation, char const* name) override
    {
        auto* bar = new QScrollBar(orientation, this);
        bar->setObjectName(QString::fromUtf8(name));
        bar->hide();
        return bar;
    }
    bool scrollPixels(QRect const& area, int, int) override
    {
        update(area);
        return false;
    }
    bool isHovering(guiHtml const*) const override { return false; }
    void onHtmlDestroy(guiHtml*) override {}
};

/// A page root that can have such a widget, not shown.
class BareRoot : public TestRoot
{
public:
    using TestRoot::TestRoot;
    using TestRoot::operator=;
    ~BareRoot() override { destroyChildren(); }

    QWidget* getTopLevelWidget() override { return m_widget.get(); }
    guiWidget* getWidget() const { return m_widget.get(); }
    guiWidget* createWidget(int)
    {
        m_widget = std::make_unique<guiWidget>();
        m_widget->resize(480, 240);
        updateLayout(0);
        return m_widget.get();
    }
    void destroyWidget() override
    {
        destroyChildWidget();
        m_widget.reset();
        guiLayoutRun::startAnew();
    }

private:
    std::unique_ptr<guiWidget> m_widget;
};

using PageWindow = WindowOf<BareRoot>;

/// Reads a page into the window and lays it out in 400 by 300 pixels.
inline void showPage(PageWindow& window, std::string const& page)
{
    ASSERT_EQ(window.root.setText(sstring(page.c_str()), sstring()), 1);
    window.widget->resize(400, 300);
    guiRect rect{0, 400, 0, 300};
    window.root.updateLayout(0);
    window.root.setRect(&rect);
}
