// controls/guinotices.h: what a list has to tell its node waits while the toolkit is in the middle of its work on the
// rows. A handler may remove the very row that the toolkit goes on with, so it runs when that work is done.
#pragma once

#include <QPointer>

/// What waits. GUI thread.
struct guiPendingNotices
{
    unsigned holds = 0;           ///< pieces of work under way, one inside the other
    unsigned changes = 0;         ///< of rows' states
    bool hasNewSelection = false; ///< other rows are selected
};

/// Holds the news of a list for as long as this lives; the outermost one then has `list->deliverNotices()` called.
/// `list` has a `guiPendingNotices news`, is not null and may be destroyed meanwhile. GUI thread.
template <typename List>
class guiNoticeHold
{
public:
    explicit guiNoticeHold(List* list) : m_list(list) { ++list->pendingNotices.holds; }
    ~guiNoticeHold()
    {
        if (m_list && --m_list->pendingNotices.holds == 0)
            m_list->deliverNotices();
    }
    guiNoticeHold(guiNoticeHold const&) = delete;
    guiNoticeHold& operator=(guiNoticeHold const&) = delete;

private:
    QPointer<List> m_list;
};
