// tests/foundation/markup.h: the sections of a page as one line of text, to compare in assertions.
#pragma once

#include "foundation/vela-mlparser.h"
#include "tests/foundation/streams.h"

/// The section and everything below it, such as `<b id=1>['x' ' y' #'data']`: a tag's opener, name and attributes, its
/// children in brackets, texts in quotation marks with their leading blank, character data after "#".
inline std::string dump(mlSection const* section)
{
    if (section->isText()) {
        std::string const text = text8(section->getData());
        return (section->isCData() ? "#" : "") + ((section->hasLeadingSpace() ? "' " : "'") + text + "'");
    }
    static char const* const openers[] = {"<", "<!", "<?", "<!--#"};
    std::string out = openers[section->getType()] + text8(section->getName());
    for (unsigned int i = 0; mlAttr* attr = section->getAttr(i); ++i)
        out += " " + text8(attr->getLHS()) + "=" + text8(attr->getRHS());
    out += ">";
    std::string children;
    for (unsigned int i = 0; mlSection* child = section->getChild(i); ++i)
        children += (i ? " " : "") + dump(child);
    return children.empty() ? out : out + "[" + children + "]";
}

inline std::string dump(mlParser& parser)
{
    std::string out;
    for (unsigned int i = 0; mlSection* section = parser.getSection(i); ++i)
        out += (i ? " " : "") + dump(section);
    return out;
}

/// The sections of a page; `fully` parses it at once instead of on demand.
inline std::string dumpOf(std::string const& page, bool fully = true)
{
    MemorySource source(page);
    mlParser parser(source.get());
    if (fully)
        parser.fullParse();
    return dump(parser);
}
