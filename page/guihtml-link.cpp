// page/guihtml-link.cpp: follows links. A link that begins with "event://" calls a script handler, an address of the
// web or of mail is opened outside of the window, any other link loads a file into a node. A handler may replace the
// page or close the window, so after the call the node is used only if it is still alive.
#include "foundation/vela-log.h"
#include "foundation/vela-threadrole.h"
#include "page/guieventprefix.h"
#include "page/guihtml.h"
#include "page/guilinkname.h"
#include "page/guimissinghandler.h"
#include "page/guinodewatch.h"
#include "page/guipagehost.h"
#include "page/guipageroot.h"

namespace {

/// The name of the handler in a link, with its arguments; "" when the link calls no handler.
sstring eventIn(sstring const& link)
{
    unsigned at = link.find(sstring(kEventPrefix));
    return at == sstring::npos ? sstring() : link.subString(at + sizeof(kEventPrefix) - 1);
}

/// How many handlers of pages' own objects have been called; wraps around.
unsigned pageCalls TARN_GUARDED_BY(velaGuiRole) = 0;

/// Calls the handler on the given object or, if that has none of its name, on the page's. 0 when neither has one.
int callHandler(guiHtml* node, ScriptObject* object, sstring const& event, sstring const& frame, sstring& reply)
    TARN_ON(velaGuiRole)
{
    guiPageHost& host = guiPageHost::current();
    ScriptObject* const page = guiPageObjectOf(node);
    if (object && host.callLinkHandler(node, object, event, frame, reply))
        return 1;
    if (!page || page == object || !host.callLinkHandler(node, page, event, frame, reply))
        return 0;
    ++pageCalls;
    return 1;
}

guiHtml* nearestNamed(guiHtml* node)
{
    while (node && !node->hasString(kStringName))
        node = node->getParent();
    return node;
}

/// The frame that contains the node: a child of the nearest frameset above it, or the root without a frameset.
guiHtml* frameOf(guiHtml* node)
{
    guiHtml* at = node;
    while (at->getParent() && at->getParent()->getType() != guiHtml::kTypeFrameset)
        at = at->getParent();
    return at;
}

guiHtml* findTarget(guiHtml* node, sstring const& target)
{
    if (target == "_parent")
        return nearestNamed(node);
    guiPageRoot* root = node->getBaseHtml();
    if (target == "_top" || !root)
        return root;
    return target.getLength() != 0 && target != "_self" ? root->getNamed(target) : nullptr;
}

bool callsHandler(sstring const& link) { return link.find(sstring(kEventPrefix)) != sstring::npos; }

/// Loads the page or picture that the link names into its target.
int loadLink(guiHtml* node, sstring const& link, sstring const& target)
{
    bool isOwn = node->getType() == guiHtml::kTypeImage && (target.getLength() == 0 || target == "_self");
    guiHtml* into = isOwn ? node : findTarget(node, target);
    if (!into)
        into = frameOf(node);
    sstring file;
    sstring bookmark;
    guiSplitBookmark(link, file, bookmark);
    if (file.getLength() != 0)
        file = guiFullName(node, file);
    return into->loadFile(bookmark.getLength() != 0 ? file + "#" + bookmark : file);
}

} // namespace

int guiHtml::onEvent(sstring name, ScriptObject* object)
{
    assertOnGuiThread();
    guiNodeWatch self(this);
    ScriptObject* page = guiPageObjectOf(this);
    unsigned const before = pageCalls;
    if (onHyperlink(name, object))
        return 1;
    bool const wasAsked =
        pageCalls != before; // the page's handler: a reply that can not be followed does not call it again
    bool const hasOther = object && object != page && !wasAsked && callsHandler(guiDecodePercent(name));
    return hasOther && self.alive() ? onHyperlink(name, nullptr) : 0;
}

int guiHtml::onHyperlink(sstring link, ScriptObject* object)
{
    assertOnGuiThread();
    sstring target;
    sstring rest;
    guiSplitTarget(link, target, rest);
    if (guiKindOfLink(rest) == guiLinkKind::kOutside) // whose percent codes are not ours to decode
        return onHyperlinkFile(rest, target);
    guiSplitTarget(guiDecodePercent(link), target, rest);
    return callsHandler(rest) ? onHyperlinkAction(rest, target, object) : onHyperlinkFile(rest, target);
}

int guiHtml::onHyperlinkAction(sstring& link, sstring& target, ScriptObject* object)
{
    assertOnGuiThread();
    sstring event = eventIn(link);
    if (event.getLength() == 0)
        return 0;
    guiNodeWatch self(this);
    guiNodeWatch root(getBaseHtml());
    sstring reply;
    if (!callHandler(this, object, event, target, reply)) {
        guiPageRoot* page = self.alive() ? getBaseHtml() : nullptr;
        if (page && !page->isReleased())
            guiTellMissingHandler(page->handlerPlaces(), page->getPageObject(), object, event);
        return 0;
    }
    // When the handler deleted this node and returned the name of a file, the file is loaded into the window.
    auto* window = static_cast<guiPageRoot*>(root.get());
    guiHtml* from = self.alive() ? this : window;
    if (window && window->isReleased())
        return 1;
    return reply.getLength() != 0 && from ? from->onHyperlinkFile(reply, target) : 1;
}

int guiHtml::onHyperlinkFile(sstring& link, sstring& target)
{
    switch (guiKindOfLink(link)) {
    case guiLinkKind::kPage:
        return loadLink(this, link, target);
    case guiLinkKind::kOutside:
        return guiPageHost::current().openOutside(this, link);
    case guiLinkKind::kUnknown:
        break;
    }
    velaLog("guiHtml::onHyperlinkFile() - no page is opened by the scheme of %s\n", velaPrintable(link).c_str());
    return 0;
}
