// runtime/guipostlast.h: work for when everything that waits in the event loop has been done.
#pragma once

#include <functional>

/// Does the work when all events that are there now have been handled, those that paint included. GUI thread.
void guiPostLast(std::function<void()> work);
