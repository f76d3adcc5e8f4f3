// page/guihtmlservices.cpp: see guihtmlservices.h. Without a component every answer is the neutral one.
#include "page/guihtmlservices.h"

#include "controls/guiwidget.h"
#include "page/guihtml.h"
#include "runtime/gui.h"
#include "runtime/guicallback.h"
#include "runtime/guihtmlbase.h"
#include "runtime/guithread.h"

bool guiServices::hasPageObject(guiHtmlBase* base) { return base && base->getPageObject(); }

// Only controls have objects that are made for them; those of custom elements exist before their node asks.
ScriptObject* guiServices::buildCustomObject(guiHtml* node)
{
    if (!pGUI || node->getType() != guiHtml::kTypeControl || !hasPageObject(node->getBaseHtml()))
        return nullptr;
    return guiCallback_BuildCustomObject(node);
}

void guiServices::unbindObject(ScriptObject* object, guiHtml* node)
{
    // A copy of a node has the same object, which still stands for the node that was copied.
    if (!pGUI || pGUI->findNode(object) != node)
        return;
    pGUI->unbindObject(object);
    object->letGo();
}

void guiServices::nodeLosesWidget(guiHtml* node) { guiWidget::forgetNode(node); }

void guiServices::eraseFormValues(guiHtml* node)
{
    if (guiHtmlBase* base = node->getBaseHtml())
        base->formValues().erase(node);
}

void guiServices::loadFormValues(guiHtml* node)
{
    if (guiHtmlBase* base = node->getBaseHtml())
        base->formValues().load(node);
}

void guiServices::postTrigger(guiHtml* node)
{
    if (pGUI)
        pGUI->getThread()->postTrigger(node);
}

sstring guiServices::enterControl(guiHtmlBase* base) { return base ? base->getEnterControl() : sstring(); }
sstring guiServices::escapeControl(guiHtmlBase* base) { return base ? base->getEscapeControl() : sstring(); }
int guiServices::enterOnRoot(guiHtmlBase* base) { return base ? base->onEnter() : 0; }
int guiServices::menuHeight(guiHtmlBase* base) { return base ? base->getMenuHeight() : 0; }
