// foundation/vela-mlentities.h: character references of the markup, such as "&lt;", "&#65;" and "&eacute;".
#pragma once

/// Replaces the character references in `count` units of text by what they stand for, in place; returns the new length.
/// Known are amp, lt, gt, apos, quot, nbsp (a plain space), "#" with decimal digits, and the Latin-1 names of HTML 4
/// (iexcl, 161, to yuml, 255). Names are case-sensitive and may be the beginning of a longer word; one ";" behind is
/// taken along. An
/// "&" that begins none of them stays. A number above 65,535 gives two units, one that is no character U+FFFD, 0
/// nothing.
unsigned int decodeReferences(unsigned short* text, unsigned int count);
