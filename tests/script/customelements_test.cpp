// tests/script/customelements_test.cpp: custom elements: how their instances are made and end, what they hear of the
// pointer, and what a window shows of what they draw.
#include "tests/script/scriptfixture.h"

#include "controls/guihtmlcustom.h"
#include "controls/guiimage.h"
#include "controls/guitoolkit.h"
#include "controls/guiwidget.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <QWheelEvent>
#include <atomic>
#include <chrono>
#include <thread>

using namespace std::chrono_literals;

namespace {

using Log = std::vector<std::string>;

constexpr QRgb kPaper = 0xFFF0F0F0;
constexpr QRgb kRed = 0xFFFF0000;
constexpr QRgb kGreen = 0xFF00FF00;
constexpr QRgb kBlue = 0xFF0000FF;

/// A page in a window, whose elements are of the class "Probe".
class CustomElements : public ScriptTest
{
protected:
    CustomElements()
    {
        host.registerClass("Probe", [this](NativeObject& object, NativeArguments const&) {
            log.push_back("new");
            last = NativeObjectRef(&object);
            if (prepare)
                prepare(object);
        });
    }

    /// Adds a handler that is noted in the log.
    static std::function<void(NativeObject&)> hears(Log& log, std::vector<std::string> const& names)
    {
        return [&log, names](NativeObject& object) {
            for (std::string const& name : names)
                object.on(name, [&log, name](NativeObject&, NativeArguments const&) { log.push_back(name); });
        };
    }

    /// The instances draw like this.
    void paintsWith(std::function<void(NativeObject& toolkit)> paint)
    {
        draw = std::move(paint);
        prepare = [this](NativeObject& object) {
            object.on("ePaint", [this](NativeObject& self, NativeArguments const&) {
                ++paints;
                draw(*self.get("toolkit").object());
            });
        };
    }

    static std::string body(std::string const& content)
    {
        return "<html><title>Custom</title><body width=300 height=200 bgcolor=\"#F0F0F0\" valign=top align=left>" +
               content + "</body></html>";
    }

    NativeWindow load(std::string const& content) { return host.window(write("custom.html", body(content))); }
    NativeWindow open(std::string const& content)
    {
        NativeWindow window = load(content);
        EXPECT_TRUE(window.open());
        settle(window);
        return window;
    }
    /// One element of 100 by 60 pixels.
    static std::string element(std::string const& attributes = "", std::string const& inside = "")
    {
        return "<object classid=Probe name=probe width=100 height=60 " + attributes + ">" + inside + "</object>";
    }

    /// Until nothing is on its way between the threads.
    void settle(NativeWindow& window)
    {
        auto isIdle = [&] {
            bool isAsked = false;
            onGuiThread(window, [&](guiHtmlBase* root) {
                isAsked =
                    root && guiHtmlCustom::count() && root->getNamed(sstring("probe")) && node(root)->isDrawingAsked();
            });
            return !isAsked;
        };
        int quiet = 0;
        host.serveUntil([&] { return (quiet = isIdle() ? quiet + 1 : 0) > 3; }, 5s);
    }

    static guiHtmlCustom* node(guiHtmlBase* root)
    {
        return dynamic_cast<guiHtmlCustom*>(root->getNamed(sstring("probe")));
    }
    void withNode(NativeWindow& window, std::function<void(guiHtmlCustom&)> const& work)
    {
        onGuiThread(window, [&](guiHtmlBase* root) {
            guiHtmlCustom* found = node(root);
            ASSERT_NE(found, nullptr);
            work(*found);
        });
    }

    /// What the window shows of the element and two pixels around it.
    QImage shot(NativeWindow& window)
    {
        QImage image;
        onGuiThread(window, [&](guiHtmlBase* root) {
            guiRect place;
            node(root)->getRectInWidget(&place);
            image = root->getWidget()->grab().toImage().copy(place.left - 2, place.top - 2, place.width + 4,
                                                             place.height + 4);
        });
        settle(window);
        return image;
    }
    static QRgb at(QImage const& image, int x, int y) { return image.pixel(x + 2, y + 2) | 0xFF000000; }

    void postMouse(NativeWindow& window, QEvent::Type type, int x, int y, Qt::MouseButton button = Qt::NoButton,
                   Qt::MouseButtons buttons = Qt::NoButton, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        onGuiThread(window, [&](guiHtmlBase* root) {
            guiRect place;
            if (!root || !root->getWidget() || !root->getNamed(sstring("probe")))
                return;
            node(root)->getRectInWidget(&place);
            QPointF const where(place.left + x, place.top + y);
            QCoreApplication::postEvent(root->getWidget(),
                                        new QMouseEvent(type, where, where, button, buttons, modifiers));
        });
    }
    void sendMouse(NativeWindow& window, QEvent::Type type, int x, int y, Qt::MouseButton button = Qt::NoButton,
                   Qt::MouseButtons buttons = Qt::NoButton, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        postMouse(window, type, x, y, button, buttons, modifiers);
        settle(window);
    }
    void move(NativeWindow& window, int x, int y) { sendMouse(window, QEvent::MouseMove, x, y); }
    void press(NativeWindow& window, int x, int y, Qt::MouseButton button = Qt::LeftButton)
    {
        sendMouse(window, QEvent::MouseButtonPress, x, y, button, button);
    }
    void release(NativeWindow& window, int x, int y, Qt::MouseButton button = Qt::LeftButton)
    {
        sendMouse(window, QEvent::MouseButtonRelease, x, y, button);
    }

    NativeObjectRef numbers(std::vector<double> const& values)
    {
        NativeObjectRef array = host.object();
        array->set("length", static_cast<int>(values.size()));
        for (std::size_t i = 0; i < values.size(); ++i)
            array->set(std::to_string(i), values[i]);
        return array;
    }
    NativeObjectRef rect(int left, int top, int width, int height)
    {
        NativeObjectRef object = host.object();
        object->set("left", left);
        object->set("top", top);
        object->set("width", width);
        object->set("height", height);
        return object;
    }

    Log log;
    NativeObjectRef last; // the instance that was made last
    std::function<void(NativeObject&)> prepare;
    std::function<void(NativeObject& toolkit)> draw;
    std::atomic<int> paints{0};
};

} // namespace

