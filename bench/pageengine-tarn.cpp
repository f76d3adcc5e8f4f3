// bench/pageengine-tarn.cpp: our own engine.

#include "bench/pageengine.h"

#include "bench/pageview-qt.h"
#include "controls/guiwidget.h"
#include "foundation/hashlist.h"
#include "foundation/vela-qt.h"
#include "page/guihtml.h"
#include "page/guilayoutcounters.h"
#include "runtime/guihtmlbase.h"

#include <memory>

#include <QApplication>
#include <QScrollBar>

namespace {

unsigned countNodes(guiHtml* node)
{
    unsigned count = 1;
    for (guiHtml* child : guiNodesOf(node))
        count += countNodes(child);
    return count;
}

/// A page without a window.
class TarnEngine : public PageEngine
{
public:
    void take(std::string const& page) override { m_text = qtoss(QString::fromStdString(page)); }
    void load(int width) override
    {
        guiLayoutCounters::reset();
        m_root = std::make_unique<guiHtmlBase>(nullptr, nullptr, nullptr, sstring());
        m_root->m.rect = {0, width, 0, kPageHeight};
        m_root->setText(m_text, "");
        m_measured = guiLayoutCounters::heightQueries + guiLayoutCounters::calcDynamic;
    }
    void layOut(int width) override
    {
        guiRect rect{0, width, 0, kPageHeight};
        m_root->setRect(&rect);
    }
    int height() override
    {
        guiHtml* last = m_root->getLastChild();
        return last ? last->m.rect.bottom() : 0;
    }
    void clear() override { m_root.reset(); }
    std::string effort() override
    {
        unsigned const nodes = countNodes(m_root.get());
        return "nodes " + std::to_string(nodes) + " measures-per-node " +
               std::to_string(static_cast<double>(m_measured) / nodes);
    }

private:
    sstring m_text;
    std::unique_ptr<guiHtmlBase> m_root;
    std::uint64_t m_measured = 0;
};

/// A real window.
class TarnView : public PageView
{
public:
    ~TarnView() override { m_root.destroyWidget(); }
    void show(std::string const& page) override
    {
        m_root.setSizePolicy(kPolicyScroll);
        m_root.setText(qtoss(QString::fromStdString(page)), "");
        m_widget = m_root.createWidget(0);
        m_widget->resize(kPageWidth, kPageHeight);
        m_widget->show();
        waitUntilExposed(*m_widget);
    }
    int range() override { return static_cast<int>(m_root.getScroll().rangeY); }
    void scrollTo(int y) override
    {
        m_root.getScroll().barY->setValue(y);
        QCoreApplication::processEvents();
    }
    void repaint() override { m_widget->repaint(); }

private:
    guiHtmlBase m_root{nullptr, nullptr, nullptr, sstring()};
    guiWidget* m_widget = nullptr;
};

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QFont font(kPageFont);
    font.setPixelSize(kPageFontPixels);
    QApplication::setFont(font);
    constexpr unsigned kBuckets = 1027; // as many as the component has
    hashlist<guiHtml> registry(kBuckets);
    guiHtml::setRegistry(&registry); // every node enters and leaves it, as in the component
    int code = 0;
    {
        TarnEngine engine;
        TarnView view;
        code = runPageProgram(argc, argv, engine, &view);
    }
    guiHtml::setRegistry(nullptr);
    return code;
}
