// runtime/guidriverlook-widgets.cpp: see guidriverlook-widgets.h.
#include "runtime/guidriverlook-widgets.h"

#include "foundation/vela-threadrole.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QCheckBox>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>

namespace {

QJsonObject thingOf(QWidget const* widget, int part = -1)
{
    QJsonObject thing{{"widget", QString::number(reinterpret_cast<quintptr>(widget), 16)}};
    if (part >= 0)
        thing["part"] = part;
    return thing;
}

QJsonObject itemOf(QWidget const* widget)
{
    if (auto const* button = qobject_cast<QAbstractButton const*>(widget); button && !button->text().isEmpty()) {
        bool const isBox = button->isCheckable();
        QJsonObject item{{"kind", isBox ? "check box" : "button"}, {"text", guiDriver_plainText(button->text())}};
        if (isBox)
            item["isChecked"] = button->isChecked();
        return item;
    }
    if (auto const* field = qobject_cast<QLineEdit const*>(widget))
        return {{"kind", "field"}, {"text", field->text()}, {"value", field->text()}};
    if (auto const* label = qobject_cast<QLabel const*>(widget); label && !label->text().trimmed().isEmpty())
        return {{"kind", "text"}, {"text", label->buddy() ? guiDriver_plainText(label->text()) : label->text()}};
    return qobject_cast<QAbstractItemView const*>(widget) ? QJsonObject{{"kind", "list"}} : QJsonObject();
}

} // namespace

QString guiDriver_plainText(QString const& text)
{
    QString plain;
    QString const shown = text.section(u'\t', 0, 0);
    for (qsizetype i = 0; i < shown.size(); ++i) {
        if (shown[i] == u'&' && ++i == shown.size())
            break;
        plain += shown[i];
    }
    return plain;
}

QJsonArray guiDriver_lookAtActions(QWidget* menu, QString const& kind)
{
    QJsonArray items;
    QList<QAction*> const actions = menu->actions();
    for (int i = 0; i < actions.size(); ++i) {
        QAction const& action = *actions[i];
        if (action.isSeparator() || !action.isVisible())
            continue;
        QJsonObject item{{"kind", kind}, {"text", guiDriver_plainText(action.text())}, {"thing", thingOf(menu, i)}};
        if (action.isCheckable())
            item["isChecked"] = action.isChecked();
        if (!action.isEnabled())
            item["isDisabled"] = true;
        items.append(item);
    }
    return items;
}

QJsonArray guiDriver_lookAtWidgets(QWidget* window)
{
    assertOnGuiThread();
    if (qobject_cast<QMenu*>(window))
        return guiDriver_lookAtActions(window, QStringLiteral("item"));
    QJsonArray items;
    for (QWidget const* each : window->findChildren<QWidget*>()) {
        QJsonObject item = each->isVisibleTo(window) ? itemOf(each) : QJsonObject();
        if (item.isEmpty())
            continue;
        if (!each->objectName().isEmpty() && !each->objectName().startsWith(QStringLiteral("qt_")))
            item["name"] = each->objectName();
        if (!each->isEnabled())
            item["isDisabled"] = true;
        item["thing"] = thingOf(each);
        items.append(item);
    }
    return items;
}
