// page/guirareread.cpp: see guirareread.h.
#include "page/guirareread.h"

#include "foundation/vela-mlparser.h"
#include "page/guihtml.h"
#include "page/guihtmlparser.h"
#include "page/guirareattributes.h"

#include <utility>

namespace {

struct rareName
{
    char const* name = nullptr;
    guiRareAttribute which = guiRareAttribute::kContextMenu;
    bool isData = false; // the page's own words, kept as they stand there
};

constexpr rareName kNames[] = {
    {"contextmenu", guiRareAttribute::kContextMenu}, {"oncontext", guiRareAttribute::kContext},
    {"onfocus", guiRareAttribute::kFocus},           {"onblur", guiRareAttribute::kBlur},
    {"onenter", guiRareAttribute::kEnter},           {"icon", guiRareAttribute::kIcon},
    {"noselect", guiRareAttribute::kNoSelect},       {"nofind", guiRareAttribute::kNoFind},
    {"alt", guiRareAttribute::kAlt, true},           {"role", guiRareAttribute::kRole},
    {"label", guiRareAttribute::kLabel, true},       {"value", guiRareAttribute::kValue, true}};

/// Other elements than a body keep their icons themselves, and other than a custom one their values; only a window has
/// a find bar.
bool mayHave(guiHtml* node, guiRareAttribute which)
{
    switch (which) {
    case guiRareAttribute::kIcon:
    case guiRareAttribute::kNoFind:
        return node->getType() == guiHtml::kTypeBase;
    case guiRareAttribute::kAlt:
        return node->getType() == guiHtml::kTypeImage;
    case guiRareAttribute::kRole:
    case guiRareAttribute::kValue:
        return node->getType() == guiHtml::kTypeCustom;
    default:
        return true;
    }
}

} // namespace

void guiPullRareAttributes(guiHtml* node, mlSection* section)
{
    bool isFirst = true;
    for (rareName const& each : kNames) {
        if (!mayHave(node, each.which) || !guiHtmlParser::hasAttr(section, each.name))
            continue;
        sstring const value =
            each.isData ? guiHtmlParser::pullData(section, each.name) : guiHtmlParser::pullAttr(section, each.name);
        if (value.getLength() == 0 && !each.isData)
            continue;
        if (std::exchange(isFirst, false))
            node->setString(kStringRare, sstring());
        guiSetRareAttribute(node, each.which, value);
    }
}
