// page/guiatplace.cpp: see guiatplace.h.
#include "page/guiatplace.h"

#include "foundation/vela-log.h"
#include "foundation/vela-threadrole.h"

#include <utility>

namespace {

sstring thePlace; // of the innermost guiAtPlace; "" outside of one and once it was taken

} // namespace

guiAtPlace::guiAtPlace(sstring const& place) : m_outer(thePlace)
{
    assertOnGuiThread();
    if (place.getLength() != 0)
        thePlace = place;
}

guiAtPlace::~guiAtPlace() { thePlace = m_outer; }

std::string guiAtPlace::text()
{
    assertOnGuiThread();
    return velaPrintable(thePlace);
}

std::string guiAtPlace::take()
{
    assertOnGuiThread();
    return velaPrintable(std::exchange(thePlace, sstring()));
}
