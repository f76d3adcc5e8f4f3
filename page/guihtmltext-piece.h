// page/guihtmltext-piece.h: a piece of a line as it is drawn, and where in it each character stands.
#pragma once

#include "page/guihtmltext-lines.h"

#include <QString>
#include <QStringView>

#include <utility>
#include <vector>

class QPainter;
class QPointF;

/// Draws a piece with the painter's pen; `at` is on the base line, `run` the text of the whole run. GUI thread.
void guiDrawPiece(QPainter& painter, guiTextChunk const& chunk, guiTextPiece const& piece, QPointF at, QStringView run);

/// Where the characters of a piece stand, in pixels from its left end. Letters that are written from right to left
/// stand in their visual order. GUI thread.
class guiPieceRuler
{
public:
    using span = std::pair<double, double>; ///< left and right end

    /// `text`: what the piece holds.
    guiPieceRuler(guiTextChunk const& chunk, guiTextPiece const& piece, QStringView text);

    /// The place of the boundary before the unit, 0 to the text's length.
    double toX(qsizetype unit) const;
    /// The boundary between characters that is nearest.
    qsizetype toUnit(double x) const;
    /// The first unit of the character that is there; that of the nearest one beside the piece.
    qsizetype unitAt(double x) const;
    /// What the units from `from` up to `to` cover, from left to right; touching spans are one.
    std::vector<span> spansOf(qsizetype from, qsizetype to) const;

private:
    struct character
    {
        qsizetype from = 0;
        qsizetype to = 0;
        double start = 0; // where reading enters it, which is on its right for letters written from the right
        double end = 0;
    };

    void addWords(guiTextChunk const& chunk, QString const& text);
    void addLaidOut(guiTextChunk const& chunk, QString const& text, qsizetype first, double left, double width);

    std::vector<character> m_characters; // in order of the text
    bool m_isFromTheRight = false;
};
