// fuzz/textcodes.cpp: any text as a text run with formatting codes. The parts that the scanner finds add up to the
// text; measuring, measuring again and painting agree at every width.
//
// Input: width, alignment, then the text.

#include "fuzz/bytes.h"
#include "fuzz/finding.h"
#include "fuzz/qtapplication.h"
#include "page/guihtmltext-codes.h"
#include "page/guihtmltext.h"
#include "tests/page/pagetree.h"

#include <QImage>
#include <QPainter>
#include <QString>

namespace {

void checkParts(QString const& text)
{
    guiTextScanner scanner(text);
    QString joined;
    while (scanner.next()) {
        require(scanner.start() == joined.size(), "a part does not begin where the one before ended");
        QString const part = scanner.part().toString();
        joined += scanner.isCode() ? QStringLiteral("[[") + part + QStringLiteral("]]") : part;
        if (!scanner.isCode())
            continue;
        guiReadTextCode(scanner.part());
        require(guiReadIndent(scanner.part()) >= 0, "a negative indentation");
        guiReadColorCode(scanner.part());
    }
    require(joined == text, "the parts are not the text");
}

sstring toText(QString const& text) { return sstring(reinterpret_cast<unsigned short const*>(text.utf16())); }

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    startQt();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(uint8_t const* bytes, size_t size)
{
    FuzzBytes input(bytes, size);
    unsigned const width = input.word() % 900;
    auto const align = static_cast<guiAlignment>(input.below(3));
    std::string const utf8 = input.rest();
    QString text = QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
    text.remove(QChar(u'\0'));
    checkParts(text);

    testRoot root;
    root.m.alignX = align;
    guiHtmlText* run = addText(&root, "");
    run->editText() = toText(text);
    int const preferred = run->getPreferredWidth();
    int const height = run->getHeightEstimate(width);
    require(preferred >= 0 && height >= 0, "a negative size");
    require(run->getPreferredWidth() == preferred, "the preferred width changed");
    require(run->getHeightEstimate(width) == height, "the height for a width changed");
    require(run->getHeightEstimate(width + 200) >= 0, "a negative height");
    require(run->getHeightEstimate(width) == height, "the height for a width depends on an earlier one");

    root.layOut(static_cast<int>(width), 200);
    QImage image(200, 100, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    root.paintTo(&painter, 0, 0, nullptr, nullptr);
    for (int x : {2, 20, 60}) {
        run->onMouseMove(x, 5);
        run->onMouseOff();
    }
    return 0;
}
