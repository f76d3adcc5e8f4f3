// tests/page/tree_test.cpp: nodes by themselves: defaults, children, copies, look-up, geometry, focus order, registry.
#include "tests/support/parsedpage.h"

#include "foundation/hashlist.h"
#include "page/guihtmltext.h"
#include "tests/support/fakescript.h"
#include "tests/support/testroot.h"

#include <QCoreApplication>
#include <QLineEdit>
#include <QPixmap>
#include <QScrollBar>
#include <thread>

namespace {

/// A node with a widget of its own, as controls have.
class widgetNode : public guiHtml
{
public:
    explicit widgetNode(QWidget* parent, int tabIndex = kNoTabIndex) : m_widget(new QLineEdit(parent))
    {
        setTabIndex(tabIndex);
    }
    using guiHtml::operator=;
    QWidget* getChildWidget() override { return m_widget; }
    QLineEdit* m_widget; // Qt owns it
};

/// Counts how often it is asked to give up its widget, and when it is destroyed.
class witness : public guiHtml
{
public:
    explicit witness(std::string* events) : m_events(events) {}
    ~witness() override { *m_events += "~" + utf8(getName()) + " "; }
    using guiHtml::operator=;
    void destroyChildWidget() override
    {
        *m_events += utf8(getName()) + " ";
        guiHtml::destroyChildWidget();
    }

private:
    std::string* m_events;
};

guiHtml* named(guiHtml* node, char const* name)
{
    node->setString(kStringName, name);
    return node;
}

struct registry : hashlist<guiHtml>
{
    registry() : hashlist(1027) { guiHtml::setRegistry(this); }
    ~registry() { guiHtml::setRegistry(nullptr); }
};

} // namespace

TEST(Colours, ConstantsHaveTheirValues)
{
    EXPECT_EQ(guiColor::White, (guiColor{255, 255, 255}));
    EXPECT_EQ(guiColor::LightGray, (guiColor{192, 192, 192}));
    EXPECT_EQ(guiColor::DarkGray, (guiColor{128, 128, 128}));
    EXPECT_EQ(guiColor::Black, (guiColor{0, 0, 0}));
    EXPECT_EQ(guiColor::BrightRed, (guiColor{255, 0, 0}));
    EXPECT_EQ(guiColor::BrightGreen, (guiColor{0, 255, 0}));
    EXPECT_EQ(guiColor::BrightBlue, (guiColor{0, 0, 255}));
}
TEST(Rectangles, ListLeftWidthTopHeight)
{
    guiRect rect{1, 2, 3, 4};
    EXPECT_EQ(rect.left, 1);
    EXPECT_EQ(rect.width, 2);
    EXPECT_EQ(rect.top, 3);
    EXPECT_EQ(rect.height, 4);
    EXPECT_EQ(rect.right(), 3);
    EXPECT_EQ(rect.bottom(), 7);
}

