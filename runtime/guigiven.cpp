// runtime/guigiven.cpp: see guigiven.h.
#include "runtime/guigiven.h"

#include "controls/guihtmlcontrol.h"
#include "page/guilinkname.h"
#include "runtime/gui.h"
#include "runtime/guihtmlbase.h"

#include <algorithm>
#include <unordered_map>

namespace {

using givenNodes = std::unordered_map<guiHtml*, guiGiven>;
using givenPages = std::unordered_map<guiHtml*, guiGivenPage>;

// GUI thread. Never destroyed, like the nodes that they are about.
givenNodes& theNodes()
{
    static auto& nodes = *new givenNodes;
    return nodes;
}

givenPages& thePages()
{
    static auto& pages = *new givenPages;
    return pages;
}

/// Nodes go without a word; their entries with the next page that is read.
void dropGone()
{
    auto const isGone = [](auto const& entry) { return !pGUI || !pGUI->contains(entry.first); };
    std::erase_if(theNodes(), isGone);
    std::erase_if(thePages(), isGone);
}

void noteNode(guiHtml* node) TARN_ON(velaGuiRole)
{
    if (node->getType() == guiHtml::kTypeText)
        return;
    theNodes().erase(node); // of another node that had the address
    auto* const control = dynamic_cast<guiHtmlControl*>(node);
    bool const isLoading = node->hasString(kStringSource);
    if (control || isLoading) {
        guiGiven& given = theNodes()[node];
        if (control)
            given.values = guiValuesOf(*control);
        sstring file;
        sstring bookmark;
        guiSplitBookmark(node->getString(kStringSource), file, bookmark);
        given.file = isLoading ? guiFullName(node, file) : sstring();
    }
    for (guiHtml* child : guiNodesOf(node))
        noteNode(child);
}

} // namespace

void guiGiven_note(guiHtmlBase& root, guiHtml* node)
{
    assertOnGuiThread();
    dropGone();
    if (node == &root) {
        thePages()[node].title = root.getTitle();
        theNodes().erase(node);
    }
    for (guiHtml* child : guiNodesOf(node))
        noteNode(child);
}

guiSaid& guiGiven_said(guiHtml* node)
{
    assertOnGuiThread();
    return theNodes()[node].said;
}

guiGiven const* guiGiven_of(guiHtml* node)
{
    assertOnGuiThread();
    auto const found = theNodes().find(node);
    return found == theNodes().end() ? nullptr : &found->second;
}

guiGivenPage const* guiGiven_pageOf(guiHtmlBase& root)
{
    assertOnGuiThread();
    auto const found = thePages().find(&root);
    return found == thePages().end() ? nullptr : &found->second;
}

void guiGiven_noteText(guiHtmlBase& root, std::optional<sstring> const& text, sstring const& directory)
{
    assertOnGuiThread();
    thePages()[&root].text = text;
    thePages()[&root].directory = directory;
}
