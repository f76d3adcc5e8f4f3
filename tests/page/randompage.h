// tests/page/randompage.h: pages made from a seed, the same in every run: nested tables with sizes, borders, spacings,
// alignments, captions and scroll modes, texts of all lengths, lists, headings, and every marker of a child list.
#pragma once

#include "page/guihtml.h"

#include <random>
#include <string>
#include <vector>

/// One random page, and two sizes to lay it out at.
class randomPage
{
public:
    explicit randomPage(unsigned seed);

    std::string const& markup() const { return m_markup; }
    /// Adds to the tree read from the markup what no markup says: leaves of known size, as controls are, static minima,
    /// empty slots and markers in any order. Call it once.
    void decorate(guiHtml* root);

    int width = 0;
    int height = 0;
    int otherWidth = 0;
    int otherHeight = 0;

private:
    unsigned below(unsigned bound) { return static_cast<unsigned>(m_random()) % bound; }
    bool oneIn(unsigned chances) { return below(chances) == 0; }
    template <std::size_t N>
    char const* oneOf(char const* const (&words)[N])
    {
        return words[below(N)];
    }

    void writeContent(int depth);
    void writeItem(int depth);
    void writeText();
    void writeWords(unsigned count);
    void writeFormatted();
    void writeInside(char const* opening, char const* closing, int depth);
    void writeList(int depth);
    void writeTable(int depth);
    void writeCell(int depth);
    void writeSize(char const* name);
    void writeFrame();
    void decorateNode(guiHtml* node);

    std::mt19937 m_random;
    std::string m_markup;
};
