// tests/controls/elements_test.cpp: what the attributes of forms, controls, images and custom elements become.
#include "tests/support/parsedpage.h"

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

std::string stringOf(guiHtml& node, guiNodeString which) { return utf8(node.getString(which)); }

} // namespace

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

TEST(Inputs, TypesChooseTheClassWithoutRegardToCase)
{
    auto kind = [](char const* type) { return outlineOf(std::string("<input type=") + type + ">"); };
    for (char const* type : {"button", "submit", "checkbox", "radio", "reset", "BUTTON"})
        EXPECT_EQ(kind(type), "control0") << type;
    for (char const* type : {"text", "file", "password"})
        EXPECT_EQ(kind(type), "control1") << type;
    EXPECT_EQ(kind("hidden"), "control3");
    EXPECT_EQ(kind("image"), "image");
    EXPECT_EQ(outline(parsePage("<input type=hour>").root.get()), "");
    EXPECT_EQ(outline(parsePage("<input>x").root.get()), "'x'");
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
    EXPECT_EQ(utf8(area->getText()), "one  two<b> three</b>");
    EXPECT_EQ(outline(area.page.root.get()), "control1");
}
TEST(Inputs, TextAreasKeepTheLinesOfTheirText)
{
    auto textOf = [](char const* markup) { return std::string(utf8(aControl<guiHtmlControlEdit>(markup)->getText())); };
    EXPECT_EQ(textOf("<textarea>one\n  two\n\nthree\n</textarea>"), "one\n  two\n\nthree\n");
    EXPECT_EQ(textOf("<textarea>\none</textarea>"), "one");
    EXPECT_EQ(textOf("<textarea>\r\n\r\none\rtwo</textarea>"), "\none\ntwo");
    EXPECT_EQ(textOf("<textarea> \"a\" &lt;b&gt; &amp;amp; </textarea>"), " \"a\" <b> &amp; ");
    EXPECT_EQ(textOf("<textarea>a < b</b> <!-- c --></TextArea >"), "a < b</b> <!-- c -->");
    EXPECT_EQ(textOf("<textarea rows=1>one\ntwo</textarea>"), "one two");
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

TEST(ImageMaps, AnEmptyNameIsNotTheNameOne)
{
    parsedPage page = parsePage("<img src=a usemap=#1><map name=\"\"><area coords=0,0,10,10 href=r></map>");
    EXPECT_EQ(findNode<guiHtmlImage>(page, 3)->getImageMap(), nullptr);
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
