// controls/guipageaccess.cpp: see guipageaccess.h. The toolkit keeps the objects and gives each a number; here is
// written down which number is whose, so that those of a node are deleted before the node is.
#include "controls/guipageaccess.h"

#include "controls/guiaccessname.h"
#include "controls/guiclipper.h"
#include "controls/guilinkaccess.h"
#include "controls/guinodeaccess.h"
#include "controls/guipagelistener.h"
#include "controls/guitextaccess.h"
#include "controls/guiwidget.h"
#include "controls/guiwindowaccess.h"
#include "foundation/vela-threadrole.h"
#include "page/guihtmltext-places.h"
#include "page/guihtmltext.h"
#include "page/guipageroot.h"
#include "page/guirareattributes.h"

#include <QCoreApplication>
#include <algorithm>
#include <unordered_map>
#include <utility>

namespace {

struct knownObjects
{
    QAccessible::Id node = 0; // 0: none
    std::unordered_map<unsigned, QAccessible::Id> links;
};

// Never destroyed: nodes still go while the process exits.
std::unordered_map<guiHtml*, knownObjects>& known()
{
    assertOnGuiThread();
    static auto& all = *new std::unordered_map<guiHtml*, knownObjects>;
    return all;
}

void forget(guiHtml* node)
{
    auto const found = known().find(node);
    if (found == known().end())
        return;
    knownObjects const objects = std::move(found->second);
    known().erase(found);
    for (auto const& [place, id] : objects.links)
        QAccessible::deleteAccessibleInterface(id);
    if (objects.node != 0)
        QAccessible::deleteAccessibleInterface(objects.node);
}

void forgetAll()
{
    while (!known().empty())
        forget(known().begin()->first);
}

guiHtml* topOf(guiHtml* node)
{
    while (guiHtml* const parent = node->getParent())
        node = parent;
    return node;
}

/// The toolkit drops its list of objects with the application; ours go first.
void forgetWithApplication()
{
    static QPointer<QCoreApplication> watched;
    if (watched != qApp)
        qAddPostRoutine(forgetAll);
    watched = qApp;
}

knownObjects& noteNode(guiHtml* node)
{
    node->m.hasListener = 1;
    return known()[node];
}

/// For the toolkit, which owns what it is given.
QAccessibleInterface* makeObject(guiHtml* node)
{
    if (node->getType() == guiHtml::kTypeText)
        return new guiTextAccess(static_cast<guiHtmlText*>(node));
    return new guiNodeAccess(node);
}

/// The object with that number, or a new one, whose number is kept.
template <typename Make>
QAccessibleInterface* findOrMake(QAccessible::Id& id, Make make)
{
    if (QAccessibleInterface* const there = id != 0 ? QAccessible::accessibleInterface(id) : nullptr)
        return there;
    id = QAccessible::registerAccessibleInterface(make());
    forgetWithApplication();
    return QAccessible::accessibleInterface(id);
}

/// The toolkit asks for each class of the object, its own first; also where there is no reader, so the answer costs
/// nothing. Everything else is the toolkit's own.
QAccessibleInterface* makeForWidget(QString const& className, QObject* object)
{
    auto* const widget = qobject_cast<QWidget*>(object);
    if (!widget || className != QLatin1String(object->metaObject()->className()))
        return nullptr;
    if (auto* const window = qobject_cast<guiWidget*>(widget))
        return new guiWindowAccess(window);
    auto* const clipper = dynamic_cast<guiClipper*>(widget);
    return clipper ? new guiClipAccess(clipper) : nullptr;
}

bool hasNodes(guiHtml* node)
{
    guiNodesOf const below(node);
    return below.begin() != below.end();
}

bool showsWords(guiHtml* node) { return !guiPlainText(*static_cast<guiHtmlText*>(node)).trimmed().isEmpty(); }

/// alt="" says of a picture that it only decorates the page.
bool isDecoration(guiHtml* node)
{
    bool const hasNoWords = guiHasRareAttribute(node, guiRareAttribute::kAlt) &&
                            guiRareAttributeOf(node, guiRareAttribute::kAlt).getLength() == 0;
    std::vector<unsigned> links;
    node->findLinks(links);
    return hasNoWords && links.empty();
}

bool isRead(guiHtml* node)
{
    if (!node->m.visible || !node->isInLine())
        return false;
    switch (node->getType()) {
    case guiHtml::kTypeText:
        return showsWords(node);
    case guiHtml::kTypeImage:
        return !isDecoration(node);
    case guiHtml::kTypeControl:
        return node->getChildWidget() || node->awaitsWidget() || hasNodes(node);
    case guiHtml::kTypeCustom:
        return true;
    default:
        return hasNodes(node) || node->hasString(kStringCaption);
    }
}

QWidget* widgetToRead(guiHtml* node)
{
    return node->getType() == guiHtml::kTypeControl && !hasNodes(node) ? node->getChildWidget() : nullptr;
}

} // namespace

