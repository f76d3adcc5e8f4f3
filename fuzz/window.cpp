// fuzz/window.cpp: whole windows, with the C++ host: pages are loaded, clicked, typed into, resized and closed in any
// order, and the handlers that this calls do the same. At the end the windows can always be closed, and then no page
// node, object or call remains.
//
// Input: a list of steps, each a byte that selects it and a few bytes of arguments. Handlers read their steps from the
// same bytes.

#include "controls/guiwidget.h"
#include "fuzz/bytes.h"
#include "fuzz/finding.h"
#include "host/native/nativehost.h"
#include "page/guinodewatch.h"
#include "runtime/gui.h"
#include "runtime/guihtmlbase.h"
#include "runtime/guithread.h"
#include "script/guiwindow.h"

#include <filesystem>
#include <fstream>
#include <optional>

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

namespace {

constexpr unsigned kWindows = 3;
constexpr int kMaxActions = 60; // of an input, including those of handlers

/// The pages. "a" to "d" are handlers.
struct PageFile
{
    char const* name;
    char const* text;
};
constexpr PageFile kPages[] = {
    {"links.html", "<body width=200 height=100 onmouseover='event://b/1' border=1><font size=7>"
                   "<a href='event://a/1/2'>MMMMMM</a> <a href='{_self}form.html'>NNNN</a> <a href='event://c'>C</a>"
                   "</font><table name=cell scroll=yes width=100 height=40><td>word word word word word word word word "
                   "word word word word word word word word word <a href='event://d/x'>inside</a></table></body>"},
    {"form.html", "<body width=300 height=200 enter=go escape=X><form name=f action='event://a/form'>"
                  "<input type=text name=t value=text tabindex=1><input type=checkbox name=k><input type=radio name=r "
                  "group=g value=1><input type=radio name=s group=g><select name=l size=3><option value=1>one<option "
                  "selected value=2>two</select><textarea name=m rows=3 cols=20>some text</textarea><input type=submit "
                  "name=go value=Go><input type=button name=b value=B action='event://b'></form></body>"},
    {"frames.html",
     "<frameset cols='50%,*'><frame name=left src=links.html><frame name=right src=form.html></frameset>"},
    {"scroll.html", "<body width=200 height=100 scroll=yes><h1>Title</h1><p>text text text text text<p>text<p>text<p>"
                    "<a name=mark href='{cell}links.html#mark'>link</a><table name=cell border=2><td "
                    "onmousemove='event://c/move' onclick='event://d'>cell</table><hr><p>text<p>text<p>text</body>"},
    {"broken.html", "<body><table><td>text ]]> text<img src=nothing.png><object classid=None></object>"},
    {"loop.html", "<frameset rows='*,*'><frame name=left src=loop.html><frame name=cell src=scroll.html></frameset>"},
};
char const* const kNames[] = {"links.html",       "form.html",    "frames.html",
                              "scroll.html",      "broken.html",  "loop.html",
                              "scroll.html#mark", "nowhere.html", ""};
char const* const kControls[] = {"t", "k", "r", "l", "m", "go", "b", "cell", "left", "right", "f", "nobody", ""};
char const* const kMethods[] = {"getText",    "setText",    "isOn",           "setOn",   "addItem",
                                "removeItem", "selectItem", "enable",         "disable", "isEnabled",
                                "setCaption", "loadFile",   "loadBackground", "trigger", "update"};
int const kKeys[] = {Qt::Key_Return, Qt::Key_Escape,   Qt::Key_Tab,  Qt::Key_Backtab, Qt::Key_Space, Qt::Key_Down,
                     Qt::Key_Up,     Qt::Key_PageDown, Qt::Key_Home, Qt::Key_A,       Qt::Key_Enter, Qt::Key_Delete};

template <typename T, size_t N>
T oneOf(T const (&list)[N], FuzzBytes& input)
{
    return list[input.below(N)];
}

/// The folder of the pages; deleted with the process.
class World
{
public:
    World()
    {
        char pattern[] = "/tmp/tarn-fuzz-XXXXXX";
        require(mkdtemp(pattern), "no room for temporary files");
        m_folder = pattern;
        for (PageFile const& page : kPages)
            std::ofstream(m_folder / page.name) << page.text;
        m_host.emplace(NativeHostOptions{.folder = m_folder});
    }
    ~World()
    {
        m_host.reset();
        std::filesystem::remove_all(m_folder);
    }
    World(World const&) = delete;
    World& operator=(World const&) = delete;
    NativeHost& host() { return *m_host; }

private:
    std::filesystem::path m_folder;
    std::optional<NativeHost> m_host;
};

World& world()
{
    static World world;
    return world;
}

/// An action of the user. Numbers, because they are passed to the GUI thread as arguments of a call.
enum UserAct
{
    kPress,
    kRelease,
    kMove,
    kWheel,
    kKey,
    kResize,
    kCloseButton,
    kActs
};

void postMouse(QWidget* top, QEvent::Type type, QPoint at)
{
    QWidget* child = top->childAt(at);
    QWidget* target = child ? child : top;
    Qt::MouseButton const button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    Qt::MouseButtons const held = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
    QCoreApplication::postEvent(
        target, new QMouseEvent(type, target->mapFrom(top, at), top->mapToGlobal(at), button, held, Qt::NoModifier));
}

void postWheel(QWidget* top, QPoint at, int steps)
{
    QWidget* child = top->childAt(at);
    QWidget* target = child ? child : top;
    QCoreApplication::postEvent(target,
                                new QWheelEvent(target->mapFrom(top, at), top->mapToGlobal(at), {}, {0, steps * 120},
                                                Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false));
}

void postKey(QWidget* top, int key)
{
    QWidget* target = top->focusWidget() ? top->focusWidget() : top;
    QString const text = key == Qt::Key_A ? QStringLiteral("a") : QString();
    QCoreApplication::postEvent(target, new QKeyEvent(QEvent::KeyPress, key, Qt::NoModifier, text));
    QCoreApplication::postEvent(target, new QKeyEvent(QEvent::KeyRelease, key, Qt::NoModifier, text));
}

/// args: a UserAct and two numbers. GUI thread.
void actOnGuiThread(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs& args, ScriptValue&)
{
    guiWindowData* record = guiWindow_getData(data);
    guiHtmlBase* root = record ? GetWindow(record) : nullptr;
    guiWidget* top = root ? root->getWidget() : nullptr;
    if (!top)
        return;
    int const first = args.get(1)->toInt(0);
    int const second = args.get(2)->toInt(0);
    switch (args.get(0)->toInt(0)) {
    case kPress:
        return postMouse(top, QEvent::MouseButtonPress, {first, second});
    case kRelease:
        return postMouse(top, QEvent::MouseButtonRelease, {first, second});
    case kMove:
        return postMouse(top, QEvent::MouseMove, {first, second});
    case kWheel:
        return postWheel(top, {first, first}, second % 7 - 3);
    case kKey:
        return postKey(top, first);
    case kResize:
        return top->resize(first, second);
    default:
        QCoreApplication::postEvent(top, new QCloseEvent);
    }
}

void nothing(LibManager&, ScriptPrivate*, ScriptObject*, ScriptArgs&, ScriptValue&) {}

void onGuiThread(ScriptMethod method, NativeObject* object, NativeArguments args)
{
    NativeValue ignored;
    pGUI->getThread()->callFunction(method, pGUI->getManager(), object ? object->getPrivate() : nullptr, object, args,
                                    ignored);
}

/// Lets the GUI thread handle posted events, and this thread the resulting calls.
void settle(NativeHost& host)
{
    for (int i = 0; i < 2; ++i)
        onGuiThread(nothing, nullptr, {});
    host.engine().pump().turn(std::chrono::nanoseconds(0));
}

/// Runs one input.
class Session
{
public:
    Session(FuzzBytes& input, NativeHost& host) : m_input(input), m_host(host)
    {
        for (NativeWindow& window : m_windows) {
            window = m_host.window();
            addHandlers(window);
        }
    }

