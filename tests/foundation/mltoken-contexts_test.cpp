// tests/foundation/mltoken-contexts_test.cpp: which tokens each context recognises, and how it reads texts, quoted
// strings and white space.

#include "tests/foundation/markup.h"

#include <cstdint>

namespace {

struct Token
{
    mlTokenType type = kTokenNone;
    std::string text;
    bookmark start;
    int truncated = -1;
    int leadingSpace = -1;
};

Token pop(mlParser& parser, unsigned long flags, bool isLimited = true)
{
    Token token;
    sstring text;
    parser.popToken(&token.type, &text, isLimited ? &token.start : nullptr, &token.truncated, &token.leadingSpace,
                    flags);
    token.text = text8(text);
    return token;
}

Token popOne(std::string const& page, unsigned long flags)
{
    MemorySource source(page);
    mlParser parser(source.get());
    return pop(parser, flags);
}

/// The tokens of a text in a context, such as `<|b|>`, with "_" for leading white space.
std::string tokens(std::string const& page, unsigned long flags)
{
    MemorySource source(page);
    mlParser parser(source.get());
    std::string out;
    for (Token token = pop(parser, flags); token.type != kTokenEnd; token = pop(parser, flags))
        out += (out.empty() ? "" : "|") + ((token.leadingSpace ? "_" : "") + token.text);
    return out;
}

struct Row
{
    int value;
    char const* text;
    std::vector<unsigned long> excluded;
};

std::vector<Row> const& table()
{
    static std::vector<Row> const rows = {
        {1, "<![CDATA[", {2, 4}}, {2, "<!--#", {2, 4}}, {3, "<!--", {2, 4}},  {4, "<!", {2, 4}},  {5, "</", {2, 4}},
        {6, "<?", {2, 4}},        {7, "<", {2, 4}},     {8, "]]>", {4}},      {9, "-->", {2, 8}}, {10, "/>", {2, 4, 8}},
        {11, "?>", {2, 4, 8}},    {12, ">", {2, 4, 8}}, {13, "=", {2, 4, 8}},
    };
    return rows;
}

} // namespace

TEST(TokenTable, EachTokenIsRecognisedExceptInItsExcludedContexts)
{
    for (Row const& row : table()) {
        EXPECT_EQ(mlTokenText8(row.value), row.text);
        EXPECT_EQ(mlTokenLength(row.value), std::string(row.text).size());
        for (unsigned long flags : {0ul, 1ul, 2ul, 4ul, 8ul, 3ul, 9ul, 12ul}) {
            bool isExcluded = false;
            for (unsigned long context : row.excluded)
                isExcluded |= (flags & context) != 0;
            MemorySource source(row.text);
            mlParser parser(source.get());
            EXPECT_EQ(parser.isToken(flags), isExcluded ? -1 : row.value) << row.text << " in " << flags;
            Token const token = pop(parser, flags);
            EXPECT_EQ(token.type, isExcluded ? kTokenText : row.value) << row.text << " in " << flags;
            EXPECT_EQ(token.text, row.text);
        }
    }
}

TEST(TokenTable, EndIsZeroTextFourteenNoneFifteen)
{
    EXPECT_EQ(popOne("", 8).type, 0);
    EXPECT_EQ(popOne(" \t\r\n", 8).type, 0);
    EXPECT_EQ(popOne("x", 8).type, 14);
    EXPECT_EQ(mlToken().getType(), 15);
    EXPECT_EQ(mlTokenText8(0), "");
    EXPECT_EQ(mlTokenText8(14), "");
}

TEST(TokenTable, MatchingIgnoresCaseAndTriesLongerOpenersFirst)
{
    EXPECT_EQ(popOne("<![cDaTa[x", 8).type, 1);
    EXPECT_EQ(popOne("<![CDAT[x", 8).type, 4);
    EXPECT_EQ(popOne("<!--#x", 8).type, 2);
    EXPECT_EQ(popOne("<!-- x", 8).type, 3);
    EXPECT_EQ(popOne("<!-x", 8).type, 4);
    EXPECT_EQ(popOne("<", 8).type, 7);
}

TEST(TokenTable, TokenAheadIsNotConsumed)
{
    MemorySource source("]]>x");
    mlParser parser(source.get());
    EXPECT_EQ(parser.isToken(8), 8);
    EXPECT_EQ(parser.isToken(8), 8);
    EXPECT_EQ(parser.isToken(4), -1);
    EXPECT_EQ(pop(parser, 8).text, "]]>");
    EXPECT_EQ(parser.isToken(8), -1);
    pop(parser, 8);
    EXPECT_EQ(parser.isToken(8), -1);
}

TEST(Tokens, ContentStopsOnlyAtOpenersAndTheEndOfCharacterData)
{
    EXPECT_EQ(tokens("a > b = c /> ?> --> d", 8), "a > b = c /> ?> --> d");
    EXPECT_EQ(tokens("a ]] > b]]>c", 8), "a ]] > b|]]>|c");
    EXPECT_EQ(tokens("a<b", 8), "a|<|b");
}

