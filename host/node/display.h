// host/node/display.h: whether there is a display. The toolkit ends the whole process when it finds none, so this is
// asked before.
#pragma once

#include <string>

/// "" unless it is certain that no window can be opened, else one sentence that names the display.
std::string findDisplayProblem();
