// page/guitextselection.cpp: see guitextselection.h. What is selected as text and as markup is in guitextcopy.cpp.
#include "page/guitextselection.h"

#include "foundation/vela-threadrole.h"
#include "page/guihtmltext.h"
#include "page/guipageroot.h"
#include "page/guitextcopy.h"
#include "page/guivisibletext.h"

#include <QPalette>
#include <QTextBoundaryFinder>
#include <QWidget>

#include <algorithm>
#include <cassert>

namespace {

guiTextSpot spotOf(guiNodeWatch const& run, unsigned unit)
{
    return {static_cast<guiHtmlText*>(run.get()), unit}; // only runs are watched here
}

/// What a step around the place takes in.
guiLineUnits around(guiTextSpot const& spot, guiTextSelection::step by)
{
    switch (by) {
    case guiTextSelection::step::kWord:
        return guiWordAround(spot);
    case guiTextSelection::step::kParagraph:
        return {guiStartOf(spot.run).unit, guiEndOf(spot.run).unit};
    default:
        return {spot.unit, spot.unit};
    }
}

bool isBoundary(QTextBoundaryFinder const& finder, bool forward)
{
    auto const wanted = forward ? QTextBoundaryFinder::EndOfItem : QTextBoundaryFinder::StartOfItem;
    return finder.boundaryReasons().testFlag(wanted);
}

/// The next boundary of the kind in the text; -1 for none.
qsizetype nextBoundary(QString const& text, qsizetype from, bool forward, guiTextSelection::step by)
{
    bool const isWord = by == guiTextSelection::step::kWord;
    QTextBoundaryFinder finder(isWord ? QTextBoundaryFinder::Word : QTextBoundaryFinder::Grapheme, text);
    finder.setPosition(from);
    qsizetype at = forward ? finder.toNextBoundary() : finder.toPreviousBoundary();
    while (at >= 0 && isWord && !isBoundary(finder, forward))
        at = forward ? finder.toNextBoundary() : finder.toPreviousBoundary();
    return at;
}

} // namespace

guiLineUnits guiWordAround(guiTextSpot const& spot)
{
    guiVisibleText const visible(spot.run->editText().view());
    QTextBoundaryFinder finder(QTextBoundaryFinder::Word, visible.text());
    qsizetype const at = std::min(visible.toPosition(spot.unit), std::max<qsizetype>(visible.text().size() - 1, 0));
    finder.setPosition(at);
    qsizetype const from = finder.isAtBoundary() ? at : std::max<qsizetype>(finder.toPreviousBoundary(), 0);
    finder.setPosition(from);
    qsizetype const to = finder.toNextBoundary();
    unsigned const last = to < 1 ? visible.toUnit(from) : visible.toUnit(to - 1) + 1; // not behind a code
    return {visible.toUnit(from), last};
}

guiTextSelection::end::end(guiTextSpot spot) : run(spot.run), unit(spot.unit) {}

bool guiTextSelection::isAlive() const
{
    return m_moving && m_moving->run.alive() && m_first->run.alive() && m_last->run.alive();
}

guiTextFlow const& guiTextSelection::flow()
{
    assertOnGuiThread();
    if (!m_flow || !m_flow->isCurrent())
        m_flow.emplace(&m_page, guiTextFlow::scope::kSelectable);
    return *m_flow;
}

std::optional<guiTextSelection::position> guiTextSelection::positionOf(guiTextSpot spot)
{
    std::optional<std::size_t> const run = spot ? flow().indexOf(spot.run) : std::nullopt;
    return run ? std::optional(position{*run, spot.unit}) : std::nullopt;
}

std::optional<guiTextSelection::position> guiTextSelection::positionOf(std::optional<end> const& which)
{
    return positionOf(which ? spotOf(which->run, which->unit) : guiTextSpot());
}

/// The places in order; none when nothing is selected, or when what was selected is no longer there.
std::optional<guiTextSelection::range> guiTextSelection::selected()
{
    if (!isAlive())
        return std::nullopt;
    std::optional<position> const first = positionOf(m_first);
    std::optional<position> const last = positionOf(m_last);
    std::optional<position> const moved = positionOf(m_moving);
    if (!first || !last || !moved)
        return std::nullopt;
    range const all{std::min(*first, *moved), std::max(*last, *moved)};
    return all.from < all.to ? std::optional(all) : std::nullopt;
}

bool guiTextSelection::isEmpty() { return !m_marking.isOn() || !selected(); }
bool guiTextSelection::hasStart() { return isAlive(); }

void guiTextSelection::clear()
{
    std::optional<range> const before = m_marking.isOn() ? selected() : std::nullopt;
    m_first.reset();
    m_last.reset();
    m_moving.reset();
    m_marking.set(false);
    repaint(before);
    m_flow.reset();
}

void guiTextSelection::start(guiTextSpot spot, step by)
{
    clear(); // what can be seen may have changed since
    if (!positionOf(spot))
        return;
    m_step = by;
    guiLineUnits const taken = around(spot, by);
    m_first.emplace(guiTextSpot{spot.run, taken.from});
    m_last.emplace(guiTextSpot{spot.run, taken.to});
    m_moving.emplace(guiTextSpot{spot.run, taken.to});
    learnRange();
    repaint(std::nullopt);
}