// ---- Instances ----

TEST_F(CustomElements, AreMadeWithTheirParametersBeforeTheyHearOfThePage)
{
    prepare = [&](NativeObject& object) {
        object.on("eCreate", [&](NativeObject& self, NativeArguments const& args) {
            log.push_back("eCreate " + self.get("a").text() + "," + self.get("b").text() + "," + self.get("c").text());
            EXPECT_EQ(args[0].object(), host.engine().session());
            EXPECT_TRUE(self.get("a").isString());
        });
    };
    NativeWindow window =
        load(element("", "<param name=a value=\" 1 &amp; 2 \"><param name=b value=\"\"><param name=c value>") +
             "<object classid=Probe><param name=a value=two></object>");
    EXPECT_EQ(log, (Log{"new", "new", "eCreate  1 & 2 ,,1", "eCreate two,,"}));
}

TEST_F(CustomElements, HaveTheMethodsOfControlsAToolkitAndAMouse)
{
    NativeWindow window = load(element());
    EXPECT_EQ(window.control("probe"), last);
    for (char const* name : {"loadBackground", "loadFile", "setText", "setCaption", "play", "enable", "disable",
                             "isEnabled", "setSizePolicy", "getSizePolicy", "setSize"})
        EXPECT_TRUE(last->has(name)) << name;
    EXPECT_EQ(last->get("window").object(), window.object());
    EXPECT_EQ(last->get("name"), NativeValue("probe"));
    NativeObjectRef mouse = last->get("mouse").object();
    ASSERT_TRUE(mouse);
    EXPECT_EQ(mouse->get("x"), NativeValue(0));
    EXPECT_EQ(mouse->get("y"), NativeValue(0));
    NativeObjectRef toolkit = last->get("toolkit").object();
    ASSERT_TRUE(toolkit);
    EXPECT_EQ(toolkit->get("XLEFT"), NativeValue(0));
    EXPECT_EQ(toolkit->get("XCENTER"), NativeValue(1));
    EXPECT_EQ(toolkit->get("XRIGHT"), NativeValue(2));
    for (char const* name : {"fill", "drawLine", "drawImage", "drawText", "repaint"})
        EXPECT_TRUE(toolkit->has(name)) << name;
    EXPECT_EQ(last->call("isEnabled"), NativeValue(true));
    last->call("disable");
    EXPECT_EQ(last->call("isEnabled"), NativeValue(false));
}

TEST_F(CustomElements, OfAnUnknownClassAreReportedOnceAndThePageOpens)
{
    NativeWindow window;
    std::string const text = printed([&] {
        window = open("<object classid=Nobody name=probe border=2 width=100 height=60 bgcolor=\"#0000FF\"></object>");
        move(window, 5, 5);
        press(window, 5, 5);
        window.close();
        EXPECT_TRUE(window.open());
    });
    EXPECT_EQ(text, "guiHtmlCustom: unable to construct instance of component Nobody\n");
    EXPECT_EQ(at(shot(window), 20, 20), kBlue);
}

TEST_F(CustomElements, WhoseConstructorThrowsAreAsUnknownOnes)
{
    prepare = [](NativeObject&) { throw std::runtime_error("no"); };
    std::string const text = printed([&] { EXPECT_TRUE(load(element()).isValid()); });
    EXPECT_NE(text.find("guiHtmlCustom: unable to construct instance of component Probe\n"), std::string::npos);
}

TEST_F(CustomElements, EndWithTheirWindowAndAreMadeAnewWithTheNextOne)
{
    prepare = hears(log, {"eCreate", "eDestroy"});
    NativeWindow window = load(element("", "<param name=a value=7>"));
    EXPECT_EQ(log, (Log{"new", "eCreate"}));
    NativeObjectRef first = last;
    EXPECT_TRUE(window.open());
    EXPECT_EQ(log, (Log{"new", "eCreate"}));
    window.close();
    EXPECT_EQ(log, (Log{"new", "eCreate", "eDestroy"}));
    EXPECT_TRUE(window.open());
    EXPECT_EQ(log, (Log{"new", "eCreate", "eDestroy", "new", "eCreate"}));
    EXPECT_NE(last, first);
    EXPECT_EQ(last->get("a"), NativeValue("7"));
    EXPECT_EQ(window.control("probe"), last);
}

TEST_F(CustomElements, EndWhenTheirContentIsReplacedAndStartWithNewContent)
{
    prepare = hears(log, {"eCreate", "eDestroy"});
    NativeWindow window = load("<table name=cell><tr><td>" + element() + "</td></tr></table>");
    EXPECT_TRUE(window.open());
    log.clear();
    window.control("cell")->call("setText", {"nothing"});
    EXPECT_EQ(log, (Log{"eDestroy"}));
    window.control("cell")->call("setText", {NativeValue(element())});
    EXPECT_EQ(log, (Log{"eDestroy", "new", "eCreate"}));
    window.setText("other");
    EXPECT_EQ(log, (Log{"eDestroy", "new", "eCreate", "eDestroy"}));
}

TEST_F(CustomElements, MayReplaceThePageOrCloseTheWindowInAnyHandler)
{
    for (char const* event : {"eCreate", "eDestroy", "ePaint", "eMouseDown", "eMouseOver", "eMouseOut"}) {
        for (bool isClosing : {false, true}) {
            NativeWindow window;
            bool isDone = false;
            prepare = [&](NativeObject& object) {
                object.on(event, [&](NativeObject&, NativeArguments const&) {
                    if (!window || std::exchange(isDone, true))
                        return;
                    if (isClosing)
                        window.close();
                    else
                        window.setText("gone");
                });
            };
            window = host.window();
            window.load(write("custom.html",
                              body(element() + element() + "<table><tr><td>" + element() + "</td></tr></table>")));
            window.open();
            host.serveUntil([] { return false; }, 30ms);
            if (window.isOpen() && !isDone) {
                move(window, 10, 10);
                if (!isDone)
                    press(window, 10, 10);
                if (!isDone)
                    move(window, -5, -5);
            }
            window.close();
            EXPECT_TRUE(isDone) << event;
        }
    }
}

