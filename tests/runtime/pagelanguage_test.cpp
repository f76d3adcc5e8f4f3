// tests/runtime/pagelanguage_test.cpp: the tables of all tags and attributes in docs/page-language.md say what the
// readers of pages ask for, no less and no more.
#include "page/guiattributes.h"
#include "tests/support/documentedlanguage.h"
#include "tests/support/readelements.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

documentedLanguage const& documented()
{
    static documentedLanguage const all = readDocumentedLanguage(TARN_SOURCE_FOLDER "/docs/page-language.md");
    return all;
}

/// What the first has and the second has not, in one line.
std::string missing(attributeNames const& from, attributeNames const& in)
{
    std::string line;
    for (std::string const& name : from)
        line += in.contains(name) ? "" : " " + name;
    return line;
}

attributeNames keysOf(std::map<std::string, attributeNames> const& map)
{
    attributeNames keys;
    for (auto const& [key, value] : map)
        keys.insert(key);
    return keys;
}

attributeNames allAskedFor()
{
    attributeNames all;
    for (auto const& [element, names] : readElements())
        all.insert(names.begin(), names.end());
    return all;
}

attributeNames allKnown()
{
    std::vector<std::string_view> const names = guiAttributeNames();
    return {names.begin(), names.end()};
}

} // namespace

TEST(PageLanguage, EveryElementThatIsReadIsInTheTableOfTags)
{
    EXPECT_EQ(missing(keysOf(readElements()), keysOf(documented().elements)), "");
}

TEST(PageLanguage, EveryElementInTheTableOfTagsIsRead)
{
    EXPECT_EQ(missing(keysOf(documented().elements), keysOf(readElements())), "");
}

TEST(PageLanguage, AnElementHasTheAttributesThatTheTableNames)
{
    for (auto const& [element, names] : documented().elements) {
        auto const found = readElements().find(element);
        ASSERT_TRUE(found != readElements().end()) << element;
        EXPECT_EQ(missing(names, found->second), "") << element << " is not asked for them";
        EXPECT_EQ(missing(found->second, names), "") << element << " is asked for them, and the table lacks them";
    }
}

TEST(PageLanguage, EveryAttributeIsExplained)
{
    EXPECT_EQ(missing(allAskedFor(), documented().attributes), "");
    EXPECT_EQ(missing(documented().attributes, allAskedFor()), "");
}

TEST(PageLanguage, AttributesThatAreKnownAndNotReadAreNamed)
{
    for (std::string const& name : allKnown())
        EXPECT_NE(allAskedFor().count(name), documented().unused.count(name)) << name;
    EXPECT_EQ(missing(documented().unused, allKnown()), "");
}

TEST(PageLanguage, NobodyIsToldThatAnAttributeWhichIsReadIsUnknown)
{
    for (auto const& [element, names] : readElements()) {
        std::string const tag = element.substr(1, element.find_first_of(" >") - 1);
        for (std::string const& name : names)
            EXPECT_TRUE(guiFindAttribute(tag, name)) << name << " of " << element;
    }
}
