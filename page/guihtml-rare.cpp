// page/guihtml-rare.cpp: reads and writes the properties that few nodes have. Only writing a value that is not the
// default allocates the record.
#include "page/guihtml-rare.h"

#include "foundation/vela-threadrole.h"
#include "page/guifontepoch.h"

#include <QScrollBar>
#include <cassert>

namespace {

sstring toText(std::u16string const& value) { return sstring(reinterpret_cast<unsigned short const*>(value.c_str())); }

std::u16string toUnits(sstring const& value)
{
    unsigned short const* units = value.getUnicode();
    return std::u16string(units, units + value.getLength());
}

template <typename Texts>
auto* findText(Texts& texts, guiNodeString which)
{
    for (auto& text : texts)
        if (text.which == which)
            return &text;
    return static_cast<decltype(&texts.front())>(nullptr);
}

} // namespace

guiHtml::rare_t::rare_t(rare_t const& other)
    : borderLight(other.borderLight),
      borderColor(other.borderColor),
      borderDark(other.borderDark),
      background(other.background),
      hasBackground(other.hasBackground),
      givenBorders(other.givenBorders),
      edge(other.edge),
      fontSize(other.fontSize),
      tabIndex(other.tabIndex),
      captionWidth(other.captionWidth),
      captionHeight(other.captionHeight),
      texts(other.texts),
      backgroundImage(other.backgroundImage),
      scroll(other.scroll ? std::make_unique<scroll_t>(*other.scroll) : nullptr),
      unzoomed(other.unzoomed ? std::make_unique<guiUnzoomed>(*other.unzoomed) : nullptr)
{
    if (scroll)
        scroll->barX = scroll->barY = nullptr;
}

namespace {

// Never destroyed: the GUI thread still runs while the process exits.
template <typename T>
T const& defaultsOf()
{
    static T const& defaults = *new T;
    return defaults;
}

} // namespace

guiHtml::rare_t const& guiHtml::rare() const { return m.rare ? *m.rare : defaultsOf<rare_t>(); }

guiHtml::rare_t& guiHtml::ensureRare()
{
    if (!m.rare)
        m.rare = std::make_unique<rare_t>();
    return *m.rare;
}

sstring guiHtml::getString(guiNodeString which) const
{
    auto const* text = findText(rare().texts, which);
    return text ? toText(text->value) : sstring::unallocated();
}

bool guiHtml::isString(guiNodeString which, sstring const& value, bool fold) const
{
    if (!hasString(which))
        return value.getLength() == 0;
    auto const* text = findText(m.rare->texts, which);
    assert(text && !text->value.empty());
    if (text->value.size() != value.getLength())
        return false;
    auto const* units = reinterpret_cast<unsigned short const*>(text->value.c_str());
    return (fold ? stricmp16(units, value.getUnicode()) : strcmp16(units, value.getUnicode())) == 0;
}

void guiHtml::setString(guiNodeString which, sstring const& value)
{
    assertOnGuiThread();
    if (which == kStringFace)
        guiFontEpoch::advance();
    if (which == kStringSource || which == kStringBackground)
        ++s_pendingLoadCount;
    if (value.getLength() == 0)
        removeText(which);
    else
        storeText(which, value);
    assert(hasString(which) == (findText(rare().texts, which) != nullptr));
}

void guiHtml::removeText(guiNodeString which)
{
    if (m.rare)
        std::erase_if(m.rare->texts, [which](auto const& text) { return text.which == which; });
    m.rareParts = static_cast<std::uint16_t>(m.rareParts & ~(1u << which));
}

void guiHtml::storeText(guiNodeString which, sstring const& value)
{
    auto& texts = ensureRare().texts;
    if (auto* text = findText(texts, which))
        text->value = toUnits(value);
    else
        texts.push_back({which, toUnits(value)});
    m.rareParts = static_cast<std::uint16_t>(m.rareParts | (1u << which));
}

guiColor guiHtml::getBorderLight() const { return rare().borderLight; }
guiColor guiHtml::getBorderColor() const { return rare().borderColor; }
guiColor guiHtml::getBorderDark() const { return rare().borderDark; }

