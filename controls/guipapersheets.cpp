// controls/guipapersheets.cpp: see guipapersheets.h.
#include "controls/guipapersheets.h"

#include "controls/guicontrolpicture.h"
#include "page/guipageblocks.h"
#include "page/guipageroot.h"
#include "page/guiqrect.h"
#include "page/guisavedpainter.h"

#include <QFont>
#include <QPainter>
#include <QRegion>
#include <algorithm>
#include <cmath>

namespace {

constexpr double kMillimetresPerInch = 25.4;
constexpr double kPointsPerUnit = 72.0 / guiPaperSheets::kUnitsPerInch;
// A line above or below the content takes at least so much of its margin, in millimetres.
constexpr double kLeastForLine = 9;
constexpr int kLinePixels = 11;

double toUnits(double millimetres) { return millimetres * guiPaperSheets::kUnitsPerInch / kMillimetresPerInch; }

double marginWith(guiPaperLine const& line, double margin)
{
    return toUnits(line.isEmpty() ? margin : std::max(margin, kLeastForLine));
}

QRectF contentOf(guiPaper const& paper)
{
    QMarginsF const& margins = paper.margins;
    double const left = toUnits(margins.left());
    double const top = marginWith(paper.header, margins.top());
    double const right = toUnits(paper.size.width() - margins.right());
    double const bottom = toUnits(paper.size.height()) - marginWith(paper.footer, margins.bottom());
    return {QPointF(left, top), QPointF(std::max(right, left + 1), std::max(bottom, top + 1))};
}

} // namespace

guiPaperSheets::guiPaperSheets(guiPageRoot& page, guiPaper const& paper)
    : m_page(page), m_paper(paper), m_content(contentOf(paper)), m_layout(page, static_cast<int>(m_content.width()))
{
    m_scale = std::floor(m_content.width()) / m_layout.width();
    auto const height = static_cast<int>(m_content.height() / m_scale);
    m_parts = guiFindPaperParts(&page);
    for (guiPaperParts::control const& each : m_parts.controls)
        m_highestControl = std::max(m_highestControl, each.place.height);
    guiPageBlocks blocks = guiFindBlocks(&page, height);
    blocks.top = guiBarAbove(&page);
    m_sheets = guiBreakPage(std::move(blocks), height);
}

QRegion guiPaperSheets::stripOf(guiSheet const& sheet) const
{
    QRegion strip(0, sheet.top, m_layout.width(), sheet.bottom - sheet.top);
    for (guiRect const& each : sheet.absent)
        strip -= guiToQRect(each);
    return strip;
}

void guiPaperSheets::paint(QPainter& painter, int number)
{
    guiSheet const& sheet = m_sheets[static_cast<std::size_t>(number)];
    {
        guiSavedPainter const saved(painter);
        painter.translate(m_content.topLeft());
        painter.scale(m_scale, m_scale);
        for (guiRect const& head : sheet.heads) {
            painter.translate(0, -head.top);
            paintStrip(painter, QRegion(guiToQRect(head)));
            painter.translate(0, head.bottom());
        }
        painter.translate(0, -sheet.top);
        paintStrip(painter, stripOf(sheet));
    }
    paintLine(painter, m_paper.header, m_content.top() / 2, number);
    double const bottom = toUnits(m_paper.size.height());
    paintLine(painter, m_paper.footer, (m_content.bottom() + bottom) / 2, number);
}

void guiPaperSheets::paintStrip(QPainter& painter, QRegion const& region)
{
    {
        guiSavedPainter const saved(painter);
        m_page.paintTo(&painter, 0, 0, nullptr, &region);
    }
    paintControls(painter, region);
}

void guiPaperSheets::paintControls(QPainter& painter, QRegion const& region)
{
    QRect const bounds = region.boundingRect();
    auto const isAbove = [](guiPaperParts::control const& each, int y) { return each.place.top < y; };
    auto each =
        std::lower_bound(m_parts.controls.begin(), m_parts.controls.end(), bounds.top() - m_highestControl, isAbove);
    for (; each != m_parts.controls.end() && each->place.top <= bounds.bottom(); ++each) {
        QRect const place = guiToQRect(each->place);
        if (!region.intersects(place))
            continue;
        guiSavedPainter const saved(painter);
        painter.setClipRegion(region.intersected(place));
        guiPaintControl(painter, each->node, place);
    }
}

