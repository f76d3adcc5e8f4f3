// page/guihtml-file.cpp: gives nodes the content of files: pages, pictures, background images, and what `src`
// attributes name. Parsing is guihtml-load.cpp's. A content filter is a script: after it has run, the node may be gone.
#include "controls/guihtmlimage.h"
#include "page/guihtml.h"
#include "page/guihtmlservices.h"
#include "page/guilayouthold.h"
#include "page/guilinkname.h"
#include "page/guinodewatch.h"
#include "page/guipagehost.h"
#include "runtime/gui.h"
#include "runtime/guihtmlbase.h"

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
    guiServices::eraseFormValues(node);
    node->destroyChildren();
    if (!self.alive())
        return;
    node->resetScroll();
    node->updateLayout(1);
}

/// Logs what went wrong with a file, and leaves the node empty, if there still is one. The result is that of a failed
/// load.
int failed(guiNodeWatch const& node, char const* what, sstring const& path)
{
    guiComponent::logError("guiHtml::loadFile() - failed to %s %s\n", what, guiComponent::printable(path).c_str());
    if (node.alive())
        empty(node.get());
    return 0;
}

/// A page that holds nothing but one picture or movie.
sstring picturePage(sstring const& path)
{
    sstring name = path;
    name.replace(sstring("&"), sstring("&amp;"));
    name.replace(sstring("\""), sstring("&quot;"));
    return sstring("<img src=\"") + name + "\">";
}

int loadPicture(guiHtml* node, sstring const& path)
{
    if (auto* image = dynamic_cast<guiHtmlImage*>(node)) {
        image->setSource(path);
        return 1;
    }
    return node->setText(picturePage(path), guiDirectoryOf(path));
}

/// The name to load: links and `src` are relative to the page around the node, what script loads into a window to the
/// script.
sstring nameToLoad(guiHtml* node, sstring const& file)
{
    if (node->getParent())
        return guiFullName(node, file);
    guiPageHost* host = guiPageHost::current();
    return host ? host->resolvePath(node->getBaseHtml(), file) : file;
}

int loadPage(guiHtml* node, sstring path)
{
    guiPageHost* host = guiPageHost::current();
    guiHtmlBase* root = node->getBaseHtml();
    guiNodeWatch self(node);
    node->setString(kStringFile, path);
    node->setCurrentDirectory();
    sstring text;
    if (!host || !host->readText(root, path, text))
        return failed(self, "load file", path);
    if (!host->filterText(root, path, text))
        return failed(self, "filter file", path);
    if (!self.alive() || !node->setText(text, guiDirectoryOf(path)))
        return failed(self, "apply content from", path);
    return 1;
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
        return loadPicture(node, path);
    if (!budget.isExhausted())
        return loadPage(node, path);
    guiComponent::logError("guiHtml::loadFile() - %s is not loaded: too many pages within pages\n",
                           guiComponent::printable(path).c_str());
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
    guiComponent::logError("guiHtml::dynamicLoad() - %s is not loaded: it contains itself\n",
                           guiComponent::printable(path).c_str());
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

int guiHtml::loadBackground(sstring file)
{
    guiPageHost* host = guiPageHost::current();
    QPixmap image;
    guiNodeWatch self(this);
    if (!host || !host->readImage(getBaseHtml(), guiFullName(this, file), image) || !self.alive())
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
