// tests/page/nocontrols.cpp: pages without the layers above have no controls; a leaf of a test that stands for one is
// any control.
#include "tests/support/parsedpage.h"

std::string controlWord(guiHtml*) { return "control"; }
