// controls/guihtmlcontrollist-data.cpp: the `select` element as data: all its entries and what is selected.
#include "controls/guihtmlcontrollist.h"
#include "controls/guinotices.h"
#include "controls/guipackedrows.h"
#include "controls/guiwidgetcombobox.h"
#include "controls/guiwidgetlistbox.h"
#include "foundation/vela-qt.h"
#include "foundation/vela-threadrole.h"

#include <QSet>
#include <algorithm>
#include <utility>
#include <vector>

namespace {

using valueSet = QSet<QString>;

QString keyOf(QStringView value) { return value.toString().toCaseFolded(); }

valueSet valuesIn(guiPackedRows const& packed)
{
    valueSet values;
    for (unsigned row = 0; row < packed.count(); ++row)
        values.insert(keyOf(packed.value(row)));
    return values;
}

bool saysWhatIsSelected(guiPackedRows const& packed)
{
    for (unsigned row = 0; row < packed.count(); ++row)
        if (packed.state(row).isSelected)
            return true;
    return false;
}

} // namespace

/// Calls `work(entry, isSelected)` for each entry, the n-th row of the widget being that of the n-th that is no hole.
template <typename Work>
void guiHtmlControlList::forEachEntry(Work work) const
{
    bool const hasWidget = m_comboBox || m_listBox;
    int row = 0;
    for (auto const& entry : m_entries) {
        if (!entry)
            continue;
        work(*entry, hasWidget ? isRowSelected(row) : isChosen(*entry));
        ++row;
    }
}

QString guiHtmlControlList::items() const
{
    assertOnGuiThread();
    guiRowPacker packer(1, false);
    forEachEntry([&packer](guiHtmlControlListEntry const& entry, bool isSelected) {
        packer.addState({.isSelected = isSelected});
        packer.addField(sstoview(entry.value));
        packer.addField(sstoview(entry.text));
    });
    return packer.packed();
}

QString guiHtmlControlList::selection() const
{
    assertOnGuiThread();
    guiRowPacker packer(0, false);
    forEachEntry([&packer](guiHtmlControlListEntry const& entry, bool isSelected) {
        if (!isSelected)
            return;
        packer.addState({});
        packer.addField(sstoview(entry.value));
    });
    return packer.packed();
}

/// Replaces the rows of the widget by those of the entries, as they are chosen. Nobody is told.
void guiHtmlControlList::refillWidget()
{
    if (m_comboBox) {
        QString const shown = m_comboBox->currentText();
        bool const isTyped = m_list.editable > 0 && shown != m_comboBox->text(m_comboBox->currentIndex());
        m_comboBox->clear();
        insertEntries();
        restoreSelection();
        if (isTyped)
            m_comboBox->setEditText(shown);
    } else if (m_listBox) {
        m_listBox->owner = nullptr;
        m_listBox->clear();
        insertEntries();
        restoreSelection();
        m_listBox->owner = this;
    }
}

void guiHtmlControlList::setItems(guiPackedRows const& packed)
{
    assertOnGuiThread();
    QString const before = selection();
    valueSet const kept = valuesIn(*guiPackedRows::read(before));
    bool const isSaid = saysWhatIsSelected(packed);
    m_entries.clear();
    m_entries.reserve(packed.count());
    for (unsigned row = 0; row < packed.count(); ++row) {
        sstring const value = qtoss(packed.value(row).toString());
        sstring const text = packed.textCount() > 0 ? qtoss(packed.text(row, 0).toString()) : sstring();
        bool const isChosen = isSaid ? packed.state(row).isSelected : kept.contains(keyOf(packed.value(row)));
        m_entries.push_back(std::make_unique<guiHtmlControlListEntry>(
            guiHtmlControlListEntry{value, text.getLength() ? text : value, 0, isChosen ? 1 : 0}));
    }
    refillWidget();
    if (awaitsWidget())
        settleSelection();
    recheck();
    if (m_listBox && selection() != before)
        onChange();
}

void guiHtmlControlList::setSelection(guiPackedRows const& packed)
{
    assertOnGuiThread();
    valueSet const wanted = valuesIn(packed);
    m_typed.reset();
    bool isFree = true; // for one more
    std::vector<bool> selects;
    for (auto const& entry : m_entries) {
        if (!entry)
            continue;
        bool const isSelected = isFree && wanted.contains(keyOf(sstoview(entry->value)));
        entry->chosen = isSelected ? 1 : 0;
        isFree = isFree && (!isSelected || isOneOfMany());
        selects.push_back(isSelected);
    }
    if (m_comboBox) {
        auto const first = std::find(selects.begin(), selects.end(), true);
        m_comboBox->setCurrentIndex(first == selects.end() ? -1 : static_cast<int>(first - selects.begin()));
    }
    if (!m_listBox)
        return;
    guiNoticeHold hold(m_listBox);
    for (std::size_t row = 0; row < selects.size(); ++row)
        if (QListWidgetItem* item = m_listBox->item(static_cast<int>(row)))
            item->setSelected(selects[row]);
}

void guiHtmlControlList::clear()
{
    assertOnGuiThread();
    guiRowPacker const none(0, false);
    setItems(*guiPackedRows::read(none.packed()));
}
