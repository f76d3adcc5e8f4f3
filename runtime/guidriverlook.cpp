// runtime/guidriverlook.cpp: see guidriverlook.h: pages. Dialogs and menus are read in guidriverlook-widgets.cpp.
#include "runtime/guidriverlook.h"

#include "controls/guiaccessname.h"
#include "controls/guihtmlcontrolbutton.h"
#include "controls/guihtmlcontroledit.h"
#include "controls/guihtmlcontrolflex.h"
#include "controls/guihtmlcontrollist.h"
#include "controls/guihtmlcontrolmenu.h"
#include "controls/guihtmldetails.h"
#include "controls/guihtmltabbar.h"
#include "controls/guihtmltabs.h"
#include "controls/guihtmltoolbutton.h"
#include "controls/guiwidgetmenubar.h"
#include "foundation/vela-qt.h"
#include "foundation/vela-threadrole.h"
#include "page/guihtmltext.h"
#include "page/guitextflow.h"
#include "page/guivisibletext.h"
#include "runtime/gui.h"
#include "runtime/guidriverlook-widgets.h"
#include "runtime/guidriverwindows.h"
#include "runtime/guihtmlbase.h"

#include <QAbstractButton>

namespace {

QString address(void const* object) { return QString::number(reinterpret_cast<quintptr>(object), 16); }

// ---- Controls ----

QString kindOfButton(guiHtmlControlButton const& button)
{
    if (button.getButtonType() == kButtonCheckBox)
        return QStringLiteral("check box");
    return button.getButtonType() == kButtonRadio ? QStringLiteral("radio button") : QStringLiteral("button");
}

QString kindOfControl(guiHtmlControl* control)
{
    if (auto const* button = dynamic_cast<guiHtmlControlButton*>(control))
        return kindOfButton(*button);
    if (dynamic_cast<guiHtmlControlEdit*>(control))
        return QStringLiteral("field");
    if (dynamic_cast<guiHtmlControlList*>(control) || dynamic_cast<guiHtmlControlFlex*>(control))
        return QStringLiteral("list");
    if (dynamic_cast<guiHtmlControlMenu*>(control))
        return QStringLiteral("menu bar");
    if (dynamic_cast<guiHtmlTabBar*>(control))
        return QStringLiteral("tabs");
    if (dynamic_cast<guiHtmlSummary*>(control) || dynamic_cast<guiHtmlToolButton*>(control))
        return QStringLiteral("button");
    return control->getControlType() == guiHtmlControl::kControlHidden ? QStringLiteral("hidden value")
                                                                       : QStringLiteral("field");
}

/// The value that the form has for the control; null without one.
QJsonValue valueOf(guiHtml* control)
{
    sstring const name = control->getName();
    if (name.getLength() == 0)
        return {};
    guiOwnedObject const form = guiNewObject();
    control->writeFormProperty(form.get());
    guiOwnedValue const value = guiNewValue();
    if (!pGUI->getFormProp()->readProperty(form.get(), name, value.get()) || value->isNull())
        return {};
    if (value->isBool())
        return value->toBool(0);
    if (value->isNumber())
        return value->toNumber(0);
    return sstoq(value->toString(0));
}

QString textOfList(guiHtmlControlList& list)
{
    sstring const chosen = list.getSelected();
    for (unsigned i = 0; i < list.getEntryCount(); ++i)
        if (auto const* entry = list.getEntry(i); entry && entry->value == chosen)
            return sstoq(entry->text);
    return sstoq(chosen);
}

/// What screen readers call it.
QString labelOf(QString const& kind, guiHtmlControl* control)
{
    static QStringList const kNamedByOthers = {"field", "list", "check box", "radio button"};
    return kNamedByOthers.contains(kind) ? guiControlNameOf(control) : guiAccessNameOf(control);
}

void addControl(QJsonObject& item, guiHtmlControl* control)
{
    QString const kind = kindOfControl(control);
    item["kind"] = kind;
    item["value"] = valueOf(control);
    item["label"] = labelOf(kind, control);
    if (auto* list = dynamic_cast<guiHtmlControlList*>(control))
        item["text"] = textOfList(*list);
    else
        item["text"] = sstoq(control->getText());
    if (auto* button = dynamic_cast<guiHtmlControlButton*>(control); button && button->isCheckable()) {
        item["isChecked"] = button->isChecked() != 0;
        item["group"] = button->getButtonType() == kButtonRadio ? sstoq(control->getName()) : QString();
        item["part"] = sstoq(control->getText());
    }
    QWidget const* const widget = control->getChildWidget();
    if (auto const* button = qobject_cast<QAbstractButton const*>(widget); button && item["text"].toString().isEmpty())
        item["text"] = guiDriver_plainText(button->text()); // of an item of a menu
    if (widget && widget->property("readOnly").toBool())
        item["isReadOnly"] = true;
    if (control->isEnabled() == 0 || (widget && !widget->isEnabled()))
        item["isDisabled"] = true;
}

// ---- The tree ----

/// Why nothing in the sheet is seen.
QString reasonOf(guiHtml* sheet)
{
    if (auto* tab = dynamic_cast<guiHtmlTabSheet*>(sheet))
        return QStringLiteral("on the tab \"%1\", which is not shown").arg(guiDriver_plainText(tab->look(0).text));
    if (auto const* folded = dynamic_cast<guiHtmlDetailsSheet*>(sheet); folded && folded->summary())
        return QStringLiteral("folded below \"%1\"").arg(sstoq(folded->summary()->getText()));
    return QStringLiteral("hidden");
}

class pageReader
{
public:
    void read(guiHtml* node);

