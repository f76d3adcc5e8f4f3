// tests/page/links_test.cpp: where links lead, which handlers they call, and what loading a file does to the page.
#include "page/guihtmltext.h"
#include "page/guilayouthold.h"
#include "page/guilinkname.h"
#include "tests/page/pagewindow.h"
#include "tests/support/fakescript.h"

#include <QScrollBar>
#include <gtest/gtest.h>

namespace {

/// Keeps what is set into it instead of parsing it; may do something meanwhile.
template <typename Base>
class Recorder : public Base
{
public:
    using Base::Base;
    using Base::operator=;

    int setText(sstring const& content, sstring const& directory) override
    {
        contents.emplace_back(content.c_str());
        directories.emplace_back(directory.c_str());
        if (whileSetting)
            whileSetting(*this);
        return result;
    }

    int updateLayout(int apply) override
    {
        if (apply && guiLayoutHold::postpone(this))
            return 1;
        layouts += apply;
        return 1;
    }

    std::vector<std::string> contents;
    std::vector<std::string> directories;
    std::function<void(Recorder&)> whileSetting;
    int result = 1;
    int layouts = 0;
};

using RecordingNode = Recorder<guiHtml>;
using RecordingRoot = Recorder<BareRoot>;

class ImageNode : public RecordingNode
{
public:
    using RecordingNode::operator=;
    int getType() override { return kTypeImage; }
};

class FramesetNode : public guiHtml
{
public:
    using guiHtml::operator=;
    int getType() override { return kTypeFrameset; }
};

/// A page loaded from /app/pages/main.html, with a text node to click on.
class Links : public ::testing::Test
{
protected:
    Links() : root(sstring("/app/pages/main.html"), &page)
    {
        root.setString(kStringFile, sstring("/app/pages/main.html"));
        link = root.append(new guiHtml);
    }

    template <typename Node = RecordingNode>
    Node* add(guiHtml* parent, char const* name = "")
    {
        auto* node = new Node;
        parent->append(node);
        node->setString(kStringName, sstring(name));
        return node;
    }

    static int follow(guiHtml* node, char const* target) { return node->onHyperlink(sstring(target), nullptr); }

    /// What is written to the log while `action` runs.
    static std::string logOf(std::function<void()> const& action)
    {
        testing::internal::CaptureStderr();
        action();
        return testing::internal::GetCapturedStderr();
    }

    FakeHost host;
    FakeObject page;
    FakeObject own;
    RecordingRoot root;
    guiHtml* link = nullptr;
};

using List = std::vector<std::string>;

} // namespace

TEST(LinkNames, PercentCodesBecomeCharactersAndBrokenOnesStay)
{
    auto decoded = [](char const* link) { return std::string(guiDecodePercent(sstring(link)).c_str()); };
    EXPECT_EQ(decoded("a%20b"), "a b");
    EXPECT_EQ(decoded("%41%62%3a%3A"), "Ab::");
    EXPECT_EQ(decoded("100%"), "100%");
    EXPECT_EQ(decoded("%4"), "%4");
    EXPECT_EQ(decoded("%4g%G4%%41"), "%4g%G4%A");
    EXPECT_EQ(decoded("%2541"), "%41") << "what was decoded is not decoded again";
    EXPECT_EQ(decoded("x%00y"), "x%00y") << "a zero would end the text";
    sstring wide = guiDecodePercent(sstring("%e9"));
    ASSERT_EQ(wide.getLength(), 1u);
    EXPECT_EQ(wide[0u], 0xE9);
}

TEST(LinkNames, TargetStandsInBracesBeforeTheFile)
{
    auto split = [](char const* link) {
        sstring target;
        sstring rest;
        guiSplitTarget(sstring(link), target, rest);
        return std::string(target.c_str()) + "|" + rest.c_str();
    };
    EXPECT_EQ(split("a.html"), "_self|a.html");
    EXPECT_EQ(split("{_top}a.html"), "_top|a.html");
    EXPECT_EQ(split("{main}"), "main|");
    EXPECT_EQ(split("{}a.html"), "|a.html");
    EXPECT_EQ(split("{main"), "_self|{main") << "without the closing brace it is no target";
    EXPECT_EQ(split("a{b}c"), "_self|a{b}c");
    EXPECT_EQ(split(""), "_self|");
}

