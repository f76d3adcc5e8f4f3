// runtime/guikeptfocus.cpp: see guikeptfocus.h.
#include "runtime/guikeptfocus.h"

#include "controls/guiwidget.h"
#include "page/guihtmltext.h"
#include "page/guipagetext.h"
#include "page/guitextspot.h"
#include "runtime/guihtmlbase.h"

#include <QGuiApplication>
#include <QInputMethod>
#include <vector>

namespace {

/// Calls `visit(run)` for each run of text, in the order of the page, until that returns true.
template <typename Visit>
bool visitRuns(guiHtml* node, Visit& visit)
{
    if (node->getType() == guiHtml::kTypeText && visit(static_cast<guiHtmlText*>(node)))
        return true;
    for (guiHtml* child : guiNodesOf(node))
        if (visitRuns(child, visit))
            return true;
    return false;
}

/// The same for each link.
template <typename Visit>
bool visitLinks(guiHtml* node, Visit& visit)
{
    std::vector<unsigned> places;
    node->findLinks(places);
    for (unsigned const place : places)
        if (visit(guiLinkPlace{node, place}))
            return true;
    for (guiHtml* child : guiNodesOf(node))
        if (visitLinks(child, visit))
            return true;
    return false;
}

} // namespace

void guiKeptFocus::endComposing(guiHtmlBase& root)
{
    assertOnGuiThread();
    QWidget const* const focused = root.getWidget() ? root.getWidget()->focusWidget() : nullptr;
    if (focused && focused->hasFocus())
        QGuiApplication::inputMethod()->commit();
}

guiKeptFocus::guiKeptFocus(guiHtmlBase& root)
{
    assertOnGuiThread();
    guiWidget* const window = root.getWidget();
    if (!window)
        return;
    readSelection(root);
    QWidget* const focused = window->focusWidget();
    guiHtml const* const node = focused && focused != window ? root.findWidget(focused) : nullptr;
    guiNodeKeys::walk(&root, [&](guiHtml const* each, guiNodeKey const& key) {
        if (each == node)
            m_control = key;
    });
    if (!node)
        readLink(root);
    if (node)
        window->setFocus(Qt::OtherFocusReason);
}

void guiKeptFocus::readLink(guiHtmlBase& root)
{
    std::optional<guiLinkPlace> const link = root.getWidget()->currentLink().get();
    if (!link)
        return;
    words kept{link->node->getLinkText(link->place)};
    auto const visit = [&](guiLinkPlace const& each) {
        if (each == *link)
            return true;
        if (each.node->getLinkText(each.place) == kept.text)
            ++kept.nth;
        return false;
    };
    if (visitLinks(&root, visit))
        m_link = kept;
}

guiKeptFocus::words guiKeptFocus::wordsOf(guiHtmlBase& root, guiTextSpot const& spot)
{
    words kept{spot.run->getRunText(), 0, spot.unit};
    auto const visit = [&](guiHtmlText const* each) {
        if (each != spot.run && each->getRunText() == kept.text)
            ++kept.nth;
        return each == spot.run;
    };
    visitRuns(&root, visit);
    return kept;
}

guiTextSpot guiKeptFocus::spotOf(guiHtmlBase& root, words const& wanted)
{
    guiTextSpot found;
    unsigned nth = 0;
    auto const visit = [&](guiHtmlText* each) {
        if (each->getRunText() == wanted.text && nth++ == wanted.nth)
            found = {each, wanted.unit};
        return static_cast<bool>(found);
    };
    visitRuns(&root, visit);
    return found;
}

void guiKeptFocus::readSelection(guiHtmlBase& root)
{
    guiPageText* const text = root.pageText();
    if (!text || text->selection.isEmpty())
        return;
    m_from = wordsOf(root, text->selection.starting());
    m_to = wordsOf(root, text->selection.moving());
}

void guiKeptFocus::giveLink(guiHtmlBase& root) const
{
    std::optional<guiLinkPlace> found;
    unsigned nth = 0;
    auto const visit = [&](guiLinkPlace const& each) {
        if (each.node->getLinkText(each.place) == m_link->text && nth++ == m_link->nth)
            found = each;
        return found.has_value();
    };
    if (visitLinks(&root, visit))
        root.getWidget()->currentLink().take(*found, Qt::OtherFocusReason);
}

void guiKeptFocus::giveTo(guiHtmlBase& root) const
{
    assertOnGuiThread();
    if (!root.getWidget())
        return;
    if (m_from && m_to) {
        guiTextSpot const from = spotOf(root, *m_from);
        guiTextSpot const to = spotOf(root, *m_to);
        if (from && to)
            root.ensurePageText().selection.select(from, to);
    }
    if (m_link)
        giveLink(root);
    if (!m_control)
        return;
    guiHtml* node = nullptr;
    guiNodeKeys::walk(&root, [&](guiHtml* each, guiNodeKey const& key) {
        if (key == *m_control)
            node = each;
    });
    if (node && node->awaitsWidget())
        node->createChildWidget();
    if (QWidget* const widget = node ? node->getChildWidget() : nullptr)
        widget->setFocus(Qt::OtherFocusReason);
}
