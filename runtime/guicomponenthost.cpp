// runtime/guicomponenthost.cpp: see guicomponenthost.h.
#include "runtime/guicomponenthost.h"

#include "controls/guiimagec.h"
#include "foundation/vela-error.h"
#include "foundation/vela-textstream.h"
#include "page/guipagehost.h"
#include "runtime/gui.h"
#include "runtime/guicallback.h"
#include "runtime/guifilter.h"
#include "runtime/guihtmlbase.h"
#include "script/guiwindow.h"

#include <QPixmap>
#include <memory>

namespace {

constexpr unsigned kPathUnits = 1024; // room for a full name, which the host may write in place

/// Script learns which control it is called for.
void chooseControl(guiHtml* node, sstring const& event)
{
    guiHtmlBase* root = node->getBaseHtml();
    if (root && node->getType() == guiHtml::kTypeControl && node->hasString(kStringName) &&
        guiCallback_ShouldDisable(event))
        guiWindow_chooseControl(root->getPagePrivate(), node->getName());
}

ScriptObject* pageOf(guiHtmlBase* root) { return root ? root->getPageObject() : nullptr; }

class componentHost : public guiPageHost
{
public:
    int callHandler(guiHtml* node, ScriptObject* target, sstring const& event, sstring& reply) override
    {
        if (!target->hasMethod(guiCallback_StripEventName(event)))
            return 0;
        chooseControl(node, event);
        reply = guiCallback_CallEvent(node, target, event, pGUI->getSession());
        return 1;
    }

    sstring resolvePath(guiHtmlBase* root, sstring const& path) override
    {
        sstring full = path;
        full.setSize(kPathUnits);
        pGUI->getLoadFile()->resolvePath(pageOf(root), full);
        return full;
    }

    int readText(guiHtmlBase* root, sstring const& path, sstring& text) override
    {
        try {
            std::unique_ptr<textstream> stream(pGUI->loadTextStream(pageOf(root), path));
            if (!stream)
                return 0;
            text = stream->toString();
            return 1;
        } catch (velaError const&) {
            return 0; // no memory for it
        }
    }

    int filterText(guiHtmlBase* root, sstring& name, sstring& text) override
    {
        ScriptObject* page = pageOf(root);
        return guiFilter_load(page, name, text, page, root ? root->getFormObject() : nullptr);
    }

    int readImage(guiHtmlBase* root, sstring const& path, QPixmap& image) override
    {
        return guiLoadImage(pageOf(root), path, image);
    }
};

} // namespace

void guiComponentHost_install()
{
    static componentHost host;
    guiPageHost::install(&host);
}
