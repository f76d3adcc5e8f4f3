// controls/guiowncolors.cpp: see guiowncolors.h.
#include "controls/guiowncolors.h"

#include "foundation/vela-threadrole.h"
#include "page/guicolor.h"
#include "page/guicontrast.h"
#include "page/guiinks.h"

#include <QEvent>
#include <QPalette>
#include <QWidget>
#include <utility>
#include <vector>

namespace {

/// Belongs to the widget.
class ownColors : public QObject
{
public:
    explicit ownColors(QWidget* widget) : QObject(widget), m_widget(widget) { widget->installEventFilter(this); }

    static ownColors& of(QWidget* widget)
    {
        for (QObject* child : widget->children())
            if (auto* found = dynamic_cast<ownColors*>(child))
                return *found;
        return *new ownColors(widget);
    }

    void add(guiColorChooser choose)
    {
        m_choosers.push_back(std::move(choose));
        chooseAll();
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        bool const isChange =
            event->type() == QEvent::PaletteChange || event->type() == QEvent::ApplicationPaletteChange;
        if (isChange && !m_isChoosing)
            chooseAll();
        return QObject::eventFilter(watched, event);
    }

private:
    // Without colours of its own the widget has those around it.
    void chooseAll()
    {
        m_isChoosing = true;
        m_widget->setPalette(QPalette());
        QPalette own;
        for (guiColorChooser const& each : m_choosers)
            each(m_widget->palette(), own);
        m_widget->setPalette(own);
        m_isChoosing = false;
    }

    QWidget* m_widget; // owns this
    std::vector<guiColorChooser> m_choosers;
    bool m_isChoosing = false;
};

void setInk(QPalette& own, QPalette::ColorGroup group, guiColor ink)
{
    for (QPalette::ColorRole role : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text})
        own.setColor(group, role, toQColor(ink));
}

} // namespace

void guiChooseColors(QWidget* widget, guiColorChooser choose)
{
    assertOnGuiThread();
    ownColors::of(widget).add(std::move(choose));
}

void guiReadOnPage(QWidget* widget, guiHtml* node)
{
    assertOnGuiThread();
    if (!guiGroundOf(node).isGiven)
        return;
    guiChooseColors(widget, [node](QPalette const& around, QPalette& own) {
        assertOnGuiThread();
        constexpr double kPale = 0.5;
        guiGround const ground = guiGroundOf(node);
        if (guiContrast(qtogui(around.color(QPalette::WindowText)), ground.color) >= kLeastContrast)
            return;
        guiColor const ink = guiIsDark(ground.color) ? guiColor::White : guiColor::Black;
        setInk(own, QPalette::Active, ink);
        setInk(own, QPalette::Inactive, ink);
        setInk(own, QPalette::Disabled, guiMixed(ink, ground.color, kPale));
    });
}
