// controls/guimenuitem.cpp: see guimenuitem.h.
#include "controls/guimenuitem.h"

#include "controls/guieventscope.h"
#include "controls/guiwidgetpopupmenu.h"
#include "foundation/vela-qt.h"
#include "page/guinumbers.h"

#include <QAction>
#include <algorithm>
#include <cassert>
#include <string>

bool guiHtmlControlMenuItem::isChecked() const { return action ? action->isChecked() : checked != 0; }
bool guiHtmlControlMenuItem::isEnabled() const { return action ? action->isEnabled() : enabled != 0; }

bool guiHtmlControlMenuItem::AreChildrenCheckable() const
{
    return std::any_of(children.begin(), children.end(), [](auto const& child) { return child->checkable != 0; });
}

void guiHtmlControlMenuItem::destroyPopup()
{
    for (auto const& child : children)
        child->destroyPopup();
    assert(!popup || (action && action == popup->menuAction()));
    if (action) {
        assert(action->data().toInt() == id);
        checked = action->isChecked();
        enabled = action->isEnabled();
        QObject::disconnect(action, &QAction::changed, action, nullptr); // it may go later than the menu
    }
    action = nullptr; // the menu that it is in deletes it
    guiDestroyWrapper(popup);
}

guiMenuItems guiCopyItems(guiMenuItems const& items)
{
    guiMenuItems copies;
    for (auto const& item : items) {
        auto copy = std::make_unique<guiHtmlControlMenuItem>();
        static_cast<guiMenuItemContent&>(*copy) = *item;
        copy->children = guiCopyItems(item->children);
        copies.push_back(std::move(copy));
    }
    return copies;
}

std::optional<QKeySequence> guiReadKey(sstring const& text)
{
    QKeySequence const keys(sstoq(text), QKeySequence::PortableText);
    for (int i = 0; i < keys.count(); ++i)
        if (keys[static_cast<unsigned>(i)].key() == Qt::Key_unknown)
            return std::nullopt;
    return keys.isEmpty() ? std::nullopt : std::optional(keys);
}

namespace {

struct typeWord
{
    std::string_view word;
    guiMenuItemType type;
};

constexpr typeWord kTypeWords[] = {{"normal", guiMenuItemType::kNormal},
                                   {"checkbox", guiMenuItemType::kCheckBox},
                                   {"toggle", guiMenuItemType::kToggle},
                                   {"radiobutton", guiMenuItemType::kRadio}};

/// Adds the items, and those below them, that are radio items of a group with this name.
void addNamed(guiMenuItems const& items, istring const& group, std::vector<guiHtmlControlMenuItem*>& found)
{
    for (auto const& item : items) {
        if (item->type == guiMenuItemType::kRadio && group == item->group)
            found.push_back(item.get());
        addNamed(item->children, group, found);
    }
}

} // namespace

std::optional<guiMenuItemType> guiReadItemType(sstring const& word)
{
    for (typeWord const& each : kTypeWords)
        if (guiIsWord(word, std::string(each.word).c_str()))
            return each.type;
    return std::nullopt;
}

std::vector<std::string_view> guiItemTypeWords()
{
    std::vector<std::string_view> words;
    for (typeWord const& each : kTypeWords)
        words.push_back(each.word);
    return words;
}

guiMenuItems* guiListAround(guiMenuItems& items, guiHtmlControlMenuItem const& item, std::size_t& index)
{
    for (index = 0; index < items.size(); ++index)
        if (items[index].get() == &item)
            return &items;
    for (auto const& each : items)
        if (guiMenuItems* inside = guiListAround(each->children, item, index))
            return inside;
    return nullptr;
}

std::vector<guiHtmlControlMenuItem*> guiGroupOf(guiMenuItems& items, guiHtmlControlMenuItem const& item)
{
    std::vector<guiHtmlControlMenuItem*> found;
    if (item.type != guiMenuItemType::kRadio)
        return found;
    if (item.group.getLength() != 0) {
        addNamed(items, istring(item.group), found);
        return found;
    }
    std::size_t index = 0;
    guiMenuItems const* around = guiListAround(items, item, index);
    if (!around)
        return found;
    std::size_t first = index;
    while (first > 0 && (*around)[first - 1]->isInRun())
        --first;
    for (std::size_t at = first; at < around->size() && (*around)[at]->isInRun(); ++at)
        found.push_back((*around)[at].get());
    return found;
}