TEST(LinkNames, OnlyPicturesAndMoviesAreNoPages)
{
    for (char const* name : {"a.html", "a", "a.txt", "png", "a.png.html", "a.pngx", "dir.png/a"})
        EXPECT_TRUE(guiIsPageFile(sstring(name))) << name;
    for (char const* name : {"a.bmp", "a.GIF", "a.jpg", "a.JpEg", "x/y.z.PNG", "a.avi", "a.AVZ", "a.wav"})
        EXPECT_FALSE(guiIsPageFile(sstring(name))) << name;
}

TEST(LinkNames, FullNamesBeginWithASlashOrAScheme)
{
    EXPECT_TRUE(guiIsFullName(sstring("/a/b.html")));
    EXPECT_TRUE(guiIsFullName(sstring("vfs://GuiWindow/broken.png")));
    EXPECT_FALSE(guiIsFullName(sstring("a/b.html")));
    EXPECT_FALSE(guiIsFullName(sstring("a b://c")));
    EXPECT_FALSE(guiIsFullName(sstring("")));
}

TEST_F(Links, AnEncodedBlankReachesTheHandlerLookUpAsABlank)
{
    List called;
    page.methods["my handler"] = [&](std::string const& event) { return called.push_back(event), ""; };
    EXPECT_EQ(follow(link, "event://my%20handler/1"), 1);
    EXPECT_EQ(called, List{"my handler/1"});
}

TEST_F(Links, BracketsInALinkOfThePageReachTheHandlerLookUp)
{
    List called;
    page.methods["f/a[[1]]"] =
        page.methods["f"] = [&](std::string const& event) { return called.push_back(event), ""; };
    guiHtml* cell = root.append(new guiHtml);
    cell->setText(sstring("<a href=\"event://f/a[[1]]\">x</a>"), sstring());
    auto* run = static_cast<guiHtmlText*>(cell->getChild(0));
    ASSERT_EQ(std::string(run->getText().c_str()).find("[[a event://"), 0u);
    run->mx.hoveredLink = 0;
    run->onMouseDown(0, 0);
    EXPECT_EQ(called, List{"f/a[[1]]"});
}

TEST_F(Links, TheGivenObjectsHandlerComesBeforeThePages)
{
    List called;
    page.methods["onOk"] = [&](std::string const&) { return called.push_back("page"), ""; };
    EXPECT_EQ(link->onHyperlink(sstring("event://onOk"), &own), 1);
    EXPECT_EQ(called, List{"page"});
    own.methods["onOk"] = [&](std::string const&) { return called.push_back("own"), ""; };
    EXPECT_EQ(link->onHyperlink(sstring("event://onOk"), &own), 1);
    EXPECT_EQ(called, (List{"page", "own"}));
}

TEST_F(Links, AnEventWithoutNameOrHandlerIsNotHandledAndLoadsNothing)
{
    EXPECT_EQ(follow(link, "event://"), 0);
    EXPECT_EQ(follow(link, "event://unknown"), 0);
    sstring file("a.html");
    sstring target("_self");
    EXPECT_EQ(link->onHyperlinkAction(file, target, nullptr), 0);
    EXPECT_TRUE(host.read.empty());
}

TEST_F(Links, AnEventThatTheObjectsHandlerDidNotSettleGoesToThePage)
{
    List called;
    add(&root, "cell");
    own.methods["onOk"] = [&](std::string const&) { return called.push_back("own"), "missing.html"; };
    page.methods["onOk"] = [&](std::string const&) { return called.push_back("page"), ""; };
    logOf([&] { EXPECT_EQ(link->onEvent(sstring("{cell}event://onOk"), &own), 1); });
    EXPECT_EQ(called, (List{"own", "page"}));
    called.clear();
    own.methods.clear();
    page.methods["onOk"] = [&](std::string const&) { return called.push_back("page"), "missing.html"; };
    logOf([&] { EXPECT_EQ(link->onEvent(sstring("{cell}event://onOk"), &own), 0); });
    EXPECT_EQ(called, List{"page"}) << "which had been asked in place of the object's";
    called.clear();
    EXPECT_EQ(link->onEvent(sstring("event://unknown"), &own), 0);
    page.methods["onOk"] = [&](std::string const&) { return called.push_back("page"), "missing.html"; };
    logOf([&] { EXPECT_EQ(link->onEvent(sstring("{cell}event://onOk"), &page), 0); });
    EXPECT_EQ(called, List{"page"}) << "the page's own object is not asked twice";
}

