// bench/pageengine-litehtml.cpp: litehtml as a peer, which draws with the toolkit's fonts. The widths of words are
// cached, as is usual with this library.

#include "bench/pageview-qt.h"

#include <memory>
#include <unordered_map>

#include <QApplication>
#include <QFontMetrics>
#include <litehtml/litehtml.h>

namespace {

// The style sheet that programs have to provide, reduced to the tags of the generated pages.
constexpr char kStyles[] = R"(
html { display: block } head, title, meta, script, style { display: none }
body { display: block; margin: 8px } p { display: block; margin: 1em 0 } form, div { display: block }
b, strong { font-weight: bold } i, em { font-style: italic }
table { display: table; border-collapse: separate; border-spacing: 2px; border-color: gray; font-size: medium }
tbody { display: table-row-group; vertical-align: middle } tr { display: table-row; vertical-align: inherit }
td, th { display: table-cell; vertical-align: inherit; padding: 1px }
input, select, option { display: inline-block }
)";

struct Font
{
    QFont font;
    QFontMetrics metrics;
    std::unordered_map<std::string, int> widths;
};

QColor toColor(litehtml::web_color const& color) { return QColor(color.red, color.green, color.blue, color.alpha); }
QRect toRect(litehtml::position const& at) { return QRect(at.x, at.y, at.width, at.height); }
QPainter& painterOf(litehtml::uint_ptr handle) { return *reinterpret_cast<QPainter*>(handle); }

class Container : public litehtml::document_container
{
public:
    virtual ~Container() = default;

    litehtml::uint_ptr create_font(char const* face, int size, int weight, litehtml::font_style style,
                                   unsigned int decoration, litehtml::font_metrics* out) override
    {
        QFont font(QString::fromUtf8(face));
        font.setPixelSize(std::max(size, 1));
        font.setBold(weight >= 600);
        font.setItalic(style == litehtml::fontStyleItalic);
        font.setUnderline(decoration & litehtml::font_decoration_underline);
        auto* made = new Font{font, QFontMetrics(font), {}};
        out->ascent = made->metrics.ascent();
        out->descent = made->metrics.descent();
        out->height = made->metrics.height();
        out->x_height = made->metrics.xHeight();
        out->draw_spaces = decoration != 0;
        return reinterpret_cast<litehtml::uint_ptr>(made);
    }
    void delete_font(litehtml::uint_ptr font) override { delete reinterpret_cast<Font*>(font); }
    int text_width(char const* text, litehtml::uint_ptr handle) override
    {
        auto& font = *reinterpret_cast<Font*>(handle);
        auto const [entry, isNew] = font.widths.try_emplace(text, 0);
        if (isNew)
            entry->second = font.metrics.horizontalAdvance(QString::fromUtf8(text));
        return entry->second;
    }
    void draw_text(litehtml::uint_ptr handle, char const* text, litehtml::uint_ptr fontHandle,
                   litehtml::web_color color, litehtml::position const& at) override
    {
        auto& font = *reinterpret_cast<Font*>(fontHandle);
        QPainter& painter = painterOf(handle);
        painter.setFont(font.font);
        painter.setPen(toColor(color));
        painter.drawText(QPointF(at.x, at.y + font.metrics.ascent()), QString::fromUtf8(text));
    }
    int pt_to_px(int points) const override { return points * 96 / 72; }
    int get_default_font_size() const override { return kPageFontPixels; }
    char const* get_default_font_name() const override { return kPageFont; }
    void draw_list_marker(litehtml::uint_ptr, litehtml::list_marker const&) override {}
    void load_image(char const*, char const*, bool) override {}
    void get_image_size(char const*, char const*, litehtml::size& size) override { size = litehtml::size(); }
    void draw_background(litehtml::uint_ptr handle, litehtml::background_paint const& background) override
    {
        if (background.color.alpha)
            painterOf(handle).fillRect(toRect(background.clip_box), toColor(background.color));
    }
    void draw_borders(litehtml::uint_ptr handle, litehtml::borders const& borders, litehtml::position const& at,
                      bool) override
    {
        if (borders.top.width == 0)
            return;
        painterOf(handle).setPen(toColor(borders.top.color));
        painterOf(handle).drawRect(toRect(at).adjusted(0, 0, -1, -1));
    }
    void set_caption(char const*) override {}
    void set_base_url(char const*) override {}
    void link(std::shared_ptr<litehtml::document> const&, litehtml::element::ptr const&) override {}
    void on_anchor_click(char const*, litehtml::element::ptr const&) override {}
    void set_cursor(char const*) override {}
    void transform_text(std::string&, litehtml::text_transform) override {}
    void import_css(std::string&, std::string const&, std::string&) override {}
    void set_clip(litehtml::position const&, litehtml::border_radiuses const&, bool, bool) override {}
    void del_clip() override {}
    void get_client_rect(litehtml::position& client) const override
    {
        client = litehtml::position(0, 0, kPageWidth, kPageHeight);
    }
    std::shared_ptr<litehtml::element> create_element(char const*, litehtml::string_map const&,
                                                      std::shared_ptr<litehtml::document> const&) override
    {
        return nullptr;
    }
    void get_media_features(litehtml::media_features& media) const override
    {
        media.type = litehtml::media_type_screen;
        media.width = media.device_width = kPageWidth;
        media.height = media.device_height = kPageHeight;
        media.color = 8;
        media.resolution = 96;
    }
    void get_language(std::string& language, std::string& culture) const override
    {
        language = "en";
        culture = "";
    }
};

class LiteEngine : public PageEngine
{
public:
    LiteEngine() { m_context.load_master_stylesheet(kStyles); }

    void take(std::string const& page) override { m_text = page; }
    void load(int width) override
    {
        m_document = litehtml::document::createFromUTF8(m_text.c_str(), &m_container, &m_context);
        m_document->render(width);
    }
    void layOut(int width) override { m_document->render(width); }
    int height() override { return m_document->height(); }
    void clear() override { m_document.reset(); }

    void paint(QPainter& painter, QRect const& visible)
    {
        litehtml::position const clip(visible.x(), visible.y(), visible.width(), visible.height());
        m_document->draw(reinterpret_cast<litehtml::uint_ptr>(&painter), 0, 0, &clip);
    }

private:
    std::string m_text;
    Container m_container;
    litehtml::context m_context;
    litehtml::document::ptr m_document;
};

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    LiteEngine engine;
    PeerView view(engine, [&](QPainter& painter, QRect const& visible) { engine.paint(painter, visible); });
    return runPageProgram(argc, argv, engine, &view);
}
