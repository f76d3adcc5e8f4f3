// tests/page/groups_test.cpp: which groups of attributes rows and tables read.
#include "tests/support/attributegroups.h"

namespace {

using groups = std::set<std::string>;

TEST(AttributeGroups, ARowReadsNone)
{
    parsedPage page = parsePage(std::string("<table><tr") + kAll + "><td></table>");
    guiHtml* table = page.root->getLastChild();
    EXPECT_EQ(groupsOf(*table), groups{"expands"});
    EXPECT_EQ(groupsOf(*table->getLastChild()), groups{});
}

TEST(AttributeGroups, PercentSizesAreNoMinima)
{
    parsedPage page = parsePage("<table width=50% height=60%></table>");
    guiHtml* table = page.root->getLastChild();
    EXPECT_EQ(table->m.fixed.unitX, kUnitPercent);
    EXPECT_EQ(table->m.fixed.unitY, kUnitPercent);
    EXPECT_EQ(table->m.fixed.cxMin, 0);
    EXPECT_EQ(table->m.fixed.cyMin, 0);
}

} // namespace
