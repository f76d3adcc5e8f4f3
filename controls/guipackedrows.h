// controls/guipackedrows.h: many rows of a list in one text, as they come from script in one call and are kept until
// they are changed one by one. docs/host-abi.md describes the text.
#pragma once

#include "foundation/vela-string.h"

#include <QString>
#include <QStringView>
#include <cstdint>
#include <memory>
#include <vector>

/// The states of a packed row.
struct guiPackedState
{
    unsigned indicator = 0; ///< 0 none, 1 a check box, 2 a radio button, 3 as usual in the list
    bool isChecked = false;
    bool isSelected = false;
    bool isDisabled = false;
    bool isCollapsed = false;
    bool isExpanded = false; ///< it is said that the row is; without either it stays as it was
};

/// Texts are valid as long as this object. Any thread.
class guiPackedRows
{
public:
    /// Null when the text does not hold what it says. The text is kept as it is.
    static std::shared_ptr<guiPackedRows const> read(sstring packed);
    /// The same of a copy.
    static std::shared_ptr<guiPackedRows const> read(QString const& packed);

    unsigned count() const { return static_cast<unsigned>(m_states.size()); }
    /// How many texts each row has.
    unsigned textCount() const { return m_texts; }
    bool hasParents() const { return m_parents != 0; }
    bool hasLooks() const { return m_looks != 0; }
    guiPackedState state(unsigned row) const;
    QStringView value(unsigned row) const { return field(row, 0); }
    QStringView parent(unsigned row) const { return m_parents ? field(row, 1 + m_texts) : QStringView(); }
    QStringView icon(unsigned row) const { return m_icons ? field(row, 1 + m_texts + m_parents) : QStringView(); }
    /// See guilistlook.h; "" for a row that looks as usual.
    QStringView look(unsigned row) const
    {
        return m_looks ? field(row, 1 + m_texts + m_parents + m_icons) : QStringView();
    }
    QStringView text(unsigned row, unsigned column) const { return field(row, 1 + column); }

private:
    QStringView field(unsigned row, unsigned which) const;
    unsigned fields() const { return 1 + m_parents + m_icons + m_looks + m_texts; }
    bool readHead(QStringView& packed);
    bool readEnds(QStringView& packed);

    unsigned m_parents = 0; // 1 when each row has the value of its parent
    unsigned m_icons = 0;   // 1 when each row has the name of its icon
    unsigned m_looks = 0;   // 1 when each row has its look
    unsigned m_texts = 0;
    sstring m_packed;
    std::vector<std::uint8_t> m_states;
    std::vector<std::uint32_t> m_ends; // of each field of each row in m_text, in front of them a 0
    QStringView m_text;                // the fields, in m_packed
};

/// Puts rows into a text of the same form.
class guiRowPacker
{
public:
    /// Each row has so many texts, and if it `isWhole` the value of its parent, the name of an icon and its look.
    explicit guiRowPacker(unsigned texts, bool isWhole = true) : m_texts(texts), m_isWhole(isWhole) {}

    void addState(guiPackedState const& state);
    /// To be called for each field of each row, in their order.
    void addField(QStringView text);
    QString packed() const;

private:
    unsigned m_texts;
    bool m_isWhole;
    QString m_states;
    QString m_lengths;
    QString m_text;
};
