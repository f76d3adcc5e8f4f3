// tests/page/textlines.cpp: see textlines.h.
#include "tests/page/textlines.h"

#include "page/guihtmltext-lines.h"
#include "page/guihtmltext-piece.h"
#include "tests/page/pagetree.h"

#include <QPainter>
#include <gtest/gtest.h>

std::string linesOf(std::u16string const& text, int width)
{
    guiTextRun const run(text, guiTextFonts::of(testFont()), 10, true);
    guiLineBreaker breaker(run, text, width);
    QString lines;
    while (breaker.next()) {
        if (!lines.isEmpty())
            lines += u'|';
        for (guiTextPiece const& piece : breaker.pieces()) {
            lines += QStringView(text).mid(piece.start, piece.length);
            if (piece.isHyphenated)
                lines += u'~';
        }
        if (breaker.pieces().empty())
            lines += u"<empty>";
        EXPECT_LE(breaker.width(), width) << lines.toStdString();
    }
    return lines.toStdString();
}

namespace {

constexpr int kBaseLine = 20;

QImage whitePicture(QSize size)
{
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::white);
    return picture;
}

} // namespace

QImage drawnByPieces(QStringView text, QSize size)
{
    QImage picture = whitePicture(size);
    QPainter painter(&picture);
    guiTextRun const run(text, guiTextFonts::of(testFont()), 10, true);
    guiLineBreaker breaker(run, text, 1000000);
    EXPECT_TRUE(breaker.next());
    for (guiTextPiece const& piece : breaker.pieces())
        guiDrawPiece(painter, run.chunks()[piece.chunk], piece, QPointF(piece.left, kBaseLine), text);
    return picture;
}

QImage drawnWhole(QStringView text, QSize size)
{
    QImage picture = whitePicture(size);
    QPainter painter(&picture);
    painter.setFont(testFont());
    painter.drawText(QPointF(0, kBaseLine), text.toString());
    return picture;
}
