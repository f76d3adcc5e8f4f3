// runtime/guifilter-messages.cpp: replaces the numbered messages of a page by the texts that a script object gives.
#include "runtime/guifilter.h"

#include "foundation/vela-log.h"
#include "runtime/gui.h"
#include "runtime/guicallback.h"

#include <algorithm>
#include <cassert>
#include <optional>
#include <string>

namespace {

using units = std::basic_string_view<unsigned short>;
using message = std::basic_string<unsigned short>;

bool isDigit(unsigned short unit) { return unit >= '0' && unit <= '9'; }

/// The object's text for a key; nothing when it has none.
std::optional<message> messageFor(ScriptObject* messages, sstring const& key)
{
    guiOwnedValue answer(pGUI->getPlatform()->createValue(messages->getEngine()));
    guiCallback_CallGetString(messages, key, answer.get());
    if (answer->isNull())
        return std::nullopt;
    sstring const text = answer->toString(0);
    return message(text.getUnicode(), text.getLength());
}

/// Replaces the messages from left to right; texts that were put in are not searched again.
class messageWalk
{
public:
    messageWalk(sstring const& text, ScriptObject* messages)
        : m_text(text.getUnicode(), text.getLength()), m_messages(messages)
    {}

    sstring replaced()
    {
        for (std::size_t at = m_text.find('@'); at != units::npos; at = m_text.find('@', at + 1))
            if (at + 1 < m_text.size() && isDigit(m_text[at + 1]))
                at = replaceAt(at);
        m_out.append(m_text.substr(m_copied));
        return sstring(m_out.c_str());
    }

private:
    /// Replaces the marker at `at` and gives the place of its last unit; `at` itself when it stays.
    std::size_t replaceAt(std::size_t at)
    {
        auto const digits = m_text.begin() + static_cast<std::ptrdiff_t>(at) + 1;
        std::size_t const end =
            static_cast<std::size_t>(std::find_if_not(digits, m_text.end(), isDigit) - m_text.begin());
        assert(end > at + 1 && m_copied <= at);
        std::optional<message> const found = messageFor(m_messages, sformat("AUTO%ld", atol16(&m_text[at + 1])));
        if (!found)
            return at;
        m_out.append(m_text.substr(m_copied, at - m_copied));
        m_out.append(*found);
        m_copied = end;
        return end - 1;
    }

    units m_text;
    ScriptObject* m_messages; // not owned
    message m_out;
    std::size_t m_copied = 0; // units of m_text that are in m_out already, as they were or replaced
};

} // namespace

sstring guiFilter_applyMessages(sstring text, ScriptObject* messages)
{
    sstring replaced = messageWalk(text, messages).replaced();
    if (std::size_t{replaced.getLength()} * sizeof(unsigned short) <= kFilteredBytes)
        return replaced;
    velaLog("guiFilter_applyMessages() - the messages come to more than 64 MiB: they are left out\n");
    return text;
}