TEST(Node, StartsWithTheDefaults)
{
    guiHtml node;
    EXPECT_EQ(node.m.alignX, 0);
    EXPECT_EQ(node.m.alignY, 1);
    EXPECT_EQ(node.m.fixed.cxMin + node.m.fixed.cyMin + node.m.dynamic.cxMin + node.m.dynamic.cyMin, 0);
    EXPECT_EQ(node.m.fixed.unitX + node.m.fixed.unitY + node.m.dynamic.unitX + node.m.dynamic.unitY, 0);
    EXPECT_EQ(node.m.fixed.x + node.m.fixed.y + node.m.dynamic.x + node.m.dynamic.y, 0u);
    EXPECT_EQ(node.m.expandChildren + node.m.expandWidth + node.m.expandHeight, 0);
    EXPECT_EQ(node.m.activeCx + node.m.activeCy, 0u);
    EXPECT_EQ(node.getParent(), nullptr);
    EXPECT_EQ(node.getChildCount(), 0u);
    EXPECT_EQ(node.getRect(), guiRect());
    EXPECT_EQ(node.m.space + node.m.divide + node.m.border, 0);
    EXPECT_EQ(node.getBorderLight(), guiColor::White);
    EXPECT_EQ(node.getBorderColor(), guiColor::LightGray);
    EXPECT_EQ(node.getBorderDark(), guiColor::DarkGray);
    EXPECT_EQ(guiColor(node.m.textColor), guiColor::Black);
    EXPECT_EQ(guiColor(node.m.linkColor), guiColor::BrightBlue);
    EXPECT_EQ(guiColor(node.m.activeLinkColor), guiColor::BrightRed);
    EXPECT_EQ(node.getFontSize(), 0);
    EXPECT_EQ(node.getBackgroundColor(), guiColor::LightGray);
    EXPECT_FALSE(node.hasBackgroundColor());
    EXPECT_FALSE(node.isBackgroundLoaded());
    for (int which = kStringFont; which <= kStringBackground; ++which)
        EXPECT_EQ(node.getString(static_cast<guiNodeString>(which)).getLength(), 0u);
    EXPECT_EQ(node.m.useSystemFont, 0);
    EXPECT_EQ(node.m.tabOrderDirty, 1);
    EXPECT_FALSE(node.getScroll().barX);
    EXPECT_FALSE(node.getScroll().barY);
    EXPECT_EQ(node.getScroll().posX + node.getScroll().posY, 0u);
    EXPECT_EQ(node.getCaptionWidth() + node.getCaptionHeight(), 0u);
    EXPECT_EQ(node.getSizePolicy(), 1);
    EXPECT_EQ(node.isEnabled(), 1);
    EXPECT_EQ(node.m.visible, 1);
    EXPECT_EQ(node.m.current + node.m.hover, 0);
    EXPECT_EQ(node.getCustomObject(), nullptr);
    EXPECT_EQ(node.getTabIndex(), 9999);
    EXPECT_EQ(node.getChildWidget(), nullptr);
}
TEST(Node, StaysSmall)
{
    EXPECT_LE(sizeof(guiHtml), 200u);
    guiHtml node;
    node.setString(kStringName, "");
    node.setBorderColors(guiColor::White, guiColor::LightGray, guiColor::DarkGray);
    node.setCaptionSize(0, 0);
    node.setTabIndex(kNoTabIndex);
    EXPECT_EQ(node.m.rare, nullptr);
}
TEST(Node, ColoursComeFromTheParentAtConstructionAndNotLater)
{
    guiHtml parent;
    parent.m.textColor = guiColor{1, 2, 3};
    parent.m.linkColor = guiColor{4, 5, 6};
    parent.m.activeLinkColor = guiColor{7, 8, 9};
    guiHtml child(&parent);
    parent.m.textColor = guiColor::White;
    EXPECT_EQ(guiColor(child.m.textColor), (guiColor{1, 2, 3}));
    EXPECT_EQ(guiColor(child.m.linkColor), (guiColor{4, 5, 6}));
    EXPECT_EQ(guiColor(child.m.activeLinkColor), (guiColor{7, 8, 9}));
    EXPECT_EQ(child.getParent(), &parent);
    EXPECT_EQ(parent.getChildCount(), 0u);
}
TEST(Node, WithoutAnObjectOfItsOwnIsLoggedAndLivesOn)
{
    FakeObject page;
    TestRoot window(sstring(), &page);
    TestRoot pageless;
    testing::internal::CaptureStderr();
    guiHtml silent(&pageless);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    testing::internal::CaptureStderr();
    guiHtml node(&window);
    char wanted[64];
    std::snprintf(wanted, sizeof wanted, "BuildCustomObject failed for 0x%08lX!\n",
                  reinterpret_cast<unsigned long>(&node));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), wanted);
    EXPECT_EQ(node.getCustomObject(), nullptr);
    EXPECT_EQ(node.getBaseHtml(), &window);
}
TEST(Node, KeepsItsTextsApart)
{
    guiHtml node;
    node.setString(kStringName, "n");
    node.setString(kStringCaption, "c");
    node.setString(kStringName, "longer than the space inside a small string");
    EXPECT_EQ(utf8(node.getString(kStringName)), "longer than the space inside a small string");
    EXPECT_EQ(utf8(node.getString(kStringCaption)), "c");
    node.setString(kStringName, "");
    EXPECT_FALSE(node.hasString(kStringName));
    EXPECT_TRUE(node.isString(kStringCaption, "C", true));
    EXPECT_FALSE(node.isString(kStringCaption, "C"));
    EXPECT_TRUE(node.isString(kStringName, ""));
}
TEST(Node, EnablesAndDisablesEverythingBelowIt)
{
    guiHtml node;
    guiHtml* grandchild = node.append(new guiHtml)->append(new guiHtml);
    node.setEnabled(0);
    EXPECT_EQ(grandchild->isEnabled(), 0);
    node.setEnabled(1);
    EXPECT_EQ(grandchild->isEnabled(), 1);
    node.setUseSystemFont(1);
    EXPECT_EQ(grandchild->m.useSystemFont, 1);
}

