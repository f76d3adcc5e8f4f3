// controls/guihtmlcontrolflex-script.cpp: the methods of a flex list for script, and its value in the form.
#include "controls/guiformproperty.h"
#include "controls/guihtmlcontrolflex.h"
#include "controls/guipackedscript.h"
#include "controls/guiscriptmethod.h"
#include "controls/guiscriptvalue.h"
#include "foundation/vela-qt.h"
#include "page/guinumbers.h"

#include <algorithm>
#include <cassert>

bool guiHtmlControlFlex::takesFormValue(ScriptValue& value) const { return value.isNull() || guiTakesText(value); }

void guiHtmlControlFlex::readFormProperty(ScriptObject* form)
{
    guiFormProperty value(form, getName());
    if (!value.read())
        return;
    if (value.isNull())
        clearSelection();
    else if (value.isString())
        setItemSelected(value.text(), 1);
}

void guiHtmlControlFlex::writeFormProperty(ScriptObject* form)
{
    guiFormProperty value(form, getName());
    guiRowNumber const row = firstSelected();
    if (row == kNoRow)
        value.writeNull();
    else
        value.write(qtoss(rowValue(row)));
}

void guiHtmlControlFlex::eraseFormProperty(ScriptObject* form) { guiFormProperty(form, getName()).erase(); }

namespace {

using flexNode = guiHtmlControlFlex;

/// The list, when the first argument is a row's value.
flexNode* listFor(ScriptPrivate* data, ScriptObject* self, ScriptArgs& args)
{
    return guiIsString(args, 0) ? guiControlOf<flexNode>(data, self) : nullptr;
}

/// A method that returns a state of a row.
template <int (flexNode::*getter)(sstring const& value)>
void ask_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    flexNode* flex = args.count() == 1 ? listFor(data, self, args) : nullptr;
    result.setBool(flex && (flex->*getter)(guiTextOf(args, 0)));
}

/// A method that turns a state on, or, with a second argument, on or off.
template <void (flexNode::*setter)(sstring const& value, int on)>
void set_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    result.setNull();
    bool hasSwitch = args.count() == 2 && guiIsSwitch(args, 1);
    flexNode* flex = args.count() == 1 || hasSwitch ? listFor(data, self, args) : nullptr;
    if (flex)
        (flex->*setter)(guiTextOf(args, 0), hasSwitch ? guiSwitchOf(args, 1) : 1);
}

/// A method that turns a state off.
template <void (flexNode::*setter)(sstring const& value, int on)>
void clear_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    result.setNull();
    if (flexNode* flex = args.count() == 1 ? listFor(data, self, args) : nullptr)
        (flex->*setter)(guiTextOf(args, 0), 0);
}

void control_scrollToTop_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    result.setNull();
    if (flexNode* flex = args.count() == 0 ? guiControlOf<flexNode>(data, self) : nullptr)
        flex->scrollToTop();
}

/// The type of a row, by the word that pages use or by number.
guiHtmlControlFlexEntryType rowType(ScriptArgs& args, int index)
{
    if (guiIsNumber(args, index)) {
        int const number = args.get(index)->toInt(0);
        return number == kFlexCheckBox || number == kFlexRadio ? static_cast<guiHtmlControlFlexEntryType>(number)
                                                               : kFlexPlain;
    }
    sstring const word = guiIsString(args, index) ? guiTextOf(args, index) : sstring();
    if (guiIsWord(word, "checkbox"))
        return kFlexCheckBox;
    return guiIsWord(word, "radiobutton") ? kFlexRadio : kFlexPlain;
}

/// Arguments: value, text, parent and type; the last ones may be missing.
void control_addItem_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    result.setNull();
    if (args.count() > 4)
        return;
    for (int i = 1; i < std::min(args.count(), 3); ++i)
        if (!guiIsString(args, i) && !args.get(i)->isNull())
            return;
    if (flexNode* flex = listFor(data, self, args))
        flex->addItem(guiTextOf(args, 0), args.count() > 1 ? guiTextOf(args, 1) : sstring(),
                      args.count() > 2 ? guiTextOf(args, 2) : sstring(), rowType(args, 3));
}

void control_removeItem_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    result.setNull();
    if (flexNode* flex = args.count() == 1 ? listFor(data, self, args) : nullptr)
        flex->removeItem(guiTextOf(args, 0));
}

void control_setHeaderEnabled_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args,
                                 ScriptValue& result)
{
    result.setNull();
    flexNode* flex = args.count() == 1 && guiIsSwitch(args, 0) ? guiControlOf<flexNode>(data, self) : nullptr;
    if (flex)
        flex->setHeaderEnabled(guiSwitchOf(args, 0));
}

void control_setColumnWidth_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args,
                               ScriptValue& result)
{
    result.setNull();
    bool const fits = args.count() == 2 && guiIsNumber(args, 0) && guiIsNumber(args, 1);
    if (flexNode* flex = fits ? guiControlOf<flexNode>(data, self) : nullptr)
        flex->setColumnWidth(args.get(0)->toInt(0), args.get(1)->toInt(0));
}

void control_setColumnText_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args,
                              ScriptValue& result)
{
    result.setNull();
    bool const fits = args.count() == 2 && guiIsNumber(args, 0) && guiIsString(args, 1);
    if (flexNode* flex = fits ? guiControlOf<flexNode>(data, self) : nullptr)
        flex->setColumnText(args.get(0)->toInt(0), guiTextOf(args, 1));
}

void control_setItemText_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    result.setNull();
    bool const fits = args.count() == 3 && guiIsNumber(args, 1) && guiIsString(args, 2);
    if (flexNode* flex = fits ? listFor(data, self, args) : nullptr)
        flex->setItemText(guiTextOf(args, 0), args.get(1)->toInt(0), guiTextOf(args, 2));
}

