// page/guibookmark.cpp: see guibookmark.h.
#include "page/guibookmark.h"

#include "page/guihtml.h"
#include "page/guinodewatch.h"
#include "page/guipageroot.h"

#include <QScrollBar>
#include <QWidget>
#include <algorithm>
#include <memory>
#include <vector>

namespace {

/// A jump that waits for its page.
struct laterJump
{
    std::unique_ptr<guiNodeWatch> within;
    sstring bookmark;
};

// Never destroyed: the GUI thread still runs while the process exits.
std::vector<laterJump>& theJumps TARN_GUARDED_BY(velaGuiRole) = *new std::vector<laterJump>;

guiHtml* find(guiHtml* within, guiHtml* root, sstring const& bookmark)
{
    guiHtml* const near = within->getBookmarked(bookmark);
    return near ? near : root->getBookmarked(bookmark);
}

/// Top of a node in the content of one around it, whatever the scroll positions.
int topIn(guiHtml const* around, guiHtml const* node)
{
    int top = 0;
    for (; node != around; node = node->getParent())
        top += node->m.rect.top;
    return top;
}

void scrollAll(guiHtml* node)
{
    for (guiHtml* around = node->getParent(); around; around = around->getParent())
        if (around->getScroll().barY)
            around->onScrollY(topIn(around, node));
}

bool isShown(guiHtml* node)
{
    QWidget const* const window = node->getTopLevelWidget();
    return window && window->isVisible();
}

} // namespace

bool guiJumpTo(guiHtml* within, sstring const& bookmark)
{
    guiHtml* const root = within->getBaseHtml();
    guiHtml* const node = root ? find(within, root, bookmark) : nullptr;
    if (!node)
        return false;
    guiNodeWatch const target(node);
    guiNodeWatch const page(root);
    guiReveal(node);
    if (!target.alive() || !page.alive())
        return true;
    scrollAll(node);
    if (!page.alive())
        return true;
    root->updateScrollbarRanges();
    root->update();
    return true;
}

void guiJumpLater(guiHtml* within, sstring const& bookmark)
{
    std::erase_if(theJumps,
                  [within](laterJump const& jump) { return !jump.within->alive() || jump.within->get() == within; });
    theJumps.push_back({std::make_unique<guiNodeWatch>(within), bookmark});
}

void guiDoJumps(guiHtml* root)
{
    if (theJumps.empty())
        return;
    std::vector<laterJump> due;
    std::vector<laterJump> others;
    for (laterJump& jump : theJumps) {
        guiHtml* const within = jump.within->get();
        bool const isDue = within && within->getBaseHtml() == root && isShown(within);
        if (within)
            (isDue ? due : others).push_back(std::move(jump));
    }
    theJumps.swap(others);
    for (laterJump const& jump : due)
        if (guiHtml* const within = jump.within->get())
            guiJumpTo(within, jump.bookmark);
}
