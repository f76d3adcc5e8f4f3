// page/guiunzoomed.h: what a node of a zoomed page had before it was zoomed.
#pragma once

/// The lengths of a node as its page gives them, in pixels, beside what they were scaled to. A length that is another
/// one by now was set meanwhile, at the zoom of then.
struct guiUnzoomed
{
    /// A length as it is written, and scaled.
    struct length
    {
        int written = 0;
        int shown = 0;
    };

    length cxMin, cyMin, x, y, space, divide, border, padding;
    bool isMadeToScroll = false; ///< a page that would not scroll, but is larger than its window now
};