    QJsonArray items;

private:
    void add(guiHtml* node, QJsonObject item, QJsonObject thing);
    void addNode(guiHtml* node);
    void addLinks(guiHtml* node);
    void addTabs(guiHtmlTabBar& bar);
    void addMenus(guiHtmlControlMenu& menu);

    QString m_hidden; // why what is read now is not seen; "" when it is
};

void pageReader::add(guiHtml* node, QJsonObject item, QJsonObject thing)
{
    thing["node"] = address(node);
    item["thing"] = thing;
    if (!m_hidden.isEmpty()) {
        item["isHidden"] = true;
        item["why"] = m_hidden;
    }
    if (node->isEnabled() == 0)
        item["isDisabled"] = true;
    items.append(item);
}

void pageReader::addLinks(guiHtml* node)
{
    std::vector<unsigned> places;
    node->findLinks(places);
    for (unsigned const place : places)
        add(node, {{"kind", "link"}, {"text", sstoq(node->getLinkText(place)).simplified()}},
            {{"link", static_cast<int>(place)}});
}

void pageReader::addTabs(guiHtmlTabBar& bar)
{
    auto const* const tabs = dynamic_cast<guiHtmlTabs*>(bar.getParent());
    int place = 0;
    for (guiHtmlTabSheet* sheet : tabs ? tabs->sheets() : std::vector<guiHtmlTabSheet*>()) {
        guiTabLook const look = sheet->look(place);
        QJsonObject item{{"kind", "tab"}, {"text", guiDriver_plainText(look.text)}, {"part", look.key}};
        if (!look.isEnabled)
            item["isDisabled"] = true;
        add(&bar, item, {{"part", place++}});
    }
}

void pageReader::addMenus(guiHtmlControlMenu& menu)
{
    if (QWidget* const bar = menu.getMenuBar())
        for (QJsonValue const each : guiDriver_lookAtActions(bar, QStringLiteral("menu")))
            items.append(each);
}

void pageReader::addNode(guiHtml* node)
{
    QJsonObject item;
    if (sstring const name = node->getName(); name.getLength() != 0)
        item["name"] = sstoq(name);
    if (auto* control = dynamic_cast<guiHtmlControl*>(node))
        addControl(item, control);
    else if (item.contains("name"))
        item["kind"] = QStringLiteral("element");
    if (item.contains("kind"))
        add(node, item, {});
}

void pageReader::read(guiHtml* node)
{
    QString const around = m_hidden;
    if (node->m.visible == 0 && m_hidden.isEmpty())
        m_hidden = reasonOf(node);
    addNode(node);
    addLinks(node);
    if (auto* bar = dynamic_cast<guiHtmlTabBar*>(node))
        addTabs(*bar);
    if (auto* menu = dynamic_cast<guiHtmlControlMenu*>(node))
        addMenus(*menu);
    for (guiHtml* child : guiNodesOf(node))
        read(child);
    m_hidden = around;
}

} // namespace

QJsonArray guiDriver_look(QWidget* window)
{
    assertOnGuiThread();
    guiHtmlBase* const page = guiDriver_pageOf(window);
    if (!page)
        return guiDriver_lookAtWidgets(window);
    pageReader reader;
    reader.read(page);
    return reader.items;
}

guiDriverThing guiDriver_find(QWidget* window, QJsonObject const& thing)
{
    guiDriverThing found;
    bool isNumber = false;
    if (quintptr const node = thing["node"].toString().toULongLong(&isNumber, 16); isNumber) {
        found.node = reinterpret_cast<guiHtml*>(node);
        if (!pGUI->contains(found.node) || found.node->getTopLevelWidget() != window)
            return {};
    }
    QList<QWidget*> const widgets = thing.contains("widget") ? window->findChildren<QWidget*>() : QList<QWidget*>();
    for (QWidget* each : widgets)
        if (address(each) == thing["widget"].toString())
            found.widget = each;
    if (thing["widget"].toString() == address(window))
        found.widget = window;
    found.link = thing["link"].toInt(-1);
    found.part = thing["part"].toInt(-1);
    return found;
}

QString guiDriver_textOf(guiHtml* node)
{
    assertOnGuiThread();
    guiTextFlow const flow(node, guiTextFlow::scope::kAll);
    QString text;
    for (std::size_t i = 0; i < flow.size(); ++i) {
        if (guiIsPutAway(flow[i].node))
            continue;
        guiFlowGap const gap = flow[i].gap;
        if (!text.isEmpty() && (gap.hasParagraph || gap.hasLine))
            text += u'\n';
        else if (!text.isEmpty())
            text += gap.cells != 0 ? u'\t' : u' ';
        text += guiVisibleText(flow[i].node->editText().view()).text().trimmed();
    }
    return text;
}

QJsonObject guiDriver_rowsOf(guiDriverThing const& thing)
{
    assertOnGuiThread();
    QString packed;
    if (auto* list = dynamic_cast<guiHtmlControlFlex*>(thing.node))
        packed = list->packedRows();
    else if (auto const* few = dynamic_cast<guiHtmlControlList*>(thing.node))
        packed = few->items();
    else
        return {{"problem", "it is no list"}};
    QByteArray const units(reinterpret_cast<char const*>(packed.utf16()), packed.size() * qsizetype{sizeof(char16_t)});
    return {{"packed", QString::fromLatin1(units.toBase64())},
            {"isRich", dynamic_cast<guiHtmlControlFlex*>(thing.node) != nullptr}};
}
