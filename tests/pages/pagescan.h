// tests/pages/pagescan.h: reads a page a second time, in the plainest way and without any of the component's code: what
// its body says, and which of its tags the page language does not have.
#pragma once

#include <string>
#include <vector>

/// What a body holds.
struct scannedPage
{
    std::u16string text;                  ///< all characters but white space, in order
    std::vector<std::string> unknownTags; ///< as written, in order
    std::string fault;                    ///< the first syntax error; "" without one
};

/// `page`: the whole text of a file.
scannedPage scanPage(std::u16string const& page);

/// Whether a unit is white space to the markup.
bool isMarkupSpace(char16_t unit);
/// What a comparison leaves out: white space, also as it stands in text that keeps its lines, and the marks of
/// quotations.
bool isLeftOut(char16_t unit);
