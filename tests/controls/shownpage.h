// tests/controls/shownpage.h: a page in a window that is laid out but not on the screen, with its controls at hand.
#pragma once

#include "controls/guihtmlcontrol.h"
#include "page/guihtmltext-fonts.h"
#include "tests/controls/pagewindow.h"

#include <QFontMetrics>
#include <gtest/gtest.h>
#include <string>
#include <vector>

struct ShownPage
{
    explicit ShownPage(char const* page, int width = 400, int height = 300) : window(sstring(), width, height)
    {
        window.widget->resize(width, height);
        load(page);
    }

    void load(char const* page) { EXPECT_EQ(window.root.setText(sstring(page), sstring()), 1); }

    guiHtml* node(char const* name)
    {
        guiHtml* found = window.root.getNamed(sstring(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }

    template <typename Node>
    Node& control(char const* name)
    {
        return dynamic_cast<Node&>(*node(name));
    }

    template <typename Widget>
    Widget* widget(char const* name)
    {
        return dynamic_cast<Widget*>(node(name)->getChildWidget());
    }

    /// The window is laid out again at the size it has.
    void layOut() { window.root.updateLayout(1); }

    QFontMetrics metrics() { return QFontMetrics(window.root.getDefaultFont(nullptr)); }

    PageWindow window;
};

/// A control that follows no links, but writes them down.
template <typename Node>
class LinkWriter : public Node
{
public:
    using Node::operator=;
    int onHyperlink(sstring link, ScriptObject*) override
    {
        links.emplace_back(link.c_str());
        return 1;
    }
    std::vector<std::string> links;
};
