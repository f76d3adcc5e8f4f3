// controls/guilistlook.cpp: see guilistlook.h.
#include "controls/guilistlook.h"

#include <QStringTokenizer>
#include <algorithm>

namespace {

/// The part without its column laid over what is known.
void overlay(guiTextLook& look, QStringView part)
{
    qsizetype const ground = part.indexOf(u';') + 1;
    qsizetype const bold = part.indexOf(u';', ground) + 1;
    if (ground == 0 || bold == 0)
        return;
    if (QStringView const color = part.left(ground - 1); !color.isEmpty())
        look.color = color.toString();
    if (QStringView const color = part.mid(ground, bold - 1 - ground); !color.isEmpty())
        look.ground = color.toString();
    if (bold < part.size())
        look.isBold = part[bold] == u'1';
}

} // namespace

void guiAddLook(QString& looks, unsigned column, guiTextLook const& look)
{
    if (look.isUsual())
        return;
    QString const bold = look.isBold ? QString(*look.isBold ? "1" : "0") : QString();
    if (!looks.isEmpty())
        looks += u'|';
    looks += QString("%1;%2;%3;%4").arg(QString::number(column), look.color, look.ground, bold);
}

guiTextLook guiLookIn(QStringView looks, unsigned column)
{
    guiTextLook row;
    guiTextLook cell;
    for (QStringView const part : QStringTokenizer{looks, u'|', Qt::SkipEmptyParts}) {
        qsizetype const end = std::max<qsizetype>(0, part.indexOf(u';'));
        bool isNumber = false;
        unsigned const number = part.left(end).toUInt(&isNumber);
        if (isNumber && (number == 0 || number == column))
            overlay(number == 0 ? row : cell, part.mid(end + 1));
    }
    return {cell.color.isEmpty() ? row.color : cell.color, cell.ground.isEmpty() ? row.ground : cell.ground,
            cell.isBold ? cell.isBold : row.isBold};
}
