// page/guipagebreaks.cpp: see guipagebreaks.h.
#include "page/guipagebreaks.h"

#include <algorithm>
#include <cassert>
#include <span>

namespace {

// A sheet is cut below its middle, if it can be.
constexpr int kLeastShare = 2;
// Repeated rows take up to half of a sheet.
constexpr int kHeadShare = 2;
// Room up to this share of a sheet is left out where a sheet begins with it.
constexpr int kSkippedShare = 8;

bool isHigher(guiRect const& a, guiRect const& b) { return a.top < b.top; }

bool isAbove(guiRect const& box, int y) { return box.top < y; }

class breaking
{
public:
    breaking(guiPageBlocks& blocks, int height) : m_blocks(blocks), m_height(height)
    {
        std::erase_if(blocks.whole, [height](guiRect const& box) { return box.height < 1 || box.height > height; });
        std::sort(blocks.whole.begin(), blocks.whole.end(), isHigher);
        std::sort(blocks.tall.begin(), blocks.tall.end(), isHigher);
        std::stable_sort(blocks.heads.begin(), blocks.heads.end(), [](guiTableHead const& a, guiTableHead const& b) {
            return a.place.bottom() < b.place.bottom();
        });
    }

    std::vector<guiSheet> run()
    {
        std::vector<guiSheet> sheets;
        int top = m_blocks.top;
        do {
            guiSheet sheet;
            sheet.top = top;
            repeatHeads(sheet);
            if (!sheets.empty())
                leaveOutShown(sheet, sheets.back());
            top = end(sheet);
            assert(top > sheet.top);
            sheets.push_back(std::move(sheet));
        } while (top < m_blocks.bottom);
        return sheets;
    }

private:
    /// The boxes whose tops are within a range.
    std::span<guiRect const> between(int from, int to) const
    {
        auto const begin = std::lower_bound(m_blocks.whole.begin(), m_blocks.whole.end(), from, isAbove);
        auto const end = std::lower_bound(begin, m_blocks.whole.end(), to, isAbove);
        return {begin, end};
    }

    /// Those of tables that have begun above and go on; tables that have ended are not looked at again.
    void repeatHeads(guiSheet& sheet)
    {
        for (; m_nextHead < m_blocks.heads.size(); ++m_nextHead) {
            if (m_blocks.heads[m_nextHead].place.bottom() > sheet.top)
                break;
            m_open.push_back(m_blocks.heads[m_nextHead]);
        }
        std::erase_if(m_open, [&sheet](guiTableHead const& head) { return head.bottom <= sheet.top; });
        int taken = 0;
        for (guiTableHead const& head : m_open) {
            if (taken + head.place.height > m_height / kHeadShare)
                continue;
            taken += head.place.height;
            sheet.heads.push_back(head.place);
        }
    }

    /// What reaches into the part that the sheet before has, too, and has been shown there, or earlier.
    void leaveOutShown(guiSheet& sheet, guiSheet const& before) const
    {
        if (before.bottom <= sheet.top)
            return;
        for (guiRect const& box : between(sheet.top - m_height, before.bottom))
            if (box.bottom() > sheet.top && box.bottom() <= before.bottom)
                sheet.absent.push_back(box);
    }

    /// Finds where the sheet ends; where the next one begins.
    int end(guiSheet& sheet) const
    {
        int const limit = sheet.top + m_height - sheet.headHeight();
        sheet.bottom = limit;
        if (limit >= m_blocks.bottom)
            return limit;
        std::span<guiRect const> const boxes = between(sheet.top, limit);
        int const gap = lastGap(boxes, sheet.top, limit);
        if (gap == limit)
            return skipRoom(limit);
        if (gap - sheet.top >= (limit - sheet.top) / kLeastShare) {
            sheet.bottom = gap;
            return gap;
        }
        return cutColumns(sheet, boxes, limit);
    }

    /// The lowest place up to `limit` that no box stands across; `top` when there is none.
    static int lastGap(std::span<guiRect const> boxes, int top, int limit)
    {
        int gap = top;
        int below = top;
        for (guiRect const& box : boxes) {
            if (box.top >= below)
                gap = box.top;
            below = std::max(below, box.bottom());
        }
        return below <= limit ? limit : gap;
    }

    int cutColumns(guiSheet& sheet, std::span<guiRect const> boxes, int limit) const
    {
        int next = limit;
        for (guiRect const& box : boxes) {
            if (box.bottom() <= limit || box.top <= sheet.top)
                continue;
            next = std::min(next, box.top);
            sheet.absent.push_back(box);
        }
        return next;
    }

    /// No sheet begins with empty room.
    int skipRoom(int from) const
    {
        int const most = from + m_height / kSkippedShare;
        std::span<guiRect const> const boxes = between(from, most);
        int const next = boxes.empty() ? from : boxes.front().top;
        for (guiRect const& box : m_blocks.tall)
            if (box.top < next && box.bottom() > from)
                return from;
        return next;
    }

    guiPageBlocks& m_blocks;
    int m_height;
    std::size_t m_nextHead = 0;
    std::vector<guiTableHead> m_open; // of tables that have begun
};

} // namespace

int guiSheet::headHeight() const
{
    int sum = 0;
    for (guiRect const& head : heads)
        sum += head.height;
    return sum;
}

std::vector<guiSheet> guiBreakPage(guiPageBlocks blocks, int height)
{
    return breaking(blocks, std::max(height, 1)).run();
}
