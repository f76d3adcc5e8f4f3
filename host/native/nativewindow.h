// host/native/nativewindow.h: a GuiWindow as C++ sees it.
#pragma once

#include "host/native/nativeobject.h"

#include <utility>

/// A handle to one GuiWindow object; copies name the same window. A window that is open needs no handle to stay. Script
/// thread.
class NativeWindow
{
public:
    /// An empty handle has no window: its calls return null or false.
    NativeWindow() = default;
    explicit NativeWindow(NativeObjectRef object) : m_object(std::move(object)) {}

    /// Adds a handler: any callable (NativeWindow&, NativeArguments const&) that returns a value, a NativeLater or
    /// nothing. The first argument of a handler is the object that the event comes from, the rest is what the link
    /// carries.
    template <typename Callable>
    void on(std::string_view name, Callable callable)
    {
        if (m_object)
            m_object->setHandler(name, forObject(nativeWrap<NativeWindow>(std::move(callable))));
    }

    /// Calls any method by name, with any arguments.
    NativeValue call(std::string_view method, NativeArguments args = {}) const;

    /// Loads a page into the window; a relative name belongs to the host's folder.
    bool load(std::string_view path) const { return truth("load", {path}); }
    /// Shows the window and returns at once.
    bool open(bool modal = false) const { return truth("open", {modal}); }
    /// Shows the window modally and returns its return value when it is closed; null when none was set.
    NativeValue show() const { return call("show"); }
    void close() const { call("close"); }
    bool isOpen() const { return truth("isOpen"); }
    /// Whether a page is loaded.
    bool isValid() const { return truth("isValid"); }
    void setReturnValue(NativeValue const& value) const { call("setReturnValue", {value}); }
    void setTitle(std::string_view title) const { call("setTitle", {title}); }
    std::string title() const { return call("getTitle").text(); }
    bool setText(std::string_view text) const { return truth("setText", {text}); }
    bool loadFile(std::string_view path) const { return truth("loadFile", {path}); }
    bool loadBackground(std::string_view path) const { return truth("loadBackground", {path}); }
    void setFocus(std::string_view control) const { call("setFocus", {control}); }
    std::string focus() const { return call("getFocus").text(); }
    void setMinimumSize(int width, int height) const { call("setMinimumSize", {width, height}); }
    void setMaximumSize(int width, int height) const { call("setMaximumSize", {width, height}); }
    void setDefaultSize(int width, int height) const { call("setDefaultSize", {width, height}); }
    void setResizable(bool resizable = true) const { call("setResizable", {resizable}); }
    /// The GuiControl object of a named element; empty when the page has none of this name.
    NativeObjectRef control(std::string_view name) const { return call("control", {name}).object(); }

    NativeObjectRef const& object() const { return m_object; }
    explicit operator bool() const { return static_cast<bool>(m_object); }
    bool operator==(NativeWindow const& other) const = default;

private:
    using WindowHandler = std::function<NativeResult(NativeWindow&, NativeArguments const&)>;
    static NativeHandler forObject(WindowHandler handler);
    bool truth(std::string_view method, NativeArguments args = {}) const
    {
        return call(method, std::move(args)).toBool(0);
    }

    NativeObjectRef m_object;
};
