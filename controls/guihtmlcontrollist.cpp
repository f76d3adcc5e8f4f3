// controls/guihtmlcontrollist.cpp: see guihtmlcontrollist.h.
#include "controls/guihtmlcontrollist.h"

#include "controls/guieventscope.h"
#include "controls/guiformproperty.h"
#include "controls/guiowntexts.h"
#include "controls/guipackedscript.h"
#include "controls/guiscriptmethod.h"
#include "controls/guiwidgetcombobox.h"
#include "controls/guiwidgetlistbox.h"
#include "foundation/vela-qt.h"
#include "foundation/vela-threadrole.h"
#include "page/guinodewatch.h"

#include <algorithm>
#include <cassert>
#include <utility>

guiHtmlControlList::~guiHtmlControlList() { destroyWidgets(); }

guiHtml& guiHtmlControlList::operator=(guiHtml& other)
{
    guiHtmlControl::operator=(other);
    auto* list = dynamic_cast<guiHtmlControlList*>(&other);
    if (!list || list == this)
        return *this;
    destroyWidgets(); // they show the entries that are replaced now
    m_list = list->m_list;
    m_entries.clear();
    for (auto const& entry : list->m_entries)
        m_entries.push_back(entry ? std::make_unique<guiHtmlControlListEntry>(*entry) : nullptr);
    return *this;
}

guiHtml* guiHtmlControlList::Clone(guiHtml* parent) { return guiCloneNode(*this, parent); }

void guiHtmlControlList::init(int visibleRows, bool multiple, bool editable)
{
    assert(!getChildWidget());
    m_list.visibleRows = visibleRows;
    m_list.multiple = multiple;
    m_list.editable = editable;
}

void guiHtmlControlList::appendEntry(sstring const& value, sstring const& text, bool selected)
{
    assert(!getChildWidget());
    m_entries.push_back(std::make_unique<guiHtmlControlListEntry>(
        guiHtmlControlListEntry{value, text.getLength() ? text : value, selected}));
}

int guiHtmlControlList::getPreferredWidth()
{
    constexpr int kAroundText = 28;
    if (!hasWindow())
        return 0;
    guiHtmlControlListEntry const* longest = nullptr;
    for (auto const& entry : m_entries)
        if (entry && (!longest || entry->text.getLength() > longest->text.getLength()))
            longest = entry.get();
    return clampLength(std::int64_t{longest ? textWidth(longest->text) : 0} + scaled(kAroundText));
}

int guiHtmlControlList::getHeightEstimate(unsigned long)
{
    constexpr int kAroundRows = 6;
    return hasWindow() ? clampLength(std::int64_t{m_list.visibleRows} * lineSpacing() + scaled(kAroundRows)) : 0;
}

QWidget* guiHtmlControlList::getChildWidget()
{
    assert(!m_comboBox || !m_listBox);
    if (m_comboBox)
        return m_comboBox;
    return m_listBox;
}

void guiHtmlControlList::createChildWidget()
{
    if (getChildWidget() || m_list.visibleRows < 1 || !hasWindow())
        return;
    assertOnGuiThread();
    dirtyTabOrder();
    if (m_list.visibleRows == 1)
        createComboBox();
    else
        createListBox();
    restoreSelection();
    if (m_comboBox && m_typed)
        m_comboBox->setEditText(sstoq(*std::exchange(m_typed, std::nullopt)));
    if (m_comboBox) // only now: the selection that the page gives is not a change to report
        m_comboBox->owner = this;
    else
        m_listBox->owner = this;
    finishWidget(getChildWidget());
}

/// What is to be done when the widget shows another selection. A widget that is not bound is not the list's any more.
template <typename Widget>
auto guiHtmlControlList::makeRecheck(Widget* shown)
{
    return [this, shown] {
        if (shown->owner)
            recheck();
    };
}

void guiHtmlControlList::createComboBox()
{
    m_comboBox = new guiWidgetComboBox(getClipWidget());
    m_comboBox->setEditable(m_list.editable > 0);
    if (m_list.editable > 0)
        m_comboBox->reportTyping();
    m_comboBox->setInsertPolicy(QComboBox::NoInsert); // what the user types does not become an entry
    insertEntries();
    if (awaitsWidget()) // the entries say what is chosen, and that may be none
        m_comboBox->setCurrentIndex(-1);
    QObject::connect(m_comboBox, &QComboBox::currentIndexChanged, m_comboBox, makeRecheck(m_comboBox));
    QObject::connect(m_comboBox, &QComboBox::editTextChanged, m_comboBox, makeRecheck(m_comboBox));
}

