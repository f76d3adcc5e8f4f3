// controls/guidrawing.h: what a custom element has drawn: a list of operations, recorded where script runs and replayed
// whenever the window paints. All coordinates are pixels from the element's inner corner.
#pragma once

#include "foundation/vela-string.h"
#include "page/guitypes.h"

#include <memory>
#include <variant>
#include <vector>

class guiHtml;
class QPainter;
class QPixmap;
class ScriptObject;

/// How a text differs from the element's own: "" and 0 change nothing.
struct guiTextStyle
{
    sstring face;
    int points = 0;
    bool bold = false;
    bool italic = false;
    sstring color;
    guiAlignment align = kAlignLeft;
};

/// A width and a height in pixels.
struct guiExtent
{
    int width = 0;
    int height = 0;
    bool operator==(guiExtent const&) const = default;
};

/// The size of a text in the element's font, changed by the style; broken into lines at `width`, unless that is 0. GUI
/// thread.
guiExtent guiMeasureText(guiHtml* node, sstring const& text, guiTextStyle const& style, int width);

/// Recorded on one thread, then handed over to the GUI thread as a whole.
class guiDrawing
{
public:
    /// `size`: of the element's inner rectangle, on which nothing is drawn beyond.
    explicit guiDrawing(guiExtent const& size) : m_size(size) {}
    guiDrawing(guiDrawing const&) = delete;
    guiDrawing& operator=(guiDrawing const&) = delete;

    guiExtent const& size() const { return m_size; }
    bool isEmpty() const { return m_steps.empty(); }

    // ---- Recording. A line width of 0 fills a shape; `isSmooth` blurs the steps of slanting lines. ----

    void fill(guiColor color, guiRect const& rect);
    void line(guiColor color, int x1, int y1, int x2, int y2, int lineWidth, bool isSmooth);
    void ellipse(guiColor color, guiRect const& rect, int lineWidth);
    /// `points`: x and y in turn. An open one is not filled.
    void polygon(guiColor color, std::vector<double> points, int lineWidth, bool isClosed);
    /// A GuiImage object, kept until its picture is taken. `width` and `height`: -1 is the picture's own. The picture
    /// is tiled, beginning at the offset from the corner (x, y).
    void image(ScriptObject* image, int x, int y, int width, int height, int offsetX, int offsetY);
    void text(sstring const& text, guiRect const& rect, guiTextStyle const& style);

    // ---- Replaying. GUI thread. ----

    /// Takes the pictures that the GuiImage objects have now: an object may load another one later.
    void takeImages();
    /// Draws everything with the inner corner at (x, y), inside the painter's clip region. `node`: whose font and
    /// colours the text has.
    void paintTo(QPainter& painter, guiHtml* node, int x, int y) const;

private:
    struct fillStep
    {
        guiColor color;
        guiRect rect;
    };
    struct lineStep
    {
        guiColor color;
        int x1, y1, x2, y2;
        int lineWidth;
        bool isSmooth;
    };
    struct ellipseStep
    {
        guiColor color;
        guiRect rect;
        int lineWidth;
    };
    struct polygonStep
    {
        guiColor color;
        std::vector<double> points;
        int lineWidth;
        bool isClosed;
    };
    struct imageStep
    {
        std::shared_ptr<ScriptObject> object; // null once the picture was taken
        std::shared_ptr<QPixmap const> picture;
        guiRect rect;
        int offsetX = 0;
        int offsetY = 0;
    };
    struct textStep
    {
        sstring text;
        guiRect rect;
        guiTextStyle style;
    };
    using step = std::variant<fillStep, lineStep, ellipseStep, std::unique_ptr<polygonStep>, std::unique_ptr<imageStep>,
                              std::unique_ptr<textStep>>;

    struct player;
    guiExtent const m_size;
    std::vector<step> m_steps;
};
