// controls/guifieldbuttons.h: the buttons inside fields of one line. Alt+Down or F4 in the field press them, too.
#pragma once

#include <functional>

class QLineEdit;

/// Shows what is typed into a password field, and hides it again. GUI thread.
void guiAddRevealButton(QLineEdit* field);
/// Asks for a file with the desktop's dialog and puts its path into the field. GUI thread.
void guiAddBrowseButton(QLineEdit* field);
/// Calls `show`. GUI thread.
void guiAddCalendarButton(QLineEdit* field, std::function<void()> const& show);
