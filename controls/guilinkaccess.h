// controls/guilinkaccess.h: what a screen reader sees of a link, and what it can have done: to press it, to go there.
#pragma once

#include "controls/guicurrentlink.h"

#include <QAccessible>

/// Lives no longer than the link's node (guipageaccess.h). GUI thread.
class guiLinkAccess : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    explicit guiLinkAccess(guiLinkPlace const& link);
    ~guiLinkAccess() override;

    guiLinkPlace const& link() const { return m_link; }

    bool isValid() const override;
    QObject* object() const override { return nullptr; }
    QWindow* window() const override;
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(QAccessibleInterface const*) const override { return -1; }
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text, QString const&) override {}
    QRect rect() const override;
    QAccessible::Role role() const override { return QAccessible::Link; }
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QStringList actionNames() const override;
    void doAction(QString const& name) override;
    QStringList keyBindingsForAction(QString const&) const override { return {}; }

private:
    guiLinkPlace const m_link;
};

// What a screen reader asks for is done soon, as if the user had done it: not while input is dropped, nor behind a
// modal window, and not once the node is gone.

/// Makes the link the current one, and follows it if `follow`. Script may run.
void guiPostToLink(guiLinkPlace const& link, bool follow);
/// Gives the keyboard to a control, which gets its widget, and presses it if `press`. Script may run.
void guiPostToControl(guiHtml* control, bool press);
/// Scrolls a part of a node into view.
void guiPostScroll(guiHtml* node, QRect const& part);
