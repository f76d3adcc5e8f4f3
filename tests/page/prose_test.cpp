// tests/page/prose_test.cpp: the elements of prose: program text, quotations, small print, sections, marks of lists,
// and what is skipped.
#include "tests/support/atable.h"
#include "tests/support/parsedpage.h"

#include "page/guiattributes.h"
#include "page/guispacedtext.h"

namespace {

/// What a page becomes, and that nothing was said of it.
std::string quietly(std::string const& page)
{
    parsedPage const parsed = parsePage(page);
    EXPECT_EQ(parsed.log, "") << page;
    return outline(parsed.root.get());
}

std::string spaced(char const* text) { return guiSpacedText().add(QString::fromUtf8(text)).toStdString(); }

/// With its fixed blanks as "_".
std::string shown(std::string text)
{
    for (std::size_t at = text.find("\xC2\xA0"); at != std::string::npos; at = text.find("\xC2\xA0"))
        text.replace(at, 2, "_");
    return text;
}

} // namespace

TEST(Prose, ProgramTextHasAFixedWidth)
{
    for (char const* name : {"code", "kbd", "samp", "tt"}) {
        std::string const tag = name;
        EXPECT_EQ(quietly("a <" + tag + ">b</" + tag + "> c"), "'a [[monospace]]b[[/monospace]] c'") << name;
    }
}

TEST(Prose, SmallBigAndLoweredTextHaveSizesOfTheirOwn)
{
    EXPECT_EQ(quietly("a<small>b</small>c"), "'a[[,8]]b[[/,8]]c'");
    EXPECT_EQ(quietly("a<big>b</big>c"), "'a[[,12]]b[[/,12]]c'");
    EXPECT_EQ(quietly("H<sub>2</sub>O"), "'H[[,8]]2[[/,8]]O'");
}

TEST(Prose, StruckInsertedAndMarkedTextHasACode)
{
    EXPECT_EQ(quietly("<s>a</s>"), "'[[s]]a[[/s]]'");
    EXPECT_EQ(quietly("<del>a</del><ins>b</ins>"), "'[[s]]a[[/s]][[u]]b[[/u]]'");
    EXPECT_EQ(quietly("<mark>a</mark>"), "'[[m]]a[[/m]]'");
}

TEST(Prose, TheFontAroundProgramTextIsInForceBehindIt)
{
    EXPECT_EQ(quietly("<h1>The <code>x</code> call</h1>"),
              "'[[b]][[,24]]The [[monospace]]x[[/monospace]] [[,24]]call' P");
    EXPECT_EQ(quietly("<font size=5>a<code>b</code>c</font>d"),
              "'[[,18]]a[[monospace]]b[[/monospace]][[,18]]c[[/,18]]d'");
    EXPECT_EQ(quietly("<small>a<code>b</code>c</small>"), "'[[,8]]a[[monospace]]b[[/monospace]][[,8]]c[[/,8]]'");
}

TEST(Prose, AQuotationStandsInQuotationMarks)
{
    EXPECT_EQ(quietly("He said <q>no</q>."), "'He said \u201Cno\u201D.'");
    EXPECT_EQ(quietly("<q>a <b>b</b></q> c"), "'\u201Ca [[b]]b[[/b]]\u201D c'");
}

TEST(Prose, AQuotedBlockStandsFurtherToTheRight)
{
    EXPECT_EQ(quietly("a<blockquote>b<p>c</p></blockquote>d"), "'a' P '[[>1]]b' P '[[>1]]c' P 'd'");
    EXPECT_EQ(quietly("<blockquote>a<blockquote>b</blockquote></blockquote>"), "'[[>1]]a' P '[[>2]]b' P");
}

TEST(Prose, LowHeadingsAreBoldParagraphsOfFallingSize)
{
    EXPECT_EQ(quietly("<h4>a</h4><h5>b</h5><h6>c</h6>"), "'[[b]][[,12]]a' P '[[b]][[,10]]b' P '[[b]][[,8]]c' P");
}

TEST(Prose, SectionsStandInLinesOfTheirOwn)
{
    for (char const* name :
         {"figure", "figcaption", "main", "section", "article", "nav", "header", "footer", "aside"}) {
        std::string const tag = name;
        EXPECT_EQ(quietly("a<" + tag + ">b</" + tag + ">c"), "'a' BR 'b' BR 'c'") << name;
    }
}

