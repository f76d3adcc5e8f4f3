// page/guipagesurface.cpp: see guipagesurface.h.
#include "page/guipagesurface.h"

#include "foundation/vela-threadrole.h"
#include "page/guihtml.h"

#include <QWidget>
#include <algorithm>
#include <cassert>
#include <vector>

namespace {

using surfaceList = std::vector<guiPageSurface*>; // not owned

// Never destroyed: the GUI thread still runs while the process exits.
surfaceList& theSurfaces TARN_GUARDED_BY(velaGuiRole) = *new surfaceList;

} // namespace

guiPageSurface::guiPageSurface()
{
    assertOnGuiThread();
    assert(std::find(theSurfaces.begin(), theSurfaces.end(), this) == theSurfaces.end());
    theSurfaces.push_back(this);
}

guiPageSurface::~guiPageSurface()
{
    assertOnGuiThread();
    [[maybe_unused]] std::size_t const erased = std::erase(theSurfaces, this);
    assert(erased == 1);
}

guiPageSurface* guiPageSurface::of(guiHtml* node)
{
    assertOnGuiThread();
    return dynamic_cast<guiPageSurface*>(node->getTopLevelWidget());
}

void guiPageSurface::nodeLosesWidget(guiHtml* node)
{
    assertOnGuiThread();
    auto hovers = [node](guiPageSurface const* surface) { return surface->isHovering(node); };
    assert(std::count_if(theSurfaces.begin(), theSurfaces.end(), hovers) <= 1); // a node is in one window
    auto found = std::find_if(theSurfaces.begin(), theSurfaces.end(), hovers);
    if (found != theSurfaces.end())
        (*found)->onHtmlDestroy(node);
}
