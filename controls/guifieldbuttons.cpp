// controls/guifieldbuttons.cpp: see guifieldbuttons.h.
#include "controls/guifieldbuttons.h"

#include "controls/guifieldicon.h"
#include "controls/guiowntexts.h"

#include <QAction>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>

namespace {

QAction* addButton(QLineEdit* field, guiFieldIcon icon, QString const& tip)
{
    QAction* const button = field->addAction(guiIconOf(icon), QLineEdit::TrailingPosition);
    button->setToolTip(tip);
    button->setShortcuts({QKeySequence(Qt::ALT | Qt::Key_Down), QKeySequence(Qt::Key_F4)});
    button->setShortcutContext(Qt::WidgetShortcut);
    return button;
}

void reveal(QLineEdit* field, QAction* button)
{
    bool const isHidden = field->echoMode() != QLineEdit::Password; // from now on
    field->setEchoMode(isHidden ? QLineEdit::Password : QLineEdit::Normal);
    button->setIcon(guiIconOf(isHidden ? guiFieldIcon::kEye : guiFieldIcon::kClosedEye));
    button->setToolTip(isHidden ? guiOwnText("Show") : guiOwnText("Hide"));
}

/// The dialog goes with the field, and with the window that it blocks.
void browse(QLineEdit* field)
{
    if (field->isReadOnly())
        return;
    auto* const dialog = new QFileDialog(field);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowModality(Qt::WindowModal);
    dialog->setFileMode(QFileDialog::ExistingFile);
    if (QFileInfo const file(field->text()); file.isAbsolute()) {
        dialog->setDirectory(file.absolutePath());
        dialog->selectFile(file.fileName());
    }
    QObject::connect(dialog, &QFileDialog::fileSelected, field, [field](QString const& path) {
        field->selectAll();
        field->insert(path);
    });
    dialog->show();
}

} // namespace

void guiAddRevealButton(QLineEdit* field)
{
    QAction* const button = addButton(field, guiFieldIcon::kEye, guiOwnText("Show"));
    QObject::connect(button, &QAction::triggered, field, [field, button] { reveal(field, button); });
}

void guiAddBrowseButton(QLineEdit* field)
{
    QAction* const button = addButton(field, guiFieldIcon::kFolder, guiOwnText("Choose a file"));
    QObject::connect(button, &QAction::triggered, field, [field] { browse(field); });
}

void guiAddCalendarButton(QLineEdit* field, std::function<void()> const& show)
{
    QAction* const button = addButton(field, guiFieldIcon::kCalendar, guiOwnText("Choose a day"));
    QObject::connect(button, &QAction::triggered, field, show);
}
