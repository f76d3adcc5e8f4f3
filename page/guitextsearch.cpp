// page/guitextsearch.cpp: see guitextsearch.h.
#include "page/guitextsearch.h"

#include "foundation/vela-threadrole.h"
#include "page/guifoldedtext.h"
#include "page/guihtmltext.h"
#include "page/guipageroot.h"
#include "page/guivisibletext.h"

#include <QPalette>
#include <QWidget>

#include <algorithm>
#include <cassert>

namespace {

/// Each blank of what is looked for is like any other, as on the page.
QString withPlainBlanks(QString text)
{
    std::replace_if(
        text.begin(), text.end(), [](QChar unit) { return unit.isSpace(); }, QChar(u' '));
    return text;
}

} // namespace

std::size_t guiTextSearch::find(QString const& text, bool matchCase)
{
    assertOnGuiThread();
    m_text = text;
    m_matchCase = matchCase;
    m_current.reset();
    look();
    update();
    return m_places.size();
}

void guiTextSearch::look()
{
    m_places.clear();
    m_flow.reset();
    m_marking.set(!m_text.isEmpty());
    if (m_text.isEmpty())
        return;
    m_flow.emplace(&m_page, guiTextFlow::scope::kAll);
    guiFoldedText const wanted(withPlainBlanks(m_text), !m_matchCase);
    guiTextFinder const finder(wanted.text());
    for (std::size_t i = 0; i < m_flow->size(); ++i) {
        guiVisibleText const visible((*m_flow)[i].node->editText().view());
        guiFoldedText const folded(visible.text(), !m_matchCase);
        qsizetype done = 0; // a letter that is folded to several may hold several of what is looked for
        finder.findIn(folded.text(), [&](qsizetype start) {
            auto const [from, to] = folded.origin(start, start + wanted.text().size());
            if (from < done)
                return;
            done = to;
            m_places.push_back({static_cast<std::uint32_t>(i), visible.toUnit(from), visible.toUnit(to - 1) + 1});
        });
    }
}

/// The places are those of the page as it is now.
void guiTextSearch::refresh()
{
    if (m_text.isEmpty() || (m_flow && m_flow->isCurrent()))
        return;
    look();
    if (m_current && m_places.empty())
        m_current.reset();
    else if (m_current)
        m_current = std::min(*m_current, m_places.size() - 1);
}

void guiTextSearch::update() { m_page.update(); }

std::size_t guiTextSearch::count()
{
    refresh();
    return m_places.size();
}

void guiTextSearch::clear()
{
    if (!m_text.isEmpty())
        find(QString(), m_matchCase);
}

void guiTextSearch::startAt(guiTextSpot const& spot)
{
    refresh();
    std::optional<std::size_t> const run = spot && m_flow ? m_flow->indexOf(spot.run) : std::nullopt;
    auto const isBefore = [&](place const& each) {
        return each.run < *run || (each.run == *run && each.from < spot.unit);
    };
    auto const first = run ? std::partition_point(m_places.begin(), m_places.end(), isBefore) : m_places.begin();
    m_current.reset();
    if (!m_places.empty())
        m_current = first == m_places.end() ? 0 : static_cast<std::size_t>(first - m_places.begin());
    update();
}

void guiTextSearch::goOn(bool forward)
{
    refresh();
    std::size_t const count = m_places.size();
    if (count == 0)
        return;
    std::size_t const none = forward ? count - 1 : 0;
    m_current = (m_current.value_or(none) + (forward ? 1 : count - 1)) % count;
    update();
}

std::optional<guiTextSearch::hit> guiTextSearch::currentHit()
{
    refresh();
    if (!m_current)
        return std::nullopt;
    place const& at = m_places[*m_current];
    guiHtmlText* const run = (*m_flow)[at.run].node;
    return hit{{run, at.from}, {run, at.to}};
}

// The same colours on every ground: black letters on a bright one.
void guiTextSearch::addMarks(guiHtmlText& run, unsigned from, unsigned to, guiTextMarks& marks)
{
    static QColor const kFoundGround(255, 204, 102);
    static QColor const kFoundInk(0, 0, 0);
    refresh();
    std::optional<std::size_t> const at = m_flow ? m_flow->indexOf(&run) : std::nullopt;
    if (!at)
        return;
    auto const isBefore = [&](place const& each) { return each.run < *at || (each.run == *at && each.to <= from); };
    auto first = std::partition_point(m_places.begin(), m_places.end(), isBefore);
    for (; first != m_places.end() && first->run == *at && first->from < to; ++first) {
        bool const isCurrent = m_current && static_cast<std::size_t>(first - m_places.begin()) == *m_current;
        guiTextMark mark{std::max(first->from, from), std::min(first->to, to), kFoundGround, kFoundInk};
        if (QWidget const* window = isCurrent ? m_page.getTopLevelWidget() : nullptr) {
            mark.ground = window->palette().color(QPalette::Active, QPalette::Highlight);
            mark.ink = window->palette().color(QPalette::Active, QPalette::HighlightedText);
        }
        marks.push_back(mark);
    }
}
