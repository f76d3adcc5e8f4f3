// runtime/guidriverwindows.cpp: see guidriverwindows.h.
#include "runtime/guidriverwindows.h"

#include "controls/guiwidget.h"
#include "foundation/vela-threadrole.h"
#include "runtime/guihtmlbase.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDialog>
#include <QJsonObject>
#include <QMenu>
#include <QVariant>
#include <QWindow>

namespace {

constexpr char kNumber[] = "tarnDriverNumber";

bool isBelow(QWidget const* window, QWidget const* other)
{
    QWindow const* const handle = window->windowHandle();
    if (handle && other->windowHandle() && other->windowHandle()->isAncestorOf(handle, QWindow::IncludeTransients))
        return true;
    for (QWidget const* each = window; each; each = each->parentWidget())
        if (each->window() == other)
            return true;
    return false;
}

/// Whether the modal window `front` keeps input from the other one, as the toolkit decides it.
bool blocks(QWidget const* front, QWidget const* window)
{
    if (front == window || isBelow(window, front))
        return false;
    return front->windowModality() == Qt::ApplicationModal || isBelow(front, window);
}

} // namespace

QString guiDriver_kindOf(QWidget* window)
{
    if (!window->isVisible())
        return {};
    if (qobject_cast<guiWidget*>(window))
        return QStringLiteral("page");
    if (qobject_cast<QMenu*>(window))
        return QStringLiteral("menu");
    if (qobject_cast<QDialog*>(window))
        return QStringLiteral("dialog");
    bool const isList = qobject_cast<QAbstractItemView*>(window) || window->findChild<QAbstractItemView*>();
    return window->windowType() == Qt::Popup && isList ? QStringLiteral("list") : QString();
}

int guiDriver_idOf(QWidget* window)
{
    assertOnGuiThread();
    static int last = 0; // GUI thread
    if (!window->property(kNumber).isValid())
        window->setProperty(kNumber, ++last);
    return window->property(kNumber).toInt();
}

QWidget* guiDriver_windowOf(int id)
{
    for (QWidget* each : QApplication::topLevelWidgets())
        if (each->isVisible() && each->property(kNumber).toInt() == id && id != 0)
            return each;
    return nullptr;
}

guiHtmlBase* guiDriver_pageOf(QWidget* window)
{
    auto* const own = qobject_cast<guiWidget*>(window);
    return own && !own->deletePending ? guiHtmlBase::from(own->htmlBase) : nullptr;
}

QString guiDriver_nameOf(QWidget const* window)
{
    QString const title = window->windowTitle();
    return title.isEmpty() ? QStringLiteral("without a title") : QStringLiteral("\"%1\"").arg(title);
}

QJsonArray guiDriver_windows()
{
    assertOnGuiThread();
    QJsonArray windows;
    for (QWidget* each : QApplication::topLevelWidgets()) {
        QString const kind = guiDriver_kindOf(each);
        if (!kind.isEmpty())
            windows.append(QJsonObject{{"id", guiDriver_idOf(each)},
                                       {"kind", kind},
                                       {"title", each->windowTitle()},
                                       {"isModal", each->isModal()}});
    }
    return windows;
}

QString guiDriver_obstacleOf(QWidget* window)
{
    assertOnGuiThread();
    for (QWidget* each : QApplication::topLevelWidgets())
        if (each->isVisible() && each->isModal() && blocks(each, window))
            return QStringLiteral("behind the %1 %2, which has to be closed first")
                .arg(qobject_cast<guiWidget*>(each) ? "window" : "dialog", guiDriver_nameOf(each));
    return {};
}

QString guiDriver_coverOf(QWidget* window)
{
    if (QString obstacle = guiDriver_obstacleOf(window); !obstacle.isEmpty())
        return obstacle;
    QWidget const* const popup = QApplication::activePopupWidget();
    bool const isCovered = popup && popup != window && !qobject_cast<QMenu*>(window);
    return isCovered ? QStringLiteral("behind a menu that is open") : QString();
}
