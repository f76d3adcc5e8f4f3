// controls/guihtmlsplitter.cpp: see guihtmlsplitter.h: the sizes of panes as they are asked for, moved, remembered and
// told. guihtmlsplitter-layout.cpp gives them to the panes.
#include "controls/guihtmlsplitter.h"

#include "controls/guieventscope.h"
#include "controls/guiformproperty.h"
#include "foundation/vela-qt.h"
#include "foundation/vela-threadrole.h"
#include "script/hostinterface.h"

#include <QStringList>
#include <algorithm>
#include <map>

namespace {

// By page and name, for as long as the process runs. Never destroyed: the GUI thread still runs while it exits.
using sizeMemory = std::map<std::u16string, std::vector<int>>;
sizeMemory& theMemory TARN_GUARDED_BY(velaGuiRole) = *new sizeMemory;

std::u16string unitsOf(sstring const& text)
{
    return {reinterpret_cast<char16_t const*>(text.getUnicode()), text.getLength()};
}

} // namespace

guiHtml& guiHtmlSplitter::operator=(guiHtml& other)
{
    guiHtmlControl::operator=(other);
    if (auto const* splitter = dynamic_cast<guiHtmlSplitter const*>(&other)) {
        m_isVertical = splitter->m_isVertical;
        m_starts = splitter->m_starts;
        m_sizes = splitter->m_sizes;
    }
    return *this;
}

void guiHtmlSplitter::addPane(guiSizeUnit unit, unsigned size) { m_starts.push_back({unit, size}); }

// ---- Moving ----

void guiHtmlSplitter::moveDivider(guiHtmlDivider const* divider, int pixels)
{
    assertOnGuiThread();
    unsigned index = 0;
    for (guiHtml const* child : guiNodesOf(this)) {
        if (child == divider)
            break;
        index += dynamic_cast<guiHtmlDivider const*>(child) ? 1 : 0;
    }
    std::vector<int> const shown = shownSizes();
    std::vector<int> const moved = guiMoveSplit(shown, parts(0), index, pixels);
    if (moved == shown || !takeSizes(moved))
        return;
    remember();
}

void guiHtmlSplitter::reset()
{
    assertOnGuiThread();
    theMemory.erase(unitsOf(memoryKey()));
    m_sizes.clear();
    updateLayout(1);
}

bool guiHtmlSplitter::takeSizes(std::vector<int> const& sizes)
{
    if (m_sizes == sizes)
        return false;
    m_sizes = sizes;
    updateLayout(1);
    return true;
}

void guiHtmlSplitter::letGo()
{
    assertOnGuiThread();
    sstring const value = getText();
    if (value == m_told)
        return;
    m_told = value;
    followLink(m_content.action);
}

// ---- Memory ----

/// The file that the page comes from, and the name of the splitter on it; "" without one of the two.
sstring guiHtmlSplitter::memoryKey()
{
    guiHtml* at = this;
    while (at && !at->hasString(kStringFile))
        at = at->getParent();
    if (!at || !hasString(kStringName))
        return {};
    return at->getString(kStringFile) + "\n" + getName();
}

void guiHtmlSplitter::remember()
{
    assertOnGuiThread();
    sstring const key = memoryKey();
    if (key.getLength() != 0)
        theMemory[unitsOf(key)] = m_sizes;
}

/// Once, when the page is complete; what script has assigned by then counts more.
void guiHtmlSplitter::recall()
{
    assertOnGuiThread();
    if (std::exchange(m_hasRecalled, true) || !m_sizes.empty())
        return;
    auto const found = theMemory.find(unitsOf(memoryKey()));
    if (found != theMemory.end() && found->second.size() == panes().size())
        m_sizes = found->second;
}

// ---- The value ----

std::vector<int> guiHtmlSplitter::shownSizes() const
{
    std::vector<int> sizes;
    for (guiHtml const* pane : panes())
        sizes.push_back(m_isVertical ? pane->m.rect.height : pane->m.rect.width);
    return sizes;
}

sstring guiHtmlSplitter::getText()
{
    bool const isShown = m.rect.width > 0 && m.rect.height > 0;
    QStringList texts;
    for (int const size : isShown ? shownSizes() : m_sizes)
        texts.append(QString::number(size));
    return qtoss(texts.join(u','));
}

/// None for a text that is not a number of pixels for each pane. "" stands for the sizes that the page asks for.
std::optional<std::vector<int>> guiHtmlSplitter::sizesOf(QString const& text) const
{
    if (text.trimmed().isEmpty())
        return std::vector<int>();
    std::vector<int> sizes;
    for (QString const& part : text.split(u',')) {
        bool isNumber = false;
        double const size = part.trimmed().toDouble(&isNumber);
        if (!isNumber || !(size >= 0 && size <= kMaxPixels))
            return std::nullopt;
        sizes.push_back(qRound(size));
    }
    return sizes.size() == panes().size() ? std::optional(sizes) : std::nullopt;
}

int guiHtmlSplitter::setText(sstring const& text, sstring const&)
{
    assertOnGuiThread();
    std::optional<std::vector<int>> const sizes = sizesOf(sstoq(text));
    if (!sizes)
        return 0;
    takeSizes(*sizes);
    m_told = getText();
    return 1;
}

bool guiHtmlSplitter::takesFormValue(ScriptValue& value) const
{
    return guiTakesText(value) && sizesOf(sstoq(value.toString(0))).has_value();
}

void guiHtmlSplitter::readFormProperty(ScriptObject* form)
{
    guiFormProperty property(form, getName());
    if (property.read() && property.isString() && property.text() != getText())
        setText(property.text(), sstring());
}

void guiHtmlSplitter::writeFormProperty(ScriptObject* form) { guiFormProperty(form, getName()).write(getText()); }
void guiHtmlSplitter::eraseFormProperty(ScriptObject* form) { guiFormProperty(form, getName()).erase(); }
