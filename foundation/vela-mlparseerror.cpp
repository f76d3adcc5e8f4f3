// foundation/vela-mlparseerror.cpp: see the header.
#include "foundation/vela-mlparseerror.h"

#include <iterator>

sstring mlParseError::toEnglishString() const
{
    static constexpr char const* texts[] = {"unexpected symbol found\n",
                                            "expected tag name after token\n",
                                            "expected tag closure marker\n",
                                            "expected cdata section closure marker\n",
                                            "expected tag attribute value\n",
                                            "tag name exceeded reasonable length\n",
                                            "attribute name exceeded reasonable length\n",
                                            "attribute value exceeded reasonable length\n"};
    auto const index = static_cast<unsigned int>(code);
    char const* text = index < std::size(texts) ? texts[index] : "unrecognized exception\n";
    if (line == unknownLine)
        return sstring(text);
    return sformat("line %lu: %s", static_cast<unsigned long>(line), text);
}
