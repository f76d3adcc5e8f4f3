// controls/guihtmlcontrolbutton-press.cpp: what pressing a button does, and what is wrong about boxes that have to be
// on.
#include "controls/guieventscope.h"
#include "controls/guiformcheck.h"
#include "controls/guihtmlcontrolbutton.h"
#include "controls/guihtmlform.h"
#include "controls/guilatewidgets.h"
#include "controls/guiowntexts.h"
#include "foundation/vela-qt.h"
#include "foundation/vela-threadrole.h"
#include "page/guinodewatch.h"
#include "page/guipageroot.h"

#include <QAbstractButton>
#include <algorithm>
#include <vector>

namespace {

using buttonList = std::vector<guiHtmlControlButton*>;

guiHtmlForm* formAround(guiHtml* node)
{
    while (node && node->getType() != guiHtml::kTypeForm)
        node = node->getParent();
    return static_cast<guiHtmlForm*>(node);
}

void collectRadios(guiHtml* node, sstring const& name, buttonList& found)
{
    auto* const button = node->getType() == guiHtml::kTypeControl ? dynamic_cast<guiHtmlControlButton*>(node) : nullptr;
    if (button && button->getButtonType() == kButtonRadio && button->isString(kStringName, name, true))
        found.push_back(button);
    for (guiHtml* child : guiNodesOf(node))
        collectRadios(child, name, found);
}

/// The radio buttons of one name on a page, this one among them.
buttonList groupOf(guiHtmlControlButton* radio)
{
    if (guiRadioGroup const* group = radio->getTabGroup())
        return group->buttons;
    buttonList found;
    if (guiPageRoot* page = radio->getBaseHtml())
        collectRadios(page, radio->getName(), found);
    return found;
}

} // namespace

bool guiHtmlControlButton::isBlank()
{
    if (m_state.type != kButtonRadio)
        return !isChecked();
    buttonList const group = groupOf(this);
    return std::none_of(group.begin(), group.end(), [](auto* radio) { return radio->isChecked(); });
}

sstring guiHtmlControlButton::findMistake()
{
    if (!isCheckable() || !m_content.rules || !m_content.rules->isRequired || !isBlank())
        return {};
    return m_state.type == kButtonRadio ? qtoss(guiOwnText("One of these has to be chosen."))
                                        : qtoss(guiOwnText("This box has to be ticked."));
}

/// Which radio button is on concerns the others of its name.
void guiHtmlControlButton::recheckAll()
{
    if (m_state.type != kButtonRadio)
        return recheck();
    for (guiHtmlControlButton* radio : groupOf(this))
        radio->recheck();
}

// A reset button without a link does nothing: there is no built-in reset.
void guiHtmlControlButton::onClick()
{
    assertOnGuiThread();
    if (isChecked())
        noteChecked();
    if (isCheckable())
        recheckAll();
    guiHtmlForm* const form = formAround(getParent());
    sstring link = m_content.action;
    if (link.getLength() == 0 && m_state.type == kButtonSubmit && form)
        link = form->getAction();
    bool const checksForm = m_state.type == kButtonSubmit && m_state.checksForm && link.getLength() != 0;
    guiHtml* const all = form ? static_cast<guiHtml*>(form) : getBaseHtml();
    if (!checksForm || !all || guiCheckForm(all))
        followLink(link);
}

void guiHtmlControlButton::onLabel()
{
    guiEventScope scope;
    guiNodeWatch const self(this);
    guiHtmlControl::onLabel();
    if (auto* const button = self.alive() && isCheckable() ? qobject_cast<QAbstractButton*>(getChildWidget()) : nullptr)
        button->click(); // which does nothing while it is disabled
}
