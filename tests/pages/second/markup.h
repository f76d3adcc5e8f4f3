// tests/pages/second/markup.h: a page as a tree of tags and texts, read by a reader that shares nothing with the one it
// checks.
#pragma once

#include <QString>
#include <memory>
#include <utility>
#include <vector>

namespace second {

/// A tag with its content, or a piece of text.
struct element
{
    bool isText = false;
    QString name; ///< of the tag, in lower case
    QString text; ///< white space as single blanks, none at the ends
    bool leadingSpace = false;
    std::vector<std::pair<QString, QString>> attributes; ///< names in lower case; a null value without "="
    std::vector<std::unique_ptr<element>> children;

    bool has(char const* attribute) const;
    /// The value of the first attribute of that name; "" when it is absent, `bare` when it has no value.
    QString get(char const* attribute, char const* bare = "1") const;
    /// The same of the user's own data, in which an empty text is one.
    QString data(char const* attribute) const;
    /// The first tag of that name, depth first; null when there is none.
    element const* find(QString const& tag) const;
    /// All text below, put together as it stands.
    QString allText() const;
};

/// Reads a page. The result is a nameless element that holds everything.
std::unique_ptr<element> readMarkup(QString const& source);

} // namespace second
