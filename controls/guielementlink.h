// controls/guielementlink.h: what a custom element and its toolkit object have of each other. The element lives on the
// GUI thread and the object on the script thread, and either may end first.
#pragma once

#include "page/guitypes.h"

#include <memory>
#include <mutex>
#include <optional>

class guiHtmlCustom;

/// Shared by the element, its toolkit, and whatever is on its way between the threads.
class guiElementLink : public std::enable_shared_from_this<guiElementLink>
{
public:
    explicit guiElementLink(guiHtmlCustom* node) : m_node(node) {}

    /// The element, null once it, or its instance, is gone. GUI thread.
    guiHtmlCustom* node() const { return m_node; }
    /// GUI thread.
    void cut() { m_node = nullptr; }

    /// Asks the element for a new drawing, of a part (relative to its inner corner) or of everything. Requests that
    /// have not arrived yet join. Any thread.
    void askRepaint(std::optional<guiRect> const& part);

private:
    void serve();

    guiHtmlCustom* m_node; // not owned
    std::mutex m_lock;
    bool m_isPosted = false;       // guarded by m_lock
    bool m_isWhole = false;        // guarded by m_lock
    std::optional<guiRect> m_part; // guarded by m_lock
};

/// The smallest rectangle that holds both.
guiRect guiUnited(guiRect const& a, guiRect const& b);