TEST_F(CustomElements, AreCopiedWithoutTheirInstance)
{
    NativeWindow window = load(element("", "<param name=a value=1>"));
    withNode(window, [&](guiHtmlCustom& original) {
        {
            std::unique_ptr<guiHtml> copy(original.Clone(nullptr));
            auto& custom = static_cast<guiHtmlCustom&>(*copy);
            EXPECT_EQ(custom.getCompName(), sstring("Probe"));
            EXPECT_EQ(custom.getParams().size(), 1u);
            EXPECT_FALSE(custom.hasInstance());
        }
        EXPECT_TRUE(original.hasInstance());
    });
    EXPECT_EQ(window.control("probe"), last);
}

TEST_F(CustomElements, TakeNameAndParametersInEitherOrder)
{
    NativeWindow window = load("<table name=cell><tr><td></td></tr></table>");
    onGuiThread(window, [&](guiHtmlBase* root) {
        auto* custom = new guiHtmlCustom;
        custom->setString(kStringName, sstring("probe"));
        root->append(custom);
        custom->setParam(sstring("before"), sstring("1"));
        custom->setCompName(sstring("Probe"));
        custom->setParam(sstring("behind"), sstring("2"));
    });
    ASSERT_TRUE(last);
    EXPECT_EQ(last->get("before"), NativeValue("1"));
    EXPECT_EQ(last->get("behind"), NativeValue("2"));
}

TEST_F(CustomElements, SetTheirSizeInPixelsOrPercent)
{
    NativeWindow window = open(element());
    auto request = [&] {
        std::string text;
        withNode(window, [&](guiHtmlCustom& custom) {
            auto& fixed = custom.m.fixed;
            text = std::to_string(fixed.unitX) + ":" + std::to_string(fixed.x) + " " + std::to_string(fixed.unitY) +
                   ":" + std::to_string(fixed.y) + " " + std::to_string(custom.m.rect.width);
        });
        return text;
    };
    EXPECT_EQ(request(), "1:100 1:60 100");
    last->call("setSize", {120});
    EXPECT_EQ(request(), "1:120 1:60 120");
    last->call("setSize", {"50%", 30});
    EXPECT_EQ(request().substr(0, 9), "2:50 1:30");
    last->call("setSize", {"70", "25%"});
    EXPECT_EQ(request(), "1:70 2:25 70");
    for (NativeArguments const& wrong :
         {NativeArguments{}, NativeArguments{true}, NativeArguments{90, NativeValue()}, NativeArguments{90, 90, 90}}) {
        last->call("setSize", wrong);
        EXPECT_EQ(request(), "1:70 2:25 70");
    }
    last->call("setSize", {-5});
    EXPECT_EQ(request().substr(0, 3), "1:0");
}

// ---- The pointer ----

TEST_F(CustomElements, HearOfThePointerWithItsPlaceInside)
{
    prepare = [&](NativeObject& object) {
        for (std::string name : {"eMouseOver", "eMouseMove", "eMouseDown", "eMouseUp", "eMouseOut"})
            object.on(name, [this, name](NativeObject& self, NativeArguments const& args) {
                NativeObjectRef mouse = self.get("mouse").object();
                log.push_back(name + " " + mouse->get("x").text() + "," + mouse->get("y").text() + " " +
                              mouse->get("button").text());
                EXPECT_EQ(args[0].object(), host.engine().session());
            });
    };
    NativeWindow window = open("<br>" + element("border=3"));
    log.clear();
    move(window, 13, 25);
    press(window, 14, 26, Qt::RightButton);
    release(window, 14, 26, Qt::RightButton);
    move(window, -20, -20);
    Log const expected{"eMouseOver 0,0 ",      "eMouseMove 10,22 ", "eMouseDown 11,23 right",
                       "eMouseUp 11,23 right", "eMouseMove 11,23 ", "eMouseOut 11,23 "};
    EXPECT_EQ(log, expected);
}

TEST_F(CustomElements, GetAllMovesOfADragThatBeganInThem)
{
    prepare = [&](NativeObject& object) {
        for (std::string name : {"eMouseMove", "eMouseUp", "eMouseOut", "eMouseOver"})
            object.on(name, [this, name](NativeObject& self, NativeArguments const&) {
                NativeObjectRef mouse = self.get("mouse").object();
                log.push_back(self.get("id").text() + " " + name + " " + mouse->get("x").text() + "," +
                              mouse->get("y").text());
            });
    };
    NativeWindow window =
        open("<table cellspacing=0 cellpadding=0><tr><td>" + element("", "<param name=id value=a>") +
             "</td><td><object classid=Probe width=100 height=60><param name=id value=b></object></td></tr></table>");
    press(window, 10, 10);
    log.clear();
    sendMouse(window, QEvent::MouseMove, 150, 30, Qt::NoButton, Qt::LeftButton);
    sendMouse(window, QEvent::MouseMove, -7, -8, Qt::NoButton, Qt::LeftButton);
    EXPECT_EQ(log, (Log{"a eMouseMove 150,30", "a eMouseMove -7,-8"}));
    log.clear();
    release(window, 150, 30);
    EXPECT_EQ(log, (Log{"a eMouseUp 150,30", "b eMouseOver 0,0", "b eMouseMove 50,30"}));
}

TEST_F(CustomElements, HearNothingWhileDisabledOrWithoutAHandler)
{
    prepare = hears(log, {"eMouseDown"});
    NativeWindow window = open(element());
    log.clear();
    last->call("disable");
    press(window, 5, 5);
    EXPECT_EQ(log, Log{});
    last->call("enable");
    press(window, 5, 5);
    move(window, 6, 6);
    EXPECT_EQ(log, Log{"eMouseDown"});
}