    /// Closes everything; further actions of handlers are refused.
    ~Session()
    {
        m_actionsLeft = 0;
        for (NativeWindow& window : m_windows)
            window.close();
        require(m_host.serveUntil([this] { return !m_host.engine().windows().any(); }, std::chrono::seconds(10)),
                "a closed window stays open");
        // A click before the end may call a handler of this session after it.
        require(m_host.serveUntil([this] { return hasNoCalls(); }, std::chrono::seconds(10)), "a call does not end");
        for (NativeWindow& window : m_windows)
            window = NativeWindow();
    }
    Session(Session const&) = delete;
    Session& operator=(Session const&) = delete;

    void run()
    {
        while (!m_input.isEmpty() && m_actionsLeft > 0) {
            act(anyWindow());
            settle(m_host);
        }
    }

private:
    bool hasNoCalls()
    {
        settle(m_host);
        return m_host.engine().calls().size() == 0;
    }

    NativeWindow& anyWindow() { return m_windows[m_input.below(kWindows)]; }

    void addHandlers(NativeWindow& window)
    {
        for (char const* name : {"a", "b", "c", "d"})
            window.on(name, [this](NativeWindow& self, NativeArguments const&) -> NativeValue { return answer(self); });
    }

    NativeValue answer(NativeWindow& self)
    {
        for (unsigned i = m_input.below(3); i != 0; --i)
            act(m_input.flag() ? self : anyWindow());
        return m_input.below(4) == 0 ? NativeValue(oneOf(kNames, m_input)) : NativeValue();
    }

