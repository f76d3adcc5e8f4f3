// page/guirareattributes.cpp: see guirareattributes.h.
#include "page/guirareattributes.h"

#include "page/guihtml.h"

#include <optional>

namespace {

constexpr unsigned short kEnd = 1; // behind each value; no page can hold it in an attribute that means anything

sstring written(guiRareAttribute which, sstring const& value)
{
    char const letter[] = {static_cast<char>(which), 0};
    char const end[] = {static_cast<char>(kEnd), 0};
    return sstring(letter) + value + sstring(end);
}

/// Where the value of one begins and ends in the string; none when it is not there.
struct valuePlace
{
    unsigned begin = 0;
    unsigned end = 0;
};

std::optional<valuePlace> find(sstring const& all, guiRareAttribute which)
{
    for (unsigned at = 0; at < all.getLength();) {
        unsigned end = at;
        while (end < all.getLength() && all[end] != kEnd)
            ++end;
        if (all[at] == static_cast<unsigned short>(which))
            return valuePlace{at + 1, end};
        at = end + 1;
    }
    return std::nullopt;
}

} // namespace

bool guiHasRareAttribute(guiHtml const* node, guiRareAttribute which)
{
    return node->hasString(kStringRare) && find(node->getString(kStringRare), which);
}

sstring guiRareAttributeOf(guiHtml const* node, guiRareAttribute which)
{
    if (!node->hasString(kStringRare))
        return {};
    sstring const all = node->getString(kStringRare);
    std::optional<valuePlace> const found = find(all, which);
    return found ? all.subString(found->begin, found->end - found->begin) : sstring();
}

void guiDropRareAttribute(guiHtml* node, guiRareAttribute which)
{
    sstring const all = node->getString(kStringRare);
    if (std::optional<valuePlace> const old = find(all, which))
        node->setString(kStringRare, all.subString(0, old->begin - 1) + all.subString(old->end + 1));
}

void guiSetRareAttribute(guiHtml* node, guiRareAttribute which, sstring const& value)
{
    guiDropRareAttribute(node, which);
    node->setString(kStringRare, node->getString(kStringRare) + written(which, value));
}
