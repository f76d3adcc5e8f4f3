// tests/page/elements_test.cpp: what the attributes of each element become.
#include "tests/page/pagesupport.h"

#include "controls/guihtmlcontrolbutton.h"
#include "controls/guihtmlcontroledit.h"
#include "controls/guihtmlcontrolflex.h"
#include "controls/guihtmlcontrolhidden.h"
#include "controls/guihtmlcontrollist.h"
#include "controls/guihtmlcontrolmenu.h"
#include "controls/guihtmlcustom.h"
#include "controls/guihtmlform.h"
#include "controls/guihtmlimage.h"
#include "controls/guiimagemap.h"
#include "foundation/vela-mlparser.h"
#include "page/guihtmlparser.h"
#include "page/guinumbers.h"
#include "runtime/guihtmlbase.h"
#include "runtime/guihtmlframeset.h"

namespace {

/// The node of a table with the given attributes.
class aTable
{
public:
    explicit aTable(std::string const& attributes) : m_page(parsePage("<table " + attributes + "></table>")) {}
    guiHtml* operator->() const { return m_page.root->getLastChild(); }
    guiHtml& operator*() const { return *m_page.root->getLastChild(); }

private:
    parsedPage m_page;
};

std::string stringOf(guiHtml& node, guiNodeString which) { return utf8(node.getString(which)); }

} // namespace

TEST(Attributes, AbsentIsEmptyWithoutValueIsOneElseTheValue)
{
    unsigned char page[] = "<x a b=\"\" C=v c=w>";
    textstream stream(page, sizeof page - 1, 0);
    mlParser parser(&stream);
    mlSection* section = parser.getSection(0);
    EXPECT_EQ(utf8(guiHtmlParser::pullAttr(section, "none")), "");
    EXPECT_EQ(utf8(guiHtmlParser::pullAttr(section, "a")), "1");
    EXPECT_EQ(utf8(guiHtmlParser::pullAttr(section, "A", "on")), "on");
    EXPECT_EQ(utf8(guiHtmlParser::pullAttr(section, "b")), "1");
    EXPECT_EQ(utf8(guiHtmlParser::pullAttr(section, "c")), "v");
    EXPECT_EQ(utf8(guiHtmlParser::pullAttr(section, sstring("A"), sstring("bare"))), "bare");
}

