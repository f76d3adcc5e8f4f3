// runtime/guikeptvalues.cpp: see guikeptvalues.h.
#include "runtime/guikeptvalues.h"

#include "controls/guihtmlcontrolbutton.h"
#include "controls/guihtmlcontrolflex.h"
#include "controls/guihtmlcontrollist.h"
#include "controls/guihtmldetails.h"
#include "controls/guihtmlsplitter.h"
#include "controls/guipackedrows.h"
#include "foundation/vela-qt.h"

#include <QHash>

namespace {

void mix(std::size_t& sum, QStringView text) { sum = qHash(text, sum * 31 + static_cast<std::size_t>(text.size())); }

/// What rows show; not their states, which the user changes. Texts that are missing count as empty ones.
std::size_t checksumOf(QString const& packed)
{
    std::size_t sum = 0;
    std::shared_ptr<guiPackedRows const> const rows = guiPackedRows::read(packed);
    for (unsigned row = 0; rows && row < rows->count(); ++row) {
        mix(sum, rows->value(row));
        mix(sum, rows->parent(row));
        mix(sum, rows->icon(row));
        mix(sum, rows->look(row));
        for (unsigned column = 0; column < rows->textCount(); ++column)
            if (QStringView const text = rows->text(row, column); !text.isEmpty())
                mix(sum, text);
    }
    return sum;
}

/// Of columns only the headings.
std::size_t headingsOf(QString const& packed)
{
    std::size_t sum = 0;
    std::shared_ptr<guiPackedRows const> const columns = guiPackedRows::read(packed);
    for (unsigned column = 0; columns && column < columns->count(); ++column)
        if (QStringView const heading = columns->value(column); !heading.isEmpty())
            mix(sum, heading);
    return sum;
}

bool isOneOf(guiPackedRows const& values, QStringView value)
{
    for (unsigned row = 0; row < values.count(); ++row)
        if (values.value(row).compare(value, Qt::CaseInsensitive) == 0)
            return true;
    return false;
}

/// Folds the rows of these values, and unfolds all others.
void fold(guiHtmlControlFlex& list, QString const& folded)
{
    std::shared_ptr<guiPackedRows const> const before = guiPackedRows::read(list.foldedRows());
    std::shared_ptr<guiPackedRows const> const wanted = guiPackedRows::read(folded);
    if (!before || !wanted)
        return;
    for (unsigned row = 0; row < before->count(); ++row)
        if (!isOneOf(*wanted, before->value(row)))
            list.setItemExpanded(qtoss(before->value(row).toString()), 1);
    for (unsigned row = 0; row < wanted->count(); ++row)
        list.setItemExpanded(qtoss(wanted->value(row).toString()), 0);
}

/// A combo box without a choice shows its first entry, as soon as there is a widget.
QString choiceOf(guiHtmlControlList& list)
{
    if (list.getVisibleRows() > 1 || guiPackedRows::read(list.selection())->count() != 0)
        return list.selection();
    guiRowPacker packer(0, false);
    for (unsigned i = 0; i < list.getEntryCount(); ++i)
        if (guiHtmlControlListEntry const* entry = list.getEntry(i)) {
            packer.addState({});
            packer.addField(sstoview(entry->value));
            break;
        }
    return packer.packed();
}

guiControlValues valuesOfFlex(guiHtmlControlFlex& list)
{
    guiControlValues values;
    values.columns = headingsOf(list.columns());
    values.selected = list.selection();
    if (list.getSource())
        return values;
    values.checked = list.checkedRows();
    values.rows = checksumOf(list.packedRows());
    return values;
}

guiControlValues valuesOfList(guiHtmlControlList& list)
{
    guiControlValues values;
    values.rows = checksumOf(list.items());
    if (list.isEditable() > 0)
        values.text = sstoq(list.getSelected());
    else
        values.selected = choiceOf(list);
    return values;
}

/// Ends of lines as fields have them; numbers without regard to how they are written.
QString plain(QString text)
{
    bool isNumber = false;
    double const number = text.toDouble(&isNumber);
    return isNumber ? QString::number(number, 'g', 17) : text.remove(u'\r');
}

} // namespace

