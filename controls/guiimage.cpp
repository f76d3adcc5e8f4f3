// controls/guiimage.cpp: declares the class. FIXME: it has no methods yet, so a script can make objects of it and do
// nothing with them.
#include "controls/guiimage.h"

int guiImage_onConfigure(ScriptClass&) { return 1; }
