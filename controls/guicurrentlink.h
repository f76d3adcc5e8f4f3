// controls/guicurrentlink.h: the link of a page that has the keyboard: Return follows it, a ring is drawn around it,
// and screen readers hear of it. Tab makes a link the current one (guitabstops.h), or a click.
#pragma once

#include "controls/guilinkplace.h"
#include "foundation/vela-threadrole.h"
#include "page/guinodewatch.h"

#include <QPainterPath>
#include <Qt>
#include <optional>

class QPainter;
class QWidget;

/// At most one for each window, and none while a control has the keyboard. GUI thread.
class guiCurrentLink
{
public:
    /// `window` is not owned.
    explicit guiCurrentLink(QWidget& window) : m_window(window) {}

    /// None once its node is gone, put away or disabled.
    std::optional<guiLinkPlace> get() const;
    /// Makes the link the current one and gives its window's page the keyboard. The ring is for those who use keys:
    /// after a click there is none before the first key. May run script.
    void take(guiLinkPlace const& link, Qt::FocusReason reason) TARN_ON(velaGuiRole);
    /// From now on there is none.
    void drop() TARN_ON(velaGuiRole);
    /// Does what a click does; false when there is none. Runs script.
    bool follow() TARN_ON(velaGuiRole);
    /// Draws the ring, in coordinates of the window.
    void paint(QPainter& painter) const TARN_ON(velaGuiRole);

private:
    /// Around all pieces of the link, in coordinates of the window.
    static QPainterPath ringOf(guiLinkPlace const& link);
    void repaint() const;

    QWidget& m_window;
    std::optional<guiNodeWatch> m_node; // of the link; none: there is no link
    unsigned m_place = guiHtml::kNoLink;
    bool m_hasRing = false;
};
