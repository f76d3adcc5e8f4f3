// tests/support/askedattributes.cpp: see askedattributes.h.
#include "tests/support/askedattributes.h"

#include "foundation/vela-mlparser.h"
#include "foundation/vela-textstream.h"
#include "page/guihtmlparser.h"
#include "tests/support/testroot.h"

#include <string_view>

// The linker gives all calls of the two functions to the first of each pair, and the functions themselves to the
// second.
mlAttr* askForAttribute(mlSection const* section, char const* name) asm("__wrap__ZNK9mlSection8findAttrEPKc");
mlAttr* findAttribute(mlSection const* section, char const* name) asm("__real__ZNK9mlSection8findAttrEPKc");
bool askForName(mlSection const* section, char const* name) asm("__wrap__ZNK9mlSection7isNamedEPKc");
bool compareName(mlSection const* section, char const* name) asm("__real__ZNK9mlSection7isNamedEPKc");

namespace {

askedAttributes* theAttributes = nullptr; // not owned; null while nobody wants to know
std::set<std::string> theNames;

/// "text2" and the like become "text1".
std::string firstOfItsNumber(std::string_view name)
{
    std::size_t const letters = name.find_last_not_of("0123456789") + 1;
    std::string first(name.substr(0, letters));
    return letters == name.size() ? first : first.append("1");
}

std::string nameOf(mlSection const& section)
{
    unsigned length = 0;
    unsigned short const* const units = section.getNameUnits(&length);
    return {units, units + length};
}

} // namespace

mlAttr* askForAttribute(mlSection const* section, char const* name)
{
    if (theAttributes && section->isTag())
        (*theAttributes)[nameOf(*section)].insert(firstOfItsNumber(name));
    return findAttribute(section, name);
}

bool askForName(mlSection const* section, char const* name)
{
    theNames.insert(name);
    return compareName(section, name);
}

askedAttributes askedWhileReading(std::string const& page)
{
    askedAttributes asked;
    sstring content(page.c_str());
    datastream stream(content);
    mlParser markup(&stream);
    TestRoot root;
    guiHtmlParser parser(&markup, "/", "");
    theAttributes = &asked;
    parser.pullWindow(&root);
    theAttributes = nullptr;
    return asked;
}

std::set<std::string> const& comparedElementNames() { return theNames; }
