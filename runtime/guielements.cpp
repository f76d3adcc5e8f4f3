// runtime/guielements.cpp: see guielements.h. Every step may run script, so elements are found first and watched.
#include "runtime/guielements.h"

#include "controls/guihtmlcustom.h"
#include "controls/guiwidget.h"
#include "foundation/vela-threadrole.h"
#include "page/guinodewatch.h"
#include "runtime/gui.h"
#include "runtime/guihtmlbase.h"
#include "runtime/guithread.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace {

using elementList = std::vector<std::unique_ptr<guiNodeWatch>>;

void collect(guiHtml* node, elementList& found)
{
    if (node->getType() == guiHtml::kTypeCustom)
        found.push_back(std::make_unique<guiNodeWatch>(node));
    for (guiHtml* child : guiNodesOf(node))
        collect(child, found);
}

/// In the order of the page.
elementList elementsOf(guiHtml* node)
{
    elementList found;
    if (guiHtmlCustom::count() != 0)
        collect(node, found);
    return found;
}

guiHtmlCustom* custom(std::unique_ptr<guiNodeWatch> const& watch) { return static_cast<guiHtmlCustom*>(watch->get()); }

bool isWaiting(elementList const& elements)
{
    return std::any_of(elements.begin(), elements.end(), [](auto const& watch) {
        guiHtmlCustom* element = custom(watch);
        return element && element->isDrawingAsked();
    });
}

void layOut(guiHtmlBase& root, guiWidget const& widget)
{
    guiRect rect{0, widget.width(), 0, widget.height()};
    root.setRect(&rect);
}

} // namespace

void guiElements_start(guiHtmlBase& root, guiHtml* node)
{
    assertOnGuiThread();
    if (!root.getPageObject())
        return;
    elementList elements = elementsOf(node);
    std::erase_if(elements, [](auto const& watch) { return custom(watch)->hasInstance(); });
    for (auto const& watch : elements)
        if (guiHtmlCustom* element = custom(watch))
            element->makeInstance();
    for (auto const& watch : elements)
        if (guiHtmlCustom* element = custom(watch); element && element->hasInstance())
            element->notifyOnCreate();
}

void guiElements_end(guiHtml* node)
{
    assertOnGuiThread();
    for (auto const& watch : elementsOf(node))
        if (guiHtmlCustom* element = custom(watch))
            element->endInstance();
}

void guiElements_drop(guiHtml* node)
{
    assertOnGuiThread();
    for (auto const& watch : elementsOf(node))
        custom(watch)->dropInstance();
}

bool guiElements_prepare(guiHtmlBase& root)
{
    assertOnGuiThread();
    if (root.isOpen())
        return true;
    guiNodeWatch const live(&root);
    guiElements_start(root, &root);
    return live.alive() && !root.isReleased();
}

bool guiElements_draw(guiHtmlBase& root)
{
    assertOnGuiThread();
    guiWidget* widget = root.getWidget();
    elementList const elements = elementsOf(&root);
    if (elements.empty() || widget->isVisible())
        return true;
    guiNodeWatch const live(&root);
    auto isOpen = [&] { return live.alive() && root.getWidget() == widget; };
    layOut(root, *widget);
    for (auto const& watch : elements)
        custom(watch)->askFirstDrawing();
    while (isOpen() && isWaiting(elements))
        pGUI->getThread()->pumpOnce();
    return isOpen();
}
