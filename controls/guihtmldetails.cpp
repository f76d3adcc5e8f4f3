// controls/guihtmldetails.cpp: see guihtmldetails.h; and the readers.
#include "controls/guihtmldetails.h"

#include "controls/guieventscope.h"
#include "controls/guiformproperty.h"
#include "controls/guihtmlread.h"
#include "controls/guiowncolors.h"
#include "controls/guitabstops.h"
#include "controls/guiwidgetsummary.h"
#include "foundation/vela-qt.h"
#include "foundation/vela-threadrole.h"
#include "page/guinodewatch.h"
#include "script/hostinterface.h"

#include <memory>
#include <utility>

namespace {

/// The first node of a kind beside another one.
template <typename Node>
Node* findBeside(guiHtml const* node)
{
    guiHtml const* around = node->getParent();
    if (!around)
        return nullptr;
    for (guiHtml* child : guiNodesOf(around))
        if (auto* found = dynamic_cast<Node*>(child))
            return found;
    return nullptr;
}

} // namespace

void guiHtmlDetailsSheet::bringToFront()
{
    if (guiHtmlSummary* line = summary())
        line->setOpen(true);
}

guiHtmlSummary* guiHtmlDetailsSheet::summary() const { return findBeside<guiHtmlSummary>(this); }

bool guiHtmlDetailsSheet::takeSummary(sstring const& text)
{
    if (!summary() || text.getLength() == 0 || std::exchange(m_hasSummary, true))
        return false;
    summary()->initText(text);
    return true;
}

guiHtmlDetailsSheet* guiHtmlSummary::sheet() const { return findBeside<guiHtmlDetailsSheet>(this); }

bool guiHtmlSummary::isOpen() const
{
    guiHtmlDetailsSheet const* const below = sheet();
    return below && !below->isPutAway();
}

int guiHtmlSummary::setText(sstring const& text, sstring const&)
{
    assertOnGuiThread();
    m_content.text = text;
    if (m_button)
        m_button->setText(sstoq(text));
    updateLayout(1);
    return 1;
}

void guiHtmlSummary::setOpen(bool open)
{
    assertOnGuiThread();
    guiHtmlDetailsSheet* const below = sheet();
    if (!below || open == isOpen())
        return;
    bool const movesFocus = !open && guiHoldsFocus(below);
    below->putAway(!open);
    if (m_button)
        m_button->showOpen(open);
    updateLayout(1);
    if (movesFocus && m_button)
        m_button->setFocus();
}

void guiHtmlSummary::onClick()
{
    assertOnGuiThread();
    guiNodeWatch const self(this);
    setOpen(!isOpen());
    if (self.alive())
        followLink(m_content.action);
}

// ---- Its widget ----

int guiHtmlSummary::getPreferredWidth()
{
    return hasWindow() ? clampLength(scaled(guiWidgetSummary::kAroundText) + std::int64_t{textWidth(m_content.text)})
                       : 0;
}

int guiHtmlSummary::getHeightEstimate(unsigned long)
{
    constexpr int kAroundLine = 6;
    return hasWindow() ? lineSpacing() + scaled(kAroundLine) : 0;
}

QWidget* guiHtmlSummary::getChildWidget() { return m_button; }

void guiHtmlSummary::createChildWidget()
{
    if (m_button || !hasWindow())
        return;
    assertOnGuiThread();
    dirtyTabOrder();
    m_button = new guiWidgetSummary(getClipWidget());
    m_button->setText(sstoq(m_content.text));
    m_button->showOpen(isOpen());
    m_button->owner = this;
    guiReadOnPage(m_button, this);
    finishWidget(m_button);
}

void guiHtmlSummary::destroyChildWidget()
{
    guiHtmlControl::destroyChildWidget();
    destroyWidget();
}

void guiHtmlSummary::destroyWidget()
{
    guiDestroyWrapper(m_button);
    onDestroyChildWidget();
}

// ---- Its value ----

bool guiHtmlSummary::takesFormValue(ScriptValue& value) const { return value.isBool() || value.isNull(); }

void guiHtmlSummary::readFormProperty(ScriptObject* form)
{
    guiFormProperty property(form, getName());
    if (property.read())
        setOpen(property.isTrue() || (property.isString() && property.text().getLength() != 0));
}

void guiHtmlSummary::writeFormProperty(ScriptObject* form)
{
    guiFormProperty property(form, getName());
    if (property.hasTypes())
        property.writeBool(isOpen());
    else if (isOpen())
        property.write("1");
    else
        property.writeNull();
}

void guiHtmlSummary::eraseFormProperty(ScriptObject* form) { guiFormProperty(form, getName()).erase(); }

// ---- Readers ----

namespace {

/// Room to the left, so that what is unfolded begins below the text of the line, not below its arrow.
void appendIndent(guiHtmlParser& parser, guiHtml* details)
{
    constexpr int kIndent = 14;
    auto& fixed = parser.appendGuiHtml(details, std::make_unique<guiHtml>())->m.fixed;
    fixed.unitX = fixed.unitY = kUnitPixels;
    fixed.x = kIndent;
    fixed.cxMin = kIndent;
}

guiHtmlDetailsSheet* appendSheet(guiHtmlParser& parser, guiHtml* details, mlSection* section)
{
    auto* const sheet = parser.appendGuiHtml(details, std::make_unique<guiHtmlDetailsSheet>());
    guiHtmlParser::pullBackground(sheet, section);
    guiHtmlParser::pullRoomyBorder(sheet, section);
    sheet->m.alignY = kAlignTop;
    sheet->putAway(!guiHtmlParser::hasAttr(section, "open"));
    return sheet;
}

void pullDetails(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    guiHtml* const details = parser.appendBlock(parent, std::make_unique<guiHtml>());
    details->m.expandChildren = 1;
    details->m.alignX = kAlignLeft;
    details->m.alignY = kAlignTop;
    auto* const line = pullControl<guiHtmlSummary>(parser, details, section);
    line->initText("Details");
    line->setAction(guiHtmlParser::pullAttr(section, "onchange"));
    parser.appendLineBreak(details);
    appendIndent(parser, details);
    parser.pullContent(appendSheet(parser, details, section), section);
    parser.appendLineBreak(parent);
}

/// Outside of `details` it is text like any other.
void pullSummary(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    auto* const sheet = dynamic_cast<guiHtmlDetailsSheet*>(parent);
    if (!sheet || !sheet->takeSummary(parser.pullText(section)))
        parser.pullContent(parent, section);
}

guiTag const kDetails("details", pullDetails, kTagNests | kTagBlock);
guiTag const kSummary("summary", pullSummary, kTagNests);

} // namespace
