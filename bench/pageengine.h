// bench/pageengine.h: an engine that lays out pages, and the program that measures it. Each engine has a program of its
// own (bench/pageengine-*.cpp), because toolkits can not share a process and memory is counted per process;
// bench-page.cpp and bench-paint.cpp start them alternately and compare.
#pragma once

#include <string>

/// All methods are called on the main thread. Every engine uses the font kPageFont at kPageFontPixels.
class PageEngine
{
public:
    virtual ~PageEngine() = default;

    /// Prepares a page, given as UTF-8, in the form that the engine prefers. Not measured.
    virtual void take(std::string const& page) = 0;
    /// Parses the page and lays it out `width` pixels wide.
    virtual void load(int width) = 0;
    /// Lays the tree out again at another width.
    virtual void layOut(int width) = 0;
    /// The height of the layout in pixels, as evidence of the work.
    virtual int height() = 0;
    /// Frees the tree; the page stays.
    virtual void clear() = 0;
    /// A description of the layout's work; "" if the engine has none.
    virtual std::string effort() { return ""; }
};

/// A window of kPageWidth by kPageHeight that shows a page. GUI thread.
class PageView
{
public:
    virtual ~PageView() = default;

    /// Loads the page, given as UTF-8, and shows its top.
    virtual void show(std::string const& page) = 0;
    /// The largest scroll position, in pixels.
    virtual int range() = 0;
    /// Scrolls to a position; painting is done when it returns.
    virtual void scrollTo(int y) = 0;
    /// Paints the whole window.
    virtual void repaint() = 0;
};

inline constexpr char kPageFont[] = "DejaVu Sans";
inline constexpr int kPageFontPixels = 12;
inline constexpr int kPageWidth = 800;
inline constexpr int kPageHeight = 600;
inline constexpr int kNarrowWidth = 600;
/// One step of a scroll bar, in pixels.
inline constexpr int kScrollStep = 16;

/// The body of main() of a program that measures one engine; `view` may be null: then it can not paint.
///   PROGRAM load KIND KILOBYTES     prints "load S layout S bytes B kept B height H", B being resident bytes per byte
///                                   of the page, kept those that a trimmed heap still has
///   PROGRAM paint KIND KILOBYTES    prints "top S middle S end S step S", seconds
/// Seconds are processor time, of the least disturbed of several rounds.
int runPageProgram(int argc, char** argv, PageEngine& engine, PageView* view);
