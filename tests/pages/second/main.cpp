// tests/pages/second/main.cpp: PAGE.html WIDTH HEIGHT: prints the dump that the page should have, computed by a program
// that shares no code with the component.
#include "tests/pages/second/build.h"
#include "tests/pages/second/layout.h"

#include <QApplication>
#include <cstdio>

namespace second {

namespace {

QString unitText(int size, unit which)
{
    static char const* const words[] = {"/unbound", " pixels", "%"};
    return QString::number(size) + words[which];
}

QString sizesText(sizes const& of)
{
    return QString("X=%1, Y=%2, cxMin=%3, cyMin=%4")
        .arg(unitText(of.x, of.unitX), unitText(of.y, of.unitY))
        .arg(of.minX)
        .arg(of.minY);
}

QString yes(bool flag) { return flag ? "yes" : "no"; }

QStringList linesOf(node const& node)
{
    static char const* const types[] = {"HTML", "BASE", "FORM", "IMAGE", "TEXT", "CONTROL", "FRAMESET", "UNKNOWN"};
    static char const* const alignsX[] = {"left", "center", "right"};
    static char const* const alignsY[] = {"top", "center", "bottom"};
    QStringList lines{QString("%1: %2").arg(types[node.type], node.name)};
    if (node.type == 4)
        lines << "text: " + node.text;
    lines << QString("rect: (%1,%2)-(%3,%4) = %5x%6")
                 .arg(node.left)
                 .arg(node.top)
                 .arg(node.left + node.width)
                 .arg(node.top + node.height)
                 .arg(node.width)
                 .arg(node.height);
    lines << QString("border %1; space %2; divide %3").arg(node.border).arg(node.space).arg(node.divide);
    lines << "static: " + sizesText(node.fixed);
    lines << QString("expansion: children=%1, width=%2, height=%3")
                 .arg(yes(node.expandChildren), yes(node.expandWidth), yes(node.expandHeight));
    lines << "dynamic: " + sizesText(node.dynamic) + QString(", cxPref=%1").arg(preferredWidth(node));
    lines << QString("active: cx=%1, cy=%2").arg(node.cx).arg(node.cy);
    lines << QString("scroll: %1=%2, %3=%4")
                 .arg(node.barX ? "horz" : "")
                 .arg(node.rangeX)
                 .arg(node.barY ? "vert" : "")
                 .arg(node.rangeY);
    lines << QString("align: X=%1, Y=%2").arg(alignsX[node.alignX], alignsY[node.alignY]);
    lines << (node.face.isEmpty() ? QString("font: no override supplied") : "font: " + node.face);
    return lines;
}

void print(node const& node, int indent)
{
    static char const* const marks[] = {"NULL", "PARAGRAPH", "LINEBREAK", "ALIGN:LEFT", "ALIGN:CENTER", "ALIGN:RIGHT"};
    auto line = [](int blanks, QString const& text) { std::printf("%*s%s\n", blanks, "", qUtf8Printable(text)); };
    for (QString const& text : linesOf(node))
        line(indent, text);
    line(indent, "{");
    for (entry const& each : node.children) {
        if (each.child)
            print(*each.child, indent + 2);
        else
            line(indent + 2, QString(marks[each.mark]) + "\n");
    }
    line(indent, "}");
}

} // namespace

} // namespace second

int main(int count, char** arguments)
{
    if (count != 4) {
        std::fprintf(stderr, "usage: %s PAGE.html WIDTH HEIGHT\n", arguments[0]);
        return 2;
    }
    QApplication application(count, arguments);
    auto root = second::buildPage(QString::fromLocal8Bit(arguments[1]));
    if (!root) {
        std::fprintf(stderr, "can not read %s\n", arguments[1]);
        return 1;
    }
    second::layOut(*root, std::atoi(arguments[2]), std::atoi(arguments[3]));
    second::print(*root, 0);
    return 0;
}
