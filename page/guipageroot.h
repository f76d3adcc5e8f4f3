// page/guipageroot.h: the root of a page, the node that stands for the whole window. The window runtime derives its
// root from this (runtime/guihtmlbase.h); a page without a window gets the default answers here.
#pragma once

#include "page/guihandlerplaces.h"
#include "page/guihtml.h"

#include <algorithm>
#include <memory>

class QAbstractButton;
class QMenuBar;
class QWidget;
class guiPageText;

/// The topmost node of a page. GUI thread.
class guiPageRoot : public guiHtml
{
public:
    guiPageRoot() = default;

    using guiHtml::operator=;
    int getType() override { return kTypeBase; }
    /// This node, or, for a page inside another one, the root of the outer page.
    guiPageRoot* getBaseHtml() override { return getParent() ? getParent()->getBaseHtml() : this; }

    /// The window's script object, null for a page without script. Not owned.
    virtual ScriptObject* getPageObject() const { return nullptr; }
    /// Whether the page has lost its window and its script for good, and only waits to be deleted.
    virtual bool isReleased() const { return false; }

    /// What the page is shown larger or smaller by, in percent (guizoom.h).
    unsigned getZoom() const { return m.zoom; }

    // ---- Properties of the window that a page sets; sizes in pixels, 0 keeps the old value ----

    virtual void setTitle(sstring const&) {}
    virtual void setMinimumSize(int, int) {}
    virtual void setMaximumSize(int, int) {}
    virtual void setDefaultSize(int, int) {}
    virtual void setResizable(int) {}

    // ---- Controls ----

    /// Names of the controls that Enter and Escape trigger, "" without one.
    virtual sstring getEnterControl() const { return {}; }
    virtual sstring getEscapeControl() const { return {}; }
    /// Name of a control that gets the focus as soon as it exists, "" for none.
    virtual sstring getPendingFocus() const { return {}; }
    virtual void setFocus(sstring) {}
    /// Radio buttons of one group name exclude each other.
    virtual void addToGroup(QAbstractButton*, sstring const&) {}
    /// The menu bar above the page, not owned; null: none.
    virtual void setMenuBar(QMenuBar*) {}
    virtual QMenuBar* getMenuBar() const { return nullptr; }
    /// Height of the menu bar in pixels, 0 without one.
    virtual int getMenuHeight() { return 0; }
    /// The status line below the page, not owned; null: none.
    virtual void setStatusBar(QWidget*) {}
    virtual QWidget* getStatusBar() const { return nullptr; }
    /// Height of the status line and of the find bar in pixels, 0 without them.
    virtual int getStatusHeight() { return 0; }
    /// The bar above the status line in which the user looks for a text, not owned; null: none is open.
    virtual void setFindBar(QWidget*) {}
    /// Called before the controls at and below the node are destroyed: removes their values from the form object.
    virtual void eraseFormValues(guiHtml*) {}
    /// Called for new controls at and below the node: gives them the values that the form object holds.
    virtual void loadFormValues(guiHtml*) {}
    /// Called when content at and below the node is complete: makes the script components of its custom elements. Runs
    /// script.
    virtual void startElements(guiHtml*) {}
    /// Called before content at and below the node is destroyed: tells those components, and lets go of them. Runs
    /// script.
    virtual void endElements(guiHtml*) {}

    /// The user wants to close the window: false when the page keeps it open, for now or for good. Runs script.
    virtual bool mayClose() { return true; }
    /// Closes the window, if there is one.
    virtual void destroyWidget() {}

    /// Where the pages of the window name their handlers.
    guiHandlerPlaces& handlerPlaces() { return m_handlerPlaces; }

    /// What the user does with the page's text; null: nothing so far.
    guiPageText* pageText() const { return m_pageText.get(); }
    guiPageText& ensurePageText();
    /// Nothing is selected or found any more.
    void forgetPageText() { m_pageText.reset(); }

private:
    guiHandlerPlaces m_handlerPlaces;
    std::shared_ptr<guiPageText> m_pageText; // shared with nobody
};

/// The script object of the node's window, null outside a window and in one without script.
inline ScriptObject* guiPageObjectOf(guiHtml* node)
{
    guiPageRoot* root = node->getBaseHtml();
    return root ? root->getPageObject() : nullptr;
}

/// The height of the menu bar above the content of a root that has been laid out, in pixels; 0 for every other node.
inline int guiBarAbove(guiHtml* node)
{
    guiPageRoot* root = node->getType() == guiHtml::kTypeBase ? node->getBaseHtml() : nullptr;
    if (!root || !root->getMenuBar())
        return 0;
    int const height = std::max(0, node->m.rect.height - root->getStatusHeight());
    return height - static_cast<int>(std::min<unsigned>(node->m.activeCy, static_cast<unsigned>(height)));
}

/// The height of the status line below the content of a root, in pixels; 0 for every other node.
inline int guiBarBelow(guiHtml* node)
{
    guiPageRoot* root = node->getType() == guiHtml::kTypeBase ? node->getBaseHtml() : nullptr;
    return root ? root->getStatusHeight() : 0;
}

// ---- The place that "#name" behind a file's name means (guihtml-bookmark.cpp) ----

/// Scrolls the page, and what scrolls within it, so that the node with the bookmark is at the top. One in `within`
/// comes before others of that name in the page. False when there is none. GUI thread.
bool guiJumpTo(guiHtml* within, sstring const& bookmark) TARN_ON(velaGuiRole);
/// Does the same as soon as the page is laid out in a window that is shown. A later call for the same node counts.
void guiJumpLater(guiHtml* within, sstring const& bookmark) TARN_ON(velaGuiRole);
/// The page of this root has been laid out, or shown.
void guiDoJumps(guiHtml* root) TARN_ON(velaGuiRole);
