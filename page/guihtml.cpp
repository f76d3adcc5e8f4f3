// page/guihtml.cpp: makes, copies and destroys nodes, and gives the answers of a plain node.
#include "page/guihtml.h"

#include "foundation/hashlist.h"
#include "foundation/vela-log.h"
#include "foundation/vela-threadrole.h"
#include "page/guifontepoch.h"
#include "page/guihtml-rare.h"
#include "page/guinodewatch.h"
#include "page/guipagehost.h"
#include "page/guipageroot.h"
#include "page/guipagesurface.h"

#include <QPainterPath>
#include <QScrollBar>

#include <atomic>
#include <cassert>
#include <vector>

namespace {

std::atomic<hashlist<guiHtml>*> theRegistry{nullptr};
std::atomic<unsigned long> theGeneration{1};

void enterRegistry(guiHtml* node)
{
    theGeneration.fetch_add(1, std::memory_order_relaxed);
    if (hashlist<guiHtml>* registry = theRegistry.load(std::memory_order_acquire))
        registry->insert(node);
}

void leaveRegistry(guiHtml* node)
{
    theGeneration.fetch_add(1, std::memory_order_relaxed);
    if (hashlist<guiHtml>* registry = theRegistry.load(std::memory_order_acquire)) {
        assert(registry->size() != 0);
        registry->remove(node);
    }
}

} // namespace

void guiHtml::setRegistry(hashlist<guiHtml>* registry) { theRegistry.store(registry, std::memory_order_release); }

bool guiHtml::isRegistered(guiHtml const* node)
{
    hashlist<guiHtml>* registry = theRegistry.load(std::memory_order_acquire);
    return node && registry && registry->contains(node);
}

unsigned long guiHtml::generation() { return theGeneration.load(std::memory_order_relaxed); }

guiHtml::guiHtml(guiHtml* parent)
{
    enterRegistry(this);
    if (!parent)
        return;
    assertOnGuiThread();
    m.parent = parent;
    m.textColor = parent->m.textColor;
    m.linkColor = parent->m.linkColor;
    m.activeLinkColor = parent->m.activeLinkColor;
    m.givenColors = parent->m.givenColors;
    m.useSystemFont = parent->m.useSystemFont;
    m.spacious = parent->m.spacious;
    guiPageRoot* root = parent->getBaseHtml();
    if (root && root->getPageObject())
        guiHtml::buildCustomObject_script();
}

guiHtml::guiHtml(guiHtml const& other)
{
    enterRegistry(this);
    copyFrom(other);
}

guiHtml::~guiHtml()
{
    guiNodeWatch::nodeDestroyed(this);
    if (m.hasListener && s_endListener)
        s_endListener(this);
    guiHtml::destroyChildWidget();
    releaseNodes(m.children, this);
    assert(getChildCount() == 0);
    if (m.object)
        guiPageHost::current().unbindObject(m.object, this);
    leaveRegistry(this);
}

guiHtml& guiHtml::operator=(guiHtml& other)
{
    if (&other != this)
        copyFrom(other);
    return *this;
}

QPainterPath guiHtml::getLinkOutline(unsigned) { return {}; }

guiHtml* guiHtml::Clone(guiHtml* parent) { return guiCloneNode(*this, parent); }

void guiHtml::setParent(guiHtml* parent)
{
    assertOnGuiThread();
    assert(parent != this);
    m.parent = parent;
    guiFontEpoch::advance();
}

void guiHtml::copyFrom(guiHtml const& other)
{
    assertOnGuiThread();
    assert(&other != this);
    guiFontEpoch::advance();
    destroyChildren();
    destroyScrollBars();
    fields_t& fields = m;
    fields = other.m;
    m.layout = guiLayoutMemo();
    m.hasListener = 0;
    m.children = other.m.children;
    m.rare = other.m.rare ? std::make_unique<rare_t>(*other.m.rare) : nullptr;
    m.object = other.m.object.load();
    assert(getChildCount() == other.getChildCount());
    assert(!getScroll().barX && !getScroll().barY);
}

// Leaves go first, so that the nodes above are whole while a node is destroyed; no recursion, since trees may be deep.
// The last child goes before the first: the registry finds the newest nodes fastest.
void guiHtml::destroyTree(guiHtml* node)
{
    struct level
    {
        guiHtml* node;
        unsigned left; // children not destroyed yet
    };
    auto levelOf = [](guiHtml* at) { return level{at, at->m.children.isShared() ? 0 : at->getChildCount()}; };

    assert(guiChildList::isNode(node));
    std::vector<level> path{levelOf(node)};
    while (!path.empty()) {
        level& top = path.back();
        if (top.left == 0) {
            guiHtml* done = top.node;
            path.pop_back();
            delete done;
            continue;
        }
        guiHtml* entry = top.node->m.children[--top.left];
        top.node->m.children.set(top.left, nullptr);
        if (guiChildList::isNode(entry))
            path.push_back(levelOf(entry));
    }
}

