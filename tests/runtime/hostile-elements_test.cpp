// tests/runtime/hostile-elements_test.cpp: pages that nobody should write, of the elements of all layers: each nested
// as deeply and with the highest numbers that there are.
#include "tests/support/hostilepage.h"
#include "tests/support/pagewindow.h"

#include <gtest/gtest.h>

namespace {

using namespace std::string_literals;
using hostilePage = hostilePageIn<PageWindow>;

TEST(HostileDepth, EveryTagMayBeNestedAsDeeplyAsAPageLikes)
{
    // The depth at which nothing is left to a level of its own, twenty times over.
    constexpr unsigned kDeep = 20000;
    for (std::string const tag :
         {"h1",   "h2",   "h3",    "dl",     "dt",   "menu", "dd",       "ol",     "ul",    "li",   "p",
          "div",  "hr",   "table", "tr",     "td",   "form", "img",      "center", "tbody", "a",    "frame",
          "html", "body", "b",     "strong", "font", "sup",  "messages", "input",  "br",    "cite", "doctype"}) {
        SCOPED_TRACE(tag);
        budget const limit(3, 150);
        hostilePage const page(repeated("<" + tag + " name=x>", kDeep) + "core");
        EXPECT_EQ(withoutMistakes(page.log()), "");
        EXPECT_EQ(page.text(), "core");
        EXPECT_LE(page.deepest(), 1000u);
    }
}

TEST(HostileDepth, ElementsThatReadTheirOwnContentMayBeNestedToo)
{
    for (std::string const tag : {"select", "textarea", "object classid=menu", "object classid=treeview",
                                  "object classid=Clock", "map", "noframe", "frameset", "option", "param", "area"}) {
        SCOPED_TRACE(tag);
        budget const limit(3, 150);
        hostilePage const page("before" + repeated("<" + tag + ">", 100000) + "core");
        EXPECT_EQ(page.text().substr(0, 6), "before");
        EXPECT_LE(page.deepest(), 1000u);
    }
}

TEST(HostileNumbers, TheHighestSizesAndPercentagesEverywhereAtOnce)
{
    for (std::string const& number : hostileNumbers()) {
        SCOPED_TRACE(number);
        budget const limit(5, 300);
        std::string attributes;
        for (char const* name : {"width", "height", "border", "cellspacing", "cellpadding", "framespacing", "tabindex"})
            attributes += " "s + name + "=\"" + number + "\"";
        std::string const cell = "<td" + attributes + " scrolling>text<hr size='" + number + "' width='" + number +
                                 "'>" + "<img" + attributes + "><input type=text size='" + number + "'" + attributes +
                                 "></td>";
        hostilePage page("<body" + attributes + " scrolling><table" + attributes + ">" + repeated(cell, 20) + "<tr>" +
                         repeated(cell, 20) + "</table></body>");
        EXPECT_EQ(withoutMistakes(page.log()), "");
        EXPECT_TRUE(page.isWithinBounds());
    }
}

struct numericAttribute
{
    char const* before; ///< the page up to the attribute's name
    std::vector<char const*> names;
    char const* after;
};

/// Every attribute of every tag that is read as a number, a length or a list of them.
std::vector<numericAttribute> numericAttributes()
{
    std::vector<char const*> const frame{"border", "frameborder", "cellspacing", "framespacing", "cellpadding",
                                         "width",  "height",      "minwidth",    "minheight"};
    std::vector<char const*> window = frame;
    window.insert(window.end(), {"maxwidth", "maxheight"});
    return {
        {"<body ", window, ">text<p>more</body>"},
        {"<table ", frame, "><tr><td>a</td><td>b</td></tr><tr><td>c</table>"},
        {"<table width=100% height=100% border=1><tr><td ", frame, ">a<p>b</td><td>c</td></tr></table>"},
        {"<table scrolling=yes width=90 height=50><tr><td scrolling=fixed ", frame,
         ">a long text here</td></tr></table>"},
        {"<form ", frame, "><table><tr><td>a</table></form>"},
        {"<table caption=Group ", frame, "><tr><td>a</table>"},
        {"<frameset ", {"cols", "rows", "border", "framespacing", "width", "height"}, "><frame><frame></frameset>"},
        {"<frameset cols=50%,* rows=30,*><frame ", frame, "><frame><frame><frame></frameset>"},
        {"a<hr ", {"size", "width"}, ">b"},
        {"a<font ", {"size"}, ">b</font>c"},
        {"a<img src=none.png ", frame, ">b"},
        {"<input type=text ", {"size", "maxlength", "tabindex", "width", "height"}, ">"},
        {"<input type=checkbox ", {"tabindex", "width", "height", "checked"}, ">"},
        {"<textarea ", {"cols", "rows", "maxlength", "tabindex", "width", "height"}, ">text</textarea>"},
        {"<select ", {"size", "tabindex", "width", "height"}, "><option>a<option>b</select>"},
        {"<object classid=listview ", {"size", "tabindex", "width", "height"}, "><param text=a></object>"},
        {"<object classid=menu ", {"width", "height", "tabindex"}, "><param value=a></object>"},
        {"<object classid=Clock ", {"width", "height", "border", "cellpadding", "tabindex"}, "></object>"},
        {"<img usemap=#m width=9 height=9><map name=m><area shape=rect href=x ", {"coords"}, "></map>"},
        {"<img usemap=#m width=9 height=9><map name=m><area shape=circle href=x ", {"coords"}, "></map>"},
        {"<img usemap=#m width=9 height=9><map name=m><area shape=poly href=x ", {"coords"}, "></map>"},
        {"<table><tr><td ", {"colspan", "rowspan"}, ">a</td></tr></table>"},
    };
}

TEST(HostileNumbers, EveryAttributeOfEveryTagTakesEveryNumber)
{
    budget const limit(10, 100);
    unsigned pages = 0;
    for (numericAttribute const& tag : numericAttributes())
        for (std::string const name : tag.names)
            for (std::string const& number : hostileNumbers()) {
                std::string const list = name == "coords" || name == "cols" || name == "rows"
                                             ? number + "," + number + ",*," + number + "," + number + "," + number
                                             : number;
                std::string const markup = tag.before + name + "=\"" + list + "\"" + tag.after;
                hostilePage page(markup);
                ASSERT_EQ(withoutMistakes(page.log()), "") << markup;
                ASSERT_TRUE(page.isWithinBounds()) << markup;
                page.layOut(1, 1);
                ASSERT_TRUE(page.isWithinBounds()) << markup << " at one pixel";
                page.paint();
                ++pages;
            }
    EXPECT_GT(pages, 1400u);
}

} // namespace
