// page/guihtmltext-buffer.h: the text of a run, kept small: a page has tens of thousands of runs, most of them a word.
#pragma once

#include "foundation/vela-string.h"

#include <QStringView>

#include <cstdint>

/// 16-bit units behind one pointer, with little spare room; none at all after shrink(). GUI thread.
class guiRunText
{
public:
    guiRunText() = default;
    guiRunText(guiRunText const& other) { *this = other; }
    guiRunText& operator=(guiRunText const& other);
    ~guiRunText();

    /// The string's text, which ends at its terminator.
    guiRunText& operator=(sstring const& text);
    guiRunText& operator+=(sstring const& text) { return append(sstoview(text)); }
    /// Text of ASCII.
    guiRunText& operator+=(char const* text);
    guiRunText& append(QStringView text);
    /// Adds a blank at the end, but before codes that open a formatting there (guiBlankPlace).
    void appendSpace();
    /// Gives spare room back.
    void shrink();

    unsigned getLength() const { return m_block ? m_block->length : 0; }
    /// The units without a copy; valid until the text changes.
    QStringView view() const
    {
        return m_block ? QStringView(unitsOf(m_block), static_cast<qsizetype>(m_block->length)) : QStringView();
    }
    sstring toString() const;

    /// A mark that goes with every change of the text.
    bool isMeasured() const { return m_block && m_block->isMeasured; }
    void setMeasured(bool isMeasured = true)
    {
        if (m_block)
            m_block->isMeasured = isMeasured;
    }

private:
    struct block
    {
        std::uint32_t length;
        std::uint32_t capacity : 31;
        std::uint32_t isMeasured : 1;
    };

    static QStringView sstoview(sstring const& text);
    static char16_t* unitsOf(block* at) { return reinterpret_cast<char16_t*>(at + 1); }
    /// The place of `count` more units at the end, which count as there already.
    char16_t* extend(std::size_t count);
    void resize(std::size_t capacity);

    block* m_block = nullptr;
};

/// Where a blank goes that is to stand at the end of a text: behind the last unit, but before a row of codes that open
/// a formatting there. A text of fewer than 5 units has no code.
qsizetype guiBlankPlace(QStringView text);
