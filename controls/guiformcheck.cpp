// controls/guiformcheck.cpp: see guiformcheck.h.
#include "controls/guiformcheck.h"

#include "controls/guihtmlcontrol.h"
#include "foundation/vela-threadrole.h"

#include <vector>

namespace {

void collectMistakes(guiHtml* node, std::vector<guiHtmlControl*>& wrong)
{
    auto* const control = node->getType() == guiHtml::kTypeControl ? dynamic_cast<guiHtmlControl*>(node) : nullptr;
    if (control && control->getMistake().getLength() != 0)
        wrong.push_back(control);
    for (guiHtml* child : guiNodesOf(node))
        collectMistakes(child, wrong);
}

} // namespace

bool guiIsFormValid(guiHtml* form)
{
    assertOnGuiThread();
    std::vector<guiHtmlControl*> wrong;
    collectMistakes(form, wrong);
    return wrong.empty();
}

bool guiCheckForm(guiHtml* form)
{
    assertOnGuiThread();
    std::vector<guiHtmlControl*> wrong;
    collectMistakes(form, wrong);
    for (guiHtmlControl* control : wrong)
        control->showMistake();
    if (!wrong.empty())
        wrong.front()->pointOutMistake();
    return wrong.empty();
}
