// controls/guihtmltoolbutton.cpp: see guihtmltoolbutton.h.
#include "controls/guihtmltoolbutton.h"

#include "controls/guieventscope.h"
#include "controls/guinodeicon.h"
#include "controls/guiowncolors.h"
#include "controls/guiwidgettoolbutton.h"
#include "foundation/vela-log.h"
#include "foundation/vela-qt.h"
#include "foundation/vela-threadrole.h"
#include "page/guiatplace.h"
#include "page/guichildlist.h"
#include "page/guilinkname.h"
#include "page/guinearest.h"
#include "page/guipagehost.h"
#include "page/guipageroot.h"
#include "page/guiuserevent.h"

#include <QAction>
#include <QFrame>
#include <QIcon>
#include <string>
#include <utility>
#include <vector>

namespace {

// Pixels.
constexpr int kButtonSize = 30;
constexpr int kIconSize = 20;
constexpr int kAroundText = 20;
constexpr int kDividerWidth = 9;

/// The first menu of the page, in its order, that has an item of this name.
guiHtmlControlMenu* findMenu(guiHtml* node, istring const& item)
{
    auto* menu = dynamic_cast<guiHtmlControlMenu*>(node);
    if (menu && menu->findItem(item))
        return menu;
    for (guiHtml* child : guiNodesOf(node))
        if (guiHtmlControlMenu* found = findMenu(child, item))
            return found;
    return nullptr;
}

void addNames(guiMenuItems const& items, std::vector<std::string>& names)
{
    for (auto const& each : items) {
        if (each->name.getLength() != 0)
            names.push_back(velaPrintable(each->name));
        addNames(each->children, names);
    }
}

/// Those of all menus of the page.
void addItemNames(guiHtml* node, std::vector<std::string>& names)
{
    if (auto* menu = dynamic_cast<guiHtmlControlMenu*>(node))
        addNames(menu->getItems(), names);
    for (guiHtml* child : guiNodesOf(node))
        addItemNames(child, names);
}

/// A text as it is read aloud: without the mark of a mnemonic.
QString withoutMnemonic(QString text)
{
    QString const kept = QStringLiteral("\x01");
    return text.replace(QStringLiteral("&&"), kept).remove(QLatin1Char('&')).replace(kept, QStringLiteral("&"));
}

} // namespace

guiHtmlToolButton::~guiHtmlToolButton()
{
    if (auto* mirrored = m_menu ? static_cast<guiHtmlControlMenu*>(m_menu->get()) : nullptr)
        mirrored->removeMirror(this);
    destroyWidgets();
}

guiHtml& guiHtmlToolButton::operator=(guiHtml& other)
{
    guiHtmlControl::operator=(other);
    if (auto* button = dynamic_cast<guiHtmlToolButton*>(&other))
        m_look = button->m_look;
    return *this;
}

guiHtmlControlMenu* guiHtmlToolButton::menu()
{
    if (m_look.item.getLength() == 0)
        return nullptr;
    if (guiHtml* known = m_menu ? m_menu->get() : nullptr)
        return static_cast<guiHtmlControlMenu*>(known);
    guiPageRoot* root = getBaseHtml();
    guiHtmlControlMenu* found = root ? findMenu(root, istring(m_look.item)) : nullptr;
    if (found) {
        m_menu.emplace(found);
        found->addMirror(this);
    }
    return found;
}

guiHtmlControlMenuItem const* guiHtmlToolButton::item()
{
    guiHtmlControlMenu* of = menu();
    return of ? of->findItem(istring(m_look.item)) : nullptr;
}

int guiHtmlToolButton::setText(sstring const& text, sstring const&)
{
    assertOnGuiThread();
    m_content.text = text;
    mirrorItem();
    updateLayout(1);
    return 1;
}

void guiHtmlToolButton::setEnabled(int enabled)
{
    guiHtmlControl::setEnabled(enabled);
    mirrorItem();
}

int guiHtmlToolButton::getPreferredWidth()
{
    if (m_look.isDivider)
        return scaled(kDividerWidth);
    guiHtmlControlMenuItem const* of = item();
    bool const hasIcon = m_look.icon.getLength() != 0 || (of && of->icon.getLength() != 0);
    if (hasIcon || !hasWindow())
        return scaled(kButtonSize);
    sstring const text = of && m_content.text.getLength() == 0 ? of->text : m_content.text;
    return textWidth(qtoss(withoutMnemonic(sstoq(text)))) + scaled(kAroundText);
}

int guiHtmlToolButton::getHeightEstimate(unsigned long) { return scaled(kButtonSize); }

QWidget* guiHtmlToolButton::getChildWidget() { return m_look.isDivider ? m_line : static_cast<QWidget*>(m_button); }

void guiHtmlToolButton::createChildWidget()
{
    if (getChildWidget() || !hasWindow())
        return;
    assertOnGuiThread();
    dirtyTabOrder();
    if (m_look.isDivider) {
        auto* line = new QFrame(getClipWidget());
        line->setFrameStyle(int{QFrame::VLine} | int{QFrame::Sunken});
        m_line = line;
        return finishWidget(line);
    }
    m_button = new guiWidgetToolButton(getClipWidget());
    showIconSize();
    m_button->owner = this;
    guiReadOnPage(m_button, this);
    finishWidget(m_button);
    tellMissingItem();
    mirrorItem();
}

