// controls/guilatewidgets.cpp: see guilatewidgets.h.
#include "controls/guilatewidgets.h"

#include "controls/guihtmlcontrol.h"
#include "controls/guiwidget.h"
#include "foundation/vela-qt.h"
#include "page/guionpaper.h"
#include "page/guipageroot.h"

#include <cassert>

namespace {

// So many widgets stay however far they are: a window full of small controls.
constexpr std::size_t kLeastKept = 256;
// How many are looked at for each one that is made: more than one, so that the list shrinks.
constexpr int kLooks = 4;
// What is so many windows away is far.
constexpr int kFarAway = 2;

/// The number of controls at and below the node, or more than `most`.
unsigned countControls(guiHtml* node, unsigned most)
{
    unsigned count = node->getType() == guiHtml::kTypeControl ? 1 : 0;
    for (guiHtml* child : guiNodesOf(node)) {
        if (count > most)
            break;
        count += countControls(child, most - count);
    }
    return count;
}

bool isInLatePart(guiHtml const* node)
{
    for (; node; node = node->getParent())
        if (node->m.lateWidgets)
            return true;
    return false;
}

/// Calls `work` for each control at and below the node.
template <typename Work>
void forEachControl(guiHtml* node, Work work)
{
    if (auto* control = dynamic_cast<guiHtmlControl*>(node))
        work(*control);
    for (guiHtml* child : guiNodesOf(node))
        forEachControl(child, work);
}

void makeLate(guiHtmlControl& control)
{
    if (!control.mayAwait() || !control.getTopLevelWidget())
        return;
    if (control.getChildWidget())
        control.letGo();
    else
        control.await();
}

} // namespace

guiLateWidgets::~guiLateWidgets()
{
    while (!m_shown.empty())
        forget(m_shown.back());
}

/// Asked for each control with each layout, so the page is counted only when nodes have come or gone, and only when
/// there are enough.
bool guiLateWidgets::isLargePage()
{
    if (guiHtmlControl::living() <= kMostAtOnce || !m_window.htmlBase)
        return false;
    if (m_generation != guiHtml::generation()) {
        m_generation = guiHtml::generation();
        m_isLarge = countControls(m_window.htmlBase, kMostAtOnce) > kMostAtOnce;
    }
    return m_isLarge;
}

bool guiLateWidgets::concerns(guiHtmlControl* control)
{
    return control->mayAwait() && (isLargePage() || isInLatePart(control));
}

void guiLateWidgets::add(guiHtmlControl* control)
{
    if (control->m_late.keeper)
        return;
    if (!guiOnPaper::isActive())
        letGoOfSome();
    control->m_late.keeper = this;
    control->m_late.place = static_cast<unsigned>(m_shown.size());
    m_shown.push_back(control);
}

/// The last one takes its place.
void guiLateWidgets::forget(guiHtmlControl* control)
{
    std::size_t const place = control->m_late.place;
    assert(control->m_late.keeper == this && m_shown[place] == control);
    m_shown[place] = m_shown.back();
    m_shown[place]->m_late.place = static_cast<unsigned>(place);
    m_shown.pop_back();
    control->m_late.keeper = nullptr;
}

bool guiLateWidgets::isFar(guiHtmlControl* control) const
{
    guiRect place;
    control->getRectInWidget(&place);
    int const wide = kFarAway * m_window.width();
    int const high = kFarAway * m_window.height();
    return place.right() < -wide || place.left > m_window.width() + wide || place.bottom() < -high ||
           place.top > m_window.height() + high;
}

// A few at a time, so that no step of scrolling pays for many.
void guiLateWidgets::letGoOfSome()
{
    for (int i = 0; i < kLooks && m_shown.size() > kLeastKept; ++i) {
        m_next = m_next + 1 < m_shown.size() ? m_next + 1 : 0;
        if (isFar(m_shown[m_next]))
            m_shown[m_next]->letGo();
    }
}

std::shared_ptr<guiRadioGroup> guiLateWidgets::groupOf(sstring const& name)
{
    std::weak_ptr<guiRadioGroup>& known = m_groups[sstoq(name).toCaseFolded()];
    std::shared_ptr<guiRadioGroup> group = known.lock();
    if (!group)
        known = group = std::make_shared<guiRadioGroup>();
    return group;
}

void guiMakeWidgets(guiHtml* node, bool now)
{
    assertOnGuiThread();
    node->m.lateWidgets = now ? 0 : 1;
    forEachControl(node, [now](guiHtmlControl& control) {
        if (now)
            control.needWidget();
        else
            makeLate(control);
    });
}
