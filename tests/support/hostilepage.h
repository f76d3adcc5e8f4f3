// tests/support/hostilepage.h: loads pages made to hurt, and watches what they cost.
#pragma once

#include "page/guipageroot.h"
#include "tests/support/canvas.h"
#include "tests/support/repeated.h"

#include <memory>
#include <string>
#include <vector>

/// Fails the test at its end when more processor time or more memory was used since it was made.
class budget
{
public:
    budget(double seconds, long megabytes);
    ~budget();
    budget(budget const&) = delete;
    budget& operator=(budget const&) = delete;

private:
    double m_seconds;
    long m_megabytes;
    double m_startSeconds;
    long m_startMegabytes;
};

/// Sets a page as script does; returns what the component had to say.
std::string hostileSetText(guiHtml& root, std::string const& markup);
/// Reads a page as a window loads it from a file; the same.
std::string hostileLoad(guiPageRoot& root, std::string markup);
/// The lines that are not about what the author of the page has written wrong (guipagemistakes.h).
std::string withoutMistakes(std::string const& log);
/// Whether every rectangle and every computed size is one that a toolkit can work with.
bool isPageWithinBounds(guiHtml* root);
/// All text runs one after the other, without their codes.
std::string textOfPage(guiHtml* root);
std::size_t textLengthOfPage(guiHtml* root);
unsigned countNodesOfPage(guiHtml* root);
/// Levels of nodes below the root.
unsigned deepestOfPage(guiHtml* root);

/// A page in a window of 480 by 240 pixels that nobody sees, laid out. `Window` is what the layer under test has for
/// one (tests/support/windowof.h).
template <typename Window>
class hostilePageIn
{
public:
    /// As script sets it.
    explicit hostilePageIn(std::string const& markup) : hostilePageIn()
    {
        m_log = hostileSetText(m_window->root, markup);
    }
    /// As a window loads it from a file.
    static hostilePageIn loaded(std::string markup)
    {
        hostilePageIn page;
        page.m_log = hostileLoad(page.m_window->root, std::move(markup));
        page.layOut(480, 240);
        return page;
    }

    /// What the component had to say.
    std::string const& log() const { return m_log; }
    void layOut(int width, int height)
    {
        m_window->root.m.rect = {0, width, 0, height};
        m_window->root.updateLayout(1);
    }
    /// Paints the window's content into a picture.
    void paint()
    {
        Canvas canvas(480, 240);
        canvas.paint(&m_window->root, m_window->widget);
    }
    bool isWithinBounds() const { return isPageWithinBounds(&m_window->root); }
    std::string text() const { return textOfPage(&m_window->root); }
    std::size_t textLength() const { return textLengthOfPage(&m_window->root); }
    unsigned countNodes() const { return countNodesOfPage(&m_window->root); }
    unsigned deepest() const { return deepestOfPage(&m_window->root); }

private:
    hostilePageIn() : m_window(std::make_unique<Window>(sstring(), 480, 240)) {}

    std::unique_ptr<Window> m_window;
    std::string m_log;
};

/// Numbers at and beyond the ends of every range, and what is no number.
std::vector<std::string> hostileNumbers();
