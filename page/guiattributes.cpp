// page/guiattributes.cpp: see the header.
#include "page/guiattributes.h"

#include "foundation/vela-string.h"
#include "page/guitagtable.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <unordered_map>
#include <utility>

namespace {

using kinds = std::unordered_map<std::string_view, guiAttributeKind>;

constexpr std::pair<std::string_view, guiAttributeKind> kAttributes[] = {
    {"accept-charset", kAttributeText},
    {"action", kAttributeLink},
    {"align", kAttributeText},
    {"alink", kAttributeColor},
    {"alt", kAttributeText},
    {"background", kAttributeText},
    {"bgcolor", kAttributeColor},
    {"bold", kAttributeText},
    {"border", kAttributeLength},
    {"bordercolor", kAttributeColor},
    {"bordercolordark", kAttributeColor},
    {"bordercolorlight", kAttributeColor},
    {"caption", kAttributeText},
    {"cellpadding", kAttributeLength},
    {"cellspacing", kAttributeLength},
    {"charset", kAttributeText},
    {"checked", kAttributeText},
    {"classid", kAttributeText},
    {"collapsed", kAttributeText},
    {"color", kAttributeColor},
    {"cols", kAttributeText},
    {"content", kAttributeText},
    {"contextmenu", kAttributeText},
    {"coords", kAttributeText},
    {"dir", kAttributeText},
    {"disabled", kAttributeText},
    {"edit", kAttributeText},
    {"editable", kAttributeText},
    {"enctype", kAttributeText},
    {"face", kAttributeText},
    {"for", kAttributeText},
    {"frameborder", kAttributeText},
    {"framespacing", kAttributeLength},
    {"gap", kAttributeNumber},
    {"group", kAttributeText},
    {"head", kAttributeText},
    {"height", kAttributeLength},
    {"high", kAttributeText},
    {"href", kAttributeLink},
    {"http-equiv", kAttributeText},
    {"icon", kAttributeText},
    {"item", kAttributeText},
    {"key", kAttributeText},
    {"label", kAttributeText},
    {"lang", kAttributeText},
    {"link", kAttributeColor},
    {"list", kAttributeText},
    {"loop", kAttributeText},
    {"looped", kAttributeText},
    {"low", kAttributeText},
    {"margin", kAttributeNumber},
    {"marks", kAttributeText},
    {"max", kAttributeText},
    {"maxheight", kAttributeLength},
    {"maxlength", kAttributeNumber},
    {"maxwidth", kAttributeLength},
    {"method", kAttributeText},
    {"min", kAttributeText},
    {"minheight", kAttributeLength},
    {"minwidth", kAttributeLength},
    {"multiple", kAttributeText},
    {"name", kAttributeText},
    {"nofind", kAttributeText},
    {"noresize", kAttributeText},
    {"noselect", kAttributeText},
    {"noshade", kAttributeText},
    {"novalidate", kAttributeText},
    {"onactivate", kAttributeAction},
    {"onblur", kAttributeAction},
    {"onchange", kAttributeAction},
    {"onclick", kAttributeAction},
    {"oncontext", kAttributeAction},
    {"onenter", kAttributeAction},
    {"onexpand", kAttributeAction},
    {"onfocus", kAttributeAction},
    {"onheader", kAttributeAction},
    {"onmousedown", kAttributeAction},
    {"onmouseout", kAttributeAction},
    {"onmouseover", kAttributeAction},
    {"onmouseup", kAttributeAction},
    {"onrename", kAttributeAction},
    {"onselect", kAttributeAction},
    {"onsort", kAttributeAction},
    {"open", kAttributeText},
    {"optimum", kAttributeText},
    {"order", kAttributeNumber},
    {"parent", kAttributeText},
    {"pattern", kAttributeText},
    {"pause", kAttributeText},
    {"paused", kAttributeText},
    {"placeholder", kAttributeText},
    {"readonly", kAttributeText},
    {"required", kAttributeText},
    {"reveal", kAttributeText},
    {"role", kAttributeText},
    {"rows", kAttributeText},
    {"scrolling", kAttributeText},
    {"selected", kAttributeText},
    {"shape", kAttributeText},
    {"size", kAttributeNumber},
    {"sort", kAttributeText},
    {"src", kAttributeText},
    {"start", kAttributeNumber},
    {"step", kAttributeText},
    {"tabindex", kAttributeNumber},
    {"target", kAttributeText},
    {"text", kAttributeText},
    {"title", kAttributeText},
    {"toggle", kAttributeText},
    {"type", kAttributeText},
    {"unchecked", kAttributeText},
    {"usemap", kAttributeText},
    {"usesystemfont", kAttributeText},
    {"valign", kAttributeText},
    {"value", kAttributeText},
    {"vertical", kAttributeText},
    {"width", kAttributeLength},
    {"wrap", kAttributeText},
    {"zebra", kAttributeText},
};

kinds const& attributes()
{
    static kinds const all(std::begin(kAttributes), std::end(kAttributes));
    return all;
}

/// "text2" is an attribute like "text".
std::string_view withoutNumber(std::string_view name)
{
    while (name.size() > 1 && name.back() >= '0' && name.back() <= '9')
        name.remove_suffix(1);
    return name;
}

} // namespace

bool guiIsTextElement(std::string_view tag)
{
    guiTagTable::entry const* const known = guiTags().find(sstring(std::string(tag).c_str()));
    return tag == "html" || tag == "body" || (known && (known->traits & kTagText));
}

bool guiIsDocumentAttribute(std::string_view name)
{
    static constexpr std::string_view kNames[] = {"accesskey", "charset", "cite",    "class",   "datetime", "headers",
                                                  "hreflang",  "id",      "lang",    "rel",     "rev",      "role",
                                                  "rules",     "scope",   "summary", "viewbox", "vlink",    "xmlns"};
    static constexpr std::string_view kPrefixes[] = {"aria-", "data-", "item", "xml:", "xmlns:"};
    auto const begins = [name](std::string_view prefix) { return name.substr(0, prefix.size()) == prefix; };
    return std::find(std::begin(kNames), std::end(kNames), name) != std::end(kNames) ||
           std::any_of(std::begin(kPrefixes), std::end(kPrefixes), begins);
}

guiAttributeKind const* guiFindAttribute(std::string_view tag, std::string_view name)
{
    static constexpr guiAttributeKind kColor = kAttributeColor;
    if (tag == "body" && name == "text")
        return &kColor;
    static constexpr guiAttributeKind kText = kAttributeText;
    if (name == "id" && (tag == "datalist" || guiIsTextElement(tag)))
        return &kText;
    auto const found = attributes().find(name);
    if (found != attributes().end())
        return &found->second;
    std::string_view const plain = withoutNumber(name);
    static constexpr std::string_view kNumbered[] = {"text", "width", "align", "color", "bgcolor", "bold"};
    bool const isNumbered = plain.size() < name.size() &&
                            std::find(std::begin(kNumbered), std::end(kNumbered), plain) != std::end(kNumbered);
    return isNumbered ? &attributes().at(plain) : nullptr;
}

std::vector<std::string_view> guiAttributeNames()
{
    std::vector<std::string_view> names;
    for (auto const& [name, kind] : attributes())
        names.push_back(name);
    std::sort(names.begin(), names.end());
    return names;
}
