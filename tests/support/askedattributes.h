// tests/support/askedattributes.h: which attributes the readers of the page language ask for. In a test that links
// this, every question of a reader passes by here (see the CMakeLists.txt beside it).
#pragma once

#include <map>
#include <set>
#include <string>

using attributeNames = std::set<std::string>;

/// Names of attributes in lower case, by the name of the element that was asked for them. Numbered ones ("text2") stand
/// as "text1".
using askedAttributes = std::map<std::string, attributeNames>;

/// Reads a page as a window does, without opening it, and tells what was asked for. GUI thread.
askedAttributes askedWhileReading(std::string const& page);

/// The names that elements were compared with meanwhile, in all calls so far.
std::set<std::string> const& comparedElementNames();
