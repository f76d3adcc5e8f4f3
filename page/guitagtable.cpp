// page/guitagtable.cpp: see guitagtable.h.
#include "page/guitagtable.h"

#include "foundation/vela-string.h"
#include "page/guifoldedword.h"

#include <algorithm>
#include <cassert>

namespace {

[[maybe_unused]] bool isLowerAscii(std::string_view word)
{
    return std::all_of(word.begin(), word.end(), [](char c) { return c > ' ' && c < 0x7F && (c < 'A' || c > 'Z'); });
}

} // namespace

void guiTagTable::add(char const* word, guiTagReader reader, unsigned traits)
{
    std::string_view const name(word);
    assert(!name.empty() && name.size() <= guiFoldedWord::kLongest && isLowerAscii(name));
    assert(reader);
    [[maybe_unused]] bool const isNew = m_entries.emplace(name, entry{reader, traits}).second;
    assert(isNew);
}

guiTagTable::entry const* guiTagTable::find(unsigned short const* units, unsigned length) const
{
    guiFoldedWord const word(units, length);
    auto found = m_entries.find(word.view());
    return found == m_entries.end() ? nullptr : &found->second;
}

guiTagTable::entry const* guiTagTable::find(sstring const& word) const
{
    return find(word.getUnicode(), word.getLength());
}

std::vector<std::string_view> guiTagTable::words() const
{
    std::vector<std::string_view> sorted;
    for (auto const& each : m_entries)
        sorted.push_back(each.first);
    std::sort(sorted.begin(), sorted.end());
    return sorted;
}

guiTagTable& guiTags()
{
    static auto& table = *new guiTagTable; // never destroyed: the GUI thread still parses while the process exits
    return table;
}