/// Destroys the nodes of a list, or, when another node shares it, only makes them forget `owner`.
void guiHtml::releaseNodes(guiChildList& list, guiHtml* owner)
{
    guiFontEpoch::advance();
    bool isShared = list.isShared();
    for (unsigned i = list.size(); i-- > 0;) {
        guiHtml* entry = list[i];
        if (!guiChildList::isNode(entry))
            continue;
        assert(isShared || !entry->m.parent || entry->m.parent == owner);
        if (!isShared)
            destroyTree(entry);
        else if (entry->m.parent == owner)
            entry->m.parent = nullptr;
    }
    list.clear();
}

// Destroying a widget may run script, which may change or delete this node.
void guiHtml::destroyChildren()
{
    assertOnGuiThread();
    guiChildList doomed = m.children;
    m.children.clear();
    if (!doomed.isShared()) {
        guiNodeWatch self(this);
        for (guiHtml* entry : doomed)
            if (guiChildList::isNode(entry))
                entry->destroyChildWidget();
        if (!self.alive())
            for (guiHtml* entry : doomed)
                if (guiChildList::isNode(entry))
                    entry->m.parent = nullptr;
    }
    releaseNodes(doomed, this);
}

/// Before this node appends to a list that it shares, and so becomes its only owner.
void guiHtml::takeOverChildren()
{
    if (!m.children.isShared())
        return;
    for (guiHtml* child : guiNodesOf(this))
        child->setParent(this);
}

guiHtml* guiHtml::append(guiHtml* child)
{
    assertOnGuiThread();
    assert(guiChildList::isNode(child) && child != this && child != m.parent);
    takeOverChildren();
    child->setParent(this);
    m.children.append(child);
    assert(!m.children.isShared() && getChild(getChildCount() - 1) == child);
    return child;
}

void guiHtml::appendMarker(guiMarker marker)
{
    assertOnGuiThread();
    takeOverChildren();
    m.children.append(guiChildList::fromMarker(marker));
}

sstring guiHtml::getName() { return getString(kStringName); }

ScriptObject* guiHtml::getCustomObject() { return m.object; }

void guiHtml::buildCustomObject_script()
{
    if (!guiPageHost::current().buildCustomObject(this))
        velaLog("BuildCustomObject failed for 0x%08lX!\n", reinterpret_cast<unsigned long>(this));
}

void guiHtml::setEnabled(int enabled)
{
    m.enabled = enabled > 0;
    for (guiHtml* child : guiNodesOf(this))
        child->setEnabled(enabled);
}

void guiHtml::setUseSystemFont(int use)
{
    m.useSystemFont = use != 0;
    for (guiHtml* child : guiNodesOf(this))
        child->setUseSystemFont(use);
}

void guiHtml::setCaption(sstring const& caption)
{
    setString(kStringCaption, caption);
    updateLayout(1);
}

void guiHtml::setSizePolicy(guiSizePolicy policy)
{
    m.scrollMode = policy;
    reconsiderScrollBars();
}

void guiHtml::setCurrent() { m.current = 1; }

void guiHtml::onShow()
{
    for (guiHtml* child : guiNodesOf(this))
        child->onShow();
}

void guiHtml::readFormProperty(ScriptObject* form)
{
    for (guiHtml* child : guiNodesOf(this))
        child->readFormProperty(form);
}

void guiHtml::writeFormProperty(ScriptObject* form)
{
    for (guiHtml* child : guiNodesOf(this))
        child->writeFormProperty(form);
}

void guiHtml::eraseFormProperty(ScriptObject* form)
{
    for (guiHtml* child : guiNodesOf(this))
        child->eraseFormProperty(form);
}

void guiHtml::triggerNow() {}

QWidget* guiHtml::getChildWidget() { return nullptr; }

void guiHtml::createChildWidget() {}

void guiHtml::destroyChildWidget()
{
    assertOnGuiThread();
    destroyScrollBars();
    guiPageSurface::nodeLosesWidget(this);
    if (m.children.isShared() || getChildCount() == 0)
        return;
    guiNodeWatch self(this);
    for (unsigned i = 0; self.alive() && i < getChildCount(); ++i)
        if (guiChildList::isNode(getChild(i)))
            getChild(i)->destroyChildWidget();
}
