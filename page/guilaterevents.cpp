// page/guilaterevents.cpp: see guilaterevents.h.
#include "page/guilaterevents.h"

#include "page/guihtml.h"
#include "page/guinodewatch.h"

#include <QCoreApplication>
#include <memory>

namespace {

thread_local unsigned theDepth = 0;

guiHtml* rootOf(guiHtml* node)
{
    while (node->getParent())
        node = node->getParent();
    return node;
}

} // namespace

guiLaterEvents::guiLaterEvents() { ++theDepth; }
guiLaterEvents::~guiLaterEvents() { --theDepth; }

bool guiLaterEvents::take(guiHtml* node, sstring const& link)
{
    if (theDepth == 0)
        return false;
    guiHtml* root = rootOf(node);
    if (root == node || !QCoreApplication::instance())
        return true; // nobody is left to hear it
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
