// controls/guihtmlcontrolflex-events.cpp: what the user does with rows and headings of a flex list, besides selecting
// and checking them; and the icons of rows.
#include "controls/guicontextrequest.h"
#include "controls/guicontrolhost.h"
#include "controls/guihtmlcontrolflex.h"
#include "foundation/vela-qt.h"
#include "page/guilinkname.h"
#include "page/guinodewatch.h"
#include "page/guipageroot.h"

/// kNoRow: about none.
void guiHtmlControlFlex::tell(char const* type, guiRowNumber row, guiEventDetail detail, sstring const& link)
{
    if (row != kNoRow)
        detail.row = qtoss(rowValue(row));
    guiEventNote const note(type, detail);
    followLink(link);
}

void guiHtmlControlFlex::onActivate(guiRowNumber row, int column)
{
    tell("activate", row, {.column = column}, m_list.activateAction);
}

void guiHtmlControlFlex::onContext(guiRowNumber row, int column, QPoint place)
{
    guiEventDetail detail{.place = place};
    if (column > 0)
        detail.column = column;
    if (row != kNoRow)
        detail.row = qtoss(rowValue(row));
    guiNodeWatch const self(this);
    tell("context", row, detail, m_list.contextAction);
    if (self.alive())
        guiShowContextMenu(this, place, detail);
}

bool guiHtmlControlFlex::hearsContext() const { return m_list.contextAction.getLength() > 0 || guiHasContext(this); }

void guiHtmlControlFlex::onExpand(guiRowNumber row) { tell("expand", row, {}, m_list.expandAction); }
void guiHtmlControlFlex::onHeader(int column) { tell("header", kNoRow, {.column = column}, m_list.headerAction); }

/// Small, whatever size the picture has; null for one that cannot be read, which is told once.
QPixmap guiHtmlControlFlex::iconOf(QString const& name)
{
    constexpr QSize kIconSize(16, 16);
    auto const [at, isNew] = m_icons.try_emplace(name);
    if (isNew) {
        sstring const path = guiFullName(this, qtoss(name));
        at->second = guiControlHost::current().readImage(guiPageObjectOf(this), path, kIconSize);
    }
    return at->second ? at->second->image : QPixmap();
}
