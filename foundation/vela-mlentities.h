// foundation/vela-mlentities.h: character references of the markup, such as "&lt;", "&#65;" and "&eacute;".
#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Replaces the character references in `count` units of text by their characters, in place, and returns the new
/// length. Known are amp, lt, gt, apos, quot, nbsp (a plain space), the Latin-1 names of HTML 4 (iexcl, 161, to yuml,
/// 255), and "#" with decimal digits. Names are case-sensitive and need not end at a word boundary; a ";" after the
/// reference belongs to it. The other names of HTML 4 (alpha, mdash, euro and so on) are known with their ";" only. Any
/// other "&" stays. Numbers above 65,535 become a surrogate pair, numbers beyond Unicode U+FFFD, and 0 nothing.
///
/// `unknown`, which may be null, is given the names between "&" and ";" that are no reference.
unsigned int decodeReferences(unsigned short* text, unsigned int count, std::vector<std::string>* unknown = nullptr);

/// The names of all references.
std::vector<std::string_view> mlReferenceNames();
