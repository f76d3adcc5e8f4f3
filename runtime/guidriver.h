// runtime/guidriver.h: the windows of a process in the hands of a test: what is on them, and input that comes to them
// the way in which the display's comes. The package's test driver asks for it; nothing else does, no page can, and
// nothing of it runs before. guidriver.cpp answers the requests, guidriverwindows.h knows the windows, guidriverlook.h
// what is on one, guidriveraim.h where one of these things can be clicked, guidriverhand.h clicks and types,
// guidriverpicture.h takes pictures.
#pragma once

#include <QByteArray>
#include <functional>

class guiHtml;

/// Hears the answer to a request, once, on the GUI thread.
using guiDriverAnswer = std::function<void(QByteArray const& json)>;

/// Carries a request out: an object with the property "do", as JSON. The answer is an object too; what could not be
/// done is its property "problem", in words for the user. `page`: the page of a window that the request is about, null
/// for most; it may be gone. Cursors blink no more, unless the request has `isOnlooker`. Input is on its way when the
/// answer comes, and not before: whoever wants to see what it has done asks again. GUI thread.
void guiDriver_run(QByteArray const& request, guiHtml* page, guiDriverAnswer const& answer);
