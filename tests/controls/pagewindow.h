// tests/controls/pagewindow.h: a window of the component without the window runtime: its widget, and a root that does
// what controls and windows ask of theirs; and a canvas to paint nodes on.
#pragma once

#include "controls/guiwidget.h"
#include "page/guihtmlsize.h"
#include "page/guinodewatch.h"
#include "tests/support/canvas.h"
#include "tests/support/testroot.h"
#include "tests/support/windowof.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QMenuBar>
#include <QPointer>
#include <map>
#include <memory>
#include <string>

/// A page root that can have a window, groups of radio buttons, a menu bar, and a control with the focus.
class WindowRoot : public TestRoot
{
public:
    using TestRoot::TestRoot;
    using TestRoot::operator=;
    ~WindowRoot() override { destroyChildren(); }

    QWidget* getTopLevelWidget() override { return m_widget; }
    guiWidget* getWidget() const { return m_widget; }
    bool isOpen() const { return m_widget != nullptr; }

    guiWidget* createWidget(int)
    {
        if (m_widget)
            return m_widget;
        m_widget = new guiWidget(nullptr, "window", 0, Qt::Window);
        m_widget->htmlBase = this;
        updateLayout(0);
        m_widget->resize(480, 240);
        return m_widget;
    }

    // The node under the pointer hears that it is left, and what it does may end the window or the page.
    void destroyWidget() override
    {
        guiWidget* widget = m_widget;
        if (!widget)
            return;
        guiNodeWatch self(this);
        widget->refresh();
        if (!self.alive() || m_widget != widget)
            return;
        destroyChildWidget();
        m_widget = nullptr;
        guiLayoutRun::startAnew();
        widget->deleteWhenSafe();
    }

    void addToGroup(QAbstractButton* button, sstring const& group) override
    {
        auto& buttons = m_groups[QString::fromUtf8(group.c_str()).toLower().toStdString()];
        if (!buttons)
            buttons = std::make_unique<QButtonGroup>();
        buttons->addButton(button);
    }

    void setMenuBar(QMenuBar* bar) override { m_menuBar = bar; }
    QMenuBar* getMenuBar() const override { return m_menuBar; }
    int getMenuHeight() override { return m_menuBar ? m_menuBar->sizeHint().height() : 0; }

    void setFindBar(QWidget* bar) override { m_findBar = bar; }
    int getStatusHeight() override { return m_findBar ? m_findBar->sizeHint().height() : 0; }

    sstring getPendingFocus() const override { return m_pendingFocus; }
    void setFocus(sstring name) override
    {
        m_pendingFocus = name;
        guiHtml* node = name.getLength() != 0 ? getNamed(name) : nullptr;
        if (node && node->awaitsWidget())
            node->createChildWidget();
        QWidget* control = node ? node->getChildWidget() : nullptr;
        if (!control)
            return;
        control->setFocus();
        m_pendingFocus = sstring();
    }
    /// Name of the node whose widget has the focus in this window, "" when none has.
    sstring getFocus()
    {
        QWidget* focused = m_widget ? m_widget->focusWidget() : nullptr;
        guiHtml* node = focused ? findWidget(focused) : nullptr;
        return node ? node->getName() : sstring();
    }

    // The root uses these keys up.
    int onEnter() override { return 1; }
    int onEscape() override { return 1; }

private:
    guiWidget* m_widget = nullptr; // deletes itself when it is safe
    std::map<std::string, std::unique_ptr<QButtonGroup>> m_groups;
    QPointer<QMenuBar> m_menuBar; // not owned
    QPointer<QWidget> m_findBar;  // not owned
    sstring m_pendingFocus;
};

using PageWindow = WindowOf<WindowRoot>;
