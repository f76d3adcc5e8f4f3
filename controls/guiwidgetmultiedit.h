// controls/guiwidgetmultiedit.h: the native widget of a `textarea` of several lines.
#pragma once

#include <QPlainTextEdit>

class guiHtmlControlEdit;

/// Wraps at its own width, between words. All keys are the editor's. Too narrow for text beside a scroll bar it has
/// none. GUI thread.
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
