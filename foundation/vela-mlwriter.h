// foundation/vela-mlwriter.h: writes sections as markup again.
#pragma once

#include <string_view>

#include "foundation/vela-array.h"
#include "foundation/vela-mlsection.h"

/// Collects markup. Reading what was written gives the same sections, as far as the markup can say it: an ampersand is
/// written as it is.
class mlWriter
{
public:
    /// One item on a line from now on, the first `level` levels deep.
    void useLines(unsigned int level)
    {
        m_isFormatted = true;
        m_depth = level;
    }
    /// The section and everything below it.
    void writeTree(mlSection const& top);
    void writeAttr(mlAttr const& attr);
    /// What was written, in the locale of the pool.
    sstring result(mlPool const& pool) const;

private:
    void write(std::string_view text) { m_units.insert(m_units.end(), text.begin(), text.end()); }
    void write(mlName const* name);
    void writeEscaped(unsigned short const* text, unsigned int length, std::string_view special);
    void writeAttrName(mlName const* name);
    void writeText(mlSection const& section);
    bool writeOpening(mlSection const& section);
    void writeClosing(mlSection const& section);
    void beginLine();
    void endLine();

    velaArray<unsigned short> m_units;
    bool m_isFormatted = false;
    unsigned int m_depth = 0; // levels
};
