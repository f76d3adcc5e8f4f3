// controls/guielementlink.cpp: see guielementlink.h.
#include "controls/guielementlink.h"

#include "controls/guicontrolhost.h"
#include "controls/guihtmlcustom.h"
#include "foundation/vela-threadrole.h"

#include <algorithm>
#include <utility>

guiRect guiUnited(guiRect const& a, guiRect const& b)
{
    if (a.isEmpty() || b.isEmpty())
        return a.isEmpty() ? b : a;
    int const left = std::min(a.left, b.left);
    int const top = std::min(a.top, b.top);
    return {left, std::max(a.right(), b.right()) - left, top, std::max(a.bottom(), b.bottom()) - top};
}

void guiElementLink::askRepaint(std::optional<guiRect> const& part)
{
    {
        std::lock_guard<std::mutex> guard(m_lock);
        if (part)
            m_part = guiUnited(m_part.value_or(guiRect()), *part);
        else
            m_isWhole = true;
        if (std::exchange(m_isPosted, true))
            return;
    }
    guiControlHost::current().postToGui([self = shared_from_this()] { self->serve(); });
}

void guiElementLink::serve()
{
    assertOnGuiThread();
    std::unique_lock<std::mutex> guard(m_lock);
    m_isPosted = false;
    bool const isWhole = std::exchange(m_isWhole, false);
    std::optional<guiRect> part = std::exchange(m_part, std::nullopt);
    guard.unlock();
    if (m_node)
        m_node->invalidate(isWhole ? nullptr : &*part);
}
