// controls/guitoolkit.cpp: declares the class. FIXME: it has no methods yet, so a script can make objects of it and do
// nothing with them.
#include "controls/guitoolkit.h"

int guiToolkit_onConfigure(ScriptClass&) { return 1; }