TEST(Attributes, BorderIsOneWithoutAValueAndZeroWhenAbsentOrNoNumber)
{
    EXPECT_EQ(aTable("")->m.border, 0);
    EXPECT_EQ(aTable("border")->m.border, 1);
    EXPECT_EQ(aTable("border=3")->m.border, 3);
    EXPECT_EQ(aTable("border=wide")->m.border, 0);
    EXPECT_EQ(aTable("border=-4")->m.border, 0);
}
TEST(Attributes, FrameborderCountsWhenThereIsNoBorder)
{
    EXPECT_EQ(aTable("frameborder=2")->m.border, 2);
    EXPECT_EQ(aTable("border=5 frameborder=2")->m.border, 5);
}
TEST(Attributes, BorderColoursAreReadOnlyWithABorder)
{
    aTable with("border=1 bordercolorlight=red bordercolor=#010203 bordercolordark=NAVY");
    EXPECT_EQ(with->getBorderLight(), (guiColor{255, 0, 0}));
    EXPECT_EQ(with->getBorderColor(), (guiColor{1, 2, 3}));
    EXPECT_EQ(with->getBorderDark(), (guiColor{0, 0, 128}));
    aTable without("bordercolorlight=red bordercolor=#010203 bordercolordark=NAVY");
    EXPECT_EQ(without->getBorderLight(), guiColor::White);
    EXPECT_EQ(without->getBorderColor(), guiColor::LightGray);
    EXPECT_EQ(without->getBorderDark(), guiColor::DarkGray);
}
TEST(Attributes, TheThreeSpacingsAddUpToDivideAndSpace)
{
    aTable table("cellspacing=1 framespacing=2 cellpadding=4");
    EXPECT_EQ(table->m.divide, 7);
    EXPECT_EQ(table->m.space, 7);
    parsedPage page = parsePage("<frameset framespacing=3></frameset>");
    EXPECT_EQ(page.root->getLastChild()->m.divide, 3);
    EXPECT_EQ(page.root->getLastChild()->m.space, 0);
}
TEST(Attributes, UseSystemFontIsOffForTheFourWords)
{
    EXPECT_EQ(aTable("")->m.useSystemFont, 0);
    for (char const* word : {"yes", "1", "anything"})
        EXPECT_EQ(aTable(std::string("usesystemfont=") + word)->m.useSystemFont, 1) << word;
    EXPECT_EQ(aTable("usesystemfont")->m.useSystemFont, 1);
    for (char const* word : {"no", "off", "FALSE", "0"})
        EXPECT_EQ(aTable(std::string("usesystemfont=") + word)->m.useSystemFont, 0) << word;
}
TEST(Attributes, ScrollingNamesTheThreePolicies)
{
    EXPECT_EQ(aTable("")->getSizePolicy(), kPolicyResize);
    EXPECT_EQ(aTable("scrolling")->getSizePolicy(), kPolicyScroll);
    for (char const* word : {"yes", "on", "true", "1"})
        EXPECT_EQ(aTable(std::string("scrolling=") + word)->getSizePolicy(), kPolicyScroll) << word;
    for (char const* word : {"no", "off", "false", "0", "perhaps"})
        EXPECT_EQ(aTable(std::string("scrolling=") + word)->getSizePolicy(), kPolicyResize) << word;
    EXPECT_EQ(aTable("scrolling=Fixed")->getSizePolicy(), kPolicyFixed);
}
TEST(Attributes, MouseHandlersAndNameAreKeptAsGiven)
{
    aTable table("name=T onmouseover=event://a onmouseout=event://b onmousedown=event://c onmouseup=event://d");
    EXPECT_EQ(stringOf(*table, kStringName), "T");
    EXPECT_EQ(stringOf(*table, kStringMouseOver), "event://a");
    EXPECT_EQ(stringOf(*table, kStringMouseOut), "event://b");
    EXPECT_EQ(stringOf(*table, kStringMouseDown), "event://c");
    EXPECT_EQ(stringOf(*table, kStringMouseUp), "event://d");
}
TEST(Attributes, BackgroundIsAColourAndAFile)
{
    aTable table("bgcolor=teal background=sky.png");
    EXPECT_TRUE(table->hasBackgroundColor());
    EXPECT_EQ(table->getBackgroundColor(), (guiColor{0, 128, 128}));
    EXPECT_EQ(stringOf(*table, kStringBackground), "sky.png");
    EXPECT_FALSE(aTable("bgcolor=nonsense")->hasBackgroundColor());
}
TEST(Attributes, SizesArePixelsOrPercent)
{
    aTable table("width=120 height=50%");
    EXPECT_EQ(table->m.fixed.unitX, kUnitPixels);
    EXPECT_EQ(table->m.fixed.x, 120u);
    EXPECT_EQ(table->m.fixed.unitY, kUnitPercent);
    EXPECT_EQ(table->m.fixed.y, 50u);
    EXPECT_EQ(aTable("")->m.fixed.unitX, kUnitUnbound);
    EXPECT_EQ(aTable("minwidth=7")->m.fixed.x, 7u);
    EXPECT_EQ(aTable("minheight=8")->m.fixed.y, 8u);
    EXPECT_EQ(aTable("width=5 minwidth=7")->m.fixed.x, 5u);
}
TEST(Attributes, AWidthOfZeroOrNoNumberIsARequestOfZeroPixels)
{
    for (char const* width : {"width=0", "width=wide", "width=-5"}) {
        aTable table(width);
        EXPECT_EQ(table->m.fixed.unitX, kUnitPixels) << width;
        EXPECT_EQ(table->m.fixed.x, 0u) << width;
    }
}
TEST(Attributes, SizesAreLimited)
{
    aTable table("width=4294967297 height=99999999999% border=1000000 cellspacing=99999 cellpadding=99999");
    EXPECT_EQ(table->m.fixed.x, static_cast<unsigned>(kMaxPixels));
    EXPECT_EQ(table->m.fixed.y, static_cast<unsigned>(kMaxPercent));
    EXPECT_EQ(table->m.border, kMaxPixels);
    EXPECT_EQ(table->m.divide, kMaxPixels);
}
TEST(Attributes, NumbersReadTheirBeginningAndStopAtTheEndOfTheirRange)
{
    EXPECT_EQ(guiToNumber(" 12px"), 12);
    EXPECT_EQ(guiToNumber("+3"), 3);
    EXPECT_EQ(guiToNumber("-3"), -3);
    EXPECT_EQ(guiToNumber(""), 0);
    EXPECT_EQ(guiToNumber("x1"), 0);
    EXPECT_EQ(guiToNumber("99999999999999999999999"), 2147483647);
    EXPECT_EQ(guiToNumber("-99999999999999999999999"), -2147483647);
}

