// runtime/guikeptview.h: where the user was in one node of a page: how far it is scrolled, where the cursor of a field
// stands, which row of a list is at the top.
#pragma once

#include "foundation/vela-threadrole.h"

#include <QString>
#include <optional>

class guiHtml;

/// GUI thread.
class guiKeptView
{
public:
    explicit guiKeptView(guiHtml* node) TARN_ON(velaGuiRole);

    /// Whether there is anything to restore.
    bool isMoved() const { return m_scrollX || m_scrollY || m_field || m_list; }
    /// To be called when the node has been laid out. A cursor goes back only into the text in which it was.
    void giveTo(guiHtml* node) const TARN_ON(velaGuiRole);

private:
    /// Of fields, in units of their text, and of text areas, in what their scroll bars count.
    struct fieldView
    {
        QString text;
        int anchor = 0;
        int cursor = 0;
        int top = 0;
        int left = 0;
    };
    /// Of lists: rows by value, or what the scroll bar counts.
    struct listView
    {
        QString top;
        QString current;
        int bar = 0;
    };

    void readField(guiHtml* node);
    void readList(guiHtml* node) TARN_ON(velaGuiRole);
    void giveField(guiHtml* node) const;
    void giveList(guiHtml* node) const TARN_ON(velaGuiRole);

    unsigned m_scrollX = 0;
    unsigned m_scrollY = 0;
    std::optional<fieldView> m_field;
    std::optional<listView> m_list;
};
