// page/guihtmlparser-labels.cpp: writes the text of labels: codes that say which element it is the label of, and the
// underlined letter that is its key.
#include "page/guihtmlparser.h"

#include "foundation/vela-qt.h"
#include "page/guihtmltext.h"

namespace {

/// Whether a name can stand in a code: double brackets would end it or begin another one.
bool fitsCode(sstring const& name)
{
    QStringView const text = sstoview(name);
    return !text.contains(QStringView(u"[[")) && !text.contains(QStringView(u"]]"));
}

} // namespace

void guiHtmlParser::setLabel(guiHtml* parent, sstring const& target)
{
    guiHtmlText* const run = getLastIfText(parent);
    if (run && m_label.getLength())
        run->editText() += "[[/l]]";
    m_label = fitsCode(target) ? target : sstring();
    if (m_label.getLength() == 0)
        return;
    m_labelKey = 0;
    openLabel(parent);
}

void guiHtmlParser::openLabel(guiHtml* parent)
{
    if (guiHtmlText* run = getLastIfText(parent))
        run->editText() += "[[l " + m_label + "]]";
}

/// Only the first marked letter of a label is its key. A "&" before anything but a letter or a digit is text.
void guiHtmlParser::pullLabelText(guiHtml* parent, QStringView text)
{
    guiRunText& run = findOrCreateText(parent)->editText();
    for (qsizetype at = text.indexOf(u'&'); at >= 0 && at + 1 < text.size(); at = text.indexOf(u'&', at)) {
        QChar const next = text[at + 1];
        bool const isKey = next.isLetterOrNumber() && m_labelKey == 0;
        if (!isKey && next != u'&') {
            ++at;
            continue;
        }
        run.append(text.left(at));
        if (isKey) {
            m_labelKey = next.toUpper().unicode();
            run += "[[u]]";
        }
        run.append(text.mid(at + 1, 1));
        if (isKey)
            run += "[[/u]]";
        text = text.mid(at + 2);
        at = 0;
    }
    run.append(text);
}
