// foundation/vela-mlparseerror.cpp: see the header.

#include "foundation/vela-mlparseerror.h"

#include <iterator>

sstring mlParseError::toEnglishString() const
{
    static constexpr char const* kTexts[] = {"unexpected symbol found\n",
                                             "expected tag name after token\n",
                                             "expected tag closure marker\n",
                                             "expected cdata section closure marker\n",
                                             "expected tag attribute value\n",
                                             "tag name exceeded reasonable length\n",
                                             "attribute name exceeded reasonable length\n",
                                             "attribute value exceeded reasonable length\n"};
    auto const index = static_cast<unsigned int>(m_code);
    char const* text = index < std::size(kTexts) ? kTexts[index] : "unrecognized exception\n";
    if (m_line == kUnknownLine)
        return sstring(text);
    return sformat("line %lu: %s", static_cast<unsigned long>(m_line), text);
}
