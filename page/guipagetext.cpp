// page/guipagetext.cpp: see guipagetext.h.
#include "page/guipagetext.h"

#include "page/guipageroot.h"

guiTextMarks guiPageText::marksOf(guiHtmlText& run)
{
    guiTextMarks marks;
    selection.addMarks(run, marks);
    return marks;
}

guiPageText& guiPageRoot::ensurePageText()
{
    if (!m_pageText)
        m_pageText = std::make_shared<guiPageText>(*this);
    return *m_pageText;
}
