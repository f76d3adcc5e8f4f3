// page/guipagesurface.cpp: see guipagesurface.h.
#include "page/guipagesurface.h"

#include "page/guihtml.h"

#include <QWidget>
#include <algorithm>
#include <vector>

namespace {

std::vector<guiPageSurface*> theSurfaces; // GUI thread; not owned

} // namespace

guiPageSurface::guiPageSurface() { theSurfaces.push_back(this); }
guiPageSurface::~guiPageSurface() { std::erase(theSurfaces, this); }

guiPageSurface* guiPageSurface::of(guiHtml* node) { return dynamic_cast<guiPageSurface*>(node->getTopLevelWidget()); }

void guiPageSurface::nodeLosesWidget(guiHtml* node)
{
    auto hovers = [node](guiPageSurface const* surface) { return surface->isHovering(node); };
    auto found = std::find_if(theSurfaces.begin(), theSurfaces.end(), hovers);
    if (found != theSurfaces.end())
        (*found)->onHtmlDestroy(node);
}
