// page/guihtmltext-buffer.h: the text of a run. It is kept small, since a page has tens of thousands of runs, most of
// them one word long.
#pragma once

#include "foundation/vela-string.h"

#include <QStringView>

#include <cstdint>

/// 16-bit units behind one pointer, with little unused capacity, and none after shrink(). GUI thread.
class guiRunText
{
public:
    guiRunText() = default;
    guiRunText(guiRunText const& other) { *this = other; }
    guiRunText& operator=(guiRunText const& other);
    ~guiRunText();

    /// The string's text up to its first zero.
    guiRunText& operator=(sstring const& text);
    guiRunText& operator+=(sstring const& text) { return append(sstoview(text)); }
    /// Text of ASCII.
    guiRunText& operator+=(char const* text);
    guiRunText& append(QStringView text);
    /// Adds a blank at the end, but before opening codes there (guiBlankPlace).
    void appendSpace();
    /// Frees unused capacity.
    void shrink();

    unsigned getLength() const { return m_block ? m_block->length : 0; }
    /// The units without a copy; valid until the text changes.
    QStringView view() const
    {
        return m_block ? QStringView(unitsOf(m_block), static_cast<qsizetype>(m_block->length)) : QStringView();
    }
    sstring toString() const;

    /// A flag that every change of the text clears.
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
    /// Lengthens the text by `count` units and returns the address of the first, for the caller to fill in.
    char16_t* extend(std::size_t count);
    void resize(std::size_t capacity);

    block* m_block = nullptr;
};

/// The position for a blank at the end of a text: after the last unit, but before opening codes there. A text of fewer
/// than 5 units has no code.
qsizetype guiBlankPlace(QStringView text);
