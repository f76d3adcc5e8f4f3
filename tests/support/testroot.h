// tests/support/testroot.h: a page root for tests of the layers below the window runtime. It keeps what the page says
// about its window, and makes no more of it.
#pragma once

#include "page/guihtmltext-fonts.h"
#include "page/guipageroot.h"

#include <QApplication>

/// Its texts are in the toolkit's default face, in 10 points. It has a widget only if a class derived from it makes
/// one. GUI thread.
class TestRoot : public guiPageRoot
{
public:
    static constexpr int kPoints = 10;

    struct windowSize
    {
        int width = 0;
        int height = 0;
    };

    /// `file`: full name of the page's file, "" when it has none. `page`: the window's script object, not owned, may be
    /// null.
    explicit TestRoot(sstring const& file = sstring(), ScriptObject* page = nullptr) : m_page(page)
    {
        setString(kStringFile, file);
    }
    ~TestRoot() override { destroyChildren(); } // while this is still the root that they ask for

    using guiHtml::operator=;
    ScriptObject* getPageObject() const override { return m_page; }
    QFont getDefaultFont(int* points) override
    {
        if (getParent())
            return guiHtml::getDefaultFont(points);
        return guiPageFont(this, points);
    }

    void setTitle(sstring const& text) override { title = text; }
    void setMinimumSize(int width, int height) override { minimum = {width, height}; }
    void setMaximumSize(int width, int height) override { maximum = {width, height}; }
    void setDefaultSize(int width, int height) override { preferred = {width, height}; }

    sstring getEnterControl() const override { return enterControl; }
    sstring getEscapeControl() const override { return escapeControl; }

    sstring title;
    windowSize minimum; // what the page asked for last
    windowSize maximum;
    windowSize preferred;
    sstring enterControl;
    sstring escapeControl;

private:
    ScriptObject* m_page;
};
