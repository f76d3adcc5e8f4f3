// page/guihtmltext-places.h: the text of a run as a reader has it, without codes, and where each of its letters is.
#pragma once

#include "page/guihtmltext-piece.h"

#include <QRect>
#include <QString>
#include <vector>

class guiHtmlText;

/// The words of a run with its line breaks, independent of its width.
QString guiPlainText(guiHtmlText const& run);

/// The same with places, made for one moment: it knows nothing of a later layout. All offsets count units of text();
/// any number is allowed. GUI thread.
class guiTextPlaces
{
public:
    explicit guiTextPlaces(guiHtmlText& run);

    QString const& text() const { return m_text; }
    int length() const { return static_cast<int>(m_text.size()); }
    /// The letter's rectangle, relative to the node; empty where nothing is drawn.
    QRect rectAt(int offset) const;
    /// The letter under a point relative to the node; -1 for none.
    int offsetAt(QPoint at) const;
    /// The first unit of the line that the offset is in, and one past its last.
    std::pair<int, int> lineAt(int offset) const;

private:
    /// Text of one formatting in one line.
    struct piece
    {
        int first = 0;
        int count = 0;
        QRect place;
        guiTextChunk chunk;
        guiTextPiece drawn;
    };

    piece const* pieceAt(int offset) const;
    guiPieceRuler rulerOf(piece const& at) const;

    QString m_text;
    std::vector<piece> m_pieces;
    std::vector<int> m_lines; // the first unit of each line
};
