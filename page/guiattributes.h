// page/guiattributes.h: the attributes of the page language, for telling an author about mistakes. Reading a page does
// not need it.
#pragma once

#include <string_view>
#include <vector>

/// What an attribute holds.
enum guiAttributeKind
{
    kAttributeText,   ///< anything
    kAttributeColor,  ///< see guicolortext.h
    kAttributeLength, ///< pixels, or percent
    kAttributeNumber, ///< a number, maybe with a sign
    kAttributeLink,   ///< an address, or a handler to call
    kAttributeAction, ///< the same, where a handler is meant in nearly every case
};

/// The kind of an attribute; null for a name that no element has. `tag` and `name` in lower case.
guiAttributeKind const* guiFindAttribute(std::string_view tag, std::string_view name);

/// Whether it is one of those that documents have for search engines, style sheets and screen readers. On an element of
/// text there is nothing to say about it; a control with an `id` and without a name is a mistake. In lower case.
bool guiIsDocumentAttribute(std::string_view name);

/// Whether the element is text, or what text stands in. In lower case.
bool guiIsTextElement(std::string_view tag);

/// The names of all attributes, but numbered ones such as "text2". They live as long as the program.
std::vector<std::string_view> guiAttributeNames();
