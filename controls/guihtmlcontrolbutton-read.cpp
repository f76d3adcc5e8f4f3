// controls/guihtmlcontrolbutton-read.cpp: reads push buttons, check boxes and radio buttons.
#include "controls/guihtmlcontrolbutton.h"
#include "controls/guihtmlread.h"
#include "page/guinumbers.h"

namespace {

guiButtonType buttonType(sstring const& type)
{
    if (guiIsWord(type, "submit"))
        return kButtonSubmit;
    if (guiIsWord(type, "reset"))
        return kButtonReset;
    if (guiIsWord(type, "checkbox"))
        return kButtonCheckBox;
    return guiIsWord(type, "radio") ? kButtonRadio : kButtonPlain;
}

void pullInputButton(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    auto* button = pullControl<guiHtmlControlButton>(parser, parent, section);
    button->initText(guiHtmlParser::pullData(section, "value"));
    sstring action = guiHtmlParser::pullAttr(section, "onclick");
    button->setAction(action.getLength() ? action : guiHtmlParser::pullAttr(section, "onchange"));
    button->init(buttonType(guiHtmlParser::pullAttr(section, "type")), guiHasValue(section, "checked"));
    button->setChecksForm(!guiHtmlParser::hasAttr(section, "novalidate"));
    if (button->isCheckable())
        pullRules(parser, button, section);
}

guiInputType const kButton("button", pullInputButton);
guiInputType const kSubmit("submit", pullInputButton);
guiInputType const kReset("reset", pullInputButton);
guiInputType const kCheckBox("checkbox", pullInputButton);
guiInputType const kRadio("radio", pullInputButton);

} // namespace
