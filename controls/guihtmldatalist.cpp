// controls/guihtmldatalist.cpp: see guihtmldatalist.h; and its reader.
#include "controls/guihtmldatalist.h"

#include "controls/guihtmlread.h"
#include "foundation/vela-qt.h"

guiHtml& guiHtmlDataList::operator=(guiHtml& other)
{
    guiHtml::operator=(other);
    if (auto const* list = dynamic_cast<guiHtmlDataList const*>(&other))
        m_options = list->m_options;
    return *this;
}

namespace {

void pullDataList(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    guiHtmlDataList* const list = parser.appendGuiHtml(parent, std::make_unique<guiHtmlDataList>());
    guiHtmlParser::pullString(list, section, "id", kStringName);
    guiHtmlParser::pullName(list, section);
    guiElementWalk walk(parser, section, {"option"});
    while (mlSection* option = walk.next()) {
        bool const hasValue = guiHtmlParser::hasAttr(option, "value");
        list->addOption(sstoq(hasValue ? guiHtmlParser::pullData(option, "value") : guiDirectText(option)));
    }
}

guiTag const kDataList("datalist", pullDataList);

} // namespace
