// foundation/vela-mlwriter.h: writes sections as markup.
#pragma once

#include "foundation/vela-array.h"
#include "foundation/vela-mlsection.h"

#include <string_view>

/// Builds markup that parses to the same sections again, except that ampersands are not escaped.
class mlWriter
{
public:
    /// Switches to one item per line, the outermost indented by `level` levels.
    void useLines(unsigned int level)
    {
        m_isFormatted = true;
        m_depth = level;
    }
    /// Writes the section and everything below it.
    void writeTree(mlSection const& top);
    void writeAttr(mlAttr const& attr);
    /// The markup so far, in the pool's locale.
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
