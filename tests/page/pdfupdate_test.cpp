// tests/page/pdfupdate_test.cpp: links and outlines that are added to a PDF file.
#include "page/guipdffile.h"
#include "page/guipdfupdate.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <gtest/gtest.h>

namespace {

/// A file of pages with some text.
QByteArray documentOf(int pages)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setPageSize(QPageSize(QPageSize::A4));
    QPainter painter(&writer);
    for (int i = 0; i < pages; ++i) {
        if (i != 0)
            writer.newPage();
        painter.drawText(100, 100, QStringLiteral("page %1").arg(i + 1));
    }
    painter.end();
    return buffer.data();
}

struct Updated
{
    explicit Updated(int pages, guiPdfAdditions const& additions) : before(documentOf(pages))
    {
        buffer.setData(before);
        buffer.open(QIODevice::ReadWrite);
        isDone = guiUpdatePdf(buffer, additions);
        EXPECT_TRUE(file.open());
    }

    QByteArray follow(QByteArray const& dictionary, char const* key)
    {
        return file.object(guiPdfReference(guiPdfValue(dictionary, key)));
    }
    QByteArray catalog() { return follow(file.trailer(), "Root"); }

    QByteArray before;
    QBuffer buffer;
    guiPdfFile file{buffer};
    bool isDone = false;
};

guiPdfAdditions additionsOf(std::vector<guiPdfHeading> headings)
{
    guiPdfAdditions additions;
    additions.headings = std::move(headings);
    return additions;
}

} // namespace

TEST(PdfValue, ReadsWhatStandsBehindAKeyOfTheOutermostDictionary)
{
    QByteArray const text = "<< /Type /Page /Parent 2 0 R\n/Box [0 0 1 2] "
                            "/Inner << /Parent 9 0 R /Text (a\\)>>) >> /Last <FE> >>";
    EXPECT_EQ(guiPdfValue(text, "Type"), "/Page");
    EXPECT_EQ(guiPdfValue(text, "Parent"), "2 0 R");
    EXPECT_EQ(guiPdfValue(text, "Box"), "[0 0 1 2]");
    EXPECT_EQ(guiPdfValue(text, "Inner"), "<< /Parent 9 0 R /Text (a\\)>>) >>");
    EXPECT_EQ(guiPdfValue(text, "Last"), "<FE>");
    EXPECT_EQ(guiPdfValue(text, "Text"), "");
}

TEST(PdfValue, IsSetInPlaceOrAdded)
{
    EXPECT_EQ(guiPdfValue(guiWithPdfValue("<< /A 1 /B 2 >>", "A", "3"), "A"), "3");
    EXPECT_EQ(guiPdfValue(guiWithPdfValue("<< /A 1 /B 2 >>", "A", "3"), "B"), "2");
    EXPECT_EQ(guiPdfValue(guiWithPdfValue("<< /A 1 >>", "C", "[5]"), "C"), "[5]");
    EXPECT_EQ(guiPdfValue(guiWithPdfValue("<< /A 1 >>", "C", "[5]"), "A"), "1");
}

TEST(PdfUpdate, KeepsWhatIsThere)
{
    Updated const update(3, additionsOf({{1, QStringLiteral("Tea"), {0, 10}}}));
    EXPECT_TRUE(update.isDone);
    EXPECT_TRUE(update.buffer.data().startsWith(update.before));
    EXPECT_TRUE(update.buffer.data().endsWith("%%EOF\n"));
}

TEST(PdfUpdate, TheTrailerPointsToTheTableBefore)
{
    Updated update(1, additionsOf({{1, QStringLiteral("Tea"), {0, 10}}}));
    qsizetype const at = update.before.lastIndexOf("startxref");
    QByteArray const old = update.before.mid(at + 9).simplified().split(' ').first();
    EXPECT_EQ(guiPdfValue(update.file.trailer(), "Prev"), old);
    EXPECT_GT(guiPdfValue(update.file.trailer(), "Size").toInt(), 0);
}

