// controls/guilistrows.h: the rows of a list as data: their values and texts, which of them lies under which, and their
// states. Nothing here knows of widgets. Any one thread at a time.
#pragma once

#include "controls/guipackedrows.h"

#include <QString>
#include <QStringView>
#include <cstdint>
#include <functional>
#include <memory>
#include <queue>
#include <set>
#include <unordered_map>
#include <vector>

/// Names a row while it exists: its place in the order in which rows were stored, from 0.
using guiRowNumber = std::uint32_t;
/// No row; as the row above another: there is none, so that the other is at the top level.
inline constexpr guiRowNumber kNoRow = 0xFFFFFFFF;

/// What the indicator in front of a row is.
enum guiRowIndicator : std::uint8_t
{
    kRowPlain = 0,
    kRowCheckBox = 1,
    kRowRadio = 2,
};

/// The texts of a row that does not come from packed ones, or has been changed since.
struct guiRowTexts
{
    QString value;              ///< the row's key
    QString parent;             ///< key of the row that this one was to lie under, "" for none
    QString icon;               ///< name of a picture file
    QString look;               ///< see guilistlook.h
    std::vector<QString> cells; ///< by column, from 0; missing ones are empty
};

/// A removed row leaves a hole, which the next added one fills. Rows are found by value without regard to case; of
/// several with one value the first counts. No operation on one row takes longer because there are many, except that
/// the rows behind a removed one move up in memory.
class guiListRows
{
public:
    using rowList = std::vector<guiRowNumber>;

    guiListRows() = default;
    guiListRows(guiListRows const& other) { *this = other; }
    guiListRows& operator=(guiListRows const& other);
    ~guiListRows() = default;

    /// How many rows there are, with holes and without.
    unsigned size() const { return static_cast<unsigned>(m_rows.size()); }
    unsigned count() const { return static_cast<unsigned>(m_rows.size() - m_holes.size()); }
    bool has(guiRowNumber row) const { return row < m_rows.size() && m_rows[row].isThere; }
    /// The first row of this value, kNoRow when there is none.
    guiRowNumber find(QStringView value) const;

    /// Adds a row at the end of those under `above`, enabled and expanded.
    guiRowNumber add(guiRowTexts texts, guiRowIndicator indicator, guiRowNumber above);
    /// Puts a row directly behind another that lies beside it.
    void putBehind(guiRowNumber row, guiRowNumber other);
    /// Removes a row under which there are none.
    void remove(guiRowNumber row);
    /// Puts a row behind all others under `above`, which does not lie under it.
    void move(guiRowNumber row, guiRowNumber above);
    void clear();
    /// Replaces all rows; those that do not say it have the indicator `usual`. Rows deeper than `levels` lie beside the
    /// last that still nests; 1 if there are such.
    int assign(std::shared_ptr<guiPackedRows const> packed, guiRowIndicator usual, unsigned levels);
    /// What the rows were last assigned from, null when that was nothing.
    guiPackedRows const* packed() const { return m_packed.get(); }
    /// Puts the rows under each one into the order that `isBefore` says; equal ones stay as they are.
    void sort(std::function<bool(guiRowNumber, guiRowNumber)> const& isBefore);

    // ---- Which lies under which ----

    guiRowNumber above(guiRowNumber row) const { return m_rows[row].above; }
    /// The rows directly under one, or at the top level.
    rowList const& under(guiRowNumber above) const;
    bool isNested() const { return !m_under.empty(); }
    bool hasRowsUnder(guiRowNumber row) const { return !m_under.empty() && m_under.contains(row); }
    /// Which of the rows beside it the row is, from 0.
    int placeOf(guiRowNumber row) const;
    /// How many rows lie above this one, one over the other.
    unsigned levelOf(guiRowNumber row) const;
    /// Where a row goes that is to lie under `above` when there are `levels` at most.
    guiRowNumber lifted(guiRowNumber above, unsigned levels) const;

    // ---- Texts ----

    QStringView value(guiRowNumber row) const;
    QStringView parent(guiRowNumber row) const;
    QStringView icon(guiRowNumber row) const;
    QStringView look(guiRowNumber row) const;
    /// The text of a column, counted from 0; and how many there are.
    QStringView text(guiRowNumber row, unsigned column) const;
    unsigned textCount(guiRowNumber row) const;
    void setText(guiRowNumber row, unsigned column, QString const& text);

    // ---- States ----

    guiRowIndicator indicator(guiRowNumber row) const { return m_rows[row].indicator; }
    unsigned indicators() const { return m_indicators; }
    bool isChecked(guiRowNumber row) const { return m_rows[row].isChecked; }
    bool isEnabled(guiRowNumber row) const { return m_rows[row].isEnabled; }
    bool isExpanded(guiRowNumber row) const { return m_rows[row].isExpanded; }
    void setChecked(guiRowNumber row, bool on) { m_rows[row].isChecked = on; }
    void setEnabled(guiRowNumber row, bool on);
    void setExpanded(guiRowNumber row, bool on) { m_rows[row].isExpanded = on; }
    bool hasDisabled() const { return m_disabled > 0; }
    /// Whether the row and all that it lies under are enabled.
    bool isUsable(guiRowNumber row) const;
    /// The radio row beside this one that is on, kNoRow when there is none.
    guiRowNumber otherRadioOn(guiRowNumber row) const;

    /// The selected rows, as long as no widget keeps them.
    std::set<guiRowNumber> selected;

private:
    struct rowData
    {
        guiRowNumber above = kNoRow;
        std::uint32_t order = 0;       // rises among the rows that lie beside each other
        std::uint32_t packed = kNoRow; // which of m_packed it is, kNoRow when it has texts of its own
        guiRowNumber nextOfHash = kNoRow;
        guiRowIndicator indicator = kRowPlain;
        bool isThere : 1 = false;
        bool isChecked : 1 = false;
        bool isEnabled : 1 = true;
        bool isExpanded : 1 = true;
        std::unique_ptr<guiRowTexts> own; // null when it is packed
    };

    rowList& listUnder(guiRowNumber above);
    void append(guiRowNumber row, guiRowNumber above);
    void takeOut(guiRowNumber row);
    guiRowNumber takeHole();
    guiRowTexts& ownTexts(guiRowNumber row);
    void assignRow(guiRowNumber row, guiRowIndicator usual);
    int nestAssigned(unsigned levels);
    void renumber(rowList const& list);
    void sortList(rowList& list, std::function<bool(guiRowNumber, guiRowNumber)> const& isBefore);

    void buildIndex() const;
    void addToIndex(guiRowNumber row) const;
    void removeFromIndex(guiRowNumber row);

    mutable std::vector<rowData> m_rows; // by number; mutable for the chains of the index
    std::priority_queue<guiRowNumber, std::vector<guiRowNumber>, std::greater<>> m_holes;
    rowList m_top;
    std::unordered_map<guiRowNumber, rowList> m_under; // never empty lists
    std::shared_ptr<guiPackedRows const> m_packed;
    mutable std::vector<guiRowNumber> m_index; // heads of chains by hash; empty until somebody looks for a row
    unsigned m_indicators = 0;                 // how many rows have one
    unsigned m_disabled = 0;                   // how many are not enabled
};

/// Whether two values are those of one row.
bool guiIsSameValue(QStringView a, QStringView b);
