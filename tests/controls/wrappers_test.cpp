// tests/controls/wrappers_test.cpp: each native widget forwards one signal to one operation of the node that owns it,
// and asks it about Escape and Enter first.
#include "controls/guieventscope.h"
#include "controls/guihtmlcontrolbutton.h"
#include "controls/guihtmlcontroledit.h"
#include "controls/guihtmlcontrolflex.h"
#include "controls/guihtmlcontrollist.h"
#include "controls/guihtmlcontrolmenu.h"
#include "controls/guiwidgetcheckbox.h"
#include "controls/guiwidgetcombobox.h"
#include "controls/guiwidgetlineedit.h"
#include "controls/guiwidgetlistbox.h"
#include "controls/guiwidgetlistitem.h"
#include "controls/guiwidgetlistview.h"
#include "controls/guiwidgetmenubar.h"
#include "controls/guiwidgetmultiedit.h"
#include "controls/guiwidgetpopupmenu.h"
#include "controls/guiwidgetpushbutton.h"
#include "controls/guiwidgetradiobutton.h"
#include "controls/guiwidgetradiorow.h"
#include "controls/guiwidgetscrollbar.h"

#include <QAction>
#include <QCoreApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QStyle>
#include <functional>
#include <gtest/gtest.h>

namespace {

using List = std::vector<std::string>;

/// A node of the given class that writes down what its widget tells it.
template <typename Node>
class Owner : public Node
{
public:
    using Node::operator=;
    int onEscape() override { return log.push_back("escape"), keyUsed; }
    int onEnter() override { return log.push_back("enter"), keyUsed; }

    List log;
    int keyUsed = 1;
    std::function<void()> whileTold;

protected:
    void note(std::string const& what)
    {
        log.push_back(what);
        if (whileTold)
            whileTold();
    }
};

struct ButtonOwner : Owner<guiHtmlControlButton>
{
    using Owner<guiHtmlControlButton>::operator=;
    void onClick() override { note("click"); }
};

struct EditOwner : Owner<guiHtmlControlEdit>
{
    using Owner<guiHtmlControlEdit>::operator=;
    void onChange(sstring const& text) override { note(std::string("change ") + text.c_str()); }
};

struct ListOwner : Owner<guiHtmlControlList>
{
    using Owner<guiHtmlControlList>::operator=;
    void onChange() override { note("change"); }
};

struct FlexOwner : Owner<guiHtmlControlFlex>
{
    using Owner<guiHtmlControlFlex>::operator=;
    void onSelect() override { note("select"); }
    void onChange() override { note("change"); }
};

struct MenuOwner : Owner<guiHtmlControlMenu>
{
    using Owner<guiHtmlControlMenu>::operator=;
    void activateItem(int id) override { note("item " + std::to_string(id)); }
};

/// Whether the widget, or what it passes the key on to, took it.
bool pressKey(QWidget* widget, int key)
{
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
    return event.isAccepted();
}

void settle()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void expectInterface(QObject const& widget, char const* signal, char const* slot)
{
    QMetaObject const* meta = widget.metaObject();
    EXPECT_GE(meta->indexOfSignal(QMetaObject::normalizedSignature(signal)), 0) << meta->className() << " " << signal;
    int found = meta->indexOfSlot(QMetaObject::normalizedSignature(slot));
    EXPECT_GE(found, meta->methodOffset()) << meta->className() << " " << slot;
}

/// Escape and Enter reach the owner; unused ones and those without an owner reach the toolkit.
template <typename Wrapper, typename OwnerNode>
void expectKeys(Wrapper& widget, OwnerNode& owner, List const& expected)
{
    widget.owner = &owner;
    owner.log.clear();
    for (int key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter})
        pressKey(&widget, key);
    EXPECT_EQ(owner.log, expected) << widget.metaObject()->className();
    owner.log.clear();
    widget.owner = nullptr;
    pressKey(&widget, Qt::Key_Escape);
    EXPECT_TRUE(owner.log.empty());
}

List const kEscapeAndEnter{"escape", "enter", "enter"};

} // namespace

