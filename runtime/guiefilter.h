// runtime/guiefilter.h: the filter in front of the application that holds user input back while script code runs.
#pragma once

#include "foundation/vela-threadrole.h"
#include "runtime/guievents.h"
#include "runtime/guikeptkeys.h"

#include <QObject>
#include <QPointer>
#include <QWindow>
#include <atomic>

/// Drops user input while its counters say so. The counters change on any thread; the filter itself runs on the GUI
/// thread.
class guiEventFilter : public QObject
{
    Q_OBJECT

public:
    /// Blocks all key and mouse input until the matching deactivate(). Calls nest; a surplus deactivate() does nothing.
    /// If the pointer has moved meanwhile, the window under it is told the last position afterwards. What was typed
    /// into a text field meanwhile is given to it afterwards (runtime/guikeptkeys.h); all else is dropped.
    void activate();
    void deactivate();
    /// The same for mouse moves only.
    void activateMM();
    void deactivateMM();
    /// Lets everything through at once, whatever the counters said.
    void forceDeactivate();

    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

    std::atomic<unsigned> inputBlock{0};     ///< calls of activate() without their deactivate() so far
    std::atomic<unsigned> mouseMoveBlock{0}; ///< the same for activateMM()

private:
    bool isTypedLater(QObject* watched, QEvent const& event) TARN_ON(velaGuiRole);
    bool holdBack(QObject* watched, QEvent::Type type) TARN_ON(velaGuiRole);
    void catchUpLater();
    void catchUp() TARN_ON(velaGuiRole);
    void catchUpMove() TARN_ON(velaGuiRole);

    std::atomic<bool> m_missedMove{false};
    QPointer<QWindow> m_pointerWindow TARN_GUARDED_BY(velaGuiRole); // where the missed move went
    guiKeptKeys m_keys;
};
