// page/guispacedtext.h: text that keeps its white space and its lines, as programs and tables of letters need.
#pragma once

#include <QString>
#include <QStringView>

/// Turns the pieces of such a text, one after the other, into text for a run: blanks that never end a line, tabs as
/// blanks up to the next column that eight divides, and codes for line ends. A line end at the very beginning and those
/// at the very end do not count, since they stand there for the eye of who reads the page's source.
class guiSpacedText
{
public:
    QString add(QStringView piece);

private:
    void addUnit(QString& text, QChar unit);

    int m_column = 0;
    int m_breaks = 0; // line ends behind which nothing has come yet
    bool m_isAtStart = true;
};
