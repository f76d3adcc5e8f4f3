// page/guihtmlparser-lists.cpp: lists of text, and what else stands further to the right: each level is a code at the
// beginning of its runs.
#include "page/guihtmlparser.h"

#include "foundation/vela-mlparser.h"
#include "foundation/vela-qt.h"
#include "page/guihtmltext.h"
#include "page/guinumbers.h"

#include <cassert>
#include <utility>

void guiHtmlParser::pullMenuList(guiHtml* parent, mlSection* section)
{
    if (++m_listDepth == 1)
        appendParagraph(parent);
    else
        appendLineBreak(parent);
    pullContent(parent, section);
    assert(m_listDepth > 0);
    if (--m_listDepth != 0)
        appendLineBreak(parent);
    else
        appendParagraph(parent);
}

void guiHtmlParser::pullListItem(guiHtml* parent, mlSection* section)
{
    unsigned outer = m_listDepth;
    if (m_listDepth == 0)
        m_listDepth = 1;
    pullOwnParagraph(parent, section);
    m_listDepth = outer;
}

void guiHtmlParser::pullList(guiHtml* parent, mlSection* section)
{
    listMarks own;
    if (hasAttr(section, "marks"))
        own.kind = section->isNamed("ol") ? listMarks::kNumbers : listMarks::kDots;
    if (hasAttr(section, "start"))
        own.next = guiToNumber(pullAttr(section, "start"));
    listMarks const outer = std::exchange(m_marks, own);
    pullListItem(parent, section);
    m_marks = outer;
}

/// The mark of the next item, which a fixed blank ties to its text.
sstring guiHtmlParser::nextMark()
{
    constexpr char16_t kDot = 0x2022;
    constexpr char16_t kFixedBlank = 0xA0;
    QString const mark =
        m_marks.kind == listMarks::kNumbers ? QString::number(m_marks.next++) + u'.' : QString(QChar(kDot));
    return qtoss(mark + QChar(kFixedBlank));
}

void guiHtmlParser::pullMarkedItem(guiHtml* parent, mlSection* section)
{
    if (m_marks.kind == listMarks::kNone)
        return pullListItem(parent, section);
    appendParagraph(parent);
    findOrCreateText(parent)->editText() += nextMark();
    m_suppressSpace = true;
    pullContent(parent, section);
    appendParagraph(parent);
}

void guiHtmlParser::pullQuotedBlock(guiHtml* parent, mlSection* section)
{
    ++m_listDepth;
    pullOwnParagraph(parent, section);
    --m_listDepth;
}
