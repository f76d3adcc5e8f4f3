// controls/guitextmenu.cpp: see guitextmenu.h.
#include "controls/guitextmenu.h"

#include "controls/guieventscope.h"
#include "controls/guifind.h"
#include "controls/guiowntexts.h"
#include "controls/guitextgesture.h"
#include "controls/guitextwindow.h"
#include "page/guihtmltext.h"
#include "page/guipageroot.h"
#include "page/guipagetext.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeySequence>
#include <QMenu>

#include <functional>

namespace {

/// An item with the keys for it, which are only shown: the window takes them itself.
void addItem(QMenu& menu, char const* text, QKeySequence const& keys, bool isEnabled, std::function<void()> const& act)
{
    QString const shown = keys.isEmpty() ? QString() : u'\t' + keys.toString(QKeySequence::NativeText);
    QAction* const item = menu.addAction(guiOwnText(text) + shown);
    item->setEnabled(isEnabled);
    QObject::connect(item, &QAction::triggered, &menu, [act] {
        guiEventScope scope;
        act();
    });
}

/// Does something with the page that the window shows when it is chosen.
template <typename Act>
std::function<void()> withPage(guiTextWindow& window, Act const& act)
{
    return [&window, act] { // the menu goes with the window
        if (window.shownPage())
            act(*window.shownPage());
    };
}

QString linkTextAt(guiHtml* hit, int x, int y)
{
    bool const isText = hit && hit->getType() == guiHtml::kTypeText;
    return isText ? static_cast<guiHtmlText*>(hit)->getLinkText(x, y) : QString();
}

void addLinkItem(QMenu& menu, QString const& link)
{
    addItem(menu, "Copy Link Text", {}, true, [link] { QGuiApplication::clipboard()->setText(link); });
}

} // namespace

bool guiShowTextMenu(guiTextWindow& window, QPoint at, QPoint place)
{
    assertOnGuiThread();
    guiPageRoot* const page = window.shownPage();
    int x = at.x();
    int y = at.y();
    guiHtml* const hit = page ? page->hitTest(&x, &y) : nullptr;
    QString const link = linkTextAt(hit, x, y);
    bool const hasText = page && guiTextSpotAt(page, at);
    if ((!hasText && link.isEmpty()) || guiHearsOfPress(hit))
        return false;
    auto* menu = new QMenu(window.asWidget());
    menu->setAttribute(Qt::WA_DeleteOnClose);
    guiUseOwnDirection(menu);
    if (!link.isEmpty())
        addLinkItem(*menu, link);
    addItem(*menu, "Copy", QKeySequence::Copy, guiHasSelection(*page), withPage(window, guiCopySelection));
    addItem(*menu, "Select All", QKeySequence::SelectAll, hasText,
            withPage(window, [](guiPageRoot& shown) { shown.ensurePageText().selection.selectAll(); }));
    if (guiMayFind(*page, *window.asWidget())) {
        menu->addSeparator();
        addItem(*menu, "Find\u2026", QKeySequence::Find, true, [&window] {
            assertOnGuiThread();
            window.openFindBar();
        });
    }
    menu->popup(place);
    return true;
}
