// runtime/guicloserequest.h: the user wants to close a window: by its title bar, by a key, or by ending the desktop's
// session. A window with a handler `eClose` is asked: with false, or a promise of false, it stays. Script's own close()
// does not ask.
#pragma once

#include "foundation/vela-threadrole.h"

class guiHtmlBase;
class QGuiApplication;

/// Whether the window may be closed now; true for one without the handler. When the handler has left a promise, false,
/// and the window is closed as soon as that settles with anything but false. While a window is being asked it is not
/// asked again. Runs script. GUI thread.
bool guiCloseRequest_ask(guiHtmlBase& root) TARN_ON(velaGuiRole);

/// Asks soon, and closes the window if it may. Any thread.
void guiCloseRequest_post(guiHtmlBase& root);

/// Asks every open window, and closes those that may. Runs script. GUI thread.
void guiCloseRequest_askAll() TARN_ON(velaGuiRole);

/// Whether every open window lets the desktop's session end; waits for promises, and closes none. Runs script. GUI
/// thread.
bool guiCloseRequest_maySessionEnd() TARN_ON(velaGuiRole);

/// Has the end of the session, and whoever asks the application to quit, ask the windows. GUI thread.
void guiCloseRequest_watch(QGuiApplication& application);
