// tests/e2e/load_test.cpp: files of every kind as pages: the result, the message, and nothing else printed.
#include "tests/e2e/fixture.h"

#include <unicode/ucnv.h>

using namespace std::chrono_literals;

namespace {

struct LoadTest : testing::Test
{
    TimeLimit limit{60s};
    PageFolder pages;
    NativeHost host{{.folder = pages.path()}};
    NativeWindow window = host.window();
    std::string printed;

    bool load(std::string const& name)
    {
        testing::internal::CaptureStderr();
        testing::internal::CaptureStdout();
        bool loaded = window.load(name);
        printed = testing::internal::GetCapturedStderr() + testing::internal::GetCapturedStdout();
        return loaded;
    }

    bool loadBytes(std::string_view bytes)
    {
        pages.write("page.html", bytes);
        return load("page.html");
    }

    std::string failed(std::string const& name) const
    {
        return "GuiWindow::load() - failed to load file " + (pages.path() / name).string() + "\n";
    }

    std::string notHtml(std::string const& name) const
    {
        return "GuiWindow::load() - unable to find <body> or <html> tag in " + (pages.path() / name).string() +
               "; probably not HTML\n";
    }
};

std::u16string const kTitle = u"Größe 日本語 €";
std::u16string const kPage = u"<html><head><title>" + kTitle + u"</title></head><body><p>text</p></body></html>";

std::string littleEndian(std::u16string const& text)
{
    std::string bytes;
    for (char16_t unit : text)
        bytes += {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
    return bytes;
}

std::string bigEndian(std::u16string const& text)
{
    std::string bytes;
    for (char16_t unit : text)
        bytes += {static_cast<char>(unit >> 8), static_cast<char>(unit & 0xFF)};
    return bytes;
}

std::string utf8(std::u16string const& text) { return NativeValue(text).text(); }

} // namespace

TEST_F(LoadTest, AMissingFileIsNamed)
{
    EXPECT_FALSE(load("missing.html"));
    EXPECT_EQ(printed, failed("missing.html"));
    EXPECT_FALSE(window.isValid());
    EXPECT_FALSE(window.open());
    EXPECT_TRUE(window.show().isNull());
}

TEST_F(LoadTest, AFolderIsNoFile)
{
    std::filesystem::create_directory(pages.path() / "folder");
    EXPECT_FALSE(load("folder"));
    EXPECT_EQ(printed, failed("folder"));
    EXPECT_FALSE(window.isValid());
}

TEST_F(LoadTest, AnEmptyFileIsNoPage)
{
    EXPECT_FALSE(loadBytes(""));
    EXPECT_EQ(printed, notHtml("page.html"));
}

TEST_F(LoadTest, TextWithoutTagsIsNoPage)
{
    EXPECT_FALSE(loadBytes("just some words"));
    EXPECT_EQ(printed, notHtml("page.html"));
}

TEST_F(LoadTest, BytesThatAreNoTextAreNoPage)
{
    std::string bytes;
    unsigned seed = 7;
    for (int i = 0; i < 50000; ++i) {
        seed = seed * 1664525 + 1013904223;
        char byte = static_cast<char>(seed >> 24);
        bytes += byte == '<' ? '.' : byte;
    }
    EXPECT_FALSE(loadBytes(bytes));
    EXPECT_EQ(printed, notHtml("page.html"));
}

TEST_F(LoadTest, AFileOfTwentyMegabytesIsRead)
{
    std::string bytes = "<html><head><title>Large</title></head><body>";
    while (bytes.size() < 20'000'000)
        bytes +=
            "<p>The quick brown fox jumps over the lazy dog and over " + std::to_string(bytes.size()) + " more.</p>\n";
    bytes += "</body></html>";
    EXPECT_TRUE(loadBytes(bytes));
    EXPECT_EQ(printed, "");
    EXPECT_EQ(window.title(), "Large");
}

TEST_F(LoadTest, Utf16LittleEndianByItsMark)
{
    EXPECT_TRUE(loadBytes(littleEndian(u"\xFEFF" + kPage)));
    EXPECT_EQ(printed, "");
    EXPECT_EQ(window.call("getTitle"), NativeValue(kTitle));
}

TEST_F(LoadTest, Utf16BigEndianByItsMark)
{
    EXPECT_TRUE(loadBytes(bigEndian(u"\xFEFF" + kPage)));
    EXPECT_EQ(printed, "");
    EXPECT_EQ(window.call("getTitle"), NativeValue(kTitle));
}

TEST_F(LoadTest, Utf8ByItsDeclaration)
{
    std::string declared = "<meta http-equiv=\"Content-Type\" content=\"text/html; charset=utf-8\">";
    EXPECT_TRUE(loadBytes(declared + utf8(kPage)));
    EXPECT_EQ(printed, "");
    EXPECT_EQ(window.call("getTitle"), NativeValue(kTitle));
}

TEST_F(LoadTest, Utf8WithAMarkAndADeclaration)
{
    std::string declared = "<meta http-equiv=\"Content-Type\" content=\"text/html; charset=utf-8\">";
    EXPECT_TRUE(loadBytes("\xEF\xBB\xBF" + declared + utf8(kPage)));
    EXPECT_EQ(printed, "");
    EXPECT_EQ(window.call("getTitle"), NativeValue(kTitle));
}

TEST_F(LoadTest, ShiftJisByItsDeclaration)
{
    std::string title = "\x93\xFA\x96\x7B\x8C\xEA"; // three characters of two bytes
    EXPECT_TRUE(loadBytes("<html><head><meta http-equiv=\"Content-Type\" content=\"text/html; charset=Shift_JIS\">"
                          "<title>" +
                          title + "</title></head><body><p>text</p></body></html>"));
    EXPECT_EQ(printed, "");
    EXPECT_EQ(window.call("getTitle"), NativeValue(u"日本語"));
}

TEST_F(LoadTest, APageCutOffInATagIsReportedAndKeepsWhatCameBefore)
{
    EXPECT_FALSE(loadBytes("<html><head><title>Cut</title></head><body><p>one</p>\n"
                           "<input name=\"person\" type=\"text\"><a href=\"event://on"));
    EXPECT_EQ(printed, "guiHtmlParser::pullPage() - line 2: expected tag closure marker\n");
    EXPECT_EQ(window.title(), "Cut");
    EXPECT_TRUE(window.isValid());
    EXPECT_TRUE(window.control("person"));
}

TEST_F(LoadTest, APageCutOffBetweenTagsIsAPage)
{
    EXPECT_TRUE(loadBytes("<html><head><title>Cut</title></head><body><table><tr><td><b>one"));
    EXPECT_EQ(printed, "");
    EXPECT_EQ(window.title(), "Cut");
}

TEST_F(LoadTest, ASecondPageReplacesTheFirst)
{
    EXPECT_TRUE(loadBytes("<html><head><title>One</title></head><body><p>one</p></body></html>"));
    EXPECT_TRUE(loadBytes("<html><head><title>Two</title></head><body><p>two</p></body></html>"));
    EXPECT_EQ(printed, "");
    EXPECT_TRUE(window.isValid());
}

TEST_F(LoadTest, AMissingSecondPageIsNamed)
{
    EXPECT_TRUE(loadBytes("<html><head><title>One</title></head><body><p>one</p></body></html>"));
    EXPECT_FALSE(load("missing.html"));
    EXPECT_FALSE(window.isValid()) << "the window is left empty";
    EXPECT_EQ(window.title(), "One");
}

TEST_F(LoadTest, APageBringsThePagesOfItsCellsAndFrames)
{
    pages.write("inner.html", "<html><body><table name=\"inside\"><tr><td>text</td></tr></table></body></html>");
    pages.write("frame.html", "<html><body><table name=\"framed\"><tr><td>text</td></tr></table></body></html>");
    EXPECT_TRUE(loadBytes("<html><body><table><tr><td src=\"inner.html\"></td></tr></table>"
                          "<frameset cols=\"*\"><frame src=\"frame.html\"></frameset></body></html>"));
    EXPECT_EQ(printed, "");
    EXPECT_TRUE(window.control("inside"));
    EXPECT_TRUE(window.control("framed"));
}

TEST_F(LoadTest, APageOpensWithoutAFrameThatIsMissing)
{
    EXPECT_TRUE(loadBytes("<html><body><frameset cols=\"*\"><frame src=\"no.html\"></frameset></body></html>"));
    EXPECT_EQ(printed, "guiHtml::loadFile() - failed to load file " + (pages.path() / "no.html").string() + " in " +
                           (pages.path() / "page.html").string() + ":1\n");
}
