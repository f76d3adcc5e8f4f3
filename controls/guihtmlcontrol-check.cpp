// controls/guihtmlcontrol-check.cpp: what a page asks of the value of a control, and what is shown when that is wrong.
#include "controls/guihtmlcontrol.h"
#include "controls/guimistakemark.h"
#include "controls/guiowntexts.h"
#include "foundation/vela-qt.h"
#include "foundation/vela-threadrole.h"
#include "page/guinodewatch.h"

#include <QWidget>

sstring guiHtmlControl::findMistake()
{
    guiFieldRules const* const rules = m_content.rules.get();
    if (!rules)
        return {};
    if (isBlank())
        return rules->isRequired ? qtoss(guiOwnText("This has to be filled in.")) : sstring();
    if (!rules->pattern || *rules->pattern == getText())
        return {};
    return rules->hint.getLength() != 0 ? rules->hint : qtoss(guiOwnText("This is not in the form that is asked for."));
}

sstring guiHtmlControl::getMistake()
{
    assertOnGuiThread();
    return hasRules() && m.enabled ? findMistake() : sstring();
}

void guiHtmlControl::showMistake()
{
    if (m_mark)
        m_mark->wake();
    m_late.isMarked = !m_mark && m_late.isAwaiting;
    recheck();
}

void guiHtmlControl::recheck()
{
    if (m_mark && m_mark->isAwake())
        m_mark->showMistake(getMistake());
}

void guiHtmlControl::pointOutMistake()
{
    assertOnGuiThread();
    guiNodeWatch const self(this);
    guiReveal(this);
    QWidget* const widget = self.alive() ? needWidget() : nullptr;
    if (!widget)
        return;
    showMistake(); // which a control that was never shown could not
    widget->setFocus(Qt::OtherFocusReason);
    if (self.alive() && m_mark)
        m_mark->sayMistake();
}
