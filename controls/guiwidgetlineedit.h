// controls/guiwidgetlineedit.h: the native widget of a text, password or file field.
#pragma once

#include <QLineEdit>

class guiHtmlControlEdit;

/// Escape and Enter go to the node. GUI thread.
class guiWidgetLineEdit : public QLineEdit
{
    Q_OBJECT

public:
    explicit guiWidgetLineEdit(QWidget* parent = nullptr);

    /// Changes the text in one step that can be undone; the cursor stays where it is, as far as the text reaches.
    void replaceText(QString const& text);

    guiHtmlControlEdit* owner = nullptr; ///< not owned; null until the node binds it

public slots:
    void onChange(QString const& text);

protected:
    void keyPressEvent(QKeyEvent* event) override;
};
