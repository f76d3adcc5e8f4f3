// runtime/guitoolkitmessages.h: hears what the toolkit says right before it would end the process: that it can not
// start, and that the display is gone.
#pragma once

#include <functional>

/// The toolkit is about to start. When it can not, `onFailure` is called and the thread stays inside the toolkit for
/// ever: it would end the process otherwise. GUI thread, like all of these.
void guiToolkitMessages_start(std::function<void()> onFailure);

/// The toolkit has started. When the display goes, `onLoss` is called; if it says that the program is being ended, the
/// thread stays where it is.
void guiToolkitMessages_started(std::function<bool()> onLoss);

/// The toolkit has ended: messages go where they went before.
void guiToolkitMessages_end();
