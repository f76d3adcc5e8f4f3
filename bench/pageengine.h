// bench/pageengine.h: an engine that lays pages out, and the program that measures one. Each engine is measured by a
// program of its own (bench/pageengine-*.cpp), since toolkits do not share a process well and memory is counted per
// process; bench-page.cpp and bench-paint.cpp start them in turns and compare.
#pragma once

#include <string>

/// All methods are called on the main thread. The font is kPageFont in kPageFontPixels, whatever the engine's default.
class PageEngine
{
public:
    virtual ~PageEngine() = default;

    /// Takes a page, UTF-8, in the form in which the engine reads it best. Not measured.
    virtual void take(std::string const& page) = 0;
    /// From the page's text to a laid-out tree, `width` pixels wide.
    virtual void load(int width) = 0;
    /// Lays the tree out again.
    virtual void layOut(int width) = 0;
    /// The laid-out height in pixels: the proof that something was done.
    virtual int height() = 0;
    /// Drops the tree; the page stays.
    virtual void clear() = 0;
    /// How much work layout was, in words for a person; "" if the engine does not say.
    virtual std::string effort() { return ""; }
};

/// A window of kPageWidth by kPageHeight that shows a page. GUI thread.
class PageView
{
public:
    virtual ~PageView() = default;

    /// Loads the page (UTF-8) and shows its top.
    virtual void show(std::string const& page) = 0;
    /// How far the page can be scrolled, in pixels.
    virtual int range() = 0;
    /// Scrolls there and has painted when it returns.
    virtual void scrollTo(int y) = 0;
    /// Paints the whole window.
    virtual void repaint() = 0;
};

inline constexpr char kPageFont[] = "DejaVu Sans";
inline constexpr int kPageFontPixels = 12;
inline constexpr int kPageWidth = 800;
inline constexpr int kPageHeight = 600;
inline constexpr int kNarrowWidth = 600;
/// What one step of a scroll bar moves.
inline constexpr int kScrollStep = 16;

/// The body of main() of a program that measures one engine; `view` may be null: then it can not paint.
///   PROGRAM load KIND KILOBYTES     prints "load S layout S bytes B kept B height H", B being resident bytes per byte
///                                   of the page, kept those that a trimmed heap still has
///   PROGRAM paint KIND KILOBYTES    prints "top S middle S end S step S", seconds
/// Seconds are processor time, of the least disturbed of several rounds.
int runPageProgram(int argc, char** argv, PageEngine& engine, PageView* view);
