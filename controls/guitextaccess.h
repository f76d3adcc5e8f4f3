// controls/guitextaccess.h: what a screen reader sees of a run of text: its words, letter by letter, and its links.
#pragma once

#include "controls/guinodeaccess.h"

#include <utility>

class guiHtmlText;

/// Has no name, which would be read beside the text. Offsets count 16-bit units of the words; any are allowed. GUI
/// thread.
class guiTextAccess : public guiNodeAccess, public QAccessibleTextInterface
{
public:
    explicit guiTextAccess(guiHtmlText* run);

    void* interface_cast(QAccessible::InterfaceType type) override;

    void selection(int index, int* start, int* end) const override;
    int selectionCount() const override { return 0; }
    void addSelection(int, int) override {}
    void removeSelection(int) override {}
    void setSelection(int, int, int) override {}
    int cursorPosition() const override { return 0; }
    void setCursorPosition(int) override {}
    using guiNodeAccess::text;
    QString text(int start, int end) const override;
    QString textBeforeOffset(int offset, QAccessible::TextBoundaryType kind, int* start, int* end) const override;
    QString textAfterOffset(int offset, QAccessible::TextBoundaryType kind, int* start, int* end) const override;
    QString textAtOffset(int offset, QAccessible::TextBoundaryType kind, int* start, int* end) const override;
    int characterCount() const override;
    QRect characterRect(int offset) const override;
    int offsetAtPoint(QPoint const& point) const override;
    void scrollToSubstring(int start, int end) override;
    QString attributes(int offset, int* start, int* end) const override;

private:
    bool isOffset(int offset) const { return offset >= 0 && offset <= characterCount(); }
    std::pair<int, int> spanAt(int offset, QAccessible::TextBoundaryType kind) const;
    QString give(std::pair<int, int> const& span, int* start, int* end) const;

    guiHtmlText* const m_run; // not owned
};
