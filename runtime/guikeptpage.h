// runtime/guikeptpage.h: what is kept of a page, or of a part of one, while it is read anew from its file: values that
// user or script have changed, what the user has scrolled to, which pages frames have been led to.
#pragma once

#include "foundation/vela-threadrole.h"
#include "runtime/guigiven.h"
#include "runtime/guikeptvalues.h"
#include "runtime/guikeptview.h"
#include "runtime/guinodekeys.h"

#include <optional>
#include <unordered_map>

/// Elements are found again by kind, name and order (guinodekeys.h); what was kept of those that are gone is dropped.
/// GUI thread.
class guiKeptPage
{
public:
    /// `top`: the root of a window, or the node that the page was loaded into.
    explicit guiKeptPage(guiHtml* top) TARN_ON(velaGuiRole);

    /// Before the new content is laid out, so that its controls have no widgets yet. May run script, as far as pages
    /// are loaded.
    void giveValues(guiHtml* top) const TARN_ON(velaGuiRole);
    /// Afterwards.
    void giveViews(guiHtml* top) const TARN_ON(velaGuiRole);

private:
    struct part
    {
        std::optional<guiKeptValues> values;
        std::optional<guiKeptView> view;
        guiSaid said;
        sstring file; // that the node was led to; "": the one that the page loads into it
    };

    void keep(guiHtml* node, guiNodeKey const& key) TARN_ON(velaGuiRole);
    void givePages(guiHtml* top) const TARN_ON(velaGuiRole);
    static void giveSaid(guiHtml* node, guiSaid const& said) TARN_ON(velaGuiRole);
    template <typename Give>
    void forEach(guiHtml* top, Give give) const;

    std::unordered_map<guiNodeKey, part, guiNodeKeyHash> m_parts;
};
