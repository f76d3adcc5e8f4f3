// tests/controls/largeform_test.cpp: what a form of 4 MB costs, 17,000 controls: opening it, scrolling it, going
// through it with the Tab key. The limits are several times what was measured, and count processor time;
// bench/bench-form.cpp has the exact figures.
#include "controls/guihtmlcontrol.h"
#include "controls/guipageaccess.h"
#include "page/guitaborder.h"
#include "tests/controls/pagewindow.h"
#include "tests/support/hostilepage.h"
#include "tests/support/processortime.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QScrollBar>
#include <gtest/gtest.h>

namespace {

constexpr std::size_t kPageBytes = std::size_t{4} << 20;
constexpr int kWidth = 800;
constexpr int kHeight = 600;

std::string part(int number)
{
    std::string const n = std::to_string(number);
    return "<form action=\"event://onOk\"><table cellpadding=\"2\"><tr><td align=\"right\">Name of field " + n +
           "</td><td><input type=\"text\" name=\"field" + n + "\" value=\"value " + n +
           "\" size=\"20\"/></td></tr>\n<tr><td><input type=\"checkbox\" name=\"check" + n + "\" checked/>Check " + n +
           "</td><td><select name=\"s" + n +
           "\"><option selected>One</option><option>Two</option></select></td></tr></table></form>\n";
}

std::string form()
{
    std::string page;
    for (int i = 0; page.size() < kPageBytes; ++i)
        page += part(i);
    return page;
}

struct LargeForm : testing::Test
{
    void open(std::string const& page)
    {
        guiOfferPageAccess(); // as every GUI thread does
        window.root.setSizePolicy(kPolicyScroll);
        window.widget->resize(kWidth, kHeight);
        ASSERT_EQ(window.root.setText(sstring(page.c_str()), sstring()), 1);
        window.widget->show();
        PageWindow::settle();
        window.widget->repaint();
    }

    void press(int key)
    {
        QKeyEvent event(QEvent::KeyPress, key, key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
        QCoreApplication::sendEvent(window.widget->focusWidget(), &event);
    }

    QScrollBar* bar() { return window.root.getScroll().barY; }
    qsizetype widgets() { return window.widget->findChildren<QWidget*>("controlclipper").size(); }

    PageWindow window{sstring(), kWidth, kHeight};
};

} // namespace

TEST_F(LargeForm, OpensWithinItsBudgetOfTimeAndMemory)
{
    std::string const page = form();
    {
        budget const limits(2, 120);
        open(page);
    }
    EXPECT_GT(guiTabStopsOf(&window.root).size(), 16000U);
    EXPECT_LT(widgets(), 100);
}

TEST_F(LargeForm, IsScrolledInLessThanAFrame)
{
    constexpr int kSteps = 60;
    constexpr std::int64_t kFrame = 16'000'000;
    open(form());
    for (int const step : {48, kHeight, bar()->maximum() / kSteps}) {
        bar()->setValue(0);
        std::int64_t const start = processorTime();
        for (int i = 1; i <= kSteps; ++i) {
            bar()->setValue(i * step);
            PageWindow::settle();
        }
        EXPECT_LT((processorTime() - start) / kSteps, kFrame) << step << " pixels a step";
        EXPECT_LT(widgets(), 600);
    }
}

TEST_F(LargeForm, IsGoneThroughWithTheTabKey)
{
    constexpr int kStops = 20;
    constexpr std::int64_t kMost = 100'000'000;
    open(form());
    window.root.setFocus("field0");
    press(Qt::Key_Backtab);
    EXPECT_EQ(std::string(window.root.getFocus().c_str()).substr(0, 1), "s");
    EXPECT_GE(bar()->value(), bar()->maximum() - kHeight);
    std::int64_t const start = processorTime();
    for (int i = 0; i < kStops; ++i)
        press(Qt::Key_Tab);
    EXPECT_LT((processorTime() - start) / kStops, kMost);
}
