// tests/pages/real-pages_test.cpp: documentation that nobody here wrote, from two Debian packages: every page is loaded
// as a window loads it and laid out at two sizes. None may crash or hang; each unknown tag gives its one warning, and
// every character of a body is found again in the tree.
#include "tests/pages/pagescan.h"

#include "controls/guiwidget.h"
#include "host/native/nativehost.h"
#include "page/guihtmlsize.h"
#include "page/guihtmltext.h"
#include "runtime/gui.h"
#include "runtime/guihtmlbase.h"
#include "runtime/guithread.h"
#include "script/guiwindow.h"

#include <QString>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>

namespace {

namespace fs = std::filesystem;

// Several hundred times what the largest of these pages takes on an idle machine.
constexpr std::chrono::seconds kLongestLoad(60);
constexpr char kWarning[] = "guiHtmlParser::pullContent() - ignoring unrecognized tag <";

/// What the GUI thread saw of a page.
struct seenPage
{
    std::u16string text; ///< of all runs, codes included, without white space
    std::string fault;
};

seenPage theSeenPage; // written by the GUI thread during a blocking call

void visit(guiHtml* node, std::function<void(guiHtml*)> const& use)
{
    use(node);
    for (guiHtml* child : guiNodesOf(node))
        visit(child, use);
}

void addText(guiHtml* node)
{
    if (node->getType() != guiHtml::kTypeText)
        return;
    sstring const& text = static_cast<guiHtmlText*>(node)->getText();
    auto const* units = reinterpret_cast<char16_t const*>(text.getUnicode());
    std::copy_if(units, units + text.getLength(), std::back_inserter(theSeenPage.text),
                 [](char16_t unit) { return !isLeftOut(unit); });
}

void checkPlace(guiHtml* node)
{
    guiRect const& rect = node->m.rect;
    bool const isPlaced = rect.left >= 0 && rect.top >= 0 && rect.width >= 0 && rect.height >= 0 &&
                          rect.right() <= kMaxLayoutPixels && rect.bottom() <= kMaxLayoutPixels;
    bool const isWhole = node->getType() == guiHtml::kTypeBase ||
                         (rect.width >= node->m.dynamic.cxMin && rect.height >= node->m.dynamic.cyMin);
    if (!isPlaced || !isWhole)
        theSeenPage.fault = "a node was not placed";
    if (node->getType() == guiHtml::kTypeText && (rect.height < 8 || rect.width < 0))
        theSeenPage.fault = "a text has no room";
}

void layOut(guiHtmlBase* root, int width, int height)
{
    root->createWidget(0)->resize(width, height);
    guiRect rect{0, width, 0, height};
    root->setRect(&rect);
    visit(root, checkPlace);
}

/// GUI thread.
void readTree(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs&, ScriptValue&)
{
    guiHtmlBase* root = GetWindow(guiWindow_getData(data));
    layOut(root, 480, 240);
    layOut(root, 800, 600);
    visit(root, addText);
    root->destroyWidget();
}

std::string readBytes(fs::path const& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The page in units, as its declaration says. Without one, whatever the machine's locale makes of bytes above 127 is
/// left out of the comparison.
std::u16string decoded(std::string const& bytes, bool* isAsciiOnly)
{
    QString const head = QString::fromLatin1(bytes.substr(0, 16384).c_str()).toLower();
    *isAsciiOnly = !head.contains(QStringLiteral("charset"));
    QString const text = *isAsciiOnly ? QString::fromLatin1(bytes.data(), static_cast<qsizetype>(bytes.size()))
                                      : QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
    return text.toStdU16String();
}

std::u16string asciiOf(std::u16string const& text)
{
    std::u16string kept;
    std::copy_if(text.begin(), text.end(), std::back_inserter(kept), [](char16_t unit) { return unit < 0x80; });
    return kept;
}

std::string mismatchAt(std::u16string_view expected, std::size_t at)
{
    auto const show = [](std::u16string_view text) {
        return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
    };
    return (QStringLiteral("after ") + show(expected.substr(at > 40 ? at - 40 : 0, std::min<std::size_t>(at, 40))) +
            QStringLiteral(" expected ") + show(expected.substr(at, 40)))
        .toStdString();
}

/// Where the text of the tree first differs from the body's; "" when it does not. What stands between "[[" and "]]" in
/// the tree is a code that the parser wrote, unless the body says the same.
std::string textDifference(std::u16string_view seen, std::u16string_view expected)
{
    std::size_t at = 0;
    for (std::size_t i = 0; i < seen.size();) {
        std::u16string_view const rest = seen.substr(i);
        std::size_t const end = rest.starts_with(u"[[") ? rest.find(u"]]") : std::u16string_view::npos;
        bool const isCode = end != std::u16string_view::npos && rest.rfind(u"[[", end) == 0;
        if (isCode && !expected.substr(at).starts_with(rest.substr(0, end + 2))) {
            i += end + 2;
            continue;
        }
        if (at >= expected.size() || seen[i] != expected[at])
            return mismatchAt(expected, at);
        ++i;
        ++at;
    }
    return at == expected.size() ? "" : mismatchAt(expected, at);
}
std::vector<std::string> warnedTags(std::string const& log)
{
    std::vector<std::string> tags;
    std::istringstream lines(log);
    for (std::string line; std::getline(lines, line);)
        if (line.starts_with(kWarning))
            tags.push_back(line.substr(sizeof kWarning - 1, line.find("> (warning) in /") - sizeof kWarning + 1));
        else if (line.starts_with("guiHtmlParser") && line.find("(warning)") == std::string::npos)
            tags.push_back("line: " + line);
    return tags;
}

/// Whether more was wrong with the page than is logged of one.
bool isCut(std::string const& log) { return log.find(" more mistakes in /") != std::string::npos; }

/// Lines that tell where a page stops being one.
int syntaxErrors(std::string const& log)
{
    int count = 0;
    for (std::size_t at = 0; (at = log.find("guiHtmlParser::pullPage() - line ", at)) != std::string::npos; ++at)
        ++count;
    return count;
}

void expectWhole(NativeHost& host, fs::path const& path)
{
    SCOPED_TRACE(path.string());
    std::string const bytes = readBytes(path);
    bool isAsciiOnly = false;
    scannedPage expected = scanPage(decoded(bytes, &isAsciiOnly));
    theSeenPage = {};
    testing::internal::CaptureStderr();
    auto const start = std::chrono::steady_clock::now();
    NativeWindow window = host.window();
    bool const isLoaded = window.load(path.string());
    NativeValue ignored;
    NativeArguments none;
    if (isLoaded)
        pGUI->getThread()->callFunction(readTree, pGUI->getManager(), window.object()->getPrivate(), &*window.object(),
                                        none, ignored);
    auto const time = std::chrono::steady_clock::now() - start;
    std::string const log = testing::internal::GetCapturedStderr();

    EXPECT_LT(time, kLongestLoad);
    if (!expected.fault.empty()) {
        EXPECT_EQ(syntaxErrors(log), 1) << log << expected.fault;
        return;
    }
    ASSERT_TRUE(isLoaded) << log.substr(0, 1000);
    EXPECT_EQ(theSeenPage.fault, "");
    if (isAsciiOnly)
        expected.text = asciiOf(expected.text);
    EXPECT_EQ(textDifference(isAsciiOnly ? asciiOf(theSeenPage.text) : theSeenPage.text, expected.text), "");
    auto const tags = warnedTags(log);
    if (isCut(log) && tags.size() < expected.unknownTags.size())
        expected.unknownTags.resize(tags.size());
    EXPECT_EQ(tags, expected.unknownTags);
}

std::vector<fs::path> pagesBelow(fs::path const& folder)
{
    std::vector<fs::path> pages;
    std::error_code error;
    for (auto const& entry : fs::recursive_directory_iterator(folder, error))
        if (entry.path().extension() == ".html")
            pages.push_back(entry.path());
    std::sort(pages.begin(), pages.end());
    return pages;
}

void expectPagesOf(char const* package, fs::path const& folder, std::size_t least)
{
    std::vector<fs::path> const pages = pagesBelow(folder);
    ASSERT_GE(pages.size(), least) << "the Debian package " << package << " is not installed";
    NativeHost host;
    for (fs::path const& path : pages) {
        expectWhole(host, path);
    }
}

TEST(RealPages, TheReferenceOfGlibLoadsWhole) { expectPagesOf("libglib2.0-doc", "/usr/share/gtk-doc/html", 350); }

TEST(RealPages, TheManualOfPrologLoadsWhole) { expectPagesOf("swi-prolog-doc", "/usr/share/swi-prolog/doc", 250); }

// ---- The second reading itself ----

scannedPage scanned(char const* page)
{
    std::string const text = page;
    return scanPage({text.begin(), text.end()});
}

TEST(SecondReading, KeepsTheTextOfTheBodyAndNamesUnknownTags)
{
    scannedPage const page = scanned("<title>T</title>x<body>a &lt; b<Blink c='>'>\"q\" r's<!-- no --></blink>"
                                     "<p>d<p>e</i><textarea>f</textarea>&eacute&#65;&x</body>g");
    EXPECT_EQ(page.fault, "");
    EXPECT_EQ(page.text, u"a<bqr'sde\u00E9A&x");
    EXPECT_EQ(page.unknownTags, std::vector<std::string>{"Blink"});
}

TEST(SecondReading, FindsFaults)
{
    EXPECT_NE(scanned("<body>a]]>b</body>").fault, "");
    EXPECT_NE(scanned("<body><></body>").fault, "");
    EXPECT_NE(scanned("<body><a b=></body>").fault, "");
}

TEST(SecondReading, TellsTextsApart)
{
    EXPECT_EQ(textDifference(u"a[[b]]c[[/b]]", u"ac"), "");
    EXPECT_EQ(textDifference(u"[[x]]a", u"[[x]]a"), "");
    EXPECT_EQ(textDifference(u"[[[b]]a]", u"[a]"), "");
    EXPECT_EQ(textDifference(u"[[a][[b]]]", u"[[a]]"), "");
    EXPECT_EQ(textDifference(u"", u""), "");
    EXPECT_NE(textDifference(u"a", u"ab"), "");
    EXPECT_NE(textDifference(u"ab", u"a"), "");
    EXPECT_NE(textDifference(u"ba", u"ab"), "");
    EXPECT_NE(textDifference(u"", u"a"), "");
}

} // namespace
