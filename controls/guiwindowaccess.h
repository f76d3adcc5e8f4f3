// controls/guiwindowaccess.h: what a screen reader sees of a window, and of the widgets that only clip controls.
#pragma once

#include "page/guihtml.h"

#include <QAccessibleWidget>
#include <QPointer>

class guiClipper;
class guiWidget;

/// A dialog, in which are the page, the menu bar and the status line; nothing of how they are put together. GUI thread.
class guiWindowAccess : public QAccessibleWidget
{
public:
    explicit guiWindowAccess(guiWidget* window);

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(QAccessibleInterface const* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;

private:
    QList<QAccessibleInterface*> children() const;

    QPointer<guiWidget> const m_window;
};

/// Stands for what is around a control, which the toolkit takes for the parent of the control's widget: so the way up
/// from there leads past the widget that clips it. GUI thread.
class guiClipAccess : public QAccessibleInterface
{
public:
    /// Not owned.
    explicit guiClipAccess(guiClipper* clipper);
    ~guiClipAccess() override;

    bool isValid() const override { return control() != nullptr; }
    QObject* object() const override;
    QWindow* window() const override;
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int index) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    int childCount() const override;
    int indexOfChild(QAccessibleInterface const* child) const override;
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text, QString const&) override {}
    QRect rect() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;

private:
    /// Null once the control has let go of the clip widget, or is in no window.
    guiHtml* control() const;
    QAccessibleInterface* around() const;

    QPointer<guiClipper> const m_clipper;
};
