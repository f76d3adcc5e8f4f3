// tests/script/customelements.h: a page with custom elements in a window of the C++ host, for the tests of what they
// hear and draw.
#pragma once

#include "controls/guihtmlcustom.h"
#include "controls/guitoolkit.h"
#include "controls/guiwidget.h"
#include "tests/script/scriptfixture.h"

#include <QCoreApplication>
#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPixmap>
#include <QWheelEvent>
#include <chrono>

using namespace std::chrono_literals;

using Log = std::vector<std::string>;

inline constexpr QRgb kPaper = 0xFFF0F0F0;
inline constexpr QRgb kRed = 0xFFFF0000;
inline constexpr QRgb kGreen = 0xFF00FF00;
inline constexpr QRgb kBlue = 0xFF0000FF;

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
