// controls/guieventscope.h: keeps widgets alive while the toolkit is still inside one of their events. Almost every
// event may end in a script handler, and a handler may close the window or replace the page that the widget belongs to.
#pragma once

#include <utility>

class QWidget;

/// Marks a stretch of code that the toolkit called and that may reach script. GUI thread; nests.
class guiEventScope
{
public:
    guiEventScope();
    ~guiEventScope();
    guiEventScope(guiEventScope const&) = delete;
    guiEventScope& operator=(guiEventScope const&) = delete;

    static bool isActive();
    /// Has the event loop delete the widget once the outermost stretch, if there is one, has ended. deleteLater() alone
    /// does not: a handler waits in an event loop of its own, which would delete a widget that is still in the middle
    /// of its event.
    static void deleteAfterwards(QWidget* widget);
};

/// Deletes the widget: at once when nothing of the toolkit may be inside it, else hidden now and deleted by the event
/// loop as soon as the outermost handler has returned. Null is allowed. The caller forgets the pointer either way.
void guiDeleteWidget(QWidget* widget);

/// What a node does with a wrapper widget that it no longer wants: unbinds it, so that nothing it still reports reaches
/// the node, and deletes it as above.
template <typename Wrapper>
void guiDestroyWrapper(Wrapper*& wrapper)
{
    if (!wrapper)
        return;
    if constexpr (requires { wrapper->unbind(); })
        wrapper->unbind();
    else
        wrapper->owner = nullptr;
    guiDeleteWidget(std::exchange(wrapper, nullptr));
}