TEST_F(Links, MouseHandlersFireTheirAttributeOrTheDefaultLink)
{
    List called;
    for (char const* name :
         {"over", "out", "down", "up", "eMouseOver", "eMouseOut", "eMouseDown", "eMouseUp", "eMouseMove"})
        page.methods[name] = [&called](std::string const& event) { return called.push_back(event), ""; };
    auto fireAll = [&] {
        link->onMouseOn();
        link->onMouseMove(1, 1);
        link->onMouseDown(1, 1);
        link->onMouseUp();
        link->onMouseOff();
    };
    fireAll();
    EXPECT_EQ(called, (List{"eMouseOver", "eMouseMove", "eMouseDown", "eMouseUp", "eMouseOut"}));
    called.clear();
    link->setString(kStringMouseOver, sstring("event://over"));
    link->setString(kStringMouseOut, sstring("event://out"));
    link->setString(kStringMouseDown, sstring("event://down"));
    link->setString(kStringMouseUp, sstring("event://up"));
    fireAll();
    EXPECT_EQ(called, (List{"over", "eMouseMove", "down", "up", "out"}));
}

TEST_F(Links, MouseEventsGoToTheNodesOwnObjectFirst)
{
    List called;
    for (char const* name : {"eMouseOver", "eMouseMove", "eMouseDown", "eMouseUp", "eMouseOut"}) {
        own.methods[name] = [&called](std::string const& event) { return called.push_back("own " + event), ""; };
        page.methods[name] = [&called](std::string const& event) { return called.push_back("page " + event), ""; };
    }
    link->m.object = &own;
    own.methods.erase("eMouseUp");
    link->onMouseOn();
    link->onMouseMove(1, 1);
    link->onMouseDown(1, 1);
    link->onMouseUp();
    link->onMouseOff();
    EXPECT_EQ(called, (List{"own eMouseOver", "own eMouseMove", "own eMouseDown", "page eMouseUp", "own eMouseOut"}));
    link->m.object = nullptr;
}

TEST_F(Links, ANamedTargetTakesTheFileAndAnUnknownOneTheEnclosingFrame)
{
    host.files["/app/pages/a.html"] = "A";
    auto* frameset = add<FramesetNode>(&root);
    auto* frame = add(frameset);
    auto* other = add(frameset, "Other");
    guiHtml* inside = frame->append(new guiHtml);
    EXPECT_EQ(follow(inside, "{other}a.html"), 1);
    EXPECT_EQ(other->contents, List{"A"});
    EXPECT_EQ(follow(inside, "{nowhere}a.html"), 1);
    EXPECT_EQ(frame->contents, List{"A"});
    EXPECT_EQ(follow(inside, "a.html"), 1);
    EXPECT_EQ(follow(inside, "{}a.html"), 1);
    EXPECT_EQ(frame->contents.size(), 3u);
    EXPECT_TRUE(root.contents.empty());
}

TEST_F(Links, WithoutAFramesetTheWindowItselfLoadsTheFile)
{
    host.files["/app/pages/a.html"] = "A";
    EXPECT_EQ(follow(link, "a.html"), 1);
    EXPECT_EQ(follow(link, "{nowhere}a.html"), 1);
    EXPECT_EQ(root.contents, (List{"A", "A"}));
}

TEST_F(Links, ATextRunFollowsItsLinkInsteadOfFiringThePressAndTellsNobodyOfMoves)
{
    auto* run = static_cast<guiHtmlText*>(root.append(new guiHtmlText));
    run->mx.text = sstring("[[a event://go]]x[[/a]]");
    run->mx.hotspots.push_back({0, 10, 0, 10, 0});
    List called;
    for (char const* name : {"eMouseOver", "eMouseOut", "eMouseDown", "eMouseUp", "eMouseMove", "go"})
        page.methods[name] = [&](std::string const& event) {
            called.push_back(event + (run->mx.hoveredLink == 0 ? " on the link" : ""));
            return "";
        };
    run->onMouseOn();
    run->onMouseMove(9, 9);
    run->onMouseDown(9, 9);
    run->onMouseUp();
    run->onMouseOff();
    EXPECT_EQ(called, (List{"eMouseOver", "go on the link", "eMouseUp on the link", "eMouseOut"}));
    run->onMouseMove(10, 9); // right and bottom edges do not count
    run->onMouseDown(10, 9);
    EXPECT_EQ(called.size(), 4u);
}

