// page/guihtml-file.cpp: gives nodes the content of files: pages, pictures, background images, and what `src`
// attributes name. Parsing is guihtml-load.cpp's. A content filter is a script: after it has run, the node may be gone.
#include "foundation/vela-log.h"
#include "page/guihtml.h"
#include "page/guilayouthold.h"
#include "page/guilinkname.h"
#include "page/guinodewatch.h"
#include "page/guipagefile.h"
#include "page/guipagehost.h"
#include "page/guipageroot.h"

#include <QPixmap>
#include <QScrollBar>
#include <QWidget>

namespace {

/// Takes the content out of a node, and what belonged to it out of the form.
void empty(guiHtml* node)
{
    if (node->getChildCount() == 0)
        return; // a control's value is none of its content
    guiNodeWatch self(node);
    if (guiPageRoot* root = node->getBaseHtml())
        root->eraseFormValues(node);
    node->destroyChildren();
    if (!self.alive())
        return;
    node->resetScroll();
    node->updateLayout(1);
}

/// A page that holds nothing but one picture or movie.
sstring picturePage(sstring const& path)
{
    sstring name = path;
    name.replace(sstring("&"), sstring("&amp;"));
    name.replace(sstring("\""), sstring("&quot;"));
    return sstring("<img src=\"") + name + "\">";
}

/// The name to load: links and `src` are relative to the page around the node, what script loads into a window to the
/// script.
sstring nameToLoad(guiHtml* node, sstring const& file)
{
    if (node->getParent())
        return guiFullName(node, file);
    return guiPageHost::current().resolvePath(guiPageObjectOf(node), file);
}

int loadPageFile(guiHtml* node, guiPageFile& file, guiNodeWatch const& self)
{
    if (!file.read(guiPageObjectOf(node)) || !file.filter(node->getBaseHtml()))
        return 0;
    if (self.alive() && node->setText(file.text(), guiDirectoryOf(file.path())))
        return 1;
    return file.fail("apply content from");
}

/// A page that can not be loaded leaves the node empty.
int loadPage(guiHtml* node, sstring const& path)
{
    guiNodeWatch self(node);
    node->setString(kStringFile, path);
    node->setCurrentDirectory();
    guiPageFile file(path, "guiHtml::loadFile()");
    int const result = loadPageFile(node, file, self);
    if (!result && self.alive())
        empty(node);
    return result;
}

/// Whether the file is what one of the pages around the node was loaded from.
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
    velaLog("guiHtml::loadFile() - %s is not loaded: too many pages within pages\n", velaPrintable(path).c_str());
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

/// Loads what a `src` attribute names, unless the page would contain itself without end.
int loadSource(guiHtml* node, sstring const& source)
{
    sstring path;
    sstring bookmark;
    guiSplitBookmark(source, path, bookmark);
    path = nameToLoad(node, path);
    if (!isWithin(node, path))
        return node->loadFile(source);
    velaLog("guiHtml::dynamicLoad() - %s is not loaded: it contains itself\n", velaPrintable(path).c_str());
    return 0;
}

/// Top of a node in the content of its root, wherever that is scrolled to.
int topInRoot(guiHtml const* node)
{
    int top = 0;
    for (; node->getParent(); node = node->getParent())
        top += node->m.rect.top;
    return top;
}

int scrollToBookmark(guiHtml* root, sstring const& bookmark)
{
    guiHtml* node = root->getBookmarked(bookmark);
    if (!node)
        return 0;
    if (!root->getScroll().barY)
        return 1;
    root->onScrollY(topInRoot(node));
    root->updateScrollbarRanges();
    root->update();
    return 1;
}

} // namespace

int guiHtml::loadFile(sstring file)
{
    sstring name;
    sstring bookmark;
    guiSplitBookmark(file, name, bookmark);
    guiNodeWatch root(getBaseHtml());
    if (name.getLength() != 0 && !loadInto(this, name))
        return 0;
    if (bookmark.getLength() == 0 || !root.alive() || guiLayoutHold::isHeld())
        return name.getLength() != 0;
    int found = scrollToBookmark(root.get(), bookmark);
    return name.getLength() != 0 || found;
}

int guiHtml::loadPicture(sstring const& path) { return setText(picturePage(path), guiDirectoryOf(path)); }

int guiHtml::loadBackground(sstring file)
{
    QPixmap image;
    guiNodeWatch self(this);
    sstring const path = guiFullName(this, file);
    if (!guiPageHost::current().readImage(guiPageObjectOf(this), path, image) || !self.alive())
        return 0;
    setString(kStringBackground, file);
    setBackgroundPixmap(image);
    update();
    return 1;
}

// Only names it: dynamicLoad() reads the file.
int guiHtml::setBackgroundImage(sstring const& file)
{
    setString(kStringBackground, file);
    clearBackgroundPixmap();
    return 1;
}

int guiHtml::dynamicLoad()
{
    guiNodeWatch self(this);
    int result = 1;
    if (hasString(kStringBackground) && !isBackgroundLoaded())
        loadBackground(getString(kStringBackground));
    if (self.alive() && hasString(kStringSource)) {
        sstring source = getString(kStringSource);
        setString(kStringSource, sstring());
        result = loadSource(this, source);
    }
    for (unsigned i = 0; self.alive() && i < getChildCount(); ++i)
        if (guiChildList::isNode(getChild(i)) && !getChild(i)->dynamicLoad())
            result = 0;
    return result;
}

// Nothing in a library may change the process's directory: the names in a page are completed with that of its file
// instead.
void guiHtml::setCurrentDirectory()
{
    if (hasString(kStringFile))
        setString(kStringFile, nameToLoad(this, getString(kStringFile)));
}
