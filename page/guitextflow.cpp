// page/guitextflow.cpp: see guitextflow.h.
#include "page/guitextflow.h"

#include "foundation/vela-threadrole.h"
#include "page/guihtmltext-codes.h"
#include "page/guihtmltext.h"
#include "page/guirareattributes.h"

#include <algorithm>
#include <utility>

namespace {

void addMarker(guiFlowGap& gap, guiHtml const* entry)
{
    guiMarker const marker = guiChildList::toMarker(entry);
    if (marker != kMarkerParagraph && marker != kMarkerLineBreak)
        return;
    gap.hasParagraph = gap.hasParagraph || marker == kMarkerParagraph;
    gap.hasLine = true;
    gap.hasObject = false;
    gap.cells = 0;
}

bool isLineEnd(guiHtml const* entry)
{
    guiMarker const marker = guiChildList::toMarker(entry);
    return marker == kMarkerParagraph || marker == kMarkerLineBreak;
}

} // namespace

bool guiShowsText(guiHtmlText& run)
{
    guiTextScanner scanner(run.editText().view());
    auto const isBlank = [](QChar unit) { return guiIsBlank(unit.unicode()); };
    while (scanner.next())
        if (!scanner.isCode() && !std::all_of(scanner.part().begin(), scanner.part().end(), isBlank))
            return true;
    return false;
}

bool guiMaySelectIn(guiHtml const* node)
{
    return guiRareAttributeOf(node, guiRareAttribute::kNoSelect).getLength() == 0;
}

guiTextFlow::guiTextFlow(guiHtml* page, scope which) : m_generation(guiHtml::generation())
{
    assertOnGuiThread();
    guiFlowGap gap;
    add(page, which, gap);
    m_index.reserve(m_entries.size());
    for (std::size_t i = 0; i < m_entries.size(); ++i)
        m_index.emplace(m_entries[i].node, i);
}

bool guiTextFlow::isCurrent() const { return m_generation == guiHtml::generation(); }

std::optional<std::size_t> guiTextFlow::indexOf(guiHtmlText const* node) const
{
    auto const found = m_index.find(node);
    return found == m_index.end() ? std::nullopt : std::optional(found->second);
}

/// Nodes of one layer are cells, runs of text and objects beside each other.
void guiTextFlow::add(guiHtml* parent, scope which, guiFlowGap& gap)
{
    if (which == scope::kSelectable && (!parent->m.visible || !guiMaySelectIn(parent)))
        return;
    bool isFirst = true; // of its line
    for (guiHtml* child : parent->m.children) {
        if (!guiChildList::isNode(child)) {
            addMarker(gap, child);
            isFirst = isFirst || isLineEnd(child);
            continue;
        }
        bool const isCell = child->getType() == guiHtml::kTypePlain;
        if (!std::exchange(isFirst, false)) {
            gap.cells += isCell ? 1 : 0;
            gap.hasObject = true;
        }
        if (child->getType() != guiHtml::kTypeText) {
            add(child, which, gap);
        } else if (auto* run = static_cast<guiHtmlText*>(child); guiShowsText(*run)) {
            m_entries.push_back({run, std::exchange(gap, {})});
        }
    }
}
