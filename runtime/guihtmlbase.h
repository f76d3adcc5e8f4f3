// runtime/guihtmlbase.h: the root node of one window's page. It holds what belongs to the window rather than to any
// element, and makes and destroys the top-level widget that shows the page.
#pragma once

#include "foundation/vela-threadrole.h"
#include "page/guipageroot.h"
#include "runtime/guiformvalues.h"
#include "script/hostinterface.h"

#include <QPointer>
#include <atomic>
#include <cassert>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

class guiWidget;
class QAbstractButton;
class QButtonGroup;
class QMenuBar;

/// Window style bits, see createWidget().
enum guiWindowStyle : unsigned
{
    guiStyleMinimize = 0x01,
    guiStyleMaximize = 0x02,
    guiStyleSystemMenu = 0x04,
    guiStyleContextHelp = 0x08,
    guiStyleSystemMenuOnly = 0x10,
    guiStyleStaysOnTop = 0x20,
    guiStyleDialogBorder = 0x40,
    guiStyleTitle = 0x80,
};

/// The page root. May outlive its widget and be opened again. Whatever uses the widget runs on the GUI thread; setters
/// that only store a value may run on any thread while the window is closed.
class guiHtmlBase : public guiPageRoot
{
public:
    /// Size in pixels of a window for which neither page nor script asks for one.
    static constexpr int kDefaultWidth = 480;
    static constexpr int kDefaultHeight = 240;

    /// `page` is the window's script object, `data` its private slot, `form` its form object (none owned; all may be
    /// null for a page without script). `path`: full name of the page's file, "" when it has none.
    guiHtmlBase(ScriptObject* page, ScriptPrivate* data, ScriptObject* form, sstring const& path);
    /// Waits until no call into script made for this page is in flight.
    ~guiHtmlBase() override;
    /// Closes the window and deletes its page: at once or, while a call into script made for the page is in flight, at
    /// the end of that call, which may be the one that led here. Script's objects are not used any more after this. GUI
    /// thread; `root` may be null.
    static void release(guiHtmlBase* root);
    /// Whether release() was called: the page has no window and no script any more. Any thread.
    bool isReleased() const override { return m_isReleased; }
    /// The root of the node's window, null for a node outside one. Every window's root is of this class.
    static guiHtmlBase* of(guiHtml* node) { return from(node->getBaseHtml()); }
    /// A page's root as one of this class; null for null.
    static guiHtmlBase* from(guiPageRoot* root)
    {
        assert(!root || dynamic_cast<guiHtmlBase*>(root));
        return static_cast<guiHtmlBase*>(root);
    }

    ScriptObject* getPageObject() const override { return m_page; }
    ScriptPrivate* getPagePrivate() const { return m_pagePrivate; }
    ScriptObject* getFormObject() const { return m_form; }

    /// The window's widget, made on the first call, laid out and sized but not shown. It is modal if `modal` is not 0
    /// and the application has an active window. GUI thread.
    guiWidget* createWidget(int modal);
    /// Destroys the widget, if there is one, as soon as it is not painting. The node under the pointer is told that the
    /// pointer leaves it; after that no handler is called for the window any more. GUI thread.
    void destroyWidget() override;
    bool mayClose() override;
    /// The widget, null while the window is closed. Any thread may compare it; only the GUI thread uses it.
    guiWidget* getWidget() const { return m_widget.load(std::memory_order_acquire); }
    bool isOpen() const { return getWidget() != nullptr; }

    void setTitle(sstring const& title) override;
    sstring getTitle() const;
    /// The picture that stands for the window: a file, named as the page names files. Until script says so it is the
    /// one that the page names; "" for none.
    void setIcon(sstring const& file);
    /// Limits and default size in pixels. A 0 keeps the old value.
    void setMinimumSize(int width, int height) override;
    void setMaximumSize(int width, int height) override;
    void setDefaultSize(int width, int height) override;
    /// 0 fixes the window at its default size, which is derived from the limits when it is not set.
    void setResizable(int resizable) override;
    int getMinimumWidth() const { return m_minimumWidth; }
    int getDefaultWidth() const { return m_defaultWidth != 0 ? m_defaultWidth : kDefaultWidth; }
    int getMaximumWidth() const { return m_maximumWidth; }
    int getMinimumHeight() const { return m_minimumHeight; }
    int getDefaultHeight() const { return m_defaultHeight != 0 ? m_defaultHeight : kDefaultHeight; }
    int getMaximumHeight() const { return m_maximumHeight; }
    void setStyle(unsigned bits) { m_style = bits; }
    unsigned getStyle() const { return m_style; }

    /// Names of the controls that Enter and Escape trigger. "X" closes the window.
    void setEnterControl(sstring const& name);
    void setEscapeControl(sstring const& name) { m_escapeControl = name; }
    sstring getEnterControl() const override { return m_enterControl; }
    sstring getEscapeControl() const override { return m_escapeControl; }

