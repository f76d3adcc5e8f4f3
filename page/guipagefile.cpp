// page/guipagefile.cpp: see guipagefile.h.
#include "page/guipagefile.h"

#include "foundation/vela-log.h"
#include "foundation/vela-threadrole.h"
#include "page/guipagehost.h"

namespace {

sstring theOrigin; // of the innermost guiPageOrigin; "" once it was taken

} // namespace

guiPageOrigin::guiPageOrigin(sstring const& file) : m_outer(theOrigin)
{
    assertOnGuiThread();
    theOrigin = file;
}

guiPageOrigin::~guiPageOrigin() { theOrigin = m_outer; }

sstring guiPageOrigin::take() { return std::exchange(theOrigin, sstring()); }

bool guiPageOrigin::isSet() { return theOrigin.getLength() != 0; }

int guiPageFile::read(ScriptObject* owner)
{
    assertOnGuiThread();
    return guiPageHost::current().readText(owner, m_path, m_text) ? 1 : fail("load file");
}

int guiPageFile::filter(guiPageRoot* root)
{
    assertOnGuiThread();
    return guiPageHost::current().filterText(root, m_path, m_text) ? 1 : fail("filter file");
}

int guiPageFile::fail(char const* what) const
{
    velaLog("%s - failed to %s %s%s\n", m_caller, what, velaPrintable(m_path).c_str(), m_place.c_str());
    return 0;
}
