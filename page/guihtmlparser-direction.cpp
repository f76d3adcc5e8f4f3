// page/guihtmlparser-direction.cpp: the attribute `dir`: in which direction the text of an element is read.
#include "page/guihtmlparser.h"

#include "foundation/vela-mlparser.h"
#include "foundation/vela-qt.h"
#include "page/guihtmltext.h"
#include "page/guinumbers.h"
#include "page/guitagtable.h"

#include <utility>

namespace {

guiDirection directionIn(sstring const& word, guiDirection otherwise)
{
    if (guiIsWord(word, "rtl"))
        return guiDirection::kRightToLeft;
    if (guiIsWord(word, "ltr"))
        return guiDirection::kLeftToRight;
    return guiIsWord(word, "auto") ? guiDirection::kByText : otherwise;
}

} // namespace

guiHtmlParser::directionMarks guiHtmlParser::isolateOf(guiDirection direction)
{
    constexpr char16_t kEnd = 0x2069;
    switch (direction) {
    case guiDirection::kLeftToRight:
        return {0x2066, kEnd};
    case guiDirection::kRightToLeft:
        return {0x2067, kEnd};
    default:
        return {0x2068, kEnd};
    }
}

guiHtmlParser::directionMarks guiHtmlParser::overrideOf(guiDirection direction)
{
    constexpr char16_t kToRight = 0x202D;
    constexpr char16_t kToLeft = 0x202E;
    constexpr char16_t kEnd = 0x202C;
    return {direction == guiDirection::kRightToLeft ? kToLeft : kToRight, kEnd};
}

guiDirection guiHtmlParser::pullDirection(mlSection* section, guiDirection otherwise)
{
    return hasAttr(section, "dir") ? directionIn(pullAttr(section, "dir"), otherwise) : otherwise;
}

template <typename Read>
void guiHtmlParser::pullMarked(guiHtml* parent, mlSection* section, directionMarks marks, Read const& read)
{
    openMarked(parent, section, marks.opening);
    read();
    m_suppressSpace = false;
    if (guiHtmlText* run = getLastIfText(parent))
        run->editText().append(QStringView(&marks.closing, 1));
}

/// Reads an element that has a direction of its own.
void guiHtmlParser::pullDirected(guiHtml* parent, mlSection* section, guiTagReader reader, bool isInline)
{
    guiDirection const own = pullDirection(section, m_direction);
    if (isInline)
        return pullMarked(parent, section, isolateOf(own), [&] { reader(*this, parent, section); });
    guiDirection const outer = std::exchange(m_direction, own);
    guiDirection const outerAround = std::exchange(m_directionAround, outer);
    reader(*this, parent, section);
    m_direction = outer;
    m_directionAround = outerAround;
}

void guiHtmlParser::pullIsolate(guiHtml* parent, mlSection* section)
{
    if (hasAttr(section, "dir")) // the marks are those of every element with a direction
        return pullContent(parent, section);
    pullMarked(parent, section, isolateOf(guiDirection::kByText), [&] { pullContent(parent, section); });
}

void guiHtmlParser::pullOverride(guiHtml* parent, mlSection* section)
{
    pullMarked(parent, section, overrideOf(pullDirection(section, guiDirection::kLeftToRight)),
               [&] { pullContent(parent, section); });
}

/// Text that is read from the right starts on the right, unless the page aligns it.
guiAlignment guiHtmlParser::alignmentOf(guiHtml* parent, mlSection* section)
{
    guiAlignment const outer = getCurrentAlignment(parent);
    if (!hasAttr(section, "dir") || m_direction == m_directionAround)
        return outer;
    if (m_direction == guiDirection::kRightToLeft)
        return outer == kAlignLeft ? kAlignRight : outer;
    bool const wasTurned = m_directionAround == guiDirection::kRightToLeft && outer == kAlignRight;
    return wasTurned ? kAlignLeft : outer;
}
