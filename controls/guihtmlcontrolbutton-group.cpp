// controls/guihtmlcontrolbutton-group.cpp: radio buttons that exclude each other although not all of them have a
// widget.
#include "controls/guihtmlcontrolbutton.h"
#include "controls/guilatewidgets.h"
#include "controls/guitabstops.h"
#include "controls/guiwidget.h"
#include "controls/guiwidgetradiobutton.h"
#include "foundation/vela-threadrole.h"
#include "page/guinodewatch.h"

#include <QButtonGroup>
#include <algorithm>
#include <cassert>
#include <utility>

void guiHtmlControlButton::onLate()
{
    if (m_state.type != kButtonRadio || m_group)
        return;
    assertOnGuiThread();
    m_group = getWindow()->lateWidgets().groupOf(getName());
    m_group->buttons.push_back(this);
    if (isChecked())
        noteChecked();
}

/// Pages go from their end, so the search begins there.
void guiHtmlControlButton::leaveGroup()
{
    if (!m_group)
        return;
    auto& buttons = m_group->buttons;
    auto const found = std::find(buttons.rbegin(), buttons.rend(), this);
    assert(found != buttons.rend());
    buttons.erase(std::next(found).base());
    if (m_group->checked == this)
        m_group->checked = nullptr;
    m_group.reset();
}

/// The one that was checked before gives way.
void guiHtmlControlButton::noteChecked()
{
    if (!m_group)
        return;
    guiHtmlControlButton* const before = std::exchange(m_group->checked, this);
    if (before && before != this)
        before->giveWay();
}

/// The toolkit lets a group that is exclusive keep its checked button until another widget is checked.
void guiHtmlControlButton::giveWay()
{
    m_state.checked = 0;
    if (!m_radioButton || !m_radioButton->isChecked())
        return;
    QButtonGroup* const group = m_radioButton->group();
    if (group)
        group->setExclusive(false);
    m_radioButton->setChecked(false);
    if (group)
        group->setExclusive(true);
}

void guiHtmlControlButton::readyNeighbour(bool forward)
{
    assertOnGuiThread();
    if (!m_group)
        return;
    auto const& buttons = m_group->buttons;
    auto const count = static_cast<std::ptrdiff_t>(buttons.size());
    std::ptrdiff_t at = std::find(buttons.begin(), buttons.end(), this) - buttons.begin();
    do
        at += forward ? 1 : -1;
    while (at >= 0 && at < count && !buttons[static_cast<std::size_t>(at)]->isEnabled());
    if (at < 0 || at >= count)
        return;
    guiNodeWatch const neighbour(buttons[static_cast<std::size_t>(at)]);
    guiScrollIntoView(neighbour.get());
    if (neighbour.alive())
        static_cast<guiHtmlControlButton*>(neighbour.get())->needWidget();
}

bool guiHtmlControlButton::isTabEntry() const
{
    guiHtmlControlButton* const checked = m_group ? m_group->checked : nullptr;
    return !checked || !checked->isEnabled() || checked == this;
}
