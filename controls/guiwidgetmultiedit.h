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

    guiHtmlControlEdit* owner = nullptr; ///< not owned; null until the node binds it

public slots:
    void onChange();

protected:
    bool event(QEvent* event) override;
};
