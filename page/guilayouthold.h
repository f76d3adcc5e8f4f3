// page/guilayouthold.h: one layout for everything that changes together. A page that pulls further pages and pictures
// into its frames and cells is laid out when the last of them has arrived, not once for each.
#pragma once

class guiHtml;

/// While a hold exists on the GUI thread, layouts that would be applied are only noted; the outermost hold runs them
/// when it is released, once for each page that still lives. One object per hold, released last thing on every path on
/// which a failing layout is the caller's business.
class guiLayoutHold
{
public:
    guiLayoutHold();
    /// Releases a hold that an exception or an early return left; a layout that fails then is logged.
    ~guiLayoutHold();
    guiLayoutHold(guiLayoutHold const&) = delete;
    guiLayoutHold& operator=(guiLayoutHold const&) = delete;

    /// Ends the hold, and runs the noted layouts if this was the outermost one. Only the first call does anything.
    /// Throws what a layout throws (velaError 12 for want of memory); the layouts noted behind it are dropped then.
    void release();

    static bool isHeld();
    /// Notes that the page of this node wants a layout; false when nothing holds it back. Called by updateLayout(1).
    static bool postpone(guiHtml* node);

private:
    bool m_isReleased = false;
};

/// Counts what one load may pull in, so that pages that include each other end. Made by every load of a file.
class guiLoadBudget
{
public:
    /// Files that one load may pull in, over all levels.
    static constexpr unsigned kMaxFiles = 1000;
    /// Levels of pages within pages.
    static constexpr unsigned kMaxLevels = 32;

    guiLoadBudget();
    ~guiLoadBudget();
    guiLoadBudget(guiLoadBudget const&) = delete;
    guiLoadBudget& operator=(guiLoadBudget const&) = delete;

    bool isExhausted() const;
};
