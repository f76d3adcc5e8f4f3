// controls/guitextaccess.cpp: see guitextaccess.h.
#include "controls/guitextaccess.h"

#include "controls/guilinkaccess.h"
#include "page/guihtmltext-places.h"
#include "page/guihtmltext.h"

#include <QTextBoundaryFinder>
#include <QWidget>
#include <algorithm>
#include <tuple>

namespace {

/// The toolkit's way to say that there is none.
QString noText(int* start, int* end)
{
    *start = *end = -1;
    return {};
}

} // namespace

guiTextAccess::guiTextAccess(guiHtmlText* run) : guiNodeAccess(run), m_run(run) {}

void* guiTextAccess::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::TextInterface ? static_cast<QAccessibleTextInterface*>(this)
                                              : guiNodeAccess::interface_cast(type);
}

void guiTextAccess::selection(int, int* start, int* end) const { *start = *end = 0; }

int guiTextAccess::characterCount() const { return static_cast<int>(guiPlainText(*m_run).size()); }

QString guiTextAccess::text(int start, int end) const
{
    QString const words = guiPlainText(*m_run);
    int const count = static_cast<int>(words.size());
    int const first = std::clamp(start, 0, count);
    int const last = end < 0 ? count : std::clamp(end, first, count);
    return words.mid(first, last - first);
}

// ---- Parts of the text ----
// All of them are found here: the toolkit's own way through words does not always come to an end.

namespace {

using textSpan = std::pair<int, int>; // the first unit, and one past the last

textSpan spanBetween(QString const& words, QTextBoundaryFinder::BoundaryType kind, int offset)
{
    QTextBoundaryFinder finder(kind, words);
    finder.setPosition(offset);
    bool const isStart = finder.isAtBoundary();
    auto const first = isStart ? offset : finder.toPreviousBoundary();
    finder.setPosition(offset);
    auto const end = finder.toNextBoundary();
    return {static_cast<int>(std::max<qsizetype>(first, 0)), static_cast<int>(end < 0 ? words.size() : end)};
}

textSpan paragraphAt(QString const& words, int offset)
{
    auto const before = offset > 0 ? words.lastIndexOf(u'\n', offset - 1) : -1;
    auto const end = words.indexOf(u'\n', offset);
    return {static_cast<int>(before + 1), static_cast<int>(end < 0 ? words.size() : end + 1)};
}

} // namespace

/// The part of that kind in which the unit at `offset` is.
std::pair<int, int> guiTextAccess::spanAt(int offset, QAccessible::TextBoundaryType kind) const
{
    QString const words = guiPlainText(*m_run);
    switch (kind) {
    case QAccessible::CharBoundary:
        return spanBetween(words, QTextBoundaryFinder::Grapheme, offset);
    case QAccessible::WordBoundary:
        return spanBetween(words, QTextBoundaryFinder::Word, offset);
    case QAccessible::SentenceBoundary:
        return spanBetween(words, QTextBoundaryFinder::Sentence, offset);
    case QAccessible::LineBoundary:
        return guiTextPlaces(*m_run).lineAt(offset);
    case QAccessible::ParagraphBoundary:
        return paragraphAt(words, offset);
    default:
        return {0, static_cast<int>(words.size())};
    }
}

QString guiTextAccess::give(std::pair<int, int> const& span, int* start, int* end) const
{
    std::tie(*start, *end) = span;
    return text(*start, *end);
}

QString guiTextAccess::textAtOffset(int offset, QAccessible::TextBoundaryType kind, int* start, int* end) const
{
    return isOffset(offset) ? give(spanAt(offset, kind), start, end) : noText(start, end);
}

QString guiTextAccess::textBeforeOffset(int offset, QAccessible::TextBoundaryType kind, int* start, int* end) const
{
    int const first = isOffset(offset) ? spanAt(offset, kind).first : 0;
    return first > 0 ? give(spanAt(first - 1, kind), start, end) : noText(start, end);
}

QString guiTextAccess::textAfterOffset(int offset, QAccessible::TextBoundaryType kind, int* start, int* end) const
{
    int const next = isOffset(offset) ? spanAt(offset, kind).second : characterCount();
    return next < characterCount() ? give(spanAt(next, kind), start, end) : noText(start, end);
}

// ---- Places ----

QRect guiTextAccess::characterRect(int offset) const
{
    return guiRectOnScreen(m_run, guiTextPlaces(*m_run).rectAt(offset));
}

int guiTextAccess::offsetAtPoint(QPoint const& point) const
{
    QWidget const* const window = m_run->getTopLevelWidget();
    if (!window)
        return -1;
    QRect const seen = rect();
    if (seen.isEmpty())
        return -1;
    QPoint const near(std::clamp(point.x(), seen.left(), seen.right()),
                      std::clamp(point.y(), seen.top(), seen.bottom()));
    guiRect corner;
    m_run->getRectInWidget(&corner);
    return guiTextPlaces(*m_run).offsetAt(window->mapFromGlobal(near) - QPoint(corner.left, corner.top));
}

void guiTextAccess::scrollToSubstring(int start, int) { guiPostScroll(m_run, guiTextPlaces(*m_run).rectAt(start)); }

QString guiTextAccess::attributes(int offset, int* start, int* end) const
{
    if (!isOffset(offset))
        return noText(start, end);
    *start = 0;
    *end = characterCount();
    return {};
}
