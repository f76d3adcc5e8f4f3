// tests/script/window_test.cpp: tests of the GuiWindow class: every method with and without a page, with right and
// wrong arguments; and loading.
#include "foundation/vela-string.h"
#include "host/native/nativehost.h"
#include "runtime/gui.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace {

namespace fs = std::filesystem;

/// A folder of its own for each test, gone at the end.
class WindowTest : public testing::Test
{
protected:
    WindowTest()
        : folder(fs::temp_directory_path() / (std::string("tarn-window-") + std::to_string(::getpid()))),
          host(makeOptions())
    {}
    ~WindowTest() override { fs::remove_all(folder); }

    NativeHostOptions makeOptions()
    {
        fs::create_directories(folder);
        NativeHostOptions options;
        options.folder = folder;
        return options;
    }

    std::string write(std::string const& name, std::string const& bytes)
    {
        std::ofstream(folder / name, std::ios::binary) << bytes;
        return name;
    }

    NativeWindow withPage()
    {
        return host.window(write("page.html", "<html><title>A title</title><body>text</body></html>"));
    }

    fs::path folder;
    NativeHost host;
};

TEST_F(WindowTest, WithoutAPageMethodsGiveNeutralResults)
{
    NativeWindow window = host.window();
    EXPECT_EQ(window.call("isValid"), NativeValue(false));
    EXPECT_EQ(window.call("isOpen"), NativeValue(false));
    EXPECT_EQ(window.call("open"), NativeValue(false));
    EXPECT_EQ(window.call("show"), NativeValue());
    EXPECT_EQ(window.call("close"), NativeValue());
    EXPECT_EQ(window.call("getTitle"), NativeValue(""));
    EXPECT_EQ(window.call("getFocus"), NativeValue(""));
    EXPECT_EQ(window.call("getEnterControl"), NativeValue(""));
    EXPECT_EQ(window.call("getEscapeControl"), NativeValue(""));
    EXPECT_EQ(window.call("getSizePolicy"), NativeValue("RESIZE"));
    EXPECT_EQ(window.call("setText", {"x"}), NativeValue(false));
    EXPECT_EQ(window.call("loadBackground", {"x.png"}), NativeValue(false));
    for (char const* name : {"setTitle", "setFocus", "setEnterControl", "setEscapeControl", "setSizePolicy"})
        EXPECT_EQ(window.call(name, {"x"}), NativeValue()) << name;
    for (char const* name : {"setMinimumSize", "setMaximumSize", "setDefaultSize"})
        EXPECT_EQ(window.call(name, {1, 2}), NativeValue()) << name;
}

TEST_F(WindowTest, LoadsItsPageAndTitle)
{
    NativeWindow window = host.window();
    EXPECT_EQ(window.call("load", {write("page.html", "<html><title>A title</title><body>x</body></html>")}),
              NativeValue(true));
    EXPECT_TRUE(window.isValid());
    EXPECT_EQ(window.title(), "A title");
}

TEST_F(WindowTest, ConstructorArgumentLoads) { EXPECT_TRUE(withPage().isValid()); }

TEST_F(WindowTest, PublishesWindowAndFormWhenItLoads)
{
    NativeWindow window = withPage();
    EXPECT_EQ(host.session("currentWindow").object(), window.object());
    EXPECT_TRUE(host.session("currentForm").object());
}

TEST_F(WindowTest, MissingFileIsReportedByName)
{
    NativeWindow window = host.window();
    testing::internal::CaptureStderr();
    EXPECT_EQ(window.call("load", {"missing.html"}), NativeValue(false));
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "GuiWindow::load() - failed to load file " + (folder / "missing.html").string() + "\n");
    EXPECT_FALSE(window.isValid());
}

TEST_F(WindowTest, NamesInMessagesAreUtf8)
{
    NativeWindow window = host.window();
    testing::internal::CaptureStderr();
    window.load("übersicht-目录.html");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "GuiWindow::load() - failed to load file " + (folder / "übersicht-目录.html").string() + "\n");
}

TEST_F(WindowTest, DirectoryIsReportedByName)
{
    fs::create_directory(folder / "sub");
    NativeWindow window = host.window();
    testing::internal::CaptureStderr();
    EXPECT_EQ(window.call("load", {"sub"}), NativeValue(false));
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "GuiWindow::load() - failed to load file " + (folder / "sub").string() + "\n");
}

TEST_F(WindowTest, PageWithoutBodyIsReported)
{
    for (char const* bytes : {"", "just text", "<p>no body</p>", "\x7f\x03<\x01\x02=<<>"}) {
        NativeWindow window = host.window();
        write("plain.html", bytes);
        testing::internal::CaptureStderr();
        EXPECT_EQ(window.call("load", {"plain.html"}), NativeValue(false));
        EXPECT_EQ(testing::internal::GetCapturedStderr(),
                  "GuiWindow::load() - unable to find <body> or <html> tag in " + (folder / "plain.html").string() +
                      "; probably not HTML\n");
    }
}

TEST_F(WindowTest, HtmlElementServesWithoutABody)
{
    NativeWindow window = host.window(write("page.html", "<HTML>text</HTML>"));
    EXPECT_TRUE(window.isValid());
}

