// controls/guihtmlread.h: what the readers of controls share. The readers of each kind of control are in a file beside
// it, NAME-read.cpp, which adds them to one of the tables here or to the tags (page/guitagtable.h).
#pragma once

#include "page/guihtmlparser.h"
#include "page/guitagtable.h"

#include <initializer_list>
#include <memory>
#include <utility>
#include <vector>

class guiHtmlControl;

/// The readers of `input` by the value of `type`, and those of `object` by `classid`.
guiTagTable& guiInputTypes();
guiTagTable& guiObjectClasses();

/// Each adds a reader when it is constructed, as guiTag does.
struct guiInputType
{
    guiInputType(char const* type, guiTagReader reader) { guiInputTypes().add(type, reader); }
};
struct guiObjectClass
{
    guiObjectClass(char const* name, guiTagReader reader) { guiObjectClasses().add(name, reader); }
};

/// Appends a new control, which `parent` then owns, and reads what all controls have: name, mouse events, size, tab
/// index, `disabled`.
void pullControl(guiHtmlParser& parser, guiHtml* parent, std::unique_ptr<guiHtml> made, mlSection* section);

/// Makes a control and does the same. Returns the control, which `parent` owns.
template <typename Control>
Control* pullControl(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    auto control = std::make_unique<Control>();
    Control* const made = control.get();
    pullControl(parser, parent, std::move(control), section);
    return made;
}

/// Reads what the page asks of the value: `required`, `pattern`.
void pullRules(guiHtmlParser& parser, guiHtmlControl* control, mlSection* section);

/// Tells the page's author that an attribute's value is of no use: `what` says why, as in "is no pattern".
void guiTellWrongValue(guiHtmlParser& parser, mlSection* section, char const* name, char const* what);

/// Whether the attribute is there and its value is not empty. An attribute without a value reads as "1".
bool guiHasValue(mlSection* section, char const* name);
/// A number of columns or rows; `otherwise` when it is missing or zero.
int guiCountOrDefault(sstring const& count, int otherwise);
/// The text of an element, without that of the elements in it.
sstring guiDirectText(mlSection* section);

/// Visits, in document order, the elements below a section that have one of some names, and checks their
/// attributes. An element that is not closed contains those that follow it, so all depths are searched; without
/// recursion, because a list of thousands of such elements is nested thousands of levels deep.
class guiElementWalk
{
public:
    /// `names`: literals in lower case.
    guiElementWalk(guiHtmlParser& parser, mlSection* around, std::initializer_list<char const*> names);

    /// The next element, null after the last.
    mlSection* next();

private:
    bool isWanted(mlSection* section) const;

    guiHtmlParser& m_parser;
    std::vector<char const*> m_names;
    std::vector<std::pair<mlSection*, unsigned>> m_path; // open elements, each with its next child
};
