// runtime/guifilter-includes.cpp: expands the includes of a page, <!--#exec cgi="event://NAME"-->.
#include "runtime/guifilter.h"

#include "foundation/vela-log.h"
#include "runtime/gui.h"
#include "runtime/guicallback.h"

#include <algorithm>
#include <cassert>
#include <optional>
#include <string_view>

namespace {

using units = std::basic_string_view<unsigned short>;

/// Where an include stands in a text, and what it asks for.
struct include
{
    std::size_t begin;
    std::size_t end;
    units value;
};

unsigned short lower(unsigned short unit) { return unit >= 'A' && unit <= 'Z' ? unit + ('a' - 'A') : unit; }

/// Whether the text has the word at `at`; `word` is lower-case ASCII.
bool hasWord(units text, std::size_t at, std::string_view word)
{
    units const there = text.substr(std::min(at, text.size()), word.size());
    return std::equal(there.begin(), there.end(), word.begin(), word.end(),
                      [](unsigned short unit, char c) { return lower(unit) == static_cast<unsigned char>(c); });
}

/// The first place of the word from `at` on.
std::size_t findWord(units text, std::size_t at, std::string_view word)
{
    auto const same = [](unsigned short unit, char c) { return lower(unit) == static_cast<unsigned char>(c); };
    auto const begin = text.begin() + static_cast<std::ptrdiff_t>(std::min(at, text.size()));
    auto const found = std::search(begin, text.end(), word.begin(), word.end(), same);
    return found == text.end() ? units::npos : static_cast<std::size_t>(found - text.begin());
}

constexpr std::string_view kOpening = "<!--#";
constexpr std::string_view kClosing = "-->";
constexpr std::string_view kEvent = "event://";

bool isBlank(unsigned short unit) { return unit == ' ' || unit == '\t'; }

/// Reads what follows `<!--#`.
class includeReader
{
public:
    includeReader(units text, std::size_t at) : m_text(text), m_at(at) {}

    /// Skips blanks and then the word; false when something else stands there.
    bool take(std::string_view word)
    {
        skipBlanks();
        if (!hasWord(m_text, m_at, word))
            return false;
        m_at += word.size();
        return true;
    }

    /// The value between quotation marks or up to a blank; up to the end of the text when neither follows.
    units takeValue()
    {
        skipBlanks();
        if (m_at == m_text.size())
            return {};
        unsigned short const first = m_text[m_at];
        bool const isQuoted = first == '"' || first == '\'';
        units const rest = m_text.substr(m_at + (isQuoted ? 1 : 0));
        auto const ends = [&](unsigned short unit) { return isQuoted ? unit == first : isBlank(unit); };
        auto const end = std::find_if(rest.begin(), rest.end(), ends);
        return rest.substr(0, static_cast<std::size_t>(end - rest.begin()));
    }

private:
    void skipBlanks()
    {
        while (m_at < m_text.size() && isBlank(m_text[m_at]))
            ++m_at;
    }

    units m_text;
    std::size_t m_at;
};

/// The value of the include that opens at `begin`; nothing when it is malformed.
std::optional<units> readInclude(units text, std::size_t begin)
{
    includeReader reader(text, begin + kOpening.size());
    if (!reader.take("exec") || !reader.take("cgi") || !reader.take("="))
        return std::nullopt;
    return reader.takeValue();
}

/// The first include that is well formed; malformed ones are left to the parser. When one is not closed, neither is any
/// that follows it.
std::optional<include> findInclude(units text)
{
    for (std::size_t at = findWord(text, 0, kOpening); at != units::npos; at = findWord(text, at + 1, kOpening)) {
        std::optional<units> const value = readInclude(text, at);
        if (!value)
            continue;
        std::size_t const end = findWord(text, at, kClosing);
        if (end == units::npos)
            return std::nullopt;
        return include{at, end + kClosing.size(), *value};
    }
    return std::nullopt;
}

units unitsOf(sstring const& text) { return units(text.getUnicode(), text.getLength()); }

sstring stringOf(units text) { return sstring(text.data(), 0, static_cast<unsigned>(text.size())); }

/// What the handler returns for the include; "" when the value is not a link to a handler.
sstring expansionOf(include const& found, ScriptObject* owner)
{
    std::size_t const event = findWord(found.value, 0, kEvent);
    if (event == units::npos || !owner)
        return {};
    return guiCallback_CallFilter(owner, stringOf(found.value.substr(event + kEvent.size())));
}

} // namespace

bool guiFilter_hasInclude(sstring const& text) { return findInclude(unitsOf(text)).has_value(); }

int guiFilter_ProcessSSI(ScriptObject* owner, ScriptObject*, ScriptObject* form, sstring& text)
{
    std::optional<include> const found = findInclude(unitsOf(text));
    if (!found)
        return 0;
    assert(found->begin < found->end && found->end <= text.getLength());
    guiFilter_showText(form, text);
    sstring const expansion = expansionOf(*found, owner);
    std::size_t const length = text.getLength() - (found->end - found->begin) + std::size_t{expansion.getLength()};
    if (length * sizeof(unsigned short) > kFilteredBytes) {
        velaLog("guiFilter_ProcessSSI() - an include would make the page longer than 64 MiB: it stays as it is\n");
        return 0;
    }
    text.replace(static_cast<unsigned>(found->begin), static_cast<unsigned>(found->end - found->begin), expansion);
    guiFilter_showText(form, text);
    return 1;
}