TEST(Wrappers, HaveTheSignalsSlotsAndFocusPoliciesOfTheirTable)
{
    guiWidgetPushButton push(nullptr);
    guiWidgetCheckBox check(nullptr);
    guiWidgetRadioButton radio(nullptr);
    guiWidgetComboBox combo(nullptr);
    guiWidgetListBox list(nullptr);
    guiWidgetListView view(nullptr);
    guiWidgetLineEdit line(nullptr);
    guiWidgetMultiEdit multi(nullptr);
    guiWidgetMenuBar menu(nullptr);
    guiWidgetPopupMenu popup(nullptr);
    guiWidgetScrollBar bar(Qt::Vertical, nullptr);
    expectInterface(push, "clicked()", "onClick()");
    expectInterface(check, "clicked()", "onClick()");
    expectInterface(radio, "clicked()", "onClick()");
    expectInterface(combo, "activated(int)", "onChange(int)");
    expectInterface(list, "selectionChanged()", "onChange()");
    expectInterface(view, "selectionChanged()", "onSelect()");
    expectInterface(line, "textChanged(const QString &)", "onChange(const QString &)");
    expectInterface(multi, "textChanged()", "onChange()");
    expectInterface(menu, "activated(int)", "onActivate(int)");
    expectInterface(popup, "activated(int)", "onActivate(int)");
    expectInterface(bar, "valueChanged(int)", "onChange(int)");
    for (QWidget* widget : std::initializer_list<QWidget*>{&push, &check, &radio, &combo, &list, &view, &line, &multi})
        EXPECT_EQ(widget->focusPolicy(), Qt::StrongFocus) << widget->metaObject()->className();
    for (QWidget* widget : std::initializer_list<QWidget*>{&combo, &list, &view, &line, &multi})
        EXPECT_TRUE(widget->testAttribute(Qt::WA_NoSystemBackground)) << widget->metaObject()->className();
    EXPECT_EQ(menu.focusPolicy(), QMenuBar().focusPolicy());
    EXPECT_EQ(popup.focusPolicy(), QMenu().focusPolicy());
    EXPECT_EQ(bar.focusPolicy(), Qt::StrongFocus);
    EXPECT_EQ(guiWidgetScrollBar(Qt::Horizontal, nullptr).focusPolicy(), Qt::NoFocus);
    EXPECT_TRUE(bar.hasTracking());
    EXPECT_TRUE(guiWidgetScrollBar(Qt::Horizontal, nullptr).hasTracking());
}

TEST(Wrappers, StartWithoutAnOwnerAndThenTellNobody)
{
    guiWidgetPushButton push;
    guiWidgetCheckBox check;
    guiWidgetRadioButton radio;
    guiWidgetComboBox combo;
    guiWidgetListBox list;
    guiWidgetListView view;
    guiWidgetLineEdit line;
    guiWidgetMultiEdit multi;
    guiWidgetMenuBar menu;
    guiWidgetPopupMenu popup;
    guiWidgetScrollBar bar(Qt::Horizontal);
    EXPECT_EQ(push.owner, nullptr);
    EXPECT_EQ(check.owner, nullptr);
    EXPECT_EQ(radio.owner, nullptr);
    EXPECT_EQ(combo.owner, nullptr);
    EXPECT_EQ(list.owner, nullptr);
    EXPECT_EQ(view.owner, nullptr);
    EXPECT_EQ(line.owner, nullptr);
    EXPECT_EQ(multi.owner, nullptr);
    EXPECT_EQ(menu.owner, nullptr);
    EXPECT_EQ(popup.owner, nullptr);
    EXPECT_EQ(bar.owner, nullptr);
    push.onClick();
    check.onClick();
    radio.onClick();
    combo.onChange(0);
    list.onChange();
    view.onSelect();
    line.onChange("text");
    multi.onChange();
    menu.onActivate(1);
    popup.onActivate(1);
    bar.onChange(1);
}

TEST(Wrappers, APushButtonWithoutAnOwnerIsPressedByReturnAllTheSame)
{
    guiWidgetPushButton push;
    int clicks = 0;
    QObject::connect(&push, &QPushButton::clicked, [&] { ++clicks; });
    EXPECT_TRUE(pressKey(&push, Qt::Key_Return));
    EXPECT_TRUE(pressKey(&push, Qt::Key_Enter));
    EXPECT_EQ(clicks, 2);
}

TEST(Wrappers, ButtonsForwardTheirClickOnceAndOnlyWithAnOwner)
{
    ButtonOwner owner;
    guiWidgetPushButton push(nullptr);
    guiWidgetCheckBox check(nullptr);
    guiWidgetRadioButton radio(nullptr);
    auto click = [&](auto& button) {
        owner.log.clear();
        button.click();
        EXPECT_TRUE(owner.log.empty());
        button.owner = &owner;
        button.click();
        EXPECT_EQ(owner.log, List{"click"}) << button.metaObject()->className();
    };
    click(push);
    click(check);
    click(radio);
    owner.log.clear();
    check.setChecked(!check.isChecked());
    EXPECT_TRUE(owner.log.empty()) << "set by script, not clicked";
}