// ---- The list as data: for the package's own JavaScript, which packs and unpacks ----

/// The packed rows that are the only argument; null when it is something else.
void control_setPackedRows_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args,
                              ScriptValue& result)
{
    auto const packed = guiPackedArgument(args);
    flexNode* flex = packed ? guiControlOf<flexNode>(data, self) : nullptr;
    result.setBool(flex != nullptr);
    if (flex)
        flex->setRows(packed);
}

void forgetResult(ScriptValue&, void*) {}

/// Calls `provider(first, count)`, which calls giveRows() when it has the rows.
void askProvider(std::shared_ptr<ScriptObject> const& provider, unsigned first, unsigned count)
{
    HostPlatform* const platform = guiControlHost::current().platform();
    ScriptArgs* const args = platform->createArgs(provider->getEngine());
    guiScratchValue const value;
    for (unsigned const number : {first, count}) {
        value->setNumber(number);
        args->append(value.get());
    }
    provider->callMethodAsync(provider.get(), sstring(), args, forgetResult, nullptr);
    platform->destroyArgs(args);
}

/// Arguments: how many rows there are, and the function that is asked for them.
void control_setSource_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    result.setNull();
    bool const fits = args.count() == 2 && guiIsNumber(args, 0) && args.get(1)->isFunction();
    flexNode* flex = fits ? guiControlOf<flexNode>(data, self) : nullptr;
    if (!flex)
        return;
    std::shared_ptr<ScriptObject> const provider = guiKept(args.get(1)->toObject(0));
    auto const count = static_cast<unsigned>(std::max(0, args.get(0)->toInt(0)));
    flex->setSource(std::make_shared<guiListSource>(
        count, [provider](unsigned first, unsigned rows) { askProvider(provider, first, rows); }));
}

/// Arguments: the first row, and the rows as packed text or null.
void control_giveRows_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    result.setNull();
    bool const fits = args.count() == 2 && guiIsNumber(args, 0);
    flexNode* flex = fits ? guiControlOf<flexNode>(data, self) : nullptr;
    if (!flex)
        return;
    auto const first = static_cast<unsigned>(std::max(0, args.get(0)->toInt(0)));
    flex->giveRows(first, guiIsString(args, 1) ? guiPackedRows::read(guiTextOf(args, 1)) : nullptr);
}

constexpr guiScriptMethod kMethods[] = {
    {"scrollToTop", guiCallOnGuiThread<control_scrollToTop_qt>},
    {"isItemChecked", guiCallOnGuiThread<ask_qt<&flexNode::isItemChecked>>},
    {"checkItem", guiCallOnGuiThread<set_qt<&flexNode::setItemChecked>>},
    {"uncheckItem", guiCallOnGuiThread<clear_qt<&flexNode::setItemChecked>>},
    {"isItemSelected", guiCallOnGuiThread<ask_qt<&flexNode::isItemSelected>>},
    {"selectItem", guiCallOnGuiThread<set_qt<&flexNode::setItemSelected>>},
    {"unselectItem", guiCallOnGuiThread<clear_qt<&flexNode::setItemSelected>>},
    {"isItemEnabled", guiCallOnGuiThread<ask_qt<&flexNode::isItemEnabled>>},
    {"enableItem", guiCallOnGuiThread<set_qt<&flexNode::setItemEnabled>>},
    {"disableItem", guiCallOnGuiThread<clear_qt<&flexNode::setItemEnabled>>},
    {"isItemExpanded", guiCallOnGuiThread<ask_qt<&flexNode::isItemExpanded>>},
    {"expandItem", guiCallOnGuiThread<set_qt<&flexNode::setItemExpanded>>},
    {"collapseItem", guiCallOnGuiThread<clear_qt<&flexNode::setItemExpanded>>},
    {"addItem", guiCallOnGuiThread<control_addItem_qt>},
    {"removeItem", guiCallOnGuiThread<control_removeItem_qt>},
    {"setHeaderEnabled", guiCallOnGuiThread<control_setHeaderEnabled_qt>},
    {"setColumnWidth", guiCallOnGuiThread<control_setColumnWidth_qt>},
    {"setColumnText", guiCallOnGuiThread<control_setColumnText_qt>},
    {"setItemText", guiCallOnGuiThread<control_setItemText_qt>},
    {"clear", guiCallOnGuiThread<guiClearRows_qt<flexNode>>},
    {"setPackedRows", guiCallOnGuiThread<control_setPackedRows_qt>},
    {"setProvider", guiCallOnGuiThread<control_setSource_qt>},
    {"giveRows", guiCallOnGuiThread<control_giveRows_qt>},
    {"getPackedRows", guiCallOnGuiThread<guiReadPacked_qt<flexNode, &flexNode::packedRows>>},
    {"getSelection", guiCallOnGuiThread<guiReadPacked_qt<flexNode, &flexNode::selection>>},
    {"setSelection", guiCallOnGuiThread<guiWritePacked_qt<flexNode, &flexNode::setSelection>>},
    {"getChecked", guiCallOnGuiThread<guiReadPacked_qt<flexNode, &flexNode::checkedRows>>},
    {"setChecked", guiCallOnGuiThread<guiWritePacked_qt<flexNode, &flexNode::setCheckedRows>>},
    {"getColumns", guiCallOnGuiThread<guiReadPacked_qt<flexNode, &flexNode::columns>>},
    {"setColumns", guiCallOnGuiThread<guiWritePacked_qt<flexNode, &flexNode::setColumns>>},
};

} // namespace

void guiHtmlControlFlex::addScriptMethods(ScriptObject* object)
{
    for (guiScriptMethod const& each : kMethods)
        object->addMethod(each.name, each.method);
}
