// page/guihtmltext.h: the text node, a run of page text with in-line codes for its formatting. One routine, drawText(),
// measures and paints it. The files guihtmltext-*.h each do one step: -codes reads the codes, -fonts makes fonts and
// measures words, -context knows which font draws the blanks between them, -characters measures words that must be cut,
// -shape splits a run into words, -lines breaks it into lines, -piece draws a part of one, -measure remembers the
// results.
#pragma once

#include "page/guihotspots.h"
#include "page/guihtml.h"
#include "page/guihtmltext-buffer.h"
#include "page/guihtmltext-measure.h"
#include "page/guiinks.h"

#include <QFont>
#include <functional>

class QFontMetrics;
class QRect;
class guiLineBreaker;
class guiTextMarker;
struct guiTextPiece;

/// Sees one line of a run: its pieces, whose left ends count from the rectangle's, which is relative to the run's node;
/// true ends the visit.
using guiLineVisitor = std::function<bool(guiLineBreaker const& line, guiTextRun const& run, QRect const& place)>;

/// The font, colours and alignment for drawText().
struct textParams
{
    QFont font;                                     ///< without codes
    int points = kDefaultPoints;                    ///< its size
    guiTextScale scale;                             ///< has been applied to the font
    guiColor textColor = guiColor::Black;           //
    guiColor linkColor = guiColor::BrightBlue;      //
    guiColor activeLinkColor = guiColor::BrightRed; ///< of the hovered link
    guiInks onMark;                                 ///< the same on the ground of a marking pen
    guiAlignment align = kAlignLeft;                ///< of each line
    guiDirection direction = guiDirection::kByText; ///< of each paragraph
};

/// The number of leading units of the text whose width does not exceed `width` pixels.
int fitTextInBox(QString const& text, QFontMetrics const& metrics, int width);

/// A run of text. Codes between "[[" and "]]" switch its formatting.
class guiHtmlText : public guiHtml
{
public:
    /// The run's text and the results of measuring it.
    struct mx_t
    {
        guiRunText text;
        guiHotspotList hotspots;        ///< of the links, at the width of the last measurement
        guiTextMeasures measures;       //
        unsigned hoveredLink = kNoLink; ///< position in the text of the hovered link's code
    };

    explicit guiHtmlText(guiHtml* parent = nullptr) : guiHtml(parent) {}

    int getType() override { return kTypeText; }
    guiHtml* Clone(guiHtml* parent) override;
    using guiHtml::operator=;
    guiHtml& operator=(guiHtml& other) override;
    int getPreferredWidth() override;
    int getHeightEstimate(unsigned long width) override;
    // A run has no children.
    void updateActiveWidths() override;
    void updateActiveHeights() override;
    void updateSpringyHeights() override {}
    bool keepsHeight() const override { return true; }
    std::optional<int> getBaseLine() override;
    void updateScrollbarRanges() override {}
    void setRect(guiRect* rect) override;
    void paintTo(QPainter* painter, int x, int y, guiWidget* widget, QRegion const* region) override;
    /// A run with links receives the pointer; for other text the node behind does.
    int canHitTest() override;
    void onMouseMove(int x, int y) override;
    void onMouseOff() override;
    void onMouseDown(int x, int y) override;
    void findLinks(std::vector<unsigned>& places) override;
    unsigned getLinkAt(int x, int y) override;
    QPainterPath getLinkOutline(unsigned place) override;
    sstring getLinkText(unsigned place) override;
    /// Where the link leads, as the page says it; "" for a place without one.
    sstring getLinkTarget(unsigned place) const;
    void followLinkAt(unsigned place) override;

    /// The text with its codes.
    sstring getText() const { return mx.text.toString(); }
    sstring getRunText() const override { return getText(); }
    /// The tip of a link, which is as it stands in its code, and of the link at a point relative to the run; "" without
    /// one.
    void addLinkTitle(sstring const& link, sstring const& title);
    sstring getTitleAt(int x, int y) const;
    /// The text for the parser to append to.
    guiRunText& editText() { return mx.text; }

    /// Lays a text out in `box` and returns the height used, at least 8. With a painter it paints; with `widthOut` and
    /// no painter it measures the longest line, margins included; with neither it measures the height at the box's
    /// width and records the links' rectangles in `cache`. `cache` may be null: then nothing is remembered, and faces
    /// named by codes are sized by the screen's resolution.
    static int drawText(QPainter* painter, guiRect* box, sstring const& text, textParams const* params, int* widthOut,
                        mx_t* cache);
    /// Shows the lines of a run that has been laid out, from top to bottom; whether the visitor has ended it.
    bool forEachLine(guiLineVisitor const& visit);
    /// What is read of the link at a point relative to the run; "" where there is none.
    QString getLinkText(int x, int y);
    /// drawText() in the node's own font and colours.
    int paintText(QPainter* painter, guiRect* box, sstring const& text, int* widthOut);

    /// The run's data, open to the classes of the page.
    mx_t mx;

private:
    int layOut(QPainter* painter, guiRect const& box, int* widthOut, guiTextMarker const* marker = nullptr);
    guiTextRun const& ownRun(textParams const& params);
    textParams ownParams(bool isPainted);
    bool isFontKnown() const;
    guiRect boxForWidth(unsigned long width) const;
    unsigned linkAt(int x, int y) const;
    bool isFollowed(unsigned link) const;
    bool leadsOn(unsigned link) const;
    void setPointer(bool onLink);
};
