// page/guihtml-bookmark.cpp: jumps to the place of a page that "#name" means.
#include "page/guihtml.h"
#include "page/guinodewatch.h"
#include "page/guipageroot.h"
#include "page/guirareattributes.h"

#include <QScrollBar>
#include <QWidget>
#include <algorithm>
#include <iterator>
#include <vector>

namespace {

// Where jumps wait: nodes with the attribute kJump, and others that are gone. Never destroyed: the GUI thread still
// runs while the process exits.
std::vector<guiHtml*>& theWaiting TARN_GUARDED_BY(velaGuiRole) = *new std::vector<guiHtml*>;

bool isWaiting(guiHtml* node)
{
    return guiHtml::isRegistered(node) && guiHasRareAttribute(node, guiRareAttribute::kJump);
}

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
    std::erase_if(theWaiting, [within](guiHtml* node) { return node == within || !isWaiting(node); });
    guiSetRareAttribute(within, guiRareAttribute::kJump, bookmark);
    theWaiting.push_back(within);
}

void guiDoJumps(guiHtml* root)
{
    auto const isDue = [root](guiHtml* node) {
        return isWaiting(node) && node->getBaseHtml() == root && isShown(node);
    };
    std::vector<guiHtml*> due;
    std::copy_if(theWaiting.begin(), theWaiting.end(), std::back_inserter(due), isDue);
    for (guiHtml* within : due) {
        if (!isWaiting(within))
            continue; // it has gone by what was called for another one
        sstring const bookmark = guiRareAttributeOf(within, guiRareAttribute::kJump);
        guiDropRareAttribute(within, guiRareAttribute::kJump);
        guiJumpTo(within, bookmark);
    }
}
