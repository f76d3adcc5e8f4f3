// page/guilayouthold.h: postpones layouts while a page changes in several steps. A page that loads further pages and
// pictures into its frames and cells is laid out once, when all of them are loaded.
#pragma once

class guiHtml;

/// While a hold exists, updateLayout(1) only records its page; the outermost hold lays the recorded pages out, each
/// once, when it is released. Call release() last on every path on which the caller handles the failure of a layout.
/// GUI thread.
class guiLayoutHold
{
public:
    guiLayoutHold();
    /// Releases a hold that was not released; the failure of a layout is only logged.
    ~guiLayoutHold();
    guiLayoutHold(guiLayoutHold const&) = delete;
    guiLayoutHold& operator=(guiLayoutHold const&) = delete;

    /// Ends the hold and, if it is the outermost one, runs the recorded layouts. Only the first call does anything.
    /// Throws what a layout throws, velaError(ENOMEM) when memory runs out; the remaining layouts are dropped then.
    void release();

    static bool isHeld();
    /// Records that the page of this node needs a layout; false without a hold. Called by updateLayout(1).
    static bool postpone(guiHtml* node);

private:
    bool m_isReleased = false;
};

/// Limits how many files one load may load in turn, so that pages that include each other come to an end. Every load of
/// a file makes one on the stack. GUI thread.
class guiLoadBudget
{
public:
    /// Files that one load may load in turn, on all levels together.
    static constexpr unsigned kMaxFiles = 1000;
    /// Levels of pages within pages.
    static constexpr unsigned kMaxLevels = 32;

    guiLoadBudget();
    ~guiLoadBudget();
    guiLoadBudget(guiLoadBudget const&) = delete;
    guiLoadBudget& operator=(guiLoadBudget const&) = delete;

    bool isExhausted() const;
};
