// host/node/display.h: is there a display? The toolkit ends the whole process when it finds none, so it is asked
// before.
#pragma once

#include <string>

/// "" when windows can be opened as far as one can tell from outside, else one sentence that names the display.
std::string findDisplayProblem();
