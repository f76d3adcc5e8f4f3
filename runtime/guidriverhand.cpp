// runtime/guidriverhand.cpp: see guidriverhand.h.
#include "runtime/guidriverhand.h"

#include "foundation/vela-threadrole.h"

#include <QMetaObject>
#include <QWindow>
#include <functional>

// The toolkit's entry for tests, which takes what a plug-in for a display hands over. Its test library uses them.
QT_BEGIN_NAMESPACE
Q_GUI_EXPORT void qt_handleMouseEvent(QWindow* window, QPointF const& local, QPointF const& global,
                                      Qt::MouseButtons state, Qt::MouseButton button, QEvent::Type type,
                                      Qt::KeyboardModifiers modifiers, int timestamp);
Q_GUI_EXPORT bool qt_handleKeyEvent(QWindow* window, QEvent::Type type, int key, Qt::KeyboardModifiers modifiers,
                                    QString const& text, bool isRepeated, ushort count);
QT_END_NAMESPACE

namespace {

/// Two clicks are so far apart that they are no double click by chance, milliseconds.
constexpr int kApartMs = 2000;

int theTimeMs = 0; // of the next step of the mouse; GUI thread

struct mouseStep
{
    QPoint place;
    QEvent::Type type;
    Qt::MouseButton button;
    Qt::KeyboardModifiers modifiers;
    int timeMs;
};

/// Not by the component's own events, during which moves of the mouse are held back.
void post(QWidget* window, std::function<void(QWindow* handle)> const& work)
{
    auto const run = [window, work] {
        if (window->windowHandle())
            work(window->windowHandle());
    };
    QMetaObject::invokeMethod(window, run, Qt::QueuedConnection);
}

void postMouse(QWidget* window, mouseStep const& step)
{
    post(window, [step](QWindow* handle) {
        bool const isDown = step.type == QEvent::MouseButtonPress;
        Qt::MouseButtons const held = isDown ? Qt::MouseButtons(step.button) : Qt::MouseButtons();
        qt_handleMouseEvent(handle, step.place, handle->mapToGlobal(step.place), held, step.button, step.type,
                            step.modifiers, step.timeMs);
    });
}

void postKey(QWidget* window, int key, Qt::KeyboardModifiers modifiers, QString const& text)
{
    for (QEvent::Type const type : {QEvent::KeyPress, QEvent::KeyRelease})
        post(window, [=](QWindow* handle) { qt_handleKeyEvent(handle, type, key, modifiers, text, false, 1); });
}

/// What a key without Ctrl, Alt or Meta writes.
QString textOf(int key, Qt::KeyboardModifiers modifiers)
{
    if (modifiers & ~(Qt::ShiftModifier | Qt::KeypadModifier))
        return {};
    if (key == Qt::Key_Return || key == Qt::Key_Enter)
        return QStringLiteral("\r");
    if (key == Qt::Key_Tab)
        return QStringLiteral("\t");
    if (key >= Qt::Key_Escape || key < Qt::Key_Space)
        return {};
    QString const text = QChar(static_cast<char16_t>(key));
    return modifiers & Qt::ShiftModifier ? text : text.toLower();
}

} // namespace

void guiDriver_click(QWidget* window, QPoint place, guiDriverClick click, Qt::KeyboardModifiers modifiers)
{
    assertOnGuiThread();
    theTimeMs += click == guiDriverClick::kAgain ? 1 : kApartMs;
    Qt::MouseButton const button = click == guiDriverClick::kRight ? Qt::RightButton : Qt::LeftButton;
    postMouse(window, {place, QEvent::MouseMove, Qt::NoButton, modifiers, theTimeMs});
    if (click == guiDriverClick::kMove)
        return;
    for (QEvent::Type const type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease})
        postMouse(window, {place, type, button, modifiers, ++theTimeMs});
}

void guiDriver_press(QWidget* window, QKeySequence const& keys)
{
    assertOnGuiThread();
    for (int i = 0; i < keys.count(); ++i) {
        QKeyCombination const each = keys[static_cast<uint>(i)];
        bool const isBack = each.key() == Qt::Key_Tab && each.keyboardModifiers() & Qt::ShiftModifier; // as displays do
        postKey(window, isBack ? int{Qt::Key_Backtab} : each.key(), each.keyboardModifiers(),
                textOf(each.key(), each.keyboardModifiers()));
    }
}

void guiDriver_type(QWidget* window, QString const& text)
{
    assertOnGuiThread();
    for (uint const character : text.toUcs4()) {
        if (character == '\n') {
            postKey(window, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
            continue;
        }
        char32_t const unit = character;
        QString const typed = QString::fromUcs4(&unit, 1);
        bool const isUpper = typed != typed.toLower();
        int const key = typed.size() == 1 ? typed.toUpper().at(0).unicode() : int{Qt::Key_unknown};
        postKey(window, character == '\t' ? int{Qt::Key_Tab} : key, isUpper ? Qt::ShiftModifier : Qt::NoModifier,
                typed);
    }
}
