// controls/guiaccessrole.cpp: see guiaccessrole.h.
#include "controls/guiaccessrole.h"

#include "controls/guihtmlcontrolbutton.h"
#include "controls/guihtmlcontroledit.h"
#include "controls/guihtmlimage.h"
#include "foundation/vela-qt.h"
#include "page/guihtml.h"
#include "page/guirareattributes.h"

#include <algorithm>

namespace {

struct namedRole
{
    char const* name;
    QAccessible::Role role;
};

/// What `role` may say, under the names that pages use elsewhere.
constexpr namedRole kRoles[] = {
    {"alert", QAccessible::AlertMessage}, {"button", QAccessible::Button},
    {"chart", QAccessible::Chart},        {"checkbox", QAccessible::CheckBox},
    {"figure", QAccessible::Graphic},     {"group", QAccessible::Grouping},
    {"img", QAccessible::Graphic},        {"list", QAccessible::List},
    {"listitem", QAccessible::ListItem},  {"meter", QAccessible::ProgressBar},
    {"note", QAccessible::Note},          {"progressbar", QAccessible::ProgressBar},
    {"radio", QAccessible::RadioButton},  {"separator", QAccessible::Separator},
    {"slider", QAccessible::Slider},      {"spinbutton", QAccessible::SpinBox},
    {"status", QAccessible::StatusBar},   {"switch", QAccessible::CheckBox},
    {"text", QAccessible::StaticText},
};

QAccessible::Role customRole(guiHtml const* node)
{
    QString const wanted = sstoq(guiRareAttributeOf(node, guiRareAttribute::kRole)).trimmed().toLower();
    auto const found = std::find_if(std::begin(kRoles), std::end(kRoles),
                                    [&](namedRole const& each) { return wanted == QLatin1String(each.name); });
    return found != std::end(kRoles) ? found->role : QAccessible::Canvas;
}

QAccessible::Role controlRole(guiHtml* node)
{
    if (dynamic_cast<guiHtmlControlEdit*>(node))
        return QAccessible::EditableText;
    auto const* const button = dynamic_cast<guiHtmlControlButton*>(node);
    if (!button)
        return node->awaitsWidget() ? QAccessible::ComboBox : QAccessible::Section;
    if (button->getButtonType() == kButtonCheckBox)
        return QAccessible::CheckBox;
    return button->getButtonType() == kButtonRadio ? QAccessible::RadioButton : QAccessible::Button;
}

/// A picture with one link for all of it is a link.
QAccessible::Role imageRole(guiHtml* node)
{
    std::vector<unsigned> links;
    node->findLinks(links);
    bool const hasMap = static_cast<guiHtmlImage*>(node)->getImageMap() != nullptr;
    return links.size() == 1 && !hasMap ? QAccessible::Link : QAccessible::Graphic;
}

} // namespace

int guiHeadingLevel(guiHtml const* node) { return sstoq(guiRareAttributeOf(node, guiRareAttribute::kHeading)).toInt(); }

QAccessible::Role guiAccessRoleOf(guiHtml* node)
{
    switch (node->getType()) {
    case guiHtml::kTypeBase:
        return node->getParent() ? QAccessible::Section : QAccessible::WebDocument;
    case guiHtml::kTypeText:
        return guiHeadingLevel(node) != 0 ? QAccessible::Heading : QAccessible::Paragraph;
    case guiHtml::kTypeImage:
        return imageRole(node);
    case guiHtml::kTypeForm:
        return QAccessible::Form;
    case guiHtml::kTypeControl:
        return controlRole(node);
    case guiHtml::kTypeCustom:
        return customRole(node);
    default:
        return node->hasString(kStringCaption) ? QAccessible::Grouping : QAccessible::Section;
    }
}

void guiAddStateOf(guiHtml* control, QAccessible::State& state)
{
    if (auto* const button = dynamic_cast<guiHtmlControlButton*>(control)) {
        state.checkable = button->isCheckable();
        state.checked = button->isCheckable() && button->isChecked();
    }
    state.editable = guiAccessRoleOf(control) == QAccessible::EditableText;
}
