// page/guihtmlsize-layers.cpp: see guihtmlsize-layers.h.
#include "page/guihtmlsize-layers.h"

#include <cassert>

namespace {

bool isParagraph(guiHtml* entry) { return guiChildList::toMarker(entry) == kMarkerParagraph; }

void applyAlignment(guiHtml* entry, guiAlignment* align)
{
    switch (guiChildList::toMarker(entry)) {
    case kMarkerAlignLeft:
        *align = kAlignLeft;
        break;
    case kMarkerAlignCenter:
        *align = kAlignCenter;
        break;
    case kMarkerAlignRight:
        *align = kAlignRight;
        break;
    default:
        break;
    }
}

template <typename T>
void assign(T* to, T value)
{
    if (to)
        *to = value;
}

} // namespace

int guiHtml::findLayer(unsigned* pos, unsigned* first, unsigned* count, int* endsParagraph, guiAlignment* align)
{
    unsigned const size = getChildCount();
    unsigned at = *pos;
    if (align && at == 0)
        *align = m.alignX;
    while (at < size && !guiChildList::isNode(getChild(at)) && !isParagraph(getChild(at))) {
        if (align)
            applyAlignment(getChild(at), align);
        ++at;
    }
    *pos = at;
    if (at >= size)
        return 0;
    while (at < size && guiChildList::isNode(getChild(at)))
        ++at;
    bool const ends = at < size && isParagraph(getChild(at));
    assert(at > *pos || isParagraph(getChild(at)));
    assign(first, *pos);
    assign(count, at - *pos);
    assign(endsParagraph, ends ? 1 : 0);
    *pos = ends ? at + 1 : at;
    return 1;
}
