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
#include <memory>
#include <string>
#include <vector>

#include <pthread.h>

class guiHtml;
class guiThread;
class guiWidget;
class textstream;

/// One component per process, made by `Init` and destroyed by `Shutdown` (script/guientrypoints.cpp) on the script
/// thread. As a hash list it is the registry of live page nodes: whoever receives a node pointer late asks here
/// (`contains`) before using it.
class guiComponent : public hashlist<guiHtml>
{
public:
    static constexpr unsigned kBuckets = 1027;

    /// Starts the GUI thread and returns when it runs. The calling thread is the script thread from now on.
    explicit guiComponent(LibManager& manager);
    /// Closes the windows that are still open and ends the GUI thread. Entered with the component lock held, as
    /// shutdownWait() leaves it.
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

    /// Takes and releases the component lock. Recursive; any thread. Never held while the host is called or another
    /// thread is waited for, except at the component's end.
    void enter();
    void leave();
    /// Whether the calling thread holds the lock.
    bool holdsLock() const;

    /// Stores the engine and makes the session object the first time. Script thread.
    void setEngine(ScriptEngine* engine);
    /// The host's message pump, null without an engine. Any thread.
    ScriptPump* getPump() const;

    /// Makes `widget` (may be null) the current window and publishes its page object as session property
    /// "currentWindow"; does nothing when it is current already. GUI thread.
    void setCurrentWindow(guiWidget* widget);
    /// A top-level widget was made for the page `root`. GUI thread.
    void onOpen(guiWidget* widget, guiHtml* root);
    /// A top-level widget is going; does nothing for an unknown one. GUI thread.
    void onClose(guiWidget* widget, guiHtml* root);
    /// The window has appeared on the screen or disappeared from it. GUI thread.
    void onVisible(guiWidget* widget, bool isVisible);
    /// Whether the widget is among the open windows. Any thread.
    bool isWindowOpen(guiWidget* widget);
    /// The pages of the open windows. Any thread.
    std::vector<guiHtml*> openPages();
    /// Whether any window is open. Any thread.
    bool hasOpenWindow();

    /// Runs script work until the window is gone or hidden; without a widget, runs what is ready, once. Script thread.
    void runPump(guiWidget* widget);

    /// Reads a file through the host; null when it can not be read. `relativeTo` may be null. Any thread.
    std::unique_ptr<textstream> loadTextStream(ScriptObject* relativeTo, sstring path);

    /// Which page node a script object stands for. A node that has an object binds it, and unbinds it before it goes.
    /// Any thread.
    void bindObject(ScriptObject* object, guiHtml* node);
    void unbindObject(ScriptObject* object);
    guiHtml* findNode(ScriptObject* object);

    /// Counts the calls into script that are in flight for any page. A surplus shutdownLeave() does nothing. Any
    /// thread.
    void shutdownEnter();
    void shutdownLeave();
    /// Whether at least `count` calls are in flight. Under the component lock.
    bool hasCallsInFlight(unsigned count) const;
    /// Waits as long as it takes until no call is in flight; returns with the component lock held. Script thread.
    void shutdownWait();

    /// Writes a formatted message to standard error, exactly as it is. Any thread; needs no component.
    static void logError(char const* format, ...) __attribute__((format(printf, 1, 2)));

    /// A text as it goes into a message: UTF-8 whatever the locale, since names of files and elements may be in any
    /// language.
    static std::string printable(sstring const& text);

    /// Host objects, always with the current engine. What New... makes goes back to the matching Delete...
    static ScriptObject* NewScriptObject();
    static ScriptValue* NewScriptValue();
    static ScriptArgs* NewScriptArgs();
    static void DeleteScriptObject(ScriptObject* object);
    static void DeleteScriptValue(ScriptValue* value);
    static void DeleteScriptArgs(ScriptArgs* args);

private:
    bool isShown(guiWidget* widget);
    void closeWindows();
    void destroyLock();

    struct openWindow
    {
        guiHtml* root;  // not owned
        bool isVisible; // on the screen, see onVisible()
    };

    struct fields
    {
        guiThread* thread = nullptr;                // owned
        rmutex* lock = nullptr;                     // owned
        std::atomic<ScriptEngine*> engine{nullptr}; // not owned
    };

    LibManager& m_manager;
    std::map<ScriptObject*, guiHtml*> m_nodes; // guarded by the component lock
    fields m_t;
    HostLoadFile* m_loadFile = nullptr;
    HostFormProp* m_formProp = nullptr;
    HostPlatform* m_platform = nullptr;
    std::atomic<ScriptObject*> m_session{nullptr};
    guiWidget* m_currentWindow TARN_GUARDED_BY(velaGuiRole) = nullptr; // not owned
    std::map<guiWidget*, openWindow> m_windows;                        // guarded by the component lock
    pevent* m_idle = nullptr;              // owned; set when the last call into script has ended
    unsigned m_shutdownCount = 0;          // guarded by the component lock
    std::atomic<pthread_t> m_lockHolder{}; // 0: none
    unsigned m_lockDepth = 0;              // guarded by the component lock
};

/// The one component, null before `Init` and after `Shutdown`. Set and cleared on the script thread.
extern guiComponent* pGUI;

/// Gives a host object back to the host.
struct guiHostDeleter
{
    void operator()(ScriptObject* object) const { guiComponent::DeleteScriptObject(object); }
    void operator()(ScriptValue* value) const { guiComponent::DeleteScriptValue(value); }
    void operator()(ScriptArgs* args) const { guiComponent::DeleteScriptArgs(args); }
};

/// Host objects that the component owns. Made with the current engine; they must go before the component does.
using guiOwnedObject = std::unique_ptr<ScriptObject, guiHostDeleter>;
using guiOwnedValue = std::unique_ptr<ScriptValue, guiHostDeleter>;
using guiOwnedArgs = std::unique_ptr<ScriptArgs, guiHostDeleter>;

inline guiOwnedObject guiNewObject() { return guiOwnedObject(guiComponent::NewScriptObject()); }
inline guiOwnedValue guiNewValue() { return guiOwnedValue(guiComponent::NewScriptValue()); }
inline guiOwnedArgs guiNewArgs() { return guiOwnedArgs(guiComponent::NewScriptArgs()); }
