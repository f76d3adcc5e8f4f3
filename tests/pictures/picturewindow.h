// tests/pictures/picturewindow.h: a page of this folder in a window, what a user can do to it, and its picture.
#pragma once

#include "host/native/nativehost.h"

#include <QImage>
#include <functional>
#include <string>

class guiHtml;
class guiHtmlBase;

/// An open window with a page. Coordinates are the page's own, of the window's inside, whatever the scale. Script
/// thread.
class PictureWindow
{
public:
    /// Opens the page and waits until it is on the screen. Throws std::runtime_error when that takes too long.
    PictureWindow(NativeHost& host, std::string const& page);
    ~PictureWindow();
    PictureWindow(PictureWindow const&) = delete;
    PictureWindow& operator=(PictureWindow const&) = delete;

    void pointAt(int x, int y);
    /// Presses the left button there, after pointing there; it stays down.
    void press(int x, int y);
    void disable(std::string const& name);
    /// Pulls the scroll bars of a named node to a place; "" is the page itself.
    void scroll(std::string const& name, int x, int y);
    void resize(int width, int height);
    /// Later pictures show the named node's border as the highlighted one.
    void highlight(std::string const& name) { m_highlighted = name; }

    /// What the screen shows of the window, in pixels of the screen, once it is what a full repaint would give; or
    /// after 5 seconds, whatever it is.
    QImage take();

private:
    void onGuiThread(std::function<void(guiHtmlBase&)> const& work);
    void postMouse(int type, int x, int y);
    void waitUntilShown();

    NativeHost& m_host;
    NativeWindow m_window;
    std::string m_highlighted;
};
