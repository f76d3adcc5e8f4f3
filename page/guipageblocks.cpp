// page/guipageblocks.cpp: see guipageblocks.h.
#include "page/guipageblocks.h"

#include "foundation/vela-qt.h"
#include "foundation/vela-threadrole.h"
#include "page/guihtmlsize-layers.h"
#include "page/guihtmltext-lines.h"
#include "page/guihtmltext.h"
#include "page/guirareattributes.h"

#include <algorithm>
#include <optional>

namespace {

// What is lower than this share of a sheet, and more than a line, is not cut though it could be.
constexpr int kRowShare = 3;

guiRect united(guiRect const& a, guiRect const& b)
{
    int const left = std::min(a.left, b.left);
    int const top = std::min(a.top, b.top);
    return {left, std::max(a.right(), b.right()) - left, top, std::max(a.bottom(), b.bottom()) - top};
}

guiRect placed(guiRect rect, int x, int y)
{
    rect.left += x;
    rect.top += y;
    return rect;
}

bool isHeading(guiHtml const* node) { return guiHasRareAttribute(node, guiRareAttribute::kHeading); }

bool isFramed(guiHtml const* node) { return node->m.border != 0 || node->hasString(kStringCaption); }

bool isSeen(guiHtml const* node)
{
    return isFramed(node) || node->hasBackgroundColor() || node->hasString(kStringBackground);
}

class finding
{
public:
    explicit finding(int height) : m_height(height) {}

    /// (x, y): the corner of the node's parent.
    void add(guiHtml* node, int x, int y)
    {
        if (!node->m.visible || node->m.rect.isEmpty())
            return;
        guiRect const place = placed(node->m.rect, x, y);
        if (node->getType() == guiHtml::kTypeText)
            addText(*static_cast<guiHtmlText*>(node), place);
        else if (isLeaf(node))
            addLeaf(node, place);
        else
            addContainer(node, place);
    }

    guiPageBlocks take() { return std::move(m_blocks); }

private:
    static bool isLeaf(guiHtml* node)
    {
        int const type = node->getType();
        bool const isObject = type == guiHtml::kTypeImage || type == guiHtml::kTypeCustom;
        return isObject || node->getBackgroundEdge() != guiEdge::kNone || node->getChildCount() == 0;
    }

    void addLeaf(guiHtml* node, guiRect const& place)
    {
        bool const isPlain = node->getType() == guiHtml::kTypePlain;
        if (isPlain && !isSeen(node))
            return; // empty room
        addWhole(place);
    }

    void addContainer(guiHtml* node, guiRect const& place)
    {
        if (isSeen(node) && node->m.parent)
            see(place);
        if (isFramed(node) && place.height <= m_height / kRowShare)
            addWhole(place);
        else if (isFramed(node))
            m_before = guiRect{place.left, place.width, place.top, 1};
        guiLayerWalk layers(node);
        for (unsigned row = 0; layers.next(); ++row)
            addLayer(node, layers.layer(), place);
        addHead(node, place);
    }

    void addLayer(guiHtml* node, guiLayer const& layer, guiRect const& place)
    {
        std::optional<guiRect> const row = placeOf(node, layer, place);
        if (row && layer.count > 1 && row->height <= m_height / kRowShare)
            addWhole(*row);
        for (guiHtml* child : guiLayerNodes(node, layer))
            add(child, place.left, place.top);
    }

    /// The rows of a table that are marked to be repeated, and the one that follows them.
    void addHead(guiHtml* node, guiRect const& place)
    {
        int const rows = sstoq(guiRareAttributeOf(node, guiRareAttribute::kHeadRows)).toInt();
        if (rows < 1)
            return;
        std::optional<guiRect> head;
        guiLayerWalk layers(node);
        for (int row = 0; row < rows && layers.next(); ++row)
            if (std::optional<guiRect> const next = placeOf(node, layers.layer(), place))
                head = head ? united(*head, *next) : next;
        if (!head)
            return;
        std::optional<guiRect> const next = layers.next() ? placeOf(node, layers.layer(), place) : std::nullopt;
        m_before = *head;
        if (next) {
            addWhole(*next);
            head->height = std::max(head->height, next->top - head->top); // with the room below it
        }
        m_blocks.heads.push_back({*head, place.bottom()});
        m_before.reset();
    }

    /// What a layer of the node, which is at `place`, covers; none when it shows nothing.
    static std::optional<guiRect> placeOf(guiHtml const* node, guiLayer const& layer, guiRect const& place)
    {
        std::optional<guiRect> row;
        for (guiHtml const* child : guiLayerNodes(node, layer)) {
            guiRect const at = placed(child->m.rect, place.left, place.top);
            if (child->m.visible && !at.isEmpty())
                row = row ? united(*row, at) : at;
        }
        return row;
    }

    void addText(guiHtmlText& run, guiRect const& place)
    {
        std::vector<guiRect> lines;
        run.forEachLine([&](guiLineBreaker const&, guiTextRun const&, QRect const& line) {
            lines.push_back({place.left, place.width, place.top + line.top(), line.height()});
            return false;
        });
        if (lines.empty())
            return;
        if (isHeading(&run))
            addHeading(united(lines.front(), lines.back()));
        else
            addLines(lines);
    }

    /// Neither the first nor the last line of a run stands alone.
    void addLines(std::vector<guiRect> const& lines)
    {
        std::size_t const count = lines.size();
        if (count <= 3) {
            addWhole(united(lines.front(), lines.back()));
            return;
        }
        addWhole(united(lines[0], lines[1]));
        for (std::size_t i = 2; i + 2 < count; ++i)
            addWhole(lines[i]);
        addWhole(united(lines[count - 2], lines[count - 1]));
    }

    void addHeading(guiRect const& place)
    {
        std::optional<guiRect> const before = m_before;
        addWhole(place);
        m_before = before ? united(*before, place) : place;
    }

    void addWhole(guiRect const& place)
    {
        see(place);
        if (place.height > m_height)
            m_blocks.tall.push_back(place);
        else
            m_blocks.whole.push_back(place);
        if (!m_before || place.top < m_before->top)
            return;
        guiRect const both = united(*m_before, place);
        if (both.height <= m_height / 2)
            m_blocks.whole.push_back(both);
        m_before.reset();
    }

    void see(guiRect const& place) { m_blocks.bottom = std::max(m_blocks.bottom, place.bottom()); }

    int m_height;
    guiPageBlocks m_blocks;
    std::optional<guiRect> m_before; // what stays with the next block
};

} // namespace

guiPageBlocks guiFindBlocks(guiHtml* node, int height)
{
    assertOnGuiThread();
    finding found(height);
    found.add(node, 0, 0);
    return found.take();
}
