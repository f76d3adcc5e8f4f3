// foundation/vela-threadrole.cpp: the two roles of the process.

#include "foundation/vela-threadrole.h"

// Known before any constructor runs: other static objects may ask.
constinit velaThreadRole velaGuiRole;
constinit velaThreadRole velaScriptRole;
