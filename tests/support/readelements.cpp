// tests/support/readelements.cpp: see readelements.h. Every element is read without attributes, with all that there
// are, and with each alone, for what a reader asks may depend on what it has found.
#include "tests/support/readelements.h"

#include "controls/guihtmlread.h"
#include "page/guiattributes.h"
#include "page/guitagtable.h"

#include <gtest/gtest.h>

namespace {

/// An element in a page. `chooser`: the attribute that is part of its name, with its value.
struct element
{
    std::string tag;
    std::string chooser;

    std::string name() const { return "<" + tag + chooser + ">"; }
    std::string open(std::string const& attributes) const { return "<" + tag + chooser + attributes + ">"; }
    std::string close() const { return "</" + tag + ">"; }
};

std::string attribute(std::string_view name, std::string_view value = "1")
{
    return std::string(" ").append(name).append("=\"").append(value).append("\"");
}

std::vector<element> tableOf(std::string const& tag, char const* chooser, guiTagTable const& kinds)
{
    std::vector<element> all;
    for (std::string_view kind : kinds.words())
        all.push_back({tag, attribute(chooser, kind)});
    return all;
}

std::vector<element> knownElements()
{
    std::vector<element> all;
    for (std::string_view const tag : guiTags().words())
        if (tag != "input")
            all.push_back({std::string(tag), ""});
    for (element const& each : tableOf("input", "type", guiInputTypes()))
        all.push_back(each);
    for (element const& each : tableOf("object", "classid", guiObjectClasses()))
        all.push_back(each);
    return all;
}

std::string pageWith(element const& one, std::string const& attributes, std::string const& content)
{
    std::string const page = one.open(attributes) + content + one.close();
    return one.tag == "body" ? page : "<body>" + page + "</body>";
}

/// None, all and each alone, but those that are part of an element's name.
std::vector<std::string> attributeSets()
{
    std::vector<std::string> sets(2);
    for (std::string_view const name : guiAttributeNames())
        if (name != "type" && name != "classid") {
            sets.push_back(attribute(name));
            sets[1] += sets.back();
        }
    return sets;
}

attributeNames askedOf(element const& one)
{
    attributeNames names;
    for (std::string const& attributes : attributeSets())
        names.merge(askedWhileReading(pageWith(one, attributes, "text<other>"))[one.tag]);
    return names;
}

/// In an element without attributes, and in one with all of them.
attributeNames askedInside(element const& around, std::string const& tag)
{
    attributeNames names;
    std::vector<std::string> const sets = attributeSets();
    for (std::string const& attributes : sets)
        for (std::string const& outer : {sets[0], sets[1]})
            names.merge(
                askedWhileReading(pageWith(around, outer, "<" + tag + attributes + ">text</" + tag + ">"))[tag]);
    return names;
}

using elementMap = std::map<std::string, attributeNames>;

/// What an element is asked for by itself, whatever its type.
attributeNames askedAnywhere(elementMap const& found, std::string const& tag)
{
    attributeNames all;
    for (auto const& [name, attributes] : found)
        if (name.starts_with("<" + tag + ">") || name.starts_with("<" + tag + " "))
            all.insert(attributes.begin(), attributes.end());
    return all;
}

/// Adds the element `tag` inside of another one, if it is asked there for something that it is not asked for elsewhere.
void addInside(elementMap& all, element const& around, std::string const& tag, attributeNames const& elsewhere)
{
    attributeNames const quick = askedWhileReading(pageWith(around, "", "<" + tag + "></" + tag + ">"))[tag];
    if (tag == around.tag || std::includes(elsewhere.begin(), elsewhere.end(), quick.begin(), quick.end()))
        return;
    all["<" + tag + "> in " + around.name()] = askedInside(around, tag);
}

elementMap readAll()
{
    elementMap all;
    std::vector<element> const known = knownElements();
    for (element const& each : known)
        all[each.name()] = askedOf(each);
    elementMap const alone = all;
    std::set<std::string> tags = comparedElementNames();
    for (std::string_view const tag : guiTags().words())
        tags.emplace(tag);
    for (std::string const& tag : tags)
        for (element const& around : known)
            addInside(all, around, tag, askedAnywhere(alone, tag));
    return all;
}

} // namespace

elementMap const& readElements()
{
    static elementMap const all = [] {
        testing::internal::CaptureStderr(); // what authors of such pages are told
        elementMap found = readAll();
        testing::internal::GetCapturedStderr();
        return found;
    }();
    return all;
}
