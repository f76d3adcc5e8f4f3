// controls/guihtmldetails.h: the elements `details` and `summary`: a line with an arrow that unfolds what is below it.
#pragma once

#include "controls/guihtmlcontrol.h"
#include "page/guihtmlsheet.h"

class guiHtmlSummary;
class guiWidgetSummary;

/// What is unfolded. Stands below its line, in the same node. GUI thread.
class guiHtmlDetailsSheet : public guiHtmlSheet
{
public:
    explicit guiHtmlDetailsSheet(guiHtml* parent = nullptr) : guiHtmlSheet(parent) {}

    using guiHtml::operator=;
    guiHtml* Clone(guiHtml* parent) override { return guiCloneNode(*this, parent); }
    void bringToFront() override;
    /// The line above it, null for a node that is in no `details`.
    guiHtmlSummary* summary() const;
    /// The page's text for the line: the first one counts. False when there is one already.
    bool takeSummary(sstring const& text);

private:
    bool m_hasSummary = false;
};

/// The line. It has the name of the element; its value is whether it is unfolded, and its text what it shows.
/// GUI thread.
class guiHtmlSummary : public guiHtmlControl
{
public:
    explicit guiHtmlSummary(guiHtml* parent = nullptr) : guiHtmlControl(parent) {}
    ~guiHtmlSummary() override { destroyWidget(); }

    using guiHtmlControl::operator=;
    guiHtml* Clone(guiHtml* parent) override { return guiCloneNode(*this, parent); }
    int setText(sstring const& text, sstring const& directory) override;
    int getPreferredWidth() override;
    int getHeightEstimate(unsigned long width) override;
    QWidget* getChildWidget() override;
    void createChildWidget() override;
    void destroyChildWidget() override;
    void triggerNow() override { onClick(); }

    bool isOpen() const;
    /// Lays the page out. When the keyboard was in what is folded, it goes on here. May run script.
    void setOpen(bool open);
    /// The user has pressed the line. Runs script.
    void onClick();

    bool takesFormValue(ScriptValue& value) const override;
    void readFormProperty(ScriptObject* form) override;
    void writeFormProperty(ScriptObject* form) override;
    void eraseFormProperty(ScriptObject* form) override;

private:
    guiHtmlDetailsSheet* sheet() const;
    void destroyWidget();

    guiWidgetSummary* m_button = nullptr; // owned
};
