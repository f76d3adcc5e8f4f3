// controls/guihtmlcontrolflex-events.cpp: what the user does with rows and headings of a flex list, besides selecting
// and checking them; and the icons of rows.
#include "controls/guicontextrequest.h"
#include "controls/guicontrolhost.h"
#include "controls/guihtmlcontrolflex.h"
#include "foundation/vela-qt.h"
#include "page/guilinkname.h"
#include "page/guinodewatch.h"
#include "page/guipageroot.h"
#include "page/guirefusal.h"

#include <memory>

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

/// The toolkit gives the text when it is done with the keys that made it.
void guiHtmlControlFlex::onRename(guiRowNumber row, int column, QString const& text)
{
    assertOnGuiThread();
    sstring const value = qtoss(rowValue(row));
    sstring const before = qtoss(m_rows.text(row, static_cast<unsigned>(column) - 1).toString());
    sstring const after = qtoss(text);
    if (before == after)
        return;
    showText(row, column, after);
    guiRefusalScope const refusal([self = std::make_shared<guiNodeWatch>(this), value, column, before, after] {
        if (auto* flex = static_cast<guiHtmlControlFlex*>(self->get()))
            flex->takeBack(value, column, before, after);
    });
    guiInputScope const input(guiInputScope::current().value_or(guiUserInput()));
    tell("rename", row, {.column = column, .text = after}, m_list.renameAction);
}

/// Unless something else has become of the text meanwhile.
void guiHtmlControlFlex::takeBack(sstring const& value, int column, sstring const& before, sstring const& after)
{
    assertOnGuiThread();
    guiRowNumber const row = rowOf(value);
    if (row != kNoRow && m_rows.text(row, static_cast<unsigned>(column) - 1) == sstoview(after))
        showText(row, column, before);
}

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
