// page/guipagetext.h: what the user does with the text of one page: selecting it, and finding something in it.
#pragma once

#include "page/guitextmarks.h"
#include "page/guitextselection.h"

class guiPageRoot;

/// Belongs to a page's root, which has one once it is asked for. GUI thread.
class guiPageText
{
public:
    explicit guiPageText(guiPageRoot& page) : selection(page) {}

    guiTextMarks marksOf(guiHtmlText& run);

    guiTextSelection selection;
};
