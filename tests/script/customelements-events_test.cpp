// tests/script/customelements-events_test.cpp: what custom elements hear of the pointer and of keys.
#include "tests/script/customelements.h"

#include <QAbstractButton>
#include <atomic>
#include <thread>

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
