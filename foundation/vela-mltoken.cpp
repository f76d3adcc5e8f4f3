// foundation/vela-mltoken.cpp: see the header. Longer openers stand before their beginnings, so the first match is the
// right one.
#include "vela-mltoken.h"

#include <string_view>

namespace {

struct Entry
{
    std::string_view text;
    unsigned long excluded; ///< contexts in which it is plain text
};

constexpr unsigned long opener = mlContextRaw | mlContextComment;
constexpr unsigned long tagOnly = mlContextRaw | mlContextComment | mlContextContent;

constexpr Entry entries[] = {{"", ~0ul},
                             {"<![CDATA[", opener},
                             {"<!--#", opener},
                             {"<!--", opener},
                             {"<!", opener},
                             {"</", opener},
                             {"<?", opener},
                             {"<", opener},
                             {"]]>", mlContextComment},
                             {"-->", mlContextRaw | mlContextContent},
                             {"/>", tagOnly},
                             {"?>", tagOnly},
                             {">", tagOnly},
                             {"=", tagOnly}};
constexpr int entryCount = sizeof entries / sizeof entries[0];

unsigned short upper(unsigned short unit)
{
    return unit >= 'a' && unit <= 'z' ? static_cast<unsigned short>(unit - 'a' + 'A') : unit;
}

bool beginsWith(unsigned short const* units, unsigned int count, std::string_view text)
{
    if (count < text.size())
        return false;
    for (unsigned int i = 0; i < text.size(); ++i)
        if (upper(units[i]) != static_cast<unsigned char>(text[i]))
            return false;
    return true;
}

} // namespace

char const* mlTokenText8(int type) { return type > 0 && type < entryCount ? entries[type].text.data() : ""; }

unsigned int mlTokenLength(int type)
{
    return type > 0 && type < entryCount ? static_cast<unsigned int>(entries[type].text.size()) : 0;
}

int mlMatchToken(unsigned short const* units, unsigned int count, unsigned long flags)
{
    // Nearly every "<" begins a tag: no need to try the longer openers.
    unsigned short const second = count > 1 ? units[1] : 0;
    int const first = count > 0 && units[0] == '<' ? (second == '!' || second == '/' || second == '?' ? 1 : mlTokenOpen)
                                                   : mlTokenCloseCData;
    for (int type = first; type < entryCount; ++type)
        if (!(entries[type].excluded & flags) && beginsWith(units, count, entries[type].text))
            return type;
    return -1;
}

bool mlMayBeginToken(unsigned short unit, unsigned long flags)
{
    for (int type = 1; type < entryCount; ++type)
        if (!(entries[type].excluded & flags) && entries[type].text[0] == unit)
            return true;
    return false;
}
