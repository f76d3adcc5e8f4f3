// controls/guihtmlcontrolhidden.cpp: see guihtmlcontrolhidden.h.
#include "controls/guihtmlcontrolhidden.h"

guiHtml* guiHtmlControlHidden::Clone(guiHtml* parent) { return guiCloneNode(*this, parent); }
