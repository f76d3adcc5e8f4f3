// controls/guihtmlread.h: what the readers of controls share. Each kind of control has its readers in a file of its own
// beside it, NAME-read.cpp, which adds them to the tables here or to the tags (page/guitagtable.h).
#pragma once

#include "page/guihtmlparser.h"
#include "page/guitagtable.h"

#include <utility>
#include <vector>

/// The readers of `input` by the value of `type`, and those of `object` by `classid`.
guiTagTable& guiInputTypes();
guiTagTable& guiObjectClasses();

/// Add a reader while they are constructed, as guiTag does.
struct guiInputType
{
    guiInputType(char const* type, guiTagReader reader) { guiInputTypes().add(type, reader); }
};
struct guiObjectClass
{
    guiObjectClass(char const* name, guiTagReader reader) { guiObjectClasses().add(name, reader); }
};

/// Appends a control and reads what all controls have: name, mouse events, size, tab index, `disabled`.
void pullControl(guiHtmlParser& parser, guiHtml* parent, guiHtml* control, mlSection* section);

/// Whether the attribute is there with anything but an empty value; without a value it reads as "1".
bool guiHasValue(mlSection* section, char const* name);
/// Columns or rows; an absent or zero number is `otherwise`.
int guiCountOrDefault(sstring const& count, int otherwise);
/// The text directly in an element, without that of the elements in it.
sstring guiDirectText(mlSection* section);

/// Walks the elements of some names below a section in order. One that is not closed contains those that follow it, so
/// they are looked for at any depth; one by one, since a list of thousands nests as deeply.
class guiElementWalk
{
public:
    /// `names`: literals in lower case.
    guiElementWalk(mlSection* around, std::initializer_list<char const*> names) : m_names(names), m_path{{around, 0}} {}

    /// The next element, null after the last.
    mlSection* next();

private:
    bool isWanted(mlSection* section) const;

    std::vector<char const*> m_names;
    std::vector<std::pair<mlSection*, unsigned>> m_path;
};