TEST(Children, AreNodesAndMarkersInOrder)
{
    guiHtml node;
    guiHtml* first = node.append(new guiHtml);
    node.appendMarker(kMarkerParagraph);
    node.appendMarker(kMarkerNone);
    ASSERT_EQ(node.getChildCount(), 3u);
    EXPECT_EQ(node.getChild(0), first);
    EXPECT_EQ(first->getParent(), &node);
    EXPECT_FALSE(guiChildList::isNode(node.getChild(1)));
    EXPECT_FALSE(guiChildList::isNode(guiChildList::fromMarker(kLastMarker)));
    EXPECT_TRUE(guiChildList::isNode(first));
}
TEST(Children, ThereAreNoneBehindTheLastOne)
{
    guiHtml node;
    EXPECT_EQ(node.getChild(0), nullptr);
    node.append(new guiHtml);
    EXPECT_NE(node.getChild(0), nullptr);
    EXPECT_EQ(node.getChild(1), nullptr);
    EXPECT_EQ(node.getChild(0xFFFFFFFF), nullptr);
    EXPECT_EQ(node.getChildHeight(1, 100, 100), 0);
}
TEST(Children, MarkersAreNeverTheLastChild)
{
    guiHtml node;
    EXPECT_EQ(node.getLastChild(), nullptr);
    node.appendMarker(kMarkerAlignLeft);
    EXPECT_EQ(node.getLastChild(), nullptr);
    guiHtml* child = node.append(new guiHtml);
    for (guiMarker marker : {kMarkerAlignLeft, kMarkerAlignCenter, kMarkerAlignRight})
        node.appendMarker(marker);
    EXPECT_EQ(node.getLastChild(), child);
}
TEST(Children, WalkSkipsMarkers)
{
    guiHtml node;
    node.appendMarker(kMarkerAlignLeft);
    guiHtml* a = node.append(new guiHtml);
    node.appendMarker(kMarkerLineBreak);
    guiHtml* b = node.append(new guiHtml);
    node.appendMarker(kMarkerParagraph);
    std::vector<guiHtml*> seen;
    for (guiHtml* child : guiNodesOf(&node))
        seen.push_back(child);
    EXPECT_EQ(seen, (std::vector<guiHtml*>{a, b}));
}
TEST(Children, GoWithTheirParentWidgetsFirst)
{
    std::string events;
    {
        witness root(&events);
        named(&root, "r");
        guiHtml* a = root.append(named(new witness(&events), "a"));
        a->append(named(new witness(&events), "b"));
        root.append(named(new witness(&events), "c"));
        events.clear();
        root.destroyChildren();
        EXPECT_EQ(events, "a b c ~c ~b ~a ");
        EXPECT_EQ(root.getChildCount(), 0u);
        events.clear();
    }
    EXPECT_EQ(events, "~r ");
}
TEST(Children, ThousandsOfLevelsAreDestroyed)
{
    registry nodes;
    auto root = std::make_unique<guiHtml>();
    guiHtml* node = root.get();
    for (int i = 0; i < 3000; ++i)
        node = node->append(new guiHtml);
    EXPECT_EQ(nodes.size(), 3001u);
    root.reset();
    EXPECT_EQ(nodes.size(), 0u);
}

