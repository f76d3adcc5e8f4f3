// fuzz/tagmutator.cpp: a mutator that knows markup. Random changes of bytes seldom nest two tables or repeat a cell;
// this one splits the text at its tags and inserts, removes, repeats, wraps and moves whole tags.

#include "fuzz/bytes.h"

#include <algorithm>
#include <string>
#include <vector>

extern "C" size_t LLVMFuzzerMutate(uint8_t* bytes, size_t size, size_t limit);

namespace {

// The same as in page.dict, which the fuzzing engine reads.
char const* const kTags[] = {
    "a",       "address",  "area",  "b",      "body",   "br",    "cite",     "center",  "dd",     "div",   "dl",
    "doctype", "dt",       "em",    "font",   "form",   "frame", "frameset", "h1",      "head",   "hr",    "html",
    "i",       "img",      "input", "li",     "map",    "menu",  "messages", "noframe", "object", "ol",    "option",
    "p",       "param",    "pre",   "script", "select", "span",  "strong",   "style",   "sup",    "table", "tbody",
    "td",      "textarea", "th",    "title",  "tr",     "u",     "ul",       "var"};
char const* const kAttributes[] = {"action",
                                   "align",
                                   "alink",
                                   "alt",
                                   "background",
                                   "bgcolor",
                                   "border",
                                   "bordercolor",
                                   "bordercolordark",
                                   "bordercolorlight",
                                   "caption",
                                   "cellpadding",
                                   "cellspacing",
                                   "charset",
                                   "checked",
                                   "classid",
                                   "collapsed",
                                   "color",
                                   "cols",
                                   "content",
                                   "coords",
                                   "disabled",
                                   "edit",
                                   "enter",
                                   "escape",
                                   "face",
                                   "frameborder",
                                   "framespacing",
                                   "group",
                                   "height",
                                   "href",
                                   "link",
                                   "loop",
                                   "looped",
                                   "maxheight",
                                   "maxlength",
                                   "maxwidth",
                                   "minheight",
                                   "minwidth",
                                   "multiple",
                                   "name",
                                   "noresize",
                                   "noshade",
                                   "onchange",
                                   "onclick",
                                   "onmousedown",
                                   "onmouseout",
                                   "onmouseover",
                                   "onmouseup",
                                   "onselect",
                                   "parent",
                                   "pause",
                                   "paused",
                                   "rows",
                                   "scrolling",
                                   "selected",
                                   "shape",
                                   "size",
                                   "src",
                                   "tabindex",
                                   "target",
                                   "text",
                                   "text1",
                                   "text2",
                                   "text3",
                                   "title",
                                   "type",
                                   "unchecked",
                                   "usemap",
                                   "usesystemfont",
                                   "valign",
                                   "value",
                                   "vlink",
                                   "width"};
char const* const kValues[] = {"0",
                               "1",
                               "5",
                               "100",
                               "50%",
                               "100%",
                               "1000%",
                               "4000000000%",
                               "2147483647",
                               "-1",
                               "*",
                               "2*",
                               "*,*",
                               "50%,*",
                               "100,*",
                               "left",
                               "center",
                               "right",
                               "top",
                               "middle",
                               "bottom",
                               "yes",
                               "no",
                               "on",
                               "off",
                               "auto",
                               "fixed",
                               "true",
                               "#FF0000",
                               "red",
                               "event://a/b",
                               "{_self}x.html",
                               "{a}#b",
                               "#b",
                               "x.png",
                               "x.avi",
                               "text",
                               "password",
                               "file",
                               "radio",
                               "checkbox",
                               "radiobutton",
                               "submit",
                               "reset",
                               "button",
                               "image",
                               "hidden",
                               "flexlist",
                               "checklist",
                               "listview",
                               "treeview",
                               "menu",
                               "None",
                               "rect",
                               "circle",
                               "poly",
                               "0,0,10,10",
                               "utf-8",
                               "65536",
                               "99999999999999999999",
                               "a",
                               "X",
                               "*EMPTYGROUPBOX*",
                               "a|2|b|3|c",
                               "|2|WIDTH=50",
                               ""};
char const* const kTexts[] = {"word",
                              "several words in a row",
                              "&nbsp;",
                              "[[b]]bold[[/b]]",
                              "&eacute;",
                              "averyveryverylongwordthatdoesnotfitanywhereatall",
                              "&#65;",
                              "<!-- comment -->",
                              "<![CDATA[data]]>",
                              "\xE6\xBC\xA2\xE5\xAD\x97",
                              "\xF0\x9F\x98\x80",
                              "\n"};

template <size_t N>
std::string oneOf(char const* const (&words)[N], FuzzRandom& random)
{
    return words[random.below(N)];
}

std::string makeAttribute(FuzzRandom& random)
{
    std::string const name = oneOf(kAttributes, random).insert(0, 1, ' ');
    return random.oneIn(8) ? name : name + "=\"" + oneOf(kValues, random) + "\"";
}

std::string makeTag(std::string const& name, FuzzRandom& random)
{
    std::string tag = "<" + name;
    for (unsigned i = random.below(4); i != 0; --i)
        tag += makeAttribute(random);
    return tag + ">";
}

/// Tags and the text between them.
std::vector<std::string> split(std::string const& markup)
{
    std::vector<std::string> parts;
    for (size_t at = 0; at < markup.size();) {
        size_t end = markup[at] == '<' ? markup.find('>', at) : markup.find('<', at);
        end = end == std::string::npos ? markup.size() : end + (markup[at] == '<');
        parts.push_back(markup.substr(at, end - at));
        at = end;
    }
    return parts;
}

using Parts = std::vector<std::string>;

struct Range
{
    Parts::difference_type first;
    Parts::difference_type last;
};

Range anyRange(Parts const& parts, FuzzRandom& random)
{
    auto const size = static_cast<unsigned>(parts.size());
    unsigned const first = random.below(size + 1);
    return {first, first + random.below(std::min(size - first, 12u) + 1)};
}

void insert(Parts& parts, FuzzRandom& random, std::string const& what)
{
    parts.insert(parts.begin() + random.below(static_cast<unsigned>(parts.size()) + 1), what);
}

void wrap(Parts& parts, FuzzRandom& random)
{
    std::string const name = oneOf(kTags, random);
    Range const range = anyRange(parts, random);
    parts.insert(parts.begin() + range.last, "</" + name + ">");
    parts.insert(parts.begin() + range.first, makeTag(name, random));
}

void repeat(Parts& parts, FuzzRandom& random)
{
    Range const range = anyRange(parts, random);
    Parts const copy(parts.begin() + range.first, parts.begin() + range.last);
    for (unsigned times = random.below(3) + 1; times != 0; --times)
        parts.insert(parts.begin() + range.first, copy.begin(), copy.end());
}

void move(Parts& parts, FuzzRandom& random)
{
    Range const range = anyRange(parts, random);
    Parts const taken(parts.begin() + range.first, parts.begin() + range.last);
    parts.erase(parts.begin() + range.first, parts.begin() + range.last);
    auto const to = parts.begin() + random.below(static_cast<unsigned>(parts.size()) + 1);
    parts.insert(to, taken.begin(), taken.end());
}

void addAttribute(Parts& parts, FuzzRandom& random)
{
    for (unsigned tries = 8; tries != 0 && !parts.empty(); --tries) {
        std::string& part = parts[random.below(static_cast<unsigned>(parts.size()))];
        if (part.size() < 3 || part[0] != '<' || part[1] == '/' || part.back() != '>')
            continue;
        part.insert(part.size() - 1, makeAttribute(random));
        return;
    }
}

void change(Parts& parts, FuzzRandom& random)
{
    switch (random.below(8)) {
    case 0:
        return insert(parts, random, oneOf(kTexts, random));
    case 1:
        return insert(parts, random, makeTag(oneOf(kTags, random), random));
    case 2:
        return insert(parts, random, "</" + oneOf(kTags, random) + ">");
    case 3:
        return repeat(parts, random);
    case 4:
        return move(parts, random);
    case 5: {
        Range const range = anyRange(parts, random);
        parts.erase(parts.begin() + range.first, parts.begin() + range.last);
        return;
    }
    case 6:
        return addAttribute(parts, random);
    default:
        return wrap(parts, random);
    }
}

} // namespace

extern "C" size_t LLVMFuzzerCustomMutator(uint8_t* bytes, size_t size, size_t limit, unsigned seed)
{
    FuzzRandom random(seed);
    if (random.oneIn(3))
        return LLVMFuzzerMutate(bytes, size, limit);
    Parts parts = split(std::string(reinterpret_cast<char const*>(bytes), size));
    for (unsigned i = random.below(3) + 1; i != 0; --i)
        change(parts, random);
    std::string text;
    for (std::string const& part : parts)
        text += part;
    text.resize(std::min(text.size(), limit));
    std::copy(text.begin(), text.end(), bytes);
    return text.size();
}
