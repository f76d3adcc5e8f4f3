// page/guihtmlservices.cpp: see guihtmlservices.h. Without a component every answer is the neutral one.
#include "page/guihtmlservices.h"

#include "controls/guiwidget.h"
#include "page/guihtml.h"
#include "runtime/gui.h"
#include "runtime/guihtmlbase.h"
#include "runtime/guithread.h"

bool guiServices::hasPageObject(guiHtmlBase* base) { return base != nullptr && base->getPageObject() != nullptr; }

// FIXME: no class of node makes a script object of its own yet.
ScriptObject* guiServices::buildCustomObject(guiHtml*) { return nullptr; }

void guiServices::unbindObject(ScriptObject* object, guiHtml* node)
{
    // A copy of a node has the same object, which still stands for the node that was copied.
    if (pGUI != nullptr && pGUI->findNode(object) == node)
        pGUI->unbindObject(object);
}

void guiServices::nodeLosesWidget(guiHtml* node) { guiWidget::forgetNode(node); }

void guiServices::postTrigger(guiHtml* node)
{
    if (pGUI != nullptr)
        pGUI->getThread()->postTrigger(node);
}

sstring guiServices::enterControl(guiHtmlBase* base) { return base != nullptr ? base->getEnterControl() : sstring(); }
sstring guiServices::escapeControl(guiHtmlBase* base) { return base != nullptr ? base->getEscapeControl() : sstring(); }
int guiServices::enterOnRoot(guiHtmlBase* base) { return base != nullptr ? base->onEnter() : 0; }
int guiServices::menuHeight(guiHtmlBase* base) { return base != nullptr ? base->getMenuHeight() : 0; }
