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
///   hasTray()            whether the desktop has a tray
///   showTray(number, icon, tip, heard, (kind, text)...)   see guitray.h; false when the file `icon` holds no picture.
///                                                         `heard`, a function, is called with the place of the item
///                                                         that was chosen, or with -1 for a click on the picture.
///   removeTray(number)
///   showOnTaskbar(desktopFile, progress, count, urgent)   see guitaskbar.h; whether somebody may show it
///   showNotice(title, text, icon, ms, done)   see guinotice.h; returns at once. `done`, a function, is called with why
///   it
///                                             is not shown, "" when it is.
void guiSession_complete();