TEST_F(Links, AddressesOfTheWebAndOfMailLeaveThePageAsItIs)
{
    page.methods["go"] = [](std::string const&) { return "http://there/b%20c"; };
    List const addresses = {"http://x/y#z", "HTTPS://x/a%20b?event://go", "mailto:a@b?subject=c%26d"};
    for (std::string const& address : addresses)
        EXPECT_EQ(follow(link, address.c_str()), 1) << address;
    EXPECT_EQ(host.outside, addresses) << "as they are written, percent codes too";
    EXPECT_EQ(follow(link, "{_top}https://x"), 1);
    EXPECT_EQ(follow(link, "%68ttp:x"), 1);
    EXPECT_EQ(follow(link, "event://go"), 1);
    EXPECT_EQ(List(host.outside.begin() + 3, host.outside.end()), (List{"https://x", "http:x", "http://there/b%20c"}));
    EXPECT_TRUE(root.contents.empty());
    EXPECT_TRUE(host.read.empty());
}

TEST_F(Links, AddressesAreOpenedOnceAlsoByTheMouse)
{
    link->setString(kStringMouseDown, sstring("https://x"));
    link->onEvent(sstring("https://x"), &own);
    link->onMouseDown(1, 1);
    EXPECT_EQ(host.outside, (List{"https://x", "https://x"}));
}

TEST_F(Links, UnknownSchemesAreRefusedInOneLine)
{
    for (char const* address : {"foo:bar", "javascript:alert(1)", "{_top}ftp://x/y.html", "a+b-c.1:x"}) {
        std::string const log = logOf([&] { EXPECT_EQ(follow(link, address), 0); });
        std::string const name = std::string(address).substr(address[0] == '{' ? 6 : 0);
        EXPECT_EQ(log, "guiHtml::onHyperlinkFile() - no page is opened by the scheme of " + name + "\n");
        EXPECT_EQ(logOf([&] { link->onEvent(sstring(address), &own); }), log) << "told once";
    }
    EXPECT_TRUE(root.contents.empty());
    EXPECT_TRUE(host.read.empty());
    EXPECT_TRUE(host.outside.empty());
}

TEST_F(Links, AColonBehindTheFirstNameIsPartOfAFilesName)
{
    List const full = {"/app/pages/1:b", "/app/pages/./a:b.html", "/x:y", "vfs://a/b", "file:///c", "VFS://d"};
    List const names = {"1:b", "./a:b.html", "/x:y", "vfs://a/b", "file:///c", "VFS://d"};
    for (std::string const& name : full)
        host.files[name] = name;
    for (std::string const& name : names)
        EXPECT_EQ(follow(link, name.c_str()), 1) << name;
    EXPECT_EQ(root.contents, full);
    EXPECT_EQ(logOf([&] { follow(link, "#a:b"); }), "") << "a place in the page";
}

TEST_F(Links, SelfAndNoTargetStayInTheFrameAroundTheLink)
{
    host.files["/app/pages/a.html"] = "A";
    auto* outer = add<FramesetNode>(&root);
    auto* frame = add(outer);
    auto* inner = add<FramesetNode>(add(frame, "cell"));
    auto* innerFrame = add(inner);
    guiHtml* text = add(innerFrame, "named")->append(new guiHtml);
    EXPECT_EQ(follow(text, "{_self}a.html"), 1);
    EXPECT_EQ(follow(text, "a.html"), 1);
    EXPECT_EQ(innerFrame->contents, (List{"A", "A"}));
    EXPECT_EQ(follow(inner, "a.html"), 1);
    EXPECT_EQ(frame->contents, List{"A"}) << "a frameset lies in the frame around it";
    EXPECT_EQ(follow(frame, "{}a.html"), 1);
    EXPECT_EQ(frame->contents.size(), 2u) << "an empty target is none";
}

