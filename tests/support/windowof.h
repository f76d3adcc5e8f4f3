// tests/support/windowof.h: a window whose page a test fills by hand. Each layer brings the root that it can have.
#pragma once

#include "page/guihtml.h"

#include <QCoreApplication>
#include <QEvent>

/// A page root with its top-level widget, which is not shown. Nodes are appended and placed by the test. `Root` is made
/// from the full name of the page's file and has createWidget(0) and destroyWidget().
template <typename Root>
struct WindowOf
{
    explicit WindowOf(sstring const& file = sstring(), int width = 100, int height = 100) : root(file)
    {
        widget = root.createWidget(0);
        root.m.rect = {0, width, 0, height};
    }
    ~WindowOf()
    {
        root.destroyWidget();
        settle();
    }
    WindowOf(WindowOf const&) = delete;
    WindowOf& operator=(WindowOf const&) = delete;

    /// A plain child of `parent` (default: the root) at the rectangle left, width, top, height.
    guiHtml* add(guiRect const& rect, guiHtml* parent = nullptr) { return place(new guiHtml, rect, parent); }

    template <typename Node>
    Node* place(Node* node, guiRect const& rect, guiHtml* parent = nullptr)
    {
        (parent ? parent : &root)->append(node);
        node->m.rect = rect;
        return node;
    }

    /// Runs what waits in the event loop, deferred deletions too.
    static void settle()
    {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }

    Root root;
    decltype(root.createWidget(0)) widget = nullptr;
};
