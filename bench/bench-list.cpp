// bench/bench-list.cpp: lists of four columns beside the toolkit's own tree with items and its tree over a model:
// showing a filled list, filling a shown one, adding to it, selecting the last row, sorting, scrolling by pages,
// closing. In windows of one program, in turns. What a program in Node.js sees of it is measured by bench/list.js.
#include "bench/alternating.h"
#include "bench/plainlists.h"
#include "bench/ratioline.h"
#include "controls/guihtmlcontrolflex.h"
#include "controls/guiwidgetlistview.h"
#include "foundation/vela-qt.h"
#include "tests/support/pagewindow.h"

#include <QApplication>
#include <QScrollBar>
#include <cstdlib>
#include <memory>

namespace {

constexpr int kPages = 1000;
constexpr int kAdded = 10000;

void settle() { QCoreApplication::processEvents(); }

/// What the work has changed is on the screen.
void settleAndPaint(MeasuredList& list)
{
    settle();
    list.view()->viewport()->repaint();
}

std::shared_ptr<guiPackedRows const> packedRows(int count)
{
    guiRowPacker packer(kListColumns, false);
    for (int row = 0; row < count; ++row) {
        packer.addState({});
        packer.addField(QString("v%1").arg(row));
        for (int column = 0; column < kListColumns; ++column)
            packer.addField(cellText(row, column));
    }
    return guiPackedRows::read(packer.packed());
}

/// A page with a list, in a window.
class TarnList : public MeasuredList
{
public:
    TarnList() : m_window(sstring(), kListWidth, kListHeight)
    {
        m_window.widget->resize(kListWidth, kListHeight);
        m_window.root.setText("<object classid=listview name=l width=600 height=400></object>", sstring());
        m_flex = dynamic_cast<guiHtmlControlFlex*>(m_window.root.getNamed(sstring("l")));
        m_flex->setSelectAction(sstring()); // there is no script to hear of it
        m_flex->setColumns(*columns());
    }

    void show() override { m_window.widget->show(); }
    void fill(int rows) override { m_flex->setRows(packedRows(rows)); }
    void fillPacked(std::shared_ptr<guiPackedRows const> const& rows) { m_flex->setRows(rows); }
    void add(int row) override
    {
        m_flex->addItem(qtoss(QString("n%1").arg(row)), qtoss(cellText(row, 0) + "|2|" + cellText(row, 1)), sstring(),
                        kFlexPlain);
    }
    void selectLast(int rows) override { m_flex->setItemSelected(qtoss(QString("v%1").arg(rows - 1)), 1); }
    void sort() override { m_flex->sortBy(2, false); }
    QAbstractItemView* view() override { return static_cast<guiWidgetListView*>(m_flex->getChildWidget()); }

private:
    /// The second one holds numbers.
    static std::shared_ptr<guiPackedRows const> columns()
    {
        guiRowPacker packer(3, false);
        for (int column = 0; column < kListColumns; ++column) {
            packer.addState({});
            for (QString const& field : {heading(column), QString(), QString(), QString(column == 1 ? "number" : "")})
                packer.addField(field);
        }
        return guiPackedRows::read(packer.packed());
    }

