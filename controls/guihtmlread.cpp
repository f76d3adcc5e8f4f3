// controls/guihtmlread.cpp: see guihtmlread.h. Also reads the element `input`, whose attribute `type` chooses the
// reader.
#include "controls/guihtmlread.h"

#include "controls/guihtmlcontrol.h"
#include "foundation/vela-log.h"
#include "foundation/vela-mlparser.h"
#include "foundation/vela-qt.h"
#include "page/guinumbers.h"

#include <algorithm>
#include <cassert>
#include <string_view>

namespace {

[[maybe_unused]] bool isLowerCase(std::string_view name)
{
    return std::none_of(name.begin(), name.end(), [](char c) { return c >= 'A' && c <= 'Z'; });
}

} // namespace

guiTagTable& guiInputTypes()
{
    static auto& table = *new guiTagTable; // never destroyed, like the table of tags
    return table;
}

guiTagTable& guiObjectClasses()
{
    static auto& table = *new guiTagTable;
    return table;
}

void pullControl(guiHtmlParser& parser, guiHtml* parent, std::unique_ptr<guiHtml> made, mlSection* section)
{
    assert(parent && made && !made->getParent());
    guiHtml* const control = made.release();
    parser.appendGuiHtml(parent, control);
    assert(control->getParent() == parent);
    guiHtmlParser::pullName(control, section);
    guiHtmlParser::pullMouseEvents(control, section);
    guiHtmlParser::pullRestrict(control, section);
    guiHtmlParser::pullTabIndex(control, section);
    if (guiHtmlParser::hasAttr(section, "disabled"))
        control->setEnabled(0);
}

namespace {

/// The pattern for the whole of a text, null when it is invalid. "^" and "$" around it change nothing.
std::unique_ptr<Expr const> wholePattern(sstring const& pattern)
{
    QString text = sstoq(pattern);
    if (text.startsWith(u'^'))
        text.remove(0, 1);
    if (text.endsWith(u'$') && !text.endsWith(QLatin1String("\\$")))
        text.chop(1);
    auto whole = std::make_unique<Expr>(qtoss(u'^' + (text == u"*" ? QStringLiteral(".*") : text) + u'$'));
    return whole->Compile() ? std::move(whole) : nullptr;
}

} // namespace

void pullRules(guiHtmlParser& parser, guiHtmlControl* control, mlSection* section)
{
    sstring const pattern = guiHtmlParser::pullAttr(section, "pattern", "");
    bool const isRequired = guiHtmlParser::hasAttr(section, "required");
    if (!isRequired && pattern.getLength() == 0)
        return;
    auto rules = std::make_shared<guiFieldRules>();
    rules->isRequired = isRequired;
    rules->hint = control->getString(kStringTitle);
    if (pattern.getLength() != 0)
        rules->pattern = wholePattern(pattern);
    if (pattern.getLength() != 0 && !rules->pattern)
        guiTellWrongValue(parser, section, "pattern", "is no pattern");
    control->setRules(rules);
}

void guiTellWrongValue(guiHtmlParser& parser, mlSection* section, char const* name, char const* what)
{
    if (!parser.mistakes().mayAdd())
        return;
    std::string message("tarn: ");
    message.append(name).append("=\"").append(velaPrintable(guiHtmlParser::pullAttr(section, name)));
    message.append("\" of <").append(velaPrintable(section->getName())).append("> ").append(what).append(" (warning)");
    parser.mistakes().add(message, section->getLine());
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

guiElementWalk::guiElementWalk(guiHtmlParser& parser, mlSection* around, std::initializer_list<char const*> names)
    : m_parser(parser), m_names(names), m_path{{around, 0}}
{
    assert(around);
    assert(std::all_of(names.begin(), names.end(), isLowerCase)); // sections are asked for names in lower case only
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
        if (item && item->isTag() && isWanted(item)) {
            m_parser.mistakes().checkAttributes(item);
            return item;
        }
    }
    return nullptr;
}

namespace {

/// An unknown type makes no control.
void pullInput(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    if (guiTagTable::entry const* type = guiInputTypes().find(guiHtmlParser::pullAttr(section, "type")))
        type->read(parser, parent, section);
    else
        parser.mistakes().addUnknownWord(section, "type", guiInputTypes().words());
}

guiTag const kInput("input", pullInput, kTagFollowed);

} // namespace