TEST(Tables, PixelSizesAreAlsoMinima)
{
    aTable table("width=120 height=50%");
    EXPECT_EQ(table->m.fixed.cxMin, 120);
    EXPECT_EQ(table->m.fixed.cyMin, 0);
    EXPECT_EQ(table->m.expandChildren, 1);
}
TEST(Tables, SourceAndCaptionAreStored)
{
    unsigned char text[] = "<html><table src=part.html caption=Options></table></html>";
    textstream stream(text, sizeof text - 1, 0);
    mlParser markup(&stream);
    guiHtml node;
    EXPECT_EQ(guiHtmlParser(&markup, "").pullPage(&node), 1);
    EXPECT_EQ(stringOf(*node.getChild(0), kStringSource), "part.html");
    EXPECT_EQ(stringOf(*node.getChild(0), kStringCaption), "Options");
}
TEST(Tables, CellsReadTheirOwnAttributesAndKeepNoMinimum)
{
    parsedPage page =
        parsePage("<table><tr><td align=right valign=bottom width=40 border=2 name=c>x</td></tr></table>");
    guiHtml* cell = page.root->getLastChild()->getLastChild();
    EXPECT_EQ(cell->m.alignX, kAlignRight);
    EXPECT_EQ(cell->m.alignY, kAlignBottom);
    EXPECT_EQ(cell->m.fixed.x, 40u);
    EXPECT_EQ(cell->m.fixed.cxMin, 0);
    EXPECT_EQ(cell->m.border, 2);
    EXPECT_EQ(cell->m.expandChildren, 0);
    EXPECT_EQ(utf8(cell->getName()), "c");
}
TEST(Tables, AlignmentWords)
{
    auto cellWith = [](char const* attributes) {
        parsedPage page = parsePage(std::string("<table><tr><td ") + attributes + "></td></tr></table>");
        guiHtml* cell = page.root->getLastChild()->getLastChild();
        return std::pair<int, int>(cell->m.alignX, cell->m.alignY);
    };
    EXPECT_EQ(cellWith(""), std::make_pair(0, 1));
    EXPECT_EQ(cellWith("align=left valign=top"), std::make_pair(0, 0));
    EXPECT_EQ(cellWith("align=CENTER valign=center"), std::make_pair(1, 1));
    EXPECT_EQ(cellWith("align=middle valign=middle"), std::make_pair(1, 1));
    EXPECT_EQ(cellWith("align=justify valign=baseline"), std::make_pair(0, 1));
}

TEST(Rules, AreTwoPixelsHighAndAsWideAsTheirPlace)
{
    parsedPage page = parsePage("<hr>");
    guiHtml* rule = page.root->getLastChild();
    EXPECT_EQ(rule->m.fixed.unitX, kUnitPercent);
    EXPECT_EQ(rule->m.fixed.x, 100u);
    EXPECT_EQ(rule->m.fixed.unitY, kUnitPixels);
    EXPECT_EQ(rule->m.fixed.y, 2u);
    EXPECT_EQ(rule->getBackgroundColor(), guiColor::DarkGray);
    EXPECT_EQ(rule->getLastChild()->getBackgroundColor(), guiColor::White);
    EXPECT_EQ(rule->getLastChild()->m.fixed.y, 1u);
}
TEST(Rules, TakeSizeWidthAlignmentAndColour)
{
    parsedPage page = parsePage("a<hr size=6 width=50 align=right color=red>b");
    EXPECT_EQ(outline(page.root.get()), "'a' P RIGHT html P LEFT 'b'");
    guiHtml* rule = page.root->getChild(3);
    EXPECT_EQ(rule->m.fixed.y, 6u);
    EXPECT_EQ(rule->m.fixed.unitX, kUnitPixels);
    EXPECT_EQ(rule->m.fixed.x, 50u);
    EXPECT_EQ(rule->getBackgroundColor(), guiColor::BrightRed);
    EXPECT_EQ(outlineOf("<hr noshade>"), "html P");
}

