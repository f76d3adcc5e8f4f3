// tests/page/text-conversion_test.cpp: text between the foundation library and the toolkit.
#include "foundation/vela-qt.h"

#include <gtest/gtest.h>

namespace {

TEST(TextConversion, UnitsGoBothWaysUnchanged)
{
    QString const text = QStringLiteral("Gr\u00FC\u00DFe \U0001F600 \u6587\u5B57");
    sstring const converted = qtoss(text);
    EXPECT_EQ(converted.getLength(), static_cast<unsigned>(text.size()));
    EXPECT_EQ(sstoq(converted), text);
    EXPECT_EQ(sstoview(converted), text);
}

TEST(TextConversion, EmptyTextsAreEmpty)
{
    EXPECT_EQ(qtoss(QString()).getLength(), 0u);
    EXPECT_EQ(sstoq(sstring()), QString());
    EXPECT_TRUE(sstoview(sstring()).isEmpty());
}

TEST(TextConversion, ZeroUnitsAndUnpairedSurrogatesStay)
{
    QString const text = QString(QChar(u'a')) + QChar(0) + QChar(0xD800) + QChar(u'b');
    EXPECT_EQ(sstoq(qtoss(text)), text);
}

} // namespace