TEST_F(Links, ParentIsTheNearestNamedNodeAndTopTheWindow)
{
    host.files["/app/pages/a.html"] = "A";
    auto* outer = add(&root, "outer");
    auto* inner = add(outer);
    guiHtml* text = inner->append(new guiHtml);
    EXPECT_EQ(follow(text, "{_parent}a.html"), 1);
    EXPECT_EQ(outer->contents, List{"A"});
    auto* named = add(inner, "own");
    EXPECT_EQ(follow(named, "{_parent}a.html"), 1);
    EXPECT_EQ(named->contents, List{"A"});
    EXPECT_EQ(follow(text, "{_top}a.html"), 1);
    EXPECT_EQ(root.contents, List{"A"});
}

TEST_F(Links, ParentWithoutANamedNodeIsTheEnclosingFrame)
{
    host.files["/app/pages/a.html"] = "A";
    auto* frame = add(add<FramesetNode>(&root));
    guiHtml* text = frame->append(new guiHtml);
    EXPECT_EQ(follow(text, "{_parent}a.html"), 1);
    EXPECT_EQ(frame->contents, List{"A"});
    EXPECT_EQ(follow(link, "{_parent}a.html"), 1);
    EXPECT_EQ(root.contents, List{"A"});
}

TEST_F(Links, SpecialTargetsAreExactAndOthersAreNames)
{
    host.files["/app/pages/a.html"] = "A";
    auto* frameset = add<FramesetNode>(&root);
    auto* frame = add(frameset, "outer");
    auto* top = add(frameset, "_TOP");
    guiHtml* text = frame->append(new guiHtml);
    EXPECT_EQ(follow(text, "{_Top}a.html"), 1);
    EXPECT_EQ(top->contents, List{"A"}) << "a name, in any case";
    EXPECT_EQ(follow(text, "{_Parent}a.html"), 1);
    EXPECT_EQ(follow(text, "{_blank}a.html"), 1);
    EXPECT_EQ(frame->contents.size(), 2u);
    EXPECT_TRUE(root.contents.empty());
}

TEST_F(Links, PercentCodesAreDecodedBeforeTheTargetAndTheBookmarkAreCutOff)
{
    host.files["/app/pages/my page.html"] = "M";
    auto* cell = add(&root, "my cell");
    EXPECT_EQ(follow(link, "%7Bmy%20cell%7Dmy%20page.html%23mark"), 1);
    EXPECT_EQ(cell->contents, List{"M"});
}

TEST_F(Links, AnEventMayStandBehindOtherTextAndCarryArguments)
{
    List called;
    page.methods["onOk"] = [&](std::string const& event) { return called.push_back(event), ""; };
    EXPECT_EQ(follow(link, "{cell}x event://onOk\\1/2"), 1);
    EXPECT_EQ(follow(link, "event%3A//onOk"), 1);
    EXPECT_EQ(called, (List{"onOk\\1/2", "onOk"}));
    EXPECT_EQ(logOf([&] { EXPECT_EQ(follow(link, "EVENT://onOk"), 0); }),
              "guiHtml::loadFile() - failed to load file EVENT://onOk\n");
    EXPECT_EQ(called.size(), 2u);
}

TEST_F(Links, APictureIsItsOwnTargetUnlessTheLinkNamesOne)
{
    host.files["/app/pages/a.html"] = "A";
    auto* image = add<ImageNode>(&root);
    EXPECT_EQ(follow(image, "a.html"), 1);
    EXPECT_EQ(follow(image, "{}a.html"), 1);
    EXPECT_EQ(image->contents, (List{"A", "A"}));
    EXPECT_EQ(follow(image, "{_top}a.html"), 1);
    EXPECT_EQ(root.contents, List{"A"});
}

TEST_F(Links, AHandlersReplyIsLoadedIntoTheSameTarget)
{
    host.files["/app/pages/next.html"] = "N";
    auto* cell = add(&root, "cell");
    page.methods["onNext"] = [](std::string const&) { return "next.html"; };
    EXPECT_EQ(follow(link, "{cell}event://onNext"), 1);
    EXPECT_EQ(cell->contents, List{"N"});
}

TEST_F(Links, RelativeNamesStartAtTheDirectoryOfThePageAroundTheLink)
{
    host.files["/app/pages/sub/frame.html"] = "F";
    host.files["/app/pages/sub/deep/b.html"] = "B";
    auto* cell = add(&root, "cell");
    auto* other = add(&root, "other");
    EXPECT_EQ(cell->loadFile(sstring("sub/frame.html")), 1);
    EXPECT_EQ(cell->directories, List{"/app/pages/sub/"});
    guiHtml* text = cell->append(new guiHtml);
    EXPECT_EQ(follow(text, "{other}deep/b.html"), 1);
    EXPECT_EQ(other->contents, List{"B"});
    EXPECT_EQ(other->directories, List{"/app/pages/sub/deep/"});
    EXPECT_EQ(cell->loadFile(sstring("sub/frame.html")), 1) << "a node's own file is no directory to start from";
}

