// tests/runtime/driver_test.cpp: tests of the test driver where a page can not provoke what it has to cope with. All
// else is tested from the outside, in tests/node/driver*.real.test.js.
#include "controls/guiwidget.h"
#include "runtime/guidriver.h"
#include "runtime/guidriveraim.h"
#include "runtime/guidriverhand.h"
#include "runtime/guidriverlook.h"
#include "runtime/guidriverwindows.h"
#include "runtime/guihtmlbase.h"
#include "tests/runtime/onguithread.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPushButton>

namespace {

/// A window with one button, "ok".
struct ButtonWindow : guiHtmlBase
{
    using guiHtml::operator=;
    ButtonWindow() : guiHtmlBase(nullptr, nullptr, nullptr, sstring())
    {
        setText(sstring("<form><input type=\"button\" name=\"ok\" value=\"OK\"></form>"), sstring());
        createWidget(0);
        getWidget()->show();
        QCoreApplication::processEvents();
    }
    ~ButtonWindow() override { destroyWidget(); }

    /// What a request has for the button.
    QJsonObject thing()
    {
        for (QJsonValue const& each : guiDriver_look(getWidget()))
            if (each["name"].toString() == u"ok")
                return each["thing"].toObject();
        return {};
    }
    guiDriverPlace aim() TARN_ON(velaGuiRole)
    {
        return guiDriver_aim(getWidget(), guiDriver_find(getWidget(), thing()));
    }
};

QJsonObject answerTo(QJsonObject const& request)
{
    QByteArray answer;
    guiDriver_run(QJsonDocument(request).toJson(), nullptr, [&answer](QByteArray const& json) { answer = json; });
    return QJsonDocument::fromJson(answer).object();
}

} // namespace

TEST(Driver, AThingBehindAnotherWidgetIsSaidToBeCovered)
{
    NativeHost host;
    onGuiThread([] {
        assertOnGuiThread();
        ButtonWindow window;
        EXPECT_EQ(window.aim().problem, "");
        QWidget front(window.getWidget());
        front.setGeometry(window.getWidget()->rect());
        front.show();
        EXPECT_EQ(window.aim().problem, "covered by another part of the window");
        front.hide();
        EXPECT_EQ(window.aim().problem, "");
    });
}

TEST(Driver, AClickGoesToWhatIsAtThePlace)
{
    NativeHost host;
    onGuiThread([] {
        assertOnGuiThread();
        ButtonWindow window;
        auto* const button = window.getWidget()->findChild<QPushButton*>();
        ASSERT_NE(button, nullptr);
        int clicks = 0;
        QObject::connect(button, &QPushButton::clicked, [&clicks] { ++clicks; });
        guiDriver_click(window.getWidget(), window.aim().at, guiDriverClick::kLeft, Qt::NoModifier);
        EXPECT_EQ(clicks, 0); // it is on its way
        QCoreApplication::processEvents();
        EXPECT_EQ(clicks, 1);
        guiDriver_click(window.getWidget(), QPoint(window.getWidget()->width() - 1, 1), guiDriverClick::kLeft,
                        Qt::NoModifier);
        QCoreApplication::processEvents();
        EXPECT_EQ(clicks, 1);
    });
}

TEST(Driver, WhatIsGoneIsNotFound)
{
    NativeHost host;
    onGuiThread([] {
        assertOnGuiThread();
        ButtonWindow window;
        QJsonObject const thing = window.thing();
        EXPECT_NE(guiDriver_find(window.getWidget(), thing).node, nullptr);
        ButtonWindow other;
        EXPECT_EQ(guiDriver_find(other.getWidget(), thing).node, nullptr);
        window.setText(sstring("empty"), sstring());
        EXPECT_EQ(guiDriver_find(window.getWidget(), thing).node, nullptr);
        EXPECT_EQ(guiDriver_aim(window.getWidget(), guiDriver_find(window.getWidget(), thing)).problem, "gone");
    });
}

TEST(Driver, ARequestThatIsNoneIsToldAndOneAboutAClosedWindowToo)
{
    NativeHost host;
    onGuiThread([] {
        assertOnGuiThread();
        int id = 0;
        {
            ButtonWindow window;
            id = guiDriver_idOf(window.getWidget());
            EXPECT_EQ(answerTo({{"do", "nothing"}, {"window", id}}), (QJsonObject{{"problem", "unknown request"}}));
            EXPECT_EQ(answerTo({{"do", "press"}, {"window", id}, {"keys", ""}})["isUnknown"].toBool(), true);
        }
        EXPECT_EQ(answerTo({{"do", "look"}, {"window", id}}), (QJsonObject{{"isGone", true}}));
    });
}
