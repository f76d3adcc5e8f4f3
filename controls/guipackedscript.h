// controls/guipackedscript.h: methods of lists that give and take packed rows (guipackedrows.h), as script's.
#pragma once

#include "controls/guipackedrows.h"
#include "controls/guiscriptmethod.h"
#include "foundation/vela-qt.h"

#include <memory>

/// The only argument as packed rows; null when it is none.
inline std::shared_ptr<guiPackedRows const> guiPackedArgument(ScriptArgs& args)
{
    return guiIsOneString(args) ? guiPackedRows::read(guiTextOf(args, 0)) : nullptr;
}

/// A method that returns something as packed rows; null when the list is gone.
template <typename Node, auto getter>
void guiReadPacked_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    result.setNull();
    if (Node* node = args.count() == 0 ? guiControlOf<Node>(data, self) : nullptr)
        result.setString(qtoss((node->*getter)()));
}

/// A method that takes packed rows.
template <typename Node, void (Node::*setter)(guiPackedRows const& packed)>
void guiWritePacked_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    result.setNull();
    auto const packed = guiPackedArgument(args);
    if (Node* node = packed ? guiControlOf<Node>(data, self) : nullptr)
        (node->*setter)(*packed);
}

/// Removes all rows.
template <typename Node>
void guiClearRows_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    result.setNull();
    if (Node* node = args.count() == 0 ? guiControlOf<Node>(data, self) : nullptr)
        node->clear();
}
