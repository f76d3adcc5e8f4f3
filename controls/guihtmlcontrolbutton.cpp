// controls/guihtmlcontrolbutton.cpp: see guihtmlcontrolbutton.h.
#include "controls/guihtmlcontrolbutton.h"

#include "controls/guieventscope.h"
#include "controls/guiformproperty.h"
#include "controls/guiscriptmethod.h"
#include "controls/guiwidgetcheckbox.h"
#include "controls/guiwidgetpushbutton.h"
#include "controls/guiwidgetradiobutton.h"
#include "foundation/vela-qt.h"
#include "foundation/vela-threadrole.h"
#include "page/guicolor.h"
#include "page/guipageroot.h"

#include <algorithm>
#include <cassert>

namespace {

/// Paints the surroundings of the indicator: in the node's colour, or not at all, so that the page shows through.
void setBackground(QWidget* widget, guiHtml const* node)
{
    QPalette own;
    own.setColor(QPalette::Window, toQColor(node->getBackgroundColor()));
    widget->setPalette(own);
    widget->setAutoFillBackground(node->hasBackgroundColor());
}

} // namespace

guiHtmlControlButton::~guiHtmlControlButton()
{
    destroyWidgets();
    leaveGroup();
}

guiHtml& guiHtmlControlButton::operator=(guiHtml& other)
{
    guiHtmlControl::operator=(other);
    if (auto* button = dynamic_cast<guiHtmlControlButton*>(&other))
        m_state = button->m_state;
    return *this;
}

guiHtml* guiHtmlControlButton::Clone(guiHtml* parent) { return guiCloneNode(*this, parent); }

void guiHtmlControlButton::init(guiButtonType type, bool checked)
{
    assert(!getChildWidget());
    m_state.type = type;
    m_state.checked = checked;
}

int guiHtmlControlButton::isChecked()
{
    if (m_checkBox)
        m_state.checked = m_checkBox->isChecked();
    if (m_radioButton)
        m_state.checked = m_radioButton->isChecked();
    return m_state.checked;
}

// isChecked() comes first because the user may have changed the widget since the last call.
void guiHtmlControlButton::setChecked(int checked)
{
    assertOnGuiThread();
    int wanted = checked > 0;
    if (wanted == isChecked())
        return;
    if (!wanted && awaitsWidget() && m_group)
        return;
    m_state.checked = wanted;
    if (m_checkBox)
        m_checkBox->setChecked(wanted);
    if (m_radioButton)
        m_radioButton->setChecked(wanted);
    if (isChecked())
        noteChecked();
    recheckAll();
}

void guiHtmlControlButton::setCaption(sstring const& caption)
{
    if (isCheckable()) {
        guiHtmlControl::setCaption(caption);
        return;
    }
    m_content.text = caption;
    if (m_pushButton)
        m_pushButton->setText(sstoq(caption));
    updateLayout(1);
}

int guiHtmlControlButton::getPreferredWidth()
{
    constexpr int kAroundLabel = 12;
    constexpr int kSpaciousLines = 6; // "OK" is as wide as "Cancel", in every font
    if (isCheckable())
        return scaled(kCheckSize);
    if (!hasWindow())
        return 0;
    int const width = textWidth(m_content.text) + scaled(kAroundLabel);
    return m.spacious ? std::max(width + scaled(kAroundLabel), kSpaciousLines * lineSpacing()) : width;
}

int guiHtmlControlButton::getHeightEstimate(unsigned long)
{
    constexpr int kAroundLabel = 8;
    if (isCheckable())
        return scaled(kCheckSize);
    return hasWindow() ? lineSpacing() + scaled(kAroundLabel) : 0;
}

bool guiHtmlControlButton::hasOneWidgetAtMost() const
{
    return int{m_pushButton != nullptr} + int{m_checkBox != nullptr} + int{m_radioButton != nullptr} <= 1;
}

QWidget* guiHtmlControlButton::getChildWidget()
{
    assert(hasOneWidgetAtMost());
    if (m_pushButton)
        return m_pushButton;
    if (m_checkBox)
        return m_checkBox;
    return m_radioButton;
}

void guiHtmlControlButton::createChildWidget()
{
    if (getChildWidget() || !hasWindow())
        return;
    assertOnGuiThread();
    dirtyTabOrder();
    if (m_state.type == kButtonCheckBox)
        createCheckBox();
    else if (m_state.type == kButtonRadio)
        createRadioButton();
    else
        createPushButton();
}

void guiHtmlControlButton::createPushButton()
{
    m_pushButton = new guiWidgetPushButton(getClipWidget());
    m_pushButton->setText(sstoq(m_content.text));
    m_pushButton->owner = this;
    finishWidget(m_pushButton);
}

