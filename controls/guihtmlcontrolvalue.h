// controls/guihtmlcontrolvalue.h: what the controls have in common whose value is one short text, shown by a widget of
// their kind: numbers, sliders, days, times, colours, bars.
#pragma once

#include "controls/guihtmlcontrol.h"

#include <QString>
#include <optional>

class guiHtmlControlValue;

/// The part of such a widget that the node knows. GUI thread.
class guiValueWidget
{
public:
    virtual ~guiValueWidget() = default;
    guiValueWidget() = default;
    guiValueWidget(guiValueWidget const&) = delete;
    guiValueWidget& operator=(guiValueWidget const&) = delete;

    virtual QWidget* widget() = 0;
    /// What the user has put in, as the form has it, or as it stands there when it is no value.
    virtual QString value() const = 0;
    /// Shows a value that the form has. Reports nothing but what report() does.
    virtual void showValue(QString const& value) = 0;

    guiHtmlControlValue* owner = nullptr; ///< not owned; null until the node binds it

protected:
    /// The value may be another one. Runs script.
    void report();
    /// Whether Escape or Enter has been used by the page.
    bool isKeyUsed(int key);
};

/// GUI thread.
class guiHtmlControlValue : public guiHtmlControl
{
public:
    explicit guiHtmlControlValue(guiHtml* parent = nullptr) : guiHtmlControl(parent) {}
    ~guiHtmlControlValue() override { destroyWidget(); }

    int getControlType() override { return kControlValue; }
    using guiHtmlControl::operator=;

    /// Shows another value without telling script. 1, or 0 for what is none.
    int setText(sstring const& text, sstring const& directory) override;
    /// What stands in the control now, a value or not.
    sstring getText() override;
    QWidget* getChildWidget() override { return m_shown ? m_shown->widget() : nullptr; }
    void createChildWidget() override;
    void destroyChildWidget() override;

    bool takesFormValue(ScriptValue& value) const override;
    void readFormProperty(ScriptObject* form) override;
    void writeFormProperty(ScriptObject* form) override;
    void eraseFormProperty(ScriptObject* form) override;

    /// The user has done something: follows the link if the value is another one than before.
    void onChange();

protected:
    virtual guiValueWidget* makeWidget(QWidget* parent) = 0;
    /// A value as the form has it; none for a text that is no value of this control. "" is asked of as well.
    virtual std::optional<QString> valueOf(QString const& text) const = 0;
    /// What the widget makes of a value; it is what the user sees that counts.
    virtual QString asShown(QString const& value) const { return value; }
    void onAwait() override;
    /// The value is another one now, whoever has changed it; script has not heard of it yet. May run script: the
    /// control may be gone afterwards.
    virtual void onNewValue() {}
    /// Whether the value is a number in forms that have such.
    virtual bool isNumber() const { return false; }

private:
    QString formText();
    QString plain(QString const& value) const;
    bool changeText(sstring const& text);
    void destroyWidget();

    guiValueWidget* m_shown = nullptr; // owned
    QString m_told;                    // the value of which script knows, of a number its shortest text
};