TEST(Tokens, CommentStopsOnlyAtItsEnd) { EXPECT_EQ(tokens("a <b> ]]> - -- >-->c", 4), "a <b> ]]> - -- >|-->|c"); }

TEST(Tokens, CharacterDataStopsOnlyAtItsEnd)
{
    EXPECT_EQ(tokens("a <b> --> &amp; = ]]>c", 2), "a <b> --> &amp; =|]]>|c");
}

TEST(Tokens, WhiteSpaceEndsATextInATagAndWithoutContext)
{
    for (unsigned long flags : {0ul, 1ul})
        EXPECT_EQ(tokens("a b=c\td/>e?>f-->g", flags), "a|_b|=|c|_d|/>|e|?>|f|-->|g") << flags;
}

TEST(Tokens, WhiteSpaceInsideATextBecomesOneBlank)
{
    EXPECT_EQ(tokens("  a \t\r\n b  ", 8), "_a b");
    EXPECT_EQ(tokens("a\nb\tc d", 2), "a b c d");
}

TEST(Tokens, BlankAtTheEndOfATextGoesToTheNextToken)
{
    EXPECT_EQ(tokens("a <b", 8), "a|_<|b");
    EXPECT_EQ(tokens("a<b", 8), "a|<|b");
    EXPECT_EQ(tokens("a ]]>", 2), "a|]]>") << "only in content";
}

TEST(Tokens, QuotedStringEndsAtItsOwnMark)
{
    EXPECT_EQ(tokens("\"a 'b' > = c\"d", 1), "a 'b' > = c|d");
    EXPECT_EQ(tokens("'a \"b\"'", 1), "a \"b\"");
    EXPECT_EQ(tokens("x\"\"", 1), "x\"\"") << "only at the start of a token";
    EXPECT_EQ(tokens("= \"\"x", 1), "=|_|x");
    EXPECT_EQ(tokens("\"a  \n b\"", 8), "a  \n b") << "white space stays";
    EXPECT_EQ(tokens("\"never closed", 1), "never closed");
    EXPECT_EQ(tokens("it's", 8), "it's") << "a mark inside a text is text";
}

TEST(Tokens, QuotedStringInContentEndsAtATag)
{
    EXPECT_EQ(tokens("\"a<b\"", 8), "a|<|b\"");
    EXPECT_EQ(tokens("\"a<b\"", 1), "a<b");
}

TEST(Tokens, QuotedStringHasNoLimit)
{
    std::string const longText(5000, 'x');
    Token const token = popOne("\"" + longText + "\"", 1);
    EXPECT_EQ(token.truncated, 0);
    EXPECT_EQ(token.text, longText);
    EXPECT_TRUE(token.start.isEmpty());
}

TEST(Tokens, ATextIsTruncatedAfter1024UnitsIfPositionAndFlagAreRequested)
{
    for (unsigned long flags : {0ul, 1ul, 2ul, 4ul, 8ul}) {
        EXPECT_EQ(popOne(std::string(1024, 'x'), flags).truncated, 0);
        EXPECT_EQ(popOne(std::string(1024, 'x') + "  ", flags).truncated, 0);
        MemorySource source(" " + std::string(1025, 'x') + "]]>");
        mlParser parser(source.get());
        Token const token = pop(parser, flags);
        EXPECT_EQ(token.type, kTokenText);
        EXPECT_EQ(token.truncated, 1) << flags;
        EXPECT_EQ(token.text, std::string(1024, 'x')) << "what stands before the cut is kept";
        EXPECT_EQ(token.start, bookmark(0, 1));
        bool const isEndRecognised = flags != 4;
        EXPECT_EQ(pop(parser, flags).type == kTokenCloseCData, isEndRecognised) << "the rest of the run is skipped";
    }
    MemorySource source(std::string(3000, 'x'));
    mlParser parser(source.get());
    Token const whole = pop(parser, 8, false);
    EXPECT_EQ(whole.truncated, 0);
    EXPECT_EQ(whole.text.size(), 3000u);
}

TEST(Tokens, ATextIsTruncatedInsideAWordOrAfterABlank)
{
    EXPECT_EQ(popOne(std::string(1020, 'x') + " \n yyyyyy", 8).text, std::string(1020, 'x') + " yyy");
    EXPECT_EQ(popOne(std::string(1023, 'x') + " yyy", 8).text, std::string(1023, 'x') + " ");
    EXPECT_EQ(popOne(std::string(1024, 'x') + " yyy", 8).text, std::string(1024, 'x'));
    EXPECT_EQ(popOne(std::string(1024, 'x') + " y &lt; " + std::string(3000, 'z'), 8).text, std::string(1024, 'x'));
}

