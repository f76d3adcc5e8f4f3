// tests/foundation/mlparser-errors_test.cpp: syntax errors, with code, line and text, and the sections that remain.

#include "tests/foundation/markup.h"

namespace {

/// "code@line" of a page's syntax error, or "none".
std::string errorIn(std::string const& page)
{
    MemorySource source(page);
    mlParser parser(source.get());
    try {
        parser.fullParse();
    } catch (mlParseError const& error) {
        return std::to_string(error.getCode()) + "@" + std::to_string(error.getLine());
    }
    return "none";
}

} // namespace

TEST(ParseErrors, TextsWithAndWithoutLine)
{
    char const* const texts[] = {"unexpected symbol found\n",
                                 "expected tag name after token\n",
                                 "expected tag closure marker\n",
                                 "expected cdata section closure marker\n",
                                 "expected tag attribute value\n",
                                 "tag name exceeded reasonable length\n",
                                 "attribute name exceeded reasonable length\n",
                                 "attribute value exceeded reasonable length\n",
                                 "unrecognized exception\n"};
    for (int code = 0; code < 9; ++code) {
        mlParseError const plain(static_cast<mlParseErrorCode>(code));
        EXPECT_EQ(plain.getLine(), 0xFFFFFFFFu);
        EXPECT_EQ(text8(plain.toEnglishString()), texts[code]);
        mlParseError const placed(static_cast<mlParseErrorCode>(code), 42);
        EXPECT_EQ(text8(placed.toEnglishString()), std::string("line 42: ") + texts[code]);
    }
    EXPECT_EQ(text8(mlParseError(static_cast<mlParseErrorCode>(-1)).toEnglishString()), texts[8]);
}

TEST(ParseErrors, UnexpectedSymbol)
{
    EXPECT_EQ(errorIn("a\n]]>"), "0@2");
    EXPECT_EQ(errorIn("]]>"), "0@1");
}

TEST(ParseErrors, NoTagName)
{
    EXPECT_EQ(errorIn("<>"), "1@1");
    EXPECT_EQ(errorIn("a\n<"), "1@2");
    EXPECT_EQ(errorIn("</>"), "1@1");
    EXPECT_EQ(errorIn("<!=x>"), "1@1");
    EXPECT_EQ(errorIn("<?"), "1@1");
    EXPECT_EQ(errorIn("<!--#-->"), "1@1");
}

TEST(ParseErrors, NoTagClosure)
{
    EXPECT_EQ(errorIn("<a"), "2@1");
    EXPECT_EQ(errorIn("<a =b>"), "2@1");
    EXPECT_EQ(errorIn("<a <b>"), "2@1");
    EXPECT_EQ(errorIn("<a x=1"), "2@1");
    EXPECT_EQ(errorIn("<a x=1=2>"), "2@1");
    EXPECT_EQ(errorIn("<a>\n</a b>"), "2@2");
    EXPECT_EQ(errorIn("<a></a"), "2@1");
    EXPECT_EQ(errorIn("</a"), "none") << "nothing of that name is open";
}

TEST(ParseErrors, NoCharacterDataClosure)
{
    EXPECT_EQ(errorIn("<![CDATA["), "3@1");
    EXPECT_EQ(errorIn("<![CDATA[a\nb"), "3@2");
    EXPECT_EQ(errorIn("<![CDATA['a' b]]>"), "3@1") << "text behind a quoted string";
}

TEST(ParseErrors, NoAttributeValue)
{
    EXPECT_EQ(errorIn("<a x=>"), "4@1");
    EXPECT_EQ(errorIn("<a x=\n=>"), "4@2");
    EXPECT_EQ(errorIn("<a x"), "4@1");
    EXPECT_EQ(errorIn("<a x<b>"), "4@1");
}

TEST(ParseErrors, TooLongNamesAndValues)
{
    std::string const longest(1024, 'x');
    std::string const tooLong(1025, 'x');
    EXPECT_EQ(errorIn("<" + longest + " " + longest + "=" + longest + "></" + longest + ">"), "none");
    EXPECT_EQ(errorIn("<" + tooLong + ">"), "5@1");
    EXPECT_EQ(errorIn("</" + tooLong + ">"), "5@1");
    EXPECT_EQ(errorIn("<a " + tooLong + ">"), "6@1");
    EXPECT_EQ(errorIn("<a b " + tooLong + "=1>"), "6@1");
    EXPECT_EQ(errorIn("<a b=" + tooLong + ">"), "7@1");
    EXPECT_EQ(errorIn("<a b='" + tooLong + "'>"), "none");
    EXPECT_EQ(errorIn("<a " + std::string(5000, 'x') + "=" + std::string(50000, 'y') + ">"), "6@1");
}

TEST(ParseErrors, SectionsBeforeTheErrorStay)
{
    MemorySource source("<a>one</a><b x=1>two]]>three</b>four");
    mlParser parser(source.get());
    EXPECT_THROW(parser.fullParse(), mlParseError);
    EXPECT_EQ(dump(parser.getSection(0)), "<a>['one']");
    EXPECT_EQ(dump(parser.getSection(1)), "<b x=1>['two']") << "walking a section does not read on behind an error";
    EXPECT_EQ(source->isOpen(), 0);
    EXPECT_EQ(parser.getStream(), source.get());
    parser.fullParse(); // only an explicit call continues
    EXPECT_EQ(dump(parser), "<a>['one'] <b x=1>['two' 'three'] 'four'");
}

TEST(ParseErrors, UnclosedElementsAreNone) { EXPECT_EQ(dumpOf("<a><b><c>x"), "<a>[<b>[<c>['x']]]"); }
