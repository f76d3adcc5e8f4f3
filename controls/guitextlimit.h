// controls/guitextlimit.h: the most characters that the user may put into a field. A character is what the user sees as
// one: a letter with its accents, a flag, a family of emoji.
#pragma once

#include <QValidator>

/// How many characters the user sees.
qsizetype guiCharactersIn(QString const& text);

/// The first characters of `typed`, as many as may stand between two texts when they all may have `most` characters.
QString guiFitting(QString const& before, QString const& typed, QString const& after, qsizetype most);

/// Lets a field of one line grow to so many characters. What is pasted beyond is cut off; a longer text that the page
/// or script has set stays, and can be made shorter. GUI thread.
class guiTextLimit : public QValidator
{
    Q_OBJECT

public:
    guiTextLimit(QObject* parent, qsizetype most) : QValidator(parent), m_most(most) {}

    /// The text that is set next by the program, however long it is.
    void accept(QString const& text) { m_last = text; }
    State validate(QString& text, int& cursor) const override;

private:
    qsizetype m_most;
    mutable QString m_last; // what stands in the field
};