TEST_F(Links, WhatScriptLoadsIntoTheWindowStartsAtTheScript)
{
    host.files["/app/other.html"] = "O";
    EXPECT_EQ(root.loadFile(sstring("other.html")), 1);
    EXPECT_EQ(root.getString(kStringFile), "/app/other.html");
    EXPECT_EQ(guiFullName(link, sstring("x.png")), "/app/x.png");
}

TEST_F(Links, AFileThatCanNotBeReadIsLoggedAndLeavesTheNodeEmpty)
{
    auto* cell = add(&root, "cell");
    cell->append(new guiHtml);
    cell->appendMarker(kMarkerLineBreak);
    cell->ensureScroll().posY = 7;
    EXPECT_EQ(logOf([&] { EXPECT_EQ(cell->loadFile(sstring("no.html#here")), 0); }),
              "guiHtml::loadFile() - failed to load file /app/pages/no.html\n");
    EXPECT_EQ(cell->getChildCount(), 0u);
    EXPECT_EQ(cell->getScroll().posY, 0u);
    EXPECT_EQ(root.layouts, 1);
    EXPECT_TRUE(cell->contents.empty());
    EXPECT_EQ(cell->getString(kStringFile), "/app/pages/no.html");
    EXPECT_EQ(root.getChild(0), link) << "what lies around it stays";
}

TEST_F(Links, AFailingFilterAndContentThatDoesNotApplyAreLoggedAndLeaveTheNodeEmpty)
{
    host.files["/a.html"] = "A";
    host.filter = [](sstring&, sstring&) { return 0; };
    EXPECT_EQ(logOf([&] { EXPECT_EQ(root.loadFile(sstring("/a.html")), 0); }),
              "guiHtml::loadFile() - failed to filter file /a.html\n");
    EXPECT_EQ(root.getChildCount(), 0u);
    root.append(new guiHtml);
    host.filter = nullptr;
    root.result = 0;
    EXPECT_EQ(logOf([&] { EXPECT_EQ(root.loadFile(sstring("/a.html")), 0); }),
              "guiHtml::loadFile() - failed to apply content from /a.html\n");
    EXPECT_EQ(root.contents, List{"A"});
    EXPECT_EQ(root.getChildCount(), 0u);
}

TEST_F(Links, ALinkToAMissingFileMayEmptyTheNodeItStandsIn)
{
    auto* cell = add(&root, "cell");
    guiHtml* text = cell->append(new guiHtml);
    text->setString(kStringMouseDown, sstring("{cell}missing.html"));
    logOf([&] { text->onMouseDown(1, 1); });
    EXPECT_EQ(cell->getChildCount(), 0u);
}

TEST_F(Links, TheFilteredTextIsWhatIsApplied)
{
    host.files["/a.html"] = "A";
    host.filter = [](sstring& name, sstring& text) {
        text = text + "+" + name;
        return 1;
    };
    EXPECT_EQ(root.loadFile(sstring("/a.html")), 1);
    EXPECT_EQ(root.contents, List{"A+/a.html"});
}

TEST_F(Links, APictureFileBecomesAPageWithOnePicture)
{
    auto* cell = add(&root, "cell");
    EXPECT_EQ(cell->loadFile(sstring("a&\"b.PNG")), 1);
    EXPECT_EQ(cell->contents, List{"<img src=\"/app/pages/a&amp;&quot;b.PNG\">"});
    EXPECT_TRUE(host.read.empty()) << "the picture is read by its node";
}

