// tests/runtime/load_test.cpp: what a whole page says about its window.
#include "foundation/vela-mlparser.h"
#include "foundation/vela-textstream.h"
#include "page/guihtmlparser.h"
#include "runtime/guihtmlbase.h"
#include "tests/support/parsedpage.h"

namespace {

parsedPage parseWindow(std::string const& text)
{
    return parsePageInto(std::make_unique<guiHtmlBase>(nullptr, nullptr, nullptr, ""), text);
}

guiHtmlBase* windowOf(parsedPage const& page) { return static_cast<guiHtmlBase*>(page.root.get()); }

/// Loads a page as a new window does.
void loadWindow(guiHtmlBase& window, std::string text)
{
    textstream stream(reinterpret_cast<unsigned char*>(text.data()), static_cast<unsigned>(text.size()), 0);
    mlParser markup(&stream);
    guiHtmlParser(&markup, "").pullWindow(&window);
}

} // namespace

TEST(SetText, ATitleIsTheWindowsOnly)
{
    parsedPage page = parseWindow("<head><title>My  title</title></head><body border=3>x</body>");
    EXPECT_EQ(utf8(windowOf(page)->getTitle()), "My title");
    EXPECT_EQ(page.root->m.border, 3);
    EXPECT_EQ(windowOf(page)->getDefaultWidth(), 480);
}

TEST(LoadWindow, NoresizeFixesTheWindow)
{
    guiHtmlBase window(nullptr, nullptr, nullptr, "");
    loadWindow(window, "<body width=300 height=200 noresize></body>");
    EXPECT_EQ(window.getMinimumWidth(), 300);
    EXPECT_EQ(window.getMaximumHeight(), 200);
}
