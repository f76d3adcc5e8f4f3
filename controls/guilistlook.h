// controls/guilistlook.h: how rows of a list and their cells look, beside what they hold. A row keeps it as one text,
// since few rows have any: parts behind each other with a "|" in between, each of a column's number (0: the whole row),
// a colour, the colour of the ground and "1" or "0" for bold, with a ";" in between; what is not said is empty.
#pragma once

#include <QString>
#include <QStringView>
#include <optional>

/// How a row or a cell is to look; what is not said is as usual. Any thread.
struct guiTextLook
{
    QString color; ///< as pages write colours, "" for none
    QString ground;
    std::optional<bool> isBold;

    bool isUsual() const { return color.isEmpty() && ground.isEmpty() && !isBold; }
};

/// Appends a part, unless it says nothing. `column` counts from 1; 0 for the row.
void guiAddLook(QString& looks, unsigned column, guiTextLook const& look);
/// How the cell looks, what the row says included; for column 0, how the row does.
guiTextLook guiLookIn(QStringView looks, unsigned column);
