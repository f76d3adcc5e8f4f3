// fuzz/qtapplication.h: the application object of targets that need the toolkit.
#pragma once

/// Makes the application object on the first call, off-screen and with the log silenced. It is never destroyed.
void startQt();
