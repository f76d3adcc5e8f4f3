// tests/support/layoutpromises.h: what holds for every page that was laid out, whatever is on it.
#pragma once

#include <functional>
#include <string>

class guiHtml;

/// What is wrong with the layout of a page, "" when every node from `root` down keeps every promise: nodes of a layer
/// follow each other without overlap and layers stand below each other, a layer lies in its node and uses its width
/// exactly, no node is below its minimum, rectangles are of the active sizes, and percentages add up to 100 at most.
std::string brokenLayoutPromise(guiHtml* root);

/// Runs a check on every node from `node` down until one returns what is wrong; "" when none does.
std::string onEveryNode(guiHtml* node, std::function<std::string(guiHtml*)> const& check);
