// controls/guitoolkit.cpp: see guitoolkit.h. FIXME: the class has no methods yet, so its objects are of no use to a
// script.
#include "controls/guitoolkit.h"

int guiToolkit_onConfigure(ScriptClass&) { return 1; }