TEST_F(Links, ABookmarkScrollsToItsNodeWithinTheRange)
{
    host.files["/app/pages/a.html"] = "A";
    root.createWidget(0);
    root.m.rect = {0, 100, 0, 100};
    root.whileSetting = [&](RecordingRoot&) {
        guiHtml* outer = root.append(new guiHtml);
        outer->m.rect = {0, 100, 300, 500};
        guiHtml* mark = outer->append(new guiHtml);
        mark->m.rect = {0, 10, 40, 10};
        mark->setString(kStringBookmark, sstring("Here"));
        root.ensureScroll().barY = new QScrollBar(root.getWidget());
        root.ensureScroll().rangeY = 1000;
    };
    EXPECT_EQ(follow(link, "a.html#here"), 1);
    EXPECT_EQ(root.getScroll().posY, 340u);
    root.ensureScroll().rangeY = 200;
    EXPECT_EQ(follow(link, "#here"), 1) << "a bookmark alone jumps within the page";
    EXPECT_EQ(root.getScroll().posY, 200u);
    EXPECT_EQ(root.contents.size(), 1u);
    EXPECT_EQ(follow(link, "#nowhere"), 0);
    root.destroyWidget();
}

TEST_F(Links, ABookmarkOfTheNodeThatIsLoadedComesBeforeOthersAndScrollsIt)
{
    host.files["/app/pages/a.html"] = "A";
    root.createWidget(0);
    root.m.rect = {0, 100, 0, 100};
    guiHtml* const before = root.append(new guiHtml);
    before->setString(kStringBookmark, sstring("here"));
    auto* const frame = add(&root, "frame");
    frame->m.rect = {0, 100, 50, 50};
    guiHtml* const mark = frame->append(new guiHtml);
    mark->m.rect = {0, 10, 70, 10};
    mark->setString(kStringBookmark, sstring("here"));
    frame->ensureScroll().barY = new QScrollBar(root.getWidget());
    frame->ensureScroll().rangeY = 1000;
    EXPECT_EQ(frame->loadFile(sstring("#here")), 1);
    EXPECT_EQ(frame->getScroll().posY, 70u) << "the frame's own, though the page has no scroll bar";
    EXPECT_EQ(frame->loadFile(sstring("#nowhere")), 0);
    root.destroyWidget();
}

TEST_F(Links, AnEmptyLinkDoesNothing)
{
    EXPECT_EQ(follow(link, ""), 0);
    EXPECT_EQ(root.loadFile(sstring("")), 0);
    EXPECT_TRUE(host.read.empty());
    EXPECT_TRUE(root.contents.empty());
}

TEST_F(Links, PendingSourcesAreLoadedOnceEachAndOneFailureIsReported)
{
    host.files["/app/pages/a.html"] = "A";
    host.files["/app/pages/b.html"] = "B";
    auto* first = add(&root);
    auto* second = add(first);
    first->setString(kStringSource, sstring("a.html"));
    second->setString(kStringSource, sstring("b.html"));
    EXPECT_EQ(root.dynamicLoad(), 1);
    EXPECT_EQ(root.dynamicLoad(), 1);
    EXPECT_EQ(host.read, (List{"/app/pages/a.html", "/app/pages/b.html"}));
    host.files["/app/pages/c.html"] = "C";
    auto* missing = add(second);
    auto* third = add(second);
    missing->setString(kStringSource, sstring("missing.html"));
    third->setString(kStringSource, sstring("c.html"));
    logOf([&] { EXPECT_EQ(root.dynamicLoad(), 0); });
    EXPECT_EQ(third->contents.size(), 1u) << "one failure does not stop the others";
}

TEST_F(Links, APageThatContainsItselfIsNotLoadedAgain)
{
    host.files["/app/pages/main.html"] = "M";
    auto* cell = add(&root);
    cell->setString(kStringSource, sstring("main.html"));
    EXPECT_EQ(logOf([&] { EXPECT_EQ(root.dynamicLoad(), 0); }),
              "guiHtml::dynamicLoad() - /app/pages/main.html is not loaded: it contains itself\n");
    EXPECT_TRUE(host.read.empty());
}

TEST_F(Links, PagesThatPullInEndlesslyManyOthersEnd)
{
    int made = 0;
    host.filter = [](sstring&, sstring&) { return 1; };
    std::function<void(RecordingNode&)> pullTwo = [&](RecordingNode& node) {
        for (int i = 0; i < 2; ++i) {
            auto* child = add(&node);
            std::string const file = "p" + std::to_string(++made) + ".html";
            host.files["/app/pages/" + file] = "P";
            child->setString(kStringSource, sstring(file.c_str()));
            child->whileSetting = pullTwo;
        }
        node.dynamicLoad();
    };
    auto* cell = add(&root);
    cell->setString(kStringSource, sstring("p0.html"));
    host.files["/app/pages/p0.html"] = "P";
    cell->whileSetting = pullTwo;
    std::string const log = logOf([&] { EXPECT_EQ(root.dynamicLoad(), 1); });
    EXPECT_LE(host.read.size(), std::size_t{guiLoadBudget::kMaxFiles});
    EXPECT_NE(log.find("too many pages within pages\n"), std::string::npos);
}

