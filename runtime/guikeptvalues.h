// runtime/guikeptvalues.h: the values of a control, as the page gave them and as they are now, and carrying those that
// user or script have changed over to the control that stands in its place when the page has been read anew.
#pragma once

#include "foundation/vela-threadrole.h"

#include <QString>
#include <cstddef>
#include <memory>
#include <optional>

class guiHtmlControl;
class guiListSource;

/// What a control holds. Rows of lists are known by a checksum.
struct guiControlValues
{
    QString text;            ///< the value or caption; of a list that can be typed into, what stands there
    QString selected;        ///< of lists: packed values
    QString checked;         ///< the same of the rows that are checked
    std::size_t rows = 0;    ///< of their values, texts, icons and looks
    std::size_t columns = 0; ///< of the headings
    bool isOn = false;       ///< of check boxes, radio buttons and what unfolds

    bool operator==(guiControlValues const&) const = default;
};

/// Reads them; changes nothing. GUI thread.
guiControlValues guiValuesOf(guiHtmlControl& control) TARN_ON(velaGuiRole);

/// The values of one control that are worth keeping. GUI thread.
class guiKeptValues
{
public:
    /// `given`: what the page gave; none when that is not known, and all counts as changed then.
    guiKeptValues(guiHtmlControl& control, std::optional<guiControlValues> const& given) TARN_ON(velaGuiRole);

    /// Whether there is anything to carry over.
    bool isChanged() const { return m_isChanged; }
    /// Gives what was changed to the control of the same name and kind, which has no widget yet. Calls no handler
    /// itself, but the control may follow links.
    void giveTo(guiHtmlControl& control) const TARN_ON(velaGuiRole);

private:
    void keepRows(guiHtmlControl& control) TARN_ON(velaGuiRole);
    bool hasOther(QString guiControlValues::*part) const;
    void giveText(guiHtmlControl& control) const TARN_ON(velaGuiRole);
    template <typename List>
    void giveSelection(List& list) const TARN_ON(velaGuiRole);
    bool givesRows(std::size_t there) const;
    bool giveToButton(guiHtmlControl& control) const TARN_ON(velaGuiRole);
    bool giveToList(guiHtmlControl& control) const TARN_ON(velaGuiRole);
    bool giveToFlex(guiHtmlControl& control) const TARN_ON(velaGuiRole);

    guiControlValues m_now;
    std::optional<guiControlValues> m_given;
    bool m_isChanged = false;
    QString m_rows;                          // packed, when they are others than the page's
    QString m_columns;                       // the same
    QString m_folded;                        // packed values of the rows that are not unfolded
    std::shared_ptr<guiListSource> m_source; // null unless rows come on demand
    int m_sortColumn = 0;
    bool m_isDescending = false;
};