TEST(Wrappers, EscapeAndEnterGoToTheOwner)
{
    ButtonOwner button;
    ListOwner list;
    FlexOwner flex;
    EditOwner edit;
    guiWidgetCheckBox check(nullptr);
    guiWidgetRadioButton radio(nullptr);
    guiWidgetComboBox combo(nullptr);
    guiWidgetListBox box(nullptr);
    guiWidgetListView view(nullptr);
    guiWidgetLineEdit line(nullptr);
    expectKeys(check, button, kEscapeAndEnter);
    expectKeys(radio, button, kEscapeAndEnter);
    expectKeys(combo, list, kEscapeAndEnter);
    expectKeys(box, list, kEscapeAndEnter);
    expectKeys(view, flex, kEscapeAndEnter);
    expectKeys(line, edit, kEscapeAndEnter);
}

TEST(Wrappers, EscapeOnAPushButtonGoesToTheOwnerAndReturnPressesIt)
{
    QDialog window; // in a dialog the toolkit has its own ideas about Return
    auto* button = new guiWidgetPushButton(&window);
    ButtonOwner owner;
    button->owner = &owner;
    EXPECT_TRUE(pressKey(button, Qt::Key_Escape));
    EXPECT_TRUE(pressKey(button, Qt::Key_Return));
    EXPECT_TRUE(pressKey(button, Qt::Key_Enter));
    EXPECT_EQ(owner.log, (List{"escape", "click", "click"}));
    EXPECT_FALSE(button->isDefault());
    EXPECT_FALSE(button->autoDefault());
}

TEST(Wrappers, AKeyThatTheOwnerDoesNotUseReachesTheToolkit)
{
    guiWidgetLineEdit line(nullptr);
    EditOwner owner;
    line.owner = &owner;
    int returned = 0;
    QObject::connect(&line, &QLineEdit::returnPressed, [&] { ++returned; });
    EXPECT_TRUE(pressKey(&line, Qt::Key_Return));
    EXPECT_EQ(returned, 0);
    owner.keyUsed = 0;
    pressKey(&line, Qt::Key_Return);
    EXPECT_EQ(returned, 1);
    EXPECT_EQ(owner.log, (List{"enter", "enter"}));
}

namespace {

/// What the toolkit hands a key to when a widget in it has no use for it.
struct KeyCounter : QWidget
{
    void keyPressEvent(QKeyEvent*) override { ++keys; }
    int keys = 0;
};

/// The owner is asked about Escape (and Enter), says no, and the key goes on; of any other key it never hears.
template <typename Wrapper, typename OwnerNode>
void expectUnusedKeysToGoOn(OwnerNode& owner, List const& expected)
{
    KeyCounter window;
    Wrapper widget(&window);
    widget.owner = &owner;
    owner.log.clear();
    owner.keyUsed = 0;
    pressKey(&widget, Qt::Key_F5);
    EXPECT_TRUE(owner.log.empty()) << widget.metaObject()->className();
    EXPECT_EQ(window.keys, 1) << widget.metaObject()->className();
    pressKey(&widget, Qt::Key_Escape);
    EXPECT_EQ(window.keys, 2) << widget.metaObject()->className();
    pressKey(&widget, Qt::Key_Return);
    pressKey(&widget, Qt::Key_Enter);
    EXPECT_EQ(owner.log, expected) << widget.metaObject()->className();
    widget.owner = nullptr;
    window.keys = 0;
    pressKey(&widget, Qt::Key_Escape);
    EXPECT_EQ(window.keys, 1) << widget.metaObject()->className() << " has nobody to ask";
}

} // namespace

