// tests/support/documentedlanguage.cpp: see documentedlanguage.h. In the tables `code` is a name, *this* a group.
#include "tests/support/documentedlanguage.h"

#include <fstream>
#include <gtest/gtest.h>
#include <regex>
#include <vector>

namespace {

using names = std::set<std::string>;

struct row
{
    std::string head; // the first cell
    std::string rest; // the second
};

/// The rows of the first table behind a heading, without its own heading.
std::vector<row> tableBehind(std::string const& file, std::string const& heading)
{
    static std::regex const kRow(R"(\| (.*?) \|(?: (.*?))?? \|.*)");
    std::ifstream document(file);
    std::string line;
    while (std::getline(document, line) && line != heading) {}
    std::vector<row> rows;
    while (std::getline(document, line) && !line.starts_with("#")) {
        std::smatch cells;
        if (std::regex_match(line, cells, kRow))
            rows.push_back({cells[1], cells[2]});
    }
    EXPECT_GT(rows.size(), 2u) << heading << " of " << file;
    if (!rows.empty())
        rows.erase(rows.begin());
    return rows;
}

/// Everything that stands between two of the marks.
names marked(std::string const& text, char mark)
{
    std::string const quoted = mark == '*' ? "\\*" : std::string(1, mark);
    std::regex const kMarked(quoted + "([^" + mark + "]+)" + quoted);
    names found;
    for (std::sregex_iterator at(text.begin(), text.end(), kMarked), end; at != end; ++at)
        found.insert((*at)[1]);
    return found;
}

/// The attributes in a cell, those of its groups included. Groups come before the groups that hold them.
names resolved(std::string const& cell, std::map<std::string, names> const& groups)
{
    names all = marked(cell, '`');
    for (std::string const& group : marked(cell, '*')) {
        auto const found = groups.find(group);
        EXPECT_TRUE(found != groups.end()) << "no group " << group;
        if (found != groups.end())
            all.insert(found->second.begin(), found->second.end());
    }
    return all;
}

/// "`<a>`, `<b>` in `<c>`, `<d>`": the elements that a row is about.
names elementsOf(std::string const& cell)
{
    std::size_t const in = cell.find(" in ");
    names const heads = marked(cell.substr(0, in), '`');
    if (in == std::string::npos)
        return heads;
    names all;
    for (std::string const& inner : heads)
        for (std::string const& around : marked(cell.substr(in), '`'))
            all.insert(inner + " in " + around);
    return all;
}

} // namespace

documentedLanguage readDocumentedLanguage(std::string const& file)
{
    std::map<std::string, names> groups;
    for (row const& each : tableBehind(file, "### Groups"))
        for (std::string const& name : marked(each.head, '*'))
            EXPECT_TRUE(groups.emplace(name, resolved(each.rest, groups)).second) << name;
    documentedLanguage all;
    all.unused = groups["unused"];
    for (row const& each : tableBehind(file, "### Tags"))
        for (std::string const& name : elementsOf(each.head))
            EXPECT_TRUE(all.elements.emplace(name, resolved(each.rest, groups)).second) << name;
    for (row const& each : tableBehind(file, "### Attributes"))
        for (std::string const& name : marked(each.head, '`'))
            EXPECT_TRUE(all.attributes.insert(name).second) << name;
    return all;
}
