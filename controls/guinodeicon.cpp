// controls/guinodeicon.cpp: see guinodeicon.h.
#include "controls/guinodeicon.h"

#include "page/guiatplace.h"
#include "page/guihtml.h"
#include "page/guilinkname.h"
#include "page/guipagehost.h"
#include "page/guipageroot.h"

QIcon guiIconOfNode(guiHtml* node, sstring const& file, int pixels, guiPictureRef& picture)
{
    if (file.getLength() == 0)
        return {};
    if (!picture) {
        guiAtPlace const place(node->getString(kStringPlace));
        picture = guiPageHost::current().readImage(guiPageObjectOf(node), guiFullName(node, file),
                                                   QSize(2 * pixels, 2 * pixels));
    }
    return picture ? QIcon(picture->image) : QIcon();
}
