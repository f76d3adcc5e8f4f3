// tests/support/readelements.h: the elements of the page language, as its readers know them, each with the attributes
// that its reader asks for.
#pragma once

#include "tests/support/askedattributes.h"

/// Attributes by element: "<td>", "<input type="text">", "<object classid="menu">", "<object>" of any other class, and
/// "<param> in <toolbar>" for an element that means something inside of another one only. GUI thread.
std::map<std::string, attributeNames> const& readElements();