void guiTextSelection::extendTo(guiTextSpot spot)
{
    if (!isAlive())
        return start(spot);
    std::optional<position> const to = positionOf(spot);
    std::optional<position> const first = positionOf(m_first);
    if (!to || !first)
        return;
    std::optional<range> const before = selected();
    guiLineUnits const taken = around(spot, m_step);
    m_moving.emplace(guiTextSpot{spot.run, *to < *first ? taken.from : taken.to});
    learnRange();
    repaint(before);
}

void guiTextSelection::learnRange() { m_marking.set(selected().has_value()); }

guiTextSpot guiTextSelection::moving() { return isAlive() ? spotOf(m_moving->run, m_moving->unit) : guiTextSpot(); }

guiTextSpot guiTextSelection::starting()
{
    std::optional<range> const all = selected();
    if (all)
        return {flow()[all->from.run].node, all->from.unit};
    return isAlive() ? spotOf(m_first->run, m_first->unit) : guiTextSpot();
}

void guiTextSelection::select(guiTextSpot from, guiTextSpot to)
{
    start(from);
    extendTo(to);
}

void guiTextSelection::selectAll()
{
    clear();
    if (flow().size() != 0)
        select(guiStartOf(flow()[0].node), guiEndOf(flow()[flow().size() - 1].node));
}

guiTextSpot guiTextSelection::stepped(bool forward, step by)
{
    guiTextSpot const from = moving();
    std::optional<position> const at = positionOf(from);
    if (!at)
        return {};
    guiVisibleText const visible(from.run->editText().view());
    qsizetype const next = nextBoundary(visible.text(), visible.toPosition(from.unit), forward, by);
    if (next >= 0)
        return {from.run, visible.toUnit(next)};
    if (forward)
        return at->run + 1 < flow().size() ? guiStartOf(flow()[at->run + 1].node) : guiEndOf(from.run);
    return at->run > 0 ? guiEndOf(flow()[at->run - 1].node) : guiStartOf(from.run);
}

/// The height in the window of the line that comes next in the flow above or below the caret's; the caret's own where
/// there is none.
int guiTextSelection::nextLine(std::size_t run, QRect const& caret, bool down)
{
    guiTextFlow const& runs = flow();
    for (std::size_t i = run; down ? i + 1 < runs.size() : i > 0;) {
        i = down ? i + 1 : i - 1;
        QRect const line = guiCaretOf(down ? guiStartOf(runs[i].node) : guiEndOf(runs[i].node));
        if (down ? line.top() > caret.bottom() : line.bottom() < caret.top())
            return line.center().y();
    }
    return caret.center().y();
}

guiTextSpot guiTextSelection::lineStepped(bool down)
{
    guiTextSpot const from = moving();
    std::optional<position> const at = positionOf(from);
    if (!at)
        return {};
    QRect const caret = guiCaretOf(from);
    guiRect run;
    from.run->getRectInWidget(&run);
    bool const isInside = down ? caret.bottom() + 1 < run.bottom() : caret.top() > run.top;
    int const next = down ? caret.bottom() + 1 : caret.top() - 1;
    int const y = isInside ? next : nextLine(at->run, caret, down);
    if (y == caret.center().y())
        return down ? guiEndOf(from.run) : guiStartOf(from.run);
    return guiTextSpotAt(&m_page, {caret.left(), y});
}

// ---- What is seen of it ----

void guiTextSelection::repaintRuns(std::size_t first, std::size_t last)
{
    constexpr std::size_t kMostSingly = 64;
    if (last >= flow().size() || last - first > kMostSingly) {
        m_page.update();
        return;
    }
    for (std::size_t i = first; i <= last; ++i)
        flow()[i].node->update();
}

/// Only the runs between the ends before and the ends now look different.
void guiTextSelection::repaint(std::optional<range> const& before)
{
    std::optional<range> const now = selected();
    if (!before && !now)
        return;
    if (!before || !now) {
        range const all = before ? *before : *now;
        return repaintRuns(all.from.run, all.to.run);
    }
    for (auto const& [a, b] : {std::pair(before->from, now->from), std::pair(before->to, now->to)})
        if (a != b)
            repaintRuns(std::min(a, b).run, std::max(a, b).run);
}

void guiTextSelection::addMarks(guiHtmlText& run, unsigned from, unsigned to, guiTextMarks& marks)
{
    if (!m_marking.isOn())
        return;
    std::optional<range> const all = selected();
    if (!all) {
        m_marking.set(false); // what was selected is gone
        return;
    }
    std::optional<std::size_t> const at = flow().indexOf(&run);
    QWidget const* const window = m_page.getTopLevelWidget();
    if (!at || *at < all->from.run || *at > all->to.run || !window)
        return;
    guiTextMark mark;
    mark.from = *at == all->from.run ? std::max(from, all->from.unit) : from;
    mark.to = *at == all->to.run ? std::min(to, all->to.unit) : to;
    if (mark.from >= mark.to)
        return;
    QPalette const palette = window->palette();
    QPalette::ColorGroup const group = window->isActiveWindow() ? QPalette::Active : QPalette::Inactive;
    mark.ground = palette.color(group, QPalette::Highlight);
    mark.ink = palette.color(group, QPalette::HighlightedText);
    marks.push_back(mark);
}

QString guiTextSelection::text()
{
    std::optional<range> const all = selected();
    return all ? guiCopyAsText(flow(), {all->from.run, all->from.unit}, {all->to.run, all->to.unit}) : QString();
}

QString guiTextSelection::html()
{
    std::optional<range> const all = selected();
    return all ? guiCopyAsHtml(flow(), {all->from.run, all->from.unit}, {all->to.run, all->to.unit}) : QString();
}
