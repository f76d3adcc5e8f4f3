// tests/support/laidoutpage.h: a page that is read and laid out outside any window.
#pragma once

#include "page/guihtml.h"

#include <memory>
#include <string>

/// `Root` is a page root that is made from the full name of the page's file.
template <typename Root>
class LaidOutPage
{
public:
    explicit LaidOutPage(std::string const& text, int width = 640, int height = 480)
        : root(std::make_unique<Root>(sstring()))
    {
        root->setText(sstring(text.c_str()), sstring());
        layOut(width, height);
    }

    void layOut(int width, int height)
    {
        guiRect rect{0, width, 0, height};
        root->calcDynamicLayout();
        root->setRect(&rect);
    }
    guiHtml* named(char const* name) const { return root->getNamed(sstring(name)); }
    /// Left edge of a node in the page.
    int leftOf(char const* name) const
    {
        guiRect rect;
        named(name)->getRectInWidget(&rect);
        return rect.left;
    }

    std::unique_ptr<Root> root;
};
