// script/guiwindow-paper.cpp: the methods of a window that put its page on paper.
#include "controls/guipdf.h"
#include "controls/guiscriptmethod.h"
#include "foundation/vela-qt.h"
#include "foundation/vela-threadrole.h"
#include "page/guinodewatch.h"
#include "runtime/guihtmlbase.h"
#include "script/guiwindow-methods.h"
#include "script/guiwindow.h"

#include <optional>

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
