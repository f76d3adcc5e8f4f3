// script/guiwindow-paper.cpp: the methods of a window that put its page on paper.
#include "controls/guipdf.h"
#include "controls/guiprinting.h"
#include "controls/guiscriptmethod.h"
#include "controls/guiscriptvalue.h"
#include "controls/guiwidget.h"
#include "foundation/vela-qt.h"
#include "foundation/vela-threadrole.h"
#include "page/guinodewatch.h"
#include "runtime/gui.h"
#include "runtime/guihtmlbase.h"
#include "runtime/guiscriptwork.h"
#include "runtime/guithread.h"
#include "script/guianswer.h"
#include "script/guiwindow-methods.h"
#include "script/guiwindow.h"

#include <memory>
#include <optional>
#include <vector>

namespace {

/// Where the arguments of writePdf stand.
enum : int
{
    kPath,
    kWidth,
    kHeight,
    kTop,
    kRight,
    kBottom,
    kLeft,
    kHeader,
    kFooter = kHeader + 3,
    kCount = kFooter + 3,
};

guiPaperLine lineOf(ScriptArgs& args, int from)
{
    auto const text = [&args](int at) { return sstoq(guiTextOf(args, at)); };
    return {text(from), text(from + 1), text(from + 2)};
}

/// None for arguments of another number or kind, and for paper without room.
std::optional<guiPaper> paperOf(ScriptArgs& args)
{
    if (args.count() != kCount || !guiIsString(args, kPath))
        return std::nullopt;
    for (int i = kWidth; i < kCount; ++i)
        if (!(i < kHeader ? guiIsNumber(args, i) : guiIsString(args, i)))
            return std::nullopt;
    auto const number = [&args](int at) { return args.get(at)->toNumber(0); };
    guiPaper paper;
    paper.size = {number(kWidth), number(kHeight)};
    paper.margins = {number(kLeft), number(kTop), number(kRight), number(kBottom)};
    paper.header = lineOf(args, kHeader);
    paper.footer = lineOf(args, kFooter);
    return paper.isUsable() ? std::optional(paper) : std::nullopt;
}

/// A page that is in no window has one for this moment, which is never shown.
class windowForPaper
{
public:
    explicit windowForPaper(guiHtmlBase& root) : m_root(&root), m_isOwn(!root.isOpen())
    {
        assertOnGuiThread();
        if (m_isOwn)
            root.createWidget(0);
    }
    ~windowForPaper()
    {
        assertOnGuiThread();
        auto* const root = static_cast<guiHtmlBase*>(m_root.get());
        if (m_isOwn && root)
            root->destroyWidget();
    }
    windowForPaper(windowForPaper const&) = delete;
    windowForPaper& operator=(windowForPaper const&) = delete;

private:
    guiNodeWatch m_root;
    bool m_isOwn;
};

} // namespace

namespace {

/// "" when the page is printed, else why it is not; nothing at all when the user has cancelled.
using printAnswer = std::vector<sstring>;

printAnswer printOn(guiHtmlBase* root, TarnPrintout const& printout)
{
    assertOnGuiThread();
    if (!root)
        return {sstring("the window has no page")};
    windowForPaper const window(*root);
    return {qtoss(guiPrintPage(*root, sstoq(root->getTitle()), printout))};
}

/// Asks for a printer, and gives the answer when the page is printed or is not to be. The window's object is kept until
/// then.
void print(std::shared_ptr<ScriptObject> const& window, std::shared_ptr<ScriptObject> const& done)
{
    assertOnGuiThread();
    auto const rootOf = [window] { return GetWindow(guiWindow_getData(window->getPrivate())); };
    guiHtmlBase* const root = rootOf();
    if (!root)
        return guiGiveAnswer(done, {sstring("the window has no page")});
    pGUI->getThread()->forceEnable();
    auto const answered = [rootOf, done](TarnPrintout const* printout) {
        guiGiveAnswer(done, printout ? printOn(rootOf(), *printout) : printAnswer());
    };
    QString const why = guiAskPrinter(root->getWidget(), sstoq(root->getTitle()), answered);
    if (!why.isEmpty())
        guiGiveAnswer(done, {qtoss(why)});
}

} // namespace

// A function, which is called with "" when the page is printed, with the reason when it is not, and without an argument
// when the user has cancelled.
void guiWindow_startPrint_script(LibManager&, ScriptPrivate*, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    assertOnScriptThread();
    result.setBool(0);
    if (args.count() != 1 || !args.get(0)->isFunction())
        return;
    std::shared_ptr<ScriptObject> const window = guiKept(self);
    std::shared_ptr<ScriptObject> const done = guiKept(args.get(0)->toObject(0));
    guiScriptWork_postToGui([window, done] { print(window, done); });
    result.setBool(1);
}

// A path, the paper's width and height, the margins at the top, right, bottom and left, all in millimetres, and the
// left, middle and right part of the lines above and below the page. "" or why there is no such file; null for other
// arguments, and without a page.
void guiWindow_writePdf_qt(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs& args, ScriptValue& result)
{
    assertOnGuiThread();
    result.setNull();
    guiHtmlBase* root = GetWindow(guiWindow_getData(data));
    std::optional<guiPaper> paper = root ? paperOf(args) : std::nullopt;
    if (!paper)
        return;
    windowForPaper const window(*root);
    paper->title = sstoq(root->getTitle());
    result.setString(qtoss(guiWritePdf(*root, *paper, sstoq(guiTextOf(args, kPath)))));
}