TEST(Wrappers, UnusedKeysGoOnToTheWindow)
{
    ButtonOwner button;
    ListOwner list;
    FlexOwner flex;
    EditOwner edit;
    expectUnusedKeysToGoOn<guiWidgetPushButton>(button, {"escape", "click", "click"});
    expectUnusedKeysToGoOn<guiWidgetCheckBox>(button, kEscapeAndEnter);
    expectUnusedKeysToGoOn<guiWidgetRadioButton>(button, kEscapeAndEnter);
    expectUnusedKeysToGoOn<guiWidgetComboBox>(list, kEscapeAndEnter);
    expectUnusedKeysToGoOn<guiWidgetListBox>(list, kEscapeAndEnter);
    expectUnusedKeysToGoOn<guiWidgetListView>(flex, kEscapeAndEnter);
    expectUnusedKeysToGoOn<guiWidgetLineEdit>(edit, kEscapeAndEnter);
}

TEST(Wrappers, TextFieldsForwardTheWholeNewText)
{
    EditOwner owner;
    guiWidgetLineEdit line(nullptr);
    line.setText("before");
    line.owner = &owner;
    line.setText("new");
    line.setText("new");
    guiWidgetMultiEdit multi(nullptr);
    multi.owner = &owner;
    multi.setPlainText("two\nlines");
    EXPECT_EQ(owner.log, (List{"change new", "change two\nlines"}));
    EXPECT_EQ(multi.lineWrapMode(), QPlainTextEdit::WidgetWidth);
    EXPECT_EQ(multi.wordWrapMode(), QTextOption::WordWrap);
}

TEST(Wrappers, KeysOfATextAreaAreItsOwn)
{
    EditOwner owner;
    guiWidgetMultiEdit multi(nullptr);
    multi.owner = &owner;
    pressKey(&multi, Qt::Key_Return);
    pressKey(&multi, Qt::Key_Escape);
    EXPECT_EQ(multi.toPlainText(), "\n");
    ASSERT_FALSE(owner.log.empty());
    EXPECT_EQ(owner.log.back(), "change \n") << "neither key asked the owner";
}

TEST(Wrappers, AComboBoxForwardsTheUsersChoiceOnly)
{
    ListOwner owner;
    guiWidgetComboBox combo(nullptr);
    combo.addItems({"a", "b"});
    combo.owner = &owner;
    combo.setCurrentItem(1);
    EXPECT_TRUE(owner.log.empty());
    emit combo.activated(0);
    EXPECT_EQ(owner.log, List{"change"});
}

TEST(Wrappers, AComboBoxAskedForAnItemThatIsNoneStaysAsItIs)
{
    guiWidgetComboBox combo(nullptr);
    combo.addItems({"a", "b"});
    combo.setCurrentItem(1);
    for (int index : {-1, 2}) {
        EXPECT_EQ(combo.text(index), "");
        combo.setCurrentItem(index);
        EXPECT_EQ(combo.currentIndex(), 1);
    }
    EXPECT_EQ(combo.text(1), "b");
    combo.setCurrentItem(0);
    EXPECT_EQ(combo.currentIndex(), 0);
}

TEST(Wrappers, ListsForwardAChangedSelection)
{
    ListOwner listOwner;
    guiWidgetListBox list(nullptr);
    list.addItems({"a", "b"});
    list.owner = &listOwner;
    list.setCurrentRow(1);
    EXPECT_EQ(listOwner.log, List{"change"});

    FlexOwner flexOwner;
    guiWidgetListView view(nullptr);
    auto* row = new guiCheckListItem(&flexOwner, &view, "row", guiCheckListItem::kNoIndicator);
    view.owner = &flexOwner;
    row->setSelected(true);
    EXPECT_EQ(flexOwner.log, List{"select"});
    row->setSelected(true);
    EXPECT_EQ(flexOwner.log.size(), 1u);
}

TEST(Wrappers, AChoiceInAPopUpReachesTheNodeThroughTheMenuBarAlone)
{
    MenuOwner owner;
    QDialog window;
    guiWidgetMenuBar bar(&window);
    bar.owner = &owner;
    guiWidgetPopupMenu popup(&window);
    popup.owner = &owner;
    QAction* top = bar.addAction("top");
    top->setData(7);
    QAction* sub = bar.addMenu(&popup);
    QAction* entry = popup.addAction("entry");
    entry->setData(12);
    window.show();
    top->trigger();
    bar.setActiveAction(sub); // opens the pop-up
    popup.setActiveAction(entry);
    pressKey(&popup, Qt::Key_Return);
    EXPECT_EQ(owner.log, (List{"item 7", "item 12"}));
    emit popup.activated(12);
    EXPECT_EQ(owner.log.size(), 2u);
}