TEST(Prose, NeutralElementsAreReadSilently)
{
    for (char const* name : {"span", "abbr", "time"}) {
        std::string const tag = name;
        EXPECT_EQ(quietly("a <" + tag + ">b</" + tag + "> c"), "'a b c'") << name;
    }
}

TEST(Prose, ATableBehindANeutralElementIsAParagraph)
{
    EXPECT_EQ(quietly("<span>a</span><table><tr><td>1</td></tr></table>"), "'a' P html{html{'1'}} BR");
}

TEST(Prose, WhatIsNoTextIsSkippedWithAllItHolds)
{
    EXPECT_EQ(quietly("a<script>if (x < 3 && y > 2) document.write('<b>no</b>');</script>b"), "'ab'");
    EXPECT_EQ(quietly("a<style>p > b { color: red } /* <i> */</style>b"), "'ab'");
    EXPECT_EQ(quietly("a<template><p>no</p></template>b"), "'ab'");
    EXPECT_EQ(quietly("a<noscript>no</noscript>b"), "'ab'");
    EXPECT_EQ(quietly("a<svg width=3><title>no</title><path d='M0 0'></path></svg>b"), "'ab'");
}

TEST(Prose, AScriptThatIsNeverClosedTakesTheRestAndIsSkipped) { EXPECT_EQ(quietly("a<script>b <p>c"), "'a'"); }

TEST(TableHeading, IsBoldAndCentredUnlessItSaysOtherwise)
{
    parsedPage const page =
        parsePage("<table><thead><tr><th>a</th><th align=right>b</th></tr></thead><tbody><tr><td>c</td></tr></tbody>"
                  "<tfoot><tr><td>d</td></tr></tfoot></table>");
    EXPECT_EQ(page.log, "");
    EXPECT_EQ(outline(page.root.get()), "html{html{'[[b]]a'} html{'[[b]]b'} BR html{'c'} BR html{'d'} BR} BR");
    guiHtml* const table = page.root->getChild(0);
    EXPECT_EQ(table->getChild(0)->m.alignX, kAlignCenter);
    EXPECT_EQ(table->getChild(1)->m.alignX, kAlignRight);
}

TEST(ListMarks, AreThereOnlyWhereTheListSaysSo)
{
    EXPECT_EQ(shown(quietly("<ul><li>a<li>b</ul>")), "'[[>1]]a' P '[[>1]]b' P");
    EXPECT_EQ(shown(quietly("<ul marks><li>a<li>b</ul>")), "'[[>1]]\u2022_a' P '[[>1]]\u2022_b' P");
}

TEST(ListMarks, OfAnOrderedListCount)
{
    EXPECT_EQ(shown(quietly("<ol marks><li>a<li>b</ol>")), "'[[>1]]1._a' P '[[>1]]2._b' P");
    EXPECT_EQ(shown(quietly("<ol marks start=9><li>a<li>b</ol>")), "'[[>1]]9._a' P '[[>1]]10._b' P");
}

TEST(ListMarks, OfAListInsideDoNotDisturbThoseAround)
{
    EXPECT_EQ(shown(quietly("<ol marks><li>a<ul><li>x</ul></li><li>b</ol>")),
              "'[[>1]]1._a' P '[[>1]]x' P '[[>1]]2._b' P");
}

TEST(SpacedText, KeepsBlanksAndLineEnds)
{
    EXPECT_EQ(shown(spaced("if x:\n  y")), "if_x:[[br]]__y");
    EXPECT_EQ(shown(spaced("a\r\nb")), "a[[br]]b");
    EXPECT_EQ(shown(spaced("a\n\n\nb")), "a[[br]][[br]][[br]]b");
}

TEST(SpacedText, DropsTheLineEndAtTheBeginningAndThoseAtTheEnd)
{
    EXPECT_EQ(spaced("\na\n\n"), "a");
    EXPECT_EQ(spaced("\n\na"), "[[br]]a");
    EXPECT_EQ(spaced("\r\na"), "a");
}

