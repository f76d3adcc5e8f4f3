// controls/guinews.h: what a list has to tell its node waits while the toolkit is in the middle of its work on the
// rows. A handler may remove the very row that the toolkit goes on with, so it runs when that work is done.
#pragma once

#include <QPointer>

/// What waits. GUI thread.
struct guiNews
{
    unsigned holds = 0;           ///< pieces of work under way, one inside the other
    unsigned changes = 0;         ///< of rows' states
    bool hasNewSelection = false; ///< other rows are selected
};

/// Holds the news of a list for as long as this lives; the outermost one then has `list->tellNews()` called. `list` has
/// a `guiNews news`, is not null and may be destroyed meanwhile. GUI thread.
template <typename List>
class guiHoldNews
{
public:
    explicit guiHoldNews(List* list) : m_list(list) { ++list->news.holds; }
    ~guiHoldNews()
    {
        if (m_list && --m_list->news.holds == 0)
            m_list->tellNews();
    }
    guiHoldNews(guiHoldNews const&) = delete;
    guiHoldNews& operator=(guiHoldNews const&) = delete;

private:
    QPointer<List> m_list;
};
