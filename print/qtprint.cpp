// print/qtprint.cpp: the library that knows printers, see controls/guiprintmodule.h.
#include "controls/guiprintmodule.h"

#include <QPrintDialog>
#include <QPrinter>
#include <QString>
#include <memory>
#include <utility>

namespace {

/// The dialog, what it is about, and who waits for the answer. Goes with the dialog.
class question : public QObject
{
public:
    question(QPrintDialog* dialog, std::unique_ptr<QPrinter> printer, void* data,
             void (*answered)(void*, TarnPrintout const*))
        : QObject(dialog), m_dialog(dialog), m_printer(std::move(printer)), m_data(data), m_answered(answered)
    {
        connect(dialog, &QDialog::finished, this, [this](int result) { end(result == QDialog::Accepted); });
    }
    ~question() override { answer(nullptr); }

private:
    void end(bool isAccepted)
    {
        TarnPrintout printout{m_printer.get(), m_printer->fromPage(), m_printer->toPage()};
        answer(isAccepted ? &printout : nullptr);
        m_dialog->deleteLater();
    }

    void answer(TarnPrintout const* printout)
    {
        if (auto* const answered = std::exchange(m_answered, nullptr))
            answered(m_data, printout);
    }

    QPrintDialog* m_dialog; // owns this
    std::unique_ptr<QPrinter> m_printer;
    void* m_data;
    void (*m_answered)(void*, TarnPrintout const*);
};

void ask(QWidget* over, QString const& title, void* data, void (*answered)(void* data, TarnPrintout const* printout))
{
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    printer->setDocName(title);
    printer->setFullPage(true);
    auto* const dialog = new QPrintDialog(printer.get(), over);
    dialog->setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintPageRange |
                       QAbstractPrintDialog::PrintCollateCopies | QAbstractPrintDialog::PrintShowPageSize);
    new question(dialog, std::move(printer), data, answered);
    dialog->setWindowModality(over ? Qt::WindowModal : Qt::ApplicationModal);
    dialog->show();
}

} // namespace

extern "C" __attribute__((visibility("default"))) TarnPrintModule const* tarnPrintModule()
{
    static constexpr TarnPrintModule module{TARN_PRINT_VERSION, ask};
    return &module;
}
