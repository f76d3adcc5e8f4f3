// page/guipagetext.h: what the user does with the text of one page: selecting it, and finding something in it.
#pragma once

#include "page/guitextsearch.h"
#include "page/guitextselection.h"

class guiPageRoot;

/// Belongs to a page's root, which has one once it is asked for. GUI thread.
class guiPageText
{
public:
    explicit guiPageText(guiPageRoot& page) : selection(page), search(page) {}

    guiTextSelection selection;
    guiTextSearch search;
};
