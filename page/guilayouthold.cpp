// page/guilayouthold.cpp: see guilayouthold.h. GUI thread only; loading runs nowhere else.
#include "page/guilayouthold.h"

#include "foundation/vela-log.h"
#include "page/guihtml.h"
#include "page/guinodewatch.h"

#include <memory>
#include <vector>

namespace {

thread_local unsigned theHolds = 0;
thread_local std::vector<std::unique_ptr<guiNodeWatch>> thePages;
thread_local unsigned theLoads = 0;
thread_local unsigned theFiles = 0;

guiHtml* rootOf(guiHtml* node)
{
    while (node->getParent())
        node = node->getParent();
    return node;
}

void runPostponed()
{
    std::vector<std::unique_ptr<guiNodeWatch>> pages;
    pages.swap(thePages);
    for (auto const& page : pages)
        if (guiHtml* root = page->get())
            root->updateLayout(1);
}

} // namespace

guiLayoutHold::guiLayoutHold() { ++theHolds; }

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
    m_isReleased = true;
    if (--theHolds == 0 && !thePages.empty())
        runPostponed();
}

bool guiLayoutHold::isHeld() { return theHolds != 0; }

bool guiLayoutHold::postpone(guiHtml* node)
{
    if (!isHeld())
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
    if (theLoads++ == 0)
        theFiles = 0;
    ++theFiles;
}

guiLoadBudget::~guiLoadBudget() { --theLoads; }

bool guiLoadBudget::isExhausted() const { return theLoads > kMaxLevels || theFiles > kMaxFiles; }
