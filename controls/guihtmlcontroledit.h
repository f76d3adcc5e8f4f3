// controls/guihtmlcontroledit.h: text, password, search and file fields, and text areas. guihtmlcontroledit-widget.cpp
// makes their widgets.
#pragma once

#include "controls/guihtmlcontrol.h"

class guiWidgetLineEdit;
class guiWidgetMultiEdit;

enum guiEditType : int
{
    kEditText = 0,
    kEditPassword = 1,
    kEditFile = 2,
    kEditSearch = 3,
};

/// A text field of one line (`rows` 1) or of several; one with less than one row is not shown. GUI thread.
class guiHtmlControlEdit : public guiHtmlControl
{
public:
    static constexpr int kDefaultSize = 20;
    static constexpr int kDefaultRows = 2;

    /// What the page's attributes say.
    struct fieldShape
    {
        guiEditType type = kEditText;
        int size = kDefaultSize; ///< visible width in characters
        int maxLength = 0;       ///< characters that the user may put in; 0 or less: any number
        int rows = 1;            ///< visible lines
    };

    /// What few fields have.
    struct fieldExtras
    {
        sstring placeholder; ///< shown while the field is empty
        sstring list;        ///< name of the list of what can be completed to
        bool isReadOnly = false;
        bool canReveal = false; ///< a password
        bool wraps = true;      ///< a text area
        bool operator==(fieldExtras const&) const = default;
    };

    explicit guiHtmlControlEdit(guiHtml* parent = nullptr) : guiHtmlControl(parent) {}
    ~guiHtmlControlEdit() override;

    int getControlType() override { return kControlEdit; }
    using guiHtmlControl::operator=;
    guiHtml& operator=(guiHtml& other) override;
    guiHtml* Clone(guiHtml* parent) override;

    fieldShape const& getShape() const { return m_shape; }
    void init(fieldShape const& shape) { m_shape = shape; }
    void setExtras(fieldExtras const& extras);

    /// Changes the text in place, so that the focus, the place of the cursor and what can be undone stay; the link is
    /// not followed. Always 1.
    int setText(sstring const& text, sstring const& directory) override;
    /// The same, and follows the link if there is a widget. The node may be gone afterwards.
    int setText(sstring const& text);
    /// What the field holds now.
    sstring getText() override;

    /// Selects the text between two places, in units from its begin, as far as there is text, and scrolls to the
    /// second; the cursor is there. Does nothing outside of a window.
    void select(double start, double end);

    int getPreferredWidth() override;
    int getHeightEstimate(unsigned long width) override;
    bool keepsHeight() const override { return m_shape.rows <= 1; }
    QWidget* getChildWidget() override;
    void createChildWidget() override;
    void destroyChildWidget() override;

    bool takesFormValue(ScriptValue& value) const override;
    void readFormProperty(ScriptObject* form) override;
    void writeFormProperty(ScriptObject* form) override;
    void eraseFormProperty(ScriptObject* form) override;

    /// The user changed the text: if there is a link, the node stores the text and follows the link.
    virtual void onChange(sstring const& text);

protected:
    void addScriptMethods(ScriptObject* object) override;
    sstring findMistake() override;
    /// One for files keeps its widget, which has a dialog.
    bool isOfFrequentKind() const override { return m_shape.rows >= 1 && m_shape.type != kEditFile; }
    void onAwait() override;
    void keepState() override;

private:
    /// Where the user was in the text when the widget went.
    struct fieldView
    {
        int cursor = -1; // units; below 0: where a new widget has it
        int top = 0;     // the first line shown in a text area
    };

    fieldExtras const& extras() const;
    void equipLine();
    void equipArea();
    void addCompletion();
    void createLineEdit();
    void createMultiEdit();
    void destroyWidgets();
    bool changeText(sstring const& text);
    void showText();
    void awaitText();
    void restoreView();

    fieldShape m_shape;
    std::shared_ptr<fieldExtras const> m_extras; // null: none
    fieldView m_view;
    guiWidgetLineEdit* m_lineEdit = nullptr;   // owned, for one row
    guiWidgetMultiEdit* m_multiEdit = nullptr; // owned, for several
};
