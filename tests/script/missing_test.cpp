// tests/script/missing_test.cpp: what a page names and nobody has, told with the place where the page names it.
#include "tests/script/controlscript.h"

#include <sstream>

namespace {

class Missing : public ControlScript
{
protected:
    std::string file(char const* name) const { return (folder / name).string(); }
    std::string place(int line) const { return " in " + file("page.html") + ":" + std::to_string(line) + "\n"; }

    /// The component's log lines while `work` is done. The toolkit prints some of its own.
    static std::string told(std::function<void()> const& work)
    {
        testing::internal::CaptureStderr();
        work();
        std::istringstream log(testing::internal::GetCapturedStderr());
        std::string lines;
        for (std::string line; std::getline(log, line);)
            if (line.starts_with("gui"))
                lines += line + "\n";
        return lines;
    }

    /// What is logged while a window opens whose page has these lines.
    std::string toldOf(std::string const& lines)
    {
        return told([&] { open(lines); });
    }
};

} // namespace

TEST_F(Missing, PicturesAreToldWithTheirLine)
{
    EXPECT_EQ(toldOf("\n<img\n src=none.png>"),
              "guiLoadImage() - failed to load image " + file("none.png") + "; file not found" + place(2));
}

TEST_F(Missing, BackgroundsOfElementsAndOfThePageAreToldWithTheirLine)
{
    std::string const log = toldOf("\n<table><tr>\n<td background=none.png>x</td></tr></table>");
    EXPECT_EQ(log, "guiLoadImage() - failed to load image " + file("none.png") + "; file not found" + place(3));
    write("page.html", "<html>\n\n<body background=no.png>x</body></html>");
    EXPECT_EQ(told([&] { EXPECT_TRUE(host.window("page.html").isValid()); }),
              "guiLoadImage() - failed to load image " + file("no.png") + "; file not found" + place(3));
}

TEST_F(Missing, PagesWithinPagesAreToldWithTheirLine)
{
    EXPECT_EQ(toldOf("<table><tr>\n<td src=none.html></td>\n<td src=gone.html></td></tr></table>"),
              "guiHtml::loadFile() - failed to load file " + file("none.html") + place(2) +
                  "guiHtml::loadFile() - failed to load file " + file("gone.html") + place(3));
}

TEST_F(Missing, FramesAndTheirPagesAreEachToldWithTheirOwnFile)
{
    write("frame.html", "<html><body>\n\n<img src=none.png></body></html>");
    std::string const log = toldOf("<table><tr><td>\n<table src=frame.html></table></td></tr></table>");
    EXPECT_EQ(log, "guiLoadImage() - failed to load image " + file("none.png") + "; file not found in " +
                       file("frame.html") + ":3\n");
}

TEST_F(Missing, MoviesAreToldWithTheirLine)
{
    EXPECT_EQ(toldOf("\n\n\n<img src=none.avz>"),
              "guiMovie::loadFile() - failed to load movie " + file("none.avz") + "; file not found" + place(4));
}

TEST_F(Missing, ClassesOfObjectsAreToldWithTheirLine)
{
    EXPECT_EQ(toldOf("\n<object classid=Nobody></object>"),
              "guiHtmlCustom: unable to construct instance of component Nobody" + place(2));
}

TEST_F(Missing, APageThatContainsItselfIsToldWithItsLine)
{
    EXPECT_EQ(toldOf("\n<table src=page.html></table>"),
              "guiHtml::dynamicLoad() - " + file("page.html") + " is not loaded: it contains itself" + place(2));
}

TEST_F(Missing, WhatScriptNamesHasNoPlace)
{
    NativeWindow window = open("<img name=i src=none.png><table name=t src=none.html></table>");
    EXPECT_EQ(told([&] {
                  window.control("i")->call("loadFile", {"other.png"});
                  window.control("t")->call("loadFile", {"other.html"});
              }),
              "guiLoadImage() - failed to load image " + file("other.png") + "; file not found\n" +
                  "guiHtml::loadFile() - failed to load file " + file("other.html") + "\n");
}

TEST_F(Missing, TextThatCameFromScriptHasNoPlace)
{
    NativeWindow window = open("x");
    EXPECT_EQ(told([&] { window.setText("<body><img src=none.png></body>"); }),
              "guiLoadImage() - failed to load image " + file("none.png") + "; file not found\n");
}
