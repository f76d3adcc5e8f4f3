// runtime/guikeptpage.cpp: see guikeptpage.h.
#include "runtime/guikeptpage.h"

#include "controls/guihtmlcontrol.h"
#include "controls/guihtmlimage.h"
#include "page/guinodewatch.h"

#include <memory>
#include <utility>
#include <vector>

guiKeptPage::guiKeptPage(guiHtml* top)
{
    assertOnGuiThread();
    guiNodeKeys::walk(top, [this](guiHtml* node, guiNodeKey const& key) {
        assertOnGuiThread();
        keep(node, key);
    });
}

void guiKeptPage::keep(guiHtml* node, guiNodeKey const& key)
{
    part kept;
    guiGiven const* const given = guiGiven_of(node);
    if (auto* control = dynamic_cast<guiHtmlControl*>(node)) {
        kept.values.emplace(*control, given ? given->values : std::nullopt);
        if (!kept.values->isChanged())
            kept.values.reset();
    }
    kept.view.emplace(node);
    if (!kept.view->isMoved())
        kept.view.reset();
    bool const isFrame = key.kind && node->hasString(kStringFile);
    if (isFrame && given && !node->isString(kStringFile, given->file))
        kept.file = node->getString(kStringFile);
    if (given)
        kept.said = given->said;
    if (kept.values || kept.view || kept.file.getLength() != 0 || !kept.said.isSilent())
        m_parts.emplace(key, std::move(kept));
}

/// Calls `give(node, part)` for the nodes of which something was kept. It may make and destroy nodes.
template <typename Give>
void guiKeptPage::forEach(guiHtml* top, Give give) const
{
    if (m_parts.empty())
        return;
    std::vector<std::pair<std::unique_ptr<guiNodeWatch>, part const*>> found;
    guiNodeKeys::walk(top, [&](guiHtml* node, guiNodeKey const& key) {
        if (auto const kept = m_parts.find(key); kept != m_parts.end())
            found.emplace_back(std::make_unique<guiNodeWatch>(node), &kept->second);
    });
    for (auto const& [node, kept] : found)
        if (node->alive())
            give(node->get(), *kept);
}

/// What changes the content of elements comes first: there may be controls in it.
void guiKeptPage::givePages(guiHtml* top) const
{
    forEach(top, [](guiHtml* node, part const& kept) {
        assertOnGuiThread();
        bool const isOther = kept.file.getLength() != 0 && !node->isString(kStringFile, kept.file);
        if (kept.said.text && !dynamic_cast<guiHtmlControl*>(node))
            node->setText(*kept.said.text, sstring()); // said behind any file, which would have dropped it
        else if (isOther)
            node->loadFile(kept.file);
    });
}

void guiKeptPage::giveSaid(guiHtml* node, guiSaid const& said)
{
    guiNodeWatch const live(node);
    if (said.caption)
        node->setCaption(*said.caption);
    if (said.background)
        node->loadBackground(*said.background);
    if (auto* image = said.picture ? dynamic_cast<guiHtmlImage*>(node) : nullptr)
        image->setSource(*said.picture);
    if (said.enabled && live.alive())
        node->setEnabled(*said.enabled);
    if (live.alive())
        guiGiven_said(node) = said;
}

void guiKeptPage::giveValues(guiHtml* top) const
{
    assertOnGuiThread();
    guiNodeWatch const live(top);
    givePages(top);
    if (!live.alive())
        return;
    forEach(top, [](guiHtml* node, part const& kept) {
        assertOnGuiThread();
        guiNodeWatch const self(node);
        if (auto* control = kept.values ? dynamic_cast<guiHtmlControl*>(node) : nullptr)
            kept.values->giveTo(*control);
        if (self.alive() && !kept.said.isSilent())
            giveSaid(node, kept.said);
    });
}

void guiKeptPage::giveViews(guiHtml* top) const
{
    assertOnGuiThread();
    forEach(top, [](guiHtml* node, part const& kept) {
        assertOnGuiThread();
        if (kept.view)
            kept.view->giveTo(node);
    });
}