TEST(Forms, KeepActionSourceAndLook)
{
    parsedPage page = parsePage("<form name=f action=event://go border=1 align=center bgcolor=red>x</form>");
    auto* form = static_cast<guiHtmlForm*>(page.root->getLastChild());
    ASSERT_EQ(form->getType(), 2);
    EXPECT_EQ(utf8(form->getAction()), "event://go");
    EXPECT_EQ(utf8(form->getName()), "f");
    EXPECT_EQ(form->m.border, 1);
    EXPECT_EQ(form->m.alignX, kAlignCenter);
    EXPECT_TRUE(form->hasBackgroundColor());
}

namespace {

/// The first control of a page.
template <typename Control>
struct aControl
{
    explicit aControl(std::string const& text) : page(parsePage(text)), node(findNode<Control>(page, 5)) {}
    Control* operator->() const { return node; }
    parsedPage page;
    Control* node;
};

} // namespace

TEST(Inputs, TypesChooseTheClassWithoutRegardToCase)
{
    auto kind = [](char const* type) { return outlineOf(std::string("<input type=") + type + ">"); };
    for (char const* type : {"button", "submit", "checkbox", "radio", "reset", "BUTTON"})
        EXPECT_EQ(kind(type), "control0") << type;
    for (char const* type : {"text", "file", "password"})
        EXPECT_EQ(kind(type), "control1") << type;
    EXPECT_EQ(kind("hidden"), "control3");
    EXPECT_EQ(kind("image"), "image");
    EXPECT_EQ(kind("date"), "");
    EXPECT_EQ(outlineOf("<input>x"), "'x'");
}
TEST(Inputs, ButtonsReadTypeValueAndState)
{
    using button = aControl<guiHtmlControlButton>;
    EXPECT_EQ(button("<input type=button>")->getButtonType(), 0);
    EXPECT_EQ(button("<input type=reset>")->getButtonType(), 1);
    EXPECT_EQ(button("<input type=Submit>")->getButtonType(), 2);
    EXPECT_EQ(button("<input type=checkbox>")->getButtonType(), 3);
    EXPECT_EQ(button("<input type=radio>")->getButtonType(), 4);
    EXPECT_EQ(button("<input type=radio>")->isChecked(), 0);
    EXPECT_EQ(button("<input type=radio checked>")->isChecked(), 1);
    EXPECT_EQ(utf8(button("<input type=button value=OK>")->getText()), "OK");
}
TEST(Inputs, AButtonWithoutOnclickTakesOnchange)
{
    using button = aControl<guiHtmlControlButton>;
    EXPECT_EQ(utf8(button("<input type=checkbox onchange=event://c>")->getAction()), "event://c");
    EXPECT_EQ(utf8(button("<input type=checkbox onclick=event://k onchange=event://c>")->getAction()), "event://k");
}
TEST(Inputs, ControlsShareNameSizeTabIndexMouseAndDisabled)
{
    aControl<guiHtmlControl> edit("<input type=text name=n width=90 tabindex=4 onmouseover=event://o disabled>");
    EXPECT_EQ(utf8(edit->getName()), "n");
    EXPECT_EQ(edit->m.fixed.x, 90u);
    EXPECT_EQ(edit->getTabIndex(), 4);
    EXPECT_EQ(stringOf(*edit.node, kStringMouseOver), "event://o");
    EXPECT_EQ(edit->isEnabled(), 0);
    EXPECT_EQ(aControl<guiHtmlControl>("<input type=text>")->isEnabled(), 1);
    EXPECT_EQ(aControl<guiHtmlControl>("<input type=text>")->getTabIndex(), 9999);
}
TEST(Inputs, EditFieldsReadTheirShape)
{
    aControl<guiHtmlControlEdit> field("<input type=password size=12 maxlength=3 value=v onchange=event://c>");
    EXPECT_EQ(field->getShape().type, kEditPassword);
    EXPECT_EQ(field->getShape().size, 12);
    EXPECT_EQ(field->getShape().maxLength, 3);
    EXPECT_EQ(field->getShape().rows, 1);
    EXPECT_EQ(utf8(field->getText()), "v");
    EXPECT_EQ(utf8(field->getAction()), "event://c");
    EXPECT_EQ(aControl<guiHtmlControlEdit>("<input type=file size=0>")->getShape().size, 20);
    EXPECT_EQ(aControl<guiHtmlControlEdit>("<input type=file>")->getShape().type, kEditFile);
    EXPECT_EQ(aControl<guiHtmlControlEdit>("<input type=text>")->getShape().size, 20);
}
TEST(Inputs, TextAreasTakeTheirTextFromTheContent)
{
    aControl<guiHtmlControlEdit> area("<textarea cols=30 rows=5 name=t>one  two<b> three</b></textarea>");
    EXPECT_EQ(area->getShape().size, 30);
    EXPECT_EQ(area->getShape().rows, 5);
    EXPECT_EQ(utf8(area->getText()), "one two three");
    EXPECT_EQ(outline(area.page.root.get()), "control1");
}
TEST(Inputs, TextAreaCountsOfZeroAreTheDefaults)
{
    using area = aControl<guiHtmlControlEdit>;
    EXPECT_EQ(area("<textarea></textarea>")->getShape().rows, 2);
    EXPECT_EQ(area("<textarea rows=0></textarea>")->getShape().rows, 2);
    EXPECT_EQ(area("<textarea rows=1></textarea>")->getShape().rows, 1);
    EXPECT_EQ(area("<textarea cols=0></textarea>")->getShape().size, 20);
}
TEST(Inputs, HiddenFieldsHoldAValue)
{
    aControl<guiHtmlControlHidden> hidden("<input type=hidden name=h value=v>");
    EXPECT_EQ(utf8(hidden->getName()), "h");
    EXPECT_EQ(utf8(hidden->getText()), "v");
    EXPECT_EQ(hidden->getPreferredWidth(), 0);
}

