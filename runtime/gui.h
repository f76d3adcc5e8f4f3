// runtime/gui.h: the component object. It owns the GUI thread and the component lock, knows the host's services, and
// keeps the registries: every live page node, which node a script object stands for, and which page an open window
// shows.
#pragma once

#include "foundation/hashlist.h"
#include "foundation/pmutex.h"
#include "foundation/vela-string.h"
#include "foundation/vela-threadrole.h"
#include "script/hostinterface.h"

#include <atomic>
#include <map>
#include <string>

class guiHtml;
class guiThread;
class guiWidget;
class textstream;

/// One component per process, made by `Init` and destroyed by `Shutdown` (script/guientrypoints.cpp) on the script
/// thread. As a hash list it is the
/// registry of live page nodes: a node pointer that arrives late is asked for here (`contains`) before anybody touches
/// it.
class guiComponent : public hashlist<guiHtml>
{
public:
    static constexpr unsigned kBuckets = 1027;

    /// Starts the GUI thread and returns when it runs. The calling thread is the script thread from now on.
    explicit guiComponent(LibManager& manager);
    ~guiComponent();
    guiComponent(guiComponent const&) = delete;
    guiComponent& operator=(guiComponent const&) = delete;

    guiThread* getThread() const { return m_t.thread; }
    HostLoadFile* getLoadFile() const { return m_loadFile; }
    HostFormProp* getFormProp() const { return m_formProp; }
    HostPlatform* getPlatform() const { return m_platform; }
    LibManager& getManager() const { return m_manager; }
    /// The session object, null until the first window is made.
    ScriptObject* getSession() const { return m_session.load(std::memory_order_acquire); }
    /// The engine of the window made last, null until there is one.
    ScriptEngine* getEngine() const { return m_t.engine.load(std::memory_order_acquire); }

    /// Takes and releases the component lock. Recursive; any thread. The host is never called while it is held.
    void enter();
    void leave();

    /// Stores the engine and makes the session object the first time. Script thread.
    void setEngine(ScriptEngine* engine);
    /// The host's message pump, null without an engine. Any thread.
    ScriptPump* getPump() const;

    /// Makes `widget` the current window and publishes its page object as session property "currentWindow"; nothing
    /// when it is current already. GUI thread.
    void setCurrentWindow(guiWidget* widget);
    /// A top-level widget was made for the page `root`, or is going. GUI thread.
    void onOpen(guiWidget* widget, guiHtml* root);
    void onClose(guiWidget* widget, guiHtml* root);
    /// The window is on the screen or being painted, or is not any more. GUI thread.
    void onVisible(guiWidget* widget, bool isVisible);
    /// Whether the widget is among the open windows. Any thread.
    bool isWindowOpen(guiWidget* widget);
    /// Whether any window is open. Any thread.
    bool hasOpenWindow();

    /// Runs script work until the window is gone or hidden; with no widget, runs what is ready once. Script thread.
    void runPump(guiWidget* widget);

    /// Reads a file through the host into a stream owned by the caller; null when it can not be read. `relativeTo` may
    /// be null.
    textstream* loadTextStream(ScriptObject* relativeTo, sstring path);

    /// Which page node a script object stands for: kept up by the nodes that have one. Any thread.
    void bindObject(ScriptObject* object, guiHtml* node);
    void unbindObject(ScriptObject* object);
    guiHtml* findNode(ScriptObject* object);

    /// Calls into script made for pages that are in flight, over all windows. Any thread.
    void shutdownEnter();
    void shutdownLeave();
    /// Waits, without an upper bound, until there is no such call; returns with the component lock held.
    void shutdownWait();

    /// Writes a formatted message to standard error and adds nothing to it. Any thread; needs no component.
    static void logError(char const* format, ...) __attribute__((format(printf, 1, 2)));

    /// A text as it goes into a message: UTF-8 whatever the locale, since names of files and elements are in any
    /// script.
    static std::string printable(sstring const& text);

    /// Host objects, always with the current engine. Made by one, released by the other.
    static ScriptObject* NewScriptObject();
    static ScriptValue* NewScriptValue();
    static ScriptArgs* NewScriptArgs();
    static void DeleteScriptObject(ScriptObject* object);
    static void DeleteScriptValue(ScriptValue* value);
    static void DeleteScriptArgs(ScriptArgs* args);

private:
    bool isWaitedFor(guiWidget* widget);
    void closeWindows();
    void destroyLock();

    struct window_t
    {
        guiHtml* root;  // not owned
        bool isVisible; // shown or painting, see onVisible()
    };

    struct t_record
    {
        guiThread* thread = nullptr;                // owned
        rmutex* lock = nullptr;                     // owned
        std::atomic<ScriptEngine*> engine{nullptr}; // not owned
    };

    LibManager& m_manager;
    std::map<ScriptObject*, guiHtml*> m_nodes; // guarded by the component lock
    t_record m_t;
    HostLoadFile* m_loadFile = nullptr;
    HostFormProp* m_formProp = nullptr;
    HostPlatform* m_platform = nullptr;
    std::atomic<ScriptObject*> m_session{nullptr};
    guiWidget* m_currentWindow TARN_GUARDED_BY(velaGuiRole) = nullptr; // not owned
    std::map<guiWidget*, window_t> m_windows;                          // guarded by the component lock
    pevent* m_idle = nullptr;     // owned; set when the last call into script has ended
    unsigned m_shutdownCount = 0; // guarded by the component lock
};

/// The one component, null when not initialised. Set and cleared on the script thread.
extern guiComponent* pGUI;
