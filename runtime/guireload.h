// runtime/guireload.h: reads pages anew while they are in use, for live reload. The package asks for it (its
// live/watch.js), when somebody has turned it on; nothing else does, no page can, and nothing of it runs before.
// guireload.cpp answers the requests; guireloadfiles.h knows which files a window's pages name, guireloadcheck.h looks
// whether a page can be read before the old one goes, guikeptpage.h and guikeptfocus.h carry over what is on it,
// guigiven.h knows what of that is the page's own, guiproblemstrip.h says what is wrong, guiwindowplaces.h where
// windows stand.
#pragma once

#include "runtime/guireloadfiles.h"

#include <QByteArray>
#include <functional>

class guiHtml;

/// Hears the answer to a request, once, on the GUI thread.
using guiReloadAnswer = std::function<void(QByteArray const& json)>;

/// Turns live reload on, once and for all: `listener` hears of the files that pages name from now on. A window's page
/// that was read before is taken as it is then. GUI thread.
void guiReload_start(guiFileListener const& listener);

/// Carries a request out: an object with the property "do", as JSON; the answer is one, too. `page`: of the window that
/// the request is about; may be gone, or null. "check" and "show" have "files", full names of those that were saved.
/// - "check" reads them. The answer has "problem", one line, when the old page has to stay.
/// - "show" shows what was read, and answers when it is painted. No handler of the page hears of it.
/// - Both answer "isBusy", and do nothing, while the user or script is in the middle of something: ask again then.
/// - "tell" shows "message" in the window, "" for none.
/// - "expect" gives "places" to the windows that are made from now on, "places" answers with those of all.
/// GUI thread.
void guiReload_run(QByteArray const& request, guiHtml* page, guiReloadAnswer const& answer);