TEST(Wrappers, AWidgetWhoseHandlerDestroysItLivesUntilTheHandlerReturns)
{
    EditOwner owner;
    QWidget clipper;
    auto* line = new guiWidgetLineEdit(&clipper);
    QPointer<guiWidgetLineEdit> watched(line);
    line->owner = &owner;
    owner.whileTold = [&] {
        guiDestroyWrapper(line);
        EXPECT_EQ(line, nullptr);
        EXPECT_FALSE(watched.isNull());
        EXPECT_EQ(watched->owner, nullptr);
    };
    line->setText("x");
    ASSERT_FALSE(watched.isNull());
    watched->setText("y");
    EXPECT_EQ(owner.log, List{"change x"}) << "it has no owner any more";
    settle();
    EXPECT_TRUE(watched.isNull());

    auto* other = new guiWidgetLineEdit(&clipper);
    QPointer<guiWidgetLineEdit> atOnce(other);
    guiDestroyWrapper(other);
    EXPECT_TRUE(atOnce.isNull());
    guiDestroyWrapper(other); // none
}

namespace {

struct CheckList : ::testing::Test
{
    guiCheckListItem* add(char const* text, guiCheckListItem::indicatorKind indicator,
                          guiCheckListItem* parent = nullptr)
    {
        return parent ? new guiCheckListItem(&owner, parent, text, indicator)
                      : new guiCheckListItem(&owner, &view, text, indicator);
    }

    FlexOwner owner;
    guiWidgetListView view{nullptr};
};

} // namespace

TEST_F(CheckList, ACheckBoxRowReportsChangesAndNothingElse)
{
    guiCheckListItem* row = add("row", guiCheckListItem::kCheckBox);
    EXPECT_FALSE(row->isOn());
    EXPECT_TRUE(owner.log.empty());
    row->setOn(false);
    EXPECT_TRUE(owner.log.empty());
    row->setOn(true);
    EXPECT_TRUE(row->isOn());
    row->setOn(true);
    row->setText(0, "other");
    row->setOn(false);
    EXPECT_EQ(owner.log, (List{"change", "change"}));
    row->owner = nullptr;
    row->setOn(true);
    EXPECT_EQ(owner.log.size(), 2u);
}

TEST_F(CheckList, APlainRowHasNoStateAndNoIndicator)
{
    guiCheckListItem* row = add("row", guiCheckListItem::kNoIndicator);
    row->setOn(true);
    EXPECT_FALSE(row->isOn());
    EXPECT_FALSE(row->data(0, Qt::CheckStateRole).isValid());
    EXPECT_TRUE(owner.log.empty());
}

TEST_F(CheckList, RadioRowsUnderOneParentExcludeEachOther)
{
    guiCheckListItem* group = add("group", guiCheckListItem::kNoIndicator);
    guiCheckListItem* first = add("first", guiCheckListItem::kRadioButton, group);
    guiCheckListItem* second = add("second", guiCheckListItem::kRadioButton, group);
    guiCheckListItem* box = add("box", guiCheckListItem::kCheckBox, group);
    guiCheckListItem* elsewhere = add("elsewhere", guiCheckListItem::kRadioButton);
    first->setOn(true);
    box->setOn(true);
    elsewhere->setOn(true);
    owner.log.clear();
    second->setOn(true);
    EXPECT_FALSE(first->isOn());
    EXPECT_TRUE(second->isOn());
    EXPECT_TRUE(box->isOn());
    EXPECT_TRUE(elsewhere->isOn());
    EXPECT_EQ(owner.log, (List{"change", "change"})) << "one for the row that went off, one for the one that went on";
    second->setOn(false);
    EXPECT_FALSE(second->isOn());
}

TEST_F(CheckList, RowsCanBePutBehindOthers)
{
    guiCheckListItem* first = add("first", guiCheckListItem::kCheckBox);
    add("last", guiCheckListItem::kCheckBox);
    auto* between = new guiCheckListItem(&owner, &view, first, "between", guiCheckListItem::kCheckBox);
    EXPECT_EQ(view.indexOfTopLevelItem(between), 1);
    auto* child = add("child", guiCheckListItem::kCheckBox, first);
    auto* behind = new guiCheckListItem(&owner, first, child, "behind", guiCheckListItem::kCheckBox);
    EXPECT_EQ(first->indexOfChild(behind), 1);
    EXPECT_EQ(behind->owner, &owner);
}