TEST(Selects, ReadTheirOptions)
{
    aControl<guiHtmlControlList> list("<select name=s size=4 multiple edit onchange=event://c>"
                                      "<option value=a>Alpha</option><option selected>Beta two</option></select>");
    EXPECT_EQ(list->getVisibleRows(), 4);
    EXPECT_EQ(list->isMultiple(), 1);
    EXPECT_EQ(list->isEditable(), 1);
    EXPECT_EQ(utf8(list->getAction()), "event://c");
    ASSERT_EQ(list->getEntryCount(), 2u);
    EXPECT_EQ(utf8(list->getEntry(0)->value), "a");
    EXPECT_EQ(utf8(list->getEntry(0)->text), "Alpha");
    EXPECT_EQ(list->getEntry(0)->selected, 0);
    EXPECT_EQ(utf8(list->getEntry(1)->value), "Beta two");
    EXPECT_EQ(list->getEntry(1)->selected, 1);
}
TEST(Selects, ShowOneRowUnlessToldOtherwise)
{
    aControl<guiHtmlControlList> list("<select></select>");
    EXPECT_EQ(list->getVisibleRows(), 1);
    EXPECT_EQ(list->isMultiple(), 0);
    EXPECT_EQ(aControl<guiHtmlControlList>("<select size=2></select>")->getVisibleRows(), 2);
}
TEST(Selects, OptionsThatAreNotClosedFollowEachOther)
{
    aControl<guiHtmlControlList> list("<select><option value=1>A<option value=2>B<option value=3></select>");
    ASSERT_EQ(list->getEntryCount(), 3u);
    EXPECT_EQ(utf8(list->getEntry(0)->text), "A");
    EXPECT_EQ(utf8(list->getEntry(1)->text), "B");
    EXPECT_EQ(utf8(list->getEntry(2)->text), "3"); // without a text the value is shown
}

