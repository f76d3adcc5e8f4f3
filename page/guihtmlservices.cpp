// page/guihtmlservices.cpp: see guihtmlservices.h.
#include "page/guihtmlservices.h"

#include "controls/guiwidget.h"

// FIXME: bound to the component and the window as soon as the runtime folder builds.
bool guiServices::hasPageObject(guiHtmlBase*) { return false; }
ScriptObject* guiServices::buildCustomObject(guiHtml*) { return nullptr; }
void guiServices::unbindObject(ScriptObject*, guiHtml*) {}
void guiServices::nodeLosesWidget(guiHtml* node) { guiWidget::forgetNode(node); }
void guiServices::postTrigger(guiHtml*) {}
sstring guiServices::enterControl(guiHtmlBase*) { return sstring(); }
sstring guiServices::escapeControl(guiHtmlBase*) { return sstring(); }
int guiServices::enterOnRoot(guiHtmlBase*) { return 0; }
int guiServices::menuHeight(guiHtmlBase*) { return 0; }
