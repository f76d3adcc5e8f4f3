// page/guitagtable.h: which function reads which element of a page. The code of each kind of node adds its readers here
// from a static object, so that a new tag needs no change elsewhere.
#pragma once

#include <string_view>
#include <unordered_map>
#include <vector>

class guiHtml;
class guiHtmlParser;
class mlSection;
class sstring;

/// How the parser treats an element.
enum guiTagTrait : unsigned
{
    kTagPlain = 0,
    kTagFormats = 1,  ///< formats text, makes no block
    kTagNests = 2,    ///< reads its content as a level of its own
    kTagFollowed = 4, ///< is never closed: its content follows it
    kTagBlock = 8,    ///< counts as a block for a table that comes next
    kTagText = 16,    ///< text, or what text stands in: links jump to its `id`
    kTagSkipped = 32, ///< is left out with what it holds, so that no attribute of it is wrong
    kTagInline = 64,  ///< a part of a line, as those that format are
};

/// Reads one element, its content included, into `parent`. GUI thread.
using guiTagReader = void (*)(guiHtmlParser& parser, guiHtml* parent, mlSection* section);

/// Readers by word: a tag, or the value of an attribute that chooses between kinds of elements. Filled by static
/// objects when a library is loaded; after that any thread may read.
class guiTagTable
{
public:
    struct entry
    {
        guiTagReader read;
        unsigned traits; ///< of guiTagTrait
    };

    /// `word` in lower-case ASCII, at most guiFoldedWord::kLongest letters; it lives as long as the table. Each word
    /// once.
    void add(char const* word, guiTagReader reader, unsigned traits = kTagPlain);
    /// Without regard to case; null for an unknown word.
    entry const* find(unsigned short const* units, unsigned length) const;
    entry const* find(sstring const& word) const;
    /// Every word, in order.
    std::vector<std::string_view> words() const;

private:
    std::unordered_map<std::string_view, entry> m_entries;
};

/// The tags of the page language.
guiTagTable& guiTags();

/// Adds a tag while it is constructed: `guiTag const kMeter("meter", readMeter, kTagBlock);` beside the reader.
struct guiTag
{
    guiTag(char const* name, guiTagReader reader, unsigned traits = kTagPlain) { guiTags().add(name, reader, traits); }
};

/// A member function of the parser as a reader.
template <auto member>
void guiReadBy(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    (parser.*member)(parent, section);
}