QAccessibleInterface* guiAccessOf(guiHtml* node)
{
    assertOnGuiThread();
    if (!node)
        return nullptr;
    if (QWidget* const widget = widgetToRead(node)) {
        guiNameWidget(node, widget);
        return QAccessible::queryAccessibleInterface(widget);
    }
    return findOrMake(noteNode(node).node, [node] { return makeObject(node); });
}

QAccessibleInterface* guiAccessOf(guiLinkPlace const& link)
{
    return findOrMake(noteNode(link.node).links[link.place], [&] { return new guiLinkAccess(link); });
}

QAccessibleInterface* guiAccessAround(guiHtml* node)
{
    if (node->getParent())
        return guiAccessOf(node->getParent());
    QWidget* const window = node->getTopLevelWidget();
    return window ? QAccessible::queryAccessibleInterface(window) : nullptr;
}

std::vector<guiHtml*> guiNodesToRead(guiHtml* node)
{
    std::vector<guiHtml*> nodes;
    for (guiHtml* child : guiNodesOf(node))
        if (isRead(child))
            nodes.push_back(child);
    return nodes;
}

bool guiIsAccessOf(QAccessibleInterface const* object, guiHtml* node)
{
    if (QWidget const* const widget = widgetToRead(node))
        return object->object() == widget;
    auto const* const own = dynamic_cast<guiNodeAccess const*>(object);
    return own && own->node() == node;
}

namespace {

std::function<void(QAccessibleEvent const& event)>& listener()
{
    static auto& kept = *new std::function<void(QAccessibleEvent const& event)>;
    return kept;
}

bool isAnyoneListening() { return listener() || QAccessible::isActive(); }

void tell(QAccessibleInterface* object, QAccessible::Event what)
{
    QAccessibleEvent event(object, what);
    if (listener())
        listener()(event);
    else
        QAccessible::updateAccessibility(&event);
}

} // namespace

void guiListenToPageAccess(std::function<void(QAccessibleEvent const& event)> heard)
{
    assertOnGuiThread();
    listener() = std::move(heard);
}

namespace {

/// Tells screen readers, if there are any.
class teller : public guiPageListener
{
public:
    void onNewContent(guiHtml* node) override
    {
        if (!isAnyoneListening() || !node->getTopLevelWidget())
            return;
        QAccessibleInterface* const object = guiAccessOf(node);
        tell(object, QAccessible::ObjectReorder);
        if (!node->getParent())
            tell(object, QAccessible::DocumentLoadComplete);
    }

    void onLinkFocus(guiLinkPlace const& link) override
    {
        if (isAnyoneListening())
            tell(guiAccessOf(link), QAccessible::Focus);
    }

    void onControlFocus(guiHtml* control) override
    {
        QWidget* const widget = control && QAccessible::isActive() ? widgetToRead(control) : nullptr;
        if (widget)
            guiNameWidget(control, widget);
    }

    /// The control's own object goes.
    void onWidget(guiHtml* control) override
    {
        if (control->m.hasListener)
            forget(control);
        onControlFocus(control);
    }

    void onUnbound(guiHtml* page) override
    {
        std::vector<guiHtml*> nodes;
        for (auto const& each : known())
            if (topOf(each.first) == page)
                nodes.push_back(each.first);
        for (guiHtml* node : nodes)
            forget(node);
    }
};

} // namespace

void guiOfferPageAccess()
{
    assertOnGuiThread();
    static teller reader;
    QAccessible::installFactory(makeForWidget); // which knows it only once
    guiHtml::setEndListener(forget);
    guiSetPageListener(&reader);
}
