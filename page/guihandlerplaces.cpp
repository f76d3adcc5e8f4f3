// page/guihandlerplaces.cpp: see the header.
#include "page/guihandlerplaces.h"

#include "page/guieventprefix.h"

#include <utility>

namespace {

std::string placeOf(std::string const& file, unsigned line)
{
    std::string place;
    if (file.empty() && line == 0)
        return place;
    place += " in ";
    place += file.empty() ? "line " : file;
    if (line == 0)
        return place;
    if (!file.empty())
        place += ":";
    place += std::to_string(line);
    return place;
}

bool isSeparator(char16_t unit) { return unit == u'/' || unit == u'\\'; }

} // namespace

std::u16string guiHandlerIn(sstring const& link)
{
    unsigned const at = link.find(sstring(kEventPrefix));
    std::u16string name;
    if (at == sstring::npos)
        return name;
    for (unsigned i = at + sizeof(kEventPrefix) - 1; i < link.getLength() && !isSeparator(link[i]); ++i)
        name += static_cast<char16_t>(link[i]);
    return name;
}

void guiHandlerPlaces::add(std::string const& file, guiHandlerLines const& lines)
{
    for (auto const& [handler, line] : lines)
        m_places[handler] = {placeOf(file, line), false};
}

bool guiHandlerPlaces::take(std::u16string const& handler, std::string& place)
{
    auto& known = m_places[handler];
    place = known.text;
    return !std::exchange(known.isTaken, true);
}