TEST(SpacedText, FillsTabsUpToEveryEighthColumn)
{
    EXPECT_EQ(shown(spaced("\ta")), "________a");
    EXPECT_EQ(shown(spaced("abc\td")), "abc_____d");
    EXPECT_EQ(shown(spaced("abcdefgh\ti")), "abcdefgh________i");
}

TEST(SpacedText, GoesOnFromPieceToPiece)
{
    guiSpacedText text;
    EXPECT_EQ(shown(text.add(u"abc").toStdString()), "abc");
    EXPECT_EQ(shown(text.add(u"\td\n").toStdString()), "_____d");
    EXPECT_EQ(shown(text.add(u"e").toStdString()), "[[br]]e");
}

TEST(Prose, PreformattedTextKeepsItsLinesAndItsElements)
{
    EXPECT_EQ(shown(quietly("a<pre>\nfor x in y:\n    <b>print</b>(x)  &lt; 3\n</pre>b")),
              "'a' P '[[monospace]]for_x_in_y:[[br]]____[[b]]print[[/b]](x)__<_3[[/monospace]]' P 'b'");
}

TEST(Prose, QuotationMarksAndLongLinesOfPreformattedTextAreKept)
{
    EXPECT_EQ(quietly("<pre>\"a\" 'b'</pre>").find("\"a\"") != std::string::npos, true);
    std::string const line(5000, 'x');
    EXPECT_NE(quietly("<pre>" + line + "</pre>").find(line), std::string::npos);
}

TEST(Prose, ProgramTextKeepsItsQuotationMarks)
{
    for (std::string const name : {"code", "kbd", "samp", "tt"}) {
        std::string const open = "<" + name + ">";
        std::string const close = "</" + name + ">";
        EXPECT_EQ(quietly("<p>" + open + "''" + close + ", " + open + "\"a  b\" + 'c'" + close + "</p>"),
                  "'[[monospace]]''[[/monospace]], [[monospace]]\"a b\" + 'c'[[/monospace]]' P")
            << name;
        EXPECT_EQ(quietly("<p>" + open + "<em>'x'</em>" + close + " \"y\"</p>"),
                  "'[[monospace]][[i]]'x'[[/i]][[/monospace]] y' P")
            << name << ": behind it a text is read as ever";
    }
}

TEST(Prose, LongProgramTextThatBeginsWithAQuotationMarkIsWhole)
{
    std::string const text = "'" + std::string(5000, 'x') + "' y";
    EXPECT_NE(quietly("<code>" + text + "</code>").find(text), std::string::npos);
}

TEST(Prose, TextBehindPreformattedTextHasSingleBlanksAgain)
{
    EXPECT_EQ(quietly("<pre>a</pre><p>b   c\n d</p>"), "'[[monospace]]a[[/monospace]]' P 'b c d' P");
}

TEST(DocumentAttribute, IsSilentOnTextAndAMistakeOnAControl)
{
    quietly("<p class=a id=b lang=en data-x=1 aria-label=c role=note>a <span class=b>c</span></p>");
    EXPECT_NE(parsePage("<table><tr><td stile=1>").log, "");
    EXPECT_EQ(parsePage("<fieldset id=a>").log, "tarn: ignoring unknown attribute id of <fieldset> (warning)\n");
    EXPECT_FALSE(guiIsDocumentAttribute("onclik"));
}

TEST(Id, IsWhatLinksJumpTo)
{
    parsedPage const page =
        parsePage("<p>a</p><section id=two><h2 id=inner>b</h2><p>c</p></section><p>d <span id=in>e</span></p>");
    auto const marked = [&](char const* id) {
        guiHtml* const found = page.root->getBookmarked(sstring(id));
        return found ? utf8(found->getRunText()) : std::string("none");
    };
    EXPECT_EQ(marked("inner"), "[[b]][[,18]]b");
    EXPECT_EQ(marked("in"), "d e");
}

TEST(Id, OfASectionIsThatOfItsFirstNode)
{
    parsedPage const page = parsePage("<p>a</p><section id=two><h2>b</h2><p>c</p></section>");
    guiHtml* const found = page.root->getBookmarked(sstring("two"));
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(utf8(found->getRunText()), "[[b]][[,18]]b");
}