TEST_F(WindowTest, WrongArgumentsGiveNull)
{
    NativeWindow window = withPage();
    for (char const* name : {"load", "loadFile", "setText", "loadBackground", "control", "setTitle", "setFocus",
                             "setEnterControl", "setEscapeControl", "setSizePolicy"}) {
        EXPECT_EQ(window.call(name), NativeValue()) << name;
        EXPECT_EQ(window.call(name, {1}), NativeValue()) << name;
        EXPECT_EQ(window.call(name, {"a", "b"}), NativeValue()) << name;
    }
    for (char const* name : {"getTitle", "getFocus", "getEnterControl", "getEscapeControl", "getSizePolicy"})
        EXPECT_EQ(window.call(name, {1}), NativeValue()) << name;
    EXPECT_EQ(window.title(), "A title");
}

TEST_F(WindowTest, IsOpenWithAnArgumentIsFalseEvenWhenOpen)
{
    NativeWindow window = withPage();
    EXPECT_EQ(window.call("open"), NativeValue(true));
    EXPECT_EQ(window.call("isOpen"), NativeValue(true));
    EXPECT_EQ(window.call("isOpen", {1}), NativeValue(false));
    EXPECT_EQ(window.call("isValid", {1}), NativeValue());
    window.close();
    EXPECT_FALSE(window.isOpen());
}

TEST_F(WindowTest, OpenTakesOneBooleanAtMost)
{
    NativeWindow window = withPage();
    for (NativeArguments const& args : {NativeArguments{}, NativeArguments{true}, NativeArguments{"odd", 3}}) {
        EXPECT_EQ(window.call("open", args), NativeValue(true));
        window.close();
        EXPECT_FALSE(window.isOpen());
    }
}

TEST_F(WindowTest, SizePolicyIsCaseSensitive)
{
    NativeWindow window = withPage();
    EXPECT_EQ(window.call("getSizePolicy"), NativeValue("RESIZE"));
    window.call("setSizePolicy", {"scroll"});
    EXPECT_EQ(window.call("getSizePolicy"), NativeValue("RESIZE"));
    for (char const* policy : {"SCROLL", "FIXED", "RESIZE"}) {
        window.call("setSizePolicy", {policy});
        EXPECT_EQ(window.call("getSizePolicy"), NativeValue(policy));
    }
}

TEST_F(WindowTest, NamesAreKept)
{
    NativeWindow window = withPage();
    window.setTitle("Übersicht");
    window.call("setEnterControl", {"ok"});
    window.call("setEscapeControl", {"X"});
    EXPECT_EQ(window.title(), "Übersicht");
    EXPECT_EQ(window.call("getEnterControl"), NativeValue("ok"));
    EXPECT_EQ(window.call("getEscapeControl"), NativeValue("X"));
}

TEST_F(WindowTest, SecondLoadReplacesThePageInPlace)
{
    NativeWindow window = withPage();
    write("second.html", "<html><title>Second</title><body>b</body></html>");
    EXPECT_TRUE(window.load("second.html"));
    EXPECT_EQ(window.title(), "Second");
    testing::internal::CaptureStderr();
    EXPECT_FALSE(window.load("third.html"));
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "guiHtml::loadFile() - failed to load file " + (folder / "third.html").string() + "\n");
    EXPECT_FALSE(window.isValid());
}

TEST_F(WindowTest, SetTextReplacesTheContent)
{
    NativeWindow window = withPage();
    EXPECT_TRUE(window.setText("<title>New</title>words"));
    EXPECT_EQ(window.title(), "New");
}

TEST_F(WindowTest, ShowReturnsWhatAHandlerSet)
{
    NativeWindow window = withPage();
    window.on("ePostOpen", [](NativeWindow& self, NativeArguments const& args) {
        EXPECT_EQ(args.size(), 1u); // the session
        self.setReturnValue("chosen");
        self.close();
    });
    EXPECT_EQ(window.show(), NativeValue("chosen"));
}

TEST_F(WindowTest, ShowReturnsNullWhenNothingWasSet)
{
    NativeWindow window = withPage();
    window.on("ePostOpen", [](NativeWindow& self, NativeArguments const&) { self.close(); });
    EXPECT_EQ(window.show(), NativeValue());
}

TEST_F(WindowTest, UnknownControlIsLogged)
{
    NativeWindow window = withPage();
    testing::internal::CaptureStderr();
    EXPECT_EQ(window.call("control", {"nobody"}), NativeValue());
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "GuiWindow::GetControl() - control nobody not found in window\n");
}

TEST_F(WindowTest, ControlKnowsItsNameAndWindow)
{
    NativeWindow window = host.window(write(
        "named.html", "<html><body><table name=Box width=50 height=40><tr><td>x</td></tr></table></body></html>"));
    NativeObjectRef control = window.control("box");
    ASSERT_TRUE(control);
    EXPECT_EQ(control->get("name"), NativeValue("box"));
    EXPECT_EQ(control->get("window").object(), window.object());
    EXPECT_EQ(control->call("getSizePolicy"), NativeValue("RESIZE"));
    EXPECT_EQ(control->call("isEnabled"), NativeValue(true));
    control->call("disable");
    EXPECT_EQ(control->call("isEnabled"), NativeValue(false));
}

} // namespace