    /// Name of the node whose widget has the keyboard focus in this window, "" when none has.
    sstring getFocus();
    /// Gives the focus to the named control, as soon as it exists.
    void setFocus(sstring name) override;
    sstring getPendingFocus() const override { return m_pendingFocus; }

    /// What show() gives back to script: a value owned by this page, null without a page object.
    void setReturnCode(ScriptValue& value);
    ScriptValue* getReturnCode() const { return m_returnCode; }

    /// Radio buttons of one group name exclude each other.
    void addToGroup(QAbstractButton* button, sstring const& group) override;

    /// The values of the page's controls, as they travel to script and back. GUI thread.
    guiFormValues& formValues() TARN_PROVES(velaGuiRole)
    {
        assertOnGuiThread();
        return m_formValues;
    }
    void eraseFormValues(guiHtml* node) override { formValues().erase(node); }
    void loadFormValues(guiHtml* node) override;
    void startElements(guiHtml* node) override;
    void endElements(guiHtml* node) override;

    /// Height in pixels of the window's menu bar, 0 without one.
    int getMenuHeight() override;
    /// The menu bar that stands above the page, not owned; null: none any more.
    void setMenuBar(QMenuBar* bar) override;
    QMenuBar* getMenuBar() const override;
    void setStatusBar(QWidget* bar) override;
    QWidget* getStatusBar() const override;
    int getStatusHeight() override;
    void setFindBar(QWidget* bar) override;
    /// The strip that says what is wrong with the page's file, not owned; null: nothing.
    void setProblemStrip(QWidget* strip);
    /// Before and after a call into script made for this page: the page and the component stay alive in between. A
    /// surplus shutdownLeave() does nothing. Any thread.
    void shutdownEnter();
    void shutdownLeave();
    /// Waits as long as it takes until no such call is in flight. Any thread.
    void shutdownWait();

    /// Whether the window's last page could be read and shown; false before the first, and while a page that could not
    /// has left the window empty.
    bool hasPage() const { return m_hasPage; }
    void setHasPage(bool has) { m_hasPage = has; }
    int loadFile(sstring file) override;
    int setText(sstring const& content, sstring const& directory) override;

    using guiHtml::operator=;
    QWidget* getTopLevelWidget() override;
    /// The font that all others of the page derive from: the toolkit's default face, as large on every screen; with
    /// the system font asked for, the application's font as it is.
    QFont getDefaultFont(int* points) override;
    int onEnter() override;
    int onEscape() override;

private:
    guiWidget* widgetToUse() const;
    void applyLimits(QWidget* widget) const;
    void showIcon();
    bool isCalling() const;
    void forgetPromises(bool withWindow);
    int triggerNamed(sstring const& name);

    sstring m_title;
    std::optional<sstring> m_icon; // none: as the page says
    sstring m_escapeControl;
    sstring m_enterControl;
    ScriptObject* m_page;
    ScriptPrivate* m_pagePrivate;
    ScriptObject* m_form;
    ScriptEngine* m_engine = nullptr; // of the page object; not owned
    std::atomic<bool> m_isReleased{false};
    std::atomic<guiWidget*> m_widget{nullptr}; // owned
    QPointer<QMenuBar> m_menuBar;              // not owned
    QPointer<QWidget> m_statusBar;             // not owned
    QPointer<QWidget> m_findBar;               // not owned; null while it is hidden
    QPointer<QWidget> m_problemStrip;          // the same
    int m_minimumWidth = 0;
    int m_defaultWidth = 0; // 0: nobody has set it yet, kDefaultWidth counts
    int m_maximumWidth = 0;
    int m_minimumHeight = 0;
    int m_defaultHeight = 0; // 0: nobody has set it yet, kDefaultHeight counts
    int m_maximumHeight = 0;
    unsigned m_style = 0x87;
    ScriptValue* m_returnCode = nullptr;
    std::vector<std::pair<sstring, std::unique_ptr<QButtonGroup>>> m_groups; // GUI thread
    unsigned m_shutdownCount = 0;                                            // guarded by the component lock
    sstring m_pendingFocus;
    bool m_hasPage = false; // GUI thread
    guiFormValues m_formValues{*this};
};

/// A call into script made for a page: keeps the page and the component alive as long as it exists. Any thread.
class guiPageInCall
{
public:
    explicit guiPageInCall(guiHtmlBase& root) : m_root(root) { m_root.shutdownEnter(); }
    ~guiPageInCall() { m_root.shutdownLeave(); }
    guiPageInCall(guiPageInCall const&) = delete;
    guiPageInCall& operator=(guiPageInCall const&) = delete;

private:
    guiHtmlBase& m_root;
};
