// host/native/nativewindow.cpp: see nativewindow.h.
#include "host/native/nativewindow.h"

NativeValue NativeWindow::call(std::string_view method, NativeArguments args) const
{
    return m_object ? m_object->call(method, std::move(args)) : NativeValue();
}

NativeHandler NativeWindow::forObject(WindowHandler handler)
{
    return [handler = std::move(handler)](NativeObject& self, NativeArguments const& args) {
        NativeWindow window{NativeObjectRef(&self)};
        return handler(window, args);
    };
}
