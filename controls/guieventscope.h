// controls/guieventscope.h: keeps widgets alive while the toolkit is still handling one of their events. Almost every
// event may call a script handler, and a handler may close the window or replace the page that the widget belongs to.
#pragma once

#include "foundation/vela-threadrole.h"

#include <cassert>
#include <utility>

class QObject;
class QWidget;

/// Marks code that the toolkit has called and that may call script. GUI thread; scopes nest.
class guiEventScope
{
public:
    guiEventScope() TARN_PROVES(velaGuiRole);
    ~guiEventScope();
    guiEventScope(guiEventScope const&) = delete;
    guiEventScope& operator=(guiEventScope const&) = delete;

    static bool isActive();
    /// Has the event loop delete the object, once the outermost scope, if there is one, has ended. deleteLater() alone
    /// is too early: a handler is waited for in a nested event loop, which would delete a widget that is still in the
    /// middle of its event.
    static void deleteAfterwards(QObject* object);
};

/// Deletes the widget: at once outside all scopes; inside one the widget is hidden now and deleted by the event loop
/// after the outermost scope has ended. Null is allowed. The caller must not use the pointer again. GUI thread.
void guiDeleteWidget(QWidget* widget);

/// Whether a wrapper widget, if there is one, is the node's own: bound to it, or not bound yet when making it failed.
template <typename Wrapper, typename Node>
bool guiIsBoundTo(Wrapper const* wrapper, Node const* node)
{
    return !wrapper || !wrapper->owner || wrapper->owner == node;
}

/// How a node disposes of one of its widgets: unbinds it, so that nothing it still reports reaches the node, and
/// deletes it as above. Null is allowed. GUI thread, unless it is null.
template <typename Wrapper>
void guiDestroyWrapper(Wrapper*& wrapper)
{
    if (!wrapper)
        return;
    if constexpr (requires { wrapper->unbind(); })
        wrapper->unbind();
    else
        wrapper->owner = nullptr;
    assert(!wrapper->owner);
    guiDeleteWidget(std::exchange(wrapper, nullptr));
}