QString guiPaperSheets::filledIn(QString text, int number) const
{
    // In one walk, so that a title in braces stays as it is.
    struct blank
    {
        QString name;
        QString value;
    };
    blank const blanks[] = {{QStringLiteral("{page}"), QString::number(number + 1)},
                            {QStringLiteral("{pages}"), QString::number(count())},
                            {QStringLiteral("{title}"), m_paper.title}};
    for (qsizetype at = text.indexOf(u'{'); at >= 0; at = text.indexOf(u'{', at)) {
        auto const* const found = std::find_if(std::begin(blanks), std::end(blanks), [&](blank const& each) {
            return QStringView(text).mid(at).startsWith(each.name);
        });
        if (found == std::end(blanks)) {
            ++at;
            continue;
        }
        text.replace(at, found->name.size(), found->value);
        at += found->value.size();
    }
    return text;
}

/// `middle`: how far down the line is, in units of the sheet.
void guiPaperSheets::paintLine(QPainter& painter, guiPaperLine const& line, double middle, int number) const
{
    if (line.isEmpty())
        return;
    guiSavedPainter const saved(painter);
    QFont font = m_page.getDefaultFont(nullptr);
    font.setPixelSize(kLinePixels);
    painter.setFont(font);
    painter.setPen(QColor(90, 90, 90));
    QRectF const place(m_content.left(), middle - kLinePixels, m_content.width(), 2 * kLinePixels);
    painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, filledIn(line.left, number));
    painter.drawText(place, Qt::AlignHCenter | Qt::AlignVCenter | Qt::TextSingleLine, filledIn(line.center, number));
    painter.drawText(place, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, filledIn(line.right, number));
}

// ---- Links and headings ----

/// In units of the sheet.
QRectF guiPaperSheets::onSheet(QRect const& place, guiSheet const& sheet) const
{
    double const down = m_content.top() + (place.top() - sheet.top + sheet.headHeight()) * m_scale;
    return {m_content.left() + place.left() * m_scale, down, place.width() * m_scale, place.height() * m_scale};
}

/// The sheet that shows the place; the last one that begins above its upper edge when none does.
int guiPaperSheets::sheetAt(QRect const& place) const
{
    auto const isBelow = [](int y, guiSheet const& sheet) { return y < sheet.top; };
    auto const next = std::upper_bound(m_sheets.begin(), m_sheets.end(), place.top(), isBelow);
    auto const last = static_cast<int>(next - m_sheets.begin()) - 1;
    for (int i = std::max(last - 1, 0); i <= last; ++i)
        if (stripOf(m_sheets[static_cast<std::size_t>(i)]).intersects(place))
            return i;
    return std::max(last, 0);
}

guiPdfPlace guiPaperSheets::placeOf(QRect const& place) const
{
    int const page = sheetAt(place);
    double const top = onSheet(place, m_sheets[static_cast<std::size_t>(page)]).top();
    return {page, std::max(0.0, top) * kPointsPerUnit};
}

void guiPaperSheets::addLink(guiPaperLink const& link, guiPdfAdditions& additions) const
{
    guiPdfLink added;
    added.uri = link.uri;
    if (added.uri.isEmpty()) {
        auto const target = m_parts.bookmarks.find(link.bookmark);
        if (target == m_parts.bookmarks.end())
            return;
        added.goTo = placeOf(QRect(0, *target, m_layout.width(), 1));
    }
    added.page = sheetAt(link.place);
    QRectF const place = onSheet(link.place, m_sheets[static_cast<std::size_t>(added.page)]);
    added.place = QRectF(place.topLeft() * kPointsPerUnit, place.size() * kPointsPerUnit);
    additions.links.push_back(added);
}

guiPdfAdditions guiPaperSheets::findAdditions() const
{
    guiPdfAdditions additions;
    for (guiPaperLink const& link : m_parts.links)
        addLink(link, additions);
    for (guiPaperHeading const& heading : m_parts.headings)
        additions.headings.push_back({heading.level, heading.text, placeOf(heading.place)});
    return additions;
}
