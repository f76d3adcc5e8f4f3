// page/guinearest.cpp: see the header.
#include "page/guinearest.h"

#include <algorithm>
#include <numeric>

namespace {

constexpr std::size_t kLongestWord = 40;

/// The number of changes, in the optimal string alignment of the two words.
std::size_t distance(std::string_view a, std::string_view b)
{
    std::vector<std::size_t> older(b.size() + 1);
    std::vector<std::size_t> before(b.size() + 1);
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(before.begin(), before.end(), 0);
    for (std::size_t i = 1; i <= a.size(); ++i) {
        row[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            std::size_t const replaced = before[j - 1] + (a[i - 1] != b[j - 1]);
            row[j] = std::min({before[j] + 1, row[j - 1] + 1, replaced});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                row[j] = std::min(row[j], older[j - 2] + 1);
        }
        std::swap(older, before);
        std::swap(before, row);
    }
    return before[b.size()];
}

} // namespace

std::string_view guiNearestWord(std::string_view word, std::vector<std::string_view> const& known)
{
    std::string_view nearest;
    if (word.size() > kLongestWord)
        return nearest;
    std::size_t least = 2 * (word.size() / 3 + 1);
    for (std::string_view candidate : known) {
        bool const beginsAlike = candidate.substr(0, 1) == word.substr(0, 1); // as people's mistakes do
        std::size_t const score = 2 * distance(word, candidate) + (beginsAlike ? 0 : 1);
        if (score < least) {
            least = score;
            nearest = candidate;
        }
    }
    return nearest;
}
