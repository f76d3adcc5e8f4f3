// page/guihtmltext-context.cpp: see guihtmltext-context.h.
#include "page/guihtmltext-context.h"

#include <QString>

#include <algorithm>

namespace {

// Below are Latin letters, which every font for text has.
constexpr char16_t kFirstDoubtful = 0x250;

bool isDoubtful(QChar unit) { return unit.unicode() >= kFirstDoubtful; }

QStringView characterAt(QStringView text, qsizetype at)
{
    bool const isPair = text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
    return text.mid(at, isPair ? 2 : 1);
}

bool hasScript(QStringView character) { return guiScriptOf(character) > QChar::Script_Common; }

QStringView firstLetter(QStringView text)
{
    for (qsizetype at = 0; at < text.size(); ++at)
        if (QStringView const character = characterAt(text, at); hasScript(character))
            return character;
    return {};
}

QStringView lastLetter(QStringView text)
{
    for (qsizetype at = text.size() - 1; at >= 0; --at)
        if (QStringView const character = characterAt(text, at); hasScript(character))
            return character;
    return {};
}

} // namespace

QStringView guiLetterInForce(guiTextFont& font, QStringView text, qsizetype start, qsizetype end)
{
    constexpr qsizetype kFar = 256; // what stands further away is not looked at for each piece
    if (!firstLetter(text.mid(start, end - start)).isEmpty())
        return {};
    qsizetype const from = std::max<qsizetype>(start - kFar, 0);
    QStringView letter = lastLetter(text.mid(from, start - from));
    if (letter.isEmpty() && from == 0)
        letter = firstLetter(text.mid(end, kFar));
    bool const isOther =
        !letter.isEmpty() && isDoubtful(letter.front()) && font.blankAfter(letter) != font.blankAdvance();
    return isOther ? letter : QStringView();
}

guiTextContext::guiTextContext(guiTextFont& font, QStringView text)
    : m_font(font), m_isPlain(std::none_of(text.begin(), text.end(), isDoubtful))
{
    if (!m_isPlain)
        enter(firstLetter(text));
}

void guiTextContext::enter(QStringView letter)
{
    if (letter.isEmpty())
        return;
    int const blank = isDoubtful(letter.front()) ? m_font.blankAfter(letter) : m_font.blankAdvance();
    bool const isOther = blank != m_font.blankAdvance();
    m_letter = isOther ? letter : QStringView();
    m_otherBlank = isOther ? blank : 0;
}

int guiTextContext::wordAdvance(QStringView word)
{
    if (word.isEmpty())
        return 0;
    if (m_isPlain)
        return m_font.wordAdvance(word);
    bool const isPlaced = !m_letter.isEmpty() && !hasScript(characterAt(word, 0));
    int const advance = isPlaced ? m_font.wordAdvanceAfter(m_letter, word) : m_font.wordAdvance(word);
    enter(lastLetter(word));
    return advance;
}

void guiTextContext::pass(QStringView word)
{
    if (!m_isPlain)
        enter(lastLetter(word));
}