TEST_F(CustomElements, HearOfTheNewestMoveOnlyWhenTheyAreSlow)
{
    std::vector<int> places;
    NativeWindow window;
    prepare = [&](NativeObject& object) {
        object.on("eMouseMove", [&](NativeObject& self, NativeArguments const&) {
            places.push_back(static_cast<int>(self.get("mouse").object()->get("x").number()));
            for (int x = 20; x < 60 && places.size() == 1; ++x)
                postMouse(window, QEvent::MouseMove, x, 10); // while the handler runs, as a fast hand does
            onGuiThread(window, [](guiHtmlBase*) {});        // they have arrived
        });
    };
    window = open(element());
    places.clear();
    move(window, 10, 10);
    host.serveUntil([&] { return places.size() == 2; }, 5s);
    EXPECT_EQ(places, (std::vector<int>{10, 59}));
}

TEST_F(CustomElements, KeepTheOrderOfWhatHappensDuringAHandler)
{
    NativeWindow window;
    bool isFirst = true;
    prepare = [&](NativeObject& object) {
        object.on("eMouseDown", [&](NativeObject&, NativeArguments const&) {
            log.push_back("down");
            if (!std::exchange(isFirst, false))
                return;
            release(window, 5, 5);
            press(window, 6, 6);
            log.push_back("end");
        });
        object.on("eMouseUp", [&](NativeObject&, NativeArguments const&) { log.push_back("up"); });
    };
    window = open(element());
    log.clear();
    press(window, 5, 5);
    EXPECT_EQ(log, (Log{"down", "end", "up", "down"}));
}