TEST_F(Links, APageWithManyFramesIsLaidOutOnce)
{
    std::vector<RecordingNode*> cells;
    for (int i = 0; i < 10; ++i) {
        std::string const file = "f" + std::to_string(i) + ".html";
        host.files["/" + file] = "F";
        auto* cell = add(&root);
        cell->setString(kStringSource, sstring(file.c_str()));
        cell->whileSetting = [](RecordingNode& node) { node.updateLayout(1); };
        cells.push_back(cell);
    }
    host.files["/all.html"] = "ALL";
    root.whileSetting = [&](RecordingRoot& node) {
        node.dynamicLoad();
        node.updateLayout(1);
    };
    EXPECT_EQ(root.loadFile(sstring("/all.html")), 1);
    EXPECT_EQ(host.read.size(), 11u);
    EXPECT_EQ(root.layouts, 1);
    for (RecordingNode* cell : cells)
        EXPECT_EQ(cell->layouts, 0);
}

TEST_F(Links, ABackgroundImageIsReadByTheLoadAndAMissingOneLeavesTheOldOne)
{
    host.files["/app/pages/tile.png"] = "";
    auto* cell = add(&root);
    EXPECT_EQ(cell->setBackgroundImage(sstring("tile.png")), 1);
    EXPECT_FALSE(cell->isBackgroundLoaded());
    EXPECT_EQ(root.dynamicLoad(), 1);
    EXPECT_TRUE(cell->isBackgroundLoaded());
    EXPECT_EQ(cell->loadBackground(sstring("missing.png")), 0);
    EXPECT_TRUE(cell->isBackgroundLoaded());
    EXPECT_EQ(cell->getString(kStringBackground), "tile.png");
    EXPECT_EQ(host.read, (List{"/app/pages/tile.png", "/app/pages/missing.png"}));
}

// What a handler may do to the page that called it. Run these under AddressSanitizer.

TEST_F(Links, AHandlerMayReplaceThePageItsLinkStandsIn)
{
    host.files["/app/pages/next.html"] = "N";
    page.methods["onNext"] = [&](std::string const&) {
        root.destroyChildren();
        return "/app/pages/next.html";
    };
    EXPECT_EQ(follow(link, "event://onNext"), 1);
    EXPECT_EQ(root.contents, List{"N"}) << "the reply goes to the window that the node was in";
    link = root.append(new guiHtml);
    EXPECT_EQ(link->onEvent(sstring("event://onNext"), &own), 1);
}

TEST_F(Links, ALinkMayLoadAPageIntoTheNodeAroundIt)
{
    host.files["/app/pages/next.html"] = "N";
    auto* cell = add(&root, "cell");
    guiHtml* text = cell->append(new guiHtml);
    text->setString(kStringMouseDown, sstring("{cell}next.html"));
    cell->whileSetting = [](RecordingNode& node) { node.destroyChildren(); };
    text->onMouseDown(1, 1);
    EXPECT_EQ(cell->getChildCount(), 0u);
}

TEST_F(Links, AFilterMayDestroyTheNodeThatIsBeingLoaded)
{
    host.files["/a.html"] = "A";
    auto* cell = add(&root, "cell");
    host.filter = [&](sstring&, sstring&) {
        root.destroyChildren();
        return 1;
    };
    EXPECT_EQ(logOf([&] { EXPECT_EQ(cell->loadFile(sstring("/a.html")), 0); }),
              "guiHtml::loadFile() - failed to apply content from /a.html\n");
}

TEST_F(Links, AHandlerMayDestroyTheWholeWindow)
{
    auto window = std::make_unique<RecordingRoot>(sstring(), &page);
    guiHtml* text = window->append(new guiHtml);
    page.methods["onClose"] = [&](std::string const&) {
        window.reset();
        return "next.html";
    };
    EXPECT_EQ(text->onHyperlink(sstring("event://onClose"), nullptr), 1);
    EXPECT_TRUE(host.read.empty());
}
