// tests/support/controlword.cpp: names the controls of an outline by the number of their kind.
#include "tests/support/parsedpage.h"

#include "controls/guihtmlcontrol.h"

std::string controlWord(guiHtml* control)
{
    return "control" + std::to_string(static_cast<guiHtmlControl*>(control)->getControlType());
}
