// tests/script/windowmethods_test.cpp: tests of the 26 methods of GuiWindow as a table: each in every state of a
// window, with right and with wrong arguments; of what they change; and of every message that the class prints.
#include "controls/guiwidget.h"
#include "host/hostslots.h"
#include "host/native/nativeprivate.h"
#include "runtime/guifilter.h"
#include "script/guicontrol.h"
#include "tests/script/scriptfixture.h"
#include "tests/support/fakescript.h"

#include <QCoreApplication>
#include <QPixmap>
#include <limits>
#include <stdexcept>

namespace {

/// What a window has gone through.
enum State
{
    kWithoutPage,
    kWithPage,
    kShown,
    kClosed,
    kEnded,
    kStates
};
char const* const kStateNames[] = {"without a page", "with a page", "shown", "closed", "ended"};

class WindowMethods : public ScriptTest
{
protected:
    WindowMethods()
    {
        write("page.html",
              "<html><title>A title</title><body><table name=box><tr><td>x</td></tr></table></body></html>");
        write("paper.bmp", std::string("BM\x3a\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\1\0\0\0\1\0\0\0\1\0\x18\0", 30) +
                               std::string(24, '\0') + std::string(4, '\x7f'));
    }

    NativeWindow windowIn(State state)
    {
        NativeWindow window = state == kWithoutPage ? host.window() : host.window("page.html");
        if (state == kShown || state == kClosed)
            window.call("open");
        if (state == kClosed)
            window.close();
        if (state == kEnded)
            window.object()->runDestroyHandler();
        return window;
    }
};

/// A result for each state. `isObject` stands for any object.
struct Row
{
    char const* method;
    NativeArguments args;
    NativeValue results[kStates];
};

NativeValue const kNull;

Row const kRows[] = {
    {"open", {}, {false, true, true, true, false}},
    {"open", {true}, {false, true, true, true, false}},
    {"open", {false}, {false, true, true, true, false}},
    {"open", {1}, {false, true, true, true, false}},
    {"open", {"modal"}, {false, true, true, true, false}},
    {"open", {true, true}, {false, true, true, true, false}},
    {"close", {}, {}},
    {"isOpen", {}, {false, false, true, false, false}},
    {"isValid", {}, {false, true, true, true, false}},
    {"load", {"page.html"}, {true, true, true, true, false}},
    {"loadFile", {"page.html"}, {true, true, true, true, false}},
    {"setText", {"text"}, {false, true, true, true, false}},
    {"loadBackground", {"paper.bmp"}, {false, true, true, true, false}},
    {"setReturnValue", {"x"}, {}},
    {"setMinimumSize", {100, 200}, {}},
    {"setMaximumSize", {100, 200}, {}},
    {"setDefaultSize", {100, 200}, {}},
    {"setResizable", {}, {}},
    {"setResizable", {false}, {}},
    {"useSystemFont", {}, {}},
    {"useSystemFont", {0}, {}},
    {"setTitle", {"t"}, {}},
    {"setIcon", {""}, {}},
    {"getTitle", {}, {"", "A title", "A title", "A title", ""}},
    {"setFocus", {"box"}, {}},
    {"getFocus", {}, {"", "", "", "", ""}},
    {"setEnterControl", {"box"}, {}},
    {"getEnterControl", {}, {"", "", "", "", ""}},
    {"setEscapeControl", {"box"}, {}},
    {"getEscapeControl", {}, {"", "", "", "", ""}},
    {"setSizePolicy", {"FIXED"}, {}},
    {"getSizePolicy", {}, {"RESIZE", "RESIZE", "RESIZE", "RESIZE", "RESIZE"}},
};

TEST_F(WindowMethods, GiveTheirResultInEveryStateOfTheWindow)
{
    for (Row const& row : kRows) {
        for (int state = 0; state < kStates; ++state) {
            NativeWindow window = windowIn(static_cast<State>(state));
            EXPECT_EQ(window.call(row.method, row.args), row.results[state])
                << row.method << " " << row.args.size() << ", " << kStateNames[state];
        }
    }
}

TEST_F(WindowMethods, ShowWithoutAPageOrAfterTheEndReturnsNullAtOnce)
{
    for (State state : {kWithoutPage, kEnded}) {
        NativeWindow window = windowIn(state);
        window.on("ePostOpen", [](NativeWindow&, NativeArguments const&) { ADD_FAILURE(); });
        EXPECT_EQ(window.call("show"), kNull);
        EXPECT_EQ(window.call("show", {1, "x"}), kNull);
    }
}

TEST_F(WindowMethods, ControlGivesAnObjectInEveryStateWithAPage)
{
    for (State state : {kWithPage, kShown, kClosed}) {
        NativeWindow window = windowIn(state);
        NativeObjectRef control = window.call("control", {"BOX"}).object();
        ASSERT_TRUE(control) << kStateNames[state];
        EXPECT_EQ(control->className(), "GuiControl");
    }
    NativeWindow ended = windowIn(kEnded);
    std::string log = printed([&] { EXPECT_EQ(ended.call("control", {"box"}), kNull); });
    EXPECT_EQ(log, "");
}

struct
{
    std::vector<char const*> methods;
    std::vector<NativeArguments> wrong;
    NativeValue result;
} const kWrong[] = {
    {{"isOpen"}, {{1}, {kNull}, {"x"}, {true, false}}, false},
    {{"isValid"}, {{1}, {kNull}, {"x"}, {true, false}}, {}},
    {{"load", "loadFile", "setText", "loadBackground", "setTitle", "setIcon", "setFocus", "setEnterControl",
      "setEscapeControl", "setSizePolicy", "control"},
     {{}, {1}, {true}, {kNull}, {"a", "b"}, {"a", 1}},
     {}},
    {{"getTitle", "getFocus", "getEnterControl", "getEscapeControl", "getSizePolicy"},
     {{1}, {kNull}, {"x"}, {1, 2}},
     {}},
    {{"setReturnValue"}, {{}, {1, 2}}, {}},
    {{"setMinimumSize", "setMaximumSize", "setDefaultSize"},
     {{}, {100}, {100, 200, 300}, {"100", "200"}, {100, "200"}, {true, true}, {kNull, 100}},
     {}},
    {{"setResizable", "useSystemFont"}, {{"x"}, {kNull}, {0, 0}, {false, false}}, {}},
};

/// What script can have changed in a window.
std::string settingsOf(guiHtmlBase& root)
{
    std::string text;
    for (int value : {root.getMinimumWidth(), root.getMinimumHeight(), root.getMaximumWidth(), root.getMaximumHeight(),
                      root.getDefaultWidth(), root.getDefaultHeight(), int{root.m.useSystemFont},
                      int{root.getSizePolicy()}, static_cast<int>(root.getChildCount())})
        text += std::to_string(value) + " ";
    for (sstring const& value : {root.getTitle(), root.getEnterControl(), root.getEscapeControl(),
                                 root.getPendingFocus(), root.getString(kStringBackground)})
        text += guiComponent::printable(value) + "|";
    return text;
}

TEST_F(WindowMethods, WithOtherArgumentsDoNothing)
{
    for (State state : {kWithoutPage, kWithPage, kShown, kClosed, kEnded}) {
        NativeWindow window = windowIn(state);
        std::string before;
        onGuiThread(window, [&](guiHtmlBase* root) { before = root ? settingsOf(*root) : ""; });
        for (auto const& [methods, wrong, result] : kWrong)
            for (char const* method : methods)
                for (NativeArguments const& args : wrong)
                    EXPECT_EQ(window.call(method, args), result)
                        << method << " " << args.size() << ", " << kStateNames[state];
        onGuiThread(window,
                    [&](guiHtmlBase* root) { EXPECT_EQ(root ? settingsOf(*root) : "", before) << kStateNames[state]; });
    }
}

TEST_F(WindowMethods, ChangeTheWindow)
{
    NativeWindow window = windowIn(kWithPage);
    window.call("setMinimumSize", {100, 50});
    window.call("setMaximumSize", {300.9, 400});
    window.call("setDefaultSize", {200, 0});
    window.call("useSystemFont");
    window.call("setTitle", {"Übersicht"});
    window.call("setEnterControl", {"box"});
    window.call("setEscapeControl", {"X"});
    window.call("setFocus", {"later"});
    window.call("setSizePolicy", {"SCROLL"});
    window.call("loadBackground", {"paper.bmp"});
    onGuiThread(window, [&](guiHtmlBase* root) {
        EXPECT_EQ(settingsOf(*root),
                  "100 50 300 400 200 240 1 0 2 Übersicht|box|X|later|" + (folder / "paper.bmp").string() + "|");
    });
    window.call("setMinimumSize", {0, 60});
    window.call("useSystemFont", {0});
    window.call("setResizable", {false});
    onGuiThread(window, [](guiHtmlBase* root) {
        EXPECT_EQ(root->getMinimumWidth(), 200);
        EXPECT_EQ(root->getMaximumHeight(), 230); // the middle of the limits
        EXPECT_EQ(root->m.useSystemFont, 0);
    });
}

TEST_F(WindowMethods, ResizableTakesNothingABooleanOrANumber)
{
    struct
    {
        NativeArguments args;
        bool isFixed;
    } const cases[] = {{{}, false}, {{true}, false}, {{1}, false}, {{-3}, false},
                       {{0}, true}, {{false}, true}, {{0.9}, true}}; // numbers count as whole ones
    for (auto const& [args, isFixed] : cases) {
        NativeWindow window = windowIn(kWithPage);
        window.call("setResizable", args);
        onGuiThread(window, [expected = isFixed ? 480 : 0](guiHtmlBase* root) {
            EXPECT_EQ(root->getMaximumWidth(), expected);
        });
    }
}

TEST_F(WindowMethods, SizesBeyondAnyScreenOpenAWindow)
{
    constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
    for (double size : {-1.0, -1e30, 1e30, 2147483648.0, kNone, 1e5}) {
        NativeWindow window = windowIn(kWithPage);
        for (char const* method : {"setMaximumSize", "setMinimumSize", "setDefaultSize"}) {
            EXPECT_EQ(window.call(method, {size, 20}), kNull);
            window.call("setResizable", {false});
            EXPECT_EQ(window.call("open"), NativeValue(true));
            onGuiThread(window, [](guiHtmlBase* root) {
                EXPECT_GE(root->getWidget()->width(), 1);
                EXPECT_LE(root->getWidget()->width(), 8192);
            });
            window.close();
        }
    }
}

TEST_F(WindowMethods, TheOpenWindowChangesAtOnce)
{
    NativeWindow window = windowIn(kShown);
    window.call("setTitle", {"Other"});
    window.call("setMinimumSize", {120, 130});
    window.call("setMaximumSize", {620, 630});
    window.call("setDefaultSize", {320, 330});
    onGuiThread(window, [](guiHtmlBase* root) {
        guiWidget* widget = root->getWidget();
        EXPECT_EQ(widget->windowTitle(), "Other");
        EXPECT_EQ(widget->minimumSize(), QSize(120, 130));
        EXPECT_EQ(widget->maximumSize(), QSize(620, 630));
        EXPECT_EQ(widget->size(), QSize(320, 330));
    });
}

TEST_F(WindowMethods, ReturnValueOfAnyKindComesBackFromShow)
{
    for (NativeValue const& value : {NativeValue(7), NativeValue(true), NativeValue("text"), NativeValue()}) {
        NativeWindow window = windowIn(kWithPage);
        window.call("setReturnValue", {value});
        window.on("ePostOpen", [](NativeWindow& self, NativeArguments const&) { self.close(); });
        EXPECT_EQ(window.show(), value);
    }
}

TEST_F(WindowMethods, ShowTellsThePageWithTheSessionAsItsSource)
{
    NativeWindow window = windowIn(kWithPage);
    int calls = 0;
    window.on("ePostOpen", [&](NativeWindow& self, NativeArguments const& args) {
        ++calls;
        ASSERT_EQ(args.size(), 1u);
        EXPECT_EQ(args[0].object().get(), host.engine().session().get());
        EXPECT_EQ(self.call("isOpen"), NativeValue(true));
        self.close();
    });
    window.show();
    EXPECT_EQ(calls, 1);
    window.call("open"); // which raises no page event
    EXPECT_EQ(calls, 1);
}

TEST_F(WindowMethods, LoadOfABookmarkAloneKeepsThePage)
{
    NativeWindow window = windowIn(kWithPage);
    std::string log = printed([&] { EXPECT_EQ(window.call("load", {"#nowhere"}), NativeValue(false)); });
    EXPECT_EQ(log, "");
    EXPECT_TRUE(window.control("box"));
}

TEST_F(WindowMethods, LoadPublishesTheWindowAndItsFormWhenTheFileCouldBeRead)
{
    NativeWindow first = windowIn(kWithPage);
    NativeWindow second = windowIn(kWithoutPage);
    printed([&] { second.load("missing.html"); });
    EXPECT_EQ(host.session("currentWindow").object(), first.object());
    write("plain.html", "no page at all");
    printed([&] { EXPECT_FALSE(second.load("plain.html")); });
    EXPECT_EQ(host.session("currentWindow").object(), second.object());
    EXPECT_EQ(host.session("currentForm").object().get(), guiWindow_getData(second.object()->getPrivate())->form);
}

TEST_F(WindowMethods, TheWindowOpenedLastIsTheCurrentOne)
{
    NativeWindow first = windowIn(kWithPage);
    NativeWindow second = windowIn(kWithPage);
    NativeWindow empty = windowIn(kWithoutPage);
    // A window that is painted while it is active becomes the current one as well, so that paints under way come first.
    auto settle = [&] { onGuiThread(first, [](guiHtmlBase*) { QCoreApplication::processEvents(); }); };
    first.call("open");
    settle();
    EXPECT_EQ(host.session("currentWindow").object(), first.object());
    EXPECT_EQ(empty.call("open"), NativeValue(false));
    EXPECT_EQ(host.session("currentWindow").object(), first.object());
    second.call("open");
    settle();
    EXPECT_EQ(host.session("currentWindow").object(), second.object());
    first.call("open"); // which shows already, and is not painted for that
    EXPECT_EQ(host.session("currentWindow").object(), first.object());
    second.close();
    settle();
    second.on("ePostOpen", [&](NativeWindow& self, NativeArguments const&) {
        settle();
        EXPECT_EQ(host.session("currentWindow").object(), self.object());
        self.close();
    });
    second.show();
}

TEST_F(WindowMethods, ConstructorTakesTheNameOfAPageAndNothingElse)
{
    struct
    {
        NativeArguments args;
        bool isValid;
    } const cases[] = {{{}, false}, {{"page.html"}, true}, {{1}, false}, {{kNull}, false}, {{"page.html", 1}, false}};
    for (auto const& [args, isValid] : cases) {
        NativeObjectRef object = host.create("GuiWindow", args);
        ASSERT_TRUE(object);
        EXPECT_EQ(object->call("isValid"), NativeValue(isValid)) << args.size();
    }
}

TEST_F(WindowMethods, TheFirstPageThatIsNoneAndALaterOneAnswerTheSame)
{
    write("nothing.html", "");
    write("blank.html", " \n\t\n");
    for (char const* bad : {"gone.html", "nothing.html", "blank.html"}) {
        NativeWindow fresh = windowIn(kWithoutPage);
        NativeWindow used = windowIn(kWithPage);
        for (int round = 0; round < 2; ++round)
            for (NativeWindow* window : {&fresh, &used}) {
                printed([&] { EXPECT_EQ(window->call("load", {bad}), NativeValue(false)) << bad << round; });
                EXPECT_EQ(window->call("isValid"), NativeValue(false)) << bad << round;
            }
        for (NativeWindow* window : {&fresh, &used}) {
            EXPECT_TRUE(window->load("page.html"));
            EXPECT_EQ(window->call("isValid"), NativeValue(true));
        }
    }
}

TEST_F(WindowMethods, ALaterPageThatCanNotBeReadLeavesTheWindowEmpty)
{
    NativeWindow window = windowIn(kShown);
    std::string log = printed([&] { EXPECT_EQ(window.call("load", {"gone.html"}), NativeValue(false)); });
    EXPECT_EQ(log, "guiHtml::loadFile() - failed to load file " + (folder / "gone.html").string() + "\n");
    onGuiThread(window, [](guiHtmlBase* root) { EXPECT_EQ(root->getChildCount(), 0u); });
    EXPECT_TRUE(window.isOpen());
    EXPECT_FALSE(window.isValid());
    EXPECT_EQ(window.title(), "A title");
    EXPECT_TRUE(window.load("page.html"));
    EXPECT_TRUE(window.isValid());
    EXPECT_TRUE(window.control("box"));
}

TEST_F(WindowMethods, ControlIsThePageForAnEmptyNameAndNothingWithoutAPage)
{
    NativeWindow window = windowIn(kWithPage);
    guiWindowData* record = guiWindow_getData(window.object()->getPrivate());
    onGuiThread(window, [&](guiHtmlBase* root) {
        sstring none;
        sstring box("BOX");
        EXPECT_EQ(GetControl(record, none), root);
        EXPECT_EQ(GetControl(record, box), root->getNamed(box));
    });
    NativeWindow empty = windowIn(kWithoutPage);
    printed([&] { EXPECT_EQ(empty.call("control", {"box"}), kNull); });
    printed([&] { EXPECT_EQ(empty.call("control", {""}), kNull); });
}

// ---- messages

TEST_F(WindowMethods, ControlOfAnInvalidRecordIsReportedWithItsAddress)
{
    guiWindowData record{0x1234, nullptr, nullptr, nullptr, nullptr, nullptr, 0};
    char address[32];
    std::snprintf(address, sizeof address, "(0x%08lX)", reinterpret_cast<unsigned long>(&record));
    sstring name("größe");
    std::string log = printed([&] {
        EXPECT_EQ(GetControl(&record, name), nullptr);
        EXPECT_EQ(GetControl(nullptr, name), nullptr);
    });
    std::string text = "GuiWindow::GetControl() - invalid window data supplied for control größe ";
    EXPECT_EQ(log, text + address + "\n" + text + "(0x00000000)\n");
    EXPECT_EQ(GetWindow(&record), nullptr);
}

TEST_F(WindowMethods, AControlObjectThatCanNotBeMadeIsReported)
{
    NativeWindow window = windowIn(kWithPage);
    FakeObject page; // its engine makes no objects
    onGuiThread(window, [&](guiHtmlBase* root) {
        guiWindowData record{kRecordTag, root, &page, nullptr, nullptr, nullptr, 0};
        NativePrivate slot;
        slot.setData("tarn", &record);
        void* out = &record;
        std::string log = printed([&] { EXPECT_EQ(guiWindow_control(&slot, sstring("box"), &out), nullptr); });
        EXPECT_EQ(log, "GuiWindow::control() - failed to construct GuiControl object\n");
        EXPECT_EQ(out, nullptr);
    });
}

TEST_F(WindowMethods, RecordIsTaggedAndItsSlotEmptiedAtTheEnd)
{
    NativeWindow window = windowIn(kWithPage);
    ScriptPrivate* slot = window.object()->getPrivate();
    guiWindowData* record = guiWindow_getData(slot);
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(record->tag, 0xfeedc0deu);
    EXPECT_EQ(record->window, window.object().get());
    EXPECT_EQ(record->data, slot);
    EXPECT_NE(record->form, nullptr);
    EXPECT_EQ(record->control, nullptr);
    EXPECT_EQ(record->reservedWord, 0u);
    record->tag = 0xfeedc0df;
    EXPECT_EQ(guiWindow_getData(slot), nullptr);
    record->tag = kRecordTag;
    window.object()->runDestroyHandler();
    EXPECT_EQ(guiWindow_getData(slot), nullptr);
    EXPECT_EQ(guiWindow_getData(nullptr), nullptr);
}

/// A host's slot that fails.
class ThrowingSlot final : public ScriptPrivateSlots
{
public:
    void* getData(char const*) override { throw std::runtime_error("no slot"); }
    void setData(char const*, void*) override {}
};

TEST_F(WindowMethods, ASlotThatThrowsHoldsNoRecord)
{
    ThrowingSlot slot;
    EXPECT_EQ(guiWindow_getData(&slot), nullptr);
    EXPECT_EQ(guiControl_getData(&slot), nullptr);
    EXPECT_EQ(guiWindow_load(&slot, nullptr, sstring("page.html")), 0);
    EXPECT_EQ(guiWindow_open(&slot, 0), 0);
}

TEST_F(WindowMethods, CurrentControlIsSetOnlyWhenTheRecordHasOne)
{
    NativeWindow window = windowIn(kWithPage);
    ScriptPrivate* slot = window.object()->getPrivate();
    sstring name("box");
    SetCurrentControl(slot, name);
    EXPECT_EQ(host.session("currentControl"), kNull);
    guiWindow_getData(slot)->control = CreateControlObject(window.object().get());
    SetCurrentControl(slot, name);
    NativeObjectRef control = host.session("currentControl").object();
    ASSERT_TRUE(control);
    EXPECT_EQ(control->get("name"), NativeValue("box"));
}

// ---- content filters

TEST_F(WindowMethods, OnLoadRegistersAndRemovesFilters)
{
    NativeValue function = host.function([](NativeObject&, NativeArguments const&) { return NativeValue(); });
    NativeValue object = host.object();
    struct
    {
        NativeArguments args;
        unsigned count;
    } const steps[] = {
        {{"*.html", function}, 1},
        {{"*.txt", object}, 2},
        {{"*.html", object}, 3},
        {{}, 3},
        {{1}, 3},
        {{kNull}, 3},
        {{1, function}, 3},
        {{"*.html", "text"}, 3},
        {{"*.html", kNull}, 3},
        {{"*.html", 1}, 3},
        {{"*.txt", object, 1}, 3},
        {{"*.HTML"}, 3},
        {{"*.html"}, 1},
        {{"*.html"}, 1},
        {{"*.txt"}, 0},
    };
    for (auto const& [args, count] : steps) {
        EXPECT_EQ(host.callClass("GuiWindow", "onLoad", args), kNull);
        EXPECT_EQ(guiFilter_count(), count) << args.size();
    }
}

TEST_F(WindowMethods, OnLoadBeforeAnyWindowMakesTheSession)
{
    EXPECT_EQ(pGUI->getSession(), nullptr);
    host.callClass("GuiWindow", "onLoad");
    EXPECT_NE(pGUI->getSession(), nullptr);
    EXPECT_NE(pGUI->getEngine(), nullptr);
}

TEST_F(WindowMethods, FiltersAreLetGoWhenTheyAreRemovedAndAtTheEnd)
{
    std::weak_ptr<int> watch;
    {
        auto token = std::make_shared<int>(0);
        watch = token;
        host.callClass("GuiWindow", "onLoad",
                       {"*", host.function([token](NativeObject&, NativeArguments const&) { return NativeValue(); })});
    }
    EXPECT_FALSE(watch.expired());
    host.callClass("GuiWindow", "onLoad", {"*"});
    EXPECT_TRUE(watch.expired());
}

} // namespace
