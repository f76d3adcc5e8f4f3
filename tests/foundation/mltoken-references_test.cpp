// tests/foundation/mltoken-references_test.cpp: character references by name and by number, and text that only looks
// like one.

#include "foundation/vela-mlentities.h"
#include "tests/foundation/markup.h"

namespace {

std::u16string decoded(std::u16string text)
{
    unsigned int const length =
        decodeReferences(reinterpret_cast<unsigned short*>(text.data()), static_cast<unsigned int>(text.size()));
    return text.substr(0, length);
}

char16_t const* const latin1[] = {
    u"iexcl",  u"cent",   u"pound",  u"curren", u"yen",    u"brvbar", u"sect",   u"uml",    u"copy",   u"ordf",
    u"laquo",  u"not",    u"shy",    u"reg",    u"macr",   u"deg",    u"plusmn", u"sup2",   u"sup3",   u"acute",
    u"micro",  u"para",   u"middot", u"cedil",  u"sup1",   u"ordm",   u"raquo",  u"frac14", u"frac12", u"frac34",
    u"iquest", u"Agrave", u"Aacute", u"Acirc",  u"Atilde", u"Auml",   u"Aring",  u"AElig",  u"Ccedil", u"Egrave",
    u"Eacute", u"Ecirc",  u"Euml",   u"Igrave", u"Iacute", u"Icirc",  u"Iuml",   u"ETH",    u"Ntilde", u"Ograve",
    u"Oacute", u"Ocirc",  u"Otilde", u"Ouml",   u"times",  u"Oslash", u"Ugrave", u"Uacute", u"Ucirc",  u"Uuml",
    u"Yacute", u"THORN",  u"szlig",  u"agrave", u"aacute", u"acirc",  u"atilde", u"auml",   u"aring",  u"aelig",
    u"ccedil", u"egrave", u"eacute", u"ecirc",  u"euml",   u"igrave", u"iacute", u"icirc",  u"iuml",   u"eth",
    u"ntilde", u"ograve", u"oacute", u"ocirc",  u"otilde", u"ouml",   u"divide", u"oslash", u"ugrave", u"uacute",
    u"ucirc",  u"uuml",   u"yacute", u"thorn",  u"yuml"};

} // namespace

TEST(References, TheSixCommonOnes)
{
    EXPECT_EQ(decoded(u"&amp;&lt;&gt;&apos;&quot;&nbsp;."), u"&<>'\" .");
    EXPECT_EQ(decoded(u"&amp &lt &gt &apos &quot &nbsp."), u"& < > ' \"  .");
    EXPECT_EQ(decoded(u"&AMP;&Lt;&NBSP;"), u"&AMP;&Lt;&NBSP;");
}

TEST(References, AllLatin1NamesWithAndWithoutSemicolon)
{
    char16_t code = 161;
    for (char16_t const* name : latin1) {
        std::u16string const reference = std::u16string(u"&") + name;
        EXPECT_EQ(decoded(u"a" + reference + u";b"), std::u16string(u"a") + code + u"b") << text8(reference);
        EXPECT_EQ(decoded(u"a" + reference + u" b"), std::u16string(u"a") + code + u" b") << text8(reference);
        EXPECT_EQ(decoded(reference + u";;"), std::u16string(1, code) + u";") << "one semicolon only";
        EXPECT_EQ(decoded(reference), std::u16string(1, code));
        ++code;
    }
    EXPECT_EQ(code, 256);
}

TEST(References, NamesAreCaseSensitiveAndMayBeginALongerWord)
{
    EXPECT_EQ(decoded(u"&EACUTE;"), u"&EACUTE;");
    EXPECT_EQ(decoded(u"&Eacute;&eacute;"), u"\u00C9\u00E9");
    EXPECT_EQ(decoded(u"&notit;"), u"\u00ACit;");
    EXPECT_EQ(decoded(u"&ltx"), u"<x");
}

TEST(References, TheOthersOfHtml4WithTheirSemicolonOnly)
{
    EXPECT_EQ(decoded(u"&alpha;&Omega;&mdash;&hellip;&euro;&trade;&there4;&spades;&OElig;&thetasym;"),
              u"\u03B1\u03A9\u2014\u2026\u20AC\u2122\u2234\u2660\u0152\u03D1");
    EXPECT_EQ(decoded(u"&notin;&not;&sup;&sup2;"), u"\u2209\u00AC\u2283\u00B2") << "the whole name counts";
    EXPECT_EQ(decoded(u"&alpha &mdash. &ALPHA; &alphax;"), u"&alpha &mdash. &ALPHA; &alphax;");
    EXPECT_EQ(mlReferenceNames().size(), 252U + 1U) << "those of HTML 4, and apos";
}

TEST(References, UnknownNamesAreTold)
{
    std::u16string text = u"&foo; &amp; &bar &b-z; &; &#x; &Bat1;";
    std::vector<std::string> unknown;
    decodeReferences(reinterpret_cast<unsigned short*>(text.data()), static_cast<unsigned int>(text.size()), &unknown);
    EXPECT_EQ(unknown, (std::vector<std::string>{"foo", "Bat1"}));
}

TEST(References, NumbersGiveTheirCode)
{
    EXPECT_EQ(decoded(u"&#65;&#66 &#8364;"), u"AB \u20AC");
    EXPECT_EQ(decoded(u"&#128512;"), u"\U0001F600");
    EXPECT_EQ(decoded(u"&#65535;&#65536;"), u"\uFFFF\U00010000");
    EXPECT_EQ(decoded(u"&#1114111;&#1114112;&#99999999999999999999;"), u"\U0010FFFF\uFFFD\uFFFD");
    EXPECT_EQ(decoded(u"a&#0;b"), u"ab") << "a zero would end the text";
    EXPECT_EQ(decoded(u"&#x41;&#;&#"), u"&#x41;&#;&#") << "no hexadecimal form";
}

TEST(References, UnknownReferencesStay)
{
    EXPECT_EQ(decoded(u"&unknown; & && &"), u"&unknown; & && &");
    EXPECT_EQ(decoded(u"&&amp;&"), u"&&&");
    EXPECT_EQ(decoded(u"&amp;lt;"), u"&lt;") << "decoded once";
    EXPECT_EQ(decoded(u""), u"");
    EXPECT_EQ(decoded(u"&am"), u"&am");
}

TEST(References, AreDecodedInAPage)
{
    EXPECT_EQ(dumpOf("a&nbsp;b &eacute &#65; &unknown; <b x='&lt;&quot;' y=&amp;>"),
              "'a b \xC3\xA9 A &unknown;' <b x=<\" y=&>");
}