TEST(Copies, ShareTheChildrenUntilTheLastOneGoes)
{
    registry nodes;
    auto source = std::make_unique<guiHtml>();
    guiHtml* child = source->append(new guiHtml);
    source->appendMarker(kMarkerParagraph);
    source->m.border = 5;
    named(source.get(), "s");
    auto copy = std::make_unique<guiHtml>(*source);
    EXPECT_EQ(copy->getChildCount(), 2u);
    EXPECT_EQ(copy->getChild(0), child);
    EXPECT_EQ(copy->m.border, 5);
    EXPECT_EQ(utf8(copy->getName()), "s");
    source.reset();
    EXPECT_TRUE(nodes.contains(child));
    EXPECT_EQ(child->getParent(), nullptr);
    copy.reset();
    EXPECT_EQ(nodes.size(), 0u);
}
TEST(Copies, TakeEveryFieldTheParentIncluded)
{
    guiHtml parent;
    guiHtml source(&parent);
    source.m.alignX = kAlignRight;
    source.m.alignY = kAlignTop;
    source.m.fixed = {1, 2, kUnitPixels, kUnitPercent, 3, 4};
    source.m.dynamic = {5, 6, kUnitPercent, kUnitPixels, 7, 8};
    source.m.expandChildren = source.m.expandWidth = source.m.expandHeight = 1;
    source.m.activeCx = 9;
    source.m.activeCy = 10;
    source.m.rect = {11, 12, 13, 14};
    source.m.space = 15;
    source.m.divide = 16;
    source.m.border = 17;
    source.m.textColor = guiColor::BrightGreen;
    source.m.linkColor = guiColor::BrightRed;
    source.m.activeLinkColor = guiColor::White;
    source.setBorderColors(guiColor::Black, guiColor::BrightBlue, guiColor::White);
    source.setBackgroundColor(guiColor::DarkGray);
    source.setFontSize(18);
    source.setTabIndex(19);
    source.setCaptionSize(20, 21);
    source.m.useSystemFont = 1;
    source.m.tabOrderDirty = 0;
    source.m.scrollMode = kPolicyFixed;
    source.m.enabled = source.m.visible = 0;
    source.m.current = source.m.hover = 1;
    for (int i = kStringFont; i <= kStringBackground; ++i)
        source.setString(static_cast<guiNodeString>(i), sformat("text %d", i));

    guiHtml assigned;
    assigned = source;
    guiHtml constructed(source);
    for (guiHtml* copy : {&assigned, &constructed}) {
        EXPECT_EQ(utf8(copy->toString(0)), utf8(source.toString(0)));
        EXPECT_EQ(copy->getParent(), &parent);
        EXPECT_EQ(guiColor(copy->m.textColor), guiColor::BrightGreen);
        EXPECT_EQ(guiColor(copy->m.linkColor), guiColor::BrightRed);
        EXPECT_EQ(guiColor(copy->m.activeLinkColor), guiColor::White);
        EXPECT_EQ(copy->getBorderLight(), guiColor::Black);
        EXPECT_EQ(copy->getBorderColor(), guiColor::BrightBlue);
        EXPECT_EQ(copy->getBorderDark(), guiColor::White);
        EXPECT_EQ(copy->getBackgroundColor(), guiColor::DarkGray);
        EXPECT_TRUE(copy->hasBackgroundColor());
        EXPECT_EQ(copy->getFontSize(), 18);
        EXPECT_EQ(copy->getTabIndex(), 19);
        EXPECT_EQ(copy->getCaptionWidth(), 20u);
        EXPECT_EQ(copy->getCaptionHeight(), 21u);
        EXPECT_EQ(copy->m.useSystemFont, 1);
        EXPECT_EQ(copy->m.tabOrderDirty, 0);
        EXPECT_EQ(copy->getSizePolicy(), kPolicyFixed);
        EXPECT_EQ(copy->isEnabled(), 0);
        EXPECT_EQ(copy->m.visible, 0);
        EXPECT_EQ(copy->m.current, 1);
        EXPECT_EQ(copy->m.hover, 1);
        for (int i = kStringFont; i <= kStringBackground; ++i)
            EXPECT_EQ(utf8(copy->getString(static_cast<guiNodeString>(i))), "text " + std::to_string(i));
    }
}
TEST(Copies, AssignmentDropsTheOldChildren)
{
    registry nodes;
    guiHtml a;
    guiHtml b;
    a.append(new guiHtml);
    guiHtml* old = b.append(new guiHtml);
    b = a;
    EXPECT_FALSE(nodes.contains(old));
    EXPECT_EQ(b.getChild(0), a.getChild(0));
    guiHtml& same = b;
    b = same;
    EXPECT_EQ(b.getChildCount(), 1u);
}
TEST(Copies, AppendingTakesSharedChildrenOver)
{
    registry nodes;
    auto a = std::make_unique<guiHtml>();
    guiHtml* child = a->append(new guiHtml);
    guiHtml b(*a);
    b.append(new guiHtml);
    EXPECT_EQ(b.getChildCount(), 2u);
    EXPECT_EQ(a->getChildCount(), 0u);
    a.reset();
    EXPECT_TRUE(nodes.contains(child));
}

