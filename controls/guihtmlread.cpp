// controls/guihtmlread.cpp: see guihtmlread.h; and the elements `input` and `object`, each of which is many.
#include "controls/guihtmlread.h"

#include "foundation/vela-mlparser.h"
#include "page/guinumbers.h"

#include <algorithm>

guiTagTable& guiInputTypes()
{
    static auto& table = *new guiTagTable; // for ever, like the table of tags
    return table;
}

guiTagTable& guiObjectClasses()
{
    static auto& table = *new guiTagTable;
    return table;
}

void pullControl(guiHtmlParser& parser, guiHtml* parent, guiHtml* control, mlSection* section)
{
    parser.appendGuiHtml(parent, control);
    guiHtmlParser::pullName(control, section);
    guiHtmlParser::pullMouseEvents(control, section);
    guiHtmlParser::pullRestrict(control, section);
    guiHtmlParser::pullTabIndex(control, section);
    if (guiHtmlParser::hasAttr(section, "disabled"))
        control->setEnabled(0);
}

bool guiHasValue(mlSection* section, char const* name)
{
    return guiHtmlParser::pullAttr(section, name).getLength() != 0;
}

int guiCountOrDefault(sstring const& count, int otherwise)
{
    int number = std::clamp(guiToNumber(count), -kMaxPixels, kMaxPixels);
    return number ? number : otherwise;
}

sstring guiDirectText(mlSection* section)
{
    sstring text;
    for (unsigned i = 0; mlSection* item = section->getChild(i); ++i) {
        if (item->isTag())
            continue;
        if (text.getLength() && item->hasLeadingSpace())
            text += ' ';
        text += item->getData();
    }
    return text;
}

bool guiElementWalk::isWanted(mlSection* section) const
{
    return std::any_of(m_names.begin(), m_names.end(), [&](char const* name) { return section->isNamed(name); });
}

mlSection* guiElementWalk::next()
{
    while (!m_path.empty()) {
        mlSection* item = m_path.back().first->getChild(m_path.back().second++);
        if (!item)
            m_path.pop_back();
        else if (item->isTag())
            m_path.emplace_back(item, 0);
        if (item && item->isTag() && isWanted(item))
            return item;
    }
    return nullptr;
}

namespace {

/// A control of an unknown type is none.
void pullInput(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    if (guiTagTable::entry const* type = guiInputTypes().find(guiHtmlParser::pullAttr(section, "type")))
        type->read(parser, parent, section);
}

guiTag const kInput("input", pullInput, kTagFollowed);

} // namespace
