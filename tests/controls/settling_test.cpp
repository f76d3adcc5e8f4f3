// tests/controls/settling_test.cpp: scrolled controls of any size come to rest: the toolkit may show and hide their
// scroll bars for ever when these take the room that made them unnecessary.
#include "controls/guiwidgetlistbox.h"
#include "controls/guiwidgetlistitem.h"
#include "controls/guiwidgetlistview.h"
#include "controls/guiwidgetmultiedit.h"

#include <QCoreApplication>
#include <QEvent>
#include <gtest/gtest.h>

namespace {

/// Counts how often a widget is asked to lay itself out, and ends a loop of it.
class LayoutCounter : public QObject
{
public:
    explicit LayoutCounter(QWidget& widget) { widget.installEventFilter(this); }
    int count = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        bool isLayout = event->type() == QEvent::LayoutRequest || event->type() == QEvent::MetaCall;
        return isLayout && ++count > kEndless;
    }

private:
    static constexpr int kEndless = 100;
};

/// The sizes, as text, at which a widget still asks for a new layout after many of them.
std::string restlessSizes(QWidget& widget)
{
    std::string found;
    widget.show();
    for (int width = 1; width <= 60; width++)
        for (int height = 1; height <= 60; height += height < 3 ? 1 : 3) {
            LayoutCounter counter(widget);
            widget.resize(width, height);
            QCoreApplication::sendPostedEvents();
            QCoreApplication::processEvents();
            if (counter.count > 50)
                found +=
                    std::to_string(width) + "x" + std::to_string(height) + ":" + std::to_string(counter.count) + " ";
        }
    return found;
}

char const* const kTexts[] = {"",
                              "a",
                              "some text",
                              "some text some text some text",
                              "MMMMMMMMMMMMMMMMMMMMMM",
                              "a\nb\nc\nd\ne",
                              "a\nbbbbbbbb bbbbbbb bbbbb\nc"};

} // namespace

TEST(Settling, AnEditorOfAnySizeComesToRest)
{
    for (int points : {6, 12, 20})
        for (char const* text : kTexts) {
            guiWidgetMultiEdit edit(nullptr);
            edit.setFont(QFont(edit.font().family(), points));
            edit.setPlainText(text);
            EXPECT_EQ(restlessSizes(edit), "") << text << " in " << points << " points";
        }
}

TEST(Settling, AListOfAnySizeComesToRest)
{
    for (char const* text : kTexts) {
        guiWidgetListBox list(nullptr);
        for (QString const& row : QString(text).split('\n'))
            list.addItem(row);
        EXPECT_EQ(restlessSizes(list), "") << text;
    }
}

TEST(Settling, AFlexListOfAnySizeComesToRest)
{
    for (char const* text : kTexts) {
        guiWidgetListView list(nullptr);
        for (QString const& row : QString(text).split('\n'))
            (new guiCheckListItem(nullptr, &list, row, guiCheckListItem::kNoIndicator))->setText(1, row);
        EXPECT_EQ(restlessSizes(list), "") << text;
    }
}
