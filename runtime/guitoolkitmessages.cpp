// runtime/guitoolkitmessages.cpp: see the header. The toolkit ends the process by exit(), _exit() or abort(), according
// to the platform; what they have in common is the message before.
#include "runtime/guitoolkitmessages.h"

#include "foundation/vela-threadrole.h"

#include <QString>
#include <cassert>
#include <cstdio>
#include <utility>

#include <unistd.h>

namespace {

std::function<void()> theOnFailure; // empty unless the toolkit starts
std::function<bool()> theOnLoss;    // empty unless it runs
QtMessageHandler thePrevious = nullptr;

[[noreturn]] void stayForEver()
{
    for (;;)
        pause();
}

/// That this is not the thread of main(), which is known, and what tests without a session provoke.
bool isNoise(QString const& message)
{
    return message.contains(QLatin1String("was not created in the main() thread")) ||
           message.contains(QLatin1String("XDG_RUNTIME_DIR"));
}

void hearStart(QtMsgType type, QMessageLogContext const&, QString const& message)
{
    if (isNoise(message))
        return;
    if (type == QtFatalMsg) {
        theOnFailure();
        stayForEver();
    }
    std::fprintf(stderr, "%s\n", qPrintable(message));
}

/// What the platform without a display says it can not do, such as to raise a window.
bool isOffscreenNoise(QString const& message)
{
    return message.startsWith(QLatin1String("This plugin does not support "));
}

/// What the toolkit says when a screen reader asks its own lists, such as that of a combo box, for what they have not.
bool isNoiseOfReaders(QString const& message)
{
    return message.startsWith(QLatin1String("QAccessibleT")) && message.contains(QLatin1String("nvalid index"));
}

bool isLoss(QString const& message)
{
    return message.startsWith(QLatin1String("The X11 connection broke")) ||
           message.startsWith(QLatin1String("The Wayland connection"));
}

void hearDisplay(QtMsgType type, QMessageLogContext const& context, QString const& message)
{
    if (isLoss(message) && velaGuiRole.isHeld() && theOnLoss && theOnLoss())
        stayForEver();
    if (!isOffscreenNoise(message) && !isNoiseOfReaders(message))
        thePrevious(type, context, message);
}

} // namespace

void guiToolkitMessages_start(std::function<void()> onFailure)
{
    assertOnGuiThread();
    assert(!thePrevious);
    theOnFailure = std::move(onFailure);
    thePrevious = qInstallMessageHandler(hearStart);
}

void guiToolkitMessages_started(std::function<bool()> onLoss)
{
    assertOnGuiThread();
    theOnFailure = nullptr;
    theOnLoss = std::move(onLoss);
    qInstallMessageHandler(hearDisplay);
}

void guiToolkitMessages_end()
{
    assertOnGuiThread();
    qInstallMessageHandler(thePrevious);
    thePrevious = nullptr;
    theOnLoss = nullptr;
}