    void user(NativeWindow& window, UserAct act, int first, int second)
    {
        if (window.object())
            onGuiThread(actOnGuiThread, window.object().get(), {static_cast<int>(act), first, second});
    }

    void userActs(NativeWindow& window)
    {
        auto const act = static_cast<UserAct>(m_input.below(kActs));
        int const first =
            act == kKey ? oneOf(kKeys, m_input) : static_cast<int>(m_input.byte()) * (act == kResize ? 4 : 1);
        int const second = m_input.byte();
        user(window, act, first, second);
        if (act == kPress && second % 4 != 0)
            user(window, kRelease, first, second);
    }

    void useControl(NativeWindow& window)
    {
        NativeObjectRef control = window.control(oneOf(kControls, m_input));
        if (control)
            control->call(oneOf(kMethods, m_input), {"links.html", static_cast<int>(m_input.below(3))});
    }

    /// Arranges that the modal window is closed, before opening it.
    void showModally(NativeWindow const& window)
    {
        m_host.post([window] { window.close(); });
        window.show();
    }

    void act(NativeWindow& window)
    {
        if (m_actionsLeft-- <= 0)
            return;
        switch (m_input.below(16)) {
        case 0:
            window.load(oneOf(kNames, m_input));
            return;
        case 1:
            window.setText(kPages[m_input.below(std::size(kPages))].text);
            return;
        case 2:
            window.setText(m_input.text(m_input.byte()));
            return;
        case 3:
            window.loadFile(oneOf(kNames, m_input));
            return;
        case 4:
            return window.close();
        case 5:
            window.setDefaultSize(static_cast<int>(m_input.word()), static_cast<int>(m_input.byte()));
            return window.setResizable(m_input.flag());
        case 6:
            return window.setFocus(oneOf(kControls, m_input));
        case 7:
            return useControl(window);
        case 8:
            return showModally(window);
        case 9:
            window.open(m_input.flag());
            return;
        case 10:
        case 11:
            window.load("links.html");
            window.open();
            return;
        default:
            return userActs(window);
        }
    }

    FuzzBytes& m_input;
    NativeHost& m_host;
    NativeWindow m_windows[kWindows];
    int m_actionsLeft = kMaxActions;
};

/// Everything whose number must be the same before and after an input.
struct Census
{
    explicit Census(NativeHost& host) : nodes(pGUI->size()), objects(host.engine().objects().size()) {}
    bool operator==(Census const&) const = default;
    size_t nodes;
    size_t objects;
};

/// The session keeps the window, the form and the control that were used last; when a window closes, the next becomes
/// the current one.
bool isBackAt(Census const& before, NativeHost& host)
{
    return host.serveUntil(
        [&] {
            if (NativeObjectRef session = host.engine().session())
                for (char16_t const* name : {u"currentWindow", u"currentForm", u"currentControl"})
                    session->writeProperty(name, NativeValue());
            settle(host);
            return Census(host) == before;
        },
        std::chrono::seconds(2));
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    silenceLog();
    world().host().window(); // makes what all windows share
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(uint8_t const* bytes, size_t size)
{
    NativeHost& host = world().host();
    Census const before(host);
    FuzzBytes input(bytes, size);
    Session(input, host).run();
    if (!isBackAt(before, host))
        finding(pGUI->size() != before.nodes ? "page nodes are left over" : "script objects are left over");
    require(guiNodeWatch::count() == 0, "a watch of a node is left over");
    require(host.engine().calls().size() == 0, "a call is left over");
    return 0;
}
