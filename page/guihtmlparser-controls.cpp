// page/guihtmlparser-controls.cpp: the form controls: input and textarea.
#include "page/guihtmlparser.h"

#include "controls/guihtmlcontrolbutton.h"
#include "controls/guihtmlcontroledit.h"
#include "controls/guihtmlcontrolhidden.h"
#include "controls/guihtmlimage.h"
#include "foundation/vela-mlparser.h"
#include "page/guinumbers.h"

#include <algorithm>

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

guiEditType editType(sstring const& type)
{
    if (guiIsWord(type, "password"))
        return kEditPassword;
    return guiIsWord(type, "file") ? kEditFile : kEditText;
}

/// Columns or rows; an absent or zero number is the default.
int countOr(sstring const& count, int otherwise)
{
    int number = std::clamp(guiToNumber(count), -kMaxPixels, kMaxPixels);
    return number ? number : otherwise;
}

bool isOneOf(sstring const& word, std::initializer_list<char const*> words)
{
    for (char const* each : words)
        if (guiIsWord(word, each))
            return true;
    return false;
}

} // namespace

/// Appends a control and reads what all controls have.
void guiHtmlParser::pullControl(guiHtml* parent, guiHtml* control, mlSection* section)
{
    appendGuiHtml(parent, control);
    pullName(control, section);
    pullMouseEvents(control, section);
    pullRestrict(control, section);
    pullTabIndex(control, section);
    if (hasAttr(section, "disabled"))
        control->setEnabled(0);
}

void guiHtmlParser::pullInput(guiHtml* parent, mlSection* section)
{
    sstring type = pullAttr(section, "type");
    if (isOneOf(type, {"button", "submit", "checkbox", "radio", "reset"}))
        pullInputButton(parent, section);
    else if (isOneOf(type, {"text", "file", "password"}))
        pullInputEdit(parent, section);
    else if (guiIsWord(type, "hidden"))
        pullInputHidden(parent, section);
    else if (guiIsWord(type, "image"))
        pullInputImage(parent, section);
}

void guiHtmlParser::pullInputButton(guiHtml* parent, mlSection* section)
{
    auto* button = new guiHtmlControlButton;
    pullControl(parent, button, section);
    button->initText(pullAttr(section, "value"));
    sstring action = pullAttr(section, "onclick");
    button->setAction(action.getLength() ? action : pullAttr(section, "onchange"));
    button->init(buttonType(pullAttr(section, "type")), pullAttr(section, "checked").getLength() != 0);
}

void guiHtmlParser::pullInputEdit(guiHtml* parent, mlSection* section)
{
    auto* edit = new guiHtmlControlEdit;
    pullControl(parent, edit, section);
    edit->initText(pullAttr(section, "value"));
    edit->setAction(pullAttr(section, "onchange"));
    edit->init({editType(pullAttr(section, "type")),
                countOr(pullAttr(section, "size"), guiHtmlControlEdit::kDefaultSize),
                guiToNumber(pullAttr(section, "maxlength")), 1});
}

void guiHtmlParser::pullInputEditField(guiHtml* parent, mlSection* section)
{
    auto* edit = new guiHtmlControlEdit;
    pullControl(parent, edit, section);
    edit->initText(pullText(section));
    edit->setAction(pullAttr(section, "onchange"));
    edit->init({editType(pullAttr(section, "type")),
                countOr(pullAttr(section, "cols"), guiHtmlControlEdit::kDefaultSize),
                guiToNumber(pullAttr(section, "maxlength")),
                countOr(pullAttr(section, "rows"), guiHtmlControlEdit::kDefaultRows)});
}

void guiHtmlParser::pullInputHidden(guiHtml* parent, mlSection* section)
{
    auto* hidden = new guiHtmlControlHidden;
    appendGuiHtml(parent, hidden);
    pullName(hidden, section);
    hidden->initText(pullAttr(section, "value"));
}

void guiHtmlParser::pullInputImage(guiHtml* parent, mlSection* section)
{
    auto* image = new guiHtmlImage;
    appendGuiHtml(parent, image);
    pullImage(image, section);
    pullTabIndex(image, section);
}
