// page/guilayouthold.cpp: see guilayouthold.h.
#include "page/guilayouthold.h"

#include "foundation/vela-log.h"
#include "foundation/vela-threadrole.h"
#include "page/guihtml.h"
#include "page/guinodewatch.h"
#include "page/guipageroot.h"

#include <cassert>
#include <memory>
#include <vector>

namespace {

using watchList = std::vector<std::unique_ptr<guiNodeWatch>>;

unsigned theHolds TARN_GUARDED_BY(velaGuiRole) = 0;
// The roots that need a layout. Never destroyed: the GUI thread still runs while the process exits.
watchList& thePages TARN_GUARDED_BY(velaGuiRole) = *new watchList;
unsigned theLoads TARN_GUARDED_BY(velaGuiRole) = 0; // budgets that exist, each inside the one before
unsigned theFiles TARN_GUARDED_BY(velaGuiRole) = 0; // budgets made since the outermost one, it included

guiHtml* rootOf(guiHtml* node)
{
    while (node->getParent())
        node = node->getParent();
    return node;
}

void runPostponed() TARN_ON(velaGuiRole)
{
    assert(theHolds == 0);
    watchList pages;
    pages.swap(thePages);
    for (auto const& page : pages)
        if (guiHtml* root = page->get()) {
            root->updateLayout(1);
            if (page->alive())
                guiDoJumps(root);
        }
}

} // namespace

guiLayoutHold::guiLayoutHold()
{
    assertOnGuiThread();
    ++theHolds;
}

guiLayoutHold::~guiLayoutHold()
{
    try {
        release();
    } catch (...) {
        velaLog("guiLayoutHold::~guiLayoutHold() - failed to lay a page out\n");
    }
}

void guiLayoutHold::release()
{
    if (m_isReleased)
        return;
    assertOnGuiThread();
    assert(theHolds > 0);
    m_isReleased = true;
    if (--theHolds == 0 && !thePages.empty())
        runPostponed();
}

bool guiLayoutHold::isHeld()
{
    assertOnGuiThread();
    return theHolds != 0;
}

bool guiLayoutHold::postpone(guiHtml* node)
{
    assertOnGuiThread();
    if (theHolds == 0)
        return false;
    guiHtml* root = rootOf(node);
    for (auto const& page : thePages)
        if (page->get() == root)
            return true;
    thePages.push_back(std::make_unique<guiNodeWatch>(root));
    return true;
}

guiLoadBudget::guiLoadBudget()
{
    assertOnGuiThread();
    if (theLoads++ == 0)
        theFiles = 0;
    ++theFiles;
}

guiLoadBudget::~guiLoadBudget()
{
    assertOnGuiThread();
    assert(theLoads > 0);
    --theLoads;
}

bool guiLoadBudget::isExhausted() const
{
    assertOnGuiThread();
    assert(theLoads > 0 && theFiles >= theLoads);
    return theLoads > kMaxLevels || theFiles > kMaxFiles;
}
