// controls/guihtmlcontrolbutton.cpp: see guihtmlcontrolbutton.h.
#include "controls/guihtmlcontrolbutton.h"

#include "controls/guieventscope.h"
#include "controls/guiformproperty.h"
#include "controls/guihtmlform.h"
#include "controls/guiscriptmethod.h"
#include "controls/guiwidgetcheckbox.h"
#include "controls/guiwidgetpushbutton.h"
#include "controls/guiwidgetradiobutton.h"
#include "foundation/vela-qt.h"
#include "page/guicolor.h"
#include "page/guipageroot.h"

namespace {

guiHtmlForm* formAround(guiHtml* node)
{
    while (node && node->getType() != guiHtml::kTypeForm)
        node = node->getParent();
    return static_cast<guiHtmlForm*>(node);
}

/// The colour around the indicator: the node's own, or what the page shows there.
void setBackground(QWidget* widget, guiHtml const* node)
{
    QPalette palette = widget->palette();
    palette.setColor(QPalette::Window, toQColor(node->getBackgroundColor()));
    widget->setPalette(palette);
    widget->setAutoFillBackground(node->hasBackgroundColor());
}

} // namespace

guiHtmlControlButton::~guiHtmlControlButton() { destroyWidgets(); }

guiHtml& guiHtmlControlButton::operator=(guiHtml& other)
{
    guiHtmlControl::operator=(other);
    if (auto* button = dynamic_cast<guiHtmlControlButton*>(&other))
        init(button->m_buttonType, button->m_checked);
    return *this;
}

guiHtml* guiHtmlControlButton::Clone(guiHtml* parent) { return guiCloneNode(*this, parent); }

void guiHtmlControlButton::init(guiButtonType type, bool checked)
{
    m_buttonType = type;
    m_checked = checked;
}

int guiHtmlControlButton::isChecked()
{
    if (m_checkBox)
        m_checked = m_checkBox->isChecked();
    if (m_radioButton)
        m_checked = m_radioButton->isChecked();
    return m_checked;
}

// What the user did to the widget counts, so that is asked for first.
void guiHtmlControlButton::setChecked(int checked)
{
    int wanted = checked > 0;
    if (wanted == isChecked())
        return;
    m_checked = wanted;
    if (m_checkBox)
        m_checkBox->setChecked(wanted);
    if (m_radioButton)
        m_radioButton->setChecked(wanted);
    isChecked();
}

int guiHtmlControlButton::getPreferredWidth()
{
    constexpr int kAroundLabel = 12;
    if (isCheckable())
        return kCheckSize;
    return hasWindow() ? textWidth(m_text) + kAroundLabel : 0;
}

int guiHtmlControlButton::getHeightEstimate(unsigned long)
{
    constexpr int kAroundLabel = 8;
    if (isCheckable())
        return kCheckSize;
    return hasWindow() ? lineSpacing() + kAroundLabel : 0;
}

QWidget* guiHtmlControlButton::getChildWidget()
{
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
    dirtyTabOrder();
    if (m_buttonType == kButtonCheckBox)
        createCheckBox();
    else if (m_buttonType == kButtonRadio)
        createRadioButton();
    else
        createPushButton();
}

void guiHtmlControlButton::createPushButton()
{
    m_pushButton = new guiWidgetPushButton(getClipWidget());
    m_pushButton->setText(sstoq(m_text));
    m_pushButton->owner = this;
    finishWidget(m_pushButton);
}

void guiHtmlControlButton::createCheckBox()
{
    m_checkBox = new guiWidgetCheckBox(getClipWidget());
    m_checkBox->owner = this;
    m_checkBox->setChecked(m_checked > 0);
    setBackground(m_checkBox, this);
    finishWidget(m_checkBox);
}

void guiHtmlControlButton::createRadioButton()
{
    m_radioButton = new guiWidgetRadioButton(getClipWidget());
    m_radioButton->owner = this;
    if (guiPageRoot* base = getBaseHtml())
        base->addToGroup(m_radioButton, getName());
    m_radioButton->setChecked(m_checked > 0);
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
    isChecked(); // what the user did last is kept
    guiDestroyWrapper(m_pushButton);
    guiDestroyWrapper(m_checkBox);
    guiDestroyWrapper(m_radioButton);
    onDestroyChildWidget();
}

void guiHtmlControlButton::readFormProperty(ScriptObject* form)
{
    guiFormProperty value(form, getName());
    if (value.read())
        setChecked(value.isString() && istring(value.text()) == m_text);
}

// An unchecked radio button leaves the property to the checked one of its group.
void guiHtmlControlButton::writeFormProperty(ScriptObject* form)
{
    if (!isCheckable())
        return;
    guiFormProperty value(form, getName());
    if (isChecked())
        value.write(m_text);
    else if (m_buttonType == kButtonCheckBox)
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
    bool isPlain = args.count() == 0;
    if (!isPlain && (args.count() != 1 || !guiIsSwitch(args, 0)))
        return;
    if (buttonNode* button = guiControlOf<buttonNode>(data, self))
        button->setChecked(isPlain || guiSwitchOf(args, 0));
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

// A reset button without a link does nothing: there is no built-in reset.
void guiHtmlControlButton::onClick()
{
    sstring link = m_action;
    if (link.getLength() == 0 && m_buttonType == kButtonSubmit)
        if (guiHtmlForm* form = formAround(getParent()))
            link = form->getAction();
    followLink(link);
}
