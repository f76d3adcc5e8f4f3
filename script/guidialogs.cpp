// script/guidialogs.cpp: see the header. Each kind has a function that makes the dialog and says how its answer is
// read.
#include "script/guidialogs.h"

#include "controls/guiowntexts.h"
#include "controls/guiwidget.h"
#include "foundation/vela-qt.h"
#include "foundation/vela-threadrole.h"
#include "runtime/gui.h"
#include "runtime/guithread.h"

#include <QAbstractButton>
#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <memory>
#include <utility>

namespace {

using answerList = std::vector<sstring>;

constexpr char kName[] = "tarnName"; // of a button, as script knows it

/// A dialog, owned by its parent or by itself, and what the user chose in it when it was accepted.
struct madeDialog
{
    QDialog* dialog;
    std::function<answerList()> read;
};

/// Gives the answer once: when the dialog has ended, or when it goes without an end, with its window.
class pendingAnswer
{
public:
    explicit pendingAnswer(guiDialogAnswer answer) : m_answer(std::move(answer)) {}
    ~pendingAnswer() { give({}); }
    pendingAnswer(pendingAnswer const&) = delete;
    pendingAnswer& operator=(pendingAnswer const&) = delete;

    void give(answerList const& chosen)
    {
        if (auto const answer = std::exchange(m_answer, nullptr))
            answer(chosen);
    }
    /// The application ends: nobody hears the answer any more.
    void drop() { m_answer = nullptr; }

private:
    guiDialogAnswer m_answer;
};

/// Ends a dialog when its window disappears. The window may be deleted only later, at the end of a handler that waits
/// for the answer. Belongs to the dialog.
class windowWatch : public QObject
{
public:
    windowWatch(QDialog* dialog, QWidget* window) : QObject(dialog), m_dialog(dialog)
    {
        window->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Hide && !event->spontaneous()) // spontaneous: the user has minimized it
            m_dialog->reject();
        return QObject::eventFilter(watched, event);
    }

private:
    QDialog* m_dialog; // its owner
};

/// The window that a dialog belongs to. A window manager may be late to say which one is active, or never say it.
QWidget* owningWindow()
{
    if (QWidget* active = QApplication::activeWindow())
        return active;
    if (QWidget* modal = QApplication::activeModalWidget())
        return modal;
    QWidget* shown = nullptr;
    for (QWidget* each : QApplication::topLevelWidgets())
        if (each->isVisible() && qobject_cast<guiWidget*>(each))
            shown = each;
    return shown;
}

// ---- Messages and questions ----

QMessageBox::Icon iconOf(sstring const& name)
{
    if (name == "warning")
        return QMessageBox::Warning;
    if (name == "error")
        return QMessageBox::Critical;
    return name == "question" ? QMessageBox::Question : QMessageBox::Information;
}

QMessageBox* makeMessage(guiDialogRequest const& request, QMessageBox::Icon icon, QWidget* parent)
{
    auto* box = new QMessageBox(parent);
    box->setIcon(icon);
    box->setTextFormat(Qt::PlainText);
    box->setText(sstoq(request.text));
    return box;
}

/// A style may add a letter for the keyboard to the text of a button, so the name is kept beside it. A "&" is one.
void addNamed(QMessageBox* box, QString const& name, QString label)
{
    box->addButton(label.replace(u'&', QStringLiteral("&&")), QMessageBox::AcceptRole)->setProperty(kName, name);
}

/// A box with buttons of script's names. One more button, which is not shown, is what closing the box means.
madeDialog makeAlert(guiDialogRequest const& request, QWidget* parent)
{
    QMessageBox* box = makeMessage(request, iconOf(request.option), parent);
    for (sstring const& name : request.names)
        addNamed(box, sstoq(name), sstoq(name));
    if (request.names.empty())
        addNamed(box, QStringLiteral("OK"), guiOwnText("OK"));
    box->setDefaultButton(qobject_cast<QPushButton*>(box->buttons().constFirst()));
    QAbstractButton* const closing = box->addButton(QStringLiteral("X"), QMessageBox::RejectRole);
    box->setEscapeButton(closing);
    closing->hide();
    return {box, [box, closing]() -> answerList {
                QAbstractButton* const pressed = box->clickedButton();
                return pressed && pressed != closing ? answerList{qtoss(pressed->property(kName).toString())}
                                                     : answerList();
            }};
}

madeDialog makeConfirm(guiDialogRequest const& request, QWidget* parent)
{
    QMessageBox* box = makeMessage(request, QMessageBox::Question, parent);
    box->setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel);
    box->setDefaultButton(QMessageBox::Ok);
    return {box, [box]() -> answerList {
                bool const isYes = box->clickedButton() == box->button(QMessageBox::Ok);
                return isYes ? answerList{sstring("yes")} : answerList();
            }};
}

