// page/guihtmltext-buffer.cpp: see guihtmltext-buffer.h.
#include "page/guihtmltext-buffer.h"

#include "foundation/vela-error.h"

#include <algorithm>
#include <cassert>
#include <cerrno>
#include <cstdlib>
#include <cstring>

namespace {

constexpr std::size_t kMostUnits = 0x7FFFFFFF;
// So that a block with its header fills the block sizes that allocators hand out.
constexpr std::size_t kUnitsPerStep = 8;

std::size_t roundedUp(std::size_t units) { return (units + kUnitsPerStep - 1) / kUnitsPerStep * kUnitsPerStep; }

bool hasPair(QStringView text, qsizetype at, char16_t which) { return text[at] == which && text[at + 1] == which; }

/// The start of the opening code that ends at `end`; `end` itself when none ends there. Reads no further back than that
/// code.
qsizetype startOfOpeningCode(QStringView text, qsizetype end)
{
    if (end < 4 || !hasPair(text, end - 2, u']'))
        return end;
    for (qsizetype at = end - 3; at-- > 0;) {
        if (hasPair(text, at, u'['))
            return text[at + 2] == u'/' ? end : at;
        if (hasPair(text, at, u']'))
            return end;
    }
    return end;
}

} // namespace

qsizetype guiBlankPlace(QStringView text)
{
    qsizetype at = text.size();
    if (at >= 5)
        for (qsizetype start = startOfOpeningCode(text, at); start != at; start = startOfOpeningCode(text, at))
            at = start;
    return at;
}

QStringView guiRunText::sstoview(sstring const& text)
{
    return QStringView(text.getUnicode(), static_cast<qsizetype>(strlen16(text.getUnicode())));
}

guiRunText::~guiRunText() { std::free(m_block); }

guiRunText& guiRunText::operator=(guiRunText const& other)
{
    if (this == &other)
        return *this;
    std::free(m_block);
    m_block = nullptr;
    return append(other.view());
}

guiRunText& guiRunText::operator=(sstring const& text)
{
    std::free(m_block);
    m_block = nullptr;
    return append(sstoview(text));
}

guiRunText& guiRunText::operator+=(char const* text)
{
    std::size_t const count = std::strlen(text);
    if (count)
        std::copy_n(text, count, extend(count));
    return *this;
}

guiRunText& guiRunText::append(QStringView text)
{
    if (!text.isEmpty())
        std::memcpy(extend(static_cast<std::size_t>(text.size())), text.utf16(),
                    static_cast<std::size_t>(text.size()) * sizeof(char16_t));
    return *this;
}

void guiRunText::appendSpace()
{
    qsizetype const at = guiBlankPlace(view());
    assert(at >= 0 && at <= view().size());
    qsizetype const behind = view().size() - at;
    extend(1);
    char16_t* place = unitsOf(m_block) + at;
    std::memmove(place + 1, place, static_cast<std::size_t>(behind) * sizeof(char16_t));
    *place = u' ';
}

void guiRunText::shrink()
{
    if (m_block && roundedUp(m_block->length) < m_block->capacity)
        resize(m_block->length);
}

sstring guiRunText::toString() const
{
    // The text has no terminator, so the length must be given.
    return m_block ? sstring(reinterpret_cast<unsigned short const*>(unitsOf(m_block)), 0, m_block->length) : sstring();
}

char16_t* guiRunText::extend(std::size_t count)
{
    std::size_t const length = getLength();
    if (count > kMostUnits - length)
        throw velaError(ENOMEM);
    if (!m_block || length + count > m_block->capacity)
        resize(std::min(kMostUnits, std::max(length + count, length + length / 2)));
    m_block->isMeasured = 0;
    m_block->length = static_cast<std::uint32_t>(length + count);
    assert(m_block->length <= m_block->capacity);
    return unitsOf(m_block) + length;
}

void guiRunText::resize(std::size_t capacity)
{
    bool const isNew = !m_block;
    std::size_t const room = std::min(roundedUp(capacity), kMostUnits);
    auto* resized = static_cast<block*>(std::realloc(m_block, sizeof(block) + room * sizeof(char16_t)));
    if (!resized)
        throw velaError(ENOMEM);
    m_block = resized;
    if (isNew)
        m_block->length = m_block->isMeasured = 0;
    m_block->capacity = static_cast<std::uint32_t>(room) & kMostUnits;
    assert(m_block->capacity >= m_block->length);
}
