// tests/runtime/nodes_test.cpp: what nodes of all layers have in common: their numbers, words, copies and keys.
#include "controls/guihtmlcontrolbutton.h"
#include "controls/guihtmlcontrolhidden.h"
#include "controls/guihtmlcustom.h"
#include "controls/guihtmlform.h"
#include "controls/guihtmlimage.h"
#include "page/guihtmltext.h"
#include "runtime/guihtmlbase.h"
#include "runtime/guihtmlframeset.h"
#include "tests/support/parsedpage.h"

namespace {

guiHtml* named(guiHtml* node, char const* name)
{
    node->setString(kStringName, name);
    return node;
}

std::string firstLine(guiHtml&& node)
{
    std::string dump = utf8(node.toString(0));
    return dump.substr(0, dump.find('\n'));
}

} // namespace

TEST(Node, TypesAreNumbered)
{
    EXPECT_EQ(guiHtml().getType(), 0);
    EXPECT_EQ(guiHtmlBase(nullptr, nullptr, nullptr, "").getType(), 1);
    EXPECT_EQ(guiHtmlForm().getType(), 2);
    EXPECT_EQ(guiHtmlImage().getType(), 3);
    EXPECT_EQ(guiHtmlText().getType(), 4);
    EXPECT_EQ(guiHtmlControlButton().getType(), 5);
    EXPECT_EQ(guiHtmlFrameset().getType(), 6);
    EXPECT_EQ(guiHtmlCustom().getType(), 7);
}

TEST(Copies, ReachEveryClass)
{
    guiHtmlFrameset frameset;
    frameset.setTracks({{kUnitPixels, 5}, {}}, {{}, {}, {}});
    std::unique_ptr<guiHtml> copy(frameset.Clone(nullptr));
    EXPECT_EQ(static_cast<guiHtmlFrameset*>(copy.get())->getColumnCount(), 2);
    EXPECT_EQ(static_cast<guiHtmlFrameset*>(copy.get())->getRowCount(), 3);
    guiHtmlForm form;
    form.setAction("event://f");
    copy.reset(form.Clone(nullptr));
    EXPECT_EQ(utf8(static_cast<guiHtmlForm*>(copy.get())->getAction()), "event://f");
    guiHtml plain;
    copy.reset(plain.Clone(nullptr));
    EXPECT_EQ(copy->getType(), 0);
}

TEST(Keys, EnterElsewhereGoesToTheRoot)
{
    guiHtmlBase base(nullptr, nullptr, nullptr, "");
    base.setEnterControl("ok");
    EXPECT_EQ(base.append(named(new guiHtml, "ok"))->onEnter(), 1);
    base.setEnterControl("");
    EXPECT_EQ(base.append(named(new guiHtml, "b"))->onEnter(), 1); // the root always uses the key up
    guiHtml loose;
    EXPECT_EQ(loose.onEnter(), 0);
}

TEST(Dump, EachTypeHasItsWord)
{
    EXPECT_EQ(firstLine(guiHtml()), "HTML: ");
    EXPECT_EQ(firstLine(guiHtmlBase(nullptr, nullptr, nullptr, "")), "BASE: ");
    EXPECT_EQ(firstLine(guiHtmlForm()), "FORM: ");
    EXPECT_EQ(firstLine(guiHtmlImage()), "IMAGE: ");
    EXPECT_EQ(firstLine(guiHtmlText()), "TEXT: ");
    EXPECT_EQ(firstLine(guiHtmlControlButton()), "CONTROL: ");
    EXPECT_EQ(firstLine(guiHtmlFrameset()), "FRAMESET: ");
    EXPECT_EQ(firstLine(guiHtmlCustom()), "UNKNOWN: ");
}

TEST(Dump, ControlsImagesFormsFramesetsAndCustomNodesHaveTheLinesOfAnyNode)
{
    std::string const lines = " \nrect: (0,0)-(0,0) = 0x0\nborder 0; space 0; divide 0\n"
                              "static: X=0/unbound, Y=0/unbound, cxMin=0, cyMin=0\n"
                              "expansion: children=no, width=no, height=no\n"
                              "dynamic: X=0/unbound, Y=0/unbound, cxMin=0, cyMin=0, cxPref=0\n"
                              "active: cx=0, cy=0\nscroll: =0, =0\nalign: X=left, Y=center\n"
                              "font: no override supplied\n{\n}\n";
    guiHtmlControlHidden hidden;
    hidden.initText("not shown");
    EXPECT_EQ(utf8(hidden.toString(0)), "CONTROL:" + lines);
    EXPECT_EQ(utf8(guiHtmlForm().toString(0)), "FORM:" + lines);
    EXPECT_EQ(utf8(guiHtmlImage().toString(0)), "IMAGE:" + lines);
    EXPECT_EQ(utf8(guiHtmlFrameset().toString(0)), "FRAMESET:" + lines);
    EXPECT_EQ(utf8(guiHtmlCustom().toString(0)), "UNKNOWN:" + lines);
}