TEST(FlexLists, KindsSetTheirStyle)
{
    using flex = aControl<guiHtmlControlFlex>;
    EXPECT_EQ(flex("<object classid=flexlist></object>")->getStyleBits(), 0u);
    EXPECT_EQ(flex("<object classid=listview></object>")->getStyleBits(), 0u);
    EXPECT_EQ(flex("<object classid=TreeView></object>")->getStyleBits(), 1u);
    EXPECT_EQ(flex("<object classid=checklist></object>")->getStyleBits(), 3u);
}
TEST(FlexLists, ReadTheirAttributes)
{
    aControl<guiHtmlControlFlex> flex("<object classid=flexlist size=8 multiple onselect=event://s></object>");
    EXPECT_EQ(flex->getVisibleRows(), 8);
    EXPECT_EQ(flex->isMultiple(), 1);
    EXPECT_EQ(utf8(flex->getSelectAction()), "event://s");
    EXPECT_EQ(utf8(flex->getChangeAction()), "event://eChange");
    aControl<guiHtmlControlFlex> plain("<object classid=flexlist size=0 onchange=event://c></object>");
    EXPECT_EQ(plain->getVisibleRows(), 5);
    EXPECT_EQ(plain->isMultiple(), 0);
    EXPECT_EQ(utf8(plain->getSelectAction()), "event://eSelect");
    EXPECT_EQ(utf8(plain->getChangeAction()), "event://c");
}
TEST(FlexLists, RowsReadTheirAttributes)
{
    aControl<guiHtmlControlFlex> flex(
        "<object classid=listview>"
        "<option value=k type=RadioButton text=T parent=p selected checked disabled collapsed></option>"
        "<option value=v>Own text</option><option value=w></option><param name=n value=Shown></object>");
    ASSERT_EQ(flex->getItemCount(), 4u);
    guiHtmlControlFlexEntry const& row = *flex->getItem(0);
    EXPECT_EQ(utf8(row.value), "k");
    EXPECT_EQ(utf8(row.text), "T");
    EXPECT_EQ(utf8(row.parent), "p");
    EXPECT_EQ(row.entryType, kFlexRadio);
    EXPECT_EQ(row.selected + row.checked, 2);
    EXPECT_EQ(row.enabled + row.expanded, 0);
    EXPECT_EQ(utf8(flex->getItem(1)->text), "Own text");
    EXPECT_EQ(flex->getItem(1)->enabled + flex->getItem(1)->expanded, 2);
    EXPECT_EQ(utf8(flex->getItem(2)->text), "w");
    EXPECT_EQ(utf8(flex->getItem(3)->value), "n");
    EXPECT_EQ(utf8(flex->getItem(3)->text), "Shown");
}
TEST(FlexLists, ColumnTextsAreJoinedUpToTheFirstGap)
{
    aControl<guiHtmlControlFlex> flex("<object classid=listview>"
                                      "<option value=a text1=One text2=Two text3=Three text5=Five></option>"
                                      "<option value=b text2=Two></option></object>");
    EXPECT_EQ(utf8(flex->getItem(0)->text), "One|2|Two|3|Three");
    EXPECT_EQ(utf8(flex->getItem(1)->text), "|2|Two");
}
TEST(FlexLists, RowTypesDefaultToTheKindOfTheList)
{
    auto typeIn = [](char const* kind, char const* type) {
        aControl<guiHtmlControlFlex> flex(std::string("<object classid=") + kind + "><option value=a " + type +
                                          "></option></object>");
        return flex->getItem(0)->entryType;
    };
    EXPECT_EQ(typeIn("checklist", ""), kFlexCheckBox);
    EXPECT_EQ(typeIn("checklist", "type=normal"), kFlexPlain);
    EXPECT_EQ(typeIn("treeview", ""), kFlexPlain);
    EXPECT_EQ(typeIn("treeview", "type=checkbox"), kFlexCheckBox);
    EXPECT_EQ(typeIn("flexlist", "type=radiobutton"), kFlexRadio);
}

TEST(Menus, ReadItemsAndSubMenus)
{
    aControl<guiHtmlControlMenu> menu(
        "<object classid=Menu>"
        "<menu name=file value=File><param name=open value=Open disabled>"
        "<param name=line value=-><menu value=Recent><param name=r1 value=One></menu></menu>"
        "<param name=bold value=Bold checked/><param name=it value=Italic unchecked/></object>");
    auto const& items = menu->getItems();
    ASSERT_EQ(items.size(), 3u);
    EXPECT_EQ(utf8(items[0]->text), "File");
    ASSERT_EQ(items[0]->children.size(), 3u);
    EXPECT_EQ(items[0]->children[0]->enabled, 0);
    EXPECT_EQ(utf8(items[0]->children[1]->text), "-");
    EXPECT_EQ(utf8(items[0]->children[2]->children.at(0)->name), "r1");
    EXPECT_EQ(items[1]->checkable + items[1]->checked, 2);
    EXPECT_EQ(items[2]->checkable, 1);
    EXPECT_EQ(items[2]->checked, 0);
    EXPECT_EQ(items[2]->enabled, 1);
}

