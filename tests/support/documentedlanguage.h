// tests/support/documentedlanguage.h: the tables of docs/page-language.md that say what there is.
#pragma once

#include <map>
#include <set>
#include <string>

/// What the tables say, with the groups in them resolved.
struct documentedLanguage
{
    /// Attributes by element, named as in readElements().
    std::map<std::string, std::set<std::string>> elements;
    /// The names that the table of attributes explains.
    std::set<std::string> attributes;
    /// Those that are known and have no effect.
    std::set<std::string> unused;
};

/// Reads the document. What is wrong in it fails the test: a group that does not exist, a row that comes twice.
documentedLanguage readDocumentedLanguage(std::string const& file);