guiControlValues guiValuesOf(guiHtmlControl& control)
{
    assertOnGuiThread();
    if (auto* flex = dynamic_cast<guiHtmlControlFlex*>(&control))
        return valuesOfFlex(*flex);
    if (auto* list = dynamic_cast<guiHtmlControlList*>(&control))
        return valuesOfList(*list);
    guiControlValues values;
    auto const* splitter = dynamic_cast<guiHtmlSplitter const*>(&control);
    if (!splitter || splitter->hasOwnSizes()) // else they follow from the layout
        values.text = sstoq(control.getText());
    if (auto* button = dynamic_cast<guiHtmlControlButton*>(&control); button && button->isCheckable())
        values.isOn = button->isChecked() != 0;
    if (auto const* summary = dynamic_cast<guiHtmlSummary*>(&control))
        values.isOn = summary->isOpen();
    return values;
}

guiKeptValues::guiKeptValues(guiHtmlControl& control, std::optional<guiControlValues> const& given)
    : m_now(guiValuesOf(control)), m_given(given)
{
    assertOnGuiThread();
    keepRows(control);
    m_isChanged = !m_given || !(m_now == *m_given) || m_source || m_sortColumn != 0 || !m_folded.isEmpty();
}

void guiKeptValues::keepRows(guiHtmlControl& control)
{
    bool const isOther = !m_given || m_given->rows != m_now.rows;
    if (auto* list = dynamic_cast<guiHtmlControlList*>(&control); list && isOther)
        m_rows = list->items();
    auto* const flex = dynamic_cast<guiHtmlControlFlex*>(&control);
    if (!flex)
        return;
    m_source = flex->getSource();
    m_sortColumn = flex->getSortColumn();
    m_isDescending = flex->isSortedDescending();
    if (!m_source && isOther)
        m_rows = flex->packedRows();
    if (!m_source)
        m_folded = flex->foldedRows();
    if (!m_given || m_given->columns != m_now.columns)
        m_columns = flex->columns();
}

bool guiKeptValues::hasOther(QString guiControlValues::*part) const
{
    return !m_given || plain(m_now.*part) != plain((*m_given).*part);
}

/// Whether the rows are to be those of before. When nobody knows what the page gave, a page that gives rows wins.
bool guiKeptValues::givesRows(std::size_t there) const { return !m_rows.isEmpty() && (m_given || there == 0); }

void guiKeptValues::giveText(guiHtmlControl& control) const
{
    if (hasOther(&guiControlValues::text) && sstoq(control.getText()) != m_now.text)
        control.setText(qtoss(m_now.text), sstring());
}

template <typename List>
void guiKeptValues::giveSelection(List& list) const
{
    if (hasOther(&guiControlValues::selected))
        if (std::shared_ptr<guiPackedRows const> const values = guiPackedRows::read(m_now.selected))
            list.setSelection(*values);
}

bool guiKeptValues::giveToButton(guiHtmlControl& control) const
{
    auto* const button = dynamic_cast<guiHtmlControlButton*>(&control);
    if (!button || !button->isCheckable())
        return false;
    giveText(control);
    if (!m_given || m_given->isOn != m_now.isOn)
        button->setChecked(m_now.isOn ? 1 : 0);
    return true;
}

bool guiKeptValues::giveToList(guiHtmlControl& control) const
{
    auto* const list = dynamic_cast<guiHtmlControlList*>(&control);
    if (!list)
        return false;
    if (givesRows(guiValuesOf(control).rows))
        list->setItems(*guiPackedRows::read(m_rows));
    if (list->isEditable() <= 0)
        giveSelection(*list);
    else if (hasOther(&guiControlValues::text))
        list->setTyped(qtoss(m_now.text));
    return true;
}

bool guiKeptValues::giveToFlex(guiHtmlControl& control) const
{
    auto* const list = dynamic_cast<guiHtmlControlFlex*>(&control);
    if (!list)
        return false;
    if (!m_columns.isEmpty() && (m_given || guiValuesOf(control).columns == 0))
        list->setColumns(*guiPackedRows::read(m_columns));
    if (m_source)
        list->setSource(m_source);
    else if (givesRows(guiValuesOf(control).rows))
        list->setRows(guiPackedRows::read(m_rows));
    else
        fold(*list, m_folded);
    if (m_sortColumn != 0)
        list->sortBy(m_sortColumn, m_isDescending);
    giveSelection(*list);
    if (!m_source && hasOther(&guiControlValues::checked))
        list->setCheckedRows(*guiPackedRows::read(m_now.checked));
    return true;
}

void guiKeptValues::giveTo(guiHtmlControl& control) const
{
    assertOnGuiThread();
    if (giveToButton(control) || giveToList(control) || giveToFlex(control))
        return;
    giveText(control);
    if (auto* summary = dynamic_cast<guiHtmlSummary*>(&control); summary && (!m_given || m_given->isOn != m_now.isOn))
        summary->setOpen(m_now.isOn);
}
