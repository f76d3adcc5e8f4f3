// fuzz/qtapplication.h: the application object of targets that need the toolkit.
#pragma once

/// Makes it on the first call, off-screen and with the log silenced. It is never destroyed: the process ends without.
void startQt();
