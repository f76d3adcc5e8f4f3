// runtime/guipagewatcher.h: who hears what becomes of pages while their files are watched, so that they can be read
// anew (guireload.h). There is none unless live reload has been turned on: whoever would tell it asks for a null
// pointer.
#pragma once

#include "foundation/vela-string.h"
#include "foundation/vela-threadrole.h"

#include <atomic>
#include <optional>

class guiHtml;
class guiHtmlBase;
class guiWidget;
class ScriptObject;

/// What script has said to an element. None: nothing.
struct guiSaid
{
    std::optional<sstring> text;
    std::optional<sstring> caption;
    std::optional<sstring> background;
    std::optional<sstring> picture; ///< the full name of a picture's file
    std::optional<int> enabled;

    bool isSilent() const { return !text && !caption && !background && !picture && !enabled; }
};

/// GUI thread, unless it says otherwise.
class guiPageWatcher
{
public:
    /// A page of the window names this file, in full; it need not exist. `window`: its script object, null outside one.
    /// Any thread.
    virtual void onFile(ScriptObject* window, sstring const& path) = 0;
    /// The window's script object goes.
    virtual void onWindowGone(ScriptObject* window) = 0;
    /// Content at and below the node has been read, and nothing has touched it yet.
    virtual void onContent(guiHtmlBase& root, guiHtml* node) TARN_ON(velaGuiRole) = 0;
    /// The window is about to show this text, whose names start at the directory; none: what a file holds.
    virtual void onText(guiHtmlBase& root, std::optional<sstring> const& text, sstring const& directory)
        TARN_ON(velaGuiRole) = 0;
    /// A window has been made and is not shown yet.
    virtual void onOpen(guiHtmlBase& root, guiWidget& window) TARN_ON(velaGuiRole) = 0;
    /// Script changes the element: where that is to be noted. Valid until the next call.
    virtual guiSaid& said(guiHtml* node) TARN_ON(velaGuiRole) = 0;
    /// Whether a page is being shown anew now: what its controls report then is nobody's doing.
    virtual bool isShowing() const = 0;
    /// The text of the page in this file, when it has been read and filtered already; and whether it has.
    virtual std::optional<sstring> textOf(sstring const& path) TARN_ON(velaGuiRole) = 0;
    virtual bool hasText(sstring const& path) TARN_ON(velaGuiRole) = 0;

    /// Null: nobody watches. Any thread.
    static guiPageWatcher* current() { return s_current.load(std::memory_order_acquire); }
    /// Not owned, never destroyed.
    static void install(guiPageWatcher* watcher) { s_current.store(watcher, std::memory_order_release); }

protected:
    ~guiPageWatcher() = default;

private:
    static inline std::atomic<guiPageWatcher*> s_current{nullptr};
};