TEST(LookUp, NamesAreComparedWithoutCaseDepthFirst)
{
    guiHtml root;
    guiHtml* first = root.append(new guiHtml);
    guiHtml* deep = first->append(named(new guiHtml, "Main"));
    root.appendMarker(kMarkerAlignCenter);
    guiHtml* later = root.append(named(new guiHtml, "main"));
    later->append(named(new guiHtml, "own"));
    EXPECT_EQ(root.getNamed("MAIN"), deep);
    EXPECT_EQ(later->getNamed("Main"), later);
    EXPECT_EQ(root.getNamed("Mai"), nullptr);
    EXPECT_EQ(root.getNamed("own")->getParent(), later);
}
TEST(LookUp, OfTwoNodesWithOneNameTheOuterAndThenTheEarlierIsFound)
{
    guiHtml root;
    guiHtml* first = root.append(new guiHtml);
    guiHtml* deep = first->append(named(new guiHtml, "a"));
    guiHtml* second = root.append(named(new guiHtml, "a"));
    deep->append(named(new guiHtml, "A"));
    EXPECT_EQ(root.getNamed("a"), deep);
    EXPECT_EQ(second->getNamed("a"), second);
    named(first, "a");
    EXPECT_EQ(root.getNamed("a"), first);
    named(&root, "A");
    EXPECT_EQ(root.getNamed("a"), &root);
}
TEST(LookUp, BookmarksHaveTheirOwnNames)
{
    guiHtml root;
    guiHtml* child = root.append(named(new guiHtml, "n"));
    child->setString(kStringBookmark, "Top");
    EXPECT_EQ(root.getBookmarked("top"), child);
    EXPECT_EQ(root.getBookmarked("n"), nullptr);
}
TEST(LookUp, TheRootIsFoundFromEveryNode)
{
    TestRoot base;
    guiHtml* node = base.append(new guiHtml)->append(new guiHtml);
    EXPECT_EQ(node->getBaseHtml(), &base);
    EXPECT_EQ(base.getBaseHtml(), &base);
    EXPECT_EQ(node->getTopLevelWidget(), nullptr);
    guiHtml loose;
    EXPECT_EQ(loose.append(new guiHtml)->getBaseHtml(), nullptr);
}

TEST(Geometry, TheClientRectangleIsLessTheBorder)
{
    guiHtml node;
    node.m.rect = {10, 100, 20, 50};
    node.m.border = 3;
    guiRect client;
    node.getClientRect(&client);
    EXPECT_EQ(client, (guiRect{13, 94, 23, 44}));
    node.m.space = 7; // is inside it
    node.getClientRect(&client);
    EXPECT_EQ(client, (guiRect{13, 94, 23, 44}));
    node.m.border = 60;
    node.getClientRect(&client);
    EXPECT_EQ(client.width, 0);
    EXPECT_EQ(client.height, 0);
}
TEST(Geometry, WidgetRectanglesAddUpAndScroll)
{
    guiHtml root;
    root.m.rect = {0, 200, 0, 200};
    guiHtml* frame = root.append(new guiHtml);
    frame->m.rect = {20, 100, 30, 60};
    frame->m.border = 1;
    frame->ensureScroll().posX = 4;
    frame->ensureScroll().posY = 5;
    guiHtml* node = frame->append(new guiHtml);
    node->m.rect = {2, 40, 3, 90};
    guiRect rect;
    node->getRectInWidget(&rect);
    EXPECT_EQ(rect, (guiRect{18, 40, 28, 90}));
    node->getClipRect(&rect);
    EXPECT_EQ(rect, (guiRect{21, 37, 31, 58}));
}
TEST(Geometry, AClipRectangleThatNothingIsLeftOfIsEmpty)
{
    guiHtml root;
    root.m.rect = {0, 50, 0, 50};
    guiHtml* node = root.append(new guiHtml);
    node->m.rect = {80, 10, 10, 10};
    guiRect rect;
    node->getClipRect(&rect);
    EXPECT_EQ(rect.width, 0);
    EXPECT_TRUE(rect.isEmpty());
}

