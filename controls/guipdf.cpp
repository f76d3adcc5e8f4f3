// controls/guipdf.cpp: see guipdf.h.
#include "controls/guipdf.h"

#include "controls/guipapersheets.h"
#include "foundation/vela-error.h"
#include "foundation/vela-qt.h"

#include <QFileInfo>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QTemporaryFile>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <sys/stat.h>

namespace {

QString errorText(int number) { return QString::fromLocal8Bit(std::strerror(number)); }

void describe(QPdfWriter& writer, guiPaper const& paper)
{
    writer.setTitle(paper.title);
    writer.setCreator(QStringLiteral("tarn"));
    writer.setResolution(guiPaperSheets::kUnitsPerInch);
    writer.setPageSize(QPageSize(paper.size, QPageSize::Millimeter, QString(), QPageSize::ExactMatch));
    writer.setPageMargins(QMarginsF(), QPageLayout::Millimeter);
}

/// False when the file can not be written.
bool paintSheets(QFile& file, guiPaperSheets& sheets, guiPaper const& paper) TARN_ON(velaGuiRole)
{
    QPdfWriter writer(&file);
    describe(writer, paper);
    QPainter painter;
    if (!painter.begin(&writer))
        return false;
    for (int i = 0; i < sheets.count(); ++i) {
        if (i != 0 && !writer.newPage())
            return false;
        sheets.paint(painter, i);
    }
    return painter.end() && file.error() == QFileDevice::NoError;
}

/// Those of the file that is replaced, or those that new files have.
QFileDevice::Permissions permissionsFor(QFileInfo const& target)
{
    if (target.exists())
        return target.permissions();
    mode_t const mask = umask(0);
    umask(mask);
    QFileDevice::Permissions allowed = QFileDevice::ReadOwner | QFileDevice::WriteOwner;
    for (auto const& [bit, permission] :
         {std::pair(S_IRGRP, QFileDevice::ReadGroup), std::pair(S_IWGRP, QFileDevice::WriteGroup),
          std::pair(S_IROTH, QFileDevice::ReadOther), std::pair(S_IWOTH, QFileDevice::WriteOther)})
        if ((mask & static_cast<mode_t>(bit)) == 0)
            allowed |= permission;
    return allowed;
}

/// What a link leads to is replaced, not the link.
QString targetOf(QString const& path)
{
    QString const real = QFileInfo(path).canonicalFilePath();
    return real.isEmpty() ? path : real;
}

QString problemOf(QFile const& file)
{
    return file.error() == QFileDevice::NoError ? QStringLiteral("it could not be written") : file.errorString();
}

/// "" or what went wrong.
QString write(QFile& file, guiPageRoot& page, guiPaper const& paper) TARN_ON(velaGuiRole)
{
    guiPaperSheets sheets(page, paper);
    if (!paintSheets(file, sheets, paper))
        return problemOf(file);
    return guiUpdatePdf(file, sheets.findAdditions()) && file.flush() ? QString() : problemOf(file);
}

} // namespace

QString guiWritePdf(guiPageRoot& page, guiPaper const& paper, QString const& path)
{
    QFileInfo const target(targetOf(path));
    if (target.exists() && !target.isFile())
        return target.isDir() ? errorText(EISDIR) : QStringLiteral("it is not a plain file");
    if (target.exists() && !target.isWritable())
        return errorText(EACCES);
    QTemporaryFile file(target.absolutePath() + QStringLiteral("/.tarn-XXXXXX.pdf"));
    if (!file.open())
        return file.errorString();
    try {
        if (QString problem = write(file, page, paper); !problem.isEmpty())
            return problem;
    } catch (velaError const& error) {
        return sstoq(error.getMessage());
    }
    file.setPermissions(permissionsFor(target));
    if (std::rename(QFile::encodeName(file.fileName()).constData(),
                    QFile::encodeName(target.absoluteFilePath()).constData()) != 0)
        return errorText(errno);
    file.setAutoRemove(false);
    return {};
}
