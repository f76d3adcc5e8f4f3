// controls/guihtmlcontrolvalue.cpp: see guihtmlcontrolvalue.h.
#include "controls/guihtmlcontrolvalue.h"

#include "controls/guieventscope.h"
#include "controls/guiformproperty.h"
#include "controls/guinumbertext.h"
#include "controls/guiwidget.h"
#include "foundation/vela-qt.h"
#include "foundation/vela-threadrole.h"
#include "page/guinodewatch.h"
#include "script/hostinterface.h"

#include <utility>

void guiValueWidget::report()
{
    guiEventScope scope;
    if (owner)
        owner->onChange();
}

bool guiValueWidget::isKeyUsed(int key) { return guiHandleKey(owner, key, true); }

int guiHtmlControlValue::setText(sstring const& text, sstring const&)
{
    assertOnGuiThread();
    std::optional<QString> const value = valueOf(sstoq(text));
    if (!value)
        return 0;
    guiNodeWatch const self(this);
    changeText(qtoss(*value));
    return self.alive() ? 1 : 0;
}

sstring guiHtmlControlValue::getText()
{
    if (m_shown)
        m_content.text = qtoss(m_shown->value());
    return m_content.text;
}

/// Returns whether the value is another one than before, and the control still there. What is shown is not reported.
bool guiHtmlControlValue::changeText(sstring const& text)
{
    if (getText() == text)
        return false;
    m_content.text = awaitsWidget() ? qtoss(asShown(sstoq(text))) : text;
    m_told = plain(sstoq(text));
    if (m_shown) {
        m_shown->owner = nullptr;
        m_shown->showValue(sstoq(text));
        m_shown->owner = this;
    }
    recheck();
    guiNodeWatch const self(this);
    onNewValue();
    return self.alive();
}

void guiHtmlControlValue::createChildWidget()
{
    if (m_shown || !hasWindow())
        return;
    assertOnGuiThread();
    dirtyTabOrder();
    m_shown = makeWidget(getClipWidget());
    m_shown->showValue(sstoq(m_content.text));
    m_shown->owner = this;
    m_told = plain(formText());
    finishWidget(m_shown->widget());
}

void guiHtmlControlValue::destroyChildWidget()
{
    guiHtmlControl::destroyChildWidget();
    destroyWidget();
}

void guiHtmlControlValue::destroyWidget()
{
    if (m_shown) {
        getText(); // keeps what the user did last
        dirtyTabOrder();
        m_shown->owner = nullptr;
        guiDeleteWidget(std::exchange(m_shown, nullptr)->widget());
    }
    onDestroyChildWidget();
}

void guiHtmlControlValue::onAwait() { m_content.text = qtoss(asShown(sstoq(m_content.text))); }

/// What the form has: "" for what is no value.
QString guiHtmlControlValue::formText() { return valueOf(sstoq(getText())).value_or(QString()); }

/// Texts of one number are one value.
QString guiHtmlControlValue::plain(QString const& value) const
{
    std::optional<double> const number = isNumber() ? guiReadNumber(value) : std::nullopt;
    return number ? guiNumberText(*number) : value;
}

bool guiHtmlControlValue::takesFormValue(ScriptValue& value) const
{
    if (value.isNull())
        return valueOf(QString()).has_value();
    if (value.isNumber() && isNumber())
        return valueOf(guiNumberText(value.toNumber(0))).has_value();
    return guiTakesText(value) && valueOf(sstoq(value.toString(0))).has_value();
}

void guiHtmlControlValue::readFormProperty(ScriptObject* form)
{
    guiFormProperty property(form, getName());
    if (!property.read() || !(property.isString() || property.isNumber() || property.isNull()))
        return;
    QString const text = property.isNumber() ? guiNumberText(property.number()) : sstoq(property.text());
    std::optional<QString> const value = valueOf(text);
    if (!value || !changeText(qtoss(*value)) || !isPresent())
        return;
    guiEventScope scope;
    followLink(m_content.action);
}

void guiHtmlControlValue::writeFormProperty(ScriptObject* form)
{
    guiFormProperty property(form, getName());
    QString const text = formText();
    std::optional<double> const number = guiReadNumber(text);
    if (!isNumber() || !property.hasTypes())
        property.write(qtoss(text));
    else if (number)
        property.writeNumber(*number);
    else
        property.writeNull();
}

void guiHtmlControlValue::eraseFormProperty(ScriptObject* form) { guiFormProperty(form, getName()).erase(); }

void guiHtmlControlValue::onChange()
{
    assertOnGuiThread();
    recheck();
    QString const value = plain(formText());
    if (std::exchange(m_told, value) == value)
        return;
    guiNodeWatch const self(this);
    onNewValue();
    if (self.alive())
        followLink(m_content.action);
}
