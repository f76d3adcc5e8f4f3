// bench/window-plain.cpp: a minimal program of the toolkit that shows the text of window-page.html. bench-window.cpp
// starts it.

#include <QApplication>
#include <QPainter>
#include <QWidget>

namespace {

class Text : public QWidget
{
public:
    Text()
    {
        setWindowTitle("First window");
        resize(320, 160);
    }

    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), QColor(0x33, 0x66, 0x99));
        painter.setPen(Qt::white);
        painter.drawText(rect().adjusted(8, 8, -8, -8), Qt::AlignHCenter | Qt::TextWordWrap,
                         "The first thing that a user sees of a program is its window. How long it takes to come is "
                         "the first thing that a user learns.");
    }
};

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    Text window;
    window.show();
    return QApplication::exec();
}
