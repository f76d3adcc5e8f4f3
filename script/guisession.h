// script/guisession.h: what the component adds to the session object for its host: dialogs and the clipboard. Hosts
// offer them to script under names of their own.
#pragma once

/// Adds the methods when the session object is new. Script thread.
///
///   showDialog(kind, title, text, value, option, done, name...)   see guidialogs.h; returns at once; true, or false
///   for
///                                                                 other arguments. `done`, a function, is called with
///                                                                 the answers, without any when there is none.
///   readClipboard()      the text, "" for anything else
///   writeClipboard(text)
void guiSession_complete();
