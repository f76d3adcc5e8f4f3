// foundation/vela-mlwriter.cpp: see the header.

#include "foundation/vela-mlwriter.h"

#include "foundation/vela-error.h"
#include "foundation/vela-mltoken.h"

#include <algorithm>
#include <cassert>
#include <cerrno>

namespace {

constexpr unsigned int kBlanksPerLevel = 2;
/// Deeper levels are not indented further; otherwise the size of a deep tree's text would grow with the square of its
/// depth.
constexpr unsigned int kDeepestIndent = 40;
constexpr size_t kMaxUnits = 0x7FFFFFFF;

constexpr std::string_view kOpeners[] = {"<", "<!", "<?", "<!--#"};
constexpr std::string_view kClosers[] = {">", ">", "?>", "-->"};

std::string_view escapeOf(unsigned short unit) { return unit == '<' ? "&lt;" : unit == '>' ? "&gt;" : "&quot;"; }

/// Whether the name can be written without quotation marks.
bool isPlainWord(mlName const* name)
{
    unsigned short const* units = name->units();
    if (name->length == 0 || units[0] == '"' || units[0] == '\'')
        return false;
    for (unsigned int i = 0; i < name->length; ++i) {
        bool const isBlank = units[i] == ' ' || units[i] == '\t' || units[i] == '\r' || units[i] == '\n';
        if (isBlank || mlMatchToken(units + i, name->length - i, kContextTag) >= 0)
            return false;
    }
    return true;
}

} // namespace

void mlWriter::write(mlName const* name)
{
    if (name)
        m_units.insert(m_units.end(), name->units(), name->units() + name->length);
}

void mlWriter::writeEscaped(unsigned short const* text, unsigned int length, std::string_view special)
{
    unsigned short const* const end = text + length;
    while (text != end) {
        unsigned short const* stop = std::find_first_of(text, end, special.begin(), special.end());
        m_units.insert(m_units.end(), text, stop);
        if (stop == end)
            return;
        write(escapeOf(*stop));
        text = stop + 1;
    }
}

void mlWriter::writeAttrName(mlName const* name)
{
    if (!name || isPlainWord(name))
        return write(name);
    write("\"");
    writeEscaped(name->units(), name->length, "\"");
    write("\"");
}

void mlWriter::writeAttr(mlAttr const& attr)
{
    writeAttrName(attr.m_name);
    write("=\"");
    writeEscaped(attr.m_value.units(), attr.m_value.length, "\"");
    write("\"");
}

void mlWriter::writeText(mlSection const& section)
{
    sstring const data = section.getData();
    if (section.hasLeadingSpace())
        write(" ");
    if (section.isCData()) {
        write("<![CDATA[");
        m_units.insert(m_units.end(), data.getUnicode(), data.getUnicode() + data.getLength());
        write("]]>");
    } else if (data.getLength() == 1 && data.getUnicode()[0] == ' ')
        write("&nbsp;");
    else
        writeEscaped(data.getUnicode(), data.getLength(), "<>\"");
}

/// Returns whether the section has content, so that its children and its closing tag must follow.
bool mlWriter::writeOpening(mlSection const& section)
{
    beginLine();
    bool hasContent = false;
    if (section.isText())
        writeText(section);
    else if (section.isTag()) {
        assert(static_cast<size_t>(section.getType()) < std::size(kOpeners));
        write(kOpeners[section.getType()]);
        write(section.m_tag.name);
        for (unsigned int i = 0; mlAttr* attr = section.getAttr(i); ++i) {
            write(" ");
            writeAttr(*attr);
        }
        hasContent = section.getType() == kTagOrdinary && section.getChild(0);
        write(section.getType() == kTagOrdinary && !hasContent ? "/>" : kClosers[section.getType()]);
    }
    endLine();
    return hasContent;
}

void mlWriter::writeClosing(mlSection const& section)
{
    assert(section.isTag());
    beginLine();
    write("</");
    write(section.m_tag.name);
    write(">");
    endLine();
}

void mlWriter::beginLine()
{
    if (m_isFormatted)
        m_units.insert(m_units.end(), std::min(m_depth, kDeepestIndent) * kBlanksPerLevel, ' ');
    if (m_units.size() > kMaxUnits)
        throw velaError(ENOMEM);
}

void mlWriter::endLine()
{
    if (m_isFormatted)
        write("\n");
}

void mlWriter::writeTree(mlSection const& top)
{
    struct Level
    {
        mlSection const* section;
        unsigned int nextChild;
    };
    velaArray<Level> path;
    if (writeOpening(top))
        path.push_back({&top, 0});
    while (!path.empty()) {
        unsigned int const below = m_depth + static_cast<unsigned int>(path.size());
        mlSection const* child = path.back().section->getChild(path.back().nextChild++);
        unsigned int const outer = m_depth;
        m_depth = child ? below : below - 1;
        if (child && writeOpening(*child))
            path.push_back({child, 0});
        else if (!child) {
            writeClosing(*path.back().section);
            path.pop_back();
        }
        m_depth = outer;
    }
}

sstring mlWriter::result(mlPool const& pool) const
{
    if (m_units.size() > kMaxUnits)
        throw velaError(ENOMEM);
    return pool.makeString(m_units.data(), static_cast<unsigned int>(m_units.size()));
}
