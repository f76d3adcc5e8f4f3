// page/guilaterevents.cpp: see guilaterevents.h.
#include "page/guilaterevents.h"

#include "foundation/vela-threadrole.h"
#include "page/guihtml.h"
#include "page/guinodewatch.h"

#include <QCoreApplication>
#include <cassert>
#include <memory>

namespace {

unsigned theDepth TARN_GUARDED_BY(velaGuiRole) = 0;

guiHtml* rootOf(guiHtml* node)
{
    while (node->getParent())
        node = node->getParent();
    return node;
}

} // namespace

guiLaterEvents::guiLaterEvents()
{
    assertOnGuiThread();
    ++theDepth;
}

guiLaterEvents::~guiLaterEvents()
{
    assertOnGuiThread();
    assert(theDepth > 0);
    --theDepth;
}

bool guiLaterEvents::isActive()
{
    assertOnGuiThread();
    return theDepth > 0;
}

bool guiLaterEvents::take(guiHtml* node, sstring const& link)
{
    assertOnGuiThread();
    if (theDepth == 0)
        return false;
    guiHtml* root = rootOf(node);
    if (root == node || !QCoreApplication::instance())
        return true; // no page is left to receive it
    auto page = std::make_shared<guiNodeWatch>(root);
    QMetaObject::invokeMethod(
        QCoreApplication::instance(),
        [page, link] {
            if (guiHtml* alive = page->get())
                alive->onEvent(link, nullptr);
        },
        Qt::QueuedConnection);
    return true;
}
