// page/guinearest.h: the known word that was probably meant by an unknown one.
#pragma once

#include <string_view>
#include <vector>

/// The word of `known` that takes the fewest changes to reach from `word`: letters put in, left out, replaced or
/// swapped with their neighbour. Of those that take as many, one that begins alike, then the first. "" when all take
/// more than a third of its letters. Case counts.
std::string_view guiNearestWord(std::string_view word, std::vector<std::string_view> const& known);
