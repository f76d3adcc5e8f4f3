// page/guirareattributes.cpp: see guirareattributes.h.
#include "page/guirareattributes.h"

#include "foundation/vela-mlparser.h"
#include "page/guihtml.h"
#include "page/guihtmlparser.h"

namespace {

struct rareName
{
    char const* name;
    guiRareAttribute which;
};

constexpr rareName kNames[] = {
    {"contextmenu", guiRareAttribute::kContextMenu}, {"oncontext", guiRareAttribute::kContext},
    {"onfocus", guiRareAttribute::kFocus},           {"onblur", guiRareAttribute::kBlur},
    {"onenter", guiRareAttribute::kEnter},           {"icon", guiRareAttribute::kIcon},
    {"noselect", guiRareAttribute::kNoSelect},       {"nofind", guiRareAttribute::kNoFind}};

constexpr unsigned short kEnd = 1; // behind each value; no page can hold it in an attribute that means anything

/// Other elements than a body keep their icons themselves, and only a window has a find bar.
bool mayHave(guiHtml* node, guiRareAttribute which)
{
    bool const isOfWindow = which == guiRareAttribute::kIcon || which == guiRareAttribute::kNoFind;
    return !isOfWindow || node->getType() == guiHtml::kTypeBase;
}

} // namespace

void guiPullRareAttributes(guiHtml* node, mlSection* section)
{
    sstring all = sstring::unallocated();
    for (rareName const& each : kNames) {
        if (!mayHave(node, each.which) || !guiHtmlParser::hasAttr(section, each.name))
            continue;
        sstring const value = guiHtmlParser::pullAttr(section, each.name);
        if (value.getLength() == 0)
            continue;
        char const letter[] = {static_cast<char>(each.which), 0};
        char const end[] = {static_cast<char>(kEnd), 0};
        all += sstring(letter) + value + sstring(end);
    }
    if (all.getLength() != 0)
        node->setString(kStringRare, all);
}

sstring guiRareAttributeOf(guiHtml const* node, guiRareAttribute which)
{
    if (!node->hasString(kStringRare))
        return {};
    sstring const all = node->getString(kStringRare);
    for (unsigned at = 0; at < all.getLength();) {
        unsigned end = at;
        while (end < all.getLength() && all[end] != kEnd)
            ++end;
        if (all[at] == static_cast<unsigned short>(which))
            return all.subString(at + 1, end - at - 1);
        at = end + 1;
    }
    return {};
}
