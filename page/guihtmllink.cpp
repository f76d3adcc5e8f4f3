// page/guihtmllink.cpp: follows links and loads files into nodes. FIXME: no link is followed yet.
#include "page/guihtml.h"

int guiHtml::loadFile(sstring) { return 0; }
int guiHtml::loadBackground(sstring) { return 0; }
int guiHtml::dynamicLoad() { return 1; }
void guiHtml::setCurrentDirectory() {}
int guiHtml::onEvent(sstring, ScriptObject*) { return 0; }
int guiHtml::onHyperlink(sstring, ScriptObject*) { return 0; }
int guiHtml::onHyperlinkAction(sstring&, sstring&, ScriptObject*) { return 0; }
int guiHtml::onHyperlinkFile(sstring&, sstring&) { return 0; }
