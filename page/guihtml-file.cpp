// page/guihtml-file.cpp: fills nodes from files: pages, pictures, background images, and the files that `src`
// attributes name. guihtmlparser-load.cpp parses the text. Content filters are script: one may delete the node.
#include "foundation/vela-log.h"
#include "foundation/vela-threadrole.h"
#include "page/guiatplace.h"
#include "page/guihtml.h"
#include "page/guilayouthold.h"
#include "page/guilinkname.h"
#include "page/guinodewatch.h"
#include "page/guipagefile.h"
#include "page/guipagehost.h"
#include "page/guipageroot.h"

#include <QWidget>
#include <algorithm>

namespace {

/// Removes the content of a node, and the values of its controls from the form.
void empty(guiHtml* node)
{
    if (node->getChildCount() == 0)
        return; // a control has no content, and keeps its value
    guiNodeWatch self(node);
    if (guiPageRoot* root = node->getBaseHtml()) {
        root->endElements(node);
        if (!self.alive())
            return;
        root->eraseFormValues(node);
    }
    node->destroyChildren();
    if (!self.alive())
        return;
    node->resetScroll();
    node->updateLayout(1);
}

/// The text of a page that shows only one picture or movie.
sstring picturePage(sstring const& path)
{
    sstring name = path;
    name.replace(sstring("&"), sstring("&amp;"));
    name.replace(sstring("\""), sstring("&quot;"));
    return sstring("<img src=\"") + name + "\">";
}

/// The full name of a file to load. Links and `src` are relative to the page around the node; a file that script loads
/// into a window is relative to the script.
sstring nameToLoad(guiHtml* node, sstring const& file)
{
    if (node->getParent())
        return guiFullName(node, file);
    return guiPageHost::current().resolvePath(guiPageObjectOf(node), file);
}

bool isBlank(sstring const& text)
{
    unsigned short const* units = text.getUnicode();
    return std::all_of(units, units + text.getLength(), [](unsigned short unit) { return unit <= ' '; });
}

/// Nothing at all is no page for a window, as it is none for a new one; what is loaded into an element may be empty.
int loadPageFile(guiHtml* node, guiPageFile& file, guiNodeWatch const& self)
{
    if (!file.read(guiPageObjectOf(node)) || !file.filter(node->getBaseHtml()))
        return 0;
    guiPageOrigin const origin(file.path());
    if (self.alive() && (node->getParent() || !isBlank(file.text())) &&
        node->setText(file.text(), guiDirectoryOf(file.path())))
        return 1;
    return file.fail("apply content from");
}

/// When the page can not be loaded, the node is left empty.
int loadPage(guiHtml* node, sstring const& path)
{
    guiNodeWatch self(node);
    node->setString(kStringFile, path);
    node->setCurrentDirectory();
    guiPageFile file(path, "guiHtml::loadFile()", guiAtPlace::take());
    int const result = loadPageFile(node, file, self);
    if (!result && self.alive())
        empty(node);
    return result;
}

/// Whether one of the pages around the node was loaded from this file.
bool isWithin(guiHtml const* node, sstring const& path)
{
    for (guiHtml const* above = node->getParent(); above; above = above->getParent())
        if (above->hasString(kStringFile) && above->isString(kStringFile, path))
            return true;
    return false;
}

int loadWithin(guiLoadBudget const& budget, guiHtml* node, sstring const& file)
{
    sstring path = nameToLoad(node, file);
    if (!guiIsPageFile(path))
        return node->loadPicture(path);
    if (!budget.isExhausted())
        return loadPage(node, path);
    velaLog("guiHtml::loadFile() - %s is not loaded: too many pages within pages%s\n", velaPrintable(path).c_str(),
            guiAtPlace::text().c_str());
    return 0;
}

int loadInto(guiHtml* node, sstring const& file)
{
    guiLoadBudget budget;
    guiLayoutHold hold;
    int const result = loadWithin(budget, node, file);
    hold.release();
    return result;
}

/// Loads the file that a `src` attribute names, unless that would nest a page in itself without end.
int loadSource(guiHtml* node, sstring const& source)
{
    sstring path;
    sstring bookmark;
    guiSplitBookmark(source, path, bookmark);
    path = nameToLoad(node, path);
    if (!isWithin(node, path))
        return node->loadFile(source);
    velaLog("guiHtml::dynamicLoad() - %s is not loaded: it contains itself%s\n", velaPrintable(path).c_str(),
            guiAtPlace::text().c_str());
    return 0;
}

/// The background picture and the content that the node's attributes name.
int loadNamedFiles(guiHtml* node)
{
    guiNodeWatch const self(node);
    guiAtPlace const place(node->getString(kStringPlace));
    if (node->hasString(kStringBackground) && !node->isBackgroundLoaded())
        node->loadBackground(node->getString(kStringBackground));
    if (!self.alive() || !node->hasString(kStringSource))
        return 1;
    sstring const source = node->getString(kStringSource);
    node->setString(kStringSource, sstring());
    return loadSource(node, source);
}

} // namespace

int guiHtml::loadFile(sstring file)
{
    assertOnGuiThread();
    sstring name;
    sstring bookmark;
    guiSplitBookmark(file, name, bookmark);
    guiNodeWatch const root(getBaseHtml());
    guiNodeWatch const self(this);
    if (name.getLength() != 0 && !loadInto(this, name))
        return 0;
    if (bookmark.getLength() == 0 || !root.alive() || !self.alive())
        return name.getLength() != 0;
    QWidget const* const window = getTopLevelWidget();
    if (guiLayoutHold::isHeld() || !window || !window->isVisible())
        guiJumpLater(this, bookmark);
    if (guiLayoutHold::isHeld())
        return name.getLength() != 0;
    bool const isFound = guiJumpTo(this, bookmark);
    return name.getLength() != 0 || isFound;
}

int guiHtml::loadPicture(sstring const& path) { return setText(picturePage(path), guiDirectoryOf(path)); }

int guiHtml::loadBackground(sstring file)
{
    assertOnGuiThread();
    guiNodeWatch self(this);
    sstring const path = guiFullName(this, file);
    guiPictureRef const picture = guiPageHost::current().readImage(guiPageObjectOf(this), path);
    if (!picture || !self.alive())
        return 0;
    setString(kStringBackground, file);
    setBackgroundPicture(picture);
    update();
    return 1;
}

// Stores the name; dynamicLoad() reads the file.
int guiHtml::setBackgroundImage(sstring const& file)
{
    setString(kStringBackground, file);
    clearBackgroundPicture();
    return 1;
}

int guiHtml::dynamicLoad()
{
    assertOnGuiThread();
    guiNodeWatch self(this);
    int result = loadNamedFiles(this);
    for (unsigned i = 0; self.alive() && i < getChildCount(); ++i)
        if (guiChildList::isNode(getChild(i)) && !getChild(i)->dynamicLoad())
            result = 0;
    return result;
}

// A library must not change the process's working directory, so the node's file gets its full name, and names in the
// page are completed with its directory.
void guiHtml::setCurrentDirectory()
{
    if (hasString(kStringFile))
        setString(kStringFile, nameToLoad(this, getString(kStringFile)));
}
