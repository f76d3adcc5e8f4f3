// controls/guiwidgetmultiedit.h: the native widget of a `textarea` of several lines.
#pragma once

#include <QPlainTextEdit>

class guiHtmlControlEdit;

/// Wraps between words at its own width. Tab and Shift+Tab leave it; it handles all other keys itself. When it is too
/// narrow for text beside a scroll bar, it has no scroll bar. GUI thread.
class guiWidgetMultiEdit : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit guiWidgetMultiEdit(QWidget* parent = nullptr);

    /// Changes the text in one step that can be undone; the cursor stays where it is, as far as the text reaches.
    void replaceText(QString const& text);

    /// What text areas make of a text: their own ends of lines and blanks.
    static QString shown(QString const& text);
    /// As far as the text reaches, in units from its begin.
    void moveCursorTo(int position);
    /// The first line that is shown, once the area has its size.
    void scrollWhenPlaced(int line) { m_firstLine = line; }

    /// The user may put in so many characters; any number when it is not above 0.
    void setMost(int characters) { m_most = characters; }

    guiHtmlControlEdit* owner = nullptr; ///< not owned; null until the node binds it

public slots:
    void onChange();

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void insertFromMimeData(QMimeData const* source) override;

private:
    QString fitting(QString const& typed) const;

    int m_most = 0;      // characters
    int m_firstLine = 0; // to scroll to with the next size; 0: none
    QString m_lastText;  // when it was last reported that it may have changed
};
