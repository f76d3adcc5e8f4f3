// controls/guiwidgetlineedit.h: the native widget of a text, password or file field.
#pragma once

#include <QLineEdit>

class guiHtmlControlEdit;
class guiTextLimit;

/// Escape and Enter go to the node. GUI thread.
class guiWidgetLineEdit : public QLineEdit
{
    Q_OBJECT

public:
    explicit guiWidgetLineEdit(QWidget* parent = nullptr);

    /// Changes the text in one step that can be undone; the cursor stays where it is, as far as the text reaches.
    void replaceText(QString const& text);

    /// The user may put in so many characters; any number when it is not above 0.
    void setMost(int characters);
    /// Offers these while the user types a part of them.
    void complete(QStringList const& options);

    guiHtmlControlEdit* owner = nullptr; ///< not owned; null until the node binds it

public slots:
    void onChange(QString const& text);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    bool isCompleting() const;

    guiTextLimit* m_limit = nullptr; // null: none; a child
};
