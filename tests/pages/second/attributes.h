// tests/pages/second/attributes.h: what the attributes that many tags share mean.
#pragma once

#include "tests/pages/second/markup.h"
#include "tests/pages/second/node.h"

#include <initializer_list>

namespace second {

/// The number that a text begins with, 0 without one.
int number(QString const& text);
/// The same as a count of pixels: no less than 0 and no more than a layout can bear.
int pixelCount(QString const& text);
/// Whether the text is one of the words, in any case.
bool isWord(QString const& text, std::initializer_list<char const*> words);
/// Reads pixels or percent; an empty text changes nothing.
void readLength(QString const& text, unit* which, int* size);
void readSizes(node* into, element const& tag);
/// A size in pixels is also the least of a table or frame.
void keepSizes(node* of);
void readBorder(node* into, element const& tag);
/// 0 left, 1 centre, 2 right.
int alignmentOf(element const& tag, int otherwise);
void readAlignment(node* into, element const& tag);
void readName(node* into, element const& tag);
/// The digits of a colour's name; any other text as it is.
QString hexOf(QString const& color);

} // namespace second
