// bench/pageengine-qtext.cpp: the toolkit's own rich text, QTextDocument, as a peer.

#include "bench/pageview-qt.h"

#include <memory>

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QTextDocument>

namespace {

class DocumentEngine : public PageEngine
{
public:
    void take(std::string const& page) override { m_text = QString::fromStdString(page); }
    void load(int width) override
    {
        m_document = std::make_unique<QTextDocument>();
        m_document->setUndoRedoEnabled(false);
        m_document->setDefaultFont(QApplication::font());
        m_document->setTextWidth(width);
        m_document->setHtml(m_text);
        m_height = static_cast<int>(m_document->size().height()); // this lays it out
    }
    void layOut(int width) override
    {
        m_document->setTextWidth(width);
        m_height = static_cast<int>(m_document->size().height());
    }
    int height() override { return m_height; }
    void clear() override { m_document.reset(); }

    void paint(QPainter& painter, QRect const& visible) { m_document->drawContents(&painter, visible); }

private:
    QString m_text;
    std::unique_ptr<QTextDocument> m_document;
    int m_height = 0;
};

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QFont font(kPageFont);
    font.setPixelSize(kPageFontPixels);
    QApplication::setFont(font);
    DocumentEngine engine;
    PeerView view(engine, [&](QPainter& painter, QRect const& visible) { engine.paint(painter, visible); });
    return runPageProgram(argc, argv, engine, &view);
}