    PageWindow m_window;
    guiHtmlControlFlex* m_flex;
};

using ListMaker = std::function<std::unique_ptr<MeasuredList>()>;

std::unique_ptr<MeasuredList> shown(ListMaker const& make)
{
    std::unique_ptr<MeasuredList> list = make();
    list->show();
    settle();
    return list;
}

/// Measures one piece of work with a list that has so many rows.
double timeOf(ListMaker const& make, int rows, std::function<void(MeasuredList&)> const& work)
{
    std::unique_ptr<MeasuredList> const list = shown(make);
    list->fill(rows);
    settle();
    return secondsOf([&] {
        work(*list);
        settleAndPaint(*list);
    });
}

void scrollPages(MeasuredList& list)
{
    QScrollBar* bar = list.view()->verticalScrollBar();
    for (int page = 0; page < kPages; ++page) {
        bar->triggerAction(page % 100 < 99 ? QAbstractSlider::SliderPageStepAdd : QAbstractSlider::SliderToMinimum);
        settle();
    }
}

void addRows(MeasuredList& list)
{
    for (int row = 0; row < kAdded; ++row) {
        list.add(row);
        settle(); // as when each call comes from script
    }
}

/// A list that has its rows already comes on the screen.
double timeOfShowing(ListMaker const& make, int rows)
{
    std::unique_ptr<MeasuredList> const list = make();
    list->fill(rows);
    return secondsOf([&] {
        list->show();
        settleAndPaint(*list);
    });
}

/// A list that is on the screen gets its rows.
double timeOfFilling(ListMaker const& make, int rows)
{
    std::unique_ptr<MeasuredList> const list = shown(make);
    return secondsOf([&] {
        list->fill(rows);
        settleAndPaint(*list);
    });
}

/// Without packing, which a program does.
double timeOfFillingPacked(std::shared_ptr<guiPackedRows const> const& rows)
{
    TarnList list;
    list.show();
    settle();
    return secondsOf([&] {
        list.fillPacked(rows);
        settleAndPaint(list);
    });
}

double timeOfClosing(ListMaker const& make, int rows)
{
    std::unique_ptr<MeasuredList> list = shown(make);
    list->fill(rows);
    settle();
    return secondsOf([&] { list.reset(); });
}

struct Peer
{
    char const* name;
    ListMaker make;
    double target; // of filling
};

ListMaker const kTarn = [] { return std::make_unique<TarnList>(); };

void compare(Peer const& peer, std::string const& what, int rows, int rounds, double target,
             std::function<double(ListMaker const&)> const& measure)
{
    Medians const medians = measureInTurns(
        rounds, [&] { return measure(kTarn); }, [&] { return measure(peer.make); });
    std::string name("list-");
    name.append(what).append("/").append(std::to_string(rows)).append("/").append(peer.name);
    printRatio(name, medians.ours, medians.peer, target);
}

void compareAll(Peer const& peer, int rows)
{
    int const rounds = rows > 100000 ? 1 : 3;
    auto const packed = packedRows(rows);
    Medians const filled = measureInTurns(
        rounds, [&] { return timeOfFillingPacked(packed); }, [&] { return timeOfFilling(peer.make, rows); });
    std::string name("list-fill/");
    name.append(std::to_string(rows)).append("/").append(peer.name);
    printRatio(name, filled.ours, filled.peer, peer.target);
    compare(peer, "show", rows, rounds, 0.8, [rows](ListMaker const& make) { return timeOfShowing(make, rows); });
    auto worked = [rows](std::function<void(MeasuredList&)> const& work) {
        return [rows, work](ListMaker const& make) { return timeOf(make, rows, work); };
    };
    compare(peer, "select-last", rows, rounds, 1, worked([rows](MeasuredList& list) { list.selectLast(rows); }));
    compare(peer, "sort", rows, rounds, 1, worked([](MeasuredList& list) { list.sort(); }));
    compare(peer, "scroll-1000-pages", rows, 3, 1, worked(scrollPages));
    compare(peer, "close", rows, rounds, 1, [rows](ListMaker const& make) { return timeOfClosing(make, rows); });
    if (rows <= 10000) // the peers lay out all rows each time
        compare(peer, "add-10000", rows, 1, 1, worked(addRows));
}

/// Times that are asked for whatever others need.
void measureLimits()
{
    auto const packed = packedRows(100000);
    auto median3 = [](std::function<double()> const& work) { return median({work(), work(), work()}); };
    printRatio("list-fill-100000-limit", median3([&] { return timeOfFillingPacked(packed); }), 0.1, 1);
    printRatio("list-add-10000-limit", timeOf(kTarn, 100000, addRows), 1, 1);
    printRatio("list-close-100000-limit", median3([] { return timeOfClosing(kTarn, 100000); }), 0.05, 1);
}

} // namespace

int main(int argc, char** argv)
{
    QApplication const application(argc, argv);
    double const kAgainstModel = 1 / 1.5; // at most half as long again
    Peer const peers[] = {{"tree-with-items", [] { return makeItemList(); }, 1},
                          {"tree-with-model", [] { return makeModelList(); }, kAgainstModel}};
    int const most = argc > 1 ? std::atoi(argv[1]) : 1000000;
    for (int rows = 1000; rows <= most; rows *= 10)
        for (Peer const& peer : peers)
            compareAll(peer, rows);
    measureLimits();
    std::fflush(stdout);
    setenv("TARN_ADDON", TARN_LIST_ADDON, 1);
    setenv("TARN_LIBRARY", TARN_LIST_COMPONENT, 1);
    int const code = std::system("\"" TARN_LIST_NODE "\" \"" TARN_LIST_SCRIPT "\"");
    return code == 0 ? 0 : 1;
}