void guiHtmlControlList::createListBox()
{
    m_listBox = new guiWidgetListBox(getClipWidget());
    m_listBox->setSelectionMode(m_list.multiple ? QAbstractItemView::MultiSelection
                                                : QAbstractItemView::SingleSelection);
    insertEntries();
    QObject::connect(m_listBox, &QListWidget::itemSelectionChanged, m_listBox, makeRecheck(m_listBox));
}

void guiHtmlControlList::insertEntries()
{
    for (std::size_t i = 0; i < m_entries.size(); ++i)
        if (m_entries[i])
            insertRow(static_cast<int>(i), sstoq(m_entries[i]->text));
}

void guiHtmlControlList::destroyChildWidget()
{
    guiHtmlControl::destroyChildWidget();
    destroyWidgets();
}

void guiHtmlControlList::destroyWidgets()
{
    if (getChildWidget()) {
        dirtyTabOrder();
        saveSelection();
    }
    if (m_comboBox && m_list.editable > 0)
        m_typed = qtoss(m_comboBox->currentText());
    assert(guiIsBoundTo(m_comboBox, this));
    assert(guiIsBoundTo(m_listBox, this));
    guiDestroyWrapper(m_comboBox);
    guiDestroyWrapper(m_listBox);
    onDestroyChildWidget();
}

int guiHtmlControlList::currentRow() const
{
    if (m_listBox)
        return m_listBox->currentRow();
    return m_comboBox ? m_comboBox->currentIndex() : -1;
}

/// Appends the row when the widget has fewer rows than `row`.
void guiHtmlControlList::insertRow(int row, QString const& text)
{
    if (m_listBox)
        m_listBox->insertItem(row, text);
    else if (m_comboBox)
        m_comboBox->insertItem(row, text);
}

void guiHtmlControlList::removeRow(int row)
{
    if (m_listBox)
        removeListRow(row);
    else if (m_comboBox && row < m_comboBox->count())
        m_comboBox->removeItem(row);
}

/// If the row was selected, script is told once the list is consistent again, because its handler may change the list
/// once more.
void guiHtmlControlList::removeListRow(int row)
{
    assert(m_listBox && m_listBox->owner == this);
    bool const wasSelected = isRowSelected(row);
    m_listBox->owner = nullptr;
    delete m_listBox->takeItem(row); // null when there are fewer rows
    m_listBox->owner = this;
    if (wasSelected)
        onChange();
}

void guiHtmlControlList::selectRow(int row, bool on)
{
    if (m_comboBox)
        m_comboBox->setCurrentItem(row);
    QListWidgetItem* item = m_listBox ? m_listBox->item(row) : nullptr;
    if (!item)
        return;
    guiNoticeHold hold(m_listBox); // or script might remove the row, or the whole page, in between
    if (on)
        m_listBox->setCurrentItem(item, QItemSelectionModel::NoUpdate);
    item->setSelected(on);
    m_listBox->scrollToItem(item, QAbstractItemView::PositionAtCenter);
}

/// The row that was added last.
void guiHtmlControlList::selectNewRow(int row)
{
    QListWidgetItem* item = m_listBox ? m_listBox->item(row) : nullptr;
    if (!item)
        return selectRow(row, true);
    m_listBox->selectNew(item);
}

sstring guiHtmlControlList::getDefaultSelection() const
{
    for (auto const& entry : m_entries)
        if (entry && entry->selected)
            return entry->value;
    return sstring();
}

guiHtmlControlListEntry const* guiHtmlControlList::entryAt(int row) const
{
    bool const isIndex = row >= 0 && static_cast<std::size_t>(row) < m_entries.size();
    return isIndex ? m_entries[static_cast<std::size_t>(row)].get() : nullptr;
}

/// Where several rows may be selected, the current one is only where the keyboard is.
guiHtmlControlListEntry const* guiHtmlControlList::selectedEntry() const
{
    if (!m_comboBox && !m_listBox) {
        auto isChosen = [this](auto const& entry) { return entry && this->isChosen(*entry); };
        auto found = std::find_if(m_entries.begin(), m_entries.end(), isChosen);
        return found == m_entries.end() ? nullptr : found->get();
    }
    if (!m_listBox || !m_list.multiple || isRowSelected(currentRow()))
        return entryAt(currentRow());
    for (int row = 0; row < m_listBox->count(); ++row)
        if (isRowSelected(row) && entryAt(row))
            return entryAt(row);
    return nullptr;
}

sstring guiHtmlControlList::getSelected()
{
    if (m_comboBox && m_list.editable > 0)
        return qtoss(m_comboBox->currentText());
    if (m_typed)
        return *m_typed;
    guiHtmlControlListEntry const* entry = selectedEntry();
    return entry ? entry->value : sstring();
}

