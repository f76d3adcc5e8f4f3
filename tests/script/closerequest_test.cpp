// tests/script/closerequest_test.cpp: tests of the user's wish to close a window, and of the end of the desktop's
// session, with windows that keep themselves open.
#include "runtime/guicloserequest.h"
#include "tests/script/scriptfixture.h"

#include <QApplication>
#include <QWidget>

namespace {

class CloseRequest : public ScriptTest
{
protected:
    /// An open window whose handler answers this.
    NativeWindow asked(NativeValue const& answer)
    {
        NativeWindow window = host.window(write("page.html", "<html><body>text</body></html>"));
        window.on("eClose", [this, answer](NativeWindow&, NativeArguments const& args) {
            EXPECT_EQ(args.size(), 1u);
            ++questions;
            return answer;
        });
        window.open();
        return window;
    }

    void onGuiThread(std::function<void()> const& work)
    {
        static std::function<void()> const* theWork;
        theWork = &work;
        auto run = [](LibManager&, ScriptPrivate*, ScriptObject*, ScriptArgs&, ScriptValue&) { (*theWork)(); };
        NativeArguments args;
        NativeValue result;
        pGUI->getThread()->callFunction(run, pGUI->getManager(), nullptr, nullptr, args, result);
    }

    void closeByUser(NativeWindow& window)
    {
        onGuiThread([&] {
            if (guiHtmlBase* root = GetWindow(guiWindow_getData(window.object()->getPrivate())))
                root->getTopLevelWidget()->close();
        });
    }

    bool mayEnd()
    {
        bool answer = false;
        onGuiThread([&] {
            assertOnGuiThread();
            answer = guiCloseRequest_maySessionEnd();
        });
        return answer;
    }

    int questions = 0;
};

TEST_F(CloseRequest, FalseKeepsTheWindowAndAnythingElseClosesIt)
{
    for (NativeValue const& answer : {NativeValue(true), NativeValue(), NativeValue(0), NativeValue("false")}) {
        NativeWindow window = asked(answer);
        closeByUser(window);
        EXPECT_EQ(window.call("isOpen"), NativeValue(false)) << answer;
    }
    EXPECT_EQ(questions, 4);
    NativeWindow kept = asked(false);
    closeByUser(kept);
    closeByUser(kept);
    EXPECT_EQ(questions, 6);
    EXPECT_EQ(kept.call("isOpen"), NativeValue(true));
    kept.close();
    EXPECT_EQ(kept.call("isOpen"), NativeValue(false));
    EXPECT_EQ(questions, 6) << "script's own close does not ask";
}

TEST_F(CloseRequest, WithoutAHandlerTheWindowCloses)
{
    NativeWindow window = host.window(write("page.html", "<html><body>text</body></html>"));
    window.open();
    closeByUser(window);
    EXPECT_EQ(window.call("isOpen"), NativeValue(false));
}

TEST_F(CloseRequest, AHandlerThatClosesTheWindowItselfDoesNoHarm)
{
    NativeWindow window = asked(false);
    window.on("eClose", [](NativeWindow& self, NativeArguments const&) { self.close(); });
    closeByUser(window);
    EXPECT_EQ(window.call("isOpen"), NativeValue(false));
}

TEST_F(CloseRequest, TheSessionEndsWhenEveryWindowAgreesAndNoneIsClosedForIt)
{
    EXPECT_TRUE(mayEnd());
    NativeWindow agrees = asked(true);
    EXPECT_TRUE(mayEnd());
    NativeWindow refuses = asked(false);
    EXPECT_FALSE(mayEnd());
    EXPECT_EQ(agrees.call("isOpen"), NativeValue(true));
    EXPECT_EQ(refuses.call("isOpen"), NativeValue(true));
    refuses.close();
    EXPECT_TRUE(mayEnd());
    agrees.close();
}

TEST_F(CloseRequest, TheDesktopsWishToQuitAsksEveryWindow)
{
    NativeWindow agrees = asked(true);
    NativeWindow refuses = asked(false);
    onGuiThread([] {
        QEvent quit(QEvent::Quit);
        QCoreApplication::sendEvent(QCoreApplication::instance(), &quit);
    });
    EXPECT_EQ(questions, 2);
    EXPECT_EQ(agrees.call("isOpen"), NativeValue(false));
    EXPECT_EQ(refuses.call("isOpen"), NativeValue(true));
    refuses.close();
}

} // namespace
