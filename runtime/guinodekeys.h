// runtime/guinodekeys.h: what a node of a page is known by when the page has been read anew: its kind, its name, and
// which one of those with both it is.
#pragma once

#include "foundation/vela-qt.h"
#include "page/guihtml.h"

#include <QHash>
#include <QString>
#include <typeinfo>
#include <unordered_map>

/// Nodes without a name are told apart by their order alone.
struct guiNodeKey
{
    std::type_info const* kind = nullptr; ///< null: the node from which the walk started
    QString name;                         ///< in small letters; "" without one
    unsigned nth = 0;

    bool operator==(guiNodeKey const&) const = default;
};

struct guiNodeKeyHash
{
    std::size_t operator()(guiNodeKey const& key) const
    {
        return qHash(key.name, qHash(reinterpret_cast<quintptr>(key.kind), std::size_t{key.nth}));
    }
};

/// Gives keys to the nodes of one page, which have to come in the order of the page. GUI thread.
class guiNodeKeys
{
public:
    /// Calls `visit(node, key)` for the node and all below it, runs of text left out. Nothing may be made or destroyed
    /// meanwhile.
    template <typename Visit>
    static void walk(guiHtml* top, Visit visit)
    {
        guiNodeKeys keys;
        visit(top, guiNodeKey{});
        for (guiHtml* child : guiNodesOf(top))
            keys.walkBelow(child, visit);
    }

private:
    template <typename Visit>
    void walkBelow(guiHtml* node, Visit& visit)
    {
        if (node->getType() == guiHtml::kTypeText)
            return;
        visit(node, next(node));
        for (guiHtml* child : guiNodesOf(node))
            walkBelow(child, visit);
    }

    guiNodeKey next(guiHtml* node)
    {
        guiNodeKey key{&typeid(*node), node->hasString(kStringName) ? sstoq(node->getName()).toLower() : QString(), 0};
        key.nth = m_counts[key]++;
        return key;
    }

    std::unordered_map<guiNodeKey, unsigned, guiNodeKeyHash> m_counts; // by key, with `nth` 0
};
