// controls/guihtmlcontroledit.cpp: see guihtmlcontroledit.h.
#include "controls/guihtmlcontroledit.h"

#include "controls/guieventscope.h"
#include "controls/guiformproperty.h"
#include "controls/guiwidgetlineedit.h"
#include "controls/guiwidgetmultiedit.h"
#include "foundation/vela-qt.h"
#include "foundation/vela-threadrole.h"

guiHtmlControlEdit::~guiHtmlControlEdit() { destroyWidgets(); }

guiHtml& guiHtmlControlEdit::operator=(guiHtml& other)
{
    guiHtmlControl::operator=(other);
    if (auto* edit = dynamic_cast<guiHtmlControlEdit*>(&other)) {
        m_shape = edit->m_shape;
        m_extras = edit->m_extras;
    }
    return *this;
}

guiHtmlControlEdit::fieldExtras const& guiHtmlControlEdit::extras() const
{
    static auto const& none = *new fieldExtras;
    return m_extras ? *m_extras : none;
}

void guiHtmlControlEdit::setExtras(fieldExtras const& extras)
{
    m_extras = extras == fieldExtras() ? nullptr : std::make_shared<fieldExtras>(extras);
}

/// The user could not mend what can only be read.
sstring guiHtmlControlEdit::findMistake() { return extras().isReadOnly ? sstring() : guiHtmlControl::findMistake(); }

guiHtml* guiHtmlControlEdit::Clone(guiHtml* parent) { return guiCloneNode(*this, parent); }

int guiHtmlControlEdit::setText(sstring const& text, sstring const&)
{
    assertOnGuiThread();
    changeText(text);
    return 1;
}

int guiHtmlControlEdit::setText(sstring const& text)
{
    assertOnGuiThread();
    if (!changeText(text) || !isPresent())
        return 1;
    guiEventScope scope;
    onChange(text);
    return 1;
}

/// Returns whether the text is another one than before.
bool guiHtmlControlEdit::changeText(sstring const& text)
{
    if (getText() == text)
        return false;
    if (awaitsWidget() && m_view.cursor < 0 && m_shape.rows == 1)
        m_view.cursor = static_cast<int>(m_content.text.getLength()); // which stays there, as in a widget
    m_content.text = text;
    if (awaitsWidget())
        awaitText();
    else
        showText();
    recheck();
    return true;
}

/// Puts the text into the widget, which is not bound meanwhile: nothing is reported.
void guiHtmlControlEdit::showText()
{
    auto replace = [this](auto* widget) {
        widget->owner = nullptr;
        widget->replaceText(sstoq(m_content.text));
        widget->owner = this;
    };
    if (m_lineEdit)
        replace(m_lineEdit);
    else if (m_multiEdit)
        replace(m_multiEdit);
}

sstring guiHtmlControlEdit::getText()
{
    if (m_lineEdit)
        m_content.text = qtoss(m_lineEdit->text());
    else if (m_multiEdit)
        m_content.text = qtoss(m_multiEdit->toPlainText());
    return m_content.text;
}

int guiHtmlControlEdit::getPreferredWidth()
{
    constexpr int kAroundText = 8;
    if (m_shape.size == 0 || !hasWindow())
        return 0;
    return clampLength(std::int64_t{m_shape.size} * textWidth("X") + scaled(kAroundText));
}

int guiHtmlControlEdit::getHeightEstimate(unsigned long)
{
    constexpr int kAroundText = 6;
    return hasWindow() ? clampLength(std::int64_t{m_shape.rows} * lineSpacing() + scaled(kAroundText)) : 0;
}

bool guiHtmlControlEdit::takesFormValue(ScriptValue& value) const { return guiTakesText(value); }

void guiHtmlControlEdit::readFormProperty(ScriptObject* form)
{
    guiFormProperty value(form, getName());
    if (value.read() && value.isString())
        setText(value.text());
}

void guiHtmlControlEdit::writeFormProperty(ScriptObject* form) { guiFormProperty(form, getName()).write(getText()); }
void guiHtmlControlEdit::eraseFormProperty(ScriptObject* form) { guiFormProperty(form, getName()).erase(); }

void guiHtmlControlEdit::onChange(sstring const& text)
{
    assertOnGuiThread();
    recheck();
    if (m_content.action.getLength() == 0)
        return;
    m_content.text = text;
    followLink(m_content.action);
}
