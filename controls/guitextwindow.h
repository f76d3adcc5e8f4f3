// controls/guitextwindow.h: what those parts of a window that deal with the text of its page ask of the window.
#pragma once

#include "foundation/vela-threadrole.h"

class QWidget;
class guiPageRoot;

/// GUI thread.
class guiTextWindow
{
public:
    guiTextWindow(guiTextWindow const&) = delete;
    guiTextWindow& operator=(guiTextWindow const&) = delete;

    virtual QWidget* asWidget() = 0;
    /// The page, not owned; null once it has left the window.
    virtual guiPageRoot* shownPage() const = 0;
    /// Nothing is selected any more, and nothing found is marked unless the find bar is open.
    virtual void dropMarks() = 0;
    /// Opens the bar in which the user looks for a text. May run script.
    virtual void openFindBar() TARN_ON(velaGuiRole) = 0;

protected:
    guiTextWindow() = default;
    ~guiTextWindow() = default;
};