madeDialog makePrompt(guiDialogRequest const& request, QWidget* parent)
{
    auto* dialog = new QInputDialog(parent);
    dialog->setInputMode(QInputDialog::TextInput);
    dialog->setTextEchoMode(request.option == "password" ? QLineEdit::Password : QLineEdit::Normal);
    dialog->setLabelText(sstoq(request.text));
    dialog->setTextValue(sstoq(request.value));
    constexpr int kLeastWidth = 320;
    dialog->resize(dialog->sizeHint().expandedTo(QSize(kLeastWidth, 0))); // makes the widgets
    for (QLabel* label : dialog->findChildren<QLabel*>())
        label->setTextFormat(Qt::PlainText);
    return {dialog, [dialog]() -> answerList { return {qtoss(dialog->textValue())}; }};
}

// ---- Files and colours ----

answerList pathsOf(QFileDialog const& dialog)
{
    answerList paths;
    for (QString const& path : dialog.selectedFiles())
        paths.push_back(qtoss(path));
    return paths;
}

QFileDialog::FileMode fileModeOf(sstring const& kind)
{
    if (kind == "openFolder")
        return QFileDialog::Directory;
    if (kind == "saveFile")
        return QFileDialog::AnyFile;
    return kind == "openFiles" ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile;
}

madeDialog makeFileDialog(guiDialogRequest const& request, QWidget* parent)
{
    auto* dialog = new QFileDialog(parent);
    dialog->setFileMode(fileModeOf(request.kind));
    dialog->setOption(QFileDialog::ShowDirsOnly, request.kind == "openFolder");
    if (request.kind == "saveFile")
        dialog->setAcceptMode(QFileDialog::AcceptSave);
    if (request.text.getLength() != 0)
        dialog->setDirectory(sstoq(request.text));
    QStringList filters;
    for (sstring const& filter : request.names)
        filters << sstoq(filter);
    if (!filters.isEmpty())
        dialog->setNameFilters(filters);
    if (request.value.getLength() != 0)
        dialog->selectFile(sstoq(request.value));
    return {dialog, [dialog] { return pathsOf(*dialog); }};
}

madeDialog makeColorDialog(guiDialogRequest const& request, QWidget* parent)
{
    auto* dialog = new QColorDialog(parent);
    if (QColor const color(sstoq(request.value)); color.isValid())
        dialog->setCurrentColor(color);
    return {dialog, [dialog]() -> answerList { return {qtoss(dialog->selectedColor().name().toUpper())}; }};
}

struct dialogKind
{
    char const* name;
    madeDialog (*make)(guiDialogRequest const& request, QWidget* parent);
};

constexpr dialogKind kKinds[] = {
    {"alert", makeAlert},           {"confirm", makeConfirm},       {"prompt", makePrompt},
    {"openFile", makeFileDialog},   {"openFiles", makeFileDialog},  {"saveFile", makeFileDialog},
    {"openFolder", makeFileDialog}, {"pickColor", makeColorDialog},
};

bool isMessage(sstring const& kind) { return kind == "alert" || kind == "confirm"; }

/// Passes the answer on when the dialog ends, and deletes it then. A message box has no result but its button.
void connectAnswer(madeDialog const& made, bool isMessage, guiDialogAnswer answer)
{
    QDialog* const dialog = made.dialog;
    auto const pending = std::make_shared<pendingAnswer>(std::move(answer));
    QObject::connect(dialog, &QDialog::finished, dialog, [made, isMessage, pending](int result) {
        bool const hasAnswer = isMessage || result == QDialog::Accepted;
        made.dialog->deleteLater();
        pending->give(hasAnswer ? made.read() : answerList());
    });
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, dialog, [dialog, pending] {
        pending->drop();
        delete dialog;
    });
}

} // namespace

bool guiDialog_show(guiDialogRequest const& request, guiDialogAnswer answer)
{
    assertOnGuiThread();
    for (dialogKind const& known : kKinds) {
        if (request.kind != known.name)
            continue;
        QWidget* const parent = owningWindow();
        madeDialog const made = known.make(request, parent);
        guiUseOwnDirection(made.dialog);
        if (request.title.getLength() != 0)
            made.dialog->setWindowTitle(sstoq(request.title));
        connectAnswer(made, isMessage(request.kind), std::move(answer));
        if (parent)
            new windowWatch(made.dialog, parent);
        made.dialog->setWindowModality(parent ? Qt::WindowModal : Qt::ApplicationModal);
        pGUI->getThread()->forceEnable();
        made.dialog->show();
        return true;
    }
    return false;
}
