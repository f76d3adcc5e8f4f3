// page/guipagetext.cpp: see guipagetext.h.
#include "page/guipagetext.h"

#include "page/guipageroot.h"

guiPageText& guiPageRoot::ensurePageText()
{
    if (!m_pageText)
        m_pageText = std::make_shared<guiPageText>(*this);
    return *m_pageText;
}
