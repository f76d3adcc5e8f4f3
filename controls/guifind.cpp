// controls/guifind.cpp: see guifind.h.
#include "controls/guifind.h"

#include "controls/guitextgesture.h"
#include "page/guihtmltext.h"
#include "page/guinodewatch.h"
#include "page/guipageroot.h"
#include "page/guipagetext.h"
#include "page/guirareattributes.h"

#include <QAction>
#include <QKeySequence>
#include <QWidget>

#include <algorithm>

namespace {

guiTextSpot firstSeen(guiPageRoot& page) { return guiTextSpotAt(&page, QPoint(0, guiBarAbove(&page))); }

void choose(guiPageText& text, guiPageRoot& page, guiFindStep step, bool isNew)
{
    bool const isFirst = step == guiFindStep::kFirst || (step == guiFindStep::kNext && isNew);
    if (step == guiFindStep::kFromHere) {
        guiTextSpot const start = text.selection.starting();
        text.search.startAt(start ? start : firstSeen(page));
    } else if (isFirst) {
        text.search.startAt({});
    } else {
        text.search.goOn(step == guiFindStep::kNext);
    }
}

/// Selects the current place and scrolls to it; the page may be gone afterwards.
void show(guiPageRoot& page) TARN_ON(velaGuiRole)
{
    auto hit = page.ensurePageText().search.currentHit();
    if (!hit)
        return;
    guiNodeWatch const self(&page);
    guiReveal(hit->from.run);
    if (!self.alive())
        return;
    hit = page.ensurePageText().search.currentHit(); // of the page as it is now
    if (!hit)
        return;
    page.ensurePageText().selection.select(hit->from, hit->to);
    if (!page.getTopLevelWidget())
        return;
    guiNodeWatch const run(hit->from.run);
    guiShowSpot(hit->to);
    if (run.alive())
        guiShowSpot(hit->from);
}

} // namespace

std::size_t guiFind(guiPageRoot& page, QString const& text, bool matchCase, guiFindStep step)
{
    assertOnGuiThread();
    guiPageText& pageText = page.ensurePageText();
    bool const isNew = text != pageText.search.text() || matchCase != pageText.search.matchesCase();
    std::size_t const count = isNew ? pageText.search.find(text, matchCase) : pageText.search.count();
    choose(pageText, page, step, isNew);
    show(page);
    return count;
}

bool guiMayFind(guiPageRoot& page, QWidget const& window)
{
    if (guiRareAttributeOf(&page, guiRareAttribute::kNoFind).getLength() != 0)
        return false;
    QList<QAction*> const actions = window.findChildren<QAction*>();
    return std::none_of(actions.begin(), actions.end(), [](QAction const* each) {
        return each->shortcuts().contains(QKeySequence(QKeySequence::Find));
    });
}
