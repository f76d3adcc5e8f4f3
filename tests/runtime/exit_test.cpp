// tests/runtime/exit_test.cpp: tests of the end of a process whose component is still running.
#include "host/native/nativehost.h"
#include "runtime/gui.h"
#include "runtime/guithread.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>

#include <cstdlib>

namespace {

/// The toolkit makes its input devices when it first needs one.
void makeMouseEvent(LibManager&, ScriptPrivate*, ScriptObject*, ScriptArgs&, ScriptValue&)
{
    QWidget widget;
    QMouseEvent event(QEvent::MouseMove, {1, 1}, {1, 1}, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}

[[noreturn]] void exitAfterAMouseEvent()
{
    new NativeHost; // for exit() to end
    NativeArguments args;
    NativeValue result;
    pGUI->getThread()->callFunction(makeMouseEvent, pGUI->getManager(), nullptr, nullptr, args, result);
    std::exit(0);
}

TEST(Exit, AfterInputEndsTheToolkitBeforeItsStatics)
{
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    EXPECT_EXIT(exitAfterAMouseEvent(), testing::ExitedWithCode(0), "");
}

} // namespace