TEST(PdfUpdate, HeadingsBecomeATree)
{
    Updated update(2, additionsOf({{1, QStringLiteral("Tea"), {0, 10}},
                                   {2, QStringLiteral("Gr\u00fcner"), {0, 50}},
                                   {3, QStringLiteral("Sencha"), {1, 5}},
                                   {1, QStringLiteral("Coffee"), {1, 100}}}));
    QByteArray const outlines = update.follow(update.catalog(), "Outlines");
    EXPECT_EQ(guiPdfValue(update.catalog(), "PageMode"), "/UseOutlines");
    EXPECT_EQ(guiPdfValue(outlines, "Count"), "4");
    QByteArray const tea = update.follow(outlines, "First");
    EXPECT_EQ(guiPdfValue(tea, "Title"), "<feff005400650061>");
    EXPECT_EQ(guiPdfValue(tea, "Count"), "2");
    QByteArray const green = update.follow(tea, "First");
    EXPECT_EQ(guiPdfValue(green, "Title"), "<feff0047007200fc006e00650072>");
    EXPECT_EQ(update.follow(green, "Parent"), tea);
    EXPECT_EQ(guiPdfValue(update.follow(green, "First"), "Title"), "<feff00530065006e006300680061>");
    QByteArray const coffee = update.follow(tea, "Next");
    EXPECT_EQ(update.follow(outlines, "Last"), coffee);
    EXPECT_EQ(update.follow(coffee, "Prev"), tea);
    EXPECT_EQ(guiPdfValue(coffee, "First"), "");
}

TEST(PdfUpdate, AHeadingLeadsToItsPlace)
{
    Updated update(2, additionsOf({{1, QStringLiteral("Tea"), {1, 100}}}));
    QByteArray const place = guiPdfValue(update.follow(update.follow(update.catalog(), "Outlines"), "First"), "Dest");
    QBuffer buffer(&update.before);
    buffer.open(QIODevice::ReadWrite);
    guiPdfFile plain(buffer);
    ASSERT_TRUE(plain.open());
    ASSERT_EQ(plain.pages().size(), 2u);
    EXPECT_EQ(place, "[" + guiToPdfReference(plain.pages()[1]) + " /XYZ 0 742.00 0]"); // A4 is 842 points high
}

TEST(PdfUpdate, LinksLeadOutAndInside)
{
    guiPdfAdditions additions;
    additions.links.push_back({0, QRectF(10, 20, 30, 40), "https://example.org/a(b)\\c d", {}});
    additions.links.push_back({1, QRectF(1, 2, 3, 4), {}, {0, 42}});
    Updated update(2, additions);
    ASSERT_TRUE(update.isDone);
    QByteArray const added = update.buffer.data().mid(update.before.size());
    EXPECT_TRUE(added.contains("/Rect [10.00 782.00 40.00 822.00]"));
    EXPECT_TRUE(added.contains("/S /URI /URI (https://example.org/a\\(b\\)\\\\c%20d)"));
    EXPECT_TRUE(added.contains("/S /GoTo /D ["));
    EXPECT_TRUE(added.contains("/XYZ 0 800.00 0]"));
}

TEST(PdfUpdate, WhatLeadsNowhereIsLeftOut)
{
    guiPdfAdditions additions = additionsOf({{1, QStringLiteral("Tea"), {7, 10}}, {1, QString(), {0, 10}}});
    additions.links.push_back({3, QRectF(10, 20, 30, 40), "https://example.org", {}});
    additions.links.push_back({0, QRectF(10, 20, 30, 40), {}, {-1, 0}});
    Updated update(1, additions);
    EXPECT_TRUE(update.isDone);
    EXPECT_FALSE(update.buffer.data().mid(update.before.size()).contains("/Annot"));
    EXPECT_EQ(guiPdfValue(update.catalog(), "Outlines"), "");
}

TEST(PdfUpdate, OtherFilesAreRefused)
{
    for (QByteArray const& bytes :
         {QByteArray(), QByteArray("startxref\n"), QByteArray("%PDF-1.4\nstartxref\n99999\n%%EOF"),
          QByteArray("xref\n0 9\nstartxref\n0\n%%EOF"), documentOf(1).left(500)}) {
        QBuffer buffer;
        buffer.setData(bytes);
        buffer.open(QIODevice::ReadWrite);
        EXPECT_FALSE(guiUpdatePdf(buffer, {}));
    }
}
