// controls/guilatewidgets.h: widgets that are made late. A widget costs a hundred times what its node costs, and of a
// page with thousands of controls the user sees a few at a time. So on a large page the widget of a control of a
// frequent kind is made when it is needed: it comes into view, gets the focus, or script asks for more than its value.
// Until then the node answers for it. Of the widgets that are out of view again most are deleted while others are made.
#pragma once

#include "foundation/vela-string.h"
#include "foundation/vela-threadrole.h"

#include <QHash>
#include <QString>
#include <cstddef>
#include <memory>
#include <vector>

class guiHtml;
class guiHtmlControl;
class guiHtmlControlButton;
class guiWidget;

/// The radio buttons of one name, of which some have a widget. GUI thread.
struct guiRadioGroup
{
    std::vector<guiHtmlControlButton*> buttons; ///< not owned; in the order of the page
    guiHtmlControlButton* checked = nullptr;    ///< one of them; null: none
};

/// Those of one window, part of it. GUI thread.
class guiLateWidgets
{
public:
    /// A page with no more controls gets all its widgets at once, which costs less than 0.2 s.
    static constexpr unsigned kMostAtOnce = 2000;

    explicit guiLateWidgets(guiWidget& window) : m_window(window) {}
    ~guiLateWidgets();
    guiLateWidgets(guiLateWidgets const&) = delete;
    guiLateWidgets& operator=(guiLateWidgets const&) = delete;

    /// Whether the widgets of the page are made late, or those of a part of it in which the control is.
    bool concerns(guiHtmlControl* control) TARN_ON(velaGuiRole);
    /// The control has a widget that may go when it is out of view; lets go of others.
    void add(guiHtmlControl* control) TARN_ON(velaGuiRole);
    /// The control has none any more.
    void forget(guiHtmlControl* control);
    /// The group of this name, compared without regard to case; made when it is asked for.
    std::shared_ptr<guiRadioGroup> groupOf(sstring const& name) TARN_ON(velaGuiRole);

private:
    bool isLargePage() TARN_ON(velaGuiRole);
    bool isFar(guiHtmlControl* control) const;
    void letGoOfSome() TARN_ON(velaGuiRole);

    guiWidget& m_window;
    std::vector<guiHtmlControl*> m_shown; // that have widgets which may go; not owned
    std::size_t m_next = 0;               // which of them is looked at next
    unsigned long m_generation = 0;       // of the answer below, see guiHtml::generation()
    bool m_isLarge = false;
    QHash<QString, std::weak_ptr<guiRadioGroup>> m_groups;
};

/// For parts of a page that are hidden at first, such as the pages behind tabs. `now` false: the controls at and below
/// the node get their widgets when they come into view, even on a small page, and those that they have go; meanwhile
/// the nodes answer for them, also when the part has never been laid out. `now` true: all of them get their widgets.
/// The page has to be in a window for more than the first half of this. GUI thread.
void guiMakeWidgets(guiHtml* node, bool now);
