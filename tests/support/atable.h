// tests/support/atable.h: a table whose attributes a test writes, and what they became.
#pragma once

#include "tests/support/parsedpage.h"

/// The node of a table with the given attributes.
class aTable
{
public:
    explicit aTable(std::string const& attributes) : m_page(parsePage("<table " + attributes + "></table>")) {}
    guiHtml* operator->() const { return m_page.root->getLastChild(); }
    guiHtml& operator*() const { return *m_page.root->getLastChild(); }

private:
    parsedPage m_page;
};

inline std::string stringOf(guiHtml& node, guiNodeString which) { return utf8(node.getString(which)); }
