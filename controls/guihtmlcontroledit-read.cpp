// controls/guihtmlcontroledit-read.cpp: reads text fields of one line and of several.
#include "controls/guihtmlcontroledit.h"
#include "controls/guihtmlread.h"
#include "foundation/vela-qt.h"
#include "page/guinumbers.h"

namespace {

guiEditType editType(mlSection* section)
{
    sstring const type = guiHtmlParser::pullAttr(section, "type");
    if (guiIsWord(type, "password"))
        return kEditPassword;
    if (guiIsWord(type, "search"))
        return kEditSearch;
    return guiIsWord(type, "file") ? kEditFile : kEditText;
}

/// What stands in the element, with "\n" for each line break; the first thing in it may be one that does not count. In
/// a field of one line they are blanks.
sstring areaText(guiHtmlParser& parser, mlSection* section, int rows)
{
    QString text = sstoq(parser.pullText(section));
    text.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(u'\r', u'\n');
    if (text.startsWith(u'\n'))
        text.remove(0, 1);
    return qtoss(rows == 1 ? text.replace(u'\n', u' ') : text);
}

bool pullWrap(guiHtmlParser& parser, mlSection* section)
{
    sstring const wrap = guiHtmlParser::pullAttr(section, "wrap");
    bool const isOff = guiIsWord(wrap, "off");
    if (wrap.getLength() != 0 && !isOff && !guiIsWord(wrap, "soft"))
        guiTellWrongValue(parser, section, "wrap", "is neither off nor soft");
    return !isOff;
}

guiHtmlControlEdit::fieldExtras pullExtras(guiHtmlParser& parser, mlSection* section)
{
    guiHtmlControlEdit::fieldExtras extras;
    extras.placeholder = guiHtmlParser::pullData(section, "placeholder");
    extras.list = guiHtmlParser::pullAttr(section, "list");
    extras.isReadOnly = guiHtmlParser::hasAttr(section, "readonly");
    extras.canReveal = guiHtmlParser::hasAttr(section, "reveal");
    extras.wraps = pullWrap(parser, section);
    return extras;
}

/// Makes a field with the given text; `columns` is the name of the attribute for its width in characters.
void pullEdit(guiHtmlParser& parser, guiHtml* parent, mlSection* section, sstring const& text, char const* columns,
              int rows)
{
    auto* edit = pullControl<guiHtmlControlEdit>(parser, parent, section);
    edit->initText(text);
    edit->setAction(guiHtmlParser::pullAttr(section, "onchange"));
    edit->init({editType(section),
                guiCountOrDefault(guiHtmlParser::pullAttr(section, columns), guiHtmlControlEdit::kDefaultSize),
                guiToNumber(guiHtmlParser::pullAttr(section, "maxlength")), rows});
    edit->setExtras(pullExtras(parser, section));
    pullRules(parser, edit, section);
}

void pullInputEdit(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    pullEdit(parser, parent, section, guiHtmlParser::pullData(section, "value"), "size", 1);
}

void pullInputEditField(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    int const rows = guiCountOrDefault(guiHtmlParser::pullAttr(section, "rows"), guiHtmlControlEdit::kDefaultRows);
    pullEdit(parser, parent, section, areaText(parser, section, rows), "cols", rows);
}

guiInputType const kText("text", pullInputEdit);
guiInputType const kPassword("password", pullInputEdit);
guiInputType const kFile("file", pullInputEdit);
guiInputType const kSearch("search", pullInputEdit);
guiTag const kTextArea("textarea", pullInputEditField);

} // namespace