int guiHtmlControlList::isItemSelected(sstring const& value)
{
    assertOnGuiThread();
    istring wanted(value);
    for (std::size_t i = 0; i < m_entries.size(); ++i) {
        guiHtmlControlListEntry const* entry = m_entries[i].get();
        if (!entry || wanted != entry->value)
            continue;
        if (getChildWidget() ? isRowSelected(static_cast<int>(i)) : isChosen(*entry))
            return 1;
    }
    return 0;
}

/// Without a widget: whether the entry was selected since the page was read or, where several may be, by the page.
bool guiHtmlControlList::isChosen(guiHtmlControlListEntry const& entry) const
{
    return entry.chosen < 0 ? isOneOfMany() && entry.selected != 0 : entry.chosen != 0;
}

/// Keeps a selection until there is a widget.
void guiHtmlControlList::setChosen(guiHtmlControlListEntry& chosen, bool on)
{
    assert(!getChildWidget());
    m_typed.reset();
    for (auto const& entry : m_entries)
        if (entry && (on || isOneOfMany()))
            entry->chosen = isOneOfMany() && isChosen(*entry);
    chosen.chosen = on;
}

/// Of a list box that may have several selected rows.
void guiHtmlControlList::clearSelection()
{
    if (m_listBox) {
        guiNoticeHold hold(m_listBox);
        m_listBox->clearSelection();
        return;
    }
    for (auto const& entry : m_entries)
        if (entry)
            entry->chosen = 0;
}

void guiHtmlControlList::setSelected(sstring const& value, int on)
{
    assertOnGuiThread();
    istring wanted(value);
    bool const hasWidget = getChildWidget() != nullptr;
    guiNodeWatch self(this); // a list box that changes its selection calls script
    for (std::size_t i = 0; self.alive() && i < m_entries.size(); ++i) {
        if (!m_entries[i] || wanted != m_entries[i]->value)
            continue;
        if (hasWidget)
            selectRow(static_cast<int>(i), on != 0);
        else
            setChosen(*m_entries[i], on != 0 || awaitsWidget()); // a combo box only selects
    }
}

bool guiHtmlControlList::isRowSelected(int row) const
{
    if (m_comboBox)
        return row == m_comboBox->currentIndex();
    QListWidgetItem const* item = m_listBox ? m_listBox->item(row) : nullptr;
    return item && item->isSelected();
}

/// Takes the n-th row for the n-th entry that is not a hole.
void guiHtmlControlList::saveSelection()
{
    int row = 0;
    for (auto const& entry : m_entries)
        if (entry)
            entry->chosen = isRowSelected(row++);
}

void guiHtmlControlList::restoreSelection()
{
    auto isDecided = [](auto const& entry) { return entry && entry->chosen >= 0; };
    bool const isFirst = std::none_of(m_entries.begin(), m_entries.end(), isDecided);
    if (isFirst && !isOneOfMany()) {
        setSelected(getDefaultSelection(), 1);
        return;
    }
    int row = 0;
    for (auto const& entry : m_entries) {
        if (entry && (isFirst ? entry->selected != 0 : entry->chosen > 0))
            selectRow(row, true);
        row += entry != nullptr;
    }
}

bool guiHtmlControlList::isOfFrequentKind() const
{
    return m_list.visibleRows == 1 && m_list.editable <= 0 &&
           std::find(m_entries.begin(), m_entries.end(), nullptr) == m_entries.end();
}

void guiHtmlControlList::onAwait()
{
    auto const isDecided = [](auto const& entry) { return entry->chosen >= 0; };
    if (std::none_of(m_entries.begin(), m_entries.end(), isDecided)) {
        istring const wanted(getDefaultSelection());
        for (auto const& entry : m_entries)
            entry->chosen = wanted == entry->value ? 1 : 0;
    }
    settleSelection();
}

/// Chooses what a new combo box does: the last of the chosen entries, else the first entry.
void guiHtmlControlList::settleSelection()
{
    auto const isChosen = [](auto const& entry) { return entry->chosen > 0; };
    auto const last = std::find_if(m_entries.rbegin(), m_entries.rend(), isChosen);
    std::size_t const row = last == m_entries.rend() ? 0 : static_cast<std::size_t>(m_entries.rend() - last) - 1;
    for (std::size_t i = 0; i < m_entries.size(); ++i)
        m_entries[i]->chosen = i == row ? 1 : 0;
}

void guiHtmlControlList::addItem(sstring const& value, sstring const& text)
{
    assertOnGuiThread();
    needWidget();
    auto hole = std::find(m_entries.begin(), m_entries.end(), nullptr);
    if (hole == m_entries.end())
        hole = m_entries.emplace(m_entries.end());
    *hole =
        std::make_unique<guiHtmlControlListEntry>(guiHtmlControlListEntry{value, text.getLength() ? text : value, 0});
    int row = static_cast<int>(hole - m_entries.begin());
    insertRow(row, sstoq((*hole)->text));
    selectNewRow(row);
}

