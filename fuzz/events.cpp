// fuzz/events.cpp: any text as an event name. The method and its arguments are those that splitting at both separators
// gives. The input is the name.

#include "fuzz/bytes.h"
#include "fuzz/finding.h"
#include "host/native/nativearguments.h"
#include "runtime/guicallback.h"

#include <string>
#include <vector>

namespace {

std::u16string unitsOf(sstring const& text)
{
    return std::u16string(reinterpret_cast<char16_t const*>(text.getUnicode()), text.getLength());
}

/// The name and the arguments, split in the simplest way.
std::vector<std::u16string> pieces(std::u16string const& name)
{
    std::vector<std::u16string> out(1);
    for (char16_t unit : name)
        if (unit == u'/' || unit == u'\\')
            out.emplace_back();
        else
            out.back() += unit;
    if (out.size() > 1 && out.back().empty())
        out.pop_back(); // nothing follows the last separator
    return out;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const* bytes, size_t size)
{
    std::string text(reinterpret_cast<char const*>(bytes), size);
    std::erase(text, '\0');
    sstring const name(text.c_str());
    std::vector<std::u16string> const expected = pieces(unitsOf(name));

    NativeArguments arguments;
    NativeValue scratch;
    require(unitsOf(guiCallback_ProcessEventName(name, &arguments, &scratch)) == expected[0], "another method");
    require(unitsOf(guiCallback_StripEventName(name)) == expected[0], "stripped to another method");
    require(arguments.size() == expected.size() - 1, "another number of arguments");
    for (size_t i = 0; i < arguments.size(); ++i)
        require(unitsOf(const_cast<NativeValue&>(arguments[i]).toString(0)) == expected[i + 1], "another argument");
    guiCallback_ShouldDisable(name);
    return 0;
}
