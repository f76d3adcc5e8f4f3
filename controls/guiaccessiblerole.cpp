// controls/guiaccessiblerole.cpp: see guiaccessiblerole.h.
#include "controls/guiaccessiblerole.h"

#include <QAccessibleWidget>
#include <QVariant>
#include <QWidget>

namespace {

constexpr char kRole[] = "tarn-role"; // a property of the widget

QAccessibleInterface* makeInterface(QString const&, QObject* object)
{
    auto* widget = qobject_cast<QWidget*>(object);
    QVariant const role = widget ? widget->property(kRole) : QVariant();
    return role.isValid() ? new QAccessibleWidget(widget, static_cast<QAccessible::Role>(role.toInt())) : nullptr;
}

} // namespace

void guiSetAccessibleRole(QWidget* widget, QAccessible::Role role)
{
    static bool isInstalled = false;
    if (!isInstalled)
        QAccessible::installFactory(makeInterface);
    isInstalled = true;
    widget->setProperty(kRole, static_cast<int>(role));
}