TEST(Tokens, WhiteSpaceAfterATruncatedTextCounts)
{
    MemorySource source(std::string(2000, 'x') + " <b");
    mlParser parser(source.get());
    EXPECT_EQ(pop(parser, 8).truncated, 1);
    EXPECT_EQ(pop(parser, 8).leadingSpace, 1);
}

TEST(Tokens, ReferencesAreDecodedInTextAndQuotedStringsButNotInCharacterData)
{
    EXPECT_EQ(tokens("a&lt;b", 8), "a<b");
    EXPECT_EQ(tokens("'a&lt;b'", 1), "a<b");
    EXPECT_EQ(tokens("a&lt;b", 2), "a&lt;b");
    EXPECT_EQ(tokens("'a&lt;b'", 2), "a&lt;b");
}

TEST(Tokens, LinesAreCountedFromOneWhereverTheNewlineStands)
{
    MemorySource source("\n a\nb\n\"c\n\nd\" e");
    mlParser parser(source.get());
    EXPECT_EQ(parser.getLine(), 1u);
    EXPECT_EQ(pop(parser, 0).text, "a");
    EXPECT_EQ(parser.getLine(), 2u);
    EXPECT_EQ(pop(parser, 0).text, "b");
    EXPECT_EQ(parser.getLine(), 3u);
    EXPECT_EQ(pop(parser, 0).text, "c\n\nd");
    EXPECT_EQ(parser.getLine(), 6u);
    MemorySource content("a\nb\nc<!-- \n'\n' \n --> d");
    mlParser inContent(content.get());
    inContent.popTokenSkipComments(nullptr, nullptr, nullptr, nullptr, nullptr, 8);
    EXPECT_EQ(inContent.getLine(), 3u);
    inContent.popTokenSkipComments(nullptr, nullptr, nullptr, nullptr, nullptr, 8);
    EXPECT_EQ(inContent.getLine(), 6u);
}

TEST(Tokens, PeekedTokenComesAgain)
{
    MemorySource source("a\n b");
    mlParser parser(source.get());
    EXPECT_EQ(text8(parser.peekToken().getText()), "a");
    EXPECT_EQ(text8(parser.popToken().getText()), "a");
    EXPECT_EQ(text8(parser.peekToken().getText()), "b");
    EXPECT_EQ(parser.getLine(), 1u) << "what is only peeked at counts no lines";
    EXPECT_EQ(parser.popToken().getType(), kTokenText);
    EXPECT_EQ(parser.getLine(), 2u);
    EXPECT_EQ(parser.peekToken().getType(), kTokenEnd);
}

TEST(Tokens, TextTakesTheStreamsLocale)
{
    MemorySource source("charset=shift_jis");
    mlParser parser(source.get());
    EXPECT_STREQ(parser.popToken().getText().getLocale()->name, "ja_JP");
}

TEST(Tokens, PositionsCanBeKeptBetweenOpeningAndClosing)
{
    MemorySource source("a\nb\nc");
    mlParser parser(source.get());
    EXPECT_EQ(parser.reopen(), 1);
    parser.pushPos();
    parser.popToken();
    parser.popToken();
    EXPECT_EQ(parser.getLine(), 2u);
    parser.popPos();
    EXPECT_EQ(parser.getLine(), 1u);
    EXPECT_EQ(text8(parser.popToken().getText()), "a");
    EXPECT_EQ(source->isOpen(), 1);
    parser.close();
    EXPECT_EQ(source->isOpen(), 0);
    EXPECT_EQ(errorOf([&] { parser.pushPos(); }), 9);
    bookmark const place = parser.getPos();
    EXPECT_EQ(place, bookmark(0, 1));
    parser.rewind();
    EXPECT_EQ(text8(parser.popToken().getText()), "a");
    parser.setPos(bookmark(0, 4));
    EXPECT_EQ(text8(parser.popToken().getText()), "c");
}

TEST(Comments, AreSkippedAndMayHoldTags)
{
    auto skipped = [](std::string const& page) {
        MemorySource source(page);
        mlParser parser(source.get());
        mlTokenType type{};
        sstring text;
        int leadingSpace = 0;
        parser.popTokenSkipComments(&type, &text, nullptr, nullptr, &leadingSpace, 8);
        return std::to_string(type) + (leadingSpace ? " _" : " ") + text8(text);
    };
    EXPECT_EQ(skipped("<!-- <b> -- > ]]> -->x"), "14 x");
    EXPECT_EQ(skipped("<!----><!-- a --> <!---->x"), "14 _x");
    EXPECT_EQ(skipped("<!-- never closed"), "0 ");
    EXPECT_EQ(skipped("<!-- it's --> x"), "14 _x");
    EXPECT_EQ(skipped("<!-- ' --> ' a --> x"), "14 _x") << "a quoted string hides the end of the comment";
    EXPECT_EQ(skipped("<!-- \" -->x"), "0 ");
    EXPECT_EQ(skipped("<!--a--->x"), "14 x");
}