TEST_F(CheckList, AHandlerMayDestroyTheRowThatItHearsOf)
{
    guiCheckListItem* first = add("first", guiCheckListItem::kRadioButton);
    guiCheckListItem* second = add("second", guiCheckListItem::kRadioButton);
    first->setOn(true);
    owner.whileTold = [&] { view.clear(); };
    second->setOn(true);
    EXPECT_EQ(view.topLevelItemCount(), 0);
}

TEST_F(CheckList, AnUnboundListTellsNobody)
{
    guiCheckListItem* row = add("row", guiCheckListItem::kCheckBox);
    guiCheckListItem* child = add("child", guiCheckListItem::kCheckBox, row);
    view.owner = &owner;
    view.unbind();
    row->setOn(true);
    child->setOn(true);
    row->setSelected(true);
    EXPECT_TRUE(owner.log.empty());
}

namespace {

struct ShownCheckList : CheckList
{
    void show()
    {
        view.resize(300, 200);
        view.show();
        QCoreApplication::processEvents();
    }

    void clickAt(QPoint at)
    {
        for (QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent event(type, at, view.viewport()->mapToGlobal(at), Qt::LeftButton, Qt::LeftButton,
                              Qt::NoModifier);
            QCoreApplication::sendEvent(view.viewport(), &event);
        }
    }

    QRect indicatorOf(guiCheckListItem* row)
    {
        auto* delegate = static_cast<guiWidgetRadioRow*>(view.itemDelegate());
        QStyleOptionViewItem option;
        option.initFrom(view.viewport());
        option.widget = &view;
        option.font = view.font();
        option.decorationPosition = QStyleOptionViewItem::Left;
        option.decorationAlignment = Qt::AlignCenter;
        option.displayAlignment = Qt::AlignLeft | Qt::AlignVCenter;
        option.rect = view.visualItemRect(row);
        return delegate->indicatorRect(option, view.indexFromItem(row));
    }
};

} // namespace

TEST_F(ShownCheckList, AClickOnTheIndicatorTogglesABoxAndOnlyChecksARadioRow)
{
    guiCheckListItem* box = add("box", guiCheckListItem::kCheckBox);
    guiCheckListItem* radio = add("radio", guiCheckListItem::kRadioButton);
    show();
    clickAt(indicatorOf(box).center());
    EXPECT_TRUE(box->isOn());
    clickAt(indicatorOf(box).center());
    EXPECT_FALSE(box->isOn());
    clickAt(indicatorOf(radio).center());
    EXPECT_TRUE(radio->isOn());
    owner.log.clear();
    clickAt(indicatorOf(radio).center());
    EXPECT_TRUE(radio->isOn());
    EXPECT_TRUE(owner.log.empty());
    radio->setOn(false);
    owner.log.clear();
    clickAt(QPoint(250, indicatorOf(radio).center().y()));
    EXPECT_FALSE(radio->isOn()) << "beside the indicator a click only selects";
    radio->setEnabled(false);
    clickAt(indicatorOf(radio).center());
    EXPECT_FALSE(radio->isOn());
}

TEST_F(ShownCheckList, TheBlankChecksTheCurrentRadioRow)
{
    guiCheckListItem* radio = add("radio", guiCheckListItem::kRadioButton);
    show();
    view.setCurrentItem(radio);
    pressKey(&view, Qt::Key_Space);
    EXPECT_TRUE(radio->isOn());
    pressKey(&view, Qt::Key_Space);
    EXPECT_TRUE(radio->isOn());
}

TEST_F(ShownCheckList, ARadioRowShowsTheToolkitsRadioIndicator)
{
    guiCheckListItem* radio = add("", guiCheckListItem::kRadioButton);
    show();
    for (bool isOn : {false, true}) {
        radio->setOn(isOn);
        QRect place = indicatorOf(radio);
        ASSERT_FALSE(place.isEmpty());
        QImage shown = view.viewport()->grab(place).toImage().convertToFormat(QImage::Format_RGB32);
        QImage expected(place.size(), QImage::Format_RGB32);
        expected.fill(view.palette().color(QPalette::Base));
        QStyleOptionButton option;
        option.rect = QRect(QPoint(), place.size());
        option.palette = view.palette();
        option.state = QStyle::State_Enabled | (isOn ? QStyle::State_On : QStyle::State_Off);
        QPainter painter(&expected);
        view.style()->drawPrimitive(QStyle::PE_IndicatorRadioButton, &option, &painter, &view);
        painter.end();
        EXPECT_EQ(shown, expected) << isOn;
    }
}