TEST(CustomObjects, ReadClassAndParams)
{
    parsedPage page = parsePage("<object classid=Gauge name=g width=30><param name=a value=1><param name=b></object>x");
    auto* custom = findNode<guiHtmlCustom>(page, 7);
    EXPECT_EQ(utf8(custom->getCompName()), "Gauge");
    EXPECT_EQ(utf8(custom->getName()), "g");
    EXPECT_EQ(custom->m.fixed.x, 30u);
    ASSERT_EQ(custom->getParams().size(), 2u);
    EXPECT_EQ(utf8(custom->getParams()[0].second), "1");
    EXPECT_EQ(utf8(custom->getParams()[1].first), "b");
    EXPECT_EQ(outline(page.root.get()), "custom 'x'");
}

TEST(Images, ReadTheirAttributes)
{
    parsedPage page =
        parsePage("<img src=a.png name=i onclick=event://k usemap=#m border=2 align=right width=9 paused>");
    auto* image = findNode<guiHtmlImage>(page, 3);
    EXPECT_EQ(utf8(image->getSource()), "a.png");
    EXPECT_EQ(utf8(image->getMapName()), "m");
    EXPECT_EQ(utf8(image->getMappedLink(0, 0)), "event://k");
    EXPECT_EQ(image->m.border, 2);
    EXPECT_EQ(image->m.alignX, kAlignRight);
    EXPECT_EQ(image->m.fixed.x, 9u);
    EXPECT_TRUE(image->getPlayback().paused);
    EXPECT_FALSE(image->getPlayback().looped);
    parsedPage other = parsePage("<input type=image src=b.png looped>");
    EXPECT_EQ(utf8(findNode<guiHtmlImage>(other, 3)->getSource()), "b.png");
    EXPECT_TRUE(findNode<guiHtmlImage>(other, 3)->getPlayback().looped);
}
TEST(ImageMaps, BelongToTheImagesThatNameThemAlsoWhenTheyComeLater)
{
    parsedPage page = parsePage("<img src=a usemap=#M><map name=m>"
                                "<area shape=rect coords=0,0,10,10 href=r><area shape=Circle coords=20,20,5 href=c>"
                                "<area shape=poly coords=30,0,40,0,30,10 href=p></map><img src=b usemap=other>");
    auto* image = findNode<guiHtmlImage>(page, 3);
    ASSERT_NE(image->getImageMap(), nullptr);
    EXPECT_EQ(utf8(image->getMappedLink(5, 5)), "r");
    EXPECT_EQ(utf8(image->getMappedLink(20, 20)), "c");
    EXPECT_EQ(utf8(image->getMappedLink(32, 2)), "p");
    EXPECT_EQ(utf8(image->getMappedLink(39, 9)), "");
    EXPECT_EQ(static_cast<guiHtmlImage*>(page.root->getLastChild())->getImageMap(), nullptr);
}
TEST(ImageMaps, TheFirstOfOverlappingRegionsWins)
{
    guiImageMap map("m");
    map.addRegion(guiImageMapRegion("first", 0, 0, 10, 10));
    map.addRegion(guiImageMapRegion("second", 5, 5, 10, 10));
    EXPECT_EQ(utf8(map.hitTest(7, 7)), "first");
    EXPECT_EQ(utf8(map.Clone()->hitTest(12, 12)), "second");
    EXPECT_EQ(utf8(map.hitTest(30, 30)), "");
}

