// tests/page/referencelayout.h: the layout of a page computed a second time, in the plainest way: no memory, no limits,
// every height asked for as often as it is needed. Exponential where it has to be; only for small pages.
#pragma once

#include "page/guihtml.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

/// Computes what a page's nodes should have become. Leaves (texts, boxes) are asked for their preferred width and their
/// height at a width; everything else is worked out here. The page must have been laid out, in a window.
class referenceLayout
{
public:
    referenceLayout(guiHtml* root, int width, int height);
    ~referenceLayout();

    /// The first difference between the tree and what was worked out; "" without one.
    std::string difference() const;

private:
    using pixels = std::int64_t;
    struct box;
    struct row
    {
        std::vector<guiHtml*> nodes;
        bool endsParagraph = false;
        guiAlignment align = kAlignLeft;
    };
    struct stack;
    struct barPast
    {
        bool had;  ///< when the run began
        bool lost; ///< in an earlier run
    };

    static std::vector<row> rowsOf(guiHtml const* node);
    static pixels dividers(guiHtml const* node, row const& of);
    static bool isLeaf(guiHtml* node);

    box& of(guiHtml const* node);
    pixels innerWidth(guiHtml const* node, pixels width);
    pixels innerHeight(guiHtml const* node, pixels height);

    void need(guiHtml* node);
    void normalize(row const& layer);
    pixels preferred(guiHtml* node);
    std::vector<pixels> share(guiHtml* node, row const& layer, pixels room, pixels* least);
    void spread(row const& layer, std::vector<pixels>& shares, pixels spare);
    pixels estimate(guiHtml* node, pixels width);
    static void decideBar(guiHtml const* node, bool* bar, barPast past, pixels* range, pixels content, pixels room);
    void giveWidths(guiHtml* node);
    void giveHeights(guiHtml* node);
    void giveSpareHeight(guiHtml* node);
    pixels tallest(row const& layer);
    void place(guiHtml* node);
    std::string differenceAt(guiHtml* node) const;

    guiHtml* m_root;
    std::map<guiHtml const*, box> m_boxes;
    pixels m_barWidth;
    pixels m_barHeight;
};
