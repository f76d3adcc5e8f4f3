// tests/page/hostilesupport.h: loads pages made to hurt, and watches what they cost.
#pragma once

#include "tests/support/pagewindow.h"

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

/// A page in a window of 480 by 240 pixels that nobody sees, laid out.
class hostilePage
{
public:
    /// As script sets it.
    explicit hostilePage(std::string const& markup);
    /// As a window loads it from a file.
    static hostilePage loaded(std::string markup);

    /// What the component had to say.
    std::string const& log() const { return m_log; }
    void layOut(int width, int height);
    /// Paints the window's content into a picture.
    void paint();
    /// Whether every rectangle and every computed size is one that a toolkit can work with.
    bool isWithinBounds() const;
    /// All text runs one after the other.
    std::string text() const;
    std::size_t textLength() const;
    unsigned countNodes() const;
    /// Levels of nodes below the root.
    unsigned deepest() const;

private:
    hostilePage();

    std::unique_ptr<PageWindow> m_window;
    std::string m_log;
};

std::string repeated(std::string const& text, std::size_t count);

/// Numbers at and beyond the ends of every range, and what is no number.
std::vector<std::string> hostileNumbers();
