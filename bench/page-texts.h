// bench/page-texts.h: generated pages for the benchmarks: four kinds of any size, the same in every run.
#pragma once

#include <functional>
#include <string>
#include <vector>

/// A page of many small parts, one for each number.
struct PageKind
{
    char const* name;
    std::function<std::string(unsigned int)> item;
};

inline std::string pageParagraph(unsigned int i)
{
    return "<p>Paragraph " + std::to_string(i) +
           " holds a few <b>words in bold</b> and an <i>italic</i> end, some caf\xC3\xA9 &amp; t\xC3\xBCr, and runs on "
           "for a while, as"
           "\npages of text do, before it comes to its end.</p>\n";
}

inline std::string pageTable(unsigned int i)
{
    return "<table border=\"1\" width=\"100%\"><tr><td align=\"right\" width=\"40\">" + std::to_string(i) +
           "</td><td bgcolor=\"#EEEEEE\">Name</td><td>" + std::to_string(i * 7) +
           "</td></tr>\n<tr><td>left</td><td valign=\"top\">middle</td><td>right</td></tr></table>\n";
}

inline std::string pageForm(unsigned int i)
{
    std::string const number = std::to_string(i);
    return "<form action=\"event://onOk\"><table cellpadding=\"2\"><tr><td align=\"right\">Name of field " + number +
           "</td><td><input type=\"text\" name=\"field" + number + "\" value=\"value " + number +
           "\" size=\"20\"/></td></tr>\n<tr><td><input type=\"checkbox\" name=\"check" + number + "\" checked/>Check " +
           number + "</td><td><select name=\"s" + number +
           "\"><option selected>One</option><option>Two</option></select></td></tr></table></form>\n";
}

inline std::string pageMixture(unsigned int i)
{
    return i % 3 == 0 ? pageParagraph(i) : i % 3 == 1 ? pageTable(i) : pageForm(i);
}

inline std::vector<PageKind> const& pageKinds()
{
    static std::vector<PageKind> const all = {
        {"text", pageParagraph}, {"table", pageTable}, {"form", pageForm}, {"mixed", pageMixture}};
    return all;
}

/// A page of UTF-8 with at least `bytes` bytes and at most one part more.
inline std::string makePage(PageKind const& kind, std::size_t bytes)
{
    std::string page = "<html><head><meta http-equiv=\"Content-Type\" content=\"text/html; charset=utf-8\"/>"
                       "<title>Page</title></head><body>";
    for (unsigned int i = 0; page.size() < bytes; ++i)
        page += kind.item(i);
    return page + "</body></html>";
}