void guiHtmlControlList::removeItem(sstring const& value)
{
    assertOnGuiThread();
    needWidget();
    istring wanted(value);
    guiNodeWatch self(this); // its handlers may replace the page
    for (std::size_t i = 0; self.alive() && i < m_entries.size(); ++i) {
        if (!m_entries[i] || wanted != m_entries[i]->value)
            continue;
        m_entries[i].reset();
        removeRow(static_cast<int>(i));
    }
}

bool guiHtmlControlList::isBlank() { return getSelected().getLength() == 0; }

sstring guiHtmlControlList::findMistake()
{
    if (!m_content.rules || !m_content.rules->isRequired || !isBlank())
        return {};
    return m_list.editable > 0 ? qtoss(guiOwnText("This has to be filled in."))
                               : qtoss(guiOwnText("One of these has to be chosen."));
}

void guiHtmlControlList::onChange() { followLink(m_content.action); }

bool guiHtmlControlList::takesFormValue(ScriptValue& value) const
{
    return guiTakesText(value) || (value.isNull() && isOneOfMany());
}

void guiHtmlControlList::readFormProperty(ScriptObject* form)
{
    guiFormProperty value(form, getName());
    if (!value.read())
        return;
    if (value.isNull() && isOneOfMany())
        clearSelection();
    else if (value.isString() && (m_list.editable <= 0 || hasEntry(value.text())))
        setSelected(value.text(), 1);
    else if (value.isString())
        setTyped(value.text());
}

bool guiHtmlControlList::hasEntry(sstring const& value) const
{
    istring const wanted(value);
    return std::any_of(m_entries.begin(), m_entries.end(),
                       [&wanted](auto const& entry) { return entry && wanted == entry->value; });
}

void guiHtmlControlList::setTyped(sstring const& text)
{
    if (m_comboBox)
        m_comboBox->setEditText(sstoq(text));
    else
        m_typed = text;
}

void guiHtmlControlList::writeFormProperty(ScriptObject* form)
{
    guiFormProperty value(form, getName());
    if (isOneOfMany() && !selectedEntry())
        value.writeNull();
    else
        value.write(getSelected());
}
void guiHtmlControlList::eraseFormProperty(ScriptObject* form) { guiFormProperty(form, getName()).erase(); }

namespace {

using listNode = guiHtmlControlList;

void control_addItem_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    result.setNull();
    bool hasText = args.count() == 2;
    if (!guiIsString(args, 0) || (args.count() != 1 && !hasText) || (hasText && !guiIsString(args, 1)))
        return;
    if (listNode* list = guiControlOf<listNode>(data, self))
        list->addItem(guiTextOf(args, 0), hasText ? guiTextOf(args, 1) : sstring());
}

void control_removeItem_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    result.setNull();
    listNode* list = args.count() == 1 && guiIsString(args, 0) ? guiControlOf<listNode>(data, self) : nullptr;
    if (list)
        list->removeItem(guiTextOf(args, 0));
}

void control_selectItem_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    result.setNull();
    bool hasSwitch = args.count() == 2;
    if (!guiIsString(args, 0) || (args.count() != 1 && !hasSwitch) || (hasSwitch && !guiIsSwitch(args, 1)))
        return;
    if (listNode* list = guiControlOf<listNode>(data, self))
        list->setSelected(guiTextOf(args, 0), hasSwitch ? guiSwitchOf(args, 1) : 1);
}

void control_isItemSelected_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args,
                               ScriptValue& result)
{
    listNode* list = guiIsOneString(args) ? guiControlOf<listNode>(data, self) : nullptr;
    result.setBool(list && list->isItemSelected(guiTextOf(args, 0)));
}

constexpr guiScriptMethod kMethods[] = {
    {"addItem", guiCallOnGuiThread<control_addItem_qt>},
    {"removeItem", guiCallOnGuiThread<control_removeItem_qt>},
    {"selectItem", guiCallOnGuiThread<control_selectItem_qt>},
    {"isItemSelected", guiCallOnGuiThread<control_isItemSelected_qt>},
    {"clear", guiCallOnGuiThread<guiClearRows_qt<listNode>>},
    {"setPackedItems", guiCallOnGuiThread<guiWritePacked_qt<listNode, &listNode::setItems>>},
    {"getPackedItems", guiCallOnGuiThread<guiReadPacked_qt<listNode, &listNode::items>>},
    {"setSelectedItems", guiCallOnGuiThread<guiWritePacked_qt<listNode, &listNode::setSelection>>},
    {"getSelectedItems", guiCallOnGuiThread<guiReadPacked_qt<listNode, &listNode::selection>>},
};

} // namespace

void guiHtmlControlList::addScriptMethods(ScriptObject* object)
{
    for (guiScriptMethod const& each : kMethods)
        object->addMethod(each.name, each.method);
}
