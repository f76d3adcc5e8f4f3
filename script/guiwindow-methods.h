// script/guiwindow-methods.h: the GUI-thread halves of those GuiWindow methods that only read or change the page root.
// When the arguments are not of the number or type that a method takes, its result is null and it does nothing.
#pragma once

#include "script/hostinterface.h"

#define TARN_WINDOW_METHOD(name)                                                                                       \
    void guiWindow_##name##_qt(LibManager& manager, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args,         \
                               ScriptValue& result)

TARN_WINDOW_METHOD(isOpen);
TARN_WINDOW_METHOD(popup);
TARN_WINDOW_METHOD(isValid);
TARN_WINDOW_METHOD(setReturnValue);
TARN_WINDOW_METHOD(setMinimumSize);
TARN_WINDOW_METHOD(setMaximumSize);
TARN_WINDOW_METHOD(setDefaultSize);
TARN_WINDOW_METHOD(setResizable);
TARN_WINDOW_METHOD(useSystemFont);
TARN_WINDOW_METHOD(readZoom);
TARN_WINDOW_METHOD(writeZoom);
TARN_WINDOW_METHOD(setTitle);
TARN_WINDOW_METHOD(getTitle);
TARN_WINDOW_METHOD(setIcon);
TARN_WINDOW_METHOD(setFocus);
TARN_WINDOW_METHOD(getFocus);
TARN_WINDOW_METHOD(setEnterControl);
TARN_WINDOW_METHOD(getEnterControl);
TARN_WINDOW_METHOD(setEscapeControl);
TARN_WINDOW_METHOD(getEscapeControl);
TARN_WINDOW_METHOD(setSizePolicy);
TARN_WINDOW_METHOD(getSizePolicy);
TARN_WINDOW_METHOD(control);
TARN_WINDOW_METHOD(readForm);
TARN_WINDOW_METHOD(writeForm);
TARN_WINDOW_METHOD(isFormValid);
TARN_WINDOW_METHOD(getSelection);
TARN_WINDOW_METHOD(findText);
TARN_WINDOW_METHOD(writePdf);

/// Runs on the script thread: it only passes the request on.
void guiWindow_startPrint_script(LibManager& manager, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args,
                                 ScriptValue& result);

#undef TARN_WINDOW_METHOD