TEST_F(CustomElements, TakeTheWheelBeforeThePageScrollsIfTheyHaveAHandler)
{
    std::string wheel;
    prepare = [&](NativeObject& object) {
        object.on("eMouseWheel", [&](NativeObject& self, NativeArguments const&) {
            NativeObjectRef mouse = self.get("mouse").object();
            wheel = mouse->get("wheel").text() + " " + mouse->get("modifiers").text() + " " + mouse->get("x").text();
        });
    };
    NativeWindow window = open(element());
    withNode(window, [&](guiHtmlCustom& custom) {
        guiRect place;
        custom.getRectInWidget(&place);
        QPointF const at(place.left + 9, place.top + 9);
        QWheelEvent event(at, at, QPoint(), QPoint(0, -120), Qt::NoButton, Qt::ControlModifier | Qt::ShiftModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(custom.getTopLevelWidget(), &event);
        EXPECT_TRUE(event.isAccepted());
    });
    EXPECT_EQ(wheel, "-120 ctrl+shift 9");
}

TEST_F(CustomElements, DoNotBlockTheUserWhileTheyHearOfThePointerOrDraw)
{
    NativeWindow window;
    auto takesPress = [&] { // whether a button of the page goes down under the pointer
        bool isDown = false;
        onGuiThread(window, [&](guiHtmlBase* root) {
            auto* button = qobject_cast<QAbstractButton*>(root->getNamed(sstring("go"))->getChildWidget());
            QPointF const inside(4, 4);
            QPointF const outside(-50, -50);
            QMouseEvent down(QEvent::MouseButtonPress, inside, inside, Qt::LeftButton, Qt::LeftButton, {});
            QMouseEvent up(QEvent::MouseButtonRelease, outside, outside, Qt::LeftButton, Qt::NoButton, {});
            QCoreApplication::sendEvent(button, &down);
            isDown = button->isDown();
            QCoreApplication::sendEvent(button, &up);
        });
        return isDown;
    };
    std::vector<bool> answers;
    prepare = [&](NativeObject& object) {
        object.on("eMouseDown", [&](NativeObject&, NativeArguments const&) { answers.push_back(takesPress()); });
    };
    window = open("<input type=button name=go value=Go onclick='event://onGo'>" + element());
    window.object()->on("onGo", [&](NativeObject&, NativeArguments const&) { answers.push_back(takesPress()); });
    press(window, 4, 4);
    EXPECT_EQ(answers, std::vector<bool>{true});
    onGuiThread(window, [](guiHtmlBase* root) {
        QMetaObject::invokeMethod(root->getNamed(sstring("go"))->getChildWidget(), "click", Qt::QueuedConnection);
    });
    host.serveUntil([&] { return answers.size() == 2; }, 5s);
    EXPECT_EQ(answers, (std::vector<bool>{true, false})) << "while an ordinary handler runs the user waits";
}

TEST_F(CustomElements, MayCloseTheirWindowBeforeItIsThere)
{
    NativeWindow window = open(element());
    window.close();
    prepare = [&](NativeObject& object) {
        object.on("eCreate", [&](NativeObject&, NativeArguments const&) { window.close(); });
    };
    window.show(); // makes the element anew, and returns
    EXPECT_FALSE(window.isOpen());
}

TEST_F(CustomElements, WithoutAClassLetOthersCloseTheWindowBeforeItIsThere)
{
    NativeWindow window = windowOf("<object classid=None>");
    host.post([&] { window.close(); }); // runs while the component looks for the class
    window.show();
    EXPECT_FALSE(window.isOpen());
}

TEST_F(CustomElements, HearOfKeysWhenTheyHaveTheFocus)
{
    prepare = [&](NativeObject& object) {
        for (std::string name : {"eKey", "eFocus", "eBlur"})
            object.on(name, [this, name](NativeObject& self, NativeArguments const&) {
                NativeObjectRef keyboard = self.get("keyboard").object();
                log.push_back(name + " " + keyboard->get("key").text() + "," + keyboard->get("text").text() + "," +
                              keyboard->get("modifiers").text());
            });
    };
    NativeWindow window = open("<input type=text name=field>" + element());
    auto type = [&](int key, char const* text, Qt::KeyboardModifiers modifiers) {
        withNode(window, [&](guiHtmlCustom& custom) {
            ASSERT_NE(custom.getChildWidget(), nullptr);
            QKeyEvent event(QEvent::KeyPress, key, modifiers, QString::fromLatin1(text));
            QCoreApplication::sendEvent(custom.getChildWidget(), &event);
        });
        settle(window);
    };
    log.clear();
    type(Qt::Key_A, "A", Qt::ShiftModifier);
    type(Qt::Key_Left, "", Qt::NoModifier);
    type(Qt::Key_Shift, "", Qt::ShiftModifier);
    type(Qt::Key_Enter, "\r", Qt::ControlModifier);
    EXPECT_EQ(log, (Log{"eKey A,A,shift", "eKey Left,,", "eKey Return,\r,ctrl"}));
    press(window, 5, 5);
    EXPECT_EQ(window.focus(), "probe") << "a click gives the element the keyboard";
    window.setFocus("field");
    withNode(window, [](guiHtmlCustom& custom) {
        custom.getBaseHtml()->updateTabOrder();
        EXPECT_EQ(custom.getBaseHtml()->getNamed(sstring("field"))->getChildWidget()->nextInFocusChain(),
                  custom.getChildWidget());
    });
    last->call("disable");
    log.clear();
    withNode(window, [](guiHtmlCustom& custom) { EXPECT_FALSE(custom.getChildWidget()->isEnabled()); });
}

TEST_F(CustomElements, WithoutAHandlerForKeysTakeNoFocus)
{
    prepare = hears(log, {"eMouseDown"});
    NativeWindow window = open(element());
    press(window, 5, 5);
    EXPECT_EQ(window.focus(), "");
    withNode(window, [](guiHtmlCustom& custom) { EXPECT_EQ(custom.getChildWidget(), nullptr); });
    EXPECT_FALSE(last->get("keyboard").object());
}

TEST_F(CustomElements, HaveATipFromThePageOrTheirToolkit)
{
    NativeWindow window = open(element("title=\"a & b\""));
    auto tip = [&] {
        std::string text;
        withNode(window, [&](guiHtmlCustom& custom) { text = custom.getTip().c_str(); });
        return text;
    };
    EXPECT_EQ(tip(), "a & b");
    last->get("toolkit").object()->set("tooltip", "mine");
    EXPECT_EQ(tip(), "mine");
}

// ---- Drawing ----

TEST_F(CustomElements, AreDrawnBeforeTheWindowIsShownAndNotAgainByPainting)
{
    bool wasVisible = true;
    NativeWindow window;
    paintsWith([&](NativeObject& toolkit) {
        if (paints == 1)
            onGuiThread(window, [&](guiHtmlBase* root) { wasVisible = root->getWidget()->isVisible(); });
        toolkit.call("fill", {"red"});
    });
    window = load(element());
    EXPECT_EQ(paints, 0);
    EXPECT_TRUE(window.open());
    EXPECT_EQ(paints, 1);
    EXPECT_FALSE(wasVisible);
    settle(window);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(at(shot(window), 50, 30), kRed);
    EXPECT_EQ(paints, 1);
}

TEST_F(CustomElements, FindColourAndRectangleAtTheBeginningOfEachDrawing)
{
    std::vector<std::string> seen;
    paintsWith([&](NativeObject& toolkit) {
        NativeObjectRef area = toolkit.get("rect").object();
        seen.push_back(toolkit.get("color").text() + " " + area->get("left").text() + " " + area->get("top").text() +
                       " " + area->get("width").text() + " " + area->get("height").text() + " " +
                       toolkit.get("bold").text() + toolkit.get("fontSize").text());
        toolkit.set("color", "red");
        toolkit.set("bold", true);
        toolkit.set("fontSize", 30);
    });
    NativeWindow window = open(element("border=2"));
    last->get("toolkit").object()->call("repaint");
    std::this_thread::sleep_for(20ms);
    settle(window);
    host.serveUntil([&] { return seen.size() >= 2; }, 2s);
    EXPECT_EQ(seen, (std::vector<std::string>(2, "#000000 0 0 96 56 false0")));
}

TEST_F(CustomElements, FillTheirAreaOrAPartInTheColourAsked)
{
    paintsWith([&](NativeObject& toolkit) {
        toolkit.call("fill", {"#00FF00"});
        toolkit.call("fill", {"#FF0000", rect(10, 10, 20, 20)});
        toolkit.set("color", "#0000FF");
        toolkit.call("fill", {"", rect(40, 10, 500, 20)});
        toolkit.set("color", 5);
        toolkit.call("fill", {"", rect(0, 40, 10, 10)});
        // Wrong ones draw nothing.
        toolkit.call("fill");
        toolkit.call("fill", {5});
        toolkit.call("fill", {"white", 5});
        toolkit.call("fill", {"white", rect(0, 0, 100, 100), 1});
        NativeObjectRef part = host.object();
        part->set("left", 0);
        toolkit.call("fill", {"white", part});
        toolkit.call("fill", {"white", rect(0, 0, -5, 10)});
    });
    NativeWindow window = open(element("border=1 bordercolor=\"#000000\""));
    QImage const image = shot(window);
    EXPECT_EQ(at(image, 2, 2), kGreen);
    EXPECT_EQ(at(image, 11, 11), kRed);
    EXPECT_EQ(at(image, 30, 30), kRed);
    EXPECT_EQ(at(image, 31, 31), kGreen);
    EXPECT_EQ(at(image, 98, 15), kBlue);
    EXPECT_EQ(at(image, 99, 15), 0xFF000000) << "the border stays";
    EXPECT_EQ(at(image, 100, 15), kPaper);
    EXPECT_EQ(at(image, 5, 45), 0xFF000000);
}

TEST_F(CustomElements, DrawLinesInTheWidthAskedCutToTheirArea)
{
    paintsWith([&](NativeObject& toolkit) {
        toolkit.call("drawLine", {"#FF0000", 10, 20, 500, 20, 1});
        toolkit.call("drawLine", {"", 30, 0, 30, 59, 3});
        toolkit.call("drawLine", {"#0000FF", 0, 50, 10, 50});
        toolkit.call("drawLine", {"#0000FF", 0, 50, 10, 50, "1"});
        toolkit.call("drawLine", {0, 0, 50, 10, 50, 1});
        toolkit.call("drawLine", {"#0000FF", 0, 50, 10, 50, -1});
    });
    NativeWindow window = open(element());
    QImage const image = shot(window);
    EXPECT_EQ(at(image, 9, 20), kPaper);
    EXPECT_EQ(at(image, 10, 20), kRed);
    EXPECT_EQ(at(image, 99, 20), kRed);
    EXPECT_EQ(at(image, 100, 20), kPaper);
    EXPECT_EQ(at(image, 10, 19), kPaper);
    EXPECT_EQ(at(image, 10, 21), kPaper);
    for (int x : {29, 30, 31})
        EXPECT_EQ(at(image, x, 40), 0xFF000000) << x;
    EXPECT_EQ(at(image, 28, 40), kPaper);
    EXPECT_EQ(at(image, 32, 40), kPaper);
    EXPECT_EQ(at(image, 5, 50), kPaper);
}

TEST_F(CustomElements, DrawImagesWholeInAPartAndTiledFromAnOffset)
{
    QImage picture(4, 4, QImage::Format_RGB32);
    picture.fill(kGreen);
    picture.setPixel(0, 0, kRed);
    picture.setPixel(1, 0, kBlue);
    ASSERT_TRUE(picture.save(QString::fromStdString((folder / "tile.png").string())));
    NativeObjectRef image = host.create("GuiImage");
    ASSERT_EQ(image->call("loadFile", {"tile.png"}), NativeValue(true));
    paintsWith([&](NativeObject& toolkit) {
        toolkit.call("drawImage", {image, 10, 10});
        toolkit.call("drawImage", {image, 30, 10, 2, 8});
        toolkit.call("drawImage", {image, 50, 10, 400, 1});
        toolkit.call("drawImage", {image, 10, 30, 4, 4, -1, 0});
        toolkit.call("drawImage", {image, 30, 30, -1, -1, 1, 0});
        toolkit.call("drawImage", {image, 60, 40, 0, 10});
        for (NativeArguments const& wrong : {NativeArguments{image},
                                             {image, 60, 40, 4},
                                             {image, 60, 40, 4, 4, 0},
                                             {image, 60, 40, 4, 4, 0, 0, 0},
                                             {"tile.png", 60, 40},
                                             {image, "60", 40},
                                             {host.object(), 60, 40},
                                             {NativeValue(), 60, 40}})
            toolkit.call("drawImage", wrong);
    });
    NativeWindow window = open(element());
    QImage const shown = shot(window);
    EXPECT_EQ(at(shown, 10, 10), kRed);
    EXPECT_EQ(at(shown, 11, 10), kBlue);
    EXPECT_EQ(at(shown, 13, 13), kGreen);
    EXPECT_EQ(at(shown, 14, 10), kPaper);
    EXPECT_EQ(at(shown, 30, 14), kRed) << "tiled in a larger rectangle";
    EXPECT_EQ(at(shown, 32, 10), kPaper) << "cut in a smaller one";
    EXPECT_EQ(at(shown, 98, 10), kRed);
    EXPECT_EQ(at(shown, 101, 10), kPaper);
    EXPECT_EQ(at(shown, 10, 30), kBlue) << "a negative offset shows a later part";
    EXPECT_EQ(at(shown, 13, 30), kRed);
    EXPECT_EQ(at(shown, 30, 30), kGreen);
    EXPECT_EQ(at(shown, 31, 30), kRed);
    for (int x : {60, 63})
        EXPECT_EQ(at(shown, x, 40), kPaper);
}

namespace {

/// The columns from the first to the last dark pixel in some rows.
std::pair<int, int> inkBetween(QImage const& image, int top, int bottom)
{
    std::pair<int, int> ink{-1, -1};
    for (int x = 0; x < image.width() - 4; ++x)
        for (int y = top; y < bottom; ++y)
            if (qGray(image.pixel(x + 2, y + 2)) < 100) {
                ink.first = ink.first < 0 ? x : ink.first;
                ink.second = x;
            }
    return ink;
}

} // namespace

TEST_F(CustomElements, DrawTextAlignedCutAndWithItsCodes)
{
    paintsWith([&](NativeObject& toolkit) {
        toolkit.call("drawText", {"ill", rect(0, 0, 100, 18), toolkit.get("XLEFT")});
        toolkit.call("drawText", {"ill", rect(0, 20, 100, 18), toolkit.get("XCENTER")});
        toolkit.call("drawText", {"ill", rect(0, 40, 100, 18), toolkit.get("XRIGHT")});
    });
    NativeWindow window = open(element());
    QImage image = shot(window);
    auto const left = inkBetween(image, 0, 20);
    auto const middle = inkBetween(image, 20, 40);
    auto const right = inkBetween(image, 40, 60);
    EXPECT_LT(left.first, 12);
    EXPECT_NEAR(middle.first + middle.second, 99, 4);
    EXPECT_GT(right.second, 88);

    draw = [&](NativeObject& toolkit) {
        toolkit.call("drawText", {"[[#FF0000]]MMMM[[/#]]"});
        toolkit.call("drawText", {"MMMMMMMMMMMMMMMMMMM", rect(0, 30, 20, 6), 0});
        toolkit.call("drawText");
        toolkit.call("drawText", {"WWWWWWWWWWWW", 5});
        toolkit.call("drawText", {"WWWWWWWWWWWW", rect(0, 45, 100, 15), "1"});
        toolkit.call("drawText", {"WWWWWWWWWWWW", rect(0, 45, 100, 15), 1, 1});
    };
    last->get("toolkit").object()->call("repaint");
    host.serveUntil([&] { return paints == 2; }, 2s);
    settle(window);
    image = shot(window);
    bool hasRed = false;
    for (int x = 0; x < 60; ++x)
        for (int y = 0; y < 20; ++y)
            hasRed = hasRed || (qRed(at(image, x, y)) > 200 && qGreen(at(image, x, y)) < 60);
    EXPECT_TRUE(hasRed);
    EXPECT_LE(inkBetween(image, 30, 36).second, 20);
    EXPECT_EQ(inkBetween(image, 37, 60).first, -1) << "neither below the rectangle nor by wrong calls";
}

TEST_F(CustomElements, DrawTextInTheFontOfTheToolkit)
{
    std::vector<NativeObjectRef> sizes;
    paintsWith([&](NativeObject& toolkit) {
        auto measure = [&](NativeArguments args) { sizes.push_back(toolkit.call("measureText", args).object()); };
        measure({"some words to measure"});
        measure({"some words to measure", 60});
        toolkit.set("fontSize", 20);
        measure({"some words to measure"});
        toolkit.set("fontSize", 0);
        toolkit.set("bold", true);
        measure({"some words to measure"});
        measure({});
        measure({"x", "wide"});
    });
    NativeWindow window = open(element());
    ASSERT_EQ(sizes.size(), 6u);
    auto width = [&](int i) { return sizes[i]->get("width").number(); };
    auto height = [&](int i) { return sizes[i]->get("height").number(); };
    EXPECT_GT(width(0), 60);
    EXPECT_LE(width(1), 62);
    EXPECT_GE(height(1), 2 * height(0));
    EXPECT_GT(width(2), 1.5 * width(0));
    EXPECT_GT(height(2), height(0));
    EXPECT_GT(width(3), width(0));
    EXPECT_FALSE(sizes[4]);
    EXPECT_FALSE(sizes[5]);
}

TEST_F(CustomElements, DrawEllipsesAndPolygonsFilledAndAsOutlines)
{
    paintsWith([&](NativeObject& toolkit) {
        toolkit.call("drawEllipse", {"#FF0000", 0, 0, 20, 20});
        toolkit.call("drawEllipse", {"#FF0000", 30, 0, 20, 20, 2});
        toolkit.call("drawPolygon", {"#0000FF", numbers({0, 30, 20, 30, 20, 50, 0, 50})});
        NativeObjectRef pairs = host.object();
        std::vector<std::pair<int, int>> const corners{{30, 30}, {50, 30}, {50, 50}, {30, 50}};
        pairs->set("length", 4);
        for (std::size_t i = 0; i < corners.size(); ++i)
            pairs->set(std::to_string(i),
                       numbers({static_cast<double>(corners[i].first), static_cast<double>(corners[i].second)}));
        toolkit.call("drawPolygon", {"#0000FF", pairs, 1});
        toolkit.call("drawPolyline", {"#00FF00", numbers({60, 30, 80, 30, 80, 50}), 1});
        for (NativeArguments const& wrong : {NativeArguments{"#FF0000"},
                                             {"#FF0000", 5},
                                             {"#FF0000", numbers({1, 2, 3})},
                                             {"#FF0000", numbers({0, 0, 99, 59}), 0},
                                             {"#FF0000", numbers({0, 0, 99, 59}), "1"},
                                             {5, numbers({0, 0, 99, 59}), 1},
                                             {"#FF0000", host.object(), 1}})
            toolkit.call("drawPolygon", wrong);
        toolkit.call("drawEllipse", {"#FF0000", 80, 0, 20});
        toolkit.call("drawEllipse", {"#FF0000", 80, 0, 20, 20, -1});
    });
    NativeWindow window = open(element());
    QImage const image = shot(window);
    EXPECT_EQ(at(image, 10, 10), kRed);
    EXPECT_EQ(at(image, 0, 0), kPaper);
    EXPECT_EQ(at(image, 40, 10), kPaper);
    EXPECT_LT(qGreen(at(image, 40, 0)), 40) << "smooth, so nearly red";
    EXPECT_EQ(at(image, 10, 40), kBlue);
    EXPECT_EQ(at(image, 40, 40), kPaper);
    EXPECT_EQ(at(image, 30, 40), kBlue);
    EXPECT_EQ(at(image, 70, 30), kGreen);
    EXPECT_EQ(at(image, 80, 40), kGreen);
    EXPECT_EQ(at(image, 70, 40), kPaper) << "a polyline stays open";
    EXPECT_EQ(at(image, 90, 10), kPaper);
    EXPECT_EQ(at(image, 55, 33), kPaper) << "wrong ones draw nothing";
}

TEST_F(CustomElements, DrawNothingOutsideOfTheirPaintHandler)
{
    prepare = [&](NativeObject& object) {
        object.on("eMouseDown", [](NativeObject& self, NativeArguments const&) {
            self.get("toolkit").object()->call("fill", {"#FF0000"});
        });
        object.on("eCreate", [](NativeObject& self, NativeArguments const&) {
            self.get("toolkit").object()->call("fill", {"#FF0000"});
        });
    };
    NativeWindow window = open(element());
    press(window, 5, 5);
    last->get("toolkit").object()->call("fill", {"#FF0000"});
    settle(window);
    EXPECT_EQ(at(shot(window), 50, 30), kPaper);
    host.create("GuiToolkit")->call("fill", {"#FF0000"});
    host.create("GuiToolkit")->call("repaint");
}

TEST_F(CustomElements, AreDrawnAgainWhenTheyAskForIt)
{
    paintsWith([&](NativeObject& toolkit) {
        toolkit.call("fill", {paints == 1 ? "#FF0000" : paints == 2 ? "#00FF00" : "#0000FF"});
    });
    NativeWindow window = open(element());
    NativeObjectRef toolkit = last->get("toolkit").object();
    auto drawn = [&](int count) {
        host.serveUntil([&] { return paints >= count; }, 2s);
        settle(window);
        return paints.load();
    };
    EXPECT_EQ(at(shot(window), 50, 30), kRed);
    toolkit->call("repaint");
    EXPECT_EQ(drawn(2), 2);
    EXPECT_EQ(at(shot(window), 50, 30), kGreen);
    toolkit->call("repaint", {10, 10, 20, 20});
    EXPECT_EQ(drawn(3), 3);
    toolkit->call("repaint", {rect(10, 10, 20, 20)});
    EXPECT_EQ(drawn(4), 4);
    NativeObjectRef part = host.object();
    part->set("left", 1);
    for (NativeArguments const& wrong : {NativeArguments{1}, {"x"}, {1, 2, 3}, {1, 2, 3, "4"}, {1, 2, 3, 4, 5}, {part}})
        toolkit->call("repaint", wrong);
    host.serveUntil([] { return false; }, 60ms);
    EXPECT_EQ(paints, 4);
    for (int i = 0; i < 1000; ++i)
        toolkit->call("repaint");
    host.serveUntil([] { return false; }, 100ms);
    EXPECT_LE(paints, 12) << "requests join";
}

TEST_F(CustomElements, RepaintOnlyThePartThatWasAskedFor)
{
    paintsWith([&](NativeObject& toolkit) { toolkit.call("fill", {paints == 1 ? "#FF0000" : "#00FF00"}); });
    NativeWindow window = open(element());
    withNode(window, [](guiHtmlCustom& custom) {
        guiRect part{10, 20, 10, 20};
        custom.invalidate(&part);
    });
    host.serveUntil([&] { return paints == 2; }, 2s);
    settle(window);
    QImage buffer;
    withNode(window, [&](guiHtmlCustom& custom) {
        QCoreApplication::processEvents();
        auto* widget = static_cast<guiWidget*>(custom.getTopLevelWidget());
        guiRect place;
        custom.getRectInWidget(&place);
        buffer = widget->backBuffer.toImage().copy(place.left - 2, place.top - 2, 104, 64);
    });
    EXPECT_EQ(at(buffer, 15, 15), kGreen);
    EXPECT_EQ(at(buffer, 50, 40), kRed) << "what is outside of the part is as it was";
}

TEST_F(CustomElements, AreDrawnAnewInAnotherSizeAndNotWithoutAny)
{
    std::string size;
    paintsWith([&](NativeObject& toolkit) {
        NativeObjectRef area = toolkit.get("rect").object();
        size = area->get("width").text() + "x" + area->get("height").text();
        toolkit.call("fill", {"#FF0000"});
    });
    NativeWindow window = open(element());
    EXPECT_EQ(size, "100x60");
    last->call("setSize", {40, 30});
    onGuiThread(window, [](guiHtmlBase* root) { root->getWidget()->repaint(); });
    host.serveUntil([&] { return paints >= 2; }, 2s);
    settle(window);
    EXPECT_EQ(size, "40x30");
    QImage const image = shot(window);
    EXPECT_EQ(at(image, 39, 29), kRed);
    EXPECT_EQ(at(image, 40, 29), kPaper);
    int const before = paints;
    last->call("setSize", {0, 0});
    last->get("toolkit").object()->call("repaint");
    onGuiThread(window, [](guiHtmlBase* root) { root->getWidget()->repaint(); });
    host.serveUntil([] { return false; }, 50ms);
    EXPECT_EQ(paints, before);
}

TEST_F(CustomElements, OutOfThePaintedRegionAskForNothing)
{
    paintsWith([&](NativeObject& toolkit) { toolkit.call("fill", {"#FF0000"}); });
    NativeWindow window = load(element());
    withNode(window, [](guiHtmlCustom& custom) {
        QImage image(300, 200, QImage::Format_RGB32);
        QPainter painter(&image);
        QRegion const elsewhere(200, 150, 10, 10);
        QRegion const nothing(0, 0, 0, 0);
        custom.paintTo(&painter, 0, 0, nullptr, &elsewhere);
        custom.paintTo(&painter, 0, 0, nullptr, &nothing);
        EXPECT_FALSE(custom.isDrawingAsked());
    });
    EXPECT_EQ(paints, 0);
}

TEST_F(CustomElements, ShowTheirBackgroundAndBorderUnderTheDrawing)
{
    QImage picture(2, 2, QImage::Format_RGB32);
    picture.fill(kGreen);
    ASSERT_TRUE(picture.save(QString::fromStdString((folder / "paper.png").string())));
    paintsWith([&](NativeObject& toolkit) { toolkit.call("fill", {"#FF0000", rect(0, 0, 10, 10)}); });
    NativeWindow window =
        open(element("background=\"paper.png\" bgcolor=\"#0000FF\" border=1 bordercolor=\"#000000\""));
    QImage image = shot(window);
    EXPECT_EQ(at(image, 0, 0), 0xFF000000);
    EXPECT_EQ(at(image, 5, 5), kRed);
    EXPECT_EQ(at(image, 50, 30), kGreen);
    NativeWindow plain = open(element("bgcolor=\"#0000FF\""));
    image = shot(plain);
    EXPECT_EQ(at(image, 5, 5), kRed);
    EXPECT_EQ(at(image, 50, 30), kBlue);
}

TEST_F(CustomElements, CanBeDrawnByAToolkitThatIsOpenedOnAPainter)
{
    prepare = nullptr;
    NativeWindow window = load(element());
    NativeObjectRef toolkit = last->get("toolkit").object();
    QImage image(100, 60, QImage::Format_RGB32);
    image.fill(kPaper);
    withNode(window, [&](guiHtmlCustom& custom) {
        QPainter painter(&image);
        QRegion region(0, 0, 50, 60);
        guiRect area{20, 40, 10, 30};
        OpenToolkit(toolkit.get(), &custom, &painter, &region, &area);
        guiToolkit_fill(toolkit->getPrivate(), sstring("#FF0000"), nullptr);
        guiToolkit_drawLine(toolkit->getPrivate(), sstring("#0000FF"), 0, 5, 39, 5, 1);
        CloseToolkit(toolkit.get());
        guiToolkit_fill(toolkit->getPrivate(), sstring("#00FF00"), nullptr);
    });
    EXPECT_EQ(image.pixel(20, 10), kRed);
    EXPECT_EQ(image.pixel(20, 15), kBlue);
    EXPECT_EQ(image.pixel(49, 39), kRed);
    EXPECT_EQ(image.pixel(50, 39), kPaper) << "outside of the region";
    EXPECT_EQ(image.pixel(49, 40), kPaper);
}

TEST_F(CustomElements, WhoseToolkitCannotBeBuiltAreReported)
{
    NativeWindow window = host.window();
    std::string const text = printed([&] {
        onGuiThread(window, [](guiHtmlBase*) {
            guiHtmlCustom lonely;
            EXPECT_EQ(BuildToolkit(&lonely), nullptr);
        });
    });
    EXPECT_EQ(text, "BuildToolkit() - failed to construct toolkit object\n");
}

TEST_F(CustomElements, ThatThrowWhileTheyDrawAreReportedAndShowWhatTheyHave)
{
    paintsWith([&](NativeObject& toolkit) {
        toolkit.call("fill", {"#FF0000"});
        throw std::runtime_error("out of paint");
    });
    NativeWindow window;
    std::string const text = printed([&] { window = open(element()); });
    EXPECT_EQ(text, "Probe.ePaint() threw an exception: out of paint\n");
    EXPECT_EQ(at(shot(window), 50, 30), kRed);
}
