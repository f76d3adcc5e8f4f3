// controls/guiscriptvalue.h: script values and objects that C++ holds for the length of a block or of its own use, and
// reading and writing a property of an object. With a component only. Any thread that may use the object.
#pragma once

#include "controls/guicontrolhost.h"
#include "script/hostinterface.h"

#include <memory>

/// A script value, null at first.
class guiScratchValue
{
public:
    guiScratchValue() : m_value(guiControlHost::current().newValue()) {}
    ~guiScratchValue() { guiControlHost::current().deleteValue(m_value); }
    guiScratchValue(guiScratchValue const&) = delete;
    guiScratchValue& operator=(guiScratchValue const&) = delete;

    ScriptValue* operator->() const { return m_value; }
    ScriptValue& operator*() const { return *m_value; }
    ScriptValue* get() const { return m_value; }

private:
    ScriptValue* m_value; // owned
};

/// The object, kept until the last copy of the pointer is gone. Null stays null.
inline std::shared_ptr<ScriptObject> guiKept(ScriptObject* object)
{
    if (!object)
        return nullptr;
    object->keep();
    return {object, [](ScriptObject* last) { last->letGo(); }};
}

inline void guiSetNumber(ScriptObject* object, sstring const& name, int number)
{
    guiScratchValue const value;
    value->setInt(number);
    object->setProperty(name, value.get());
}

inline void guiSetSwitch(ScriptObject* object, sstring const& name, bool isOn)
{
    guiScratchValue const value;
    value->setBool(isOn);
    object->setProperty(name, value.get());
}

inline void guiSetText(ScriptObject* object, sstring const& name, sstring const& text)
{
    guiScratchValue const value;
    value->setString(text);
    object->setProperty(name, value.get());
}

/// `held` may be null.
inline void guiSetObject(ScriptObject* object, sstring const& name, ScriptObject* held)
{
    guiScratchValue const value;
    value->setObject(held);
    object->setProperty(name, value.get());
}

/// A property as a number or a switch: 0 and false for one that cannot be read as such.
inline int guiNumberOf(ScriptObject* object, sstring const& name)
{
    guiScratchValue const value;
    object->getProperty(name, value.get());
    return value->toInt(0);
}

inline bool guiSwitchOf(ScriptObject* object, sstring const& name)
{
    guiScratchValue const value;
    object->getProperty(name, value.get());
    return value->toBool(0);
}

/// A property that is a text; "" for anything else.
inline sstring guiStringOf(ScriptObject* object, sstring const& name)
{
    guiScratchValue const value;
    object->getProperty(name, value.get());
    return value->isString() ? value->toString(0) : sstring();
}
