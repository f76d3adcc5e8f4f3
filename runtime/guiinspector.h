// runtime/guiinspector.h: the windows of a program for its author to look into: the tree of a page, what each element
// asked for and got, and a mark around one of them. The package's inspector, a window of its own, asks for it;
// nothing of it runs in a program that was not started to be inspected. guiinspector.cpp answers the requests,
// guiinspectorlook.h reads nodes, guiinspectormark.h marks one.
#pragma once

#include <QByteArray>
#include <functional>

class guiHtml;

/// Hears the answer to a request, once, on the GUI thread.
using guiInspectorAnswer = std::function<void(QByteArray const& json)>;

/// Carries a request out: an object with the property "do", as JSON; the answer is an object too. `page`: the page of
/// the inspector's own window, for the requests that need it, else null; it may be gone. The answer to "wait" comes
/// when the user next presses Ctrl+Shift+I. GUI thread.
void guiInspector_run(QByteArray const& request, guiHtml* page, guiInspectorAnswer const& answer);
