// controls/guinotices.h: list widgets that hold back what they have to tell their node while the toolkit is working on
// their rows. A handler may remove the very row that the toolkit goes on with, so it runs when that work is done.
#pragma once

#include "foundation/vela-threadrole.h"

#include <QPointer>
#include <cassert>

class QEvent;

/// What a list widget has held back. GUI thread.
struct guiPendingNotices
{
    unsigned holds = 0;           ///< pieces of work that are going on, one inside the other
    unsigned changes = 0;         ///< how often a row's state has changed
    bool hasNewSelection = false; ///< the selection has changed
};

/// Holds back the notices of a list while this object lives; the outermost hold then calls `list->deliverNotices()`.
/// `list` has a member `guiPendingNotices pendingNotices`, is not null, and may be destroyed meanwhile. GUI thread.
template <typename List>
class guiNoticeHold
{
public:
    explicit guiNoticeHold(List* list) : m_list(list)
    {
        assertOnGuiThread();
        assert(list);
        ++list->pendingNotices.holds;
    }
    ~guiNoticeHold()
    {
        if (!m_list)
            return;
        assert(m_list->pendingNotices.holds > 0);
        if (--m_list->pendingNotices.holds == 0)
            m_list->deliverNotices();
    }
    guiNoticeHold(guiNoticeHold const&) = delete;
    guiNoticeHold& operator=(guiNoticeHold const&) = delete;

private:
    QPointer<List> m_list; // not owned
};

/// A view of the toolkit that holds back its notices while it handles an event. GUI thread.
template <typename View>
class guiNoticeView : public View
{
public:
    using View::View;

    guiPendingNotices pendingNotices;

    /// Tells the node what was held back; the view may be unbound from its node when this returns.
    virtual void deliverNotices() = 0;

protected:
    bool event(QEvent* event) override
    {
        guiNoticeHold hold(this);
        return View::event(event);
    }
    bool viewportEvent(QEvent* event) override
    {
        guiNoticeHold hold(this);
        return View::viewportEvent(event);
    }
    /// Notes a change of the selection if notices are held back; false: it is to be told now.
    bool holdsSelection()
    {
        if (pendingNotices.holds == 0)
            return false;
        return pendingNotices.hasNewSelection = true;
    }
};