TEST(Framesets, CountTheirColumnsAndRows)
{
    parsedPage page = parsePage("<frameset cols=100,20%,* rows=*,30 noresize></frameset>");
    auto* frameset = findNode<guiHtmlFrameset>(page, 6);
    EXPECT_EQ(frameset->getColumnCount(), 3);
    EXPECT_EQ(frameset->getRowCount(), 2);
    EXPECT_FALSE(frameset->isResizable());
    EXPECT_EQ(frameset->m.expandChildren, 1);
    guiHtmlFrameset plain;
    EXPECT_EQ(plain.getColumnCount(), 1);
    EXPECT_EQ(plain.getRowCount(), 1);
    EXPECT_TRUE(plain.isResizable());
}
TEST(Framesets, FillRowAfterRow)
{
    EXPECT_EQ(outlineOf("<frameset cols=*,* rows=*,*><frame/><frame/><frame/><frame/></frameset>"),
              "frameset{html html BR html html}");
    EXPECT_EQ(outlineOf("<frameset rows=*,*><frame><frame></frameset>"), "frameset{html BR html}");
    EXPECT_EQ(outlineOf("<frameset cols=*,*><frame><frame></frameset>"), "frameset{html html}");
}
TEST(Framesets, FramesTakeTheSizesOfTheirColumnAndRow)
{
    parsedPage page = parsePage("<frameset cols=100,20% rows=*,30><frame><frame><frame width=7></frameset>");
    guiHtml* frameset = page.root->getLastChild();
    guiHtml* first = frameset->getChild(0);
    EXPECT_EQ(first->m.fixed.unitX, kUnitPixels);
    EXPECT_EQ(first->m.fixed.x, 100u);
    EXPECT_EQ(first->m.fixed.cxMin, 100);
    EXPECT_EQ(first->m.fixed.unitY, kUnitUnbound);
    EXPECT_EQ(frameset->getChild(1)->m.fixed.unitX, kUnitPercent);
    EXPECT_EQ(frameset->getChild(1)->m.fixed.x, 20u);
    guiHtml* third = frameset->getChild(3);
    EXPECT_EQ(third->m.fixed.x, 7u);
    EXPECT_EQ(third->m.fixed.y, 30u);
}
TEST(Framesets, BreaksNeverStandInThem)
{
    EXPECT_EQ(outlineOf("<frameset><frame><p></p><div></div></frameset>"), "frameset{html}");
}
TEST(Frames, AreAlignedToTheTopWhateverTheySay)
{
    parsedPage page = parsePage("<frame name=f src=a.html valign=bottom border=1 scrolling>");
    guiHtml* frame = page.root->getLastChild();
    EXPECT_EQ(frame->m.alignY, kAlignTop);
    EXPECT_EQ(utf8(frame->getName()), "f");
    EXPECT_EQ(frame->m.border, 1);
    EXPECT_EQ(frame->getSizePolicy(), kPolicyScroll);
}

TEST(Colours, TheSixteenNamesHaveTheirValues)
{
    std::pair<char const*, char const*> const names[] = {
        {"aqua", "#00FFFF"},   {"black", "#000000"}, {"blue", "#0000FF"},   {"fuchsia", "#FF00FF"},
        {"gray", "#808080"},   {"green", "#008000"}, {"lime", "#00FF00"},   {"maroon", "#800000"},
        {"navy", "#000080"},   {"olive", "#808000"}, {"purple", "#800080"}, {"red", "#FF0000"},
        {"silver", "#C0C0C0"}, {"teal", "#008080"},  {"white", "#FFFFFF"},  {"yellow", "#FFFF00"},
    };
    for (auto const& [name, hex] : names)
        EXPECT_EQ(utf8(guiHtmlParser::convColorToHex(name)), hex);
    EXPECT_EQ(utf8(guiHtmlParser::convColorToHex("ReD")), "#FF0000");
    EXPECT_EQ(utf8(guiHtmlParser::convColorToHex("reddish")), "reddish");
}
TEST(Colours, HexPairsAreRedGreenBlueAndAnythingElseIsBlack)
{
    EXPECT_EQ(guiHtmlParser::convColorToStruct("#0a1B2c"), (guiColor{10, 27, 44}));
    EXPECT_EQ(guiHtmlParser::convColorToStruct("yellow"), (guiColor{255, 255, 0}));
    for (char const* bad : {"", "#12345", "#1234567", "#12345g", "123456", "reddish"})
        EXPECT_EQ(guiHtmlParser::convColorToStruct(bad), guiColor::Black) << bad;
}
TEST(FontSizes, ComeFromATableAndItsEnds)
{
    int const points[] = {8, 10, 12, 14, 18, 24, 36};
    for (int size = 1; size <= 7; ++size)
        EXPECT_EQ(guiHtmlParser::toPointSize(size), points[size - 1]);
    EXPECT_EQ(guiHtmlParser::toPointSize(0), 8);
    EXPECT_EQ(guiHtmlParser::toPointSize(-9), 8);
    EXPECT_EQ(guiHtmlParser::toPointSize(99), 36);
}