void guiHtmlControlButton::createCheckBox()
{
    m_checkBox = new guiWidgetCheckBox(getClipWidget());
    m_checkBox->owner = this;
    m_checkBox->setChecked(m_state.checked > 0);
    setBackground(m_checkBox, this);
    finishWidget(m_checkBox);
}

void guiHtmlControlButton::createRadioButton()
{
    m_radioButton = new guiWidgetRadioButton(getClipWidget());
    m_radioButton->owner = this;
    if (guiPageRoot* base = getBaseHtml())
        base->addToGroup(m_radioButton, getName());
    m_radioButton->setChecked(m_state.checked > 0);
    setBackground(m_radioButton, this);
    finishWidget(m_radioButton);
}

void guiHtmlControlButton::destroyChildWidget()
{
    guiHtmlControl::destroyChildWidget();
    destroyWidgets();
}

void guiHtmlControlButton::destroyWidgets()
{
    isChecked(); // keeps what the user did last
    assert(guiIsBoundTo(m_pushButton, this));
    assert(guiIsBoundTo(m_checkBox, this));
    assert(guiIsBoundTo(m_radioButton, this));
    guiDestroyWrapper(m_pushButton);
    guiDestroyWrapper(m_checkBox);
    guiDestroyWrapper(m_radioButton);
    onDestroyChildWidget();
}

/// A push button has no value. True switches a check box on; which radio button of a group it means, nobody knows.
bool guiHtmlControlButton::takesFormValue(ScriptValue& value) const
{
    if (!isCheckable())
        return false;
    if (value.isNull() || guiTakesText(value))
        return true;
    bool const isOn = value.toBool(0);
    if (!value.isBool() || (isOn && m_state.type == kButtonRadio))
        return false;
    if (isOn && m_content.text.getLength() != 0)
        value.setString(m_content.text);
    else if (!isOn)
        value.setNull();
    return true;
}

void guiHtmlControlButton::readFormProperty(ScriptObject* form)
{
    guiFormProperty value(form, getName());
    if (!value.read())
        return;
    bool const isOwnText = value.isString() && istring(value.text()) == m_content.text;
    setChecked(isOwnText || (value.isTrue() && isBoolean(value)));
}

/// Whether the form has a boolean for this control: a check box to which the page gives no value.
bool guiHtmlControlButton::isBoolean(guiFormProperty const& property) const
{
    return m_state.type == kButtonCheckBox && m_content.text.getLength() == 0 && property.hasTypes();
}

// The checked radio button of a group writes the property that they all share; the others must not overwrite it. Where
// script asks for values by name, a group without a checked one has a value too.
void guiHtmlControlButton::writeFormProperty(ScriptObject* form)
{
    if (!isCheckable())
        return;
    guiFormProperty value(form, getName());
    if (isBoolean(value))
        value.writeBool(isChecked() != 0);
    else if (isChecked())
        value.write(m_content.text);
    else if (m_state.type == kButtonCheckBox || (value.hasTypes() && !value.read()))
        value.writeNull();
}

void guiHtmlControlButton::eraseFormProperty(ScriptObject* form)
{
    if (isCheckable())
        guiFormProperty(form, getName()).erase();
}

namespace {

using buttonNode = guiHtmlControlButton;

void control_isChecked_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    buttonNode* button = args.count() == 0 ? guiControlOf<buttonNode>(data, self) : nullptr;
    result.setBool(button && button->isChecked());
}

void control_check_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    result.setNull();
    if (!guiIsOptionalSwitch(args))
        return;
    if (buttonNode* button = guiControlOf<buttonNode>(data, self))
        button->setChecked(guiOptionalSwitchOf(args));
}

void control_uncheck_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    result.setNull();
    if (buttonNode* button = args.count() == 0 ? guiControlOf<buttonNode>(data, self) : nullptr)
        button->setChecked(0);
}

constexpr ScriptMethod control_isChecked_script = guiCallOnGuiThread<control_isChecked_qt>;
constexpr ScriptMethod control_check_script = guiCallOnGuiThread<control_check_qt>;
constexpr ScriptMethod control_uncheck_script = guiCallOnGuiThread<control_uncheck_qt>;

} // namespace

void guiHtmlControlButton::addScriptMethods(ScriptObject* object)
{
    object->addMethod("isChecked", control_isChecked_script);
    object->addMethod("check", control_check_script);
    object->addMethod("uncheck", control_uncheck_script);
}

bool guiHtmlControlButton::isEnterControl()
{
    guiPageRoot* base = getBaseHtml();
    return base && hasString(kStringName) && isString(kStringName, base->getEnterControl());
}

void guiHtmlControlButton::triggerNow()
{
    if (isEnabled())
        onClick();
}
