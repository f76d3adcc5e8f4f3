// controls/guinodeaccess.h: what a screen reader sees of one node of a page that has no widget of its own.
#pragma once

#include "page/guihtml.h"

#include <QAccessible>
#include <cstdint>
#include <vector>

/// Lives no longer than its node (guipageaccess.h). Invalid while the node's page is in no window, and once the node
/// has a widget, which then stands for it. Whatever is asked, it answers; nothing that is asked runs script. GUI
/// thread.
class guiNodeAccess : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    /// `node` is not owned.
    explicit guiNodeAccess(guiHtml* node);
    ~guiNodeAccess() override;

    guiHtml* node() const { return m_node; }

    bool isValid() const override;
    QObject* object() const override { return nullptr; }
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
    void* interface_cast(QAccessible::InterfaceType type) override;

    // ---- What can be done ----

    /// With a control that awaits its widget, and with a picture that is a link.
    QStringList actionNames() const override;
    void doAction(QString const& name) override;
    QStringList keyBindingsForAction(QString const&) const override { return {}; }

private:
    std::vector<guiHtml*> const& nodes() const;
    std::vector<unsigned> links() const;
    bool isLink() const;

    guiHtml* const m_node; // not owned
    mutable std::vector<guiHtml*> m_nodes;
    mutable unsigned long m_generation = 0; // of m_nodes, see guiHtml::generation()
    mutable std::uint32_t m_layout = 0;     // and the number of the layout
};

/// The rectangle of a part of a node, relative to its corner, as far as the panes around it show it, in pixels of the
/// screen.
QRect guiRectOnScreen(guiHtml* node, QRect const& part);
/// What is known of the state of any part of a node: whether it can be used and be seen.
QAccessible::State guiStateOfPart(guiHtml* node, QRect const& onScreen);
