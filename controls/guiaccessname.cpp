// controls/guiaccessname.cpp: see guiaccessname.h.
#include "controls/guiaccessname.h"

#include "controls/guiaccessrole.h"
#include "controls/guihtmlcontrolbutton.h"
#include "controls/guihtmlcustom.h"
#include "foundation/vela-qt.h"
#include "page/guihtmltext-codes.h"
#include "page/guihtmltext-places.h"
#include "page/guihtmltext.h"
#include "page/guirareattributes.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QHash>
#include <QWidget>
#include <algorithm>
#include <initializer_list>

namespace {

// ---- Labels ----

/// The words of a page's labels, by the name or the bookmark that they are for.
using labelWords = QHash<QString, QString>;

/// The text between the codes of labels.
void addLabels(QStringView text, labelWords& words)
{
    QString target;
    guiTextScanner scanner(text);
    while (scanner.next()) {
        if (!scanner.isCode()) {
            if (!target.isEmpty())
                words[target] += scanner.part();
            continue;
        }
        guiTextCode const code = guiReadTextCode(scanner.part());
        if (code == guiTextCode::kLabel)
            target = scanner.part().mid(2).toString().toCaseFolded();
        else if (code == guiTextCode::kEndLabel)
            target.clear();
    }
}

void collectLabels(guiHtml* node, labelWords& words)
{
    if (node->getType() == guiHtml::kTypeText) {
        QStringView const text = static_cast<guiHtmlText*>(node)->mx.text.view();
        if (text.contains(QStringView(u"[[l ")))
            addLabels(text, words);
    }
    for (guiHtml* child : guiNodesOf(node))
        collectLabels(child, words);
}

/// Those of the page that was asked about last, since one question seldom comes alone.
labelWords const& labelsOf(guiHtml* page)
{
    static labelWords& words = *new labelWords;
    static guiHtml const* ofPage = nullptr; // only compared
    static unsigned long generation = 0;
    if (ofPage != page || generation != guiHtml::generation()) {
        words.clear();
        collectLabels(page, words);
    }
    ofPage = page;
    generation = guiHtml::generation();
    return words;
}

guiHtml* topOf(guiHtml* node)
{
    while (guiHtml* const parent = node->getParent())
        node = parent;
    return node;
}

QString labelOf(guiHtml* control)
{
    labelWords const& words = labelsOf(topOf(control));
    for (guiNodeString which : {kStringName, kStringBookmark})
        if (control->hasString(which))
            if (auto const found = words.find(sstoq(control->getString(which)).toCaseFolded()); found != words.end())
                return *found;
    return {};
}

// ---- The text beside a field ----

QString wordsOf(guiHtml* node)
{
    return node->getType() == guiHtml::kTypeText ? guiPlainText(*static_cast<guiHtmlText*>(node)).trimmed() : QString();
}

/// The last words in a node that holds nothing but text.
QString wordsIn(guiHtml* node)
{
    QString words = wordsOf(node);
    for (guiHtml* child : guiNodesOf(node)) {
        if (child->getType() != guiHtml::kTypeText)
            return {};
        words = wordsOf(child);
    }
    return words;
}

/// The node before (-1) or behind (1) another one of the same parent, up to the first of these markers; null for none.
guiHtml* neighbourOf(guiHtml* node, int step, std::initializer_list<guiMarker> ends)
{
    guiHtml* const parent = node->getParent();
    unsigned at = 0;
    while (parent && at < parent->getChildCount() && parent->getChild(at) != node)
        ++at;
    if (!parent || at == parent->getChildCount())
        return nullptr;
    for (at += static_cast<unsigned>(step); at < parent->getChildCount(); at += static_cast<unsigned>(step)) {
        guiHtml* const entry = parent->getChild(at);
        if (guiChildList::isNode(entry))
            return entry;
        if (std::find(ends.begin(), ends.end(), guiChildList::toMarker(entry)) != ends.end())
            return nullptr;
    }
    return nullptr;
}

/// In the same paragraph or, where the control stands alone in a cell, in the next cell of the row.
QString textAt(guiHtml* control, int step)
{
    if (guiHtml* const beside = neighbourOf(control, step, {kMarkerParagraph}))
        return wordsOf(beside);
    guiHtml* const cell = control->getParent();
    bool const hasRow = cell && cell->getParent();
    guiHtml* const next = hasRow ? neighbourOf(cell, step, {kMarkerParagraph, kMarkerLineBreak}) : nullptr;
    return next ? wordsIn(next) : QString();
}

/// The text of a box to check stands behind it, that of any other field before.
QString textBeside(guiHtml* control)
{
    auto const* const button = dynamic_cast<guiHtmlControlButton*>(control);
    QString const behind = button && button->isCheckable() ? textAt(control, 1) : QString();
    return behind.isEmpty() ? textAt(control, -1) : behind;
}

/// "Name:" is called "Name".
QString asName(QString const& text)
{
    QString name = text.simplified();
    while (name.endsWith(u':'))
        name.chop(1);
    return name.trimmed();
}

QString controlName(guiHtml* control)
{
    for (QString const& each : {labelOf(control), sstoq(control->getString(kStringTitle))})
        if (QString name = asName(each); !name.isEmpty())
            return name;
    return asName(textBeside(control));
}

QString captionOf(guiHtml const* node)
{
    QString const caption = sstoq(node->getString(kStringCaption));
    return caption == QLatin1String(kEmptyGroupBox) ? QString() : caption;
}

QString imageName(guiHtml* node)
{
    QString const alt = sstoq(guiRareAttributeOf(node, guiRareAttribute::kAlt));
    return alt.isEmpty() ? sstoq(node->getString(kStringTitle)) : alt;
}

} // namespace

QString guiAccessNameOf(guiHtml* node)
{
    if (QString label = sstoq(guiRareAttributeOf(node, guiRareAttribute::kLabel)); !label.isEmpty())
        return label;
    switch (node->getType()) {
    case guiHtml::kTypeText:
        return {};
    case guiHtml::kTypeImage:
        return imageName(node);
    case guiHtml::kTypeControl:
        return node->awaitsWidget() ? controlName(node) : captionOf(node);
    case guiHtml::kTypeCustom:
        return sstoq(static_cast<guiHtmlCustom*>(node)->getTip());
    case guiHtml::kTypeBase:
        return node->getTopLevelWidget() ? node->getTopLevelWidget()->windowTitle() : QString();
    default:
        return captionOf(node);
    }
}

QString guiControlNameOf(guiHtml* control)
{
    QString const label = sstoq(guiRareAttributeOf(control, guiRareAttribute::kLabel));
    return label.isEmpty() ? controlName(control) : label;
}

QString guiAccessDescriptionOf(guiHtml* node)
{
    if (int const level = guiHeadingLevel(node); level != 0)
        return QString("level %1").arg(level);
    return sstoq(guiRareAttributeOf(node, guiRareAttribute::kValue));
}

void guiNameWidget(guiHtml* control, QWidget* widget)
{
    if (!widget->accessibleName().isEmpty())
        return;
    auto const* const button = qobject_cast<QAbstractButton*>(widget);
    bool const hasText = button && !button->text().isEmpty();
    QString const name =
        hasText ? sstoq(guiRareAttributeOf(control, guiRareAttribute::kLabel)) : guiControlNameOf(control);
    if (name.isEmpty())
        return;
    widget->setAccessibleName(name);
    if (qobject_cast<QComboBox*>(widget)) // which the toolkit calls by what is chosen
        widget->setAccessibleDescription(name);
}
