// page/guihtmlservices.cpp: see guihtmlservices.h.
#include "page/guihtmlservices.h"

#include "controls/guiwidget.h"
#include "runtime/gui.h"
#include "runtime/guihtmlbase.h"
#include "runtime/guithread.h"

bool guiServices::hasPageObject(guiHtmlBase* base) { return base && base->getPageObject(); }

// FIXME: nothing makes an object for a plain node yet; controls make theirs in getCustomObject().
ScriptObject* guiServices::buildCustomObject(guiHtml*) { return nullptr; }

void guiServices::unbindObject(ScriptObject* object, guiHtml* node)
{
    if (pGUI && pGUI->findNode(object) == node)
        pGUI->unbindObject(object);
}

void guiServices::nodeLosesWidget(guiHtml* node) { guiWidget::forgetNode(node); }

void guiServices::postTrigger(guiHtml* node)
{
    if (pGUI)
        pGUI->getThread()->postTrigger(node);
}

sstring guiServices::enterControl(guiHtmlBase* base) { return base ? base->getEnterControl() : sstring(); }
sstring guiServices::escapeControl(guiHtmlBase* base) { return base ? base->getEscapeControl() : sstring(); }
int guiServices::enterOnRoot(guiHtmlBase* base) { return base ? base->onEnter() : 0; }
int guiServices::menuHeight(guiHtmlBase* base) { return base ? base->getMenuHeight() : 0; }
