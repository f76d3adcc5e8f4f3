// tests/support/parsedpage.h: parses a page and shows the tree in one line.
#pragma once

#include "page/guihtml.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>

/// A node that a page was read into. Lines logged meanwhile are in `log`.
struct parsedPage
{
    std::unique_ptr<guiHtml> root;
    std::string log;
    int result;
};

/// Reads `text` (UTF-8) into a plain node.
parsedPage parsePage(std::string const& text);
/// The same into `root`, which is taken over.
parsedPage parsePageInto(std::unique_ptr<guiHtml> root, std::string const& text);

/// The child list of the page, as one line: a text run as 'text', another node as its kind and its own children in
/// braces, markers as P (paragraph), BR, LEFT, CENTER, RIGHT. Fails the test when the page logged anything.
std::string outlineOf(std::string const& text);
/// The same of a node.
std::string outline(guiHtml* node);

/// The first node of the type below `node`, depth first; null when there is none.
guiHtml* findType(guiHtml* node, int type);
template <typename Node>
Node* findNode(parsedPage const& page, int type)
{
    return static_cast<Node*>(findType(page.root.get(), type));
}

/// The word for a control in an outline. The page knows no kinds of controls, so each folder of tests says it.
std::string controlWord(guiHtml* control);

/// Levels of nodes below the node.
unsigned deepest(guiHtml* node);

/// 8-bit rendering, for messages and comparisons.
std::string utf8(sstring const& text);