/// Once, when the whole page is there.
void guiHtmlToolButton::tellMissingItem()
{
    if (m_look.item.getLength() == 0 || item() || std::exchange(m_isMissingTold, true))
        return;
    std::vector<std::string> names;
    if (guiPageRoot* root = getBaseHtml())
        addItemNames(root, names);
    std::string const wanted = velaPrintable(m_look.item);
    std::string_view const nearest = guiNearestWord(wanted, {names.begin(), names.end()});
    guiAtPlace const place(getString(kStringPlace));
    velaLog("guiHtmlToolButton::createChildWidget() - no menu item %s%s%s%s%s\n", wanted.c_str(),
            guiAtPlace::text().c_str(), nearest.empty() ? "" : "; did you mean ", std::string(nearest).c_str(),
            nearest.empty() ? "" : "?");
}

void guiHtmlToolButton::mirrorItem()
{
    assertOnGuiThread();
    if (!m_button)
        return;
    if (guiHtmlControlMenuItem const* of = item())
        showItem(*of);
    else
        showOwn();
}

void guiHtmlToolButton::showItem(guiHtmlControlMenuItem const& item)
{
    QIcon const icon = m_look.icon.getLength() != 0 || !item.action ? ownIcon() : item.action->icon();
    showTexts(m_content.text.getLength() != 0 ? m_content.text : item.text, icon, item.key);
    m_button->setCheckable(item.action ? item.action->isCheckable() : item.checkable != 0);
    m_button->setChecked(item.isChecked());
    m_button->setEnabled(m.enabled && menu()->canChoose(item));
}

void guiHtmlToolButton::showOwn()
{
    showTexts(m_content.text, ownIcon(), QKeySequence());
    m_button->setEnabled(m.enabled && m_look.item.getLength() == 0);
}

void guiHtmlToolButton::showTexts(sstring const& text, QIcon const& icon, QKeySequence const& key)
{
    QString const shown = withoutMnemonic(sstoq(text));
    QString tip = m_look.tip.getLength() != 0 ? sstoq(m_look.tip) : shown;
    if (!key.isEmpty())
        tip += QStringLiteral(" (%1)").arg(key.toString(QKeySequence::NativeText));
    m_button->setIcon(icon);
    m_button->setText(shown);
    m_button->setAccessibleName(shown);
    m_button->setToolTip(icon.isNull() && m_look.tip.getLength() == 0 && key.isEmpty() ? QString() : tip);
    m_button->setToolButtonStyle(icon.isNull() ? Qt::ToolButtonTextOnly : Qt::ToolButtonIconOnly);
}

void guiHtmlToolButton::showIconSize() { m_button->setIconSize(QSize(scaled(kIconSize), scaled(kIconSize))); }

void guiHtmlToolButton::onLookChange()
{
    guiHtmlControl::onLookChange();
    m_picture = nullptr; // larger now
    if (m_button)
        showIconSize();
    mirrorItem();
}

QIcon guiHtmlToolButton::ownIcon() { return guiIconOfNode(this, m_look.icon, scaled(kIconSize), m_picture); }

void guiHtmlToolButton::onClick()
{
    assertOnGuiThread();
    guiNodeWatch const self(this);
    if (guiHtmlControlMenu* of = menu()) {
        guiEventNote const note("menu");
        of->activateItem(m_look.item);
    } else {
        guiEventNote const note("click");
        followLink(m_content.action);
    }
    if (self.alive())
        mirrorItem(); // the toolkit has toggled the button, whatever has become of the item
}

bool guiHtmlToolButton::moveFocus(int step)
{
    std::vector<guiHtmlToolButton*> buttons;
    std::ptrdiff_t own = 0;
    for (guiHtml* each : guiNodesOf(getParent())) {
        auto* button = dynamic_cast<guiHtmlToolButton*>(each);
        if (!button || !button->m_button || (button != this && !button->m_button->isEnabled()))
            continue;
        if (button == this)
            own = static_cast<std::ptrdiff_t>(buttons.size());
        buttons.push_back(button);
    }
    std::ptrdiff_t const next = own + step;
    if (next < 0 || next >= static_cast<std::ptrdiff_t>(buttons.size()))
        return false;
    buttons[static_cast<std::size_t>(next)]->m_button->setFocus(Qt::TabFocusReason);
    return true;
}

void guiHtmlToolButton::destroyChildWidget()
{
    guiHtmlControl::destroyChildWidget();
    destroyWidgets();
}

void guiHtmlToolButton::destroyWidgets()
{
    assert(guiIsBoundTo(m_button, this));
    m_picture = nullptr;
    guiDestroyWrapper(m_button);
    guiDeleteWidget(std::exchange(m_line, nullptr));
    onDestroyChildWidget();
}