TEST(TabOrder, FollowsTheIndexAndThenTheDocument)
{
    QWidget window;
    guiHtml root;
    guiHtml* cell = root.append(new guiHtml);
    auto* c = static_cast<widgetNode*>(cell->append(new widgetNode(&window)));
    root.appendMarker(kMarkerParagraph);
    auto* b = static_cast<widgetNode*>(root.append(new widgetNode(&window, 2)));
    auto* d = static_cast<widgetNode*>(root.append(new widgetNode(&window)));
    auto* a = static_cast<widgetNode*>(root.append(new widgetNode(&window, 1)));
    auto* b2 = static_cast<widgetNode*>(cell->append(new widgetNode(&window, 2)));
    root.updateTabOrder();
    EXPECT_EQ(root.m.tabOrderDirty, 0);
    std::vector<QWidget*> chain;
    for (QWidget* stop = a->m_widget; chain.size() < 5; stop = stop->nextInFocusChain())
        if (stop != &window)
            chain.push_back(stop);
    EXPECT_EQ(chain, (std::vector<QWidget*>{a->m_widget, b2->m_widget, b->m_widget, c->m_widget, d->m_widget}));
}
TEST(TabOrder, FocusOnTheWindowItselfGoesToTheFirstWidget)
{
    struct pageNode : guiHtml
    {
        using guiHtml::operator=;
        QWidget* getTopLevelWidget() override { return &window; }
        QWidget window;
    } root;
    root.window.setFocusPolicy(Qt::StrongFocus);
    auto* last = static_cast<widgetNode*>(root.append(new widgetNode(&root.window)));
    auto* first = static_cast<widgetNode*>(root.append(new widgetNode(&root.window, 7)));
    root.window.show();
    root.window.activateWindow();
    QCoreApplication::processEvents();

    last->m_widget->setFocus();
    root.updateTabOrder();
    EXPECT_TRUE(last->m_widget->hasFocus()) << "a focus that some control has stays";
    root.window.setFocus();
    root.updateTabOrder();
    EXPECT_TRUE(root.window.hasFocus()) << "the order is not out of date";
    root.m.tabOrderDirty = 1;
    root.updateTabOrder();
    EXPECT_TRUE(first->m_widget->hasFocus());
}
TEST(TabOrder, IsLeftAloneUnlessItIsOutOfDate)
{
    QWidget window;
    guiHtml root;
    auto* a = static_cast<widgetNode*>(root.append(new widgetNode(&window, 2)));
    auto* b = static_cast<widgetNode*>(root.append(new widgetNode(&window, 1)));
    root.m.tabOrderDirty = 0;
    root.updateTabOrder();
    EXPECT_EQ(a->m_widget->nextInFocusChain(), b->m_widget);
    EXPECT_EQ(root.findWidget(b->m_widget), b);
    EXPECT_EQ(root.findWidget(&window), nullptr);
    EXPECT_EQ(root.findWidget(nullptr), nullptr);
}

TEST(Keys, GoToTheNodeThatTheWindowNames)
{
    TestRoot base;
    base.escapeControl = "cancel";
    guiHtml* cancel = base.append(named(new guiHtml, "cancel"));
    guiHtml* other = base.append(named(new guiHtml, "Cancel"));
    guiHtml* unnamed = base.append(new guiHtml);
    EXPECT_EQ(cancel->onEscape(), 1);
    EXPECT_EQ(other->onEscape(), 0);
    EXPECT_EQ(unnamed->onEscape(), 0);
    base.escapeControl = "";
    EXPECT_EQ(unnamed->onEscape(), 0);
}

TEST(Registry, KnowsEveryLiveNode)
{
    registry nodes;
    EXPECT_EQ(nodes.bucketCount(), 1027u);
    guiHtml* node = new guiHtml;
    guiHtml copy(*node);
    EXPECT_TRUE(nodes.contains(node));
    EXPECT_TRUE(nodes.contains(&copy));
    EXPECT_EQ(nodes.size(), 2u);
    delete node;
    EXPECT_FALSE(nodes.contains(node));
    EXPECT_FALSE(nodes.contains(nullptr));
}
TEST(Registry, MayBeAskedFromAnyThread)
{
    registry nodes;
    std::vector<std::unique_ptr<guiHtml>> kept;
    guiHtml first;
    bool always = true;
    std::thread reader([&] {
        for (int i = 0; i < 2000; ++i)
            always = always && nodes.contains(&first);
    });
    for (int i = 0; i < 2000; ++i)
        kept.push_back(std::make_unique<guiHtml>());
    kept.clear();
    reader.join();
    EXPECT_TRUE(always);
    EXPECT_EQ(nodes.size(), 1u);
}
TEST(Registry, RemovingWhatIsNotThereDoesNothing)
{
    registry nodes;
    guiHtml node;
    guiHtml::setRegistry(nullptr);
    guiHtml stranger;
    nodes.remove(&stranger);
    EXPECT_EQ(nodes.size(), 1u);
    guiHtml::setRegistry(&nodes);
}
TEST(Registry, WithoutOneNodesLiveAllTheSame)
{
    guiHtml::setRegistry(nullptr);
    guiHtml node;
    EXPECT_EQ(node.getType(), 0);
}