void guiHtml::setBorderColors(guiColor light, guiColor color, guiColor dark, unsigned given)
{
    rare_t const& usual = defaultsOf<rare_t>();
    if (light != static_cast<guiColor>(usual.borderLight))
        given |= kGivenLight;
    if (color != static_cast<guiColor>(usual.borderColor))
        given |= kGivenMiddle;
    if (dark != static_cast<guiColor>(usual.borderDark))
        given |= kGivenDark;
    if (given == 0)
        return;
    assertOnGuiThread();
    rare_t& to = ensureRare();
    to.givenBorders = static_cast<std::uint8_t>(to.givenBorders | given);
    to.borderLight = light;
    to.borderColor = color;
    to.borderDark = dark;
}

unsigned guiHtml::getGivenBorders() const { return rare().givenBorders; }

guiColor guiHtml::getBackgroundColor() const { return rare().background; }
bool guiHtml::hasBackgroundColor() const { return rare().hasBackground; }

void guiHtml::setBackgroundColor(guiColor color)
{
    assertOnGuiThread();
    ensureRare().background = color;
    m.rare->hasBackground = true;
    m.rare->edge = guiEdge::kNone;
}

void guiHtml::setBackgroundEdge(guiEdge edge)
{
    setBackgroundColor(edge == guiEdge::kLight ? getBorderLight() : getBorderDark());
    m.rare->edge = edge;
}

guiEdge guiHtml::getBackgroundEdge() const { return rare().edge; }

guiUnzoomed const* guiHtml::getUnzoomed() const { return rare().unzoomed.get(); }

void guiHtml::setUnzoomed(std::optional<guiUnzoomed> const& lengths)
{
    assertOnGuiThread();
    if (lengths)
        ensureRare().unzoomed = std::make_unique<guiUnzoomed>(*lengths);
    else if (m.rare)
        m.rare->unzoomed.reset();
}

int guiHtml::getFontSize() const { return rare().fontSize; }

void guiHtml::setFontSize(int size)
{
    if (size != getFontSize())
        ensureRare().fontSize = size;
}

int guiHtml::getTabIndex() { return rare().tabIndex; }

void guiHtml::setTabIndex(int index)
{
    if (index != rare().tabIndex)
        ensureRare().tabIndex = index;
}

QPixmap const* guiHtml::getBackgroundPixmap() const
{
    guiPictureRef const& picture = rare().backgroundImage;
    return picture ? &picture->image : nullptr;
}

void guiHtml::setBackgroundPicture(guiPictureRef const& picture)
{
    assertOnGuiThread();
    ensureRare().backgroundImage = picture;
}

void guiHtml::clearBackgroundPicture()
{
    if (m.rare)
        m.rare->backgroundImage.reset();
}

guiHtml::scroll_t const& guiHtml::getScroll() const
{
    assert(isScrolled() == (m.rare && m.rare->scroll));
    return isScrolled() ? *m.rare->scroll : defaultsOf<scroll_t>();
}

guiHtml::scroll_t& guiHtml::ensureScroll()
{
    assertOnGuiThread();
    rare_t& to = ensureRare();
    if (!to.scroll) {
        to.scroll = std::make_unique<scroll_t>();
        m.rareParts |= kRareScroll;
        reconsiderScrollBars();
    }
    return *to.scroll;
}

void guiHtml::reconsiderScrollBars()
{
    for (guiHtml* node = this; node; node = node->m.parent)
        node->m.layout.forget(guiLayoutMemo::kNoBars);
}

void guiHtml::destroyScrollBars()
{
    if (!isScrolled())
        return;
    delete m.rare->scroll->barX;
    delete m.rare->scroll->barY;
}

void guiHtml::resetScroll()
{
    destroyScrollBars();
    if (m.rare)
        m.rare->scroll.reset();
    m.rareParts &= static_cast<std::uint16_t>(~kRareScroll);
}

unsigned guiHtml::getCaptionWidth() const { return rare().captionWidth; }

unsigned guiHtml::measuredCaptionHeight() const
{
    assert(m.rare);
    return m.rare->captionHeight;
}

void guiHtml::setCaptionSize(unsigned width, unsigned height)
{
    if (!m.rare && width == 0 && height == 0)
        return;
    ensureRare().captionWidth = width;
    m.rare->captionHeight = height;
}
