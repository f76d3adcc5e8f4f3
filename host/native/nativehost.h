// host/native/nativehost.h: the one header of the C++ host. A program makes a NativeHost, makes windows from pages,
// gives them handlers, and shows them:
//
//     NativeHost host({.folder = "pages"});
//     NativeWindow window = host.window("order.html");
//     window.on("onOk", [](NativeWindow& self, NativeArguments const&) { self.setReturnValue("ok"); self.close(); });
//     NativeValue answer = window.show();
#pragma once

#include "host/native/nativeengine.h"
#include "host/native/nativeentrypoints.h"
#include "host/native/nativewindow.h"

#include <filesystem>
#include <string>
#include <vector>

/// How a NativeHost is set up.
struct NativeHostOptions
{
    /// The folder at which relative file names start.
    std::filesystem::path folder = ".";
    /// The component; by default the one that the program is linked with.
    NativeEntryPoints component = NativeEntryPoints::linked();
    /// What all decoded pictures and movies may take together, in MiB; 0: as usual, 512.
    unsigned pictureMemory = 0;
};

/// Starts the component and ends it. One at a time in a process; the thread that makes it is the script thread, on
/// which all its functions are called unless they say otherwise. Handles of windows and objects may outlive it: their
/// calls then return null. exit() on the script thread, also from inside a handler, ends the component first; so does
/// the end of that thread. In a handler that the component calls on the script thread itself, as show() calls
/// ePostOpen, it cannot: exit() writes out the open streams then and leaves at once, without exit handlers and static
/// destructors.
class NativeHost
{
public:
    /// Throws std::runtime_error when there is a host already or the component cannot be started.
    explicit NativeHost(NativeHostOptions options = {});
    /// Ends the component, as `shutdown` does.
    ~NativeHost();
    NativeHost(NativeHost const&) = delete;
    NativeHost& operator=(NativeHost const&) = delete;

    /// A window without a page.
    NativeWindow window() { return NativeWindow(create("GuiWindow")); }
    /// A window with a page. When the page cannot be loaded, the component says so on standard error and isValid() is
    /// false.
    NativeWindow window(std::string_view page) { return NativeWindow(create("GuiWindow", {page})); }
    /// A new object of a class of the component ("GuiImage") or of the application; empty when there is no such class.
    NativeObjectRef create(std::string const& className, NativeArguments args = {});
    /// A new plain object. Any thread.
    NativeObjectRef object() { return m_engine->makeObject(); }
    /// A new function value: any callable (NativeObject& self, NativeArguments const&).
    template <typename Callable>
    NativeValue function(Callable callable)
    {
        NativeObjectRef function = m_engine->makeObject();
        function->makeCallable(nativeWrap<NativeObject>(std::move(callable)));
        return function;
    }
    /// Makes a class of the application known: pages name it in `classid`, and `create` makes objects of it. The
    /// callable (NativeObject& object, NativeArguments const&) adds the handlers of a new object.
    void registerClass(std::string const& name, NativeFactory factory)
    {
        m_engine->addFactory(name, std::move(factory));
    }

    /// Calls a function of a class itself, as in GuiWindow.onLoad(...).
    NativeValue callClass(std::string const& className, std::string_view method, NativeArguments args = {});
    /// Reads a property of a class itself, as in GuiSizePolicy.FIXED; null when there is none.
    NativeValue classProperty(std::string const& className, std::string_view name);
    /// A property of the session object: "currentWindow", "currentControl", "currentForm", "event".
    NativeValue session(std::string_view property);

    /// Serves handlers until every window that is open, or is opened meanwhile, is closed, or until quit(). Sleeps
    /// while nothing happens.
    void run();
    /// Makes run() return, or the next run() if none is running. Any thread.
    void quit();
    /// Runs `work` on the script thread, at the next turn. What it throws is reported. Any thread.
    void post(std::function<void()> work);
    /// Serves handlers until `done()` is true; false when that took longer than `limit`. `done` is asked after every
    /// turn.
    bool serveUntil(std::function<bool()> const& done, std::chrono::milliseconds limit);

    /// Ends the component: completes pending calls, destroys every object of its classes, and waits for its GUI thread.
    /// Refused, with a line on standard error, in a handler that runs inside a call of the component (a modal show(),
    /// say), since that call would return into a component that no longer exists.
    void shutdown();

    /// Makes the files of a folder readable as "vfs://`name`/...".
    void addFolder(std::string const& name, std::filesystem::path folder)
    {
        files().addFolder(name, std::move(folder));
    }
    /// Names of the component's classes, in the order in which it lists them.
    std::vector<std::string> const& classNames() const { return m_classNames; }
    NativeEngine& engine() { return *m_engine; }
    NativeFileService& files() { return m_engine->manager().files(); }

private:
    friend class NativeAtExit;
    void start();
    void end();

    NativeEntryPoints const m_component;
    std::shared_ptr<NativeEngine> const m_engine;
    std::vector<std::string> m_classNames;
    std::atomic<bool> m_quit{false};
};
